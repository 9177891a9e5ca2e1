// SPDX-License-Identifier: MIT
#include "control/data_lock.hpp"

#include "form/form_layout.hpp"

namespace vkr {

DataLock::DataLock(Session& session) : session_(session) {
    for (const auto& field : fieldRows())
        if (field.page == toCompany || field.page == toOther)
            labels_.push_back(&session[field.label.control]);
}

void DataLock::set(bool locked) {
    session_[controls::lock].setValue(locked);
    apply();
}

void DataLock::setShade(Color color) {
    shadeColor_ = color;
    apply();
}

void DataLock::apply() {
    const Form::Update update(session_.form);
    const bool locked = session_.isLocked();
    for (const auto& control : session_.form.controls())
        if (auto* field = textFieldOf(control.get()))
            field->setLocked(locked);
    for (Label* label : labels_)
        label->setBackColor(locked ? shadeColor_ : colors::buttonFace);
}

} // namespace vkr
