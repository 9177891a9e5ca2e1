// SPDX-License-Identifier: MIT
#include "native/frame_window.hpp"

#include "native/module.hpp"
#include "native/native_text.hpp"
#include "platform/text.hpp"

namespace vkr {

const wchar_t* FrameWindow::kind() {
    return registeredKind(L"VKRDataEntryFrame", DefWindowProcW, CS_DBLCLKS);
}

FrameWindow::FrameWindow(ViewHost& host, Frame& frame, HWND parent) : ControlWindow(host, frame) {
    create(kind(), WS_CLIPCHILDREN, parent);
}

void FrameWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::look, &FrameWindow::redraw},
        {Property::caption, &FrameWindow::redraw},
        {Property::visible, &FrameWindow::tellNotice},
    };
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

void FrameWindow::tellNotice() {
    if (control()->visible() && static_cast<Frame&>(*control()).isNotice())
        NotifyWinEvent(EVENT_SYSTEM_ALERT, window(), OBJID_CLIENT, CHILDID_SELF);
}

std::optional<LRESULT> FrameWindow::handleOwn(const Part& part, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
    case WM_PRINTCLIENT: {
        RECT area;
        GetClientRect(part.window, &area);
        if (message == WM_PRINTCLIENT) {
            paint(reinterpret_cast<HDC>(wParam), area);
            return 0;
        }
        PAINTSTRUCT painting;
        paint(BeginPaint(part.window, &painting), area);
        EndPaint(part.window, &painting);
        return 0;
    }
    case WM_ERASEBKGND:
        return TRUE;
    default:
        return host().reflected(message, wParam, lParam);
    }
}

void FrameWindow::paint(HDC context, const RECT& area) const {
    const auto& frame = static_cast<Frame&>(*control());
    auto& palette = host().palette();
    fill(context, area, palette.surface(frame).back);
    if (frame.border() == FrameBorder::line)
        outline(context, area, palette.edge());
    else if (frame.border() == FrameBorder::group)
        paintGroup(context, area);
}

void FrameWindow::paintGroup(HDC context, RECT area) const {
    const auto& fonts = host().fonts();
    const auto caption = toWide(trimmed(control()->caption()));
    RECT border = area;
    border.top += fonts.height() / 2;
    DrawEdge(context, &border, EDGE_ETCHED, BF_RECT);
    if (caption.empty())
        return;
    const auto pair = host().palette().surface(*control());
    const Selected font(context, fonts.plain());
    const int beside = host().scale().pixels(30);
    area.left += host().scale().pixels(120);
    area.bottom = area.top + fonts.height();
    RECT gap = area;
    DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &gap,
              DT_SINGLELINE | DT_LEFT | DT_TOP | DT_CALCRECT);
    fill(context, {gap.left - beside, gap.top, gap.right + beside, gap.bottom}, pair.back);
    SetTextColor(context, pair.fore);
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &area,
              DT_SINGLELINE | DT_LEFT | DT_TOP);
}

// A press on a disabled control comes to what is behind it.
bool FrameWindow::isOnDisabled(const Pointer& pointer) const {
    const HWND hit =
        ChildWindowFromPointEx(pointer.part.window, pointer.place(), CWP_SKIPINVISIBLE);
    return hit != nullptr && hit != pointer.part.window && IsWindowEnabled(hit) == FALSE;
}

void FrameWindow::press(const Pointer& pointer) {
    if (!isOnDisabled(pointer))
        ControlWindow::press(pointer);
}

void FrameWindow::doubleClick(const Pointer& pointer) {
    if (!isOnDisabled(pointer))
        ControlWindow::doubleClick(pointer);
}

} // namespace vkr
