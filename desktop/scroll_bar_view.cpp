// SPDX-License-Identifier: MIT
#include "desktop/scroll_bar_view.hpp"

#include <QScrollBar>

namespace vkr {

ScrollBarView::ScrollBarView(ViewHost& host, ScrollBar& bar, QWidget& parent)
    : ControlView(host, bar), bar_(new Native<QScrollBar>(*this, &parent)) {
    setWidget(*bar_);
    connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
        if (showing_ > 0 || this->control() == nullptr)
            return;
        form().userScroll(static_cast<ScrollBar&>(*this->control()), value);
        if (this->control() != nullptr)
            showValue();
    });
}

void ScrollBarView::show(Property property) {
    static const Setter setters[] = {
        {Property::value, &ScrollBarView::showValue},
        {Property::look, &ScrollBarView::showOrientation},
    };
    ControlView::show(property);
    ControlView::show(property, setters);
}

void ScrollBarView::showOrientation() {
    const auto& bar = static_cast<ScrollBar&>(*control());
    bar_->setOrientation(bar.orientation() == Orientation::vertical ? Qt::Vertical
                                                                    : Qt::Horizontal);
}

void ScrollBarView::showValue() {
    const Nested nested(showing_);
    const auto& bar = static_cast<ScrollBar&>(*control());
    bar_->setRange(bar.minimum(), bar.maximum());
    bar_->setSingleStep(bar.smallChange());
    bar_->setPageStep(bar.largeChange());
    bar_->setValue(bar.value());
}

void ScrollBarView::press(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

void ScrollBarView::release(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

void ScrollBarView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    pass(event, source, native);
}

} // namespace vkr
