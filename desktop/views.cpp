// SPDX-License-Identifier: MIT
#include "desktop/views.hpp"

#include "desktop/button_view.hpp"
#include "desktop/combo_view.hpp"
#include "desktop/frame_view.hpp"
#include "desktop/label_view.hpp"
#include "desktop/line_view.hpp"
#include "desktop/notes_view.hpp"
#include "desktop/painted_view.hpp"
#include "desktop/scroll_bar_view.hpp"
#include "desktop/spinner_view.hpp"
#include "desktop/tab_strip_view.hpp"

namespace vkr {

ControlView* makeView(ViewHost& host, Control& control, QWidget& parent) {
    switch (control.kind()) {
    case ControlKind::textBox: {
        auto& box = static_cast<TextBox&>(control);
        if (box.multiLine())
            return new NotesView(host, box, parent);
        return new LineView(host, box, parent);
    }
    case ControlKind::comboBox:
        return new ComboView(host, static_cast<ComboBox&>(control), parent);
    case ControlKind::label:
        return new LabelView(host, static_cast<Label&>(control), parent);
    case ControlKind::commandButton:
    case ControlKind::optionButton:
    case ControlKind::checkBox:
        return new ButtonView(host, control, parent);
    case ControlKind::scrollBar:
        return new ScrollBarView(host, static_cast<ScrollBar&>(control), parent);
    case ControlKind::spinner:
        return new SpinnerView(host, static_cast<Spinner&>(control), parent);
    case ControlKind::frame:
        return new FrameView(host, static_cast<Frame&>(control), parent);
    case ControlKind::tabStrip:
        return new TabStripView(host, static_cast<TabStrip&>(control), parent);
    case ControlKind::shape:
    case ControlKind::pictureBox:
        return new PaintedView(host, control, parent);
    case ControlKind::menuItem:
        break;
    }
    return nullptr;
}

} // namespace vkr
