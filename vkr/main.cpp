// SPDX-License-Identifier: MIT
#include "vkr/program.hpp"

#include <QCoreApplication>

#include <cstdio>

namespace {

QtMessageHandler tellUsually = nullptr;

// On a server without a locale Qt tells that it takes UTF-8, which is what is wanted.
void tellAllElse(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (!message.startsWith(QLatin1String("Detected locale ")))
        tellUsually(type, context, message);
}

} // namespace

int main(int argc, char** argv) {
    tellUsually = qInstallMessageHandler(tellAllElse);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkr"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VKR_VERSION));
    return vkr::runProgram({argv + 1, argv + argc});
}
