// SPDX-License-Identifier: MIT
#include "platform/text.hpp"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>

namespace vkr {
namespace {

constexpr int huge = std::numeric_limits<int>::max();
constexpr int farBelow = std::numeric_limits<int>::min();

TEST(TextTest, CountsCharactersAndNotBytes) {
    struct Row {
        std::string_view text;
        int length;
    };
    const Row rows[] = {
        {"", 0},
        {"abc", 3},
        {"\xC3\xA9t\xC3\xA9", 3}, // été
        {"\xE2\x82\xAC", 1},      // €
        {"\xF0\x9F\x98\x80!", 2}, // an emoji
        {std::string_view("a\0b", 3), 3},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textLength(row.text), row.length) << row.text;
}

TEST(TextTest, EveryByteThatIsNoValidTextIsACharacterOfItsOwn) {
    struct Row {
        const char* what;
        std::string_view text;
        int length;
    };
    const Row rows[] = {
        {"continuation without a lead", "\x80\xBF", 2},
        {"lead without a continuation", "\xC3", 1},
        {"lead before plain text",
         "\xC3"
         "a",
         2},
        {"cut off after two of three", "\xE2\x82", 2},
        {"cut off after three of four", "\xF0\x9F\x98", 3},
        {"overlong with two bytes", "\xC0\x80", 2},
        {"overlong with three bytes", "\xE0\x80\x80", 3},
        {"overlong with four bytes", "\xF0\x80\x80\x80", 4},
        {"half of a surrogate pair", "\xED\xA0\x80", 3},
        {"beyond the last character", "\xF4\x90\x80\x80", 4},
        {"bytes that are never used", "\xFE\xFF", 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(textLength(row.text), row.length);
        EXPECT_EQ(textLeft(row.text, 1).size(), 1U);
        EXPECT_EQ(firstCharacter(row.text), static_cast<unsigned char>(row.text.front()));
        EXPECT_EQ(upperCase(row.text).size(), row.text.size());
    }
}

TEST(TextTest, LastCharactersOfEachSizeAreRead) {
    EXPECT_EQ(firstCharacter("\x7F"), 0x7FU);
    EXPECT_EQ(firstCharacter("\xDF\xBF"), 0x7FFU);
    EXPECT_EQ(firstCharacter("\xED\x9F\xBF"), 0xD7FFU);
    EXPECT_EQ(firstCharacter("\xEF\xBF\xBF"), 0xFFFFU);
    EXPECT_EQ(firstCharacter("\xF4\x8F\xBF\xBF"), 0x10FFFFU);
    EXPECT_EQ(firstCharacter(""), 0U);
}

TEST(TextTest, CutsPartsToWhatIsThere) {
    struct Row {
        int start;
        int count;
        std::string_view part;
    };
    const std::string_view text = "a\xC3\xA9"
                                  "b\xE2\x82\xAC"; // aéb€
    const Row rows[] = {
        {0, 2, "a\xC3\xA9"},
        {1, 1, "\xC3\xA9"},
        {3, 9, "\xE2\x82\xAC"},
        {4, 1, ""},
        {huge, huge, ""},
        {0, huge,
         "a\xC3\xA9"
         "b\xE2\x82\xAC"},
        {-3, 1, "a"},
        {1, -1, ""},
        {farBelow, farBelow, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textMiddle(text, row.start, row.count), row.part) << row.start;
    EXPECT_EQ(textLeft(text, 1), "a");
    EXPECT_EQ(textFrom(text, 3), "\xE2\x82\xAC");
    EXPECT_EQ(textFrom(text, farBelow), text);
}

TEST(TextTest, AppendedCharactersAreReadBack) {
    for (const char32_t character :
         {0x41U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        std::string text;
        appendCharacter(text, character);
        EXPECT_EQ(textLength(text), 1) << std::uint32_t{character};
        EXPECT_EQ(firstCharacter(text), character);
        const std::size_t bytes = character < 0x80U      ? 1
                                  : character < 0x800U   ? 2
                                  : character < 0x10000U ? 3
                                                         : 4;
        EXPECT_EQ(text.size(), bytes) << std::uint32_t{character};
    }
}

TEST(TextTest, WhatIsNoCharacterIsNotAppended) {
    for (const char32_t character : {0xD800U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
        std::string text = "a";
        appendCharacter(text, character);
        EXPECT_EQ(text, "a") << std::uint32_t{character};
    }
}

TEST(TextTest, UpperCasesLatinGreekAndCyrillicLetters) {
    struct Row {
        char32_t small;
        char32_t capital;
    };
    const Row rows[] = {
        {'a', 'A'},         {'z', 'Z'},     {'Q', 'Q'},     {'1', '1'},     {'-', '-'},
        {0xE9, 0xC9},       {0xFE, 0xDE},   {0xF7, 0xF7},   {0xDF, 0xDF},   {0xFF, 0x178},
        {0x101, 0x100},     {0x137, 0x136}, {0x131, 'I'},   {0x138, 0x138}, {0x13A, 0x139},
        {0x148, 0x147},     {0x149, 0x149}, {0x161, 0x160}, {0x17E, 0x17D}, {0x17D, 0x17D},
        {0x3B1, 0x391},     {0x3C2, 0x3A3}, {0x3C3, 0x3A3}, {0x3C9, 0x3A9}, {0x3AC, 0x386},
        {0x3AD, 0x388},     {0x3AF, 0x38A}, {0x3CA, 0x3AA}, {0x3CC, 0x38C}, {0x3CD, 0x38E},
        {0x3CE, 0x38F},     {0x430, 0x410}, {0x44F, 0x42F}, {0x451, 0x401}, {0x45F, 0x40F},
        {0x1F600, 0x1F600},
    };
    for (const auto& row : rows)
        EXPECT_EQ(upperCase(row.small), row.capital) << std::hex << std::uint32_t{row.small};
}

TEST(TextTest, UpperCasesTextsAndKeepsForeignBytes) {
    EXPECT_EQ(upperCase("ibm \xC3\xA9\xFF z"), "IBM \xC3\x89\xFF Z");
    EXPECT_EQ(upperCase(""), "");
}

TEST(TextTest, ComparesIgnoringCase) {
    EXPECT_TRUE(equalsIgnoringCase("Nasdaq", "NASDAQ"));
    EXPECT_TRUE(equalsIgnoringCase("\xC3\xA9", "\xC3\x89"));
    EXPECT_FALSE(equalsIgnoringCase("NYSE", "NYS"));
    EXPECT_FALSE(equalsIgnoringCase("a\xC3", "a\xC4"));
    EXPECT_FALSE(equalsIgnoringCase("\xC3", "\xC3\x83")) << "a byte is no character";
    EXPECT_TRUE(equalsIgnoringCase("a\xC3", "A\xC3"));
}

TEST(TextTest, TrimsBlanksAroundATextOnly) {
    EXPECT_EQ(trimmed(" \t a b \r\n"), "a b");
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(TextTest, ALiteralCaptionShowsItsTextAndHasNoMnemonic) {
    for (const std::string_view text : {"", "$", "&", "R&D", "&&", "&k"}) {
        EXPECT_EQ(withoutMnemonic(literalCaption(text)), text);
        EXPECT_EQ(mnemonicOf(literalCaption(text)), 0U) << text;
    }
}

TEST(TextTest, ReadsAndRemovesMnemonics) {
    struct Row {
        std::string_view caption;
        char32_t letter;
        std::string_view plain;
    };
    const Row rows[] = {
        {"&OK", 'O', "OK"},
        {"Can&cel", 'C', "Cancel"},
        {"Research && &Development", 'D', "Research & Development"},
        {"Q&&A", 0, "Q&A"},
        {"&&&x", 'X', "&x"},
        {"\x26\xC3\xA9t\xC3\xA9", 0xC9, "\xC3\xA9t\xC3\xA9"},
        {"trailing&", 0, "trailing"},
        {"&", 0, ""},
        {"", 0, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(mnemonicOf(row.caption), row.letter) << row.caption;
        EXPECT_EQ(withoutMnemonic(row.caption), row.plain) << row.caption;
    }
}

} // namespace
} // namespace vkr
