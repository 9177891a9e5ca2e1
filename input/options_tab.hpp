// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"

#include <cstdint>

namespace vkr {

// What the options of the fifth tab change.
class OptionsHost {
  public:
    virtual ~OptionsHost() = default;
    virtual void chooseUnit(std::int32_t unit) = 0; // 3 thousands, 6 millions, 9 billions
    virtual void chooseFractions(bool fractions) = 0;
    virtual void chooseCommonEquity(bool commonEquity) = 0;
    virtual void chooseTaxRate(bool taxRate) = 0;
    virtual void chooseShade(int button) = 0; // 0 locked, 1 yearly, 2 quarterly
};

// Carries out a click on an option or colour button. Choosing what is chosen is for the host to see
// and leave alone.
void clickOption(const Control& control, OptionsHost& host);

// Index of the option button that stands for a unit.
[[nodiscard]] constexpr int optionOfUnit(std::int32_t unit) {
    return unit / 3 - 1;
}

} // namespace vkr
