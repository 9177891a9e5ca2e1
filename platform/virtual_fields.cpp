// SPDX-License-Identifier: MIT
#include "platform/virtual_fields.hpp"

#include "platform/form.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cstdlib>

namespace vkr {

namespace {

constexpr char32_t lineBreak = '\n';

std::u32string charactersOf(std::string_view text) {
    std::u32string characters;
    while (!text.empty()) {
        characters.push_back(firstCharacter(text));
        text = textFrom(text, 1);
    }
    return characters;
}

bool isBlank(char32_t character) {
    return character == ' ' || character == '\t' || character == lineBreak;
}

int wordLeft(const std::u32string& text, int caret) {
    const auto at = [&](int place) { return text[static_cast<std::size_t>(place)]; };
    while (caret > 0 && isBlank(at(caret - 1)))
        --caret;
    while (caret > 0 && !isBlank(at(caret - 1)))
        --caret;
    return caret;
}

int wordRight(const std::u32string& text, int caret) {
    const int end = static_cast<int>(text.size());
    const auto at = [&](int place) { return text[static_cast<std::size_t>(place)]; };
    while (caret < end && !isBlank(at(caret)))
        ++caret;
    while (caret < end && isBlank(at(caret)))
        ++caret;
    return caret;
}

int lineStart(const std::u32string& text, int caret) {
    while (caret > 0 && text[static_cast<std::size_t>(caret - 1)] != lineBreak)
        --caret;
    return caret;
}

int lineEnd(const std::u32string& text, int caret) {
    const auto found = text.find(lineBreak, static_cast<std::size_t>(caret));
    return static_cast<int>(found == std::u32string::npos ? text.size() : found);
}

int lineUp(const std::u32string& text, int caret) {
    const int start = lineStart(text, caret);
    if (start == 0)
        return caret;
    const int above = lineStart(text, start - 1);
    return std::min(above + (caret - start), start - 1);
}

int lineDown(const std::u32string& text, int caret) {
    const int end = lineEnd(text, caret);
    if (end == static_cast<int>(text.size()))
        return caret;
    return std::min(end + 1 + (caret - lineStart(text, caret)), lineEnd(text, end + 1));
}

bool isMultiLine(const TextField& field) {
    const auto* box = dynamic_cast<const TextBox*>(&field);
    return box != nullptr && box->multiLine();
}

} // namespace

void VirtualFields::add(const TextField& field) {
    State state;
    state.current = {field.text(), field.selStart(), field.selLength()};
    states_.insert_or_assign(&field, std::move(state));
}

VirtualFields::State& VirtualFields::stateOf(const TextField& field) {
    if (!states_.contains(&field))
        add(field);
    return states_.at(&field);
}

void VirtualFields::modelChanged(const TextField& field, Property property) {
    auto& state = stateOf(field);
    if (property == Property::text)
        state.history.clear();
    else if (property == Property::edit)
        state.history.push_back(state.current);
    else if (property != Property::selection)
        return;
    state.run = Run::none;
    state.current = {field.text(), field.selStart(), field.selLength()};
}

void VirtualFields::endRuns() {
    for (auto& [field, state] : states_)
        state.run = Run::none;
}

// --- caret and selection -------------------------------------------------------------------------

int VirtualFields::caretOf(const TextField& field) {
    auto& state = stateOf(field);
    if (std::min(state.anchor, state.caret) != field.selStart() ||
        std::abs(state.anchor - state.caret) != field.selLength()) {
        state.anchor = field.selStart();
        state.caret = field.selStart() + field.selLength();
    }
    return state.caret;
}

void VirtualFields::setSelection(TextField& field, int anchor, int caret) {
    field.form().userSelect(field, std::min(anchor, caret), std::abs(anchor - caret));
    auto& state = stateOf(field);
    state.run = Run::none;
    state.anchor = anchor;
    state.caret = caret;
    state.current.start = field.selStart();
    state.current.length = field.selLength();
}

void VirtualFields::select(TextField& field, int start, int length) {
    const int end = textLength(field.text());
    start = std::clamp(start, 0, end);
    setSelection(field, start, start + std::clamp(length, 0, end - start));
}

int VirtualFields::moved(const TextField& field, int caret, const KeyStroke& stroke) const {
    const bool byWord = (stroke.shift & shifts::control) != 0;
    const bool multiLine = isMultiLine(field);
    if (!byWord && stroke.key == keys::left)
        return std::max(0, caret - 1);
    if (!byWord && stroke.key == keys::right)
        return std::min(textLength(field.text()), caret + 1);
    const auto text = charactersOf(field.text());
    const int end = static_cast<int>(text.size());
    switch (stroke.key) {
    case keys::left:
        return wordLeft(text, caret);
    case keys::right:
        return wordRight(text, caret);
    case keys::home:
        return byWord || !multiLine ? 0 : lineStart(text, caret);
    case keys::end:
        return byWord || !multiLine ? end : lineEnd(text, caret);
    case keys::up:
        return multiLine ? lineUp(text, caret) : caret;
    case keys::down:
        return multiLine ? lineDown(text, caret) : caret;
    case keys::pageUp:
        return multiLine ? 0 : caret;
    case keys::pageDown:
        return multiLine ? end : caret;
    default:
        return caret;
    }
}

void VirtualFields::moveCaret(TextField& field, const KeyStroke& stroke) {
    const int caret = caretOf(field);
    if ((stroke.shift & shifts::shift) != 0) {
        setSelection(field, stateOf(field).anchor, moved(field, caret, stroke));
        return;
    }
    const bool collapses = field.selLength() > 0 && (stroke.shift & shifts::control) == 0;
    int target = 0;
    if (collapses && stroke.key == keys::left)
        target = field.selStart();
    else if (collapses && stroke.key == keys::right)
        target = field.selStart() + field.selLength();
    else
        target = moved(field, caret, stroke);
    setSelection(field, target, target);
}

// --- keys ----------------------------------------------------------------------------------------

bool VirtualFields::isCommand(const KeyStroke& stroke) {
    switch (stroke.key) {
    case 'A':
    case 'C':
    case 'V':
    case 'X':
    case 'Z':
    case keys::insert:
    case keys::backspace:
    case keys::del:
    case keys::left:
    case keys::right:
    case keys::home:
    case keys::end:
        return stroke.shift == shifts::control;
    default:
        return false;
    }
}

void VirtualFields::key(TextField& field, const KeyStroke& stroke) {
    if ((stroke.shift & shifts::alt) != 0 || shortcut(field, stroke))
        return;
    const bool byWord = (stroke.shift & shifts::control) != 0;
    switch (stroke.key) {
    case keys::left:
    case keys::right:
    case keys::home:
    case keys::end:
        moveCaret(field, stroke);
        break;
    case keys::up:
    case keys::down:
    case keys::pageUp:
    case keys::pageDown:
        if (isMultiLine(field))
            moveCaret(field, stroke);
        break;
    case keys::backspace:
        erase(field, Run::backspacing, byWord ? Reach::word : Reach::character);
        break;
    case keys::del:
        erase(field, Run::deleting, byWord ? Reach::word : Reach::character);
        break;
    default:
        break;
    }
}

bool VirtualFields::shortcut(TextField& field, const KeyStroke& stroke) {
    if (stroke.shift == shifts::shift) {
        if (stroke.key == keys::insert)
            paste(field);
        else if (stroke.key == keys::del)
            cut(field);
        return stroke.key == keys::insert || stroke.key == keys::del;
    }
    if (stroke.shift != shifts::control)
        return false;
    switch (stroke.key) {
    case 'A':
        setSelection(field, 0, textLength(field.text()));
        return true;
    case 'C':
    case keys::insert:
        copy(field);
        return true;
    case 'X':
        cut(field);
        return true;
    case 'V':
        paste(field);
        return true;
    case 'Z':
        undo(field);
        return true;
    default:
        return false;
    }
}

void VirtualFields::character(TextField& field, char32_t character) {
    if (character == 8) {
        erase(field, Run::backspacing, Reach::character);
        return;
    }
    std::string typed;
    if (character == 13) {
        if (isMultiLine(field))
            typed = "\n";
    } else if (character >= 0x20 && character != 0x7F) {
        appendCharacter(typed, character);
    }
    if (!typed.empty())
        replace(field, field.selStart(), field.selLength(), typed, Run::typing);
}

void VirtualFields::copy(const TextField& field) {
    if (field.selLength() > 0)
        clipboard_.setClipboardText(std::string(field.selText()));
}

void VirtualFields::cut(TextField& field) {
    if (field.locked() || field.selLength() == 0)
        return;
    copy(field);
    replace(field, field.selStart(), field.selLength(), "", Run::none);
}

void VirtualFields::paste(TextField& field) {
    if (clipboard_.clipboardHasText())
        field.form().userPaste(field, clipboard_.clipboardText());
}

void VirtualFields::erase(TextField& field, Run run, Reach reach) {
    if (field.selLength() > 0) {
        replace(field, field.selStart(), field.selLength(), "", Run::none);
        return;
    }
    const int caret = field.selStart();
    const KeyStroke towards{run == Run::backspacing ? keys::left : keys::right,
                            reach == Reach::word ? shifts::control : shifts::none};
    const int other = moved(field, caret, towards);
    replace(field, std::min(caret, other), std::abs(caret - other), "",
            reach == Reach::word ? Run::none : run);
}

// --- edits and undo ------------------------------------------------------------------------------

void VirtualFields::replace(TextField& field, int start, int length, std::string_view with,
                            Run run) {
    if (field.locked())
        return;
    const std::string before = field.text();
    std::string edited(textLeft(before, start));
    edited += with;
    edited += textFrom(before, start + length);
    const auto [text, caret] = field.taken(edited, start + textLength(with));
    if (text == before && edited != before)
        return; // no room for it
    if (text == before) {
        setSelection(field, caret, caret);
        return;
    }
    // All of this stands before the form hears of the edit: its handlers may edit once more.
    auto& state = stateOf(field);
    if (run == Run::none || run != state.run)
        state.history.push_back({before, field.selStart(), field.selLength()});
    state.run = run;
    state.current = {text, caret, 0};
    state.anchor = caret;
    state.caret = caret;
    field.form().userEdit(field, text, caret, 0);
}

bool VirtualFields::canUndo(const TextField& field) const {
    const auto found = states_.find(&field);
    return found != states_.end() && !found->second.history.empty() && !field.locked();
}

void VirtualFields::undo(TextField& field) {
    if (!canUndo(field))
        return;
    auto& state = stateOf(field);
    state.current = std::move(state.history.back());
    state.history.pop_back();
    state.run = Run::none;
    const Step step = state.current;
    field.form().userEdit(field, step.text, step.start, step.length);
}

} // namespace vkr
