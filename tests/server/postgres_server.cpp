// SPDX-License-Identifier: MIT
#include "tests/server/postgres_server.hpp"

#include "tests/store/store_tools.hpp"

#include <QDir>
#include <QStandardPaths>
#include <QUrl>

#include <arpa/inet.h>
#include <csignal>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vkr::test {

namespace {

std::unique_ptr<PostgresServer>& theServer() {
    static std::unique_ptr<PostgresServer> server;
    return server;
}

// Where Debian and others put the programs of the server, outside of PATH.
QString folderOfPrograms() {
    if (const QString found = QStandardPaths::findExecutable("postgres"); !found.isEmpty())
        return QFileInfo(found).path();
    const QDir versions("/usr/lib/postgresql");
    QString newest;
    for (const QString& version : versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (QFile::exists(versions.filePath(version + "/bin/postgres")) &&
            version.toInt() > newest.toInt())
            newest = version;
    return newest.isEmpty() ? QString() : versions.filePath(newest + "/bin");
}

int freePort() {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    const bool isBound = bind(listener, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                         getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    close(listener);
    return isBound ? ntohs(address.sin_port) : 0;
}

// The server refuses to run for the superuser.
const passwd* ordinaryUser() {
    const passwd* user = getpwnam("postgres");
    return user != nullptr ? user : getpwnam("nobody");
}

} // namespace

PostgresServer& PostgresServer::instance() {
    if (!theServer())
        theServer() = std::make_unique<PostgresServer>();
    return *theServer();
}

void PostgresServer::end() {
    theServer().reset();
}

PostgresServer::PostgresServer() : programs_(folderOfPrograms()), port_(freePort()) {
    prepare();
    if (absence_.isEmpty())
        start();
}

PostgresServer::~PostgresServer() {
    stop();
}

void PostgresServer::prepare() {
    if (!QSqlDatabase::isDriverAvailable("QPSQL"))
        absence_ = "Qt has no driver for PostgreSQL here (package libqt6sql6-psql)";
    else if (programs_.isEmpty())
        absence_ = "there is no PostgreSQL server here (package postgresql)";
    else if (!makeCluster())
        absence_ = "initdb made no data folder";
}

QString PostgresServer::program(const char* name) const {
    return programs_ + "/" + name;
}

void PostgresServer::runAsOrdinaryUser(QProcess& process) const {
    process.setWorkingDirectory(folder_.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    const passwd* user = geteuid() == 0 ? ordinaryUser() : nullptr;
    const uid_t uid = user != nullptr ? user->pw_uid : geteuid();
    const gid_t gid = user != nullptr ? user->pw_gid : getegid();
    process.setChildProcessModifier([uid, gid] {
        if (geteuid() == 0 && (setresgid(gid, gid, gid) != 0 || setresuid(uid, uid, uid) != 0))
            _exit(126);
        prctl(PR_SET_PDEATHSIG, SIGINT);
    });
}

bool PostgresServer::makeCluster() {
    const QString passwordFile = folder_.filePath("password");
    QFile password(passwordFile);
    if (!password.open(QIODevice::WriteOnly))
        return false;
    password.write(QUrl(address({})).password(QUrl::FullyDecoded).toUtf8());
    password.close();
    if (geteuid() == 0)
        for (const QString& path : {folder_.path(), passwordFile})
            if (chown(path.toUtf8().constData(), ordinaryUser()->pw_uid, ordinaryUser()->pw_gid) !=
                0)
                return false;
    QProcess initdb;
    runAsOrdinaryUser(initdb);
    initdb.start(program("initdb"), {"--pgdata=" + folder_.filePath("data"), "--username=tester",
                                     "--pwfile=" + passwordFile, "--auth=scram-sha-256",
                                     "--encoding=UTF8", "--locale=C", "--no-sync"});
    return initdb.waitForFinished(60'000) && initdb.exitCode() == 0;
}

void PostgresServer::start() {
    process_ = std::make_unique<QProcess>();
    runAsOrdinaryUser(*process_);
    QStringList arguments = {"-D", folder_.filePath("data"), "-p", QString::number(port_)};
    for (const char* setting :
         {"listen_addresses=127.0.0.1", "unix_socket_directories=", "fsync=off",
          "log_min_messages=log", "log_min_error_statement=panic", "log_checkpoints=off"})
        arguments << "-c" << setting;
    process_->start(program("postgres"), arguments);
    QByteArray said;
    while (!said.contains("ready to accept connections")) {
        if (!process_->waitForReadyRead(30'000)) {
            absence_ = "the server does not start: " + QString::fromUtf8(said);
            return;
        }
        said += process_->readAll();
    }
}

void PostgresServer::stop() {
    if (!process_)
        return;
    if (process_->processId() > 0)
        kill(static_cast<pid_t>(process_->processId()), SIGINT);
    process_->waitForFinished(30'000);
    process_.reset();
}

QString PostgresServer::address(const QString& database, const QString& user,
                                const QString& password) const {
    QUrl url;
    url.setScheme("postgresql");
    url.setHost("127.0.0.1");
    url.setPort(port_);
    url.setUserName(user, QUrl::DecodedMode);
    url.setPassword(password, QUrl::DecodedMode);
    url.setPath("/" + database, QUrl::DecodedMode);
    return url.toString(QUrl::FullyEncoded);
}

QString PostgresServer::makeDatabase() {
    const QString name = "companies_" + QString::number(++databases_);
    OtherProgram(address("postgres")).run("CREATE DATABASE " + name);
    return address(name);
}

} // namespace vkr::test
