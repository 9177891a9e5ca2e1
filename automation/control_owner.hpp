// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"

#include <memory>
#include <string_view>

namespace vkr::automation {

// What the parts of a control ask of it.
class ControlOwner {
  public:
    // While somebody has the answer the control stays, whoever releases it; a modal one keeps the
    // container from taking input, too.
    enum class Stay { quiet, modal };
    [[nodiscard]] virtual std::shared_ptr<void> stays(Stay how) = 0;

    // A property has changed by itself or by the user.
    virtual void propertyChanged(std::string_view name) = 0;
    // Tab at the end of the tab order; false: the focus wraps.
    virtual bool tabbedOut(FocusDirection direction) = 0;
    // The pointer was pressed in the form's window, or the keys have come there and are still
    // there.
    virtual void pressed() = 0;
    // Whether it has no use for the keys yet.
    [[nodiscard]] virtual bool lacksKeys() const = 0;
    // The form's window has another resolution.
    virtual void scaleChanged() = 0;

  protected:
    ~ControlOwner() = default;
};

} // namespace vkr::automation
