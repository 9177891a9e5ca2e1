// SPDX-License-Identifier: MIT
#include "host/options.hpp"

#include "store/company_store.hpp"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace vkr {

namespace {

QString foundSamples(const QString& sourceSamples) {
    const QString programs = QCoreApplication::applicationDirPath();
    for (const QString& folder : {programs + QStringLiteral("/../share/vkr-data-entry/samples"),
                                  programs + QStringLiteral("/samples"), sourceSamples})
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return QDir::cleanPath(folder);
    return {};
}

} // namespace

ParsedOptions parseOptions(const QStringList& arguments, const QString& sourceSamples) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("options", "Fundamental data of listed companies."));
    const QCommandLineOption database(
        QStringLiteral("database"),
        QCoreApplication::translate("options",
                                    "The database to work on; your own by default. One that is "
                                    "shared is postgresql://user@host:port/name."),
        QStringLiteral("file"));
    const QCommandLineOption samples(
        QStringLiteral("samples"),
        QCoreApplication::translate("options", "Where a new database takes its companies from."),
        QStringLiteral("folder"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QCoreApplication::translate("options", "Shows this text."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QCoreApplication::translate("options", "Shows the version."));
    parser.addOptions({database, samples, help, version});

    ParsedOptions parsed;
    const auto refuse = [&](const QString& why) {
        parsed.print = why;
        parsed.exitCode = 2;
        return parsed;
    };
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (parser.isSet(help)) {
        parsed.print = parser.helpText();
        return parsed;
    }
    if (parser.isSet(version)) {
        parsed.print =
            QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion();
        return parsed;
    }
    if (!parser.positionalArguments().isEmpty())
        return refuse(QCoreApplication::translate("options", "Not understood: %1")
                          .arg(parser.positionalArguments().first()));

    Options& options = parsed.options;
    options.isNamed = parser.isSet(database);
    const QString named = parser.value(database);
    options.database = CompanyStore::isOnServer(named.toStdString()) ? named
                       : options.isNamed
                           ? QFileInfo(named).absoluteFilePath()
                           : QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
                                 .filePath(QStringLiteral("companies.vkr"));
    options.samples = parser.isSet(samples) ? parser.value(samples) : foundSamples(sourceSamples);
    if (parser.isSet(samples) && !QFileInfo(options.samples).isDir())
        return refuse(
            QCoreApplication::translate("options", "There is no folder %1.").arg(options.samples));
    return parsed;
}

} // namespace vkr
