// SPDX-License-Identifier: MIT
#include "desktop/frame_view.hpp"

#include <QAccessible>
#include <QFrame>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace vkr {

namespace {

class BorderFrame : public QFrame {
  public:
    BorderFrame(QWidget* parent, const ControlView& view) : QFrame(parent), view_(view) {}

  protected:
    void paintEvent(QPaintEvent* event) override {
        const auto* frame = static_cast<const Frame*>(view_.control());
        if (frame == nullptr || frame->border() != FrameBorder::group) {
            QFrame::paintEvent(event);
            return;
        }
        QStyleOptionGroupBox option;
        option.initFrom(this);
        option.text = toQt(frame->caption()).trimmed();
        option.lineWidth = 1;
        option.textAlignment = Qt::AlignLeft;
        option.subControls = QStyle::SC_GroupBoxFrame;
        if (!option.text.isEmpty())
            option.subControls |= QStyle::SC_GroupBoxLabel;
        QPainter painter(this);
        style()->drawComplexControl(QStyle::CC_GroupBox, &option, &painter, this);
    }

  private:
    const ControlView& view_;
};

} // namespace

FrameView::FrameView(ViewHost& host, Frame& frame, QWidget& parent) : ControlView(host, frame) {
    setWidget(*new Native<BorderFrame>(*this, &parent, *this));
}

void FrameView::show(Property property) {
    static const Setter setters[] = {
        {Property::look, &FrameView::showBorder},
        {Property::caption, &FrameView::showCaption},
        {Property::visible, &FrameView::tellNotice},
    };
    ControlView::show(property);
    ControlView::show(property, setters);
}

void FrameView::showColors() {
    const QPalette before = widget().palette();
    ControlView::showColors();
    if (widget().palette() != before)
        host().colorsAroundChanged(*control());
}

void FrameView::showBorder() {
    const bool line = static_cast<Frame&>(*control()).border() == FrameBorder::line;
    static_cast<QFrame&>(widget()).setFrameShape(line ? QFrame::Box : QFrame::NoFrame);
    widget().update();
}

void FrameView::showCaption() {
    widget().update();
}

void FrameView::tellNotice() {
    if (!control()->visible() || !static_cast<Frame&>(*control()).isNotice())
        return;
    QAccessibleEvent alert(&widget(), QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace vkr
