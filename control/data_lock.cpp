// SPDX-License-Identifier: MIT
#include "control/data_lock.hpp"

#include "form/form_layout.hpp"

namespace vkr {

DataLock::DataLock(EntryContext& context) : context_(context) {
    for (const auto& field : fieldRows())
        if (field.page == toCompany || field.page == toOther)
            labels_.push_back(&context[field.label.control]);
}

void DataLock::set(bool locked) {
    context_[controls::lock].setValue(locked);
    apply();
}

void DataLock::setShade(Color color) {
    shadeColor_ = color;
    apply();
}

void DataLock::apply() {
    const Form::Update update(context_.form);
    const bool locked = context_.isLocked();
    for (const auto& control : context_.form.controls())
        if (auto* field = textFieldOf(control.get()))
            field->setLocked(locked);
    for (Label* label : labels_)
        label->setBackColor(locked ? shadeColor_ : colors::buttonFace);
}

} // namespace vkr
