// SPDX-License-Identifier: MIT
#pragma once

#include "platform/number_marks.hpp"
#include "platform/number_text.hpp"

#include <string>
#include <string_view>

namespace vkr {

enum class NumericKind {
    PlainNumber,
    PriceText, // may be written as a fraction: "3 1/8"
};

struct NumericText {
    std::string text;    // plain decimal text such as "-1234.50"; "" when there is no number
    bool fits = true;    // false: times the power of ten asked for it is too large for a double
    std::string leftOut; // what of the text the number does not say: "M" of "1.5M", all of "1e-400"
};

// The text of a field as a plain decimal text with every digit that was typed.
//
// A text that is one number in a well-known written form is read as a whole: groups of thousands
// ("1,234,567.89", also with blanks or apostrophes), a currency sign ($ euro pound yen), a minus
// before or behind ("12-", also U+2212 and dashes; "12.-" has one for the cents), accounting
// brackets ("(1,234)"), "+", a percent sign (which counts for nothing), no-break blanks around. A
// price may be a fraction in place of a decimal: "3 1/8", "3-1/8", "3/8", "3" followed by the
// character for 1/8.
//
// Of any other text it is the number at its start, as readLeadingNumber finds it.
//
// One group of thousands alone may be the decimals of somebody with other marks: "1.234" where the
// comma is the decimal mark is 1234, and its point is left out. So is the comma where the form does
// not group by it.
//
// `exponent`: the power of ten by which the value is going to be multiplied. `marks`: those of the
// form that the text stands on.
[[nodiscard]] NumericText cleanNumericText(std::string_view text, NumericKind kind,
                                           int exponent = 0, const NumberMarks& marks = {});

// The mark of a whole figure's only group of thousands, where it could as well be a decimal mark:
// "," of "1,234", not of "1,234,567" or "1,234.5". Else empty.
[[nodiscard]] std::string markOfOnlyGroup(std::string_view text, const NumberMarks& marks);

// The value of a plain decimal text, 0 for "".
[[nodiscard]] double numericValue(std::string_view cleanText);

// The value of the text times 10^exponent, rounded once, from the decimal text. Infinite when it
// is too large; cleanNumericText tells beforehand.
[[nodiscard]] double shiftDecimal(std::string_view cleanText, int exponent);

// stored x 10^exponent by its decimal digits: 0.394 x 1000 is 394. An exponent of 0 changes
// nothing.
[[nodiscard]] double scaleValue(double stored, int exponent);

// The value of the decimal text of at most 15 digits, for sums: 0.1 + 0.2 is 0.3.
[[nodiscard]] double withoutStrayDigits(double value);

} // namespace vkr
