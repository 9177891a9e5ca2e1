// SPDX-License-Identifier: MIT
#pragma once

#include "control/entry_property.hpp"

#include <span>

namespace vkr {

[[nodiscard]] std::span<const PropertyRow> propertyTable();
[[nodiscard]] const PropertyRow& propertyRow(EntryProperty property);

} // namespace vkr
