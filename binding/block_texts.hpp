// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// What the text of one cell of a block is by itself, before anything is known of its neighbours.

[[nodiscard]] bool isBlank(std::string_view text);
[[nodiscard]] bool isNoFigure(std::string_view text);
// With a letter in it: "100-50" is no head of anything.
[[nodiscard]] bool isText(std::string_view text);
// Web tables give these a cell of their own beside the figure.
[[nodiscard]] bool isCurrencySign(std::string_view text);
[[nodiscard]] bool isClosingSign(std::string_view text);
// "1.5M", "$2 billion": with its own unit, which is not read.
[[nodiscard]] bool isScaledFigure(std::string_view text);
// "2021", "FY 2021", "FY2021", "FY21", "Fiscal 2021", "2021A" as the actual figures of a year.
[[nodiscard]] std::optional<int> yearIn(std::string_view text);

// "Sep 2025" of "Sep-25" and "Sep '25", as spreadsheets write a month; nothing for a year behind
// `last`, which is a day then.
[[nodiscard]] std::optional<std::string> monthIn(std::string_view text, int last);

struct FiscalQuarter {
    int quarter; // 1 to 4
    int year;

    friend bool operator==(const FiscalQuarter&, const FiscalQuarter&) = default;
};
// "Q4 2025", "Q4 FY25", "Q4'25", "4Q25", "2025 Q4".
[[nodiscard]] std::optional<FiscalQuarter> quarterIn(std::string_view text);
// Of "9 Months Ended", "three months", "52 weeks": 9, 3, 12. One of several that `usual` is not.
[[nodiscard]] std::optional<int> otherMonthsIn(std::string_view text, int usual);
// A text with a year, a quarter or the last twelve months in it.
[[nodiscard]] bool namesPeriod(std::string_view text);
// What stands where periods and labels meet: nothing, or "Years ended", "(In millions)".
[[nodiscard]] bool isCornerOfPeriods(std::string_view text);

} // namespace vkr
