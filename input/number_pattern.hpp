// SPDX-License-Identifier: MIT
#pragma once

#include "platform/number_marks.hpp"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

struct Decimal;

// Of figures whose pattern is none.
inline constexpr std::string_view fallbackNumberPattern = "#0.00";

// A display pattern for numbers, read once and used for many figures. The pattern itself has
// en-US marks.
//
//   0 #        digit, digit or nothing        , between digits   groups of thousands
//   .          decimal mark                   , after the digits divides by 1000, each one
//   %          times 100                      E+ E- e+ e-        exponent
//   "text" \c  as it stands                   ;                  next section
//
// Sections are positive;negative;zero (a fourth one is accepted and not used). A missing or empty
// negative or zero section is the positive one, negatives then with a leading "-"; an empty
// positive section and an empty pattern are the shortest plain text. Other characters stand as
// they are. The names "General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific",
// "Yes/No", "True/False" and "On/Off" are patterns too, in any case.
//
// Rounds half away from zero on the decimal text of at most 15 digits: 1.005 is "1.01" with
// "0.00". The value chooses the section, not what is left of it: 0.001 is never shown by the one
// for zero. The leading "-" is left out where only zeros would follow; what a negative section has
// for a sign always stands. What is not finite is "".
//
// A pattern of more than maxLength bytes is fallbackNumberPattern.
class NumberPattern {
  public:
    static constexpr std::size_t maxLength = 255;

    NumberPattern() : NumberPattern(std::string_view()) {}
    explicit NumberPattern(std::string_view pattern);

    [[nodiscard]] std::string format(double value, const NumberMarks& marks = {}) const;

  private:
    // Text between the digits, before the digit with `place` digits still to come.
    struct Literal {
        int place = 0;
        std::string text;
    };
    struct Section {
        bool present = false;
        bool hasDigits = false;
        bool hasPoint = false;
        bool grouped = false;
        int integerPlaces = 0;
        int minInteger = 0;
        int minFraction = 0;
        int maxFraction = 0;
        int scale = 0; // power of ten
        char exponentMark = 0;
        bool exponentPlus = false;
        int exponentDigits = 0;
        std::string prefix;
        std::string suffix;
        std::vector<Literal> integerLiterals;
        std::vector<Literal> fractionLiterals;
    };

    class SectionReader;
    static Section compile(std::string_view text);
    static Decimal rounded(const Section& section, double magnitude);
    static std::string written(const Section& section, Decimal number, bool minus,
                               const NumberMarks& marks);
    [[nodiscard]] const Section& sectionFor(int sign) const;

    std::array<Section, 3> sections_;
};

// With a pattern that is read on its first use and kept for the next ones.
[[nodiscard]] std::string formatNumber(double value, std::string_view pattern,
                                       const NumberMarks& marks = {});

} // namespace vkr
