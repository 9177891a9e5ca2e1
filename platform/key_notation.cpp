// SPDX-License-Identifier: MIT
#include "platform/key_notation.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string>

namespace vkr {

namespace {

constexpr int maximumCount = 1000000;
constexpr KeyCode noKeyOfItsOwn = 231; // a character that no key of the keyboard carries

struct NamedKey {
    std::string_view name;
    KeyCode key;
    char32_t character;
};
constexpr NamedKey namedKeys[] = {
    {"ENTER", keys::enter, 13},  {"TAB", keys::tab, 0},
    {"ESC", keys::escape, 27},   {"BACKSPACE", keys::backspace, 8},
    {"BS", keys::backspace, 8},  {"BKSP", keys::backspace, 8},
    {"DELETE", keys::del, 0},    {"DEL", keys::del, 0},
    {"INSERT", keys::insert, 0}, {"INS", keys::insert, 0},
    {"HOME", keys::home, 0},     {"END", keys::end, 0},
    {"LEFT", keys::left, 0},     {"RIGHT", keys::right, 0},
    {"UP", keys::up, 0},         {"DOWN", keys::down, 0},
    {"PGUP", keys::pageUp, 0},   {"PGDN", keys::pageDown, 0},
    {"MENU", keys::menu, 0},     {"DECIMAL", keys::decimal, '.'},
    {"F1", keys::f1, 0},         {"F2", keys::f1 + 1, 0},
    {"F3", keys::f1 + 2, 0},     {"F4", keys::f1 + 3, 0},
    {"F5", keys::f1 + 4, 0},     {"F6", keys::f1 + 5, 0},
    {"F7", keys::f1 + 6, 0},     {"F8", keys::f1 + 7, 0},
    {"F9", keys::f1 + 8, 0},     {"F10", keys::f10, 0},
    {"F11", keys::f10 + 1, 0},   {"F12", keys::f10 + 2, 0},
};

struct CharacterKey {
    KeyCode key;
    char plain;
    char shifted;
};
constexpr CharacterKey characterKeys[] = {
    {'1', '1', '!'},  {'2', '2', '@'}, {'3', '3', '#'}, {'4', '4', '$'},  {'5', '5', '%'},
    {'6', '6', '^'},  {'7', '7', '&'}, {'8', '8', '*'}, {'9', '9', '('},  {'0', '0', ')'},
    {186, ';', ':'},  {187, '=', '+'}, {188, ',', '<'}, {189, '-', '_'},  {190, '.', '>'},
    {191, '/', '?'},  {192, '`', '~'}, {219, '[', '{'}, {220, '\\', '|'}, {221, ']', '}'},
    {222, '\'', '"'}, {32, ' ', ' '},
};

[[noreturn]] void malformed(std::string_view why) {
    throw std::invalid_argument("malformed keys: " + std::string(why));
}

// The next character, taken off the front.
char32_t takeCharacter(std::string_view& rest) {
    const auto bytes = textLeft(rest, 1);
    const auto character = firstCharacter(rest);
    if (bytes.size() == 1 && character >= 0x80)
        malformed("no valid UTF-8");
    if (character < 0x20 || character == 0x7F)
        malformed("a control character; keys have names such as {ENTER}");
    rest.remove_prefix(bytes.size());
    return character;
}

KeyStroke strokeFor(char32_t character, int shift) {
    const auto upper = upperCase(character);
    if (upper >= 'A' && upper <= 'Z') {
        if (character == upper)
            shift |= shifts::shift;
        return {static_cast<KeyCode>(upper), shift,
                (shift & shifts::shift) != 0 ? upper : character};
    }
    for (const auto& row : characterKeys) {
        if (character == static_cast<char32_t>(row.plain))
            return {row.key, shift,
                    static_cast<char32_t>((shift & shifts::shift) != 0 ? row.shifted : row.plain)};
        if (character == static_cast<char32_t>(row.shifted))
            return {row.key, shift | shifts::shift, character};
    }
    return {noKeyOfItsOwn, shift, (shift & shifts::shift) != 0 ? upper : character};
}

KeyStroke strokeNamed(std::string_view name, int shift) {
    const auto wanted = upperCase(name);
    for (const auto& row : namedKeys)
        if (row.name == wanted)
            return {row.key, shift, row.character};
    malformed("no key named {" + std::string(name) + "}");
}

int countOf(std::string_view digits) {
    int count = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, count);
    if (error != std::errc() || stop != end || count < 1 || count > maximumCount)
        malformed("a count is 1 to " + std::to_string(maximumCount));
    return count;
}

// What stands between braces; `rest` begins behind the opening one.
KeyStroke takeBraces(std::string_view& rest, int shift) {
    const auto first = textLeft(rest, 1).size(); // a closing brace may be the character itself
    const auto close = rest.find('}', first);
    if (first == 0 || close == std::string_view::npos)
        malformed("a brace without its other one");
    const auto blank = std::min(rest.find(' ', first), close);
    auto name = rest.substr(0, blank);
    const int count = blank == close ? 1 : countOf(trimmed(rest.substr(blank, close - blank)));
    rest.remove_prefix(close + 1);

    KeyStroke stroke;
    if (textLength(name) == 1)
        stroke = strokeFor(takeCharacter(name), shift);
    else
        stroke = strokeNamed(name, shift);
    stroke.count = count;
    return stroke;
}

} // namespace

std::vector<KeyStroke> parseKeyNotation(std::string_view notation) {
    struct Group {
        int shift;
        std::size_t begin; // strokes there were when it opened
    };
    std::vector<KeyStroke> strokes;
    std::vector<Group> groups{{shifts::none, 0}};
    int held = shifts::none; // for the next key or group alone
    for (auto rest = notation; !rest.empty();) {
        const int shift = held | groups.back().shift;
        switch (rest.front()) {
        case '+':
            held |= shifts::shift;
            break;
        case '^':
            held |= shifts::control;
            break;
        case '%':
            held |= shifts::alt;
            break;
        case '(':
            groups.push_back({shift, strokes.size()});
            held = shifts::none;
            break;
        case ')':
            if (groups.size() == 1)
                malformed("a closing parenthesis without its opening one");
            if (held != shifts::none || groups.back().begin == strokes.size())
                malformed("a key is missing in front of a closing parenthesis");
            groups.pop_back();
            break;
        case '}':
            malformed("a brace without its other one");
        case '{':
            rest.remove_prefix(1);
            strokes.push_back(takeBraces(rest, shift));
            held = shifts::none;
            continue;
        case '~':
            strokes.push_back(strokeNamed("ENTER", shift));
            held = shifts::none;
            break;
        default:
            strokes.push_back(strokeFor(takeCharacter(rest), shift));
            held = shifts::none;
            continue;
        }
        rest.remove_prefix(1);
    }
    if (groups.size() > 1)
        malformed("an opening parenthesis without its closing one");
    if (held != shifts::none)
        malformed("a key is missing behind + ^ or %");
    return strokes;
}

} // namespace vkr
