// SPDX-License-Identifier: MIT
#pragma once

#include "platform/key_notation.hpp"
#include "platform/services.hpp"
#include "platform/text_field.hpp"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// The native part of text fields for a desktop without a display: editing, caret, shortcuts and
// undo over the models. It changes texts and selections through Form::userEdit and
// Form::userSelect alone.
class VirtualFields {
  public:
    // `clipboard` is the one that shortcuts use; it must outlive this object.
    explicit VirtualFields(Services& clipboard) : clipboard_(clipboard) {}

    void clear() { states_.clear(); }
    void add(const TextField& field);
    void remove(const TextField& field) { states_.erase(&field); }
    void modelChanged(const TextField& field, Property property);
    void endRuns(); // typing from now on is a new undo step

    // Copy, paste, undo, to the next word and their like.
    [[nodiscard]] static bool isCommand(const KeyStroke& stroke);
    // A key that came through key down, without a character or with Ctrl or Alt held.
    void key(TextField& field, const KeyStroke& stroke);
    // A character that came through key press.
    void character(TextField& field, char32_t character);
    void select(TextField& field, int start, int length);

    [[nodiscard]] bool canUndo(const TextField& field) const;
    void undo(TextField& field);

  private:
    enum class Run { none, typing, backspacing, deleting };
    struct Step {
        std::string text;
        int start = 0;
        int length = 0;
    };
    struct State {
        Step current; // as last seen, which is what a command has replaced when it is heard of
        std::vector<Step> history;
        Run run = Run::none;
        int anchor = 0; // the end of the selection that stays,
        int caret = 0;  // and the one that moves
    };

    State& stateOf(const TextField& field);
    int caretOf(const TextField& field);
    int moved(const TextField& field, int caret, const KeyStroke& stroke) const;
    void moveCaret(TextField& field, const KeyStroke& stroke);
    void setSelection(TextField& field, int anchor, int caret);
    bool shortcut(TextField& field, const KeyStroke& stroke);
    void cut(TextField& field);
    void copy(const TextField& field);
    void paste(TextField& field);
    enum class Reach { character, word };
    void erase(TextField& field, Run run, Reach reach);
    void replace(TextField& field, int start, int length, std::string_view with, Run run);

    Services& clipboard_;
    std::map<const TextField*, State> states_;
};

} // namespace vkr
