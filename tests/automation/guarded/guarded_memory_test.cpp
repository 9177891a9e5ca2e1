// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

// Some blocks are guarded: among many is one.
constexpr int many = 100;

// So that the compiler does not see what is wrong with it.
volatile char* unseen(void* block) {
    void* volatile hidden = block;
    return static_cast<volatile char*>(hidden);
}

void readBehind() {
    for (int i = 0; i < many; ++i) {
        const auto block = std::make_unique<char[]>(64);
        [[maybe_unused]] const char read = unseen(block.get())[64];
    }
}

void readFreed() {
    for (int i = 0; i < many; ++i) {
        auto block = std::make_unique<char[]>(64);
        volatile char* const gone = unseen(block.get());
        block.reset();
        [[maybe_unused]] const char read = gone[0];
    }
}

void writeBehind() {
    for (int i = 0; i < many; ++i) {
        const auto block = std::make_unique<char[]>(60); // short of what is aligned
        unseen(block.get())[61] = 1;
    }
}

TEST(GuardedMemoryDeathTest, EndsTheProgramWhereABlockIsMisused) {
    EXPECT_DEATH(readBehind(), "");
    EXPECT_DEATH(readFreed(), "");
    EXPECT_DEATH(writeBehind(), "written behind its end");
}

TEST(GuardedMemory, LeavesBlocksThatAreUsedWellAlone) {
    std::vector<std::unique_ptr<std::vector<int>>> held;
    for (std::size_t i = 0; i < 20000; ++i) {
        held.push_back(std::make_unique<std::vector<int>>(i % 3000, static_cast<int>(i)));
        if (i % 3 == 0)
            held[i / 2].reset();
    }
    for (std::size_t i = 0; i < held.size(); ++i) {
        if (held[i] == nullptr || held[i]->empty())
            continue;
        ASSERT_EQ(held[i]->back(), static_cast<int>(i));
    }
}

} // namespace
