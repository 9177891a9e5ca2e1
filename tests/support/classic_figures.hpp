// SPDX-License-Identifier: MIT
#pragma once

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale.h>
#include <string>

namespace vkr::test {

// What the C library makes of figures, with a point whatever locale the tests run in.
class ClassicLocale {
  public:
    ClassicLocale() : before_(uselocale(classic())) {}
    ~ClassicLocale() { uselocale(before_); }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;

  private:
    static locale_t classic() {
        static const locale_t made = newlocale(LC_ALL_MASK, "C", nullptr);
        return made;
    }
    locale_t before_;
};

inline double readFigure(const std::string& text) {
    const ClassicLocale classic;
    return std::strtod(text.c_str(), nullptr);
}

inline std::string fixedFigure(double value, int digits) {
    const ClassicLocale classic;
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

} // namespace vkr::test
