// SPDX-License-Identifier: MIT
#include "tests/automation/record_server.hpp"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); // nobody is there to answer
    if (const auto code = vkr::automation::record_server::served(argc, argv))
        return *code;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
