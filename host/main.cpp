// SPDX-License-Identifier: MIT
#include "host/options.hpp"
#include "host/start.hpp"
#include "tools/tour.hpp"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

// The tour looks the same on every machine, and leaves the user's settings alone.
int tour(const vkr::Options& options) {
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(QStringLiteral("Fusion"));
    return vkr::runTour(options.tour, options.samples);
}

// The platform is chosen before the toolkit starts and reads the command line.
bool needsNoDisplay(std::string_view argument) {
    return argument.starts_with("--tour") || argument == "--help" || argument == "-h" ||
           argument == "--version" || argument == "-v";
}

} // namespace

int main(int argc, char** argv) {
    if (std::any_of(argv + 1, argv + argc, needsNoDisplay)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        vkr::silenceThePlatform();
    }

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vkr-host"));
    QApplication::setApplicationDisplayName(QStringLiteral("VKR Data Entry"));
    QApplication::setApplicationVersion(QStringLiteral(VKR_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("vkr-host"));
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
    if (!options.tour.isEmpty())
        return tour(options);

    const auto workspace = vkr::start(options);
    return workspace ? QApplication::exec() : 1;
}
