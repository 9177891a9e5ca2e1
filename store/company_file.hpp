// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

namespace vkr {

// What only a file has: a folder, neighbours, a size.

// The file, or where there is none a new one in its folder.
[[nodiscard]] bool isWritableFile(const QString& path);
// The log that the database keeps beside its file.
[[nodiscard]] QString logOf(const QString& path);
// What differs once somebody has begun to write the file.
struct FileLooks {
    qint64 size = 0;
    QDateTime changed;
    bool hasLog = false;

    friend bool operator==(const FileLooks&, const FileLooks&) = default;
};
[[nodiscard]] FileLooks looksOf(const QString& path);
// With what the database lays beside it.
void removeFile(const QString& path);
// A name in the same folder that is free, with the moment in it.
[[nodiscard]] QString backupName(const QString& path);
// A name in the same folder that nobody else takes, for a file that is being made.
[[nodiscard]] QString unfinishedName(const QString& path);
// Now, as it stands in a name.
[[nodiscard]] QString timeInName();

} // namespace vkr
