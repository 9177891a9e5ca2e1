// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <string>

namespace vkr {

// Every character, a mark of the byte order in front included.
[[nodiscard]] QString toQString(const std::string& text);
// A text as the database takes it.
[[nodiscard]] QVariant textValue(const std::string& text);

} // namespace vkr
