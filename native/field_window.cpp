// SPDX-License-Identifier: MIT
#include "native/field_window.hpp"

#include "native/clipboard.hpp"
#include "native/native_keys.hpp"
#include "native/native_text.hpp"
#include "platform/text.hpp"

#include <algorithm>
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

// --- edits ---------------------------------------------------------------------------------------

void FieldWindow::windowChanged() {
    if (showing_ == 0 && !passing() && control() != nullptr)
        takeEdit();
}

void FieldWindow::catchUp() {
    windowChanged();
}

void FieldWindow::tellSelection(const std::wstring& shown, UnitRange range) {
    const int start = charactersOf(shown, range.start);
    form().userSelect(field(), start, charactersOf(shown, range.start + range.length) - start);
}

void FieldWindow::takeEdit() {
    if (control() == nullptr)
        return;
    auto now = text();
    if (now == shown_) {
        if (const auto range = selection(); range != modelSelection())
            tellSelection(now, range);
        return;
    }
    if (field().locked()) {
        showText();
        return;
    }
    if (choseEntry())
        return;
    const auto range = selection();
    const auto end = static_cast<std::size_t>(range.start + range.length);
    const auto clean = cleanedText(fromWide(now), hasLines());
    const int caret =
        textLength(cleanedText(fromWide(std::wstring_view(now).substr(0, end)), hasLines()));
    const auto taken = undoing_ > 0 ? TextField::Edit{clean, caret} : field().taken(clean, caret);
    if (const auto wanted = nativeText(taken.text); wanted != now) {
        const Nested nested(showing_);
        send(EM_UNDO);
        if (pastedAnew(now))
            return;
        if (text() != wanted)
            replaceText(wanted);
        select({unitsOf(wanted, taken.caret), 0});
        now = wanted;
    }
    const auto shown = selection();
    const int start = charactersOf(now, shown.start);
    shown_ = now;
    if (!form().userEdit(field(), taken.text, start,
                         charactersOf(now, shown.start + shown.length) - start) &&
        control() != nullptr)
        showText();
}

// Where a message of another program has pasted, which is taken back by now: the form puts it in,
// as it does after the key. False for what is no paste.
bool FieldWindow::pastedAnew(const std::wstring& edited) {
    const auto range = selection();
    const auto length = static_cast<std::ptrdiff_t>(edited.size()) -
                        static_cast<std::ptrdiff_t>(shown_.size()) + range.length;
    if (undoing_ > 0 || passing() || length <= 0 || text() != shown_)
        return false;
    const auto start = static_cast<std::size_t>(range.start);
    const auto pasted = edited.substr(start, static_cast<std::size_t>(length));
    auto anew = shown_;
    anew.replace(start, static_cast<std::size_t>(range.length), pasted);
    if (anew != edited)
        return false;
    tellSelection(shown_, range);
    if (!form().userPaste(field(), fromWide(pasted)) && control() != nullptr)
        setText(shown_); // nor is it brought back by another undo
    return true;
}

bool FieldWindow::canUndo() const {
    return control() != nullptr && !field().locked() &&
           SendMessageW(editPart().window, EM_CANUNDO, 0, 0) != 0;
}

void FieldWindow::undo() {
    if (!canUndo())
        return;
    const Nested undoing(undoing_);
    send(EM_UNDO);
    takeEdit();
}

bool FieldWindow::typeCharacter(char32_t character) {
    if (character == U'\x1b' || (character == U'\r' && !hasLines()))
        return false;
    std::wstring units;
    if (character >= 0x10000) {
        units += static_cast<wchar_t>(0xD7C0U + (character >> 10U));
        units += static_cast<wchar_t>(0xDC00U + (character & 0x3FFU));
    } else {
        units += static_cast<wchar_t>(character);
    }
    if (character != U'\b' || !deletePair(true))
        for (const wchar_t unit : units)
            send(WM_CHAR, unit, 1);
    takeEdit();
    return true;
}

// Not every edit control of the system knows that a pair of surrogates is one character.
bool FieldWindow::deletePair(bool before) {
    const auto range = selection();
    const auto all = text();
    const int start = before ? range.start - 2 : range.start;
    if (range.length > 0 || start < 0 || start + 2 > static_cast<int>(all.size()) ||
        unitsOf(std::wstring_view(all).substr(static_cast<std::size_t>(start)), 1) != 2 ||
        field().locked())
        return false;
    send(EM_SETSEL, static_cast<WPARAM>(start), start + 2);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    return true;
}

void FieldWindow::leavePairs(UnitRange before) {
    const auto all = text();
    const auto range = selection();
    const auto isWithin = [&](int unit) {
        return unit > 0 && unit < static_cast<int>(all.size()) &&
               IS_SURROGATE_PAIR(all[static_cast<std::size_t>(unit) - 1],
                                 all[static_cast<std::size_t>(unit)]);
    };
    const int end = range.start + range.length;
    const bool back = range.length > 0 || range.start < before.start;
    const int newStart = range.start + (isWithin(range.start) ? (back ? -1 : 1) : 0);
    const int newEnd = range.length == 0 ? newStart : end + (isWithin(end) ? 1 : 0);
    if (newStart != range.start || newEnd != end)
        send(EM_SETSEL, static_cast<WPARAM>(newStart), newEnd);
}

void FieldWindow::paste() {
    form().userPaste(field(), fromWide(clipboard::text()));
}

// To the begin of the word, or to that of the next one.
void FieldWindow::deleteWord(bool before) {
    const auto all = text();
    auto range = selection();
    if (range.length == 0) {
        const auto isBlank = [&](int unit) { return all[static_cast<std::size_t>(unit)] <= L' '; };
        const int size = static_cast<int>(all.size());
        int place = range.start;
        if (before) {
            while (place > 0 && isBlank(place - 1))
                --place;
            while (place > 0 && !isBlank(place - 1))
                --place;
            range = {place, range.start - place};
        } else {
            while (place < size && !isBlank(place))
                ++place;
            while (place < size && isBlank(place))
                ++place;
            range.length = place - range.start;
        }
    }
    send(EM_SETSEL, static_cast<WPARAM>(range.start),
         static_cast<LPARAM>(range.start) + range.length);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}

bool FieldWindow::edit(const MSG& key, int shift) {
    const bool locked = field().locked();
    switch (fieldCommandOf(static_cast<KeyCode>(key.wParam), shift)) {
    case FieldCommand::copy:
        send(WM_COPY);
        break;
    case FieldCommand::cut:
        if (!locked)
            send(WM_CUT);
        break;
    case FieldCommand::paste:
        paste();
        return true;
    case FieldCommand::undo:
        undo();
        return true;
    case FieldCommand::selectAll:
        send(EM_SETSEL, 0, -1);
        break;
    case FieldCommand::deleteWordBefore:
    case FieldCommand::deleteWordBehind:
        if (!locked)
            deleteWord(key.wParam == VK_BACK);
        break;
    case FieldCommand::move: {
        if (key.wParam == VK_DELETE && deletePair(false))
            break;
        const auto before = selection();
        send(key.message, key.wParam, key.lParam);
        leavePairs(before);
        break;
    }
    case FieldCommand::none:
        return false;
    }
    takeEdit();
    return true;
}

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
