// SPDX-License-Identifier: MIT
#include "control/field_controllers.hpp"

#include "binding/company_loader.hpp"
#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/mdlDataEntry.hpp"
#include "input/mdlKMTMisc.hpp"

namespace vkr {

namespace {

const KeyFilter* filterOf(const FieldRow& row) {
    return row.filtered ? &row.filter : nullptr;
}

int noteOfFigure(bool minus) {
    return minus ? text_number::noteFigure : text_number::notePositive;
}

} // namespace

// --- any field -----------------------------------------------------------------------------------

void FieldController::enter(Control& control) {
    if (auto* box = dynamic_cast<TextBox*>(&control))
        SelectAllText(*box);
    else if (auto* list = dynamic_cast<ComboBox*>(&control))
        SelectAllCombo(*list);
}

bool FieldController::press(TextField& field, char32_t& character) {
    return filter_ != nullptr && FilterNumericKey(character, field, *filter_);
}

void FieldController::change(TextField& field) {
    const EntryContext::UpdateScope updating(context_, typingIn(field));
    if (!context_.dates.pickedIn(field))
        context_.dates.forgetPick(field);
    if (const auto datum = date(); datum && context_.dates.isSuggested(*datum))
        suggestionTyped_ = true;
    typed();
}

void FieldController::choose(ComboBox& list) {
    const EntryContext::UpdateScope updating(context_, typingIn(list));
    store(list); // a choice is stored at once
}

void FieldController::leave(Control& control) {
    auto& field = static_cast<TextField&>(control);
    const EntryContext::UpdateScope updating(context_, typingIn(field));
    context_.guarded(field, [&] {
        store(field);
        settle(field);
    });
}

// What was picked or typed is stored by now, or told as not stored.
void FieldController::settle(TextField& field) {
    if (field.standsForStored())
        context_.dates.forgetPick(field);
    const auto datum = date();
    if (!datum || field.isTyped())
        return;
    context_.takePickBack(); // unless the date was taken
    if (suggestionTyped_ && !field.isUnstored()) {
        suggestionTyped_ = false;
        context_.dates.settle(*datum);
        context_.tellState(); // typed as it stood there: nothing else tells of it
    }
}

// --- company fields and cells --------------------------------------------------------------------

CompanyFieldController::CompanyFieldController(EntryContext& context, CompanyFields& fields,
                                               const FieldRow& row)
    : FieldController(context, filterOf(row)), fields_(fields), row_(row) {}

std::optional<int> CompanyFieldController::takes(const TextField& /*field*/) const {
    if (row_.filter.freeText)
        return std::nullopt;
    return row_.kind == FieldKind::price ? text_number::notePrice
                                         : noteOfFigure(row_.filter.allowNegative);
}

std::optional<Datum> CompanyFieldController::date() const {
    return row_.kind == FieldKind::date ? row_.datum : std::nullopt;
}

CellController::CellController(EntryContext& context, SeriesGrid& grid)
    : FieldController(context, nullptr), grid_(grid) {}

void CellController::key(Control& control, KeyCode& key, int shift) {
    grid_.keyDown(cellOf(control), key, shift);
}

bool CellController::press(TextField& field, char32_t& character) {
    return grid_.keyPress(cellOf(field), character);
}

std::optional<int> CellController::takes(const TextField& field) const {
    const auto& column = grid_.columns()[static_cast<std::size_t>(cellOf(field).column)];
    return column.price ? text_number::notePrice : noteOfFigure(column.negatives);
}

// --- year and dates ------------------------------------------------------------------------------

LastFiscalYearController::LastFiscalYearController(EntryContext& context, YearlyGrid& yearly)
    : FieldController(context, filterOf(fieldRow(controls::lastFiscalYear))), yearly_(yearly) {}

std::optional<int> LastFiscalYearController::takes(const TextField& /*field*/) const {
    return text_number::noteYear;
}

PendingDateController::PendingDateController(EntryContext& context, const Handle<TextBox>& handle)
    : FieldController(context, filterOf(fieldRow(handle))), handle_(handle) {}

void PendingDateController::enter(Control& control) {
    FieldController::enter(control);
    context_.dates.setPending(true);
}

bool PendingDateController::isSkipped() const {
    return field().isTyped() && !field().locked();
}

LastFiscalYearDateController::LastFiscalYearDateController(EntryContext& context,
                                                           YearlyGrid& yearly)
    : PendingDateController(context, controls::lastFiscalYearDate), yearly_(yearly) {}

LastQuarterDateController::LastQuarterDateController(EntryContext& context, LastQuarter& quarter)
    : PendingDateController(context, controls::lastQuarterDate), quarter_(quarter) {}

void LastQuarterDateController::startOver() {
    FieldController::startOver();
    quarter_.startOver();
}

// --- what a commit stores ------------------------------------------------------------------------

CurrencySymbolController::CurrencySymbolController(EntryContext& context, Captions& captions)
    : FieldController(context, filterOf(fieldRow(controls::currencySymbol))), captions_(captions) {}

void CurrencySymbolController::store(TextField& field) {
    const bool refused = field.isUnstored(); // while the data was locked
    const bool changed = checkFieldChange(field, context_);
    if (field.locked())
        return;
    if (refused)
        field.setMark({});
    if (changed || refused)
        noteChoice(context_, setting::currencySymbol);
}

ReportingPeriodController::ReportingPeriodController(EntryContext& context)
    : FieldController(context, filterOf(fieldRow(controls::reportingPeriod))) {}

void ReportingPeriodController::store(TextField& field) {
    const bool refused = field.isUnstored();
    const bool changed = checkFieldChange(field, context_);
    if (context_.company == nullptr || field.locked())
        return;
    // Any other text than an entry would get lost without a word.
    const bool lost = static_cast<ComboBox&>(field).listIndex() < 0 && !field.text().empty();
    field.setMark(lost ? context_.unstored(text_number::reasonRefused) : FieldMark());
    if (changed || refused)
        noteChoice(context_, setting::leadPeriod);
}

// --- all of them ---------------------------------------------------------------------------------

FieldControllers::FieldControllers(EntryContext& context, CompanyFields& fields, YearlyGrid& yearly,
                                   QuarterlyGrid& quarterly, LastQuarter& lastQuarter,
                                   Captions& captions, Controllers& controllers)
    : context_(context), yearlyCells_(context, yearly), quarterlyCells_(context, quarterly),
      lastFiscalYear_(context, yearly), lastFiscalYearDate_(context, yearly),
      lastQuarterDate_(context, lastQuarter), currencySymbol_(context, captions),
      reportingPeriod_(context), dates_{&lastFiscalYear_, &lastFiscalYearDate_, &lastQuarterDate_} {
    for (const auto& row : companyFieldTable()) {
        auto& added = companyFields_.emplace_back(context, fields, row);
        controllers.add(row.control.name, added);
        if (added.date())
            dates_.push_back(&added);
    }
    for (const auto& column : yearly.columns())
        controllers.add(column.cells.name, yearlyCells_);
    for (const auto& column : quarterly.columns())
        controllers.add(column.cells.name, quarterlyCells_);
    controllers.add(controls::lastFiscalYear.name, lastFiscalYear_);
    controllers.add(controls::lastFiscalYearDate.name, lastFiscalYearDate_);
    controllers.add(controls::lastQuarterDate.name, lastQuarterDate_);
    controllers.add(controls::currencySymbol.name, currencySymbol_);
    controllers.add(controls::reportingPeriod.name, reportingPeriod_);
}

void FieldControllers::startOver() {
    context_.dates.startOver();
    for (FieldController* date : dates_)
        date->startOver();
}

bool FieldControllers::hasSkippedDate() const {
    return lastFiscalYearDate_.isSkipped() || lastQuarterDate_.isSkipped();
}

void FieldControllers::leavePendingDates() {
    const EntryContext::UpdateScope updating(context_);
    lastFiscalYearDate_.leave(lastFiscalYearDate_.field());
    lastQuarterDate_.leave(lastQuarterDate_.field());
}

} // namespace vkr
