// SPDX-License-Identifier: MIT
#include "vkr/read_ahead.hpp"

#include <gtest/gtest.h>
#include <source_folder.hpp>

namespace vkr {
namespace {

constexpr auto samples = VKR_SOURCE_DIR "/samples";

TEST(ReadAhead, TellsCompaniesInTheirOrder) {
    std::vector<std::string> prefixes;
    for (int round = 0; round < 40; ++round) // more than are read ahead
        for (const char* prefix : {"AAPL", "none", "TSLA"})
            prefixes.emplace_back(prefix);
    ReadAhead files(samples, prefixes);
    for (const std::string& prefix : prefixes) {
        const CsvImport read = files.next();
        ASSERT_EQ(read.company != nullptr, prefix != "none");
        EXPECT_EQ(read.company ? read.company->get_Symbol() : "none", prefix);
    }
}

TEST(ReadAhead, GivesUpWhatNobodyTakes) {
    const std::vector<std::string> prefixes(200, "AAPL");
    { const ReadAhead nothing(samples, prefixes); }
    ReadAhead one(samples, prefixes);
    EXPECT_NE(one.next().company, nullptr);
}

} // namespace
} // namespace vkr
