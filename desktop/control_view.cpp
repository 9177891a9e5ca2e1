// SPDX-License-Identifier: MIT
#include "desktop/control_view.hpp"

#include "desktop/form_view.hpp"
#include "desktop/readable_colors.hpp"
#include "platform/text.hpp"

#include <QContextMenuEvent>
#include <QWheelEvent>

namespace vkr {

namespace {

MouseButton buttonOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::RightButton:
        return MouseButton::right;
    case Qt::MiddleButton:
        return MouseButton::middle;
    default:
        return MouseButton::left;
    }
}

} // namespace

Form& ControlView::form() const {
    return view_.form();
}

void ControlView::setWidget(QWidget& widget) {
    widget_ = &widget;
    widget.setObjectName(toQt(control_->id()));
    widget.setFocusPolicy(control_->isFocusable() ? Qt::TabFocus : Qt::NoFocus);
}

void ControlView::retire() {
    control_ = nullptr;
    widget_->hide();
    widget_->deleteLater(); // in this order: the widget's last events come to the view
    deleteLater();
}

bool ControlView::isActive() const {
    return control_ != nullptr && form().hasFocus() && form().activeControl() == control_;
}

// --- showing the model ---------------------------------------------------------------------------

void ControlView::showAll() {
    for (const auto property :
         {Property::look, Property::colors, Property::place, Property::list, Property::caption,
          Property::text, Property::value, Property::locked, Property::mark, Property::toolTip,
          Property::enabled, Property::visible})
        show(property);
}

namespace {

constexpr unsigned bitOf(Property property) {
    return 1U << static_cast<unsigned>(property);
}

} // namespace

void ControlView::showLater(Property property) {
    due_ |= bitOf(property);
}

void ControlView::showDue() {
    if ((due_ & bitOf(Property::text)) != 0)
        due_ &= ~bitOf(Property::edit);
    for (unsigned property = 0; due_ != 0; ++property) {
        const unsigned bit = 1U << property;
        if ((due_ & bit) == 0)
            continue;
        due_ &= ~bit;
        show(static_cast<Property>(property));
    }
}

void ControlView::show(Property property) {
    switch (property) {
    case Property::place:
        place();
        showVisible();
        break;
    case Property::visible:
        showVisible();
        break;
    case Property::enabled:
        showEnabled();
        break;
    case Property::colors:
        showColors();
        break;
    case Property::caption:
    case Property::toolTip:
    case Property::mark:
        showNames();
        break;
    case Property::order:
        widget_->raise();
        break;
    default:
        break;
    }
}

void ControlView::place() {
    widget_->setGeometry(view_.scale().rect(*control_));
}

// What is on a parked page is nowhere, for screen readers as well.
void ControlView::showVisible() {
    widget_->setVisible(control_->visible() && control_->left() > Control::parkedLeft);
}

void ControlView::showEnabled() {
    widget_->setEnabled(control_->enabled());
}

void ControlView::showColors() {
    const QColor back = toQt(control_->backColor());
    const QColor fore = toQt(control_->foreColor());
    // Black on the system colour is whatever is readable on this desktop.
    const bool own = back.isValid() || control_->foreColor() != colors::black;
    const QColor behind = back.isValid() ? back : view_.palette().color(QPalette::Window);
    QPalette palette;
    if (back.isValid())
        for (const auto role : {QPalette::Window, QPalette::Button})
            palette.setColor(role, back);
    if (own && fore.isValid())
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
            palette.setColor(role, readable(fore, behind));
    widget_->setAutoFillBackground(back.isValid());
    if (palette.resolveMask() != 0 || widget_->palette().resolveMask() != 0)
        widget_->setPalette(palette);
}

void ControlView::showNames() {
    if (!view_.hasBeenShown())
        return; // the first record changes most of them once more
    const Control& shown = *control_;
    const bool isField =
        shown.kind() == ControlKind::textBox || shown.kind() == ControlKind::comboBox;
    const QString reason =
        isField ? toQt(static_cast<const TextField&>(shown).mark().reason) : QString();
    const QString name = toQt(shown.accessibleName().empty() ? withoutMnemonic(shown.caption())
                                                             : shown.accessibleName());
    if (widget_->accessibleName() != name)
        widget_->setAccessibleName(name);
    if (widget_->accessibleDescription() != reason)
        widget_->setAccessibleDescription(reason);
    const QString tip = plainToolTip(reason.isEmpty() ? toQt(control_->toolTip()) : reason);
    if (widget_->toolTip() != tip)
        widget_->setToolTip(tip);
}

// --- events --------------------------------------------------------------------------------------

bool ControlView::pass(QEvent& event, QWidget& source, NativeEvent native) {
    const Nested nested(passing_);
    return native(source, event);
}

bool ControlView::handle(QEvent& event, QWidget& source, NativeEvent native) {
    if (control_ == nullptr)
        return native(source, event);
    const auto type = event.type();
    if (type == QEvent::Paint) {
        const bool painted = native(source, event);
        if (const auto* field = dynamic_cast<TextField*>(control_);
            field != nullptr && &source == widget_)
            FormView::paintMark(source, field->mark().kind);
        return painted;
    }
    if (passing())
        return native(source, event);
    const bool mouse = type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
                       type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick;
    if (mouse && !source.isEnabled()) {
        event.accept(); // it must not reach what lies behind
        return true;
    }
    if (handleOwn(event, source, native))
        return true;
    switch (type) {
    case QEvent::KeyPress:
        view_.keyPress(static_cast<QKeyEvent&>(event), *this);
        return true;
    case QEvent::KeyRelease:
        view_.keyRelease(static_cast<QKeyEvent&>(event), *this);
        return true;
    case QEvent::InputMethod:
        view_.inputMethod(static_cast<QInputMethodEvent&>(event), *this);
        return true;
    case QEvent::ShortcutOverride:
        pass(event, source, native);
        if (view_.usesKey(static_cast<QKeyEvent&>(event)))
            event.accept();
        return true;
    case QEvent::FocusIn:
    case QEvent::FocusOut: {
        const auto reason = static_cast<QFocusEvent&>(event).reason();
        {
            const Nested nested(showing_);
            pass(event, source, native);
        }
        if (type == QEvent::FocusIn)
            view_.focusCame(*this, reason);
        else
            view_.focusWent(reason);
        if (type == QEvent::FocusOut && control_ != nullptr && !isActive())
            focusLost();
        return true;
    }
    case QEvent::MouseButtonPress:
        event.accept();
        press(static_cast<QMouseEvent&>(event), source, native);
        return true;
    case QEvent::MouseMove:
        drag(static_cast<QMouseEvent&>(event), source, native);
        return true;
    case QEvent::MouseButtonRelease:
        event.accept();
        release(static_cast<QMouseEvent&>(event), source, native);
        return true;
    case QEvent::MouseButtonDblClick:
        event.accept();
        doubleClick(static_cast<QMouseEvent&>(event), source, native);
        return true;
    case QEvent::Wheel:
        view_.wheel(static_cast<QWheelEvent&>(event), *this);
        return true;
    case QEvent::ContextMenu: // the form has its own
        event.accept();
        return true;
    default:
        return pass(event, source, native);
    }
}

bool ControlView::isInside(const QMouseEvent& event, const QWidget& source) const {
    return widget_->rect().contains(source.mapTo(widget_, event.position().toPoint()));
}

void ControlView::beginPress(const QMouseEvent& event, int tab) {
    view_.beginPress(*this, buttonOf(event.button()), event.globalPosition().toPoint(), tab);
}

void ControlView::endPress(const QMouseEvent& event, const QWidget& source) {
    view_.endPress(*this, buttonOf(event.button()), isInside(event, source));
}

void ControlView::press(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    beginPress(event);
}

void ControlView::drag(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

void ControlView::release(QMouseEvent& event, QWidget& source, NativeEvent /*native*/) {
    endPress(event, source);
}

void ControlView::doubleClick(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    if (event.button() == Qt::LeftButton)
        form().doubleClick(*control_);
}

} // namespace vkr
