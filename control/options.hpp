// SPDX-License-Identifier: MIT
#pragma once

#include "control/captions.hpp"
#include "control/figure_display.hpp"
#include "control/properties.hpp"
#include "input/options_tab.hpp"

namespace vkr {

// What the Options tab chooses: the unit, decimals or eighths, which row of the two pairs is on
// show, and the shades. The buttons show what is in force.
class Options final : public OptionsHost {
  public:
    Options(EntryContext& context, FigureDisplay& display, YearlyGrid& yearly,
            QuarterlyGrid& quarterly, Captions& captions, Properties& properties)
        : context_(context), display_(display), yearly_(yearly), quarterly_(quarterly),
          captions_(captions), properties_(properties) {}

    void chooseUnit(std::int32_t unit) override;
    void chooseFractions(bool fractions) override;
    void chooseCommonEquity(bool commonEquity) override;
    void chooseTaxRate(bool taxRate) override;
    void chooseShade(int button) override;

    // The row of a pair comes on show, as if it were chosen.
    void showRow(ColumnChoice pair, PairRow row);
    // Tax rate and book value, which the chosen source of the data states, come on show.
    void showStatedRates();
    void showPairs(); // which rows a company that was loaded wants
    void showUnit();

  private:
    // What a person does who chooses it.
    template <typename Kind>
    [[nodiscard]] Action choosing(const Handle<Kind>& control) const;

    EntryContext& context_;
    FigureDisplay& display_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    Captions& captions_;
    Properties& properties_;
};

} // namespace vkr
