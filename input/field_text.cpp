// SPDX-License-Identifier: MIT
#include "input/field_text.hpp"

namespace vkr {

bool isUntouched(const TextField& field) {
    return field.text() == (field.isUnstored() ? field.storedText() : field.tag());
}

void putFieldText(TextField& field, std::string_view text) {
    field.setText(text);
    field.setTag(text);
    field.setMark({});
    field.setStoredText(std::nullopt);
}

void holdAsTyped(TextField& field) {
    field.setTag(field.text() + '\n'); // no line of text is like it
}

void replaceRefused(TextField& field) {
    if (!field.isUnstored())
        return;
    if (field.storedText())
        field.setTag(*field.storedText());
    else
        holdAsTyped(field);
    field.setMark({});
    field.setStoredText(std::nullopt);
}

void RefusedText::putBack() const {
    if (mark_.kind == MarkKind::doubtful && field_.text() == text_)
        field_.setMark(mark_);
    if (mark_.kind != MarkKind::unstored)
        return;
    const std::string stored = field_.text();
    putFieldText(field_, text_);
    field_.setMark(mark_);
    if (stored != text_) // else what was refused would pass for what is stored
        field_.setStoredText(stored);
}

} // namespace vkr
