// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"

#include <map>
#include <string>

namespace vkr {

// Captions from the localizer, and those that follow the display options.
class Captions {
  public:
    explicit Captions(EntryContext& context);

    // Replaces every design caption that has a string number by the localizer's text. Numbers are
    // used up by the first pass.
    void pass();
    // Unit behind the captions of money and shares; captions of the option rows.
    void followUnit();
    void followOptions();
    void showCurrency(); // the symbol of txtCurSymbol beside the money fields

  private:
    [[nodiscard]] std::string unitSuffix() const;

    EntryContext& context_;
    std::map<int, std::string> unitCaptions_; // of lblUnit, without the unit
};

} // namespace vkr
