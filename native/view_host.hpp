// SPDX-License-Identifier: MIT
#pragma once

#include "native/fonts.hpp"
#include "native/palette.hpp"
#include "platform/form.hpp"
#include "platform/pixel_scale.hpp"
#include "platform/press.hpp"

#include <optional>
#include <string_view>

namespace vkr {

class ControlWindow;

// What the windows of the controls need of the one of the form. It hears of everything that is
// pressed, and decides by its form what becomes of it.
class ViewHost {
  public:
    virtual ~ViewHost() = default;

    [[nodiscard]] virtual Form& form() const = 0;
    [[nodiscard]] virtual const PixelScale& scale() const = 0;
    [[nodiscard]] virtual Fonts& fonts() = 0;
    [[nodiscard]] virtual Palette& palette() = 0;
    [[nodiscard]] virtual BackBuffer& backBuffer() = 0;

    // A message of the system that came to the parent of a control's window, and concerns that one;
    // nothing where it concerns none.
    [[nodiscard]] virtual std::optional<LRESULT> reflected(UINT message, WPARAM wParam,
                                                           LPARAM lParam) = 0;

    // Whether the key was used.
    virtual bool keyDown(const MSG& message) = 0;
    virtual void keyUp(const MSG& message) = 0;
    // A text of an input method, or of another program.
    virtual void composed(std::u32string_view text) = 0;
    virtual bool wheel(ControlWindow* origin, int delta) = 0;
    virtual void focusCame(ControlWindow* view) = 0; // null: to the surface
    virtual void focusWent(HWND to) = 0;
    // `place` is where on the screen; nothing for a press without a pointer. `tab` is the one under
    // the pointer.
    virtual void beginPress(ControlWindow& view, MouseButton button, std::optional<POINT> place,
                            int tab = 0) = 0;
    virtual void endPress(ControlWindow& view, MouseButton button, PressEnd end) = 0;
    virtual void giveUpPress() = 0;
    // The press is dragged to a place on the screen. True where that selects several controls.
    [[nodiscard]] virtual bool dragged(ControlWindow& view, POINT place) = 0;
    [[nodiscard]] virtual bool isPressed(const ControlWindow& view) const = 0;
    // The pointer is over the window of a control.
    virtual void hover(HWND window, const ControlWindow& view, const MSG& message) = 0;
};

} // namespace vkr
