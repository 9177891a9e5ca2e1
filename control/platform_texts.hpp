// SPDX-License-Identifier: MIT
#pragma once

#include "control/captions.hpp"
#include "yearly/yearly_grid.hpp"

namespace vkr {

// What the platform decides on the form: its localizer, whose texts the captions take, the cells
// that its analysis needs, and what is not on show there.
class PlatformTexts {
  public:
    PlatformTexts(EntryContext& context, Captions& captions, YearlyGrid& yearly)
        : context_(context), captions_(captions), yearly_(yearly) {}

    void startUp(); // placed by a designer: the platform is that of the program around
    void load();    // of EntryContext::platform
    void showAlternatives();

  private:
    void createLocalizer();

    EntryContext& context_;
    Captions& captions_;
    YearlyGrid& yearly_;
};

} // namespace vkr
