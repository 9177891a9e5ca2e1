// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace vkr {

// A list whose entry says what becomes of figures: a turn of the wheel on its way to something else
// chooses nothing.
class StillList : public QComboBox {
  public:
    using QComboBox::QComboBox;

  protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace vkr
