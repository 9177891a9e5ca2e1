// SPDX-License-Identifier: MIT
#include "native/windows.hpp"

#include "native/button_window.hpp"
#include "native/combo_window.hpp"
#include "native/edit_window.hpp"
#include "native/frame_window.hpp"
#include "native/label_window.hpp"
#include "native/painted_window.hpp"
#include "native/scroll_bar_window.hpp"
#include "native/spinner_window.hpp"
#include "native/tab_strip_window.hpp"

namespace vkr {

std::shared_ptr<ControlWindow> makeWindow(ViewHost& host, Control& control, HWND parent) {
    switch (control.kind()) {
    case ControlKind::textBox:
        return std::make_shared<EditWindow>(host, static_cast<TextBox&>(control), parent);
    case ControlKind::comboBox:
        return std::make_shared<ComboWindow>(host, static_cast<ComboBox&>(control), parent);
    case ControlKind::label:
        return std::make_shared<LabelWindow>(host, static_cast<Label&>(control), parent);
    case ControlKind::commandButton:
    case ControlKind::optionButton:
    case ControlKind::checkBox:
        return std::make_shared<ButtonWindow>(host, control, parent);
    case ControlKind::scrollBar:
        return std::make_shared<ScrollBarWindow>(host, static_cast<ScrollBar&>(control), parent);
    case ControlKind::spinner:
        return std::make_shared<SpinnerWindow>(host, static_cast<Spinner&>(control), parent);
    case ControlKind::frame:
        return std::make_shared<FrameWindow>(host, static_cast<Frame&>(control), parent);
    case ControlKind::tabStrip:
        return std::make_shared<TabStripWindow>(host, static_cast<TabStrip&>(control), parent);
    case ControlKind::shape:
    case ControlKind::pictureBox:
        return std::make_shared<PaintedWindow>(host, control, parent);
    case ControlKind::menuItem:
        break;
    }
    return nullptr;
}

} // namespace vkr
