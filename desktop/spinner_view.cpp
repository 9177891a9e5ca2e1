// SPDX-License-Identifier: MIT
#include "desktop/spinner_view.hpp"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace vkr {

namespace {

class ArrowButton final : public QAbstractButton {
  public:
    ArrowButton(QWidget* parent, Qt::ArrowType arrow) : QAbstractButton(parent), arrow_(arrow) {
        setFocusPolicy(Qt::NoFocus);
        setAutoRepeat(true);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QStyleOptionButton option;
        option.initFrom(this);
        option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
        style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
        const double size = std::min(width() / 2.0, height() - 4.0);
        const double tip = arrow_ == Qt::UpArrow ? -size / 4 : size / 4;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                         QPalette::ButtonText));
        const QPointF center(width() / 2.0, height() / 2.0);
        const QPointF corners[] = {center + QPointF(-size / 2, -tip), center + QPointF(0, tip),
                                   center + QPointF(size / 2, -tip)};
        painter.drawPolygon(corners, 3);
    }

  private:
    Qt::ArrowType arrow_;
};

class Arrows : public QWidget {
  public:
    explicit Arrows(QWidget* parent)
        : QWidget(parent), up(new ArrowButton(this, Qt::UpArrow)),
          down(new ArrowButton(this, Qt::DownArrow)) {}

    ArrowButton* up;
    ArrowButton* down;

  protected:
    void resizeEvent(QResizeEvent* /*event*/) override {
        const int middle = height() / 2;
        up->setGeometry(0, 0, width(), middle);
        down->setGeometry(0, middle, width(), height() - middle);
    }
};

} // namespace

SpinnerView::SpinnerView(ViewHost& host, Spinner& spinner, QWidget& parent)
    : ControlView(host, spinner) {
    auto* arrows = new Native<Arrows>(*this, &parent);
    setWidget(*arrows);
    const auto spins = [this](ArrowButton* button, int steps, const QString& name) {
        button->setAccessibleName(name);
        connect(button, &QAbstractButton::clicked, this, [this, steps] {
            if (this->control() != nullptr)
                form().userSpin(static_cast<Spinner&>(*this->control()), steps);
        });
    };
    spins(arrows->up, 1, QCoreApplication::translate("VKRDataEntryWidget", "Up"));
    spins(arrows->down, -1, QCoreApplication::translate("VKRDataEntryWidget", "Down"));
}

} // namespace vkr
