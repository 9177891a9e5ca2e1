// SPDX-License-Identifier: MIT
#include "input/mdlDataEntry.hpp"

namespace vkr {

bool checkFieldChange(TextField& field, FieldHost& host) {
    host.hideHelpFrame();
    if (field.text() == field.tag())
        return false;
    field.setTag(field.text());
    host.markChanged();
    return true;
}

bool isUntouched(const TextField& field) {
    return field.text() == field.tag() && field.mark().empty();
}

void putFieldText(TextField& field, std::string_view text) {
    field.setText(text);
    field.setTag(text);
    field.setMark("");
}

} // namespace vkr
