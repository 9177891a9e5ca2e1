// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace vkr {

// Sizes of windows from one start to the next. Places are the window manager's business.
void rememberSize(const QWidget& window, const char* name);
void rememberedSize(QWidget& window, const char* name, QSize atFirst);

} // namespace vkr
