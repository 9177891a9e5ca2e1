// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object.hpp"

#include <string>

namespace vkr {

// A picture as scalable vector image text; an empty text is no picture.
struct Picture {
    int id = 0;
    std::string svg;

    [[nodiscard]] bool empty() const { return svg.empty(); }
    friend bool operator==(const Picture&, const Picture&) = default;
};

// Turns string numbers into captions, messages and help texts.
class Localizer : public Object {
  public:
    // The text behind a string number; the empty string where there is none.
    [[nodiscard]] virtual std::string LoadString(int number) const = 0;
    // The picture behind a number; `kind` 0 is the only kind in use. Empty where there is none.
    [[nodiscard]] virtual Picture LoadPicture(int number, int kind) const = 0;
};

inline constexpr std::string_view standardLocalizerId = "iVKR_DataEntry.Localizer";
inline constexpr std::string_view zxLocalizerId = "iVKR_ZX_DataEntry.Localizer";

} // namespace vkr
