// SPDX-License-Identifier: MIT
#include "input/clipboard_cells.hpp"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vkr {
namespace {

// Cells in brackets, rows parted by "/".
std::string shown(const CellTexts& cells) {
    std::string text;
    for (const auto& row : cells) {
        text += text.empty() ? "" : "/";
        for (const auto& cell : row)
            text += "[" + cell + "]";
    }
    return text;
}

TEST(ClipboardCells, AreTheOnesOfTheSpreadsheet) {
    struct Row {
        const char* text;
        const char* cells;
    };
    const Row rows[] = {
        {"", ""},
        {"1", "[1]"},
        {"1\n", "[1]"},
        {"1\r\n", "[1]"},
        {"1\r", "[1]"},
        {"1\t2", "[1][2]"},
        {"1\t2\n3\t4", "[1][2]/[3][4]"},
        {"1\t2\r\n3\t4\r\n", "[1][2]/[3][4]"},
        {"1\t2\r3\t4\r", "[1][2]/[3][4]"},
        {"1\n\n", "[1]/[]"}, // the last cell of a column may be empty
        {"1\n\n\n", "[1]/[]/[]"},
        {"\n", "[]"},
        {"\n1", "[]/[1]"},
        {"\r\n\r\n", "[]/[]"},
        {"\t", "[][]"},
        {"\t\n", "[][]"},
        {"1\t\n", "[1][]"},
        {"\t1", "[][1]"},
        {"1\t2\n3", "[1][2]/[3][]"}, // rows of different lengths
        {"1\n2\t3", "[1][]/[2][3]"},
        {"\"1\"", "[1]"},
        {"\"1\t2\"", "[1\t2]"},
        {"\"1\n2\"\t3", "[1\n2][3]"},
        {"\"a \"\"b\"\" c\"", "[a \"b\" c]"},
        {"\"\"", "[]"},
        {"\"\"\"\"", "[\"]"},
        {"\"1\"\n\"2\"\n", "[1]/[2]"},
        {"\"1\"x\t2", "[\"1\"x][2]"}, // no quoted cell: the mark does not end it
        {"12\" pipe\t2", "[12\" pipe][2]"},
        {"a\"b\"\t2", "[a\"b\"][2]"},
        {"\"1\t2", "[\"1][2]"}, // nobody closes it
        {"\"1\r\n2\"\r\n3", "[1\r\n2]/[3]"},
        {" 1 \t 2 ", "[ 1 ][ 2 ]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(shown(cellsOf(row.text)), row.cells);
    }
}

TEST(ClipboardCells, AreCountedAsIfEachRowWereAsLongAsTheLongestOne) {
    const auto times = [](std::size_t count, const std::string& text) {
        std::string all;
        for (std::size_t i = 0; i < count; ++i)
            all += text;
        return all;
    };
    const std::string row = times(99, "1\t") + "1\n"; // 100 cells
    EXPECT_FALSE(isTooLargeABlock(times(200, row)));
    EXPECT_TRUE(isTooLargeABlock(times(200, row) + "1"));
    EXPECT_FALSE(isTooLargeABlock(times(9'999, "\t")));
    EXPECT_FALSE(isTooLargeABlock(times(9'999, "\t") + "\n1"));
    EXPECT_TRUE(isTooLargeABlock(times(9'999, "\t") + "\n1\n1"));
    EXPECT_FALSE(isTooLargeABlock(times(19'999, "\n") + "\n"));
    EXPECT_TRUE(isTooLargeABlock(times(20'001, "\n")));
    EXPECT_TRUE(isTooLargeABlock(times(30'000, "\t")));
}

TEST(ClipboardCells, AreNoBlockOfMegabytes) {
    const std::string text(mostBlockBytes, 'x');
    EXPECT_FALSE(isTooLargeABlock(text + text)) << "one cell is none";
    EXPECT_TRUE(isTooLargeABlock(text + "\t"));
    EXPECT_FALSE(isTooLargeABlock(text.substr(1) + "\t"));
    const std::string quoted = "\"" + text.substr(4) + "\t";
    EXPECT_FALSE(isTooLargeABlock(quoted + "\"")) << "a tab within a cell";
}

TEST(ClipboardCells, AreTheSameAfterCopyAndPaste) {
    std::mt19937 random(13);
    const char* const pieces[] = {"", "1", "\"", "\t", "\n", "\r", "a\"b", "\"\"", "-2.5", " "};
    for (int round = 0; round < 2000; ++round) {
        CellTexts cells(1 + random() % 3);
        const auto width = 1 + random() % 3;
        for (auto& row : cells)
            for (auto column = width; column > 0; --column) {
                std::string cell;
                for (auto parts = random() % 4; parts > 0; --parts)
                    cell += pieces[random() % std::size(pieces)];
                row.push_back(cell);
            }
        EXPECT_EQ(cellsOf(clipboardText(cells)), cells) << clipboardText(cells);
    }
}

} // namespace
} // namespace vkr
