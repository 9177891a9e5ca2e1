// SPDX-License-Identifier: MIT
#include "desktop/button_view.hpp"

#include "desktop/framed_marks.hpp"

#include <QAbstractButton>
#include <QPushButton>

namespace vkr {

namespace {

QAbstractButton* makeButton(ControlView& view, const Control& control, QWidget& parent) {
    switch (control.kind()) {
    case ControlKind::optionButton:
        return new Native<FramedRadioButton>(view, &parent);
    case ControlKind::checkBox:
        return new Native<FramedCheckBox>(view, &parent);
    default: {
        auto* button = new Native<QPushButton>(view, &parent);
        button->setAutoDefault(false);
        return button;
    }
    }
}

} // namespace

ButtonView::ButtonView(ViewHost& host, Control& control, QWidget& parent)
    : ControlView(host, control), button_(makeButton(*this, control, parent)) {
    setWidget(*button_);
    // From other programs, such as screen readers: keys and pointer take another way.
    connect(button_, &QAbstractButton::clicked, this, [this] {
        if (this->control() == nullptr)
            return;
        this->host().beginPress(*this, MouseButton::left);
        this->host().endPress(*this, MouseButton::left, PressEnd::inside);
        this->host().showChoices();
    });
}

void ButtonView::show(Property property) {
    static const Setter setters[] = {
        {Property::caption, &ButtonView::showCaption},
        {Property::value, &ButtonView::showChoice},
    };
    ControlView::show(property);
    ControlView::show(property, setters);
}

void ButtonView::showCaption() {
    button_->setText(toQt(control()->caption()));
    button_->setShortcut({}); // mnemonics are the form's
}

void ButtonView::showChoice() {
    if (!button_->isCheckable())
        return;
    // The model takes the choice from the other options; to screen readers they are a group.
    const bool exclusive = button_->autoExclusive();
    button_->setAutoExclusive(false);
    button_->setChecked(isChosen(*control()));
    button_->setAutoExclusive(exclusive);
}

void ButtonView::pressEnded() {
    button_->setDown(false);
}

void ButtonView::press(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    beginPress(event);
    if (event.button() == Qt::LeftButton && host().isPressed(*this))
        button_->setDown(true);
}

void ButtonView::drag(QMouseEvent& event, QWidget& source, NativeEvent /*native*/) {
    if (host().isPressed(*this) && event.buttons().testFlag(Qt::LeftButton))
        button_->setDown(isInside(event, source));
}

void ButtonView::release(QMouseEvent& event, QWidget& source, NativeEvent /*native*/) {
    endPress(event, source);
}

void ButtonView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    press(event, source, native);
}

} // namespace vkr
