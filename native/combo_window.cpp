// SPDX-License-Identifier: MIT
#include "native/combo_window.hpp"

#include "native/native_text.hpp"

#include <algorithm>

namespace vkr {

ComboWindow::ComboWindow(ViewHost& host, ComboBox& list, HWND parent) : FieldWindow(host, list) {
    create(WC_COMBOBOXW, CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP | WS_CLIPCHILDREN,
           parent);
    adopt(edit_, FindWindowExW(window(), nullptr, WC_EDITW, nullptr));
}

ComboWindow::~ComboWindow() {
    release(edit_);
}

void ComboWindow::show(Property property) {
    static const Setter setters[] = {{Property::list, &ComboWindow::showList}};
    FieldWindow::show(property);
    ControlWindow::show(property, setters);
}

void ComboWindow::showAll() {
    FieldWindow::showAll();
    place();
}

// The height that the system is told is that of the open list.
void ComboWindow::place() {
    constexpr int frame = 6; // of the field, above and below
    constexpr int entries = 12;
    const auto place = host().scale().place(*control());
    pass(mainPart(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(1, place.height - frame));
    const int entry = static_cast<int>(SendMessageW(window(), CB_GETITEMHEIGHT, 0, 0));
    SetWindowPos(window(), nullptr, place.left, place.top, place.width,
                 place.height + entry * entries, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ComboWindow::showList() {
    const Nested nested(showing_);
    const auto kept = text();
    const auto range = selection();
    pass(mainPart(), CB_RESETCONTENT);
    int widest = 0;
    for (const auto& entry : list().list()) {
        const auto wide = toWide(entry);
        pass(mainPart(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
        widest = std::max(widest, host().fonts().widthOf(wide));
    }
    // Entries may be longer than the field is wide.
    pass(mainPart(), CB_SETDROPPEDWIDTH,
         static_cast<WPARAM>(widest + GetSystemMetrics(SM_CXVSCROLL) + 8));
    if (text() != kept) {
        send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(kept.c_str()));
        select(range);
    }
}

bool ComboWindow::isOpen() const {
    return SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

// The list of a locked field stays closed. The window's own entry lags behind the text.
void ComboWindow::open() {
    if (list().locked())
        return;
    const Nested nested(showing_);
    const auto range = selection();
    pass(mainPart(), CB_SETCURSEL, static_cast<WPARAM>(list().listIndex()));
    const auto wanted = toWide(list().text());
    if (text() != wanted)
        send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wanted.c_str()));
    pass(mainPart(), CB_SHOWDROPDOWN, TRUE);
    select(range);
}

void ComboWindow::choose(int index) {
    form().focus(list());
    if (isActive())
        form().userPick(list(), index);
    if (control() != nullptr)
        show(Property::text);
}

std::optional<LRESULT> ComboWindow::reflect(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COMMAND)
        return FieldWindow::reflect(message, wParam, lParam);
    switch (HIWORD(wParam)) {
    case CBN_EDITCHANGE:
        nativeChanged();
        break;
    case CBN_SELENDOK: {
        const auto index = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
        if (index >= 0 && !list().locked())
            choose(index);
        break;
    }
    case CBN_SELENDCANCEL:
    case CBN_CLOSEUP:
        // What the open list has put into the field meanwhile goes.
        if (text() != toWide(list().text()))
            show(Property::text);
        break;
    default:
        break;
    }
    return 0;
}

bool ComboWindow::keyOfList(const MSG& key) {
    if (!isOpen())
        return false;
    switch (key.wParam) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_F4:
        pass(mainPart(), key.message, key.wParam, key.lParam);
        return true;
    case VK_TAB:
        pass(mainPart(), CB_SHOWDROPDOWN, FALSE);
        return false;
    default:
        return false;
    }
}

bool ComboWindow::edit(const MSG& key, int shift) {
    const bool vertical = key.wParam == VK_DOWN || key.wParam == VK_UP;
    if ((key.wParam == VK_F4 && shift == shifts::none) || (vertical && shift == shifts::alt)) {
        open();
        return true;
    }
    return FieldWindow::edit(key, shift);
}

bool ComboWindow::wheel(int steps) {
    return form().userTurn(list(), steps);
}

std::optional<LRESULT> ComboWindow::handleOwn(const Part& part, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
    if (part.window == window()) {
        if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC)
            return reflect(message, wParam, lParam);
        if (message == WM_PAINT) {
            const LRESULT answer = pass(part, message, wParam, lParam);
            paintMark();
            return answer;
        }
        if (message == WM_COMMAND || message == WM_SETTEXT || message == WM_PASTE ||
            message == WM_CUT || message == WM_CLEAR)
            return std::nullopt; // its edit control hears of it
    }
    return FieldWindow::handleOwn(part, message, wParam, lParam);
}

void ComboWindow::press(const Pointer& pointer) {
    if (pointer.part.window != window()) {
        FieldWindow::press(pointer);
        return;
    }
    beginPress(pointer);
    if (control() == nullptr || !isActive() || !host().isPressed(*this) ||
        pointer.button != MouseButton::left)
        return;
    host().endPress(*this, MouseButton::left, PressEnd::inside); // the list takes the release
    if (GetCapture() == window())
        ReleaseCapture();
    if (control() == nullptr || list().locked())
        return;
    if (isOpen())
        pass(mainPart(), CB_SHOWDROPDOWN, FALSE);
    else
        open();
}

void ComboWindow::releaseButton(const Pointer& pointer) {
    if (pointer.part.window == window())
        pass(pointer);
    else
        FieldWindow::releaseButton(pointer);
}

} // namespace vkr
