// SPDX-License-Identifier: MIT
#include "vkr/command_line.hpp"
#include "vkr/program.hpp"

#include <QGuiApplication>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

QtMessageHandler tellUsually = nullptr;

// What Qt tells of a server, where there is neither a locale nor a display: nobody misses them.
void tellAllElse(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    for (const char* known :
         {"Detected locale ", "This plugin does not support ", "QStandardPaths: "})
        if (message.startsWith(QLatin1String(known)))
            return;
    tellUsually(type, context, message);
}

// Letters on paper need the part of Qt that also draws windows; it draws none here. All else starts
// without it.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    const std::string pdf = "--" + std::string(vkr::rowOf(vkr::Option::pdf).name);
    const auto isPdf = [&](const char* word) { return std::string(word).starts_with(pdf); };
    if (!std::any_of(argv + 1, argv + argc, isPdf))
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    tellUsually = qInstallMessageHandler(tellAllElse);
    const std::vector<std::string> words(argv + std::min(1, argc), argv + argc);
    const auto application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkr"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VKR_VERSION));
    return vkr::runProgram(words);
}
