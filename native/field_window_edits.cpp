// SPDX-License-Identifier: MIT
// Edits in a native field: what comes of a key, a paste or another program, and what the form
// hears.
#include "native/clipboard.hpp"
#include "native/field_window.hpp"
#include "native/native_keys.hpp"
#include "native/native_text.hpp"

namespace vkr {

bool FieldWindow::canUndo() const {
    return control() != nullptr && !field().locked() &&
           SendMessageW(editPart().window, EM_CANUNDO, 0, 0) != 0;
}

void FieldWindow::undo() {
    if (!canUndo())
        return;
    const Nested undoing(undoing_);
    send(EM_UNDO);
    takeEdit();
}

bool FieldWindow::typeCharacter(char32_t character) {
    if (character == U'\x1b' || (character == U'\r' && !hasLines()))
        return false;
    std::wstring units;
    if (character >= 0x10000) {
        units += static_cast<wchar_t>(0xD7C0U + (character >> 10U));
        units += static_cast<wchar_t>(0xDC00U + (character & 0x3FFU));
    } else {
        units += static_cast<wchar_t>(character);
    }
    if (character != U'\b' || !deletePair(Side::before))
        for (const wchar_t unit : units)
            send(WM_CHAR, unit, 1);
    takeEdit();
    return true;
}

// Not every edit control of the system knows that a pair of surrogates is one character.
bool FieldWindow::deletePair(Side side) {
    const auto range = selection();
    const auto all = text();
    const int start = side == Side::before ? range.start - 2 : range.start;
    if (range.length > 0 || start < 0 || start + 2 > static_cast<int>(all.size()) ||
        unitsOf(std::wstring_view(all).substr(static_cast<std::size_t>(start)), 1) != 2 ||
        field().locked())
        return false;
    send(EM_SETSEL, static_cast<WPARAM>(start), start + 2);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    return true;
}

void FieldWindow::leavePairs(UnitRange before) {
    const auto all = text();
    const auto range = selection();
    const auto isWithin = [&](int unit) {
        return unit > 0 && unit < static_cast<int>(all.size()) &&
               IS_SURROGATE_PAIR(all[static_cast<std::size_t>(unit) - 1],
                                 all[static_cast<std::size_t>(unit)]);
    };
    const int end = range.start + range.length;
    const bool back = range.length > 0 || range.start < before.start;
    const int newStart = range.start + (isWithin(range.start) ? (back ? -1 : 1) : 0);
    const int newEnd = range.length == 0 ? newStart : end + (isWithin(end) ? 1 : 0);
    if (newStart != range.start || newEnd != end)
        send(EM_SETSEL, static_cast<WPARAM>(newStart), newEnd);
}

void FieldWindow::paste() {
    form().userPaste(field(), fromWide(clipboard::text()));
}

// To the begin of the word, or to that of the next one.
void FieldWindow::deleteWord(Side side) {
    const auto all = text();
    auto range = selection();
    if (range.length == 0) {
        const auto isBlank = [&](int unit) { return all[static_cast<std::size_t>(unit)] <= L' '; };
        const int size = static_cast<int>(all.size());
        int place = range.start;
        if (side == Side::before) {
            while (place > 0 && isBlank(place - 1))
                --place;
            while (place > 0 && !isBlank(place - 1))
                --place;
            range = {place, range.start - place};
        } else {
            while (place < size && !isBlank(place))
                ++place;
            while (place < size && isBlank(place))
                ++place;
            range.length = place - range.start;
        }
    }
    send(EM_SETSEL, static_cast<WPARAM>(range.start),
         static_cast<LPARAM>(range.start) + range.length);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}

bool FieldWindow::edit(const MSG& key, int shift) {
    const bool locked = field().locked();
    switch (fieldCommandOf(static_cast<KeyCode>(key.wParam), shift)) {
    case FieldCommand::copy:
        send(WM_COPY);
        break;
    case FieldCommand::cut:
        if (!locked)
            send(WM_CUT);
        break;
    case FieldCommand::paste:
        paste();
        return true;
    case FieldCommand::undo:
        undo();
        return true;
    case FieldCommand::selectAll:
        send(EM_SETSEL, 0, -1);
        break;
    case FieldCommand::deleteWordBefore:
    case FieldCommand::deleteWordBehind:
        if (!locked)
            deleteWord(key.wParam == VK_BACK ? Side::before : Side::behind);
        break;
    case FieldCommand::move: {
        if (key.wParam == VK_DELETE && deletePair(Side::behind))
            break;
        const auto before = selection();
        send(key.message, key.wParam, key.lParam);
        leavePairs(before);
        break;
    }
    case FieldCommand::none:
        return false;
    }
    takeEdit();
    return true;
}

} // namespace vkr
