// SPDX-License-Identifier: MIT
#include "control/field_entry.hpp"

#include "input/mdlDataEntry.hpp"
#include "input/mdlKMTMisc.hpp"

#include <algorithm>

namespace vkr {

bool isPendingDate(const Control& control) {
    return std::ranges::find(pendingDates, control.name()) != pendingDates.end();
}

bool isDateField(const Control& control) {
    return isPendingDate(control) ||
           std::ranges::find(settledByOk, control.name()) != settledByOk.end();
}

void FieldEntry::startOver() {
    const Control* active = session_.form.activeControl();
    session_.dateFieldPending =
        active != nullptr && session_.form.hasFocus() && isPendingDate(*active);
    session_.cancelPressed = false;
    session_.picked.clear();
    session_.suggestedDates.clear();
    typedDate_ = nullptr;
}

void FieldEntry::enter(Control& control) {
    if (const auto cell = yearly_.find(control)) {
        yearly_.enter(*cell);
    } else if (const auto quarter = quarterly_.find(control)) {
        quarterly_.enter(*quarter);
    } else if (auto* box = dynamic_cast<TextBox*>(&control)) {
        SelectAllText(*box);
        if (isPendingDate(control))
            session_.dateFieldPending = true;
    } else if (auto* list = dynamic_cast<ComboBox*>(&control)) {
        if (control.name() != "cmbReportingPeriod")
            SelectAllCombo(*list);
    }
}

void FieldEntry::change(TextField& field) {
    const Session::Work work(session_);
    if (const auto picked = session_.picked.find(&field);
        picked != session_.picked.end() && picked->second.text != field.text())
        session_.picked.erase(picked);
    if (const auto date = dateIn(field); date && session_.suggestedDates.contains(*date))
        typedDate_ = &field;
    if (field.name() == "txtLastFY")
        yearly_.typeLastFiscalYear();
    else if (field.name() == "txtCurSymbol")
        captions_.showCurrency();
}

void FieldEntry::choose(ComboBox& list) {
    const Session::Work work(session_);
    if (const auto* field = fields_.find(list))
        fields_.leave(*field); // a choice is stored at once
    else
        leaveOtherField(list);
}

void FieldEntry::leave(Control& control) {
    const Session::Work work(session_);
    if (auto* field = dynamic_cast<TextField*>(&control))
        session_.guarded(*field, [&] { leaveControl(control); });
}

void FieldEntry::leaveActive() {
    Control* active = session_.form.activeControl();
    if (active == nullptr || !session_.form.hasFocus())
        return;
    leave(*active);
    if (session_.form.activeControl() != active)
        return;
    if (auto* field = dynamic_cast<TextField*>(active))
        field->beginEntry();
    enter(*active);
}

void FieldEntry::leaveControl(Control& control) {
    if (const auto* field = fields_.find(control))
        fields_.leave(*field);
    else if (const auto cell = yearly_.find(control))
        yearly_.leave(*cell);
    else if (const auto quarter = quarterly_.find(control))
        quarterly_.leave(*quarter);
    else if (control.name() == "txtLastFY")
        yearly_.leaveLastFiscalYear();
    else if (control.name() == "txtDateofLastFY")
        yearly_.leaveLastFiscalYearDate();
    else if (control.name() == "txtLastQDate")
        quarterly_.leaveLastQuarterDate();
    else if (auto* other = dynamic_cast<TextField*>(&control)) // symbol, reporting period
        leaveOtherField(*other);
    if (auto* field = dynamic_cast<TextField*>(&control); field != nullptr && isUntouched(*field))
        session_.picked.erase(field);
    if (dateIn(control) && dynamic_cast<TextField&>(control).text() == control.tag())
        session_.takePickBack(); // unless the date was taken
    if (typedDate_ == &control && !typedDate_->isUnstored() &&
        typedDate_->text() == typedDate_->tag()) {
        session_.suggestedDates.erase(dateIn(*typedDate_).value());
        typedDate_ = nullptr;
        session_.tellState(); // typed as it stood there: nothing else tells of it
    }
}

void FieldEntry::leaveOtherField(TextField& field) {
    checkFieldChange(field, session_);
    const auto* periods = dynamic_cast<const ComboBox*>(&field);
    if (periods == nullptr || session_.company == nullptr || field.locked())
        return;
    // The commit stores the chosen entry: any other text would get lost without a word.
    const bool lost = periods->listIndex() < 0 && !field.text().empty();
    field.setMark(lost ? session_.unstored(text_number::reasonRefused) : FieldMark());
}

std::optional<int> FieldEntry::noteOf(const Control& control) const {
    using namespace text_number;
    const auto note = [](bool price, bool minus) {
        return price ? notePrice : minus ? noteFigure : notePositive;
    };
    for (const SeriesGrid* grid :
         {static_cast<const SeriesGrid*>(&yearly_), static_cast<const SeriesGrid*>(&quarterly_)})
        if (const auto cell = grid->find(control)) {
            const auto& column = grid->columns()[static_cast<std::size_t>(cell->column)];
            return note(column.price, column.minusTyped);
        }
    if (control.name() == "txtLastFY")
        return noteYear;
    const auto* field = fields_.find(control);
    if (field == nullptr || field->filter.freeText)
        return std::nullopt;
    return note(field->kind == FieldKind::price, field->filter.allowNegative);
}

std::optional<Date> FieldEntry::dateOf(const TextField& field) const {
    return session_.dateOf(field, dateIn(field).value_or(Datum::LastFYDate));
}

// The date that a field shows or decides.
std::optional<Datum> FieldEntry::dateIn(const Control& control) const {
    if (const auto* row = fields_.find(control))
        return row->kind == FieldKind::date ? std::optional(row->datum) : std::nullopt;
    if (control.name() == "txtLastQDate")
        return Datum::LastQDate;
    if (control.name() == "txtDateofLastFY" || control.name() == "txtLastFY")
        return Datum::LastFYDate;
    return std::nullopt;
}

} // namespace vkr
