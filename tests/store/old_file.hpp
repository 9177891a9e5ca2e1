// SPDX-License-Identifier: MIT
#pragma once

#include "source_folder.hpp"
#include "tests/store/store_tools.hpp"

namespace vkr::test {

// What a file of the version is made of. What is in it is told in companies.txt beside it.
inline QString schemaScript(int version) {
    return QStringLiteral(VKR_SOURCE_DIR "/tests/store/schemas/version_%1.sql").arg(version);
}

inline void makeOldFile(const QString& path, int version = 1) {
    const OtherProgram old(path);
    const QString script = QString::fromUtf8(bytesOf(schemaScript(version)));
    ASSERT_FALSE(script.isEmpty());
    for (const QString& statement : script.split(";\n", Qt::SkipEmptyParts))
        old.run(statement);
}

} // namespace vkr::test
