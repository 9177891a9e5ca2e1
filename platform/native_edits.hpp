// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_field.hpp"

#include <optional>
#include <string_view>

namespace vkr {

// What a face makes of an edit that its native field has made by itself.

// The edit as the field takes it. `untilCaret` is the edited text as far as the native caret;
// `isUndo` where it brings back what was there before, which is taken whole.
[[nodiscard]] TextField::Edit offeredEdit(const TextField& field, std::string_view edited,
                                          std::string_view untilCaret, bool isUndo);

// What stands in the edited text in place of the selection that `front` and `back` were on both
// sides of; nothing where that is not all that has changed, or nothing stands there.
[[nodiscard]] std::optional<std::string_view>
putBetween(std::string_view front, std::string_view back, std::string_view edited);

} // namespace vkr
