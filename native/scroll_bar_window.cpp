// SPDX-License-Identifier: MIT
#include "native/scroll_bar_window.hpp"

namespace vkr {

ScrollBarWindow::ScrollBarWindow(ViewHost& host, ScrollBar& bar, HWND parent)
    : ControlWindow(host, bar) {
    create(WC_SCROLLBARW, bar.orientation() == Orientation::vertical ? SBS_VERT : SBS_HORZ, parent);
}

void ScrollBarWindow::show(Property property) {
    static const Setter setters[] = {{Property::value, &ScrollBarWindow::showValue}};
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

void ScrollBarWindow::showValue() {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    info.nMin = bar().minimum();
    info.nMax = bar().maximum() + bar().largeChange() - 1; // the last page begins at the maximum
    info.nPage = static_cast<UINT>(bar().largeChange());
    info.nPos = bar().value();
    SetScrollInfo(window(), SB_CTL, &info, TRUE);
}

std::optional<LRESULT> ScrollBarWindow::reflect(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_HSCROLL && message != WM_VSCROLL)
        return ControlWindow::reflect(message, wParam, lParam);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    int value = bar().value();
    switch (LOWORD(wParam)) {
    case SB_LINEUP:
        value -= bar().smallChange();
        break;
    case SB_LINEDOWN:
        value += bar().smallChange();
        break;
    case SB_PAGEUP:
        value -= bar().largeChange();
        break;
    case SB_PAGEDOWN:
        value += bar().largeChange();
        break;
    case SB_TOP:
        value = bar().minimum();
        break;
    case SB_BOTTOM:
        value = bar().maximum();
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        GetScrollInfo(window(), SB_CTL, &info);
        value = info.nTrackPos;
        break;
    default:
        return 0;
    }
    form().userScroll(bar(), value);
    if (control() != nullptr)
        showValue();
    return 0;
}

} // namespace vkr
