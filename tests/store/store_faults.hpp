// SPDX-License-Identifier: MIT
#pragma once

#include "tests/store/old_file.hpp"
#include "tests/support/random_company.hpp"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <random>

namespace vkr::test {

// Chosen by the clock unless VKR_SEED says which; printed, to play it again.
inline unsigned printedSeed() {
    const QByteArray chosen = qgetenv("VKR_SEED");
    const unsigned seed = chosen.isEmpty() ? std::random_device()() : chosen.toUInt();
    std::printf("VKR_SEED=%u\n", seed);
    return seed;
}

inline bool isLongRun() {
    return qEnvironmentVariableIsSet("VKR_LONG_TESTS");
}

// A folder in memory where there is one: what is tried is what the program is told, not the disk.
class FaultFolder {
  public:
    FaultFolder()
        : folder_(QFileInfo("/dev/shm").isWritable() ? "/dev/shm/vkr-XXXXXX"
                                                     : QDir::tempPath() + "/vkr-XXXXXX") {}

    [[nodiscard]] QString path() const { return QFileInfo(folder_.path()).canonicalFilePath(); }
    [[nodiscard]] QString file() const { return path() + "/companies.vkr"; }
    [[nodiscard]] QStringList files() const {
        return QDir(path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    void empty() const {
        QDir folder(path());
        for (const QString& name : files())
            folder.remove(name);
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

  private:
    QTemporaryDir folder_;
};

} // namespace vkr::test
