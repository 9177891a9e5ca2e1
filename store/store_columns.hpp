// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <QString>

#include <string_view>
#include <variant>
#include <vector>

namespace vkr {

// A column of the table of companies that holds a datum or a setting.
struct StoreColumn {
    enum class Kind { text, number, integer, date };

    QString name;
    Kind kind;
    std::variant<Datum, std::string_view> content; // or the name of the setting
};

// Every datum that is no series, then the settings.
[[nodiscard]] const std::vector<StoreColumn>& storeColumns();

} // namespace vkr
