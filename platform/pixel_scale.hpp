// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"

namespace vkr {

// A place in pixels within the container.
struct PixelPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelPlace&, const PixelPlace&) = default;
};

// Twips to pixels. Edges are rounded, not sizes, so that neighbours stay neighbours.
class PixelScale {
  public:
    static constexpr double twipsPerInch = 1440;

    explicit PixelScale(double dotsPerInch = 96) : dotsPerInch_(dotsPerInch) {}

    [[nodiscard]] double dotsPerInch() const { return dotsPerInch_; }
    [[nodiscard]] int pixels(Twips twips) const;
    [[nodiscard]] Twips twips(double pixels) const { return pixels * twipsPerInch / dotsPerInch_; }
    [[nodiscard]] PixelPlace place(const Control& control) const;
    // Height of the form's letters.
    [[nodiscard]] int fontPixels() const;

  private:
    double dotsPerInch_;
};

} // namespace vkr
