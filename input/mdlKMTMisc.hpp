// SPDX-License-Identifier: MIT
#pragma once

#include "form/key_filter.hpp"
#include "input/mdlKMTMisc_values.hpp"
#include "platform/form.hpp"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vkr {

// Shared conversions and field helpers. A conversion that fails leaves the result it had reached,
// usually the empty string, and throws nothing unless said so.

// --- values ---------------------------------------------------------------------------------

// The text of a decimal number as whole number and eighths: "3.125" is "3 1/8". A value of 0 is
// the empty string, unless keepZero. 0.938 and more behind the point is written as "1/1" after the
// unchanged whole number.
[[nodiscard]] std::string DecimalToFraction(std::string_view text, bool keepZero);

// --- fields ---------------------------------------------------------------------------------

// Shows a value that has been scaled already: formatted when it is above zero, or other than zero
// where negatives are allowed; else as an empty field. The tag gets the same text.
void ShowScaledValue(double value, std::string_view pattern, TextField& field, bool allowNegative);

// One row of cells: cell i shows values[i] x unitFactor (a power of ten); cells beyond the values
// keep what they show and are disabled. `asPrices` shows each text in eighths.
void ShowScaledValueRow(bool perYear, std::string_view pattern, std::span<const double> values,
                        std::span<TextBox* const> fields, bool allowNegative, double unitFactor,
                        bool asPrices);

// Rewrites one price field between decimals and eighths, sign outside of the conversion. The tag
// follows the text where it did before.
void ConvertPriceText(bool toDecimal, TextField& field);

// 3, 0 or -3 for the unit factors 1000, 1 and 0.001.
[[nodiscard]] int UnitExponent(double unitFactor);

// Shown value of a stored one: times the unit factor (1000, 1 or 0.001), without stray digits.
[[nodiscard]] double ScaledForDisplay(double stored, double unitFactor);
// Stored value of a typed one: the plain decimal text divided by the unit factor, exactly rounded.
[[nodiscard]] double UnscaledFromText(std::string_view cleanText, double unitFactor);

// --- keys and focus ---------------------------------------------------------------------------

// Accepts, swallows (0) or rewrites one typed character. Enter sends a Tab. Answers whether the
// character was refused: swallowed without doing what was meant by it.
bool FilterNumericKey(char32_t& key, bool numeric, bool freeText, TextField& field,
                      bool allowNegative, bool upperCase);
bool FilterNumericKey(char32_t& key, TextField& field, const KeyFilter& filter);

void SelectAllText(TextBox& field);
void SelectAllCombo(ComboBox& field);

// Up and Down become Enter in their direction; Enter moves in the last direction. `fields` are the
// column's fields that can take the focus; -1 stands for a field outside of it.
void MoveInColumn(int index, std::int16_t& lastVerticalDirection, KeyCode& key,
                  std::span<TextBox* const> fields);

// Arrow, Home and End keys; targets may be null where there is none.
void MoveInGrid(KeyCode key, std::span<TextBox* const> fields, int index, Control* right,
                Control* left, Control* home, Control* end);

} // namespace vkr
