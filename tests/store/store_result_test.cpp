// SPDX-License-Identifier: MIT
#include "store/store_result.hpp"

#include <gtest/gtest.h>
#include <memory>

namespace vkr {

namespace {

// Knows whether it is still there.
struct Watched {
    std::shared_ptr<int> there = std::make_shared<int>(1);
    [[nodiscard]] const int* begin() const { return there.get(); }
    [[nodiscard]] const int* end() const { return there.get() + 1; }
};

TEST(StoreResult, AValueTakenFromATemporaryOutlivesIt) {
    std::weak_ptr<int> watched;
    const auto find = [&] {
        Watched value;
        watched = value.there;
        return StoreResult<Watched>(std::move(value));
    };
    int visits = 0;
    for ([[maybe_unused]] const int& one : find().value()) {
        EXPECT_FALSE(watched.expired());
        ++visits;
    }
    EXPECT_EQ(visits, 1);
    EXPECT_TRUE(watched.expired());
}

} // namespace
} // namespace vkr
