// SPDX-License-Identifier: MIT
#include "host/window_memory.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace vkr {

namespace {
QString key(const char* name) {
    return QStringLiteral("windows/%1").arg(QLatin1String(name));
}
} // namespace

QSettings programSettings() {
    const QString name = QStringLiteral("vkr-host");
    return QSettings(QSettings::defaultFormat(), QSettings::UserScope, name, name);
}

void rememberSize(const QWidget& window, const char* name) {
    if (!window.isMaximized() && !window.isFullScreen())
        programSettings().setValue(key(name), window.size());
}

void rememberedSize(QWidget& window, const char* name, QSize atFirst) {
    const QSize size = programSettings().value(key(name)).toSize();
    // A size from a larger screen must not reach beyond this one.
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    window.resize((size.isValid() ? size : atFirst).boundedTo(room));
}

} // namespace vkr
