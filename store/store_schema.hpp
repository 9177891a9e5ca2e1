// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"

#include <QString>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// What a file holds, told without writing to it.
enum class SchemaState { empty, current, older, newer, foreign };

inline constexpr int schemaVersion = 4;

[[nodiscard]] SchemaState inspectSchema(StoreConnection& connection);
// From whatever older version to the current one, in one transaction. `before` is done first, in
// the same transaction, unless another window was faster.
void migrateSchema(StoreConnection& connection, const std::function<void()>& before = {});

// A column of the table of companies that holds a datum or a setting.
struct StoreColumn {
    enum class Kind { text, number, integer, date };

    QString name;
    Kind kind;
    std::variant<Datum, std::string_view> content; // or the name of the setting
};

// How many figures each series of a company has, as the column `figures` says it: a row that is
// missing is no figure that is 0.
using FigureCounts = std::map<std::string, int, std::less<>>;
[[nodiscard]] std::string figuresText(const FigureCounts& counts);
[[nodiscard]] FigureCounts figureCounts(std::string_view text);

// Every datum that is no series, then the settings.
[[nodiscard]] const std::vector<StoreColumn>& storeColumns();

} // namespace vkr
