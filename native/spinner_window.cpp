// SPDX-License-Identifier: MIT
#include "native/spinner_window.hpp"

namespace vkr {

SpinnerWindow::SpinnerWindow(ViewHost& host, Spinner& spinner, HWND parent)
    : ControlWindow(host, spinner) {
    create(UPDOWN_CLASSW, 0, parent);
    // It stands in the middle of its own range, so that it never comes to an end.
    pass(mainPart(), UDM_SETRANGE32, static_cast<WPARAM>(-1000), 1000);
    pass(mainPart(), UDM_SETPOS32, 0, 0);
}

// A message box that came up has taken the release: without one it would go on stepping.
void SpinnerWindow::press(const Pointer& pointer) {
    pass(pointer);
    if (control() != nullptr && GetKeyState(VK_LBUTTON) >= 0)
        pass(mainPart(), WM_LBUTTONUP, 0, pointer.lParam);
}

std::optional<LRESULT> SpinnerWindow::reflect(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_VSCROLL)
        return 0;
    if (message != WM_NOTIFY)
        return ControlWindow::reflect(message, wParam, lParam);
    if (const auto& told = *reinterpret_cast<const NMHDR*>(lParam); told.code == UDN_DELTAPOS) {
        const int steps = reinterpret_cast<const NMUPDOWN*>(lParam)->iDelta;
        form().userSpin(static_cast<Spinner&>(*control()), steps > 0 ? 1 : -1);
    }
    return TRUE; // the position stays
}

} // namespace vkr
