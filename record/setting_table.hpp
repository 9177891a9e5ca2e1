// SPDX-License-Identifier: MIT
#pragma once

#include "record/ivkr_company.hpp"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>

namespace vkr {

enum class SettingKind { number, text, flag };

// Which object of the record answers to a setting.
enum class SettingHolder { settings, reportingPeriod };

// A setting of a record.
struct SettingRow {
    std::string_view name;
    std::string_view key; // in the CSV file of the company
    SettingKind kind;
    std::string_view title; // what people call it
    SettingHolder holder = SettingHolder::settings;
    std::int16_t initial = 0; // of a number; a text is empty at first, a flag false
};

// Every setting, declared once. The settings object, the columns of the store and the rows of the
// CSV file follow from it.
inline constexpr SettingRow settingTable[] = {
    {.name = setting::unit, .key = "unit", .kind = SettingKind::number, .title = "Unit"},
    {.name = setting::leadPeriod,
     .key = "lead_period",
     .kind = SettingKind::number,
     .title = "Reporting Period",
     .holder = SettingHolder::reportingPeriod,
     .initial = -1},
    {.name = setting::currencySymbol,
     .key = "currency_symbol",
     .kind = SettingKind::text,
     .title = "Currency Symbol"},
    {.name = setting::bookValue,
     .key = "show_book_value",
     .kind = SettingKind::flag,
     .title = "Show Book Value"},
    {.name = setting::taxRate,
     .key = "show_tax_rate",
     .kind = SettingKind::flag,
     .title = "Show Tax Rate"},
    {.name = setting::lockBasicInfo,
     .key = "lock_basic_info",
     .kind = SettingKind::flag,
     .title = "Lock Data"},
};
inline constexpr std::size_t settingCount = std::size(settingTable);

// By its name; null where there is none.
[[nodiscard]] const SettingRow* settingNamed(std::string_view name);
[[nodiscard]] SettingHolder holderOf(std::string_view name);

// They pass on what the record throws, and throw std::runtime_error where it hands out no object.
[[nodiscard]] std::shared_ptr<Object> settingObject(const iVKR_Company& company,
                                                    SettingHolder holder);
[[nodiscard]] Variant readSetting(const iVKR_Company& company, std::string_view name);
// The record takes over what was written into its object.
void applySettings(const iVKR_Company& company, SettingHolder holder);

} // namespace vkr
