// SPDX-License-Identifier: MIT
#include "desktop/painted_view.hpp"

#include <QPainter>

namespace vkr {

namespace {

class Painted : public QWidget {
  public:
    Painted(QWidget* parent, const ControlView& view) : QWidget(parent), view_(view) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto* control = view_.control();
        if (control == nullptr)
            return;
        QPainter painter(this);
        const auto* shape = dynamic_cast<const Shape*>(control);
        if (shape != nullptr && !shape->filled()) {
            const QColor fore = toQt(control->foreColor());
            painter.setPen(fore.isValid() ? fore : palette().color(QPalette::WindowText));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
            return;
        }
        const QColor back = toQt(control->backColor());
        painter.fillRect(rect(), back.isValid() ? back : palette().color(QPalette::Window));
    }

  private:
    const ControlView& view_;
};

} // namespace

PaintedView::PaintedView(ViewHost& host, Control& control, QWidget& parent)
    : ControlView(host, control) {
    setWidget(*new Native<Painted>(*this, &parent, *this));
}

void PaintedView::show(Property property) {
    ControlView::show(property);
    if (property == Property::look)
        widget().update();
}

} // namespace vkr
