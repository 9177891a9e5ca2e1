// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace vkr::test {

// A database server of the tests' own, on the loopback address, with its data in a temporary
// folder. It ends with the program that started it, however that ends.
class PostgresServer {
  public:
    // The one server of this program; started when it is first asked for.
    static PostgresServer& instance();
    // Ends it, where it was started.
    static void end();

    PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;
    ~PostgresServer();

    // Why there is no server; "" where there is one.
    [[nodiscard]] const QString& absence() const { return absence_; }

    // The address of a new, empty database.
    QString makeDatabase();
    // The address of a database by its name; a user other than the one that owns everything has
    // the same password, unless another one is given.
    [[nodiscard]] QString address(const QString& database, const QString& user = "tester",
                                  const QString& password = "p@ss:w%rd/ 'x'") const;

    void start();
    void stop();

  private:
    void prepare();
    [[nodiscard]] QString program(const char* name) const;
    void runAsOrdinaryUser(QProcess& process) const;
    bool makeCluster();

    QTemporaryDir folder_;
    QString programs_;
    QString absence_;
    int port_ = 0;
    int databases_ = 0;
    std::unique_ptr<QProcess> process_;
};

} // namespace vkr::test
