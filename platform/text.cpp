// SPDX-License-Identifier: MIT
#include "platform/text.hpp"

#include <algorithm>
#include <limits>

namespace vkr {

namespace {

std::size_t byteOffset(std::string_view text, int characters) {
    std::size_t offset = 0;
    for (int i = 0; i < characters && offset < text.size(); ++i)
        offset += characterSize(text.substr(offset));
    return offset;
}

} // namespace

std::size_t characterSize(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t wanted = lead < 0xC2   ? 1
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 1;
    if (wanted > text.size())
        return 1;
    for (std::size_t i = 1; i < wanted; ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U)
            return 1;
    if (wanted > 2) { // neither overlong nor a surrogate nor beyond the last character
        const auto second = static_cast<unsigned char>(text[1]);
        if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ||
            (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90))
            return 1;
    }
    return wanted;
}

int textLength(std::string_view text) {
    int length = 0;
    for (std::size_t offset = 0; offset < text.size(); ++length)
        offset += characterSize(text.substr(offset));
    return length;
}

std::string_view textMiddle(std::string_view text, int start, int count) {
    const auto rest = text.substr(byteOffset(text, std::max(start, 0)));
    return rest.substr(0, byteOffset(rest, std::max(count, 0)));
}

std::string_view textLeft(std::string_view text, int count) {
    return textMiddle(text, 0, count);
}

std::string_view textFrom(std::string_view text, int start) {
    return text.substr(byteOffset(text, std::max(start, 0)));
}

char32_t firstCharacter(std::string_view text) {
    if (text.empty())
        return 0;
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[i]));
    };
    switch (characterSize(text)) {
    case 2:
        return ((byte(0) & 0x1FU) << 6U) | (byte(1) & 0x3FU);
    case 3:
        return ((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
    case 4:
        return ((byte(0) & 0x07U) << 18U) | ((byte(1) & 0x3FU) << 12U) | ((byte(2) & 0x3FU) << 6U) |
               (byte(3) & 0x3FU);
    default:
        return byte(0);
    }
}

void appendCharacter(std::string& text, char32_t character) {
    if (character >= 0xD800U && character < 0xE000U)
        return; // half of a surrogate pair
    const auto put = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    if (character < 0x80U) {
        put(character);
    } else if (character < 0x800U) {
        put(0xC0U | (character >> 6U));
        put(0x80U | (character & 0x3FU));
    } else if (character < 0x10000U) {
        put(0xE0U | (character >> 12U));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    } else if (character < 0x110000U) {
        put(0xF0U | (character >> 18U));
        put(0x80U | ((character >> 12U) & 0x3FU));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    }
}

char32_t upperCase(char32_t character) {
    const auto within = [&](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    if (within('a', 'z'))
        return character - 0x20U;
    if (within(0xE0, 0xFE) && character != 0xF7)
        return character - 0x20U;
    if (character == 0xFF)
        return 0x178;
    // Latin Extended-A: pairs with the capital on the even number, then on the odd one.
    if (within(0x100, 0x137) || within(0x14A, 0x177))
        return character == 0x131 ? U'I' : character & ~char32_t{1};
    if (within(0x139, 0x148) || within(0x179, 0x17E))
        return (character & 1U) != 0 ? character : character - 1;
    if (within(0x3B1, 0x3CB))
        return character == 0x3C2 ? 0x3A3 : character - 0x20U; // there is one capital sigma
    if (character == 0x3AC)
        return 0x386;
    if (within(0x3AD, 0x3AF))
        return character - 0x25U;
    if (character == 0x3CC)
        return 0x38C;
    if (within(0x3CD, 0x3CE))
        return character - 0x3FU;
    if (within(0x430, 0x44F))
        return character - 0x20U;
    if (within(0x450, 0x45F))
        return character - 0x50U;
    return character;
}

std::string upperCase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto size = characterSize(text);
        if (size == 1)
            result.push_back(static_cast<unsigned char>(text.front()) < 0x80U
                                 ? static_cast<char>(upperCase(firstCharacter(text)))
                                 : text.front());
        else
            appendCharacter(result, upperCase(firstCharacter(text)));
        text.remove_prefix(size);
    }
    return result;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    // Bytes that are no character are like themselves alone.
    constexpr char32_t firstByte = 0x110000;
    const auto take = [](std::string_view& text) {
        const auto size = characterSize(text);
        const auto byte = static_cast<unsigned char>(text.front());
        const char32_t taken =
            size == 1 && byte >= 0x80U ? firstByte + byte : upperCase(firstCharacter(text));
        text.remove_prefix(size);
        return taken;
    };
    while (!left.empty() && !right.empty())
        if (take(left) != take(right))
            return false;
    return left.empty() && right.empty();
}

std::string_view trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool isBlockOfCells(std::string_view text) {
    const auto isBreak = [](char32_t c) {
        return c < U' ' || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
    };
    bool begun = false;
    bool broken = false;
    for (text = trimmed(text); !text.empty(); text = textFrom(text, 1)) {
        const bool breaks = isBreak(firstCharacter(text));
        if (!breaks && broken)
            return true;
        begun = begun || !breaks;
        broken = begun && breaks;
    }
    return false;
}

std::string cleanedPaste(std::string_view text, FieldLines lines) {
    if (lines == FieldLines::one && text.ends_with('\n'))
        text.remove_suffix(1);
    if (lines == FieldLines::one && text.ends_with('\r'))
        text.remove_suffix(1);
    return cleanedText(text, lines);
}

std::string cleanedText(std::string_view text, FieldLines lines) {
    constexpr char32_t replacement = 0xFFFD;
    std::string cleaned;
    bool carriageReturn = false;
    while (!text.empty()) {
        const auto bytes = textLeft(text, 1);
        char32_t character = firstCharacter(text);
        text.remove_prefix(bytes.size());
        if (bytes.size() == 1 && character >= 0x80)
            character = replacement;
        const bool secondHalf = carriageReturn && character == '\n';
        carriageReturn = character == '\r';
        if (secondHalf)
            continue;
        const bool breaks =
            character == '\r' || character == '\n' || character == 0x2028 || character == 0x2029;
        if (breaks || character == '\t')
            appendCharacter(cleaned, lines == FieldLines::one ? U' ' : breaks ? U'\n' : character);
        else if (character >= 0x20 && (character < 0x7F || character > 0x9F))
            appendCharacter(cleaned, character);
    }
    return cleaned;
}

char32_t mnemonicOf(std::string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&')
            continue;
        if (caption[i + 1] != '&')
            return upperCase(firstCharacter(caption.substr(i + 1)));
        ++i;
    }
    return 0;
}

std::string withoutMnemonic(std::string_view caption) {
    std::string result(caption);
    // What follows a mark stays, be it another mark.
    for (std::size_t mark = 0; (mark = result.find('&', mark)) != std::string::npos; ++mark)
        result.erase(mark, 1);
    return result;
}

std::string literalCaption(std::string_view text) {
    std::string result;
    for (const char byte : text)
        result.append(byte == '&' ? 2 : 1, byte);
    return result;
}

} // namespace vkr
