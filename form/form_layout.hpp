// SPDX-License-Identifier: MIT
#pragma once

#include "form/form_rows.hpp"

#include <span>
#include <string_view>

namespace vkr {

// Every control of the form, in tab order; places in twips on a grid of 15. The rows of fields and
// columns stand in it with all their controls.
[[nodiscard]] std::span<const ControlRow> formLayout();

// Every field outside the grids, page by page.
[[nodiscard]] std::span<const FieldRow> fieldRows();
[[nodiscard]] const FieldRow& fieldRow(const ControlId& control); // std::out_of_range: none
// Those with a datum, in the order in which a company is loaded.
[[nodiscard]] std::span<const FieldRow> companyFieldTable();

// The columns of the grids, left to right, which is the order of Enter.
[[nodiscard]] std::span<const GridColumn> yearlyColumns();
[[nodiscard]] std::span<const GridColumn> quarterlyColumns();

// String number of an object's help text; 0 for none.
[[nodiscard]] int helpNumberOf(DataEntryObject object);

// What stands on a control before a localizer was asked.
[[nodiscard]] std::string_view designCaption(const ControlRow& row);

} // namespace vkr
