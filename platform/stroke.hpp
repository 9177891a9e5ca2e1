// SPDX-License-Identifier: MIT
#pragma once

#include "platform/key_codes.hpp"

#include <string>

namespace vkr {

// One press of a key, as a desktop tells of it.
struct Stroke {
    KeyCode key = keys::none; // none for Shift, Ctrl, Alt and their like alone: no stroke
    int shift = shifts::none;
    // What it types, also Enter, Backspace and Escape. Empty for shortcuts, arrows, Delete and
    // their like.
    std::u32string typed;
    // What is on the key, whatever is held beside it; 0 for keys without a character.
    char32_t character = 0;
    bool held = false;      // it repeats
    bool command = false;   // to fields of this desktop: copy, undo, to the next word
    bool systemKey = false; // the desktop's own key is held beside it
};

// What the native control that has the focus does by itself; an adapter implements it for the
// duration of a stroke. Between two calls the focus may have moved to another control.
class NativeEditor {
  public:
    virtual ~NativeEditor() = default;

    // Tells the form of what has changed in the control unheard, such as a caret that was moved.
    virtual void catchUp() {}
    // Types a character, which came through the filter. False: the control has no use for it.
    virtual bool type(char32_t character) = 0;
    // The key of the stroke where it types no character: moves the caret, opens a list, cuts.
    virtual bool edit() = 0;
};

} // namespace vkr
