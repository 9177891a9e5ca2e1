// SPDX-License-Identifier: MIT
#include "tests/server/postgres_server.hpp"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Qt SQL finds its database drivers through the application object.
    QCoreApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    vkr::test::PostgresServer::end();
    return result;
}
