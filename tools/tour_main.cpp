// SPDX-License-Identifier: MIT
// vkr-tour <pictures> <samples>: the tour, which looks the same on every machine and leaves the
// user's settings alone.
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
    if (arguments.size() != 3) {
        std::fputs("vkr-tour takes a folder for the pictures and one of sample companies.\n",
                   stderr);
        return 2;
    }

    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setStyle(QStringLiteral("Fusion"));
    return vkr::runTour(arguments.at(1), arguments.at(2));
}
