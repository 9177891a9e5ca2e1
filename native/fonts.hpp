// SPDX-License-Identifier: MIT
#pragma once

#include "native/drawing.hpp"
#include "platform/pixel_scale.hpp"

#include <array>
#include <map>
#include <string_view>

namespace vkr {

// The dialog font of the system in the size of the form, and how wide texts are in it.
class Fonts {
  public:
    explicit Fonts(const PixelScale& scale);

    [[nodiscard]] HFONT plain() const { return plain_.get(); }
    [[nodiscard]] HFONT underlined();
    // The widest one in which a text fits, though not narrower than a part of the plain one.
    template <typename Width>
    [[nodiscard]] HFONT fitting(int room, int narrowestPercent, Width&& widthIn) {
        int letter = averageWidth_ - 1;
        for (; letter > 1 && letter * 100 > averageWidth_ * narrowestPercent; --letter)
            if (widthIn(condensed(letter)) <= room)
                break;
        return condensed(letter);
    }
    [[nodiscard]] HFONT fitting(std::wstring_view text, int room, int narrowestPercent);
    [[nodiscard]] int widthOf(std::wstring_view text) const;
    [[nodiscard]] int height() const { return height_; }

  private:
    [[nodiscard]] HFONT condensed(int letterWidth);

    LOGFONTW look_{};
    Gdi<HFONT> plain_;
    Gdi<HFONT> underlined_;
    std::map<int, Gdi<HFONT>> condensed_;
    std::array<int, 128> widths_{}; // of the characters of most figures
    int averageWidth_ = 1;
    int height_ = 0;
};

} // namespace vkr
