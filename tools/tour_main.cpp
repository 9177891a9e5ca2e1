// SPDX-License-Identifier: MIT
// vkr-tour [--dark] <pictures> <samples>, vkr-tour [--dark] --day <pictures> <facts>: the tours,
// which look the same on every machine and leave the user's settings alone.
#include "host/program.hpp"
#include "tools/themes.hpp"
#include "tools/tour.hpp"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char** argv) {
    vkr::doWithoutDisplay();
    QApplication application(argc, argv);
    vkr::nameProgram();
    QCommandLineParser parser;
    const QCommandLineOption day(QStringLiteral("day"),
                                 QStringLiteral("An analyst's day; <source> is a companyfacts "
                                                "document, else a folder of sample companies."));
    const QCommandLineOption dark(QStringLiteral("dark"),
                                  QStringLiteral("On a desktop with dark colours."));
    parser.addOptions({day, dark});
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("pictures"), QStringLiteral("A folder for them."));
    parser.addPositionalArgument(QStringLiteral("source"), QString());
    parser.process(application);
    const QStringList places = parser.positionalArguments();
    if (places.size() != 2)
        parser.showHelp(2);

    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (parser.isSet(dark))
        QApplication::setPalette(vkr::paletteOf(vkr::dark));
    return parser.isSet(day) ? vkr::runDay(places.at(0), places.at(1))
                             : vkr::runTour(places.at(0), places.at(1));
}
