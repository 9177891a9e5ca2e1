// SPDX-License-Identifier: MIT
#include "native/button_window.hpp"

#include "native/native_text.hpp"

namespace vkr {

namespace {

// The form makes the choice, so none of them does by itself.
DWORD styleOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::optionButton:
        return BS_RADIOBUTTON;
    case ControlKind::checkBox:
        return BS_CHECKBOX;
    default:
        return BS_PUSHBUTTON;
    }
}

} // namespace

ButtonWindow::ButtonWindow(ViewHost& host, Control& control, HWND parent)
    : ControlWindow(host, control) {
    create(WC_BUTTONW, styleOf(control.kind()) | WS_TABSTOP, parent);
}

void ButtonWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::caption, &ButtonWindow::showCaption},
        {Property::value, &ButtonWindow::showChoice},
    };
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

void ButtonWindow::showCaption() {
    const auto caption = toWide(control()->caption());
    if (caption != windowText(window()))
        pass(mainPart(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(caption.c_str()));
}

void ButtonWindow::showChoice() {
    if (control()->kind() != ControlKind::commandButton)
        pass(mainPart(), BM_SETCHECK, isChosen(*control()) ? BST_CHECKED : BST_UNCHECKED);
}

void ButtonWindow::pressEnded() {
    pass(mainPart(), BM_SETSTATE, FALSE);
}

void ButtonWindow::press(const Pointer& pointer) {
    beginPress(pointer);
    if (pointer.button == MouseButton::left && control() != nullptr && host().isPressed(*this))
        pass(mainPart(), BM_SETSTATE, TRUE);
}

void ButtonWindow::drag(const Pointer& pointer) {
    if (host().isPressed(*this) && (pointer.wParam & MK_LBUTTON) != 0)
        pass(mainPart(), BM_SETSTATE, isInside(pointer) ? TRUE : FALSE);
    else
        pass(pointer);
}

} // namespace vkr
