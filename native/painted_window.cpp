// SPDX-License-Identifier: MIT
#include "native/painted_window.hpp"

#include "native/frame_window.hpp"

namespace vkr {

PaintedWindow::PaintedWindow(ViewHost& host, Control& control, HWND parent)
    : ControlWindow(host, control) {
    create(FrameWindow::kind(), 0, parent);
}

void PaintedWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::look, &PaintedWindow::showShape},
        {Property::place, &PaintedWindow::showShape},
    };
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

// What is behind a border line can be seen within it.
void PaintedWindow::showShape() {
    const auto* shape = dynamic_cast<const Shape*>(control());
    if (shape != nullptr && !shape->filled()) {
        const auto place = host().scale().place(*shape);
        const HRGN border = CreateRectRgn(0, 0, place.width, place.height);
        const Gdi<HRGN> inside(CreateRectRgn(1, 1, place.width - 1, place.height - 1));
        CombineRgn(border, border, inside.get(), RGN_DIFF);
        SetWindowRgn(window(), border, TRUE); // the system has it now
    }
    redraw();
}

std::optional<LRESULT> PaintedWindow::handleOwn(const Part& part, UINT message, WPARAM wParam,
                                                LPARAM /*lParam*/) {
    switch (message) {
    case WM_NCHITTEST:
        return HTTRANSPARENT;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
    case WM_PRINTCLIENT: {
        const Painting painting(part.window,
                                message == WM_PAINT ? nullptr : reinterpret_cast<HDC>(wParam),
                                host().backBuffer());
        const auto pair = host().palette().surface(*control());
        const auto* shape = dynamic_cast<const Shape*>(control());
        fill(painting.context(), painting.area(), pair.back);
        if (shape != nullptr && !shape->filled())
            outline(painting.context(), painting.area(), pair.fore);
        return 0;
    }
    default:
        return std::nullopt;
    }
}

} // namespace vkr
