// SPDX-License-Identifier: MIT
#include "native/native_form.hpp"

#include "native/edit_window.hpp"
#include "native/guard.hpp"
#include "native/native_text.hpp"
#include "native/windows.hpp"

#include <algorithm>
#include <cassert>
#include <vector>

namespace vkr {

NativeForm::NativeForm(HWND parent, const RECT& place, Form& form)
    : form_(&form),
      surface_(std::make_shared<Surface>(parent, place, static_cast<SurfaceOwner&>(*this))),
      scale_(GetDpiForWindow(window())), fonts_(std::make_unique<Fonts>(scale_)) {
    makeViews(isOnShow);
    form.setObserver(this);
    ShowWindow(window(), SW_SHOWNA);
}

NativeForm::~NativeForm() {
    life_.reset();
    form_->setObserver(nullptr);
    for (const auto& [control, view] : views_)
        view->forget();
    surface_->close();
    if (tip_ != nullptr)
        DestroyWindow(tip_);
}

void NativeForm::move(const RECT& place) {
    SetWindowPos(window(), nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void NativeForm::setVisible(bool visible) {
    ShowWindow(window(), visible ? SW_SHOWNA : SW_HIDE);
}

// --- views ---------------------------------------------------------------------------------------

ControlWindow* NativeForm::viewOf(const Control* control) const {
    const auto found = views_.find(control);
    return found == views_.end() ? nullptr : found->second.get();
}

ControlWindow* NativeForm::activeView() const {
    return form_->hasFocus() ? viewOf(form_->activeControl()) : nullptr;
}

ControlWindow* NativeForm::ensureView(const Control& control) {
    if (viewOf(&control) == nullptr) {
        if (control.container() != nullptr)
            ensureView(*control.container());
        makeViews([&](const Control& other) { return other.container() == control.container(); });
    }
    return viewOf(&control);
}

HWND NativeForm::windowOf(const Control& control) {
    auto* view = ensureView(control);
    if (view == nullptr)
        return nullptr;
    view->showDue();
    return view->window();
}

FieldWindow* NativeForm::fieldWindow(const TextField& field) const {
    return dynamic_cast<FieldWindow*>(viewOf(&field));
}

// Views of the wanted controls, as their models are now.
template <typename Wanted>
void NativeForm::makeViews(Wanted&& wanted) {
    std::vector<const Control*> shapes;
    for (const auto& control : form_->controls()) {
        if (control->kind() == ControlKind::menuItem || !wanted(*control))
            continue;
        if (auto* view = viewOf(control.get())) {
            view->showDue();
        } else {
            addView(*control);
            if (control->kind() == ControlKind::shape)
                shapes.push_back(control.get());
        }
    }
    for (auto shape = shapes.rbegin(); shape != shapes.rend(); ++shape)
        viewOf(*shape)->putBehind(); // the first one behind the others
}

// The system puts a new window behind its neighbours, so that screen readers come to them in the
// order they were made. Frames are in front of what is beside them, shapes behind it.
void NativeForm::addView(Control& control) {
    auto* around = viewOf(control.container());
    const auto view = makeWindow(*this, control, around == nullptr ? window() : around->window());
    if (view == nullptr)
        return;
    if (around == nullptr)
        view->keep(surface_);
    else
        view->keep(around->shared_from_this());
    views_.emplace(&control, view);
    if (control.kind() == ControlKind::frame)
        view->show(Property::order);
    view->showAll();
}

void NativeForm::controlAdded(Control& control) {
    const auto* around = control.container();
    const bool hasPlace = around == nullptr || viewOf(around) != nullptr;
    if (control.kind() != ControlKind::menuItem && isOnShow(control) && hasPlace)
        addView(control);
}

void NativeForm::controlRemoved(Control& control) {
    const auto found = views_.find(&control);
    if (found == views_.end())
        return;
    const View view = found->second; // goes when its last message is handled
    views_.erase(found);
    onShow_.removed(control);
    press_.forget(*view);
    view->retire();
    checkInvariants();
}

void NativeForm::checkInvariants() const {
    assert(following_ >= 0);
    press_.checkInvariants();
    assert(std::ranges::all_of(views_,
                               [](const auto& one) { return one.second->control() == one.first; }));
    assert(tip_ != nullptr || (tipOf_ == nullptr && tipText_.empty()));
}

void NativeForm::controlChanged(Control& control, Property property) {
    if (control.kind() == ControlKind::frame && setsOnShow(property))
        onShow_.changed(control, [this] { makeViews(isOnShow); });
    // A view that is made later would not know of the order.
    auto* view = property == Property::order ? ensureView(control) : viewOf(&control);
    if (view == nullptr)
        return;
    // The kind of native window depends on it.
    if (property == Property::look && control.kind() == ControlKind::textBox) {
        const bool lines = static_cast<TextBox&>(control).multiLine();
        if (lines != dynamic_cast<EditWindow&>(*view).hasLines()) {
            controlRemoved(control);
            controlAdded(control);
            if (form_->hasFocus() && form_->activeControl() == &control)
                focusChanged();
            return;
        }
    }
    tell(*view, property);
}

void NativeForm::focusChanged() {
    followFocus();
    if (auto* view = activeView())
        view->focusGained();
}

void NativeForm::formChanged() {
    InvalidateRect(window(), nullptr, TRUE);
}

// --- looks ---------------------------------------------------------------------------------------

SIZE NativeForm::sizeOf(Twips width, Twips height) const {
    return {scale_.pixels(width), scale_.pixels(height)};
}

void NativeForm::setDotsPerInch(double dotsPerInch) {
    ownScale_ = true;
    scale_ = PixelScale(dotsPerInch);
    showScale();
}

void NativeForm::followDotsPerInch() {
    const double now = GetDpiForWindow(window());
    if (ownScale_ || now == scale_.dotsPerInch())
        return;
    scale_ = PixelScale(now);
    showScale();
    if (owner_ != nullptr)
        owner_->scaleFollowed();
}

// Fonts first: sizes of the windows may depend on them.
void NativeForm::showScale() {
    const auto before = std::move(fonts_); // windows have them until they get the new ones
    fonts_ = std::make_unique<Fonts>(scale_);
    for (const auto& [control, view] : views_) {
        view->showAll();
        view->place();
        view->show(Property::place);
    }
    RedrawWindow(window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

static BOOL CALLBACK passedOn(HWND child, LPARAM message) {
    SendMessageW(child, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

// The system tells top-level windows alone; its own controls have copies of the old colours.
void NativeForm::passOn(UINT message) const {
    EnumChildWindows(window(), &passedOn, static_cast<LPARAM>(message));
}

// Colours that were chosen to be readable on the old one.
void NativeForm::followTheme() {
    palette_.follow();
    RedrawWindow(window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void NativeForm::paint(HDC context) const {
    RECT area;
    GetClientRect(window(), &area);
    fill(context, area, Palette::plain(form_->backColor()));
    if (form_->borderStyle() != BorderStyle::none)
        outline(context, area, palette_.edge());
}

void NativeForm::draw(HDC context) {
    RECT area;
    GetClientRect(window(), &area);
    const int before = SaveDC(context);
    IntersectClipRect(context, 0, 0, area.right, area.bottom);
    paint(context);
    drawInside(window(), context);
    RestoreDC(context, before);
}

// What a window holds, from the hindmost to the foremost.
void NativeForm::drawInside(HWND parent, HDC context) const {
    POINT corner{};
    ClientToScreen(parent, &corner);
    const HWND first = GetWindow(parent, GW_CHILD);
    for (HWND child = first == nullptr ? nullptr : GetWindow(first, GW_HWNDLAST); child != nullptr;
         child = GetWindow(child, GW_HWNDPREV)) {
        if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) == 0)
            continue;
        RECT place;
        GetWindowRect(child, &place);
        OffsetRect(&place, -corner.x, -corner.y);
        POINT inner{};
        ClientToScreen(child, &inner);
        const int before = SaveDC(context);
        IntersectClipRect(context, place.left, place.top, place.right, place.bottom);
        const auto* view = ControlWindow::of(child);
        if (view != nullptr && view->control() == nullptr)
            view = nullptr;
        if (view != nullptr)
            view->paintUnder(context, place);
        if ((GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0)
            DrawEdge(context, &place, EDGE_SUNKEN, BF_RECT);
        const int unclipped = SaveDC(context);
        OffsetViewportOrgEx(context, inner.x - corner.x, inner.y - corner.y, nullptr);
        RECT area;
        GetClientRect(child, &area);
        IntersectClipRect(context, 0, 0, area.right, area.bottom);
        const auto target = reinterpret_cast<WPARAM>(context);
        SendMessageW(child, WM_ERASEBKGND, target, 0);
        SendMessageW(child, WM_PRINTCLIENT, target, PRF_CLIENT | PRF_ERASEBKGND);
        drawInside(child, context);
        RestoreDC(context, unclipped);
        if (view != nullptr && view->window() == child)
            view->paintOver(context, place);
        RestoreDC(context, before);
    }
}

// --- notes and tips ------------------------------------------------------------------------------

void NativeForm::showNote(const Control& control, const std::wstring& text) {
    noteOver();
    const auto* view = viewOf(&control);
    if (view == nullptr || IsWindowVisible(view->window()) == FALSE)
        return;
    RECT form;
    GetClientRect(window(), &form);
    constexpr int margin = 4;
    RECT needed{0, 0, form.right - 2 * margin, 0};
    {
        const WindowContext context(window());
        const Selected font(context, fonts_->plain());
        DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &needed,
                  DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    }
    const LONG width = needed.right + 2 * margin;
    const LONG height = needed.bottom + 2 * margin;
    RECT field;
    GetWindowRect(view->window(), &field);
    MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&field), 2);
    // Right below the field, or above it where the form ends.
    LONG top = field.bottom + 1;
    if (top + height > form.bottom)
        top = std::max(0L, field.top - 1 - height);
    const LONG left = std::clamp(field.left, 0L, std::max(0L, form.right - width));
    note_ = CreateWindowExW(0, WC_STATICW, text.c_str(),
                            WS_CHILD | WS_CLIPSIBLINGS | WS_BORDER | SS_CENTER | SS_NOPREFIX, left,
                            top, width, height, window(), nullptr, nullptr, nullptr);
    if (note_ == nullptr)
        return;
    SendMessageW(note_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_->plain()), FALSE);
    SetWindowPos(note_, HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    NotifyWinEvent(EVENT_SYSTEM_ALERT, note_, OBJID_CLIENT, CHILDID_SELF);
}

void NativeForm::noteOver() {
    if (note_ != nullptr)
        DestroyWindow(std::exchange(note_, nullptr));
}

void NativeForm::hover(HWND over, const ControlWindow& view, const MSG& message) {
    showTip(over, view.tip());
    if (tip_ == nullptr || tipText_.empty())
        return;
    MSG relayed = message;
    SendMessageW(tip_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

void NativeForm::showTip(HWND over, std::wstring text) {
    if (text == tipText_ && (over == tipOf_ || text.empty()))
        return;
    if (tip_ == nullptr)
        tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                               WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, window(),
                               nullptr, nullptr, nullptr);
    if (tip_ == nullptr)
        return;
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window();
    tool.uId = reinterpret_cast<UINT_PTR>(tipOf_);
    if (tipOf_ != nullptr)
        SendMessageW(tip_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    tipOf_ = over;
    tipText_ = std::move(text);
    tool.uId = reinterpret_cast<UINT_PTR>(tipOf_);
    tool.lpszText = tipText_.data();
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, scale_.pixels(4500));
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    checkInvariants();
}

} // namespace vkr
