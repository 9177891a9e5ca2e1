// SPDX-License-Identifier: MIT
#include "tools/event_driver.hpp"

#include <QApplication>
#include <QKeySequence>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

// The toolkit's own entries for events from outside; its test library declares them the same way.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* w, QEvent::Type t, int k, Qt::KeyboardModifiers mods,
                                    const QString& text, bool autorep, ushort count);
QT_END_NAMESPACE

namespace vkr {

namespace {

// Farther apart than a double-click, so that two clicks stay two.
int nextTimestamp() {
    static int timestamp = 0;
    return timestamp += 2000;
}

QString nameOf(const QWidget& widget) {
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

QWindow* targetOfKeys() {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->windowHandle();
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal->windowHandle();
    return QGuiApplication::focusWindow();
}

struct MouseTarget {
    QWindow* window;
    QPointF local;
    QPointF global;
};
MouseTarget target(QWidget& widget, QPoint place) {
    QWindow* window = widget.window()->windowHandle();
    return {window, widget.mapTo(widget.window(), place), widget.mapToGlobal(place)};
}

void send(const MouseTarget& to, QEvent::Type type, Qt::MouseButtons held, Qt::MouseButton button,
          int timestamp) {
    qt_handleMouseEvent(to.window, to.local, to.global, held, button, type, Qt::NoModifier,
                        timestamp);
    QCoreApplication::processEvents();
}

void pressAndRelease(const MouseTarget& to, Qt::MouseButton button, int timestamp) {
    send(to, QEvent::MouseButtonPress, button, button, timestamp);
    send(to, QEvent::MouseButtonRelease, Qt::NoButton, button, timestamp + 10);
}

} // namespace

void EventDriver::tell(const QString& event) const {
    if (onEvent)
        onEvent(event);
}

void EventDriver::activate(QWidget& window) const {
    window.show();
    window.raise();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    QCoreApplication::processEvents();
}

void EventDriver::stroke(int key, Qt::KeyboardModifiers modifiers, const QString& text) const {
    if (QWindow* window = targetOfKeys())
        qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, false, 1);
    QCoreApplication::processEvents();
    // The press may have closed the window or opened another one.
    if (QWindow* window = targetOfKeys())
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text, false, 1);
    QCoreApplication::processEvents();
}

void EventDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    tell(QStringLiteral("key %1").arg(
        QKeySequence(QKeyCombination(modifiers, key)).toString(QKeySequence::PortableText)));
    QString text;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        text = QStringLiteral("\r");
    else if (key == Qt::Key_Tab)
        text = QStringLiteral("\t");
    else if (key == Qt::Key_Backspace)
        text = QStringLiteral("\b");
    else if (key == Qt::Key_Escape)
        text = QStringLiteral("\x1b");
    else if (key == Qt::Key_Space)
        text = QStringLiteral(" ");
    else if (key >= Qt::Key_A && key <= Qt::Key_Z && !(modifiers & Qt::ControlModifier))
        text = QChar((modifiers & Qt::ShiftModifier) != 0 ? key : key + 32);
    stroke(key, modifiers, text);
}

void EventDriver::type(const QString& text) const {
    tell(QStringLiteral("type \"%1\"").arg(text));
    for (const QChar character : text)
        stroke(character.toUpper().unicode(),
               character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, character);
}

void EventDriver::click(QWidget& widget, QPoint place, Qt::MouseButton button) const {
    tell(QStringLiteral("%1click %2 at %3,%4")
             .arg(button == Qt::RightButton ? QStringLiteral("right-") : QString(), nameOf(widget))
             .arg(place.x())
             .arg(place.y()));
    pressAndRelease(target(widget, place), button, nextTimestamp());
}

void EventDriver::click(QWidget& widget, Qt::MouseButton button) const {
    click(widget, widget.rect().center(), button);
}

void EventDriver::doubleClick(QWidget& widget, QPoint place) const {
    tell(QStringLiteral("double-click %1 at %2,%3")
             .arg(nameOf(widget))
             .arg(place.x())
             .arg(place.y()));
    const MouseTarget to = target(widget, place);
    const int timestamp = nextTimestamp();
    pressAndRelease(to, Qt::LeftButton, timestamp);
    pressAndRelease(to, Qt::LeftButton, timestamp + 20);
}

} // namespace vkr
