// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "store/company_store.hpp"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <source_folder.hpp>
#include <string>

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace vkr::test {

// The program as a process of its own, in an empty folder, with a database "companies.vkr" there.
class ProgramTest : public testing::Test {
  protected:
    struct Ended {
        int code = -1;
        std::string out;
        std::string err;
    };

    ProgramTest() { QDir(folder_.path()).mkdir("in"); }

    [[nodiscard]] QString path(const QString& name) const { return folder_.filePath(name); }
    [[nodiscard]] std::string place() const { return path("companies.vkr").toStdString(); }
    [[nodiscard]] static QString samples() { return QStringLiteral(VKR_SOURCE_DIR "/samples"); }

    [[nodiscard]] static QString program() { return QStringLiteral(VKR_PROGRAM); }
    // Neither a display nor a database of its own.
    [[nodiscard]] static QProcessEnvironment environment() {
        auto variables = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "VKR_DATABASE"})
            variables.remove(QLatin1String(name));
        return variables;
    }
    void prepare(QProcess& process, QStringList arguments, bool named = true) const {
        process.setWorkingDirectory(folder_.path());
        process.setProcessEnvironment(environment());
        process.setProgram(program());
        process.setArguments((named ? QStringList{"--database", "companies.vkr"} : QStringList()) +
                             arguments);
    }
    static Ended ended(QProcess& process) {
        EXPECT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
    [[nodiscard]] Ended run(const QStringList& arguments, bool named = true) const {
        QProcess process;
        prepare(process, arguments, named);
        process.start();
        return ended(process);
    }

    void write(const QString& name, const QByteArray& content) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QByteArray bytes(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // A company's own table and nothing else, into the folder "in".
    void writeCompany(const QString& symbol, const QString& name,
                      const QString& folder = "in") const {
        write(folder + "/" + symbol + "-company.csv",
              ("key,value\nname," + name + "\nsymbol," + symbol + "\n").toUtf8());
    }
    [[nodiscard]] std::unique_ptr<CompanyStore> store(OpenMode mode = OpenMode::existing) const {
        auto opened = CompanyStore::open(place(), mode);
        EXPECT_TRUE(opened) << opened.error().message;
        return std::move(opened.value());
    }
    // What another program does to the database.
    void execute(const QString& statement) const {
        {
            auto database = QSqlDatabase::addDatabase("QSQLITE", "other");
            database.setDatabaseName(path("companies.vkr"));
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            ASSERT_TRUE(query.exec(statement)) << statement.toStdString();
        }
        QSqlDatabase::removeDatabase("other");
    }
    void importSamples() const {
        const Ended done = run({"import", samples(), "--create"});
        ASSERT_EQ(done.code, 0) << done.err;
    }

  private:
    QTemporaryDir folder_;
};

[[nodiscard]] inline bool contains(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

} // namespace vkr::test
