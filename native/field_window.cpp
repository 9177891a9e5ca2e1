// SPDX-License-Identifier: MIT
#include "native/field_window.hpp"

#include "native/native_text.hpp"
#include "platform/text.hpp"

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

UnitRange FieldWindow::modelSelection() const {
    const auto& model = field().text();
    const auto units = [&](int characters) {
        return static_cast<int>(nativeText(textLeft(model, characters)).size());
    };
    if (field().selStart() == 0 && field().selLength() == 0)
        return {};
    const int start = units(field().selStart());
    return {start, units(field().selStart() + field().selLength()) - start};
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
    RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
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

// The frame of the window, where no digit is.
void FieldWindow::paintOver(HDC context, const RECT& area) const {
    constexpr int thickness = 2;
    const COLORREF mark = host().palette().mark(field());
    if (mark == CLR_NONE)
        return;
    RECT frame = area;
    if (field().shownMark() == MarkKind::quiet)
        frame.top = frame.bottom - thickness; // a line below the text
    outline(context, frame, mark, thickness);
}

void FieldWindow::paintMark() const {
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
        if (HIWORD(wParam) == EN_CHANGE)
            windowChanged();
        return 0;
    default:
        return ControlWindow::reflect(message, wParam, lParam);
    }
}

// --- messages ------------------------------------------------------------------------------------

std::optional<LRESULT> FieldWindow::handleOwn(const Part& part, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
    switch (message) {
    case WM_NCPAINT: {
        const LRESULT answer = pass(part, message, wParam, lParam);
        if (part.window == window())
            paintMark();
        return answer;
    }
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
