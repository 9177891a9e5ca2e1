// SPDX-License-Identifier: MIT
#include "input/mdlDataEntry.hpp"

#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"

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

void RefusedText::putBack() const {
    const std::string stored = field_.text();
    putFieldText(field_, text_);
    field_.setMark(reason_);
    field_.setStoredText(stored);
}

void convertTypedPrice(bool toDecimal, TextField& field) {
    const auto price = [&] {
        return numericValue(cleanNumericText(field.text(), NumericKind::PriceText).text);
    };
    const std::string typed = field.text();
    const double before = price();
    ConvertPriceText(toDecimal, field);
    if (price() != before)
        field.setText(typed);
}

} // namespace vkr
