// SPDX-License-Identifier: MIT
// vkr-tour <pictures> <samples>, vkr-tour --day <pictures> <facts>: the tours, which look the same
// on every machine and leave the user's settings alone.
#include "host/program.hpp"
#include "tools/tour.hpp"

#include <QApplication>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv) {
    vkr::doWithoutDisplay();
    QApplication application(argc, argv);
    vkr::nameProgram();
    const QStringList arguments = QApplication::arguments();
    const bool isDay = arguments.value(1) == QLatin1String("--day");
    if (arguments.size() != (isDay ? 4 : 3)) {
        std::fputs(
            "vkr-tour takes a folder for the pictures and one of sample companies, or --day, "
            "a folder for the pictures and a companyfacts document.\n",
            stderr);
        return 2;
    }

    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(QStringLiteral("Fusion"));
    return isDay ? vkr::runDay(arguments.at(2), arguments.at(3))
                 : vkr::runTour(arguments.at(1), arguments.at(2));
}
