// SPDX-License-Identifier: MIT
#include "control/property_table.hpp"

#include "control/property_rows.hpp"

#include <cstddef>

namespace vkr {

std::span<const PropertyRow> propertyTable() {
    return property_rows::table;
}

const PropertyRow& propertyRow(EntryProperty property) {
    return property_rows::table[static_cast<std::size_t>(property)];
}

} // namespace vkr
