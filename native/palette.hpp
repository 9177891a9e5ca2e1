// SPDX-License-Identifier: MIT
#pragma once

#include "native/drawing.hpp"
#include "platform/text_field.hpp"

#include <map>

namespace vkr {

// The colours of the models as this desktop shows them. Where it asks for high contrast its own
// colours take their place, but for shades that say something.
class Palette {
  public:
    Palette() { follow(); }

    // After a change of the system's colours.
    void follow();
    // The same, on a desktop that asks for high contrast or does not.
    void follow(bool highContrast);

    struct Pair {
        COLORREF back = 0;
        COLORREF fore = 0;
    };
    [[nodiscard]] Pair field(const Control& field) const;
    // Of everything else that carries a text.
    [[nodiscard]] Pair surface(const Control& control) const;
    // The colour of a mark at a field; CLR_NONE without one.
    [[nodiscard]] COLORREF mark(const TextField& field) const;
    [[nodiscard]] COLORREF origin(const TextField& field) const; // of the corner for it
    [[nodiscard]] COLORREF edge() const;                         // of a patch of colour on the page
    [[nodiscard]] bool highContrast() const { return highContrast_; }
    // A colour of a model; system colours are looked up.
    [[nodiscard]] static COLORREF plain(Color color);
    [[nodiscard]] HBRUSH brush(COLORREF color);

  private:
    bool highContrast_ = false;
    COLORREF face_ = 0;
    std::map<COLORREF, Gdi<HBRUSH>> brushes_;
};

} // namespace vkr
