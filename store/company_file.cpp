// SPDX-License-Identifier: MIT
#include "store/company_file.hpp"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace vkr {

bool isWritableFile(const QString& path) {
    const QFileInfo file(path);
    return (!file.exists() || file.isWritable()) && QFileInfo(file.absolutePath()).isWritable();
}

QString logOf(const QString& path) {
    return path + "-wal";
}

FileLooks looksOf(const QString& path) {
    const QFileInfo info(path);
    return {info.size(), info.lastModified(), QFileInfo::exists(logOf(path))};
}

void removeFile(const QString& path) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(path + suffix);
}

QString backupName(const QString& path) {
    const QFileInfo file(path);
    const QString stem =
        file.absolutePath() + "/" + file.completeBaseName() + "-backup-" + timeInName();
    const QString suffix = file.suffix().isEmpty() ? "" : "." + file.suffix();
    QString name = stem + suffix;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = stem + "-" + QString::number(number) + suffix;
    return name;
}

QString unfinishedName(const QString& path) {
    const QFileInfo file(path);
    return file.absolutePath() + "/." + file.fileName() + "-" +
           QUuid::createUuid().toString(QUuid::WithoutBraces) + ".new";
}

QString timeInName() {
    return QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
}

} // namespace vkr
