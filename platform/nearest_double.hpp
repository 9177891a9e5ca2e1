// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace vkr {

// The double nearest to a number as C writes it ("-12.5", ".5", "1e3", nothing else beside it), in
// any locale. Nothing where it is too large for one, or too small to be told from 0.
[[nodiscard]] std::optional<double> nearestDouble(std::string_view number);

} // namespace vkr
