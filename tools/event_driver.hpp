// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace vkr {

// Keys and mouse as if a person used them: events go in where the windowing system hands them to
// the toolkit, so that shortcuts, mnemonics, focus and pop-ups take part.
class EventDriver {
  public:
    // Told of every event before it is sent.
    std::function<void(const QString&)> onEvent;

    void activate(QWidget& window) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const; // one press and release a character
    void click(QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton) const;
    void click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton) const; // in its middle
    void doubleClick(QWidget& widget, QPoint place) const;

  private:
    void stroke(int key, Qt::KeyboardModifiers modifiers, const QString& text) const;
    void tell(const QString& event) const;
};

} // namespace vkr
