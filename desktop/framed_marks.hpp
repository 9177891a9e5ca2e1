// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace vkr {

// Styles draw the frame of a mark a shade darker than the window: on a dark one it gets the colour
// of the text, so that it can be seen.
inline void frameOnDark(QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    if (palette.color(QPalette::Window).lightness() < text.lightness())
        palette.setColor(QPalette::Window, text);
}

template <typename Button, QStyle::ControlElement element>
class Framed : public Button {
  public:
    using Button::Button;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStyleOptionButton option;
        this->initStyleOption(&option);
        frameOnDark(option.palette);
        QStylePainter(this).drawControl(element, option);
    }
};

using FramedCheckBox = Framed<QCheckBox, QStyle::CE_CheckBox>;
using FramedRadioButton = Framed<QRadioButton, QStyle::CE_RadioButton>;

} // namespace vkr
