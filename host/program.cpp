// SPDX-License-Identifier: MIT
#include "host/program.hpp"

#include <QApplication>

namespace vkr {

namespace {

QtMessageHandler tellUsually = nullptr;

// Says nothing of what the platform without a display lacks; all else is told.
void tellAllElse(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    for (const auto* known : {"This plugin does not support ", "QStandardPaths: "})
        if (message.startsWith(QLatin1String(known)))
            return;
    tellUsually(type, context, message);
}

} // namespace

void doWithoutDisplay() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    tellUsually = qInstallMessageHandler(tellAllElse);
}

void nameProgram() {
    QApplication::setApplicationName(QStringLiteral("vkr-host"));
    QApplication::setApplicationDisplayName(QStringLiteral("VKR Data Entry"));
    QApplication::setApplicationVersion(QStringLiteral(VKR_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("vkr-host"));
}

} // namespace vkr
