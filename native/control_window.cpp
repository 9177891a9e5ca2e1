// SPDX-License-Identifier: MIT
#include "native/control_window.hpp"

#include "native/module.hpp"
#include "native/native_text.hpp"
#include "platform/text.hpp"

#include <imm.h>

namespace vkr {

ControlWindow* ControlWindow::of(HWND window) {
    if (window == nullptr || reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) !=
                                 &ControlWindow::procedure)
        return nullptr;
    const auto* part = reinterpret_cast<const Part*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return part == nullptr ? nullptr : part->view;
}

ControlWindow::~ControlWindow() {
    const HWND window = main_.window;
    release(main_);
    if (window != nullptr)
        DestroyWindow(window);
}

void ControlWindow::create(const wchar_t* kind, DWORD style, HWND parent, DWORD extended) {
    const auto place = host().scale().place(*control_);
    if (isVisible()) // from the start: showing it later takes as long as making it
        style |= WS_VISIBLE;
    const HWND window = CreateWindowExW(extended, kind, L"", style | WS_CHILD | WS_CLIPSIBLINGS,
                                        place.left, place.top, place.width, place.height, parent,
                                        nullptr, ownModule(), nullptr);
    if (window == nullptr)
        throw std::runtime_error("a window could not be made");
    adopt(main_, window);
}

void ControlWindow::adopt(Part& part, HWND window) {
    part.window = window;
    part.view = this;
    part.own = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&part));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::procedure));
}

void ControlWindow::release(Part& part) {
    if (part.window == nullptr)
        return;
    SetWindowLongPtrW(part.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(part.own));
    SetWindowLongPtrW(part.window, GWLP_USERDATA, 0);
    part.window = nullptr;
}

void ControlWindow::retire() {
    control_ = nullptr;
    ShowWindow(main_.window, SW_HIDE);
}

void ControlWindow::forget() {
    control_ = nullptr;
    host_ = nullptr;
}

bool ControlWindow::isActive() const {
    return control_ != nullptr && form().hasFocus() && form().activeControl() == control_;
}

void ControlWindow::redraw() {
    InvalidateRect(main_.window, nullptr, TRUE);
}

void ControlWindow::setFont(HFONT font) {
    pass(main_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

// --- showing the model ---------------------------------------------------------------------------

void ControlWindow::showAll() {
    setFont(host().fonts().plain());
    for (const auto property :
         {Property::look, Property::list, Property::caption, Property::text, Property::value,
          Property::locked, Property::enabled, Property::visible})
        show(property);
}

void ControlWindow::show(Property property, std::span<const Setter> setters) {
    for (const Setter& setter : setters)
        if (setter.property == property)
            (this->*setter.show)();
}

void ControlWindow::show(Property property) {
    static const Setter setters[] = {
        {Property::place, &ControlWindow::showPlace},
        {Property::visible, &ControlWindow::showVisible},
        {Property::enabled, &ControlWindow::showEnabled},
        {Property::colors, &ControlWindow::showColors},
        {Property::caption, &ControlWindow::showNames},
        {Property::toolTip, &ControlWindow::showNames},
        {Property::mark, &ControlWindow::showNames},
        {Property::order, &ControlWindow::showOrder},
    };
    show(property, setters);
}

void ControlWindow::place() {
    const auto place = host().scale().place(*control_);
    SetWindowPos(main_.window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void ControlWindow::showPlace() {
    place();
    showVisible();
}

void ControlWindow::showOrder() {
    SetWindowPos(main_.window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void ControlWindow::putBehind() {
    SetWindowPos(main_.window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// What is on a parked page is nowhere, for screen readers as well.
bool ControlWindow::isVisible() const {
    return control_->visible() && control_->left() > Control::parkedLeft;
}

void ControlWindow::showVisible() {
    const bool visible = isVisible();
    if (visible != ((GetWindowLongPtrW(main_.window, GWL_STYLE) & WS_VISIBLE) != 0))
        ShowWindow(main_.window, visible ? SW_SHOWNA : SW_HIDE);
}

void ControlWindow::showEnabled() {
    if (control_->enabled() != (IsWindowEnabled(main_.window) != FALSE))
        EnableWindow(main_.window, control_->enabled() ? TRUE : FALSE);
}

void ControlWindow::showNames() {
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, main_.window, OBJID_CLIENT, CHILDID_SELF);
}

std::wstring ControlWindow::heardName() const {
    if (control_ == nullptr)
        return {};
    const auto& name = control_->accessibleName();
    return toWide(name.empty() ? withoutMnemonic(control_->caption()) : name);
}

std::wstring ControlWindow::heardDescription() const {
    const auto* field = textFieldOf(static_cast<const Control*>(control_));
    return field == nullptr ? std::wstring() : toWide(field->description());
}

std::wstring ControlWindow::tip() const {
    auto reason = heardDescription();
    return reason.empty() && control_ != nullptr ? toWide(control_->toolTip()) : reason;
}

// --- messages ------------------------------------------------------------------------------------

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* part = reinterpret_cast<Part*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (part == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        const WNDPROC own = part->own;
        part->view->release(*part);
        return CallWindowProcW(own, window, message, wParam, lParam);
    }
    return guarded<LRESULT>(0, [&] {
        const auto stays = part->view->shared_from_this();
        return stays->handle(*part, message, wParam, lParam);
    });
}

LRESULT ControlWindow::pass(const Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
    const Nested nested(passing_);
    return CallWindowProcW(part.own, part.window, message, wParam, lParam);
}

void ControlWindow::pass(const Pointer& pointer) {
    pass(pointer.part, pointer.message, pointer.wParam, pointer.lParam);
}

LRESULT ControlWindow::handle(const Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
    if (control_ == nullptr)
        return CallWindowProcW(part.own, part.window, message, wParam, lParam);
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT)
        return accessibleOf(part.window, weak_from_this(), wParam);
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
        return handleFocus(part, message, wParam, lParam);
    if (!passing() || message == WM_NCPAINT) // which comes within the native painting
        for (const auto step : {&ControlWindow::handleOwn, &ControlWindow::handlePointer,
                                &ControlWindow::handleKeys, &ControlWindow::handleText})
            if (const auto answer = (this->*step)(part, message, wParam, lParam))
                return *answer;
    return pass(part, message, wParam, lParam);
}

std::optional<LRESULT> ControlWindow::reflect(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    switch (message) {
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
        const auto pair = host().palette().surface(*control_);
        SetTextColor(reinterpret_cast<HDC>(wParam), pair.fore);
        SetBkColor(reinterpret_cast<HDC>(wParam), pair.back);
        return reinterpret_cast<LRESULT>(host().palette().brush(pair.back));
    }
    default:
        return std::nullopt;
    }
}

LRESULT ControlWindow::handleFocus(const Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool inner = passing(); // the window hands it on to a part of its own
    LRESULT answer = 0;
    {
        const Nested nested(showing_);
        answer = pass(part, message, wParam, lParam);
    }
    if (inner || control_ == nullptr)
        return answer;
    if (message == WM_SETFOCUS)
        host().focusCame(this);
    else
        host().focusWent(reinterpret_cast<HWND>(wParam));
    if (message == WM_KILLFOCUS && control_ != nullptr && !isActive())
        focusLost();
    return answer;
}

std::optional<LRESULT> ControlWindow::handleKeys(const Part& part, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
    const MSG key{part.window, message, wParam, lParam, 0, {}};
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (keyOfList(key) || host().keyDown(key))
            return 0;
        return DefWindowProcW(part.window, message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        host().keyUp(key);
        // What the keys of the menu and of Alt make of it is up to the form.
        if (message == WM_KEYUP || wParam == VK_F10)
            return 0;
        return DefWindowProcW(part.window, message, wParam, lParam);
    case WM_DEADCHAR:
        return 0;
    case WM_CONTEXTMENU: // the form has its own
        return 0;
    default:
        return std::nullopt;
    }
}

namespace {

// What an input method has composed.
std::wstring composedText(HWND window) {
    std::wstring text;
    if (const HIMC context = ImmGetContext(window); context != nullptr) {
        const LONG bytes = ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0);
        if (bytes > 0) {
            text.resize(static_cast<std::size_t>(bytes) / sizeof(wchar_t));
            ImmGetCompositionStringW(context, GCS_RESULTSTR, text.data(),
                                     static_cast<DWORD>(bytes));
        }
        ImmReleaseContext(window, context);
    }
    return text;
}

std::u32string charactersIn(std::wstring_view text) {
    std::u32string characters;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (i + 1 < text.size() && IS_SURROGATE_PAIR(text[i], text[i + 1])) {
            characters += 0x10000U + ((text[i] - 0xD800U) << 10U) + (text[i + 1] - 0xDC00U);
            ++i;
        } else {
            characters += static_cast<char32_t>(text[i]);
        }
    return characters;
}

} // namespace

// Texts that come without a key.
std::optional<LRESULT> ControlWindow::handleText(const Part& part, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
    switch (message) {
    case WM_CHAR: {
        const auto unit = static_cast<wchar_t>(wParam);
        if (IS_HIGH_SURROGATE(unit)) {
            highHalf_ = unit;
            return 0;
        }
        std::wstring text;
        if (const wchar_t half = std::exchange(highHalf_, 0); half != 0 && IS_LOW_SURROGATE(unit))
            text += half;
        text += unit;
        host().composed(charactersIn(text));
        return 0;
    }
    case WM_IME_COMPOSITION:
        if ((lParam & GCS_RESULTSTR) != 0 && control_->isField()) {
            const auto text = composedText(part.window);
            if (const LPARAM rest = lParam & ~GCS_RESULTSTR; rest != 0)
                pass(part, message, wParam, rest);
            host().composed(charactersIn(text));
            return 0;
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

// --- pointer -------------------------------------------------------------------------------------

POINT ControlWindow::Pointer::onScreen() const {
    POINT point = place();
    ClientToScreen(part.window, &point);
    return point;
}

std::optional<LRESULT> ControlWindow::handlePointer(const Part& part, UINT message, WPARAM wParam,
                                                    LPARAM lParam) {
    const auto pointer = [&](MouseButton button) {
        return Pointer{part, message, wParam, lParam, button};
    };
    switch (message) {
    case WM_LBUTTONDOWN:
        press(pointer(MouseButton::left));
        return 0;
    case WM_RBUTTONDOWN:
        press(pointer(MouseButton::right));
        return 0;
    case WM_MBUTTONDOWN:
        press(pointer(MouseButton::middle));
        return 0;
    case WM_LBUTTONDBLCLK:
        doubleClick(pointer(MouseButton::left));
        return 0;
    case WM_RBUTTONDBLCLK: // once more
        press(pointer(MouseButton::right));
        return 0;
    case WM_LBUTTONUP:
        releaseButton(pointer(MouseButton::left));
        return 0;
    case WM_RBUTTONUP:
        releaseButton(pointer(MouseButton::right));
        return 0;
    case WM_MBUTTONUP:
        releaseButton(pointer(MouseButton::middle));
        return 0;
    case WM_MOUSEMOVE:
        host().hover(part.window, *this, {part.window, message, wParam, lParam, 0, {}});
        drag(pointer(MouseButton::left));
        return 0;
    case WM_MOUSEWHEEL:
        if (host().wheel(this, GET_WHEEL_DELTA_WPARAM(wParam)))
            return 0;
        return DefWindowProcW(part.window, message, wParam, lParam); // goes up to the parent
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
        pass(part, message, wParam, lParam);
        if (!letsGo_ && control_ != nullptr && host().isPressed(*this))
            host().giveUpPress();
        return 0;
    default:
        return std::nullopt;
    }
}

bool ControlWindow::isInside(const Pointer& pointer) const {
    RECT area;
    GetWindowRect(main_.window, &area);
    return PtInRect(&area, pointer.onScreen()) != FALSE;
}

void ControlWindow::beginPress(const Pointer& pointer, int tab) {
    host().beginPress(*this, pointer.button, pointer.onScreen(), tab);
    if (control_ != nullptr && host().isPressed(*this))
        SetCapture(pointer.part.window);
}

void ControlWindow::endPress(const Pointer& pointer) {
    const bool inside = isInside(pointer);
    if (GetCapture() == pointer.part.window) {
        letsGo_ = true;
        ReleaseCapture();
        letsGo_ = false;
    }
    if (control_ != nullptr)
        host().endPress(*this, pointer.button, inside);
}

void ControlWindow::press(const Pointer& pointer) {
    beginPress(pointer);
}

void ControlWindow::drag(const Pointer& pointer) {
    pass(pointer);
}

void ControlWindow::releaseButton(const Pointer& pointer) {
    endPress(pointer);
}

void ControlWindow::doubleClick(const Pointer& /*pointer*/) {
    form().doubleClick(*control_);
}

} // namespace vkr
