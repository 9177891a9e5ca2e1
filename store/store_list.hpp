// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// The texts that a combo box of the form offers.
enum class StoreList { exchanges, industries, sources };

} // namespace vkr
