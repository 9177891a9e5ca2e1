// SPDX-License-Identifier: MIT
#include "platform/pixel_scale.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

int PixelScale::pixels(Twips twips) const {
    return static_cast<int>(std::lround(twips * dotsPerInch_ / twipsPerInch));
}

PixelPlace PixelScale::place(const Control& control) const {
    const int left = pixels(control.left());
    const int top = pixels(control.top());
    return {left, top, pixels(control.left() + control.width()) - left,
            pixels(control.top() + control.height()) - top};
}

int PixelScale::fontPixels() const {
    constexpr Twips fontSize = 165; // 8.25 points
    return std::max(1, pixels(fontSize));
}

} // namespace vkr
