// SPDX-License-Identifier: MIT
#include "host/options.hpp"
#include "host/program.hpp"
#include "host/start.hpp"

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

// The platform is chosen before the toolkit starts and reads the command line.
bool needsNoDisplay(std::string_view argument) {
    return argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v";
}

} // namespace

int main(int argc, char** argv) {
    if (std::any_of(argv + 1, argv + argc, needsNoDisplay))
        vkr::doWithoutDisplay();

    QApplication application(argc, argv);
    vkr::nameProgram();
    QIcon icon(QStringLiteral(":/vkr/host/program-48.png"));
    icon.addFile(QStringLiteral(":/vkr/host/program-256.png"));
    QApplication::setWindowIcon(icon);

    const QDir programs(QApplication::applicationDirPath());
    const auto [options, print, exitCode] = vkr::parseOptions(
        QApplication::arguments(), programs.absoluteFilePath(QStringLiteral(VKR_SAMPLES_DIR)));
    if (!print.isEmpty()) {
        std::fprintf(exitCode == 0 ? stdout : stderr, "%s\n", qUtf8Printable(print.trimmed()));
        return exitCode;
    }
    const auto workspace = vkr::start(options);
    return workspace ? QApplication::exec() : 1;
}
