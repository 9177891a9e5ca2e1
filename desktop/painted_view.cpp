// SPDX-License-Identifier: MIT
#include "desktop/painted_view.hpp"

#include <QPainter>
#include <QPixmap>

namespace vkr {

namespace {

class Painted : public QWidget {
  public:
    Painted(QWidget* parent, const ControlView& view) : QWidget(parent), view_(view) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void load(const Picture& picture) {
        picture_ = {};
        if (!picture.empty())
            picture_.loadFromData(reinterpret_cast<const uchar*>(picture.svg.data()),
                                  static_cast<uint>(picture.svg.size()), "svg");
        update();
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
        if (!picture_.isNull())
            painter.drawPixmap(rect(), picture_);
    }

  private:
    const ControlView& view_;
    QPixmap picture_;
};

} // namespace

PaintedView::PaintedView(ViewHost& host, Control& control, QWidget& parent)
    : ControlView(host, control) {
    setWidget(*new Native<Painted>(*this, &parent, *this));
}

void PaintedView::show(Property property) {
    static const Setter setters[] = {{Property::look, &PaintedView::showPicture}};
    ControlView::show(property);
    ControlView::show(property, setters);
}

void PaintedView::showPicture() {
    const auto* box = dynamic_cast<PictureBox*>(control());
    static_cast<Painted&>(widget()).load(box == nullptr ? Picture() : box->picture());
}

} // namespace vkr
