// SPDX-License-Identifier: MIT
#include "platform/key_notation.hpp"

#include <gtest/gtest.h>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

static void PrintTo(const KeyStroke& stroke, std::ostream* out) {
    *out << "key " << stroke.key << " shift " << stroke.shift << " character "
         << static_cast<unsigned>(stroke.character) << " x " << stroke.count;
}

namespace {

using Strokes = std::vector<KeyStroke>;
constexpr int none = shifts::none;
constexpr int shift = shifts::shift;
constexpr int control = shifts::control;
constexpr int alt = shifts::alt;

TEST(KeyNotationTest, ReadsKeys) {
    struct Row {
        std::string_view notation;
        Strokes strokes;
    };
    const Row rows[] = {
        {"", {}},
        {"a", {{'A', none, 'a'}}},
        {"Q", {{'Q', shift, 'Q'}}},
        {"+q", {{'Q', shift, 'Q'}}},
        {"7", {{'7', none, '7'}}},
        {"+7", {{'7', shift, '&'}}},
        {"&", {{'7', shift, '&'}}},
        {".-/", {{190, none, '.'}, {189, none, '-'}, {191, none, '/'}}},
        {" ", {{keys::space, none, ' '}}},
        {"\xC3\xA9", {{231, none, 0xE9}}},
        {"+\xC3\xA9", {{231, shift, 0xC9}}},
        {"\xF0\x9F\x98\x80", {{231, none, 0x1F600}}},
        {"~", {{keys::enter, none, 13}}},
        {"{ENTER}", {{keys::enter, none, 13}}},
        {"{tab}", {{keys::tab, none, 0}}},
        {"{BS}{BKSP}{BACKSPACE}",
         {{keys::backspace, none, 8}, {keys::backspace, none, 8}, {keys::backspace, none, 8}}},
        {"{DEL}{Delete}", {{keys::del, none, 0}, {keys::del, none, 0}}},
        {"{F1}{F10}{F12}", {{keys::f1, none, 0}, {keys::f10, none, 0}, {123, none, 0}}},
        {"{LEFT 3}", {{keys::left, none, 0, 3}}},
        {"{PGDN  12 }", {{keys::pageDown, none, 0, 12}}},
        {"{x 4}", {{'X', none, 'x', 4}}},
        {"{\xC3\xA9 2}", {{231, none, 0xE9, 2}}},
        {"{  2}", {{keys::space, none, ' ', 2}}},
        {"{+}{^}{%}", {{187, shift, '+'}, {'6', shift, '^'}, {'5', shift, '%'}}},
        {"{~}{(}{)}", {{192, shift, '~'}, {'9', shift, '('}, {'0', shift, ')'}}},
        {"{{}{}}", {{219, shift, '{'}, {221, shift, '}'}}},
        {"{} 2}", {{221, shift, '}', 2}}},
        {"^c", {{'C', control, 'c'}}},
        {"^C", {{'C', control | shift, 'C'}}},
        {"%n+{TAB}", {{'N', alt, 'n'}, {keys::tab, shift, 0}}},
        {"^+{END}", {{keys::end, control | shift, 0}}},
        {"+(ab)c", {{'A', shift, 'A'}, {'B', shift, 'B'}, {'C', none, 'c'}}},
        {"^(a+(b)c)", {{'A', control, 'a'}, {'B', control | shift, 'B'}, {'C', control, 'c'}}},
        {"(a)", {{'A', none, 'a'}}},
        {"1500{ENTER}",
         {{'1', none, '1'},
          {'5', none, '5'},
          {'0', none, '0'},
          {'0', none, '0'},
          {keys::enter, none, 13}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parseKeyNotation(row.notation), row.strokes) << row.notation;
}

TEST(KeyNotationTest, RefusesWhatIsMalformed) {
    const std::string_view rows[] = {
        "{",
        "}",
        "a}",
        "{}",
        "{}x",
        "{ENTER",
        "{NOSUCHKEY}",
        "{LEFT 0}",
        "{LEFT -1}",
        "{LEFT 3x}",
        "{LEFT 3 4}",
        "{LEFT }",
        "{LEFT 1000001}",
        "{LEFT 99999999999999999999}",
        "{LEFT 1e3}",
        "{F0}",
        "{F13}",
        "{ENTER}}",
        "(",
        ")",
        "(a",
        "a)",
        "()",
        "+()",
        "(+)",
        "+",
        "a^",
        "%",
        "((a)",
        "\n",
        "a\tb",
        "\x7F",
        "\x80",
        "a\xC3",
        "{\xFF}",
        "\xED\xA0\x80",
        "{\n}",
        "{\xC3\xA9\xC3\xA9}",
    };
    for (const auto& row : rows)
        EXPECT_THROW(static_cast<void>(parseKeyNotation(row)), std::invalid_argument) << row;
}

TEST(KeyNotationTest, DeepNestingDoesNotRunOver) {
    constexpr std::size_t depth = 200000;
    const std::string open(depth, '(');
    const std::string close(depth, ')');
    EXPECT_EQ(parseKeyNotation(open + "a" + close).size(), 1U);
    EXPECT_THROW(static_cast<void>(parseKeyNotation(open)), std::invalid_argument);
}

} // namespace
} // namespace vkr
