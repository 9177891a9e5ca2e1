// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vkr {

// UTF-8 text by characters (code points). Bytes that are no valid UTF-8 count as one character
// each, so that no input can run out of bounds.

// Bytes that the character at the front of `text` takes; 1 for a byte that starts none.
[[nodiscard]] std::size_t characterSize(std::string_view text);
[[nodiscard]] int textLength(std::string_view text);
// `count` characters from `start` (0-based); out of range is cut to what is there.
[[nodiscard]] std::string_view textMiddle(std::string_view text, int start, int count);
[[nodiscard]] std::string_view textLeft(std::string_view text, int count);
[[nodiscard]] std::string_view textFrom(std::string_view text, int start);
[[nodiscard]] char32_t firstCharacter(std::string_view text); // 0 for an empty text
// What is no character, such as half of a surrogate pair, is left out.
void appendCharacter(std::string& text, char32_t character);

// Upper case of a single character; Latin, Greek and Cyrillic letters, others unchanged.
[[nodiscard]] char32_t upperCase(char32_t character);
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] bool equalsIgnoringCase(std::string_view left, std::string_view right);

[[nodiscard]] std::string_view trimmed(std::string_view text); // without surrounding blanks

enum class FieldLines { one, several };
// A text as fields take it: without control characters; in a field with one line, line breaks and
// tabs are blanks, in others every line break is LF. Bytes that are no valid UTF-8 become U+FFFD.
[[nodiscard]] std::string cleanedText(std::string_view text, FieldLines lines);
// The same for a pasted text: where the field has one line, a line break at the end, as
// spreadsheets put behind a cell, is dropped.
[[nodiscard]] std::string cleanedPaste(std::string_view text, FieldLines lines);

// Whether a text is several cells of a spreadsheet, or several lines: tabs or line breaks part it.
[[nodiscard]] bool isBlockOfCells(std::string_view text);

// The letter behind "&" in a caption, in upper case; 0 where there is none. "&&" is a plain "&".
[[nodiscard]] char32_t mnemonicOf(std::string_view caption);
[[nodiscard]] std::string withoutMnemonic(std::string_view caption);
// The caption that shows a text as it stands, with every "&" in it.
[[nodiscard]] std::string literalCaption(std::string_view text);

} // namespace vkr
