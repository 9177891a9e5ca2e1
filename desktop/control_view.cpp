// SPDX-License-Identifier: MIT
#include "desktop/control_view.hpp"

#include "desktop/readable_colors.hpp"
#include "platform/text.hpp"

#include <QContextMenuEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cassert>

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

bool isPointer(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return false;
    }
}

// Below the text, as a word is marked that somebody should look at.
void paintWave(QPainter& painter, const QRect& field) {
    constexpr int step = 3;
    constexpr int edge = 4;
    const double bottom = field.bottom() - 1;
    QPolygonF wave;
    for (int x = field.left() + edge; x <= field.right() - edge; x += step)
        wave << QPointF(x, wave.size() % 2 == 0 ? bottom : bottom - step + 0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPolyline(wave);
}

void paintOrigin(QWidget& widget, const TextField& field) {
    const auto sign = originCorner(field, widget.height());
    if (!sign)
        return;
    const QRectF area =
        QRectF(widget.rect()).adjusted(sign->inset, sign->inset, -sign->inset, -sign->inset);
    const QPointF corner = sign->atLeft ? area.topLeft() : area.topRight();
    const QPolygonF triangle{{corner, corner + QPointF(sign->atLeft ? sign->side : -sign->side, 0),
                              corner + QPointF(0, sign->side)}};
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        readable(toQt(mark_colors::origin), widget.palette().color(QPalette::Base), signContrast));
    painter.drawPolygon(triangle);
}

void paintMark(QWidget& widget, MarkKind kind) {
    if (kind == MarkKind::none)
        return;
    const QColor wanted = toQt(markColor(kind));
    const QColor behind = widget.palette().color(QPalette::Base);
    QPainter painter(&widget);
    painter.setPen(QPen(readable(wanted, behind, signContrast), kind == MarkKind::quiet ? 1.5 : 2));
    if (kind == MarkKind::quiet)
        paintWave(painter, widget.rect());
    else
        painter.drawRect(widget.rect().adjusted(1, 1, -1, -1));
}

} // namespace

Form& ControlView::form() const {
    return host_.form();
}

void ControlView::setWidget(QWidget& widget) {
    assert(widget_ == nullptr);
    widget_ = &widget;
    widget.setObjectName(toQt(control_->id()));
    if (QStyle* style = host_.ownStyle())
        widget.setStyle(style);
    widget.setFocusPolicy(control_->isFocusable() ? Qt::TabFocus : Qt::NoFocus);
}

void ControlView::retire() {
    assert(widget_ != nullptr && control_ != nullptr);
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

void ControlView::show(Property property) {
    show(property, Setter::common());
}

void ControlView::showPlace() {
    widget_->setGeometry(toQt(host_.scale().place(*control_)));
    showVisible();
}

void ControlView::showOrder() {
    widget_->raise();
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
    const QColor behind = back.isValid() ? back : host_.surface().palette().color(QPalette::Window);
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
    if (!host_.hasBeenShown())
        return; // the first record changes most of them once more
    const Control& shown = *control_;
    const auto* field = textFieldOf(&shown);
    const QString reason = field == nullptr ? QString() : toQt(field->description());
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
    if (event.type() == QEvent::Paint) {
        const bool painted = native(source, event);
        if (const auto* field = textFieldOf(control_); field != nullptr && &source == widget_) {
            paintOrigin(source, *field);
            paintMark(source, field->shownMark());
        }
        return painted;
    }
    if (passing())
        return native(source, event);
    if (isPointer(event) && !source.isEnabled()) {
        event.accept(); // it must not reach what lies behind
        return true;
    }
    return handleOwn(event, source, native) || handlePointer(event, source, native) ||
           handleKeys(event, source, native) || pass(event, source, native);
}

bool ControlView::handlePointer(QEvent& event, QWidget& source, NativeEvent native) {
    switch (event.type()) {
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
        host_.wheel(static_cast<QWheelEvent&>(event), *this);
        return true;
    case QEvent::ContextMenu: // the form has its own
        event.accept();
        return true;
    default:
        return false;
    }
}

bool ControlView::handleKeys(QEvent& event, QWidget& source, NativeEvent native) {
    switch (event.type()) {
    case QEvent::KeyPress:
        host_.keyPress(static_cast<QKeyEvent&>(event), *this);
        return true;
    case QEvent::KeyRelease:
        host_.keyRelease(static_cast<QKeyEvent&>(event), *this);
        return true;
    case QEvent::InputMethod:
        host_.inputMethod(static_cast<QInputMethodEvent&>(event), *this);
        return true;
    case QEvent::ShortcutOverride:
        pass(event, source, native);
        if (host_.usesKey(static_cast<QKeyEvent&>(event)))
            event.accept();
        return true;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        handleFocus(static_cast<QFocusEvent&>(event), source, native);
        return true;
    default:
        return false;
    }
}

void ControlView::handleFocus(QFocusEvent& event, QWidget& source, NativeEvent native) {
    const bool came = event.type() == QEvent::FocusIn;
    const auto reason = event.reason();
    {
        const Nested nested(showing_);
        pass(event, source, native);
    }
    if (came)
        host_.focusCame(this, reason);
    else
        host_.focusWent(reason);
    if (!came && control_ != nullptr && !isActive())
        focusLost();
}

bool ControlView::isInside(const QMouseEvent& event, const QWidget& source) const {
    return widget_->rect().contains(source.mapTo(widget_, event.position().toPoint()));
}

void ControlView::beginPress(const QMouseEvent& event, int tab) {
    host_.beginPress(*this, buttonOf(event.button()), event.globalPosition().toPoint(), tab);
}

void ControlView::endPress(const QMouseEvent& event, const QWidget& source) {
    host_.endPress(*this, buttonOf(event.button()),
                   isInside(event, source) ? PressEnd::inside : PressEnd::outside);
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
