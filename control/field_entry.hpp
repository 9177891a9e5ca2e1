// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "control/captions.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <array>
#include <optional>
#include <string_view>

namespace vkr {

// Dates that rebuild a grid: they are pending while they are edited.
inline constexpr std::array<std::string_view, 2> pendingDates{"txtDateofLastFY", "txtLastQDate"};
// Dates that OK settles before it closes.
inline constexpr std::array<std::string_view, 3> settledByOk{"txtLastUpdate", "txtPriceUpdate",
                                                             "txtDateOfSource"};

[[nodiscard]] bool isPendingDate(const Control& control);
[[nodiscard]] bool isDateField(const Control& control);

// A person's visit to a field: entered, edited, left. Leaving stores what was typed.
class FieldEntry {
  public:
    FieldEntry(Session& session, CompanyFields& fields, YearlyGrid& yearly,
               QuarterlyGrid& quarterly, Captions& captions)
        : session_(session), fields_(fields), yearly_(yearly), quarterly_(quarterly),
          captions_(captions) {}

    void startOver(); // another company is held
    void enter(Control& control);
    void change(TextField& field);
    void choose(ComboBox& list);
    void leave(Control& control);
    void leaveActive(); // and comes back to it

    // What a field for one figure takes, as a text of text_number; nothing for any other.
    [[nodiscard]] std::optional<int> noteOf(const Control& control) const;
    // The date that a field stands for.
    [[nodiscard]] std::optional<Date> dateOf(const TextField& field) const;

  private:
    void leaveControl(Control& control);
    void leaveOtherField(TextField& field);
    [[nodiscard]] std::optional<Datum> dateIn(const Control& control) const;

    Session& session_;
    CompanyFields& fields_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    Captions& captions_;
    const TextField* typedDate_ = nullptr; // with a date that was but suggested until it is left
};

} // namespace vkr
