// SPDX-License-Identifier: MIT
#include "binding/series_grid.hpp"

#include "binding/text_numbers.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

SeriesGrid::SeriesGrid(EntryContext& context, std::span<const GridColumn> columns)
    : context_(context), columns_(columns) {
    collectCells();
}

void SeriesGrid::collectCells() {
    cells_.assign(columns_.size(), {});
    shown_.resize(columns_.size());
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const auto& array = columns_[column].cells;
        for (int row = 0; row <= array.last(context_.form); ++row)
            cells_[column].push_back(&context_[array[row]]);
        shown_[column].resize(cells_[column].size());
    }
    checkInvariants();
}

void SeriesGrid::checkInvariants() const {
    assert(cells_.size() == columns_.size() && shown_.size() == columns_.size());
    for ([[maybe_unused]] const auto& column : cells_)
        assert(column.size() == cells_.front().size());
    for ([[maybe_unused]] const auto& column : shown_)
        assert(column.size() == cells_.front().size());
    for (auto text = waiting_.begin(); text != waiting_.end(); ++text)
        assert(std::ranges::find(text + 1, waiting_.end(), text->place, &MarkedText::place) ==
               waiting_.end());
}

const GridSeries& SeriesGrid::seriesOf(const GridColumn& column) const {
    switch (column.choice) {
    case ColumnChoice::income:
        return context_.incomeRow == IncomeRow::preTaxIncome ? column.usual : *column.alternative;
    case ColumnChoice::equity:
        return context_.equityRow == EquityRow::commonEquity ? column.usual : *column.alternative;
    case ColumnChoice::none:
        break;
    }
    return column.usual;
}

std::optional<SeriesGrid::Cell> SeriesGrid::find(const Control& control) const {
    const int row = control.index();
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column)
        if (const auto ofColumn = cells(column);
            row >= 0 && row < std::ssize(ofColumn) &&
            ofColumn[static_cast<std::size_t>(row)] == &control)
            return Cell{column, row};
    return std::nullopt;
}

DataEntryObject SeriesGrid::objectOf(const Control& control) const {
    return seriesOf(columns_[static_cast<std::size_t>(find(control).value().column)]).object;
}

double SeriesGrid::scaleOf(const GridSeries& series) const {
    return series.isScaled() ? context_.unitFactor() : 1;
}

int SeriesGrid::reachableColumns() const {
    return static_cast<int>(columns_.size());
}

void SeriesGrid::show(int column, std::optional<double> unitFactor) {
    const GridSeries& series = seriesOf(column);
    Variant value;
    ifPossible([&] { value = readSeries(*context_.company, series.series); });
    static const VariantArray none;
    const VariantArray* const held = value.isArray() ? &value.array() : nullptr;
    setMarkedAside(column);
    draw(column, held == nullptr ? none : *held, unitFactor.value_or(scaleOf(series)));
    putMarkedBack(column, held);
}

void SeriesGrid::draw(int column, const VariantArray& figures, double unitFactor) {
    const GridColumn& description = columns_[static_cast<std::size_t>(column)];
    // The rows that the series reaches are one run of cells; the others are empty and disabled.
    std::vector<double> shown;
    std::vector<TextBox*> fields;
    const auto column_cells = cells(column);
    shown.reserve(column_cells.size());
    fields.reserve(column_cells.size());
    for (int row = 0; row < static_cast<int>(column_cells.size()); ++row) {
        TextBox& cell = *column_cells[static_cast<std::size_t>(row)];
        const FigurePlace place = placeOf({column, row});
        if (figures.contains(*place.element)) {
            cell.setRemark(context_.remarks.of(place));
            cell.setOrigin(context_.origins.of(place));
            shown.push_back(figures.number(*place.element));
            fields.push_back(&cell);
        } else {
            cell.setRemark({});
            cell.setOrigin({});
            cell.showStored("");
            cell.setEnabled(false);
            shownIn({column, row}).reset();
        }
    }
    ShowScaledValueRow(true, description.price ? context_.priceFormat : context_.numberFormat,
                       shown, fields, description.negatives, unitFactor,
                       description.price && context_.fractionDisplay);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Cell cell{column, fields[i]->index()};
        shownIn(cell) = ShownFigure{placeOf(cell), shown[i], {}};
    }
}

void SeriesGrid::showThose(const std::function<bool(const GridColumn&)>& wanted) {
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column)
        if (wanted(columns_[static_cast<std::size_t>(column)]))
            show(column);
}

void SeriesGrid::show(Datum series) {
    showThose([&](const GridColumn& column) { return seriesOf(column).series == series; });
}

void SeriesGrid::showAll() {
    showThose([](const GridColumn& /*column*/) { return true; });
}

void SeriesGrid::showScaled() {
    showThose([this](const GridColumn& column) { return seriesOf(column).isScaled(); });
}

void SeriesGrid::showChoice(ColumnChoice choice) {
    showThose([&](const GridColumn& column) { return column.choice == choice; });
}

void SeriesGrid::showNotes() {
    for (std::size_t column = 0; column < columns_.size(); ++column)
        for (std::size_t row = 0; row < cells_[column].size(); ++row)
            if (TextBox& cell = *cells_[column][row]; cell.enabled()) {
                const FigurePlace place =
                    placeOf({static_cast<int>(column), static_cast<int>(row)});
                cell.setRemark(context_.remarks.of(place));
                cell.setOrigin(context_.origins.of(place));
            }
}

TextBox* SeriesGrid::cellOf(Datum series, int element) const {
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const GridColumn& shown = columns_[column];
        if (shown.usual.series != series &&
            (!shown.alternative || shown.alternative->series != series))
            continue;
        for (std::size_t row = 0; row < cells_[column].size(); ++row)
            if (elementOf(static_cast<int>(row)) == element)
                return cells_[column][row];
    }
    return nullptr;
}

void SeriesGrid::followPriceDisplay() {
    follow([](const GridColumn& column) { return column.price; },
           [this](TextField& cell, const std::function<bool()>& showStored) {
               vkr::followPriceDisplay(!context_.fractionDisplay, cell, showStored);
           });
}

void SeriesGrid::followNumberMarks(const NumberMarks& before) {
    follow([](const GridColumn& /*column*/) { return true; },
           [&](TextField& cell, const std::function<bool()>& showStored) {
               vkr::followNumberMarks(before, cell, showStored);
           });
}

// Each cell of some columns in another form; its own figure can be shown anew.
void SeriesGrid::follow(
    const std::function<bool(const GridColumn&)>& concerns,
    const std::function<void(TextField&, const std::function<bool()>&)>& cellFollows) {
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        const GridColumn& description = columns_[static_cast<std::size_t>(column)];
        if (!concerns(description))
            continue;
        Variant value;
        if (context_.company != nullptr)
            ifPossible(
                [&] { value = readSeries(*context_.company, seriesOf(description).series); });
        const auto column_cells = cells(column);
        for (int row = 0; row < static_cast<int>(column_cells.size()); ++row) {
            const int element = elementOf(row);
            const auto showElement = [&] {
                const bool held = value.isArray() && value.array().contains(element);
                if (held)
                    showStored({column, row}, value.array().number(element));
                return held;
            };
            ifPossibleAtLast(
                [&] { cellFollows(*column_cells[static_cast<std::size_t>(row)], showElement); });
        }
    }
}

void SeriesGrid::clear() {
    for (const auto& column : cells_)
        for (TextBox* cell : column)
            cell->showStored("");
}

void SeriesGrid::leave(Cell cell) {
    TextBox& left = box(cell);
    const ActionScope typing(context_.company, typingIn(left));
    context_.guarded(left, [&] { takeText(cell); });
}

void SeriesGrid::takeText(Cell cell) {
    const GridColumn& column = columnOf(cell);
    const GridSeries& series = seriesOf(column);
    TextBox& left = box(cell);
    const bool untouched = left.standsForStored();
    const bool waits = waitsForUnit(cell);
    const std::string typed = left.text();
    const auto clean = column.price
                           ? context_.typedText(left.text(), NumericKind::PriceText)
                           : context_.typedNumber(left.text(), -UnitExponent(scaleOf(series)));
    checkFieldChange(left, context_);
    if (context_.company == nullptr || left.locked())
        return;
    auto& shown = shownIn(cell);
    if (waits && !untouched) {
        shown->typedIn.endEntry();
        return;
    }
    const FigurePlace place = placeOf(cell);
    shown = ShownFigure{place, shown.value_or(ShownFigure()).figure, {}};
    if (!untouched) {
        forgetWaiting(place);
        std::string reason = reasonNotToStore();
        if (reason.empty() && !clean.fits)
            reason = context_.text(text_number::reasonTooLarge);
        if (reason.empty() && !column.negatives && numericValue(clean.text) < 0)
            reason = context_.text(text_number::reasonNegative);
        left.setMark(reason.empty() ? FieldMark() : FieldMark{MarkKind::unstored, reason});
        if (left.isUnstored())
            return;
    }
    const double stored = UnscaledFromText(clean.text, scaleOf(series));
    Variant value;
    auto refusal = failureOf([&] { value = readSeries(*context_.company, series.series); });
    const bool holds = !refusal && attempt([&] {
        VariantArray& figures = value.array();
        if (!untouched)
            figures.setNumber(*place.element, stored);
    });
    if (holds)
        refusal = failureOf([&] { writeSeries(*context_.company, series.series, value); });
    const bool taken = holds && !refusal;
    if (untouched) {
        if (taken)
            this->stored(cell);
        return;
    }
    if (!taken) {
        left.setMark(context_.refused(refusal.value_or("")));
        return;
    }
    showStored(cell, stored);
    context_.tellLeftOut(left, typed, clean, series.series);
    context_.markChanged(); // also where the text was refused before, and the host has saved since
    this->stored(cell);
}

std::optional<SeriesGrid::Cell> SeriesGrid::activeCell() const {
    const Control* active = context_.form.activeControl();
    return active != nullptr && context_.form.hasFocus() ? find(*active) : std::nullopt;
}

void SeriesGrid::settleCell() {
    if (const auto cell = activeCell())
        leave(*cell);
}

void SeriesGrid::selectCell() {
    context_.form.settleFocus(); // the cell may show a period that the series does not reach
    if (const auto cell = activeCell())
        enter(*cell);
}

void SeriesGrid::storeMarked() {
    for (int column = 0; column < static_cast<int>(cells_.size()); ++column)
        for (int row = 0; row < static_cast<int>(cells(column).size()); ++row)
            if (box({column, row}).isUnstored())
                leave({column, row});
}

std::string SeriesGrid::nameOf(const GridSeries& series) const {
    return series.name == 0 ? std::string(series.nameWithoutNumber) : context_.text(series.name);
}

std::vector<std::string> SeriesGrid::shiftAll(int periods) {
    std::vector<std::string> stayed;
    forEachSeries([&](const GridSeries& series) {
        if (!shiftSeries(series.series, periods)) // the others move, even where it can't be named
            ifPossible([&] { stayed.push_back(nameOf(series)); });
    });
    return stayed;
}

// False where figures stay that the record has.
bool SeriesGrid::shiftSeries(Datum series, int periods) {
    Variant value;
    if (!attempt([&] { value = readSeries(*context_.company, series); }))
        return false;
    if (!value.isArray())
        return true;
    return attempt([&] {
        const VariantArray before = value.array();
        // Wider than an index: the bounds may be its ends.
        const std::int64_t lower = before.lower();
        const std::int64_t upper = before.upper();
        for (std::int64_t element = lower; element <= upper; ++element) {
            const std::int64_t from = element - periods;
            value.array().setNumber(
                static_cast<int>(element),
                from < lower || from > upper ? 0 : before.number(static_cast<int>(from)));
        }
        writeSeries(*context_.company, series, value);
        moveMarked(series, periods);
    });
}

void SeriesGrid::tellStayed(const std::vector<std::string>& names) {
    if (names.empty())
        return;
    std::string list;
    for (const auto& name : names)
        list += (list.empty() ? "" : ", ") + name;
    context_.message(context_.text(text_number::figuresStayed) + "\r" + list,
                     message_box::exclamationIcon);
}

void SeriesGrid::tellRefused(std::string_view words) {
    context_.message(context_.refusedText(words), message_box::exclamationIcon);
}

void SeriesGrid::showStored(Cell cell, double stored) {
    const GridColumn& column = columnOf(cell);
    TextBox& shown = box(cell);
    ShowScaledValue(ScaledForDisplay(stored, scaleOf(seriesOf(column))),
                    column.price ? context_.priceFormat : context_.numberFormat, shown,
                    column.negatives);
    if (column.price && context_.fractionDisplay)
        ConvertPriceText(false, shown);
    auto& figure = shownIn(cell);
    figure = ShownFigure{placeOf(cell), stored, figure ? figure->typedIn : TypedUnit()};
}

} // namespace vkr
