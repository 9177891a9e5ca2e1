// SPDX-License-Identifier: MIT
#pragma once

#include "source_folder.hpp"
#include "tests/store/store_tools.hpp"

namespace vkr::test {

// A file of version 1.
inline void makeOldFile(const QString& path) {
    const OtherProgram old(path);
    const QString script =
        QString::fromUtf8(bytesOf(QStringLiteral(VKR_SOURCE_DIR "/tests/store/schema_1.sql")));
    ASSERT_FALSE(script.isEmpty());
    for (const QString& statement : script.split(";\n", Qt::SkipEmptyParts))
        old.run(statement);
}

} // namespace vkr::test
