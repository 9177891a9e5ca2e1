// SPDX-License-Identifier: MIT
#include "input/mdlDataEntry.hpp"

namespace vkr {

bool checkFieldChange(TextField& field, FieldHost& host) {
    host.hideHelpFrame();
    if (field.text() == field.tag())
        return false;
    if (field.mark().empty())
        field.setStoredText(field.tag());
    else if (isUntouched(field))
        field.setMark("");
    field.setTag(field.text());
    host.markChanged();
    return true;
}

bool isUntouched(const TextField& field) {
    return field.mark().empty() ? field.text() == field.tag() : field.text() == field.storedText();
}

void putFieldText(TextField& field, std::string_view text) {
    field.setText(text);
    field.setTag(text);
    field.setMark("");
    field.setStoredText(std::nullopt);
}

} // namespace vkr
