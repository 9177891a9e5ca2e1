// SPDX-License-Identifier: MIT
// What commands do to several cells of a grid at once.
#include "binding/series_grid.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"
#include "platform/exact_number.hpp"
#include "record/datum_changes.hpp"

#include <set>

namespace vkr {

std::string SeriesGrid::nameOf(int column) const {
    return nameOf(seriesOf(column));
}

std::string SeriesGrid::headOf(int column) const {
    return seriesOf(column).isScaled() ? nameOf(column) + " " + context_.unitText()
                                       : nameOf(column);
}

std::optional<double> SeriesGrid::held(Cell cell) const {
    if (context_.company == nullptr)
        return std::nullopt;
    return attemptOr(std::optional<double>(), [&] {
        const auto& [series, element] = placeOf(cell);
        return readSeries(*context_.company, series).array().number(*element);
    });
}

bool SeriesGrid::holdsFigures() const {
    bool found = false;
    forEachSeries([&](const GridSeries& series) {
        ifPossible([&] {
            const Variant value = readSeries(*context_.company, series.series);
            const VariantArray& figures = value.array();
            const std::int64_t last = figures.upper(); // which may be the end of int
            for (std::int64_t i = figures.lower(); i <= last && !found; ++i)
                found = figures.number(static_cast<int>(i)) != 0;
        });
    });
    return found;
}

std::string SeriesGrid::exactText(int column, double stored) const {
    if (stored == 0)
        return {};
    const double scale = scaleOf(seriesOf(column));
    return exchangeMarks(shiftDecimalPoint(exactNumberText(stored), UnitExponent(scale)),
                         context_.form.numberMarks());
}

std::optional<std::string> SeriesGrid::put(std::span<const Figure> figures, const Action& action) {
    const EntryContext::UpdateScope updating(context_);
    std::vector<DatumChange> changes;
    std::set<int> columns;
    for (const auto& [cell, stored] : figures) {
        changes.push_back({seriesOf(cell.column).series, elementOf(cell.row), {}, stored});
        columns.insert(cell.column);
    }
    const ActionScope scope(context_.company, action);
    if (auto refusal = applyChanges(*context_.company, changes))
        return refusal;
    context_.markChanged();
    const Form::Update update(context_.form);
    // Of what was there nothing is stored again, even where memory runs out below.
    for (const auto& [cell, figure] : figures) {
        box(cell).showStored("");
        shownIn(cell).reset();
        forgetWaiting(placeOf(cell));
    }
    for (const int column : columns)
        show(column); // loading may have shown the rest of it in another unit
    const ActionScope derived(context_.company, {Origin::derived, {}, {}});
    for (const auto& [cell, figure] : figures)
        stored(cell);
    return std::nullopt;
}

} // namespace vkr
