// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>

namespace vkr {

// Over the middle of a widget, a step towards the user by -120; whether anybody has taken it.
inline bool turnWheel(QWidget& widget, int delta, Qt::KeyboardModifiers modifiers = {}) {
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, delta}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

} // namespace vkr
