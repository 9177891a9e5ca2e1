// SPDX-License-Identifier: MIT
#pragma once

#include "source_folder.hpp"
#include "tests/store/store_tools.hpp"

#include <algorithm>
#include <string>

namespace vkr::test {

inline QString schemaFolder() {
    return QStringLiteral(VKR_SOURCE_DIR "/tests/store/schemas");
}

// What a file of the version is made of.
inline QString schemaScript(int version) {
    return schemaFolder() + QStringLiteral("/version_%1.sql").arg(version);
}

inline void runScript(const OtherProgram& program, const QString& path) {
    const QString script = QString::fromUtf8(bytesOf(path));
    ASSERT_FALSE(script.isEmpty()) << path.toStdString();
    for (const QString& statement : script.split(";\n", Qt::SkipEmptyParts))
        program.run(statement);
}

inline void makeOldFile(const QString& path, int version = 1) {
    runScript(OtherProgram(path), schemaScript(version));
}

// Of version 1, in an empty database on a server.
inline void makeOldDatabase(const QString& place) {
    runScript(OtherProgram(place), schemaFolder() + "/server_version_1.sql");
}

// Whatever is not absent, a line each.
inline std::string contentsOf(const CompanyRecord& record) {
    std::string lines;
    for (const Difference& datum : differences(CompanyRecord(), record)) {
        lines += datum.datum;
        if (datum.element)
            lines += "[" + std::to_string(*datum.element) + "]";
        lines += " = " + QString::fromStdString(datum.after).replace('\n', "\\n").toStdString();
        lines += '\n';
    }
    return lines;
}

inline std::string contentsOf(CompanyStore& store) {
    auto listed = store.list();
    EXPECT_DONE(listed);
    std::ranges::sort(listed.value(), {}, [](const CompanySummary& row) { return row.key.id; });
    std::string lines;
    for (const CompanySummary& row : listed.value()) {
        const auto loaded = store.load(row.key.id);
        EXPECT_DONE(loaded);
        EXPECT_EQ(loaded.value().unreadable, std::vector<std::string>()) << row.key.id;
        lines += "company " + std::to_string(row.key.id) + ", revision " +
                 std::to_string(loaded.value().revision) + ", saved " + row.lastSaved + '\n' +
                 contentsOf(*loaded.value().record);
    }
    return lines;
}

// What companies.txt says of every version.
inline std::string expectedContents() {
    std::string lines;
    for (const QByteArray& line : bytesOf(schemaFolder() + "/companies.txt").split('\n'))
        if (!line.isEmpty() && !line.startsWith('#'))
            lines += line.toStdString() + '\n';
    return lines;
}

} // namespace vkr::test
