// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"

namespace vkr {

// The changes the other way round, last to first.
[[nodiscard]] ChangeGroup inverse(ChangeGroup group);

// The group taken back, as a step of its own.
[[nodiscard]] ChangeGroup takenBack(const ChangeGroup& group);

// Whether the one is the other taken back, be it under another name.
[[nodiscard]] bool takesBack(const ChangeGroup& one, const ChangeGroup& other);

} // namespace vkr
