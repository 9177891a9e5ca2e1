// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"

#include <string_view>

namespace vkr {

// The floating help frame fraDE(0): a text above the link "More Help...".
class HelpFrame {
  public:
    explicit HelpFrame(EntryContext& context) : context_(context) {}

    // Shows the text for an object with the frame's lower right corner at a place of a page, or as
    // near to it as the form allows.
    void ShowHelpFrame(std::string_view text, Twips left, Twips top, DataEntryObject object);
    // Fits the frame to lblToolTip.
    void SizeHelpFrame();
    [[nodiscard]] bool visible() const;
    [[nodiscard]] DataEntryObject object() const; // that it was shown for last

  private:
    [[nodiscard]] Twips widthOf(std::string_view text) const;
    [[nodiscard]] int fitting(std::string_view word, Twips width) const;
    [[nodiscard]] int linesOf(std::string_view text, Twips width) const;

    EntryContext& context_;
};

} // namespace vkr
