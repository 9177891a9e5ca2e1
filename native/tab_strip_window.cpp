// SPDX-License-Identifier: MIT
#include "native/tab_strip_window.hpp"

#include "native/native_text.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

TabStripWindow::TabStripWindow(ViewHost& host, TabStrip& strip, HWND parent)
    : ControlWindow(host, strip) {
    create(WC_TABCONTROLW, TCS_SINGLELINE | TCS_FOCUSONBUTTONDOWN | WS_TABSTOP | WS_CLIPCHILDREN,
           parent);
}

void TabStripWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::caption, &TabStripWindow::showTabs},
        {Property::caption, &TabStripWindow::showSelected},
        {Property::value, &TabStripWindow::showSelected},
        {Property::place, &TabStripWindow::showWidths},
    };
    const Nested nested(showing_);
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

void TabStripWindow::showAll() {
    ControlWindow::showAll();
    showWidths();
}

void TabStripWindow::showSelected() {
    pass(mainPart(), TCM_SETCURSEL, static_cast<WPARAM>(strip().selected() - 1));
}

void TabStripWindow::showTabs() {
    const int there = static_cast<int>(pass(mainPart(), TCM_GETITEMCOUNT));
    for (int i = 0; i < strip().count(); ++i) {
        auto caption = toWide(strip().tab(i + 1).caption);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        pass(mainPart(), i < there ? TCM_SETITEMW : TCM_INSERTITEMW, static_cast<WPARAM>(i),
             reinterpret_cast<LPARAM>(&item));
    }
    for (int i = there; i > strip().count(); --i)
        pass(mainPart(), TCM_DELETEITEM, static_cast<WPARAM>(i - 1));
}

// The native tabs are as wide as their texts; what the models have more goes around these.
void TabStripWindow::showWidths() {
    if (strip().count() == 0)
        return;
    int room = 0;
    for (int tab = 1; tab <= strip().count(); ++tab)
        room += host().scale().pixels(strip().tab(tab).width) -
                host().fonts().widthOf(toWide(withoutMnemonic(strip().tab(tab).caption)));
    // As high as the strip but for the line below them.
    const auto place = host().scale().place(strip());
    const int height = std::max(1, place.height - 2 * GetSystemMetrics(SM_CYEDGE));
    constexpr int least = 3;
    constexpr int behind = 4; // else the system shows arrows to scroll by
    for (int beside = std::max(least, room / (2 * strip().count())); beside >= least; --beside) {
        pass(mainPart(), TCM_SETPADDING, 0, MAKELPARAM(beside, 1));
        for (const int tried : {0, height}) // with another height the tabs are laid out anew
            pass(mainPart(), TCM_SETITEMSIZE, 0, MAKELPARAM(0, tried));
        RECT last{};
        pass(mainPart(), TCM_GETITEMRECT, static_cast<WPARAM>(strip().count() - 1),
             reinterpret_cast<LPARAM>(&last));
        if (last.right <= place.width - behind)
            break;
    }
}

int TabStripWindow::tabAt(POINT place) const {
    TCHITTESTINFO hit{};
    hit.pt = place;
    return static_cast<int>(
               SendMessageW(window(), TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) +
           1;
}

std::wstring TabStripWindow::tip() const {
    if (control() == nullptr)
        return {};
    POINT place{};
    GetCursorPos(&place);
    ScreenToClient(window(), &place);
    const int tab = tabAt(place);
    return tab > 0 && tab <= strip().count() ? toWide(strip().tab(tab).toolTip) : std::wstring();
}

void TabStripWindow::press(const Pointer& pointer) {
    const int tab = tabAt(pointer.place());
    beginPress(pointer, tab);
    if (tab > 0 && pointer.button == MouseButton::left && control() != nullptr &&
        host().isPressed(*this))
        form().userSelectTab(strip(), tab);
    if (control() != nullptr)
        show(Property::value);
}

void TabStripWindow::releaseButton(const Pointer& pointer) {
    if (GetCapture() == pointer.part.window)
        ReleaseCapture();
    if (control() != nullptr && host().isPressed(*this))
        host().giveUpPress();
}

} // namespace vkr
