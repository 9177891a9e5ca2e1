// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"
#include "record/enumerations.hpp"

#include <optional>
#include <unordered_map>

namespace vkr {

// String number of an object's help text.
[[nodiscard]] int helpTextOf(DataEntryObject object);
// What its menu offers besides text commands and help, as MenuExtras.
[[nodiscard]] unsigned menuExtrasOf(DataEntryObject object);

// Which object a control of the form stands for, and which field a label names.
class EntryObjects {
  public:
    EntryObjects(const Form& form, const SeriesGrid& yearly, const SeriesGrid& quarterly);

    // Nothing for buttons and bars. `tab` is the tab that is meant, of a tab strip.
    [[nodiscard]] std::optional<DataEntryObject> of(const Control& control, int tab = 0) const;
    // The field itself, or the one that a label, a currency mark or a spinner belongs to; null
    // where there is none.
    [[nodiscard]] TextField* fieldOf(const Control& control) const;

  private:
    [[nodiscard]] std::optional<DataEntryObject> ofCell(const Control& cell) const;

    const SeriesGrid& yearly_;
    const SeriesGrid& quarterly_;
    std::unordered_map<const Control*, TextField*> besideField_;
};

} // namespace vkr
