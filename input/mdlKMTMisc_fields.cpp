// SPDX-License-Identifier: MIT
#include "input/field_text.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"
#include "platform/ascii.hpp"
#include "platform/error_trap.hpp"
#include "platform/key_codes.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

namespace {

bool holds(std::string_view text, char character) {
    return text.find(character) != std::string_view::npos;
}

// The sign stands outside of the conversion, so that -1/2 keeps it.
std::string convertedPrice(bool toDecimal, std::string text) {
    const bool negative = holds(text, '-');
    if (negative)
        ReplaceAll(text, "-", "");
    std::string converted = toDecimal ? FractionToDecimal(text) : DecimalToFraction(text, false);
    return negative && !converted.empty() ? "-" + converted : converted;
}

// Without it the digits on both sides of a hyphen are one figure.
bool hasMinusBetweenDigits(std::string_view text) {
    for (std::size_t i = 1; i + 1 < text.size(); ++i)
        if (text[i] == '-' && isAsciiDigit(text[i - 1]) && isAsciiDigit(text[i + 1]))
            return true;
    return false;
}

// What is selected stays so: the figure that follows replaces it.
void takeSignOff(TextField& field) {
    std::string unsignedText = field.text();
    ReplaceAll(unsignedText, "-", "");
    const auto signsIn = [](std::string_view part) {
        return static_cast<int>(std::count(part.begin(), part.end(), '-'));
    };
    const int start = field.selStart() - signsIn(textLeft(field.text(), field.selStart()));
    const int length = field.selLength() - signsIn(field.selText());
    field.editText(unsignedText, start);
    field.select(start, length);
}

// What of the text stays where a key replaces the selection.
std::string textThatStays(const TextField& field) {
    std::string stays(textLeft(field.text(), field.selStart()));
    stays += textFrom(field.text(), field.selStart() + field.selLength());
    return stays;
}

// The sign and digits behind it, with more behind these: what is typed over them has a sign anew.
bool replacesSign(const TextField& field) {
    return field.selText().size() > 1 && field.selText().starts_with('-') &&
           !holds(textThatStays(field), '-');
}

// Accounting brackets are a minus, and so is a minus over all digits that stand there: what is
// typed is another figure. Whether the key is settled by that.
bool takeAsSign(char32_t& key, TextField& field) {
    if (key == U')' && field.text().starts_with('-')) {
        key = 0;
        return true;
    }
    const std::string stays = textThatStays(field);
    const bool all = stays.empty() || (stays == "-" && field.selLength() > 0);
    if ((key != U'(' && key != U'-') || !all)
        return false;
    field.select(0, textLength(field.text()));
    key = U'-';
    return true;
}

// A character of a figure, the decimal mark in place of the keypad's key, or nothing. False where
// the key is swallowed and has the effect that was meant.
bool takeInFigure(char32_t& key, TextField& field, bool allowNegative) {
    const std::string& text = field.text();
    const char mark = field.form().numberMarks().decimal;
    if (key == static_cast<char32_t>(mark) || field.form().pressedKey() == keys::decimal) {
        const bool second = holds(text, mark) || holds(text, '/');
        key = second && !holds(field.selText(), mark) ? U'\0' : static_cast<char32_t>(mark);
        return true;
    }
    switch (key) {
    case U'/':
        if (text.empty() || holds(text, mark) || holds(text, '/') || text.back() == '+' ||
            text.back() == '-')
            key = 0;
        return true;
    case U'-':
        if (holds(text, '-') && !(allowNegative && replacesSign(field))) {
            key = 0;
            const bool joins = hasMinusBetweenDigits(text);
            takeSignOff(field);
            return joins;
        }
        if (!allowNegative || holds(text, '+'))
            key = 0;
        return true;
    case U'+':
        if (!text.empty())
            key = 0;
        return true;
    default:
        if (key < U'0' || key > U'9')
            key = 0;
        return true;
    }
}

} // namespace

void ShowScaledValue(double value, std::string_view pattern, TextField& field, bool allowNegative) {
    const bool shown = allowNegative ? value != 0 : value > 0;
    field.showStored(shown ? formatNumber(value, pattern, field.form().numberMarks())
                           : std::string());
}

void ShowScaledValueRow(bool /*perYear*/, std::string_view pattern, std::span<const double> values,
                        std::span<TextBox* const> fields, bool allowNegative, double unitFactor,
                        bool asPrices) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        TextBox& field = *fields[i];
        field.setEnabled(i < values.size());
        if (i >= values.size())
            continue;
        ShowScaledValue(ScaledForDisplay(values[i], unitFactor), pattern, field, allowNegative);
        if (asPrices)
            ConvertPriceText(false, field);
    }
}

void ConvertPriceText(bool toDecimal, TextField& field) {
    ifPossible([&] {
        const bool accepted = !field.isTyped();
        const NumberMarks& marks = field.form().numberMarks();
        const std::string plain = exchangeMarks(field.text(), marks);
        field.setText(exchangeMarks(convertedPrice(toDecimal, plain), marks));
        if (accepted)
            field.acceptText();
    });
}

int UnitExponent(double unitFactor) {
    return unitFactor == 1000 ? 3 : unitFactor == 0.001 ? -3 : 0;
}

double ScaledForDisplay(double stored, double unitFactor) {
    return scaleValue(stored, UnitExponent(unitFactor));
}

double UnscaledFromText(std::string_view cleanText, double unitFactor) {
    return shiftDecimal(cleanText, -UnitExponent(unitFactor));
}

bool FilterNumericKey(char32_t& key, bool numeric, bool freeText, TextField& field,
                      bool allowNegative, bool upperCase) {
    if (key == U'\r') {
        if (field.kind() == ControlKind::textBox)
            key = 0;
        field.form().sendKey(keys::tab);
        return false;
    }
    if (key == keys::backspace || key == U' ')
        return false;
    bool refused = key > U' '; // where it is swallowed
    if (!numeric) {
        const char32_t letter = vkr::upperCase(key);
        if (letter < U'A' || letter > U'Z')
            key = 0;
    } else if (!freeText) {
        if (allowNegative && takeAsSign(key, field))
            return false;
        refused = takeInFigure(key, field, allowNegative) && refused;
    }
    if (upperCase)
        key = vkr::upperCase(key);
    return refused && key == 0;
}

bool FilterNumericKey(char32_t& key, TextField& field, const KeyFilter& filter) {
    return FilterNumericKey(key, filter.numeric, filter.freeText, field, filter.allowNegative,
                            filter.upperCase);
}

void SelectAllText(TextBox& field) {
    field.select(0, textLength(field.text()));
}
void SelectAllCombo(ComboBox& field) {
    field.select(0, textLength(field.text()));
}

void MoveInColumn(int index, std::int16_t& lastVerticalDirection, KeyCode& key,
                  std::span<TextBox* const> fields) {
    if (key == keys::up || key == keys::down) {
        lastVerticalDirection = key == keys::up ? 1 : 0;
        key = keys::enter;
    }
    if (key != keys::enter)
        return;
    const int target = lastVerticalDirection == 0 ? index + 1 : index - 1;
    if (target >= 0 && target < static_cast<int>(fields.size()))
        fields[static_cast<std::size_t>(target)]->setFocus();
}

void MoveInGrid(KeyCode key, std::span<TextBox* const> fields, int index, Control* right,
                Control* left, Control* home, Control* end) {
    const int last = static_cast<int>(fields.size()) - 1;
    const auto cell = [&](int i) -> Control* { return fields[static_cast<std::size_t>(i)]; };
    const auto targetOf = [&]() -> Control* {
        switch (key) {
        case keys::right:
            return right;
        case keys::left:
            return left;
        case keys::down:
            return index >= last ? right : cell(index + 1);
        case keys::up:
            return last < 0 ? nullptr : index <= 0 ? cell(last) : cell(index - 1);
        case keys::home:
            return home;
        case keys::end:
            return end;
        default:
            return nullptr;
        }
    };
    if (Control* const target = targetOf(); target != nullptr)
        target->setFocus();
}

} // namespace vkr
