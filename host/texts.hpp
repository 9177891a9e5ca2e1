// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <QStringList>

#include <string_view>
#include <vector>

namespace vkr {

struct HistoryChange;

[[nodiscard]] QString fromUtf8(std::string_view text);

// 2026-01-30: four digits and the same everywhere. Empty for an absent date.
[[nodiscard]] QString isoDate(Date date);

// A time of the store, such as 2026-01-31T12:00:00Z, as 2026-01-31 13:00 where the user is.
[[nodiscard]] QString localTime(std::string_view utc);

// What people call a property or setting: "TotalDebt" is "Total Debt", "YEPSSeries" is "Yearly
// Earnings Per Share", "intUnit" is "Unit".
[[nodiscard]] QString datumTitle(std::string_view datum);

// A datum and the period that the figure is of, where it is of one: "Yearly Revenue 2024".
[[nodiscard]] QString figureTitle(std::string_view datum, const QString& period);
[[nodiscard]] QString figureTitle(const HistoryChange& change);
// Before or after a change, where something has to be said: "nothing" for what is absent.
[[nodiscard]] QString toldValue(const std::string& value);
// A line each: %1 is the figure, %2 and %3 are what it is before and after.
[[nodiscard]] QStringList described(const std::vector<HistoryChange>& changes, const QString& line);

// In the user's locale, with two decimals and more where the price has them.
[[nodiscard]] QString priceText(double price);

// In the user's locale, with all of its digits.
[[nodiscard]] QString figureText(double figure);

// "Apple Inc. (AAPL)", "Apple Inc.", "AAPL", or "New company".
[[nodiscard]] QString companyTitle(std::string_view name, std::string_view symbol);

} // namespace vkr
