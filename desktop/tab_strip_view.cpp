// SPDX-License-Identifier: MIT
#include "desktop/tab_strip_view.hpp"

#include <QTabBar>

namespace vkr {

namespace {

class Tabs : public QTabBar {
  public:
    Tabs(QWidget* parent, const ControlView& view) : QTabBar(parent), view_(view) {}

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override {
        const auto* strip = static_cast<const TabStrip*>(view_.control());
        const QSize natural = QTabBar::tabSizeHint(index);
        if (strip == nullptr || index >= strip->count())
            return natural;
        const int wanted = view_.host().scale().pixels(strip->tab(index + 1).width);
        return {wanted > 0 ? wanted : natural.width(), height()};
    }

  private:
    const ControlView& view_;
};

} // namespace

TabStripView::TabStripView(ViewHost& host, TabStrip& strip, QWidget& parent)
    : ControlView(host, strip), tabs_(new Native<Tabs>(*this, &parent, *this)) {
    setWidget(*tabs_);
    tabs_->setExpanding(false);
    tabs_->setUsesScrollButtons(false);
    tabs_->setElideMode(Qt::ElideNone);
    tabs_->setDrawBase(false);
    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        if (showing_ > 0 || this->control() == nullptr)
            return;
        form().userSelectTab(this->strip(), index + 1);
        show(Property::value);
    });
}

void TabStripView::show(Property property) {
    static const Setter setters[] = {
        {Property::caption, &TabStripView::showTabs},
        {Property::caption, &TabStripView::showSelected},
        {Property::value, &TabStripView::showSelected},
    };
    const Nested nested(showing_);
    ControlView::show(property);
    ControlView::show(property, setters);
}

void TabStripView::showSelected() {
    tabs_->setCurrentIndex(strip().selected() - 1);
}

void TabStripView::showTabs() {
    while (tabs_->count() > strip().count())
        tabs_->removeTab(tabs_->count() - 1);
    for (int i = 0; i < strip().count(); ++i) {
        const auto& tab = strip().tab(i + 1);
        if (i == tabs_->count())
            tabs_->addTab(toQt(tab.caption));
        else if (tabs_->tabText(i) != toQt(tab.caption))
            tabs_->setTabText(i, toQt(tab.caption));
        tabs_->setTabToolTip(i, plainToolTip(toQt(tab.toolTip)));
    }
}

void TabStripView::press(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    const int tab = tabs_->tabAt(event.position().toPoint());
    beginPress(event, tab + 1);
    if (tab >= 0 && event.button() == Qt::LeftButton && host().isPressed(*this))
        form().userSelectTab(strip(), tab + 1);
}

void TabStripView::drag(QMouseEvent& event, QWidget& source, NativeEvent native) {
    if (event.buttons() == Qt::NoButton)
        pass(event, source, native);
}

void TabStripView::release(QMouseEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    if (host().isPressed(*this) && event.button() != Qt::NoButton)
        host().giveUpPress();
}

void TabStripView::doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) {
    press(event, source, native);
}

} // namespace vkr
