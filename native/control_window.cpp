// SPDX-License-Identifier: MIT
#include "native/control_window.hpp"

#include "native/module.hpp"
#include "native/native_text.hpp"
#include "platform/text.hpp"

#include <cassert>

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
    assert(part.window == nullptr && window != nullptr);
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

void ControlWindow::show(Property property) {
    show(property, Setter::common());
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
    assert(host_ != nullptr);
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT)
        return accessibleOf(part.window, weak_from_this(), wParam);
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
        return handleFocus(part, message, wParam, lParam);
    // What concerns the frame comes while the window itself is at work, too.
    const bool ofFrame = message == WM_NCPAINT || message == WM_NCCALCSIZE;
    if (!passing() || ofFrame)
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

} // namespace vkr
