// SPDX-License-Identifier: MIT
#pragma once

#include "form/form_rows.hpp"
#include "form/sizes.hpp"

// What the pages have in common: heights, columns of fields, and short words for rows.
namespace vkr::page {

inline constexpr Twips labelHeight = 195;
inline constexpr Twips fieldHeight = 285;
using sizes::cellPitch;
inline constexpr Twips labelDrop = 45;  // a label's text stands on the line of its field's text
inline constexpr Twips signWidth = 195; // of a currency sign

// A column of fields on a page, line below line.
struct FieldColumn {
    Twips label = 0;
    Twips labelWidth = 0;
    Twips currency = 0;
    Twips field = 0;
    Twips fieldWidth = 0;

    [[nodiscard]] constexpr FieldPlace line(int number) const {
        return {.label = label,
                .labelWidth = labelWidth,
                .currency = currency,
                .field = field,
                .fieldWidth = fieldWidth,
                .top = 105 + number * 345.0};
    }
};

// A control that has no handle.
constexpr ControlId box(std::string_view name) {
    return {ControlKind::textBox, name};
}

} // namespace vkr::page
