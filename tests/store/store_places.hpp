// SPDX-License-Identifier: MIT
#pragma once

#include "tests/server/postgres_server.hpp"
#include "tests/store/store_tools.hpp"

#include <QTemporaryDir>

namespace vkr::test {

enum class DatabaseKind { file, server };

inline void PrintTo(DatabaseKind kind, std::ostream* stream) {
    *stream << (kind == DatabaseKind::file ? "file" : "server");
}

// A test that is run on a file and on a database of a server, each its own.
class OnEveryDatabase : public testing::TestWithParam<DatabaseKind> {
  protected:
    void SetUp() override {
        if (!isOnServer()) {
            place_ = folder_.filePath("companies.vkr");
            return;
        }
        PostgresServer& server = PostgresServer::instance();
        if (!server.absence().isEmpty())
            GTEST_SKIP() << "PostgreSQL is not tested: " << server.absence().toStdString();
        place_ = server.makeDatabase();
    }

    [[nodiscard]] static bool isOnServer() { return GetParam() == DatabaseKind::server; }
    [[nodiscard]] const QString& place() const { return place_; }

  private:
    QTemporaryDir folder_;
    QString place_;
};

} // namespace vkr::test
