// SPDX-License-Identifier: MIT
// What the form's view forwards: keys, focus, pointer.
#include "desktop/control_view.hpp"
#include "desktop/form_view.hpp"
#include "platform/stroke.hpp"

#include <QApplication>
#include <QInputMethodEvent>
#include <QMenuBar>
#include <QWheelEvent>

#include <utility>

namespace vkr {

// --- keys ----------------------------------------------------------------------------------------

bool FormView::usesKey(const QKeyEvent& event) const {
    return form_->uses(strokeOf(event));
}

void FormView::keyPress(QKeyEvent& event, ControlView& origin) {
    if (!origin.control()->isFocusable()) { // on its way up from a field
        event.ignore();
        return;
    }
    if (!form_->hasFocus())
        form_->focus(*origin.control());
    feedKey(event);
}

void FormView::catchUp() {
    if (auto* view = activeView())
        view->catchUp();
}

// What the widget of the active control makes of a key.
class FormView::KeyEditor final : public NativeEditor {
  public:
    KeyEditor(FormView& view, const QKeyEvent& event) : view_(view), event_(event) {}

    void catchUp() override { view_.catchUp(); }
    bool type(char32_t character) override {
        return pass(character < U' ' ? event_.text() : QString::fromUcs4(&character, 1));
    }
    bool edit() override { return pass(event_.text()); }

  private:
    bool pass(const QString& text) {
        auto* active = view_.activeView();
        if (active == nullptr)
            return false;
        QKeyEvent typed(event_.type(), event_.key(), event_.modifiers(), text,
                        event_.isAutoRepeat());
        active->type(typed);
        return typed.isAccepted();
    }

    FormView& view_;
    const QKeyEvent& event_;
};

// The form says who has the focus, also when native focus lags behind.
void FormView::feedKey(QKeyEvent& event) {
    const Stroke stroke = strokeOf(event);
    // The form moves the focus, so Qt does not know that the keyboard does; styles ask for it.
    if (stroke.key != keys::none)
        window()->setAttribute(Qt::WA_KeyboardFocusChange);
    KeyEditor editor(*this, event);
    event.setAccepted(form_->stroke(stroke, editor));
}

void FormView::keyRelease(QKeyEvent& event, ControlView& origin) {
    const auto key = keyCodeOf(event);
    if (!form_->hasFocus() || !origin.control()->isFocusable() || key == keys::none) {
        event.ignore();
        return;
    }
    event.accept();
    if (!event.isAutoRepeat())
        form_->keyUp(key, shiftOf(event.modifiers()));
}

// What the widget of the active control makes of a composed character.
class FormView::InputEditor final : public NativeEditor {
  public:
    explicit InputEditor(FormView& view) : view_(view) {}

    bool type(char32_t character) override {
        QInputMethodEvent typed;
        typed.setCommitString(QString::fromUcs4(&character, 1));
        if (auto* active = view_.activeView())
            active->type(typed);
        return true;
    }
    bool edit() override { return false; }

  private:
    FormView& view_;
};

void FormView::inputMethod(QInputMethodEvent& event, ControlView& origin) {
    event.accept();
    if (!form_->hasFocus())
        form_->focus(*origin.control());
    catchUp();
    const QPointer<ControlView> view = activeView();
    if (view == nullptr)
        return;
    const auto committed = event.commitString().toStdU32String();
    if (committed.empty()) {
        view->type(event);
        return;
    }
    QInputMethodEvent ended; // the text under composition goes away first
    if (event.replacementLength() > 0)
        ended.setCommitString({}, event.replacementStart(), event.replacementLength());
    view->type(ended);
    InputEditor editor(*this);
    form_->commit(committed, editor);
    if (!event.preeditString().isEmpty() && view == activeView()) {
        QInputMethodEvent composed(event.preeditString(), event.attributes());
        view->type(composed);
    }
}

// --- focus ---------------------------------------------------------------------------------------

bool FormView::isInside(const QWidget* widget) const {
    return widget == this || isAncestorOf(widget);
}

// A menu bar has the keys for a while only.
bool FormView::isOfHost(const QWidget* widget) const {
    return widget != nullptr && !isInside(widget) &&
           qobject_cast<const QMenuBar*>(widget) == nullptr;
}

void FormView::focusChanged() {
    followFocus();
    if (auto* view = activeView())
        view->focusGained();
}

void FormView::followFocus() {
    if (!form_->hasFocus())
        return;
    const auto* view = viewOf(form_->keyTarget());
    QWidget* target = view != nullptr && view->widget().isEnabledTo(this) ? &view->widget() : this;
    const Nested nested(following_);
    if (!target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
}

namespace {

std::optional<FocusDirection> directionOf(Qt::FocusReason reason) {
    switch (reason) {
    case Qt::TabFocusReason:
        return FocusDirection::forward;
    case Qt::BacktabFocusReason:
        return FocusDirection::backward;
    default:
        return std::nullopt;
    }
}

} // namespace

void FormView::focusCame(ControlView* view, Qt::FocusReason reason) {
    if (following_ > 0)
        return;
    form_->focusCame(view == nullptr ? nullptr : view->control(), directionOf(reason));
    if (view == nullptr || activeView() != view)
        followFocus();
}

void FormView::focusWent(Qt::FocusReason reason) {
    if (following_ > 0 || reason == Qt::MenuBarFocusReason)
        return;
    const auto* now = QApplication::focusWidget();
    if (now != nullptr && now->window() == window() && !isInside(now))
        form_->focusLeft();
}

// Qt moves the focus when a widget is hidden or disabled. Here the form alone does.
bool FormView::focusNextPrevChild(bool next) {
    if (!form_->hasFocus() || !isVisible() || !isEnabled())
        return QWidget::focusNextPrevChild(next);
    const Nested nested(following_);
    setFocus(Qt::OtherFocusReason);
    return true;
}

bool FormView::takesTab(FocusDirection direction) {
    const bool forward = direction == FocusDirection::forward;
    const auto step = [forward](QWidget* widget) {
        return forward ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget* candidate = step(this); candidate != nullptr && candidate != this;
         candidate = step(candidate)) {
        if (isInside(candidate) || candidate->window() != window() ||
            (candidate->focusPolicy() & Qt::TabFocus) == 0 || !candidate->isVisible() ||
            !candidate->isEnabled() || candidate->focusProxy() != nullptr)
            continue;
        form_->focusLeft();
        if (!form_->hasFocus()) // else a leave handler has kept it
            candidate->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return false;
}

// --- pointer -------------------------------------------------------------------------------------

void FormView::beginPress(ControlView& view, MouseButton button, std::optional<QPoint> place,
                          int tab) {
    giveUpPress();
    catchUp();
    press_.begin(view, button);
    const unsigned before = interruptions_;
    pressPlace_ = place;
    form_->mouseDown(*view.control(), button, tab);
    pressPlace_.reset();
    followFocus(); // the host's menu bar may have the keys meanwhile
    if (before != interruptions_)
        giveUpPress();
    checkInvariants();
}

bool FormView::dragged(ControlView& view, QPoint place) {
    if (!press_.drags(view))
        return false;
    QWidget* under = childAt(mapFromGlobal(place));
    ControlView* over = nullptr;
    for (const auto& [control, candidate] : views_)
        if (under != nullptr && candidate->control() != nullptr && &candidate->widget() == under)
            over = candidate;
    if (over == nullptr || !press_.comesOver(*over))
        return press_.selects();
    const bool selects = form_->userDrag(*view.control(), *over->control());
    press_.setSelects(view, selects); // the press may be over by now
    return selects;
}

bool FormView::isPressed(const ControlView& view) const {
    return press_.isOf(view);
}

void FormView::endPress(ControlView& view, MouseButton button, PressEnd end) {
    press_.end(*form_, view, button, end);
}

void FormView::giveUpPress() {
    press_.giveUp(*form_);
}

// A turn never changes a field that does not have the focus.
void FormView::turnWheel(QWheelEvent& event, ControlView* origin) {
    const QPoint angle = event.angleDelta();
    const int turn = angle.y() != 0 ? angle.y() : angle.x();
    const int steps = wheelTurns_.add(turn);
    if (wheelZoom_ != nullptr && event.modifiers().testFlag(Qt::ControlModifier)) {
        wheelTurns_.settle(true);
        event.accept();
        if (steps != 0)
            wheelZoom_->zoomTurned(steps);
        return;
    }
    const bool focused =
        origin != nullptr && origin == activeView() && origin->widget().isEnabled();
    const bool used = (focused && origin->wheel(steps)) || form_->userWheel(steps);
    wheelTurns_.settle(used);
    event.setAccepted(used);
}

void FormView::wheel(QWheelEvent& event, ControlView& origin) {
    turnWheel(event, &origin);
}

// What the surface hears of keys, focus and pointer; false: nothing for the form.
bool FormView::inputEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto& key = static_cast<QKeyEvent&>(event);
        // Others come up from a control that had no use for them.
        if (!form_->hasFocus() || window()->focusWidget() != this)
            event.ignore();
        else if (event.type() == QEvent::KeyPress)
            feedKey(key);
        else if (!key.isAutoRepeat())
            form_->keyUp(keyCodeOf(key), shiftOf(key.modifiers()));
        return true;
    }
    case QEvent::ShortcutOverride:
        if (usesKey(static_cast<QKeyEvent&>(event)))
            event.accept();
        return true;
    case QEvent::FocusIn:
        focusCame(nullptr, static_cast<QFocusEvent&>(event).reason());
        return true;
    case QEvent::FocusOut:
        focusWent(static_cast<QFocusEvent&>(event).reason());
        return true;
    case QEvent::MouseButtonPress:
        surfacePressed_ = static_cast<QMouseEvent&>(event).button() == Qt::LeftButton;
        return true;
    case QEvent::MouseButtonRelease:
        if (surfacePressed_ &&
            rect().contains(static_cast<QMouseEvent&>(event).position().toPoint()))
            form_->surfaceClick();
        surfacePressed_ = false;
        return true;
    case QEvent::Wheel:
        turnWheel(static_cast<QWheelEvent&>(event), nullptr);
        return true;
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

bool FormView::event(QEvent* event) {
    if (inputEvent(*event))
        return true;
    switch (event->type()) {
    case QEvent::PaletteChange:
        followTheme();
        break;
    case QEvent::WindowActivate:
        if (!isOfHost(window()->focusWidget()))
            followFocus(); // a menu bar that was left by another window keeps the keys
        break;
    case QEvent::Show:
        if (!std::exchange(shown_, true))
            for (const auto& [control, view] : views_)
                tell(*view, Property::toolTip);
        break;
    case QEvent::ScreenChangeInternal:
        if (scale_.dotsPerInch() != scaleAt(zoom_).dotsPerInch())
            showScale();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

} // namespace vkr
