// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

#include <QWidget>

class QAbstractButton;
class QScrollBar;
class QTabBar;

namespace vkr {

// The view of a control, its widget made within the widget of its container. Menu entries have
// none: null.
[[nodiscard]] ControlView* makeView(FormView& view, Control& control, QWidget& parent);

// Push button, option or check box. The form presses it; the widget shows that it is down.
class ButtonView final : public ControlView {
  public:
    ButtonView(FormView& view, Control& control, QWidget& parent);
    void show(Property property) override;
    void pressEnded() override;

  protected:
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void drag(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;

  private:
    QAbstractButton* button_;
};

class LabelView final : public ControlView {
  public:
    LabelView(FormView& view, Label& label, QWidget& parent);
    void show(Property property) override;

  protected:
    bool handleOwn(QEvent& event, QWidget& source, NativeEvent native) override;
};

class FrameView final : public ControlView {
  public:
    FrameView(FormView& view, Frame& frame, QWidget& parent);
    void show(Property property) override;
};

class TabStripView final : public ControlView {
  public:
    TabStripView(FormView& view, TabStrip& strip, QWidget& parent);
    void show(Property property) override;

  protected:
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void drag(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;

  private:
    [[nodiscard]] TabStrip& strip() const { return static_cast<TabStrip&>(*control()); }
    void showTabs();

    QTabBar* tabs_;
};

class ScrollBarView final : public ControlView {
  public:
    ScrollBarView(FormView& view, ScrollBar& bar, QWidget& parent);
    void show(Property property) override;

  protected:
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void showColors() override {}

  private:
    void showValue();

    QScrollBar* bar_;
};

// Two arrows, one above the other.
class SpinnerView final : public ControlView {
  public:
    SpinnerView(FormView& view, Spinner& spinner, QWidget& parent);

  protected:
    void showColors() override {}
};

// Shapes and pictures: painted, and never under the pointer.
class PaintedView final : public ControlView {
  public:
    PaintedView(FormView& view, Control& control, QWidget& parent);
    void show(Property property) override;

  protected:
    void showColors() override { widget().update(); }
};

} // namespace vkr
