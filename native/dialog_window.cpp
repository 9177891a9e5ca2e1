// SPDX-License-Identifier: MIT
#include "native/dialog_window.hpp"

#include "native/guard.hpp"
#include "native/module.hpp"
#include "native/native_text.hpp"

#include <algorithm>
#include <stdexcept>

namespace vkr {

DialogWindow::DialogWindow(std::string_view caption, HWND owner, const PixelScale& scale,
                           DWORD style)
    : owner_(owner), scale_(scale), fonts_(scale) {
    window_ = CreateWindowExW(
        WS_EX_DLGMODALFRAME, registeredKind(L"VKRDataEntryDialog", &DialogWindow::procedure),
        toWide(caption).c_str(), style | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0, 0,
        0, 0, owner, nullptr, ownModule(), nullptr);
    if (window_ == nullptr)
        throw std::runtime_error("a window could not be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

DialogWindow::~DialogWindow() {
    if (window_ == nullptr)
        return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

HWND DialogWindow::addPart(const wchar_t* kind, std::wstring_view text, DWORD style, int part,
                           const RECT& place) {
    const HWND made = CreateWindowExW(
        0, kind, std::wstring(text).c_str(), style | WS_CHILD | WS_VISIBLE, place.left, place.top,
        place.right - place.left, place.bottom - place.top, window_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(part)), nullptr, nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.plain()), FALSE);
    return made;
}

DWORD DialogWindow::style() const {
    return static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
}

RECT DialogWindow::workArea() const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner_, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

void DialogWindow::giveRoom(SIZE inside, const std::optional<RECT>& beside) {
    RECT place{0, 0, inside.cx, inside.cy};
    AdjustWindowRectExForDpi(&place, style(), FALSE, WS_EX_DLGMODALFRAME,
                             static_cast<UINT>(scale_.dotsPerInch()));
    const RECT screen = workArea();
    const LONG width = std::min(place.right - place.left, screen.right - screen.left);
    const LONG height = std::min(place.bottom - place.top, screen.bottom - screen.top);
    RECT around{};
    GetWindowRect(owner_, &around);
    POINT corner{(around.left + around.right - width) / 2,
                 (around.top + around.bottom - height) / 2};
    if (beside) { // right below the field, or above it where the screen ends
        corner = {beside->left, beside->bottom + 1};
        if (corner.y + height > screen.bottom)
            corner.y = beside->top - height - 1;
    }
    corner.x = std::clamp(corner.x, screen.left, std::max(screen.left, screen.right - width));
    corner.y = std::clamp(corner.y, screen.top, std::max(screen.top, screen.bottom - height));
    SetWindowPos(window_, nullptr, corner.x, corner.y, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

bool DialogWindow::key(const MSG& message) {
    MSG copy = message;
    return IsDialogMessageW(window_, &copy) != FALSE;
}

void DialogWindow::run() {
    EnableWindow(owner_, FALSE);
    ShowWindow(window_, SW_SHOW);
    SetFocus(first());
    MSG message;
    while (window_ != nullptr && isOpen()) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) { // the program ends
            if (got == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE;
        if (ours && key(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    EnableWindow(owner_, TRUE); // before the window goes, or another program would come up
    if (window_ != nullptr && GetActiveWindow() == window_)
        SetActiveWindow(owner_);
}

LRESULT CALLBACK DialogWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* dialog = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (dialog == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) { // with its owner
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        dialog->window_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    return guarded<LRESULT>(0, [&] { return dialog->handle(message, wParam, lParam); });
}

LRESULT DialogWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto answer = handleOwn(message, wParam, lParam))
        return *answer;
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) == okPart)
            accept();
        else if (HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) == cancelPart)
            cancel();
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && GetFocus() == nullptr)
            SetFocus(first());
        return 0;
    case WM_CLOSE:
        cancel();
        return 0;
    default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
}

} // namespace vkr
