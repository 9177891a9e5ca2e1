// SPDX-License-Identifier: MIT
#pragma once

#include "control/property_table.hpp"

#include <QByteArray>

namespace vkr {

// The property of the widget that a property of the component is: "shadeColorYear" for
// ShadeColorYear. Empty where the widget has none.
[[nodiscard]] QByteArray widgetProperty(const PropertyRow& row);

} // namespace vkr
