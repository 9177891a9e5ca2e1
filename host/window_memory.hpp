// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>
#include <QSize>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace vkr {

// What the program keeps from one start to the next, in a folder of its own.
[[nodiscard]] QSettings programSettings();

// Sizes of windows from one start to the next. Places are the window manager's business.
void rememberSize(const QWidget& window, const char* name);
void rememberedSize(QWidget& window, const char* name, QSize atFirst);

} // namespace vkr
