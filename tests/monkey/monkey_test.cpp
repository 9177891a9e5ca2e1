// SPDX-License-Identifier: MIT
#include "tests/monkey/monkey.hpp"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace vkr::test {
namespace {

std::string codeOf(const MonkeyRun& run) {
    std::string code = "    MonkeyScene scene;\n";
    for (const auto& step : run.steps)
        code += "    " + step.code() + "\n";
    return code;
}

// Fifty thousand events, the same ones each time; with VKR_LONG_TESTS=1 a million new ones. In
// batches that run side by side. VKR_MONKEY_SEED plays one sequence again and tells of every step.
class Monkey : public testing::TestWithParam<int> {};

TEST_P(Monkey, BreaksNothing) {
    constexpr int events = 250;
    const char* fixed = std::getenv("VKR_MONKEY_SEED");
    const char* thorough = std::getenv("VKR_LONG_TESTS");
    const bool isLong = thorough != nullptr && *thorough == '1';
    const int sequences = fixed != nullptr ? 1 : isLong ? 100 : 5;
    const auto first = fixed != nullptr ? static_cast<unsigned>(std::strtoul(fixed, nullptr, 10))
                       : isLong         ? std::random_device{}()
                                        : static_cast<unsigned>(GetParam() * sequences + 1);
    for (int i = 0; i < sequences; ++i) {
        const unsigned seed = first + static_cast<unsigned>(i);
        std::cout << "VKR_MONKEY_SEED=" << seed << std::endl; // before it could crash
        const MonkeyRun run = playMonkey(seed, events, [&](const MonkeyStep& step) {
            if (fixed != nullptr)
                std::cout << "    " << step.code() << std::endl;
        });
        if (run.failure.empty())
            continue;
        const MonkeyRun shortRun = shrunk(run);
        FAIL() << run.failure << " (VKR_MONKEY_SEED=" << seed << "), in short\n"
               << codeOf(shortRun) << "    " << shortRun.failure;
    }
}

INSTANTIATE_TEST_SUITE_P(Batch, Monkey, testing::Range(0, 40));

TEST(ShortestSequence, IsLeftWithWhatMakesItFail) {
    int tried = 0;
    std::vector<int> numbers(100);
    for (int i = 0; i < 100; ++i)
        numbers[static_cast<std::size_t>(i)] = i;
    const auto fails = [&](const std::vector<int>& part) {
        ++tried;
        return std::ranges::count(part, 17) + std::ranges::count(part, 64) == 2;
    };
    EXPECT_EQ(shortest(numbers, fails), (std::vector{17, 64}));
    EXPECT_LT(tried, 200);
}

} // namespace
} // namespace vkr::test
