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

TEST(TextTest, CharactersEndWhereTheirBytesDo) {
    struct Row {
        std::string_view text;
        char32_t character; // the first byte where it is none
        int length;
    };
    const Row rows[] = {
        {"\x7F", 0x7F, 1},
        {"\x80", 0x80, 1},
        {"\xBF\x80", 0xBF, 2},
        {"\xC1\x80", 0xC1, 2},
        {"\xC2\x80", 0x80, 1},
        {"\xC2\xC0", 0xC2, 2},
        {"\xDF\xBF", 0x7FF, 1},
        {"\xE0\x9F\xBF", 0xE0, 3},
        {"\xE0\xA0\x80", 0x800, 1},
        {"\xE1\x80\x80", 0x1000, 1},
        {"\xE1\x80\x7F", 0xE1, 3},
        {"\xEC\xBF\xBF", 0xCFFF, 1},
        {"\xED\x9F\xBF", 0xD7FF, 1},
        {"\xED\xA0\x80", 0xED, 3},
        {"\xED\xBF\xBF", 0xED, 3},
        {"\xEE\x80\x80", 0xE000, 1},
        {"\xEF\xBF\xBF", 0xFFFF, 1},
        {"\xF0\x8F\xBF\xBF", 0xF0, 4},
        {"\xF0\x90\x80\x80", 0x10000, 1},
        {"\xF1\x80\x80\x80", 0x40000, 1},
        {"\xF3\xBF\xBF\xBF", 0xFFFFF, 1},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF, 1},
        {"\xF4\x90\x80\x80", 0xF4, 4},
        {"\xF5\x80\x80\x80", 0xF5, 4},
        {"\xF0\x90\x80\x40", 0xF0, 4},
        {"\xC3\xA9\xC3\xA9", 0xE9, 2},
        {"\xE2\x82\xAC\xE2\x82\xAC", 0x20AC, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.text));
        EXPECT_EQ(firstCharacter(row.text), row.character);
        EXPECT_EQ(textLength(row.text), row.length);
        if (row.length == 1) {
            EXPECT_EQ(textLeft(row.text, 1), row.text);
        }
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
        {0x1F600, 0x1F600}, {'`', '`'},     {'{', '{'},     {'A', 'A'},     {0xDF, 0xDF},
        {0xE0, 0xC0},       {0xF6, 0xD6},   {0xF8, 0xD8},   {0xD7, 0xD7},   {0x100, 0x100},
        {0x130, 0x130},     {0x132, 0x132}, {0x136, 0x136}, {0x139, 0x139}, {0x147, 0x147},
        {0x14A, 0x14A},     {0x14B, 0x14A}, {0x176, 0x176}, {0x177, 0x176}, {0x178, 0x178},
        {0x179, 0x179},     {0x17A, 0x179}, {0x17F, 0x17F}, {0x180, 0x180}, {0x3AB, 0x3AB},
        {0x3AE, 0x389},     {0x3B0, 0x3B0}, {0x3C1, 0x3A1}, {0x3CB, 0x3AB}, {0x3CF, 0x3CF},
        {0x391, 0x391},     {0x42F, 0x42F}, {0x450, 0x400}, {0x460, 0x460}, {0x410, 0x410},
    };
    for (const auto& row : rows)
        EXPECT_EQ(upperCase(row.small), row.capital) << std::hex << std::uint32_t{row.small};
}

TEST(TextTest, UpperCasesTextsAndKeepsForeignBytes) {
    EXPECT_EQ(upperCase("ibm \xC3\xA9\xFF z"), "IBM \xC3\x89\xFF Z");
    EXPECT_EQ(upperCase(""), "");
    EXPECT_EQ(upperCase("\xC3\xA9"), "\xC3\x89");
    EXPECT_EQ(upperCase("\x7F\x80"), "\x7F\x80");
    EXPECT_EQ(upperCase("\xE2\x82\xAC\xF0\x9F\x98\x80"), "\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(TextTest, ComparesIgnoringCase) {
    EXPECT_TRUE(equalsIgnoringCase("Nasdaq", "NASDAQ"));
    EXPECT_TRUE(equalsIgnoringCase("\xC3\xA9", "\xC3\x89"));
    EXPECT_FALSE(equalsIgnoringCase("NYSE", "NYS"));
    EXPECT_FALSE(equalsIgnoringCase("NYS", "NYSE"));
    EXPECT_TRUE(equalsIgnoringCase("", ""));
    EXPECT_FALSE(equalsIgnoringCase("", "a"));
    EXPECT_FALSE(equalsIgnoringCase("\x80", "\xC2\x80")) << "a byte is no character";
    EXPECT_TRUE(equalsIgnoringCase("\x80", "\x80"));
    EXPECT_FALSE(equalsIgnoringCase("\x80", "\x81"));
    EXPECT_FALSE(equalsIgnoringCase("\x80", "\xF4\x8F\xBE\x80")) << "nor the last but some";
    EXPECT_FALSE(equalsIgnoringCase("\xE9", "\xC9")) << "nor has it a case";
    EXPECT_FALSE(equalsIgnoringCase("a\xC3", "a\xC4"));
    EXPECT_FALSE(equalsIgnoringCase("\xC3", "\xC3\x83")) << "a byte is no character";
    EXPECT_TRUE(equalsIgnoringCase("a\xC3", "A\xC3"));
}

TEST(TextTest, TrimsBlanksAroundATextOnly) {
    EXPECT_EQ(trimmed(" \t a b \r\n"), "a b");
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(TextTest, TabsAndLineBreaksPartABlockOfCells) {
    for (const char* block : {"1\t2", "1\n2", "1\r2", "1\r\n2", "\t1\t2\n", "a b\tc", "1\n\n2",
                              "1\u00852", "1\u20282", "1\u20292", "1\u009F2",
                              "1\x7F"
                              "2"})
        EXPECT_TRUE(isBlockOfCells(block)) << block;
    for (const char* text : {"", " ", "1", "1 2", "\t1\n", " 1\r\n", "\n\n1",
                             "\u2028"
                             "1\u2029",
                             "1\u00A02", "1~2", "1\u20272", "1\u202A2",
                             "\x01"
                             "1"})
        EXPECT_FALSE(isBlockOfCells(text)) << text;
}

TEST(TextTest, AFieldTakesATextWithoutControlCharacters) {
    struct Row {
        const char* text;
        const char* one;
        const char* several;
    };
    const Row rows[] = {
        {"", "", ""},
        {"a b", "a b", "a b"},
        {"a\tb", "a b", "a\tb"},
        {"a\nb", "a b", "a\nb"},
        {"a\rb", "a b", "a\nb"},
        {"a\r\nb", "a b", "a\nb"},
        {"a\n\rb", "a  b", "a\n\nb"},
        {"a\r\r\nb", "a  b", "a\n\nb"},
        {"a\r\n\nb", "a  b", "a\n\nb"},
        {"a\u2028b\u2029c", "a b c", "a\nb\nc"},
        {"a\x1F"
         "b\x7F"
         "c",
         "abc", "abc"},
        {"a\u0080b\u009Fc", "abc", "abc"},
        {"a~\u00A0b", "a~\u00A0b", "a~\u00A0b"},
        {"a\xFF"
         "b\x80",
         "a\uFFFDb\uFFFD", "a\uFFFDb\uFFFD"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(cleanedText(row.text, FieldLines::one), row.one) << row.text;
        EXPECT_EQ(cleanedText(row.text, FieldLines::several), row.several) << row.text;
    }
}

TEST(TextTest, APasteIntoOneLineDropsOneLineBreakAtItsEnd) {
    EXPECT_EQ(cleanedPaste("5\n", FieldLines::one), "5");
    EXPECT_EQ(cleanedPaste("5\r\n", FieldLines::one), "5");
    EXPECT_EQ(cleanedPaste("5\r", FieldLines::one), "5");
    EXPECT_EQ(cleanedPaste("5\n\n", FieldLines::one), "5 ");
    EXPECT_EQ(cleanedPaste("5\n\r", FieldLines::one), "5 ");
    EXPECT_EQ(cleanedPaste("\n5", FieldLines::one), " 5");
    EXPECT_EQ(cleanedPaste("5\n", FieldLines::several), "5\n");
    EXPECT_EQ(cleanedPaste("5\r", FieldLines::several), "5\n");
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
