// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "platform/object.hpp"

#include <memory>
#include <string_view>

namespace vkr::automation {

// The localizers and the rule of the trailing earnings of this library, as they are seen outside.
[[nodiscard]] ComPtr<IUnknown> newStandardLocalizer();
[[nodiscard]] ComPtr<IUnknown> newZxLocalizer();
[[nodiscard]] ComPtr<IUnknown> newEarningsObject();

// What a programmatic identifier stands for on this machine: an object that somebody else has
// registered under it, else that of this library. Null for one that nobody knows, and where
// somebody else's can't be made.
[[nodiscard]] std::shared_ptr<Object> createdObject(std::string_view programmaticId);

} // namespace vkr::automation
