// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"
#include "platform/stroke.hpp"

#include <string>

namespace vkr {

// What is held down beside a key, at the time of the message that is being handled.
[[nodiscard]] int shiftNow();

// The code of a key; keys::none for Shift, Ctrl, Alt and their like alone.
[[nodiscard]] KeyCode keyCodeOf(WPARAM key);

// A press of a key without what it types: what can be told before it is translated. `typed` has the
// character on the key where it is pressed without Ctrl and Alt.
[[nodiscard]] Stroke untranslatedStroke(const MSG& message);

// A press of a key with what it types, which is taken out of the queue.
[[nodiscard]] Stroke strokeOf(const MSG& message);

// What the native fields do at a press of a key beside typing.
enum class FieldCommand {
    none,
    copy,
    cut,
    paste,
    undo,
    selectAll,
    deleteWordBefore,
    deleteWordBehind,
    move, // the caret, or take a character away: the native control does it
};
[[nodiscard]] FieldCommand fieldCommandOf(KeyCode key, int shift);

} // namespace vkr
