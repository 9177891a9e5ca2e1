// SPDX-License-Identifier: MIT
#include "native/native_keys.hpp"

#include <algorithm>

namespace vkr {

namespace {

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

bool isHeld(const MSG& message) {
    constexpr LPARAM wasDown = 1 << 30;
    return (message.lParam & wasDown) != 0;
}

char32_t characterOn(WPARAM key) {
    constexpr UINT deadKey = 0x80000000U;
    return MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_CHAR) & ~deadKey;
}

Stroke plainStroke(const MSG& message) {
    Stroke stroke;
    stroke.key = keyCodeOf(message.wParam);
    stroke.shift = shiftNow();
    stroke.character = characterOn(message.wParam);
    stroke.held = isHeld(message);
    stroke.command = (stroke.shift & shifts::control) != 0 &&
                     fieldCommandOf(stroke.key, stroke.shift) != FieldCommand::none;
    stroke.systemKey = isDown(VK_LWIN) || isDown(VK_RWIN);
    return stroke;
}

bool isControlAlone(int shift) {
    const bool control = (shift & shifts::control) != 0;
    const bool alt = (shift & shifts::alt) != 0;
    return control != alt; // both together are AltGr
}

} // namespace

int shiftNow() {
    return (isDown(VK_SHIFT) ? shifts::shift : 0) + (isDown(VK_CONTROL) ? shifts::control : 0) +
           (isDown(VK_MENU) ? shifts::alt : 0);
}

KeyCode keyCodeOf(WPARAM key) {
    switch (key) {
    case VK_SHIFT:
    case VK_CONTROL:
    case VK_MENU:
    case VK_CAPITAL:
    case VK_NUMLOCK:
    case VK_SCROLL:
    case VK_LWIN:
    case VK_RWIN:
    case VK_LSHIFT:
    case VK_RSHIFT:
    case VK_LCONTROL:
    case VK_RCONTROL:
    case VK_LMENU:
    case VK_RMENU:
        return keys::none;
    default:
        return static_cast<KeyCode>(key); // the codes are the same
    }
}

Stroke untranslatedStroke(const MSG& message) {
    Stroke stroke = plainStroke(message);
    if (stroke.character != 0 && (stroke.shift & (shifts::control | shifts::alt)) == 0)
        stroke.typed.assign(1, stroke.character);
    return stroke;
}

Stroke strokeOf(const MSG& message) {
    Stroke stroke = plainStroke(message);
    std::wstring typed;
    bool own = false; // on some keyboards Alt makes other characters of the keys
    MSG next;
    for (const auto& [first, last] :
         {std::pair<UINT, UINT>{WM_CHAR, WM_DEADCHAR}, {WM_SYSCHAR, WM_SYSDEADCHAR}})
        while (PeekMessageW(&next, message.hwnd, first, last, PM_REMOVE) != FALSE)
            if (next.message == WM_CHAR || next.message == WM_SYSCHAR) {
                typed += static_cast<wchar_t>(next.wParam);
                own = own || next.wParam >= 0x80;
            }
    if (isControlAlone(stroke.shift) && !(own && (stroke.shift & shifts::alt) != 0))
        return stroke;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const wchar_t unit = typed[i];
        if (i + 1 < typed.size() && IS_SURROGATE_PAIR(unit, typed[i + 1])) {
            stroke.typed += 0x10000U + ((unit - 0xD800U) << 10U) + (typed[i + 1] - 0xDC00U);
            ++i;
        } else if (unit >= L' ' || unit == L'\r' || unit == L'\b' || unit == L'\x1b') {
            stroke.typed += static_cast<char32_t>(unit);
        }
    }
    return stroke;
}

FieldCommand fieldCommandOf(KeyCode key, int shift) {
    struct Row {
        KeyCode key;
        int shift;
        FieldCommand command;
    };
    static constexpr Row rows[] = {
        {'C', shifts::control, FieldCommand::copy},
        {keys::insert, shifts::control, FieldCommand::copy},
        {'X', shifts::control, FieldCommand::cut},
        {keys::del, shifts::shift, FieldCommand::cut},
        {'V', shifts::control, FieldCommand::paste},
        {keys::insert, shifts::shift, FieldCommand::paste},
        {'Z', shifts::control, FieldCommand::undo},
        {keys::backspace, shifts::alt, FieldCommand::undo},
        {'A', shifts::control, FieldCommand::selectAll},
        {keys::backspace, shifts::control, FieldCommand::deleteWordBefore},
        {keys::del, shifts::control, FieldCommand::deleteWordBehind},
    };
    const auto* row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& one) {
        return one.key == key && one.shift == shift;
    });
    if (row != std::end(rows))
        return row->command;
    const bool moves = key >= keys::pageUp && key <= keys::down;
    return (moves || key == keys::del) && (shift & shifts::alt) == 0 ? FieldCommand::move
                                                                     : FieldCommand::none;
}

} // namespace vkr
