// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"

#include <gtest/gtest.h>

namespace vkr::automation {

// A storage that lies nowhere but in memory.
inline ComPtr<IStorage> newStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    EXPECT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.receive()), S_OK);
    EXPECT_EQ(StgCreateDocfileOnILockBytes(bytes.get(),
                                           STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                           storage.receive()),
              S_OK);
    return storage;
}

} // namespace vkr::automation
