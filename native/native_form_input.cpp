// SPDX-License-Identifier: MIT
// What the form's view forwards: keys, focus, pointer.
#include "native/control_window.hpp"
#include "native/native_form.hpp"
#include "native/native_keys.hpp"

#include <utility>

namespace vkr {

// --- keys ----------------------------------------------------------------------------------------

// What the window of the active control makes of a key.
class NativeForm::KeyEditor final : public NativeEditor {
  public:
    KeyEditor(NativeForm& view, const MSG& message, int shift)
        : view_(view), life_(view.life_), message_(message), shift_(shift) {}

    void catchUp() override {
        if (auto* active = activeView())
            active->catchUp();
    }
    bool type(char32_t character) override {
        auto* active = activeView();
        return active != nullptr && active->typeCharacter(character);
    }
    bool edit() override {
        auto* active = activeView();
        return active != nullptr && active->edit(message_, shift_);
    }

  private:
    [[nodiscard]] ControlWindow* activeView() const {
        return life_.expired() ? nullptr : view_.activeView();
    }

    NativeForm& view_;
    std::weak_ptr<const bool> life_;
    const MSG& message_;
    int shift_;
};

bool NativeForm::translate(const MSG& message) {
    if ((message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) ||
        !isInside(message.hwnd))
        return false;
    if (!form_->uses(untranslatedStroke(message)))
        return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

// The form says who has the focus, also when native focus lags behind.
bool NativeForm::keyDown(const MSG& message) {
    const Stroke stroke = strokeOf(message);
    if (stroke.key == keys::none)
        return false;
    if (!form_->hasFocus()) {
        const auto* view = ControlWindow::of(message.hwnd);
        form_->focusCame(view == nullptr ? nullptr : view->control());
    }
    KeyEditor editor(*this, message, stroke.shift);
    return form_->stroke(stroke, editor);
}

void NativeForm::keyUp(const MSG& message) {
    if (const KeyCode key = keyCodeOf(message.wParam); form_->hasFocus() && key != keys::none)
        form_->keyUp(key, shiftNow());
}

void NativeForm::composed(std::u32string_view text) {
    const MSG none{};
    KeyEditor editor(*this, none, shifts::none);
    editor.catchUp();
    if (form_->hasFocus())
        form_->commit(text, editor);
}

// --- focus ---------------------------------------------------------------------------------------

bool NativeForm::isInside(HWND other) const {
    return other == window() || IsChild(window(), other) != FALSE;
}

void NativeForm::focus() {
    if (!form_->hasFocus())
        form_->focusCame(nullptr);
    followFocus();
}

void NativeForm::focus(FocusDirection direction) {
    if (!form_->hasFocus())
        form_->focusCame(nullptr, direction);
    followFocus();
}

// Not while another window has the keys: this would take them from it.
void NativeForm::followFocus() {
    if (!form_->hasFocus() || GetActiveWindow() != GetAncestor(window(), GA_ROOT))
        return;
    const auto* view = viewOf(form_->keyTarget());
    const bool takesKeys = view != nullptr && IsWindowVisible(view->window()) != FALSE &&
                           IsWindowEnabled(view->window()) != FALSE;
    const HWND target = takesKeys ? view->focusWindow() : window();
    const Nested nested(following_);
    if (GetFocus() != target)
        SetFocus(target);
}

void NativeForm::focusCame(ControlWindow* view) {
    if (owner_ != nullptr)
        owner_->keysCame();
    if (following_ > 0)
        return;
    const std::weak_ptr<const bool> life = life_;
    std::optional<FocusDirection> tabbed;
    if (view == nullptr && GetKeyState(VK_TAB) < 0)
        tabbed = GetKeyState(VK_SHIFT) < 0 ? FocusDirection::backward : FocusDirection::forward;
    form_->focusCame(view == nullptr ? nullptr : view->control(), tabbed);
    if (!life.expired() && (view == nullptr || activeView() != view))
        followFocus();
}

// Other windows, menus and message boxes have the keys for a while only.
void NativeForm::focusWent(HWND to) {
    if (following_ > 0 || to == nullptr || isInside(to) ||
        GetAncestor(to, GA_ROOT) != GetAncestor(window(), GA_ROOT))
        return;
    form_->focusLeft();
}

bool NativeForm::takesTab(FocusDirection direction) {
    if (owner_ != nullptr)
        return owner_->tabbedOut(direction);
    const HWND root = GetAncestor(window(), GA_ROOT);
    const bool backward = direction == FocusDirection::backward;
    const HWND next = GetNextDlgTabItem(root, window(), backward ? TRUE : FALSE);
    if (next == nullptr || isInside(next))
        return false;
    const std::weak_ptr<const bool> life = life_;
    form_->focusLeft();
    if (life.expired() || form_->hasFocus()) // a leave handler has kept it
        return true;
    SendMessageW(root, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE); // of a dialog
    if (GetFocus() != next)
        SetFocus(next);
    return true;
}

// --- pointer -------------------------------------------------------------------------------------

void NativeForm::interrupted() {
    ++interruptions_;
    if (const HWND holds = GetCapture(); holds != nullptr && isInside(holds))
        SendMessageW(holds, WM_CANCELMODE, 0, 0);
    if (GetCapture() != nullptr && isInside(GetCapture()))
        ReleaseCapture();
}

void NativeForm::resumed() {
    followFocus();
}

void NativeForm::beginPress(ControlWindow& view, MouseButton button, std::optional<POINT> place,
                            int tab) {
    const std::weak_ptr<const bool> life = life_;
    giveUpPress();
    if (auto* active = activeView())
        active->catchUp();
    if (life.expired() || view.control() == nullptr)
        return;
    press_.begin(view, button);
    const unsigned before = interruptions_;
    pressPlace_ = place;
    form_->mouseDown(*view.control(), button, tab);
    if (life.expired())
        return;
    pressPlace_.reset();
    followFocus();
    if (before != interruptions_)
        giveUpPress();
    checkInvariants();
}

bool NativeForm::dragged(ControlWindow& view, POINT place) {
    if (!press_.drags(view))
        return false;
    const HWND under = WindowFromPoint(place);
    const auto* over = isInside(under) ? ControlWindow::of(under) : nullptr;
    if (over == nullptr || over->control() == nullptr || !press_.comesOver(*over))
        return press_.selects();
    const std::weak_ptr<const bool> life = life_;
    const bool selects = form_->userDrag(*view.control(), *over->control());
    if (life.expired())
        return true;
    press_.setSelects(view, selects); // it may be given up meanwhile
    checkInvariants();
    return selects;
}

bool NativeForm::isPressed(const ControlWindow& view) const {
    return press_.isOf(view);
}

void NativeForm::endPress(ControlWindow& view, MouseButton button, PressEnd end) {
    press_.end(*form_, view, button, end);
}

void NativeForm::giveUpPress() {
    press_.giveUp(*form_);
}

// A turn never changes a field that does not have the focus.
bool NativeForm::wheel(ControlWindow* origin, int delta) {
    const int steps = wheelTurns_.add(delta);
    const bool focused = origin != nullptr && origin == activeView();
    const bool used = (focused && origin->wheel(steps)) || form_->userWheel(steps);
    wheelTurns_.settle(used);
    return used;
}

// --- messages ------------------------------------------------------------------------------------

std::optional<LRESULT> NativeForm::reflected(UINT message, WPARAM wParam, LPARAM lParam) {
    HWND source = nullptr;
    switch (message) {
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
        source = reinterpret_cast<HWND>(lParam);
        break;
    case WM_NOTIFY:
        source = reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
        break;
    default:
        return std::nullopt;
    }
    auto* view = ControlWindow::of(source);
    if (view == nullptr || view->control() == nullptr)
        return std::nullopt;
    const auto stays = view->shared_from_this();
    return view->reflect(message, wParam, lParam);
}

// What the surface hears of keys, focus and pointer.
std::optional<LRESULT> NativeForm::handleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    const MSG key{window(), message, wParam, lParam, 0, {}};
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (form_->hasFocus() && keyDown(key))
            return 0;
        return std::nullopt;
    case WM_KEYUP:
        keyUp(key);
        return 0;
    case WM_SETFOCUS:
        focusCame(nullptr);
        return 0;
    case WM_KILLFOCUS:
        focusWent(reinterpret_cast<HWND>(wParam));
        return 0;
    case WM_LBUTTONDOWN:
        surfacePressed_ = true;
        return 0;
    case WM_LBUTTONUP:
        if (std::exchange(surfacePressed_, false))
            form_->surfaceClick();
        return 0;
    case WM_MOUSEWHEEL:
        if (wheel(nullptr, GET_WHEEL_DELTA_WPARAM(wParam)))
            return 0;
        return std::nullopt;
    case WM_CONTEXTMENU:
        return 0;
    default:
        return std::nullopt;
    }
}

LRESULT NativeForm::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND surface = window(); // also where the form goes meanwhile
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT painting;
        paint(BeginPaint(surface, &painting));
        EndPaint(surface, &painting);
        return 0;
    }
    case WM_PRINTCLIENT: // themed controls ask for what is behind them
        paint(reinterpret_cast<HDC>(wParam));
        return 0;
    case WM_PRINT:
        draw(reinterpret_cast<HDC>(wParam));
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_DPICHANGED_AFTERPARENT:
        followDotsPerInch();
        return 0;
    case WM_SYSCOLORCHANGE:
        passOn(message);
        followTheme();
        return 0;
    case WM_THEMECHANGED:
    case WM_SETTINGCHANGE:
        followTheme();
        return 0;
    case WM_CTLCOLORSTATIC:
        if (reinterpret_cast<HWND>(lParam) == note_) {
            SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_INFOTEXT));
            SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_INFOBK));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_INFOBK));
        }
        break;
    default:
        break;
    }
    if (const auto answer = reflected(message, wParam, lParam))
        return *answer;
    if (const auto answer = handleInput(message, wParam, lParam))
        return *answer;
    return DefWindowProcW(surface, message, wParam, lParam);
}

} // namespace vkr
