// SPDX-License-Identifier: MIT
#include "native/field_window.hpp"

#include "platform/readable_color.hpp"
#include "platform/text.hpp"

#include <cmath>
#include <cstdlib>

namespace vkr {

void FieldWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::text, &FieldWindow::showText},
        {Property::edit, &FieldWindow::showEdit},
        {Property::selection, &FieldWindow::showSelection},
        {Property::locked, &FieldWindow::showLocked},
        {Property::mark, &FieldWindow::showMark},
    };
    ControlWindow::show(property);
    ControlWindow::show(property, setters);
}

std::wstring FieldWindow::text() const {
    return windowText(editPart().window);
}

std::wstring FieldWindow::nativeText(std::string_view text) const {
    auto wide = toWide(text);
    return hasLines() ? withNativeBreaks(wide) : wide;
}

UnitRange FieldWindow::selection() const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(editPart().window, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end - start)};
}

void FieldWindow::select(UnitRange range) {
    send(EM_SETSEL, static_cast<WPARAM>(range.start),
         static_cast<LPARAM>(range.start) + range.length);
    send(EM_SCROLLCARET);
}

void FieldWindow::setText(const std::wstring& text) {
    send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    send(EM_EMPTYUNDOBUFFER);
}

void FieldWindow::replaceText(const std::wstring& text) {
    send(EM_EMPTYUNDOBUFFER);
    send(EM_SETSEL, 0, -1);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void FieldWindow::showLocked() {
    const bool wanted = field().locked();
    if (wanted != ((GetWindowLongPtrW(editPart().window, GWL_STYLE) & ES_READONLY) != 0))
        send(EM_SETREADONLY, wanted ? TRUE : FALSE);
}

void FieldWindow::showMark() {
    redrawWhole();
}

void FieldWindow::showColors() {
    redrawWhole();
}

void FieldWindow::showEnabled() {
    ControlWindow::showEnabled();
    redrawWhole();
}

void FieldWindow::showAll() {
    ControlWindow::showAll();
    if (!hasLines()) // the place of the text depends on its font
        SetWindowPos(editPart().window, nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FieldWindow::redrawWhole() {
    RedrawWindow(window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_ALLCHILDREN);
}

void FieldWindow::showText() {
    const Nested nested(showing_);
    auto wanted = nativeText(field().text());
    const bool known = shown_ == wanted && text() == wanted;
    if (!known)
        setText(wanted);
    else
        send(EM_EMPTYUNDOBUFFER);
    shown_ = std::move(wanted);
    if (isActive() || known) // else the caret is put there with the focus
        select(modelSelection());
}

void FieldWindow::showEdit() {
    const Nested nested(showing_);
    shown_ = nativeText(field().text());
    replaceText(shown_);
    select(modelSelection());
}

void FieldWindow::showSelection() {
    const Nested nested(showing_);
    if (const auto wanted = modelSelection(); wanted != selection())
        select(wanted);
}

void FieldWindow::focusGained() {
    showSelection();
}

// A text that is longer than its field shows its beginning again.
void FieldWindow::focusLost() {
    const Nested nested(showing_);
    select({});
}

void FieldWindow::paintUnder(HDC context, const RECT& area) const {
    fill(context, area, host().palette().field(field()).back);
}

bool FieldWindow::hasSigns() const {
    return field().shownMark() != MarkKind::none || field().origin().marked;
}

// The frame of the window, where no digit is, and a corner beside them.
void FieldWindow::paintOver(HDC context, const RECT& area) const {
    if (const auto corner = originCorner(field(), area.bottom - area.top)) {
        const auto side = std::lround(corner->side);
        const auto inset = std::lround(corner->inset);
        const bool atLeft = corner->atLeft;
        const POINT first{atLeft ? area.left + inset : area.right - 1 - inset, area.top + inset};
        const POINT triangle[] = {
            first, {first.x + (atLeft ? side : -side), first.y}, {first.x, first.y + side}};
        const Selected pen(context, GetStockObject(DC_PEN));
        const Selected brush(context, GetStockObject(DC_BRUSH));
        SetDCPenColor(context, host().palette().origin(field()));
        SetDCBrushColor(context, host().palette().origin(field()));
        Polygon(context, triangle, static_cast<int>(std::size(triangle)));
    }
    constexpr int thickness = 2;
    const COLORREF mark = host().palette().mark(field());
    if (mark == CLR_NONE)
        return;
    RECT frame = area;
    if (field().shownMark() == MarkKind::quiet)
        frame.top = frame.bottom - thickness; // a line below the text
    outline(context, frame, mark, thickness);
}

// The system puts the text of a single line at the top of the client area, however high that is: it
// is made as high as the letters, and what is left above and below belongs to the frame.
void FieldWindow::centerText(RECT& client) const {
    const int beside = static_cast<int>(client.bottom - client.top) - host().fonts().height();
    if (hasLines() || beside <= 1)
        return;
    client.top += beside / 2;
    client.bottom -= beside - beside / 2;
}

void FieldWindow::paintAround() const {
    const HWND edit = editPart().window;
    RECT whole;
    GetWindowRect(edit, &whole);
    RECT client;
    GetClientRect(edit, &client);
    MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&client), 2);
    OffsetRect(&client, -whole.left, -whole.top);
    const LONG edge = client.left; // as wide as it is high
    const COLORREF back = host().palette().field(field()).back;
    const WindowContext context(edit, WindowContext::Part::all);
    fill(context, {client.left, edge, client.right, client.top}, back);
    fill(context, {client.left, client.bottom, client.right, whole.bottom - whole.top - edge},
         back);
}

void FieldWindow::paintMark() const {
    if (!hasSigns())
        return;
    const WindowContext context(window(), WindowContext::Part::all);
    RECT area;
    GetWindowRect(window(), &area);
    OffsetRect(&area, -area.left, -area.top);
    paintOver(context, area);
}

std::optional<LRESULT> FieldWindow::reflect(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC: // where it is locked or disabled
    case WM_CTLCOLORLISTBOX: {
        const auto pair = host().palette().field(field());
        SetTextColor(reinterpret_cast<HDC>(wParam), pair.fore);
        SetBkColor(reinterpret_cast<HDC>(wParam), pair.back);
        return reinterpret_cast<LRESULT>(host().palette().brush(pair.back));
    }
    case WM_COMMAND:
        if (HIWORD(wParam) == EN_CHANGE) {
            nativeChanged();
            if (control() != nullptr) // the window has drawn over them
                paintMark();
        }
        return 0;
    default:
        return ControlWindow::reflect(message, wParam, lParam);
    }
}

// --- messages ------------------------------------------------------------------------------------

// Painting, and what is around the text.
std::optional<LRESULT> FieldWindow::handleFrame(const Part& part, UINT message, WPARAM wParam,
                                                LPARAM lParam) {
    const bool ofText = part.window == editPart().window && !hasLines();
    switch (message) {
    case WM_NCCALCSIZE: {
        const LRESULT answer = pass(part, message, wParam, lParam);
        if (ofText) // the first of the rectangles, where there are several
            centerText(*reinterpret_cast<RECT*>(lParam));
        return answer;
    }
    case WM_NCHITTEST: {
        const LRESULT answer = pass(part, message, wParam, lParam);
        return ofText ? HTCLIENT : answer;
    }
    case WM_PAINT:
    case WM_NCPAINT: {
        const LRESULT answer = pass(part, message, wParam, lParam);
        if (ofText && message == WM_NCPAINT)
            paintAround();
        if (part.window == window())
            paintMark();
        return answer;
    }
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> FieldWindow::handleOwn(const Part& part, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
    if (const auto answer = handleFrame(part, message, wParam, lParam))
        return answer;
    switch (message) {
    case WM_PASTE:
        catchUp();
        paste();
        return 0;
    case WM_UNDO:
    case EM_UNDO:
        if (!canUndo())
            return FALSE;
        undo();
        return TRUE;
    case WM_CUT:
    case WM_CLEAR:
    case EM_REPLACESEL:
        if (field().locked())
            return 0;
        pass(part, message, wParam, lParam);
        takeEdit();
        return 0;
    case WM_SETTEXT: // by another program
        if (part.window != editPart().window || showing_ > 0)
            return std::nullopt;
        if (field().locked())
            return FALSE;
        pass(part, message, wParam, lParam);
        takeEdit();
        return TRUE;
    default:
        return std::nullopt;
    }
}

// --- pointer -------------------------------------------------------------------------------------

// The first press into a field leaves the selection to what the form does on entering; with the
// focus there, a press places the caret.
void FieldWindow::press(const Pointer& pointer) {
    const bool wasActive = isActive();
    beginPress(pointer);
    if (!isActive() || !host().isPressed(*this) || pointer.button != MouseButton::left)
        return;
    if (wasActive) {
        pass(pointer);
        takeEdit();
    } else {
        firstPress_ = {pointer.message, pointer.wParam, pointer.lParam};
    }
}

void FieldWindow::drag(const Pointer& pointer) {
    if ((pointer.wParam & MK_LBUTTON) != 0 && host().dragged(*this, pointer.onScreen()))
        return;
    if (control() == nullptr)
        return;
    if (firstPress_) {
        const auto first = *firstPress_;
        const POINT now = pointer.place();
        if (std::abs(now.x - GET_X_LPARAM(first.lParam)) < GetSystemMetrics(SM_CXDRAG) &&
            std::abs(now.y - GET_Y_LPARAM(first.lParam)) < GetSystemMetrics(SM_CYDRAG))
            return;
        firstPress_.reset();
        pass(pointer.part, first.message, first.wParam, first.lParam);
    }
    pass(pointer);
    if ((pointer.wParam & MK_LBUTTON) != 0 && isActive())
        takeEdit();
}

void FieldWindow::releaseButton(const Pointer& pointer) {
    const bool first = firstPress_.has_value();
    firstPress_.reset();
    if (!first && host().isPressed(*this) && pointer.button == MouseButton::left) {
        const auto stays = shared_from_this();
        const Nested letsGo(showing_);
        pass(pointer);
        if (control() == nullptr)
            return;
    }
    if (control() != nullptr && isActive())
        takeEdit();
    if (control() != nullptr)
        endPress(pointer);
}

void FieldWindow::doubleClick(const Pointer& pointer) {
    if (isActive()) {
        pass(pointer);
        SendMessageW(pointer.part.window, WM_CANCELMODE, 0, 0); // a dialog may come up
        takeEdit();
    }
    if (control() != nullptr)
        form().doubleClick(field());
}

} // namespace vkr
