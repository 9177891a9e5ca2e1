// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

void ring();

} // namespace vkr
