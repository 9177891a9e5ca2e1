// SPDX-License-Identifier: MIT
#pragma once

#include "record/ivkr_company.hpp"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace vkr {

enum class SettingKind { number, text, flag };

struct SettingRow {
    std::string_view name;
    std::string_view key; // in the CSV file of the company
    SettingKind kind;
    std::int16_t initial = 0; // of a number; a text is empty at first, a flag false
};

// Every setting of a record.
inline constexpr SettingRow settingTable[] = {
    {setting::unit, "unit", SettingKind::number},
    {setting::leadPeriod, "lead_period", SettingKind::number, -1},
    {setting::currencySymbol, "currency_symbol", SettingKind::text},
    {setting::bookValue, "show_book_value", SettingKind::flag},
    {setting::taxRate, "show_tax_rate", SettingKind::flag},
    {setting::lockBasicInfo, "lock_basic_info", SettingKind::flag},
};
inline constexpr std::size_t settingCount = std::size(settingTable);

} // namespace vkr
