// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_text.hpp"

#include <QString>
#include <QStringList>

#include <string>

namespace vkr {

// Text as companies are searched and sorted by it, in the tables and in rows that were read
// already: the same on every database.

[[nodiscard]] QString searchable(const QString& text);
// The words that are looked for.
[[nodiscard]] QStringList searchWords(const std::string& search);
// Where words are looked for.
template <typename Company>
[[nodiscard]] QString searchedText(const Company& company) {
    return searchable(toQString(company.name + '\n' + company.symbol + '\n' + company.exchange +
                                '\n' + company.industry));
}
// Bytes of it are compared: without case and accents, and "Plant 9" before "Plant 10".
[[nodiscard]] QString sortKey(const std::string& text);

} // namespace vkr
