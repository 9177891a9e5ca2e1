// SPDX-License-Identifier: MIT
// Marked texts stay with their figures, whatever the cells come to show.
#include "binding/series_grid.hpp"
#include "binding/text_numbers.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vkr {

namespace {

const GridSeries* seriesIn(const GridColumn& column, Datum series) {
    return column.usual.series == series                                ? &column.usual
           : column.alternative && column.alternative->series == series ? &*column.alternative
                                                                        : nullptr;
}

} // namespace

std::optional<int> SeriesGrid::columnOf(Datum series) const {
    const auto found = std::ranges::find_if(
        columns_, [&](const GridColumn& column) { return seriesIn(column, series) != nullptr; });
    return found == columns_.end() ? std::nullopt
                                   : std::optional(static_cast<int>(found - columns_.begin()));
}

std::optional<SeriesGrid::Cell> SeriesGrid::cellShowing(const FigurePlace& place) const {
    const auto column = columnOf(place.datum);
    if (!column)
        return std::nullopt;
    const auto& rows = shown_[static_cast<std::size_t>(*column)];
    const auto found = std::ranges::find_if(
        rows, [&](const auto& shown) { return shown && shown->place == place; });
    return found == rows.end()
               ? std::nullopt
               : std::optional(Cell{*column, static_cast<int>(found - rows.begin())});
}

// --- in and out of the cells ---------------------------------------------------------------------

void SeriesGrid::wait(MarkedText text) {
    const auto known = std::ranges::find(waiting_, text.place, &MarkedText::place);
    if (known == waiting_.end())
        waiting_.push_back(std::move(text));
    else
        *known = std::move(text);
}

void SeriesGrid::setMarkedAside(int column) {
    for (int row = 0; row < std::ssize(cells(column)); ++row) {
        const TextBox& cell = box({column, row});
        if (const auto& shown = shownIn({column, row}); shown && cell.mark().kind != MarkKind::none)
            wait({shown->place, cell.text(), cell.mark(), shown->figure, shown->typedIn});
    }
}

void SeriesGrid::setMarkedAside() {
    for (int column = 0; column < std::ssize(cells_); ++column)
        setMarkedAside(column);
}

// False while no cell shows its figure.
bool SeriesGrid::putBack(const MarkedText& text) {
    const auto cell = cellShowing(text.place);
    if (!cell || !box(*cell).enabled())
        return false;
    auto& shown = *shownIn(*cell);
    if (text.mark.kind == MarkKind::unstored) {
        if (text.text.empty() && box(*cell).text().empty())
            return true; // nothing is stored by now
        box(*cell).putBackRefused(text.text, text.mark);
        shown.typedIn = text.typedIn;
    } else if (shown.figure == text.figure) {
        box(*cell).setMark(text.mark);
    }
    return true;
}

// What the record has no element for any more is gone with its figure.
void SeriesGrid::putMarkedBack(int column, const VariantArray* figures) {
    const Datum series = seriesOf(column).series;
    for (auto text = waiting_.begin(); text != waiting_.end();) {
        const bool gone = text->place.datum == series && figures != nullptr &&
                          !figures->contains(*text->place.element);
        text = text->place.datum == series && (gone || putBack(*text)) ? waiting_.erase(text)
                                                                       : text + 1;
    }
}

void SeriesGrid::putMarked(MarkedText text) {
    if (!putBack(text))
        wait(std::move(text));
}

void SeriesGrid::forgetMarked() noexcept {
    waiting_.clear();
    for (auto& column : shown_)
        std::ranges::fill(column, std::nullopt);
}

void SeriesGrid::forgetWaiting(const FigurePlace& place) {
    std::erase_if(waiting_, [&](const MarkedText& text) { return text.place == place; });
}

void SeriesGrid::moveMarked(Datum series, int periods) {
    const auto move = [&](FigurePlace& place) {
        if (place.datum == series)
            place.element = *place.element + periods;
    };
    for (auto& column : shown_)
        for (auto& shown : column)
            if (shown)
                move(shown->place);
    for (auto& text : waiting_)
        move(text.place);
    forgetGone(series);
}

// No cell may ever show the series again, and what it has dropped is gone at once.
void SeriesGrid::forgetGone(Datum series) {
    if (std::ranges::find(waiting_, series, [](const auto& text) { return text.place.datum; }) ==
        waiting_.end())
        return;
    Variant figures;
    ifPossible([&] { figures = readSeries(*context_.company, series); });
    if (figures.isArray())
        std::erase_if(waiting_, [&](const MarkedText& text) {
            return text.place.datum == series && !figures.array().contains(*text.place.element);
        });
}

void SeriesGrid::moveMarked(int periods) {
    if (periods != 0)
        forEachSeries([&](const GridSeries& series) { moveMarked(series.series, periods); });
}

// --- those that wait -----------------------------------------------------------------------------

std::vector<const SeriesGrid::MarkedText*> SeriesGrid::waitingTexts() const {
    std::vector<const MarkedText*> texts;
    for (const auto& text : waiting_) {
        const auto cell = cellShowing(text.place);
        if (!cell || box(*cell).mark() != text.mark)
            texts.push_back(&text);
    }
    return texts;
}

std::string SeriesGrid::nameOf(const FigurePlace& place) const {
    const auto column = columnOf(place.datum);
    if (!column)
        return {};
    const GridColumn& description = columns_[static_cast<std::size_t>(*column)];
    const GridSeries& series = *seriesIn(description, place.datum);
    const bool rate = description.choice == ColumnChoice::income && &series != &description.usual;
    const std::string unit = series.isScaled() ? " " + context_.unitText()
                             : rate            ? " " + context_.text(text_number::unitPercent)
                                               : std::string();
    const std::string period = labelOfElement(*place.element);
    return nameOf(series) + unit + (period.empty() ? "" : " " + period);
}

SeriesGrid::WayBack SeriesGrid::wayBackTo(const FigurePlace& place) const {
    const int column = columnOf(place.datum).value();
    const GridColumn& description = columns_[static_cast<std::size_t>(column)];
    const auto apart = [&](const TextBox* cell) {
        return std::abs(elementOf(cell->index()) - *place.element);
    };
    return WayBack{description.choice,
                   description.usual.series == place.datum ? PairRow::usual : PairRow::alternative,
                   *std::ranges::min_element(cells(column), {}, apart)};
}

// --- the unit ------------------------------------------------------------------------------------

bool SeriesGrid::waitsForUnit(Cell cell) const {
    const auto& shown = shownIn(cell);
    return shown && shown->typedIn.waits(box(cell));
}

void SeriesGrid::keepUnit(std::int32_t before) {
    for (int column = 0; column < std::ssize(cells_); ++column)
        for (int row = 0; row < std::ssize(cells(column)); ++row)
            if (auto& shown = shownIn({column, row}); shown && followsUnit(shown->place.datum)) {
                TextBox& cell = box({column, row});
                ifPossible([&] { shown->typedIn.follow(context_, cell, before); });
            }
    for (auto& text : waiting_)
        if (followsUnit(text.place.datum))
            ifPossible([&] { text.mark = text.typedIn.follow(context_, text.mark, before); });
}

} // namespace vkr
