// SPDX-License-Identifier: MIT
#include "desktop/form_view.hpp"

#include "desktop/control_views.hpp"
#include "desktop/field_views.hpp"
#include "desktop/readable_colors.hpp"
#include "platform/text.hpp"

#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace vkr {

namespace {

// The frame it is in can be seen; whether it can itself, its view says.
bool isOnShow(const Control& control) {
    return control.container() == nullptr || control.container()->isShown();
}

bool setsOnShow(Property property) {
    return property == Property::place || property == Property::visible;
}

} // namespace

FormView::FormView(Form& form, QWidget* parent) : QWidget(parent), form_(&form) {
    setFocusPolicy(Qt::TabFocus);
    setAutoFillBackground(true);
    scale_ = PixelScale(logicalDpiX());
    showScale();
    makeViews(isOnShow);
    FormView::formChanged();
    form.setObserver(this);
    form.tabbedOut = [this](FocusDirection direction) { return tabOut(direction); };
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
        if (form_->hasFocus() && isOfHost(now) && now->window() == window())
            form_->focusLeft();
    });
}

FormView::~FormView() {
    disconnect(qApp, nullptr, this, nullptr);
    form_->setObserver(nullptr);
    form_->tabbedOut = nullptr;
    for (const auto& [control, view] : views_)
        view->forget();
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    for (const auto& [control, view] : views_)
        delete view;
}

// --- views ---------------------------------------------------------------------------------------

ControlView* FormView::viewOf(const Control* control) const {
    const auto found = views_.find(control);
    return found == views_.end() ? nullptr : found->second;
}

ControlView* FormView::activeView() const {
    return form_->hasFocus() ? viewOf(form_->activeControl()) : nullptr;
}

ControlView* FormView::ensureView(const Control& control) {
    if (viewOf(&control) == nullptr) {
        const auto isBeside = [&](const Control& other) {
            return other.container() == control.container();
        };
        if (control.container() != nullptr)
            ensureView(*control.container());
        makeViews(isBeside);
    }
    return viewOf(&control);
}

QWidget* FormView::widgetOf(const Control& control) {
    auto* view = ensureView(control);
    if (view == nullptr)
        return nullptr;
    view->showDue();
    return &view->widget();
}

QWidget* FormView::madeWidgetOf(const Control& control) const {
    const auto* view = viewOf(&control);
    return view == nullptr ? nullptr : &view->widget();
}

FieldView* FormView::fieldView(const TextField& field) const {
    return dynamic_cast<FieldView*>(viewOf(&field));
}

// Views of the wanted controls, as their models are now.
template <typename Wanted>
void FormView::makeViews(Wanted&& wanted) {
    for (const auto& control : form_->controls()) {
        if (control->kind() == ControlKind::menuItem || !wanted(*control))
            continue;
        if (auto* view = viewOf(control.get()))
            view->showDue();
        else
            addView(*control);
    }
    nameFields();
}

void FormView::addView(Control& control) {
    QWidget* parent = control.container() == nullptr ? this : madeWidgetOf(*control.container());
    auto* view = makeView(*this, control, *parent);
    views_.emplace(&control, view);
    view->showAll();
    if (control.isFocusable()) // else the host's own controls would stand among those of the form
        setTabOrder(this, &view->widget());
}

void FormView::controlAdded(Control& control) {
    const auto* around = control.container();
    const bool hasPlace = around == nullptr || viewOf(around) != nullptr;
    if (control.kind() == ControlKind::menuItem || !isOnShow(control) || !hasPlace)
        return;
    addView(control);
    nameFields();
}

// Labels stand in front of the fields they name.
void FormView::nameFields() {
    for (const auto& control : form_->controls()) {
        if (control->kind() != ControlKind::label)
            continue;
        auto* view = viewOf(control.get());
        const auto* named = static_cast<Label&>(*control).buddy();
        if (view != nullptr && named != nullptr &&
            static_cast<QLabel&>(view->widget()).buddy() != madeWidgetOf(*named))
            view->show(Property::look);
    }
}

void FormView::controlRemoved(Control& control) {
    if (auto* view = viewOf(&control)) {
        views_.erase(&control);
        if (control.kind() == ControlKind::frame)
            onShow_.erase(static_cast<const Frame*>(&control));
        if (pressed_ == view)
            pressed_.clear();
        view->retire();
    }
}

// The kind of native widget depends on this property.
void FormView::replaceView(Control& control) {
    controlRemoved(control);
    controlAdded(control);
    if (form_->hasFocus() && form_->activeControl() == &control)
        focusChanged();
}

void FormView::controlChanged(Control& control, Property property) {
    if (control.kind() == ControlKind::frame && setsOnShow(property))
        frameChanged(static_cast<Frame&>(control));
    // A view that is made later would not know of the order.
    auto* view = property == Property::order ? ensureView(control) : viewOf(&control);
    if (view == nullptr)
        return;
    if (property == Property::look && control.kind() == ControlKind::textBox &&
        static_cast<TextBox&>(control).multiLine() != (dynamic_cast<NotesView*>(view) != nullptr)) {
        replaceView(control);
        return;
    }
    tell(*view, property);
}

// What can't be seen is drawn when it can.
void FormView::tell(ControlView& view, Property property) {
    const Control& control = *view.control();
    const bool canBeSeen = setsOnShow(property) ? isOnShow(control) : control.isShown();
    if (!canBeSeen && property != Property::order) {
        view.showLater(property);
        return;
    }
    if (setsOnShow(property) && control.isShown())
        view.showDue();
    view.show(property);
}

// What it holds is drawn before it is seen itself.
void FormView::frameChanged(const Frame& frame) {
    if (!frame.isShown()) {
        onShow_.erase(&frame);
    } else if (!onShow_.contains(&frame)) {
        makeViews(isOnShow);
        onShow_.insert(&frame);
    }
}

void FormView::showChoices() {
    for (const auto& control : form_->controls())
        if (control->kind() == ControlKind::optionButton ||
            control->kind() == ControlKind::checkBox)
            controlChanged(*control, Property::value);
}

void FormView::formChanged() {
    if (form_->width() > 0 && form_->height() > 0)
        setFixedSize(sizeOf(form_->width(), form_->height()));
    QPalette palette;
    if (const QColor back = toQt(form_->backColor()); back.isValid())
        palette.setColor(QPalette::Window, back);
    setPalette(palette);
    fieldPalettes_.clear(); // a disabled field fades into the window
    if (form_->mouseIcon().empty())
        unsetCursor();
    else
        setCursor(Qt::PointingHandCursor);
    update();
}

// --- scale ---------------------------------------------------------------------------------------

QSize FormView::sizeOf(Twips width, Twips height) const {
    return {scale_.pixels(width), scale_.pixels(height)};
}

void FormView::setDotsPerInch(double dotsPerInch) {
    ownScale_ = true;
    scale_ = PixelScale(dotsPerInch);
    showScale();
}

QFont FormView::fontFor(const PixelScale& scale) {
    // The form is laid out for letters of this width; a wider family is condensed.
    constexpr Twips sampleWidth = 1545;
    constexpr int narrowest = 75;
    QFont font;
    font.setPixelSize(scale.fontPixels());
    const double width =
        QFontMetricsF(font).horizontalAdvance(QStringLiteral("Date of Last Quarter"));
    if (const double fitting = scale.pixels(sampleWidth); width > fitting)
        font.setStretch(std::max(narrowest, static_cast<int>(100 * fitting / width)));
    return font;
}

const QPalette& FormView::fieldPalette(const QColor& back, const QColor& fore) {
    const auto [found, isNew] = fieldPalettes_.try_emplace({back.rgb(), fore.rgb()});
    QPalette& made = found->second;
    if (isNew) {
        const QColor window = palette().color(QPalette::Window);
        const QColor dimmed = between(back, window, 0.6);
        const QColor text = readable(fore, back);
        const QBrush base(back);
        const QBrush ink(text);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            made.setBrush(group, QPalette::Base, base);
            made.setBrush(group, QPalette::Text, ink);
        }
        made.setBrush(QPalette::Disabled, QPalette::Base, dimmed);
        made.setBrush(QPalette::Disabled, QPalette::Text,
                      readable(between(text, dimmed, 0.35), dimmed, signContrast));
    }
    return made;
}

int FormView::widthOf(const QString& text) const {
    double width = 0;
    for (const QChar character : text) {
        if (character.unicode() >= characterWidths_.size())
            return QFontMetrics(font()).horizontalAdvance(text);
        width += characterWidths_[character.unicode()];
    }
    return static_cast<int>(std::ceil(width));
}

void FormView::showScale() {
    setFont(fontFor(scale_));
    const QFontMetricsF metrics(font());
    for (std::size_t i = 0; i < characterWidths_.size(); ++i)
        characterWidths_[i] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(i)));
    for (const auto& [control, view] : views_)
        view->place();
    if (form_->width() > 0 && form_->height() > 0)
        setFixedSize(sizeOf(form_->width(), form_->height()));
}

void FormView::paintEvent(QPaintEvent* /*event*/) {
    if (form_->borderStyle() == BorderStyle::none)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// Colours that were chosen to be readable on the old one.
void FormView::followTheme() {
    fieldPalettes_.clear();
    for (const auto& [control, view] : views_)
        tell(*view, Property::colors);
}

void FormView::paintMark(QWidget& widget, MarkKind kind) {
    if (kind == MarkKind::none)
        return;
    const QColor wanted =
        kind == MarkKind::unstored ? mark_colors::unstored : mark_colors::doubtful;
    const QColor behind = widget.palette().color(QPalette::Base);
    QPainter painter(&widget);
    painter.setPen(QPen(readable(wanted, behind, signContrast), 2));
    painter.drawRect(widget.rect().adjusted(1, 1, -1, -1));
}

// --- notes ---------------------------------------------------------------------------------------

void FormView::showNote(const Control& control, const QString& text) {
    const auto* field = madeWidgetOf(control);
    if (field == nullptr || !field->isVisible())
        return;
    if (note_ == nullptr) {
        note_ = new QLabel(this);
        note_->setObjectName(QStringLiteral("note"));
        note_->setTextFormat(Qt::PlainText);
        note_->setFrameStyle(QFrame::Box);
        note_->setMargin(3);
        note_->setAutoFillBackground(true);
        note_->setBackgroundRole(QPalette::ToolTipBase);
        note_->setForegroundRole(QPalette::ToolTipText);
        note_->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    note_->setPalette(QToolTip::palette());
    note_->setText(text);
    note_->setWordWrap(false);
    QSize size = note_->sizeHint();
    if (size.width() > width()) {
        note_->setWordWrap(true);
        size = QSize(width(), note_->heightForWidth(width()));
    }
    // Right below the field, or above it where the form ends.
    const QRect place(field->mapTo(this, QPoint()), field->size());
    QPoint corner = place.bottomLeft() + QPoint(0, 2);
    if (corner.y() + size.height() > height())
        corner.setY(std::max(0, place.top() - 1 - size.height()));
    corner.setX(std::clamp(corner.x(), 0, width() - size.width()));
    note_->setGeometry(QRect(corner, size));
    note_->raise();
    note_->show();
    QAccessibleEvent alert(note_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void FormView::noteOver() {
    if (note_ != nullptr)
        note_->hide();
}

// --- keys ----------------------------------------------------------------------------------------

bool FormView::usesKey(const QKeyEvent& event) const {
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const auto* field = dynamic_cast<TextField*>(form_->activeControl());
    if (modifiers == Qt::AltModifier)
        return form_->hasMnemonic(static_cast<char32_t>(event.key()));
    if (modifiers == Qt::ControlModifier) {
        if (event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown)
            return true;
        for (const auto shortcut :
             {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste, QKeySequence::Undo,
              QKeySequence::Redo, QKeySequence::SelectAll, QKeySequence::DeleteStartOfWord,
              QKeySequence::DeleteEndOfWord, QKeySequence::MoveToNextWord,
              QKeySequence::MoveToPreviousWord, QKeySequence::MoveToStartOfDocument,
              QKeySequence::MoveToEndOfDocument})
            if (event.matches(shortcut))
                return field != nullptr;
        return false;
    }
    if (modifiers != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_F1:
    case Qt::Key_Menu:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    case Qt::Key_Escape:
        return field != nullptr && field->canTakeBack();
    case Qt::Key_F10:
        return event.modifiers().testFlag(Qt::ShiftModifier);
    case Qt::Key_F4:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Insert:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return field != nullptr;
    default:
        return field != nullptr && !charactersPressed(event).isEmpty();
    }
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

// Key down, key press, the field's own editing, keystrokes that handlers have sent. The form says
// who has the focus, also when native focus lags behind.
void FormView::feedKey(QKeyEvent& event) {
    const auto key = keyCodeOf(event);
    if (key == keys::none) {
        event.ignore();
        return;
    }
    event.accept();
    catchUp();
    // The form moves the focus, so Qt does not know that the keyboard does; styles ask for it.
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    const int shift = shiftOf(event.modifiers());
    const bool altOnly = (shift & (shifts::alt | shifts::control)) == shifts::alt;
    if (altOnly && event.key() >= 0x80 && event.key() < 0x110000 &&
        form_->mnemonic(static_cast<char32_t>(event.key()))) {
        form_->keyDone();
        return;
    }
    if (!form_->keyDown(key, shift, event.isAutoRepeat())) {
        form_->keyDone();
        return;
    }
    const QPointer<ControlView> view = activeView();
    const QString pressed = charactersPressed(event);
    if (!pressed.isEmpty()) {
        const bool command = pressed.size() == 1 && pressed.at(0) < u' ';
        bool used = false;
        for (const uint character : pressed.toUcs4())
            typeCharacter(character, [&](const QString& text) {
                QKeyEvent typed(event.type(), event.key(), event.modifiers(),
                                command ? event.text() : text, event.isAutoRepeat());
                view->type(typed);
                used = typed.isAccepted();
            });
        if (event.key() == Qt::Key_Escape && !used) // closes the host's dialog
            event.ignore();
    } else if (view != nullptr && !(altOnly && !event.text().isEmpty())) {
        QKeyEvent typed(event.type(), event.key(), event.modifiers(), event.text(),
                        event.isAutoRepeat());
        view->type(typed);
        // Keys that move the caret must not move anything behind the form.
        event.setAccepted(typed.isAccepted() || usesKey(event));
    } else {
        event.ignore();
    }
    form_->keyDone();
}

bool FormView::typeCharacter(char32_t character, const std::function<void(const QString&)>& type) {
    if (!form_->keyPress(character) || activeView() == nullptr)
        return false;
    type(QString::fromUcs4(&character, 1));
    return true;
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

// What an input method commits passes the same filter as keys, character by character.
void FormView::inputMethod(QInputMethodEvent& event, ControlView& origin) {
    event.accept();
    if (!form_->hasFocus())
        form_->focus(*origin.control());
    catchUp();
    const QPointer<ControlView> view = activeView();
    if (view == nullptr)
        return;
    const auto committed = event.commitString().toUcs4();
    if (committed.isEmpty()) {
        view->type(event);
        return;
    }
    QInputMethodEvent ended; // the text under composition goes away first
    if (event.replacementLength() > 0)
        ended.setCommitString({}, event.replacementStart(), event.replacementLength());
    view->type(ended);
    for (const uint character : committed) {
        typeCharacter(character, [&](const QString& text) {
            QInputMethodEvent typed;
            typed.setCommitString(text);
            if (auto* active = activeView())
                active->type(typed);
        });
        form_->keyDone();
    }
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

// A control that is hidden or disabled can't have native focus; the keys come here then.
void FormView::followFocus() {
    if (!form_->hasFocus())
        return;
    const auto* view = activeView();
    const auto* control = form_->activeControl();
    QWidget* target = view != nullptr && control->canTakeFocus() && view->widget().isEnabledTo(this)
                          ? &view->widget()
                          : this;
    const Nested nested(following_);
    if (!target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
}

void FormView::enter(Qt::FocusReason reason, Control* control) {
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) {
        form_->enterFocus(reason == Qt::TabFocusReason ? FocusDirection::forward
                                                       : FocusDirection::backward);
        return;
    }
    if (control == nullptr || !control->canTakeFocus())
        control = form_->activeControl();
    if (control != nullptr && control->canTakeFocus())
        form_->focus(*control);
    else
        form_->enterFocus(FocusDirection::forward);
}

void FormView::focusCame(ControlView& view, Qt::FocusReason reason) {
    if (following_ > 0)
        return;
    if (!form_->hasFocus())
        enter(reason, view.control());
    else if (form_->activeControl() != view.control())
        form_->focus(*view.control());
    if (activeView() != &view)
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

bool FormView::tabOut(FocusDirection direction) {
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
    pressed_ = &view;
    pressedButton_ = button;
    const unsigned before = interruptions_;
    pressPlace_ = place;
    form_->mouseDown(*view.control(), button, tab);
    pressPlace_.reset();
    followFocus(); // the host's menu bar may have the keys meanwhile
    if (before != interruptions_)
        giveUpPress();
}

bool FormView::isPressed(const ControlView& view) const {
    return pressed_ == &view;
}

void FormView::endPress(ControlView& view, MouseButton button, bool inside) {
    if (pressed_ != &view || button != pressedButton_)
        return;
    if (!inside || button != MouseButton::left) {
        giveUpPress();
        return;
    }
    pressed_.clear();
    view.pressEnded();
    form_->click(*view.control());
}

void FormView::giveUpPress() {
    if (pressed_.isNull())
        return;
    auto* view = pressed_.data();
    pressed_.clear();
    view->pressEnded();
    form_->pressGivenUp(*view->control());
}

// Turns are counted in steps of 120; fine wheels send fractions. A turn never changes a field that
// does not have the focus.
void FormView::turnWheel(QWheelEvent& event, ControlView* origin) {
    const QPoint angle = event.angleDelta();
    const int turn = angle.y() != 0 ? angle.y() : angle.x();
    if ((wheelRest_ > 0) != (turn > 0))
        wheelRest_ = 0;
    wheelRest_ += turn;
    const int steps = -(wheelRest_ / QWheelEvent::DefaultDeltasPerStep);
    const bool focused =
        origin != nullptr && origin == activeView() && origin->widget().isEnabled();
    const bool used = (focused && origin->wheel(steps)) || (wheelTurned && wheelTurned(steps));
    // An unused turn comes here again, from the containers on its way up.
    wheelRest_ = used ? wheelRest_ % QWheelEvent::DefaultDeltasPerStep : 0;
    event.setAccepted(used);
}

void FormView::wheel(QWheelEvent& event, ControlView& origin) {
    turnWheel(event, &origin);
}

bool FormView::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto& key = static_cast<QKeyEvent&>(*event);
        // Others come up from a control that had no use for them.
        if (!form_->hasFocus() || window()->focusWidget() != this) {
            event->ignore();
            return true;
        }
        if (event->type() == QEvent::KeyPress)
            feedKey(key);
        else if (!key.isAutoRepeat())
            form_->keyUp(keyCodeOf(key), shiftOf(key.modifiers()));
        return true;
    }
    case QEvent::ShortcutOverride:
        if (usesKey(static_cast<QKeyEvent&>(*event)))
            event->accept();
        return true;
    case QEvent::FocusIn:
        if (following_ == 0) {
            if (!form_->hasFocus())
                enter(static_cast<QFocusEvent*>(event)->reason(), nullptr);
            followFocus();
        }
        return true;
    case QEvent::FocusOut:
        focusWent(static_cast<QFocusEvent*>(event)->reason());
        return true;
    case QEvent::MouseButtonPress:
        surfacePressed_ = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        return true;
    case QEvent::MouseButtonRelease:
        if (surfacePressed_ &&
            rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint()))
            form_->surfaceClick();
        surfacePressed_ = false;
        return true;
    case QEvent::PaletteChange:
        followTheme();
        return QWidget::event(event);
    case QEvent::Wheel:
        turnWheel(static_cast<QWheelEvent&>(*event), nullptr);
        return true;
    case QEvent::WindowActivate:
        if (!isOfHost(window()->focusWidget()))
            followFocus(); // a menu bar that was left by another window keeps the keys
        return QWidget::event(event);
    case QEvent::ContextMenu:
        return true;
    case QEvent::Show:
        if (!std::exchange(shown_, true))
            for (const auto& [control, view] : views_)
                tell(*view, Property::toolTip);
        return QWidget::event(event);
    case QEvent::ScreenChangeInternal:
        if (!ownScale_ && scale_.dotsPerInch() != logicalDpiX()) {
            scale_ = PixelScale(logicalDpiX());
            showScale();
        }
        return QWidget::event(event);
    default:
        return QWidget::event(event);
    }
}

} // namespace vkr
