// SPDX-License-Identifier: MIT
// What the commands for several cells do to the figures.

#include "binding/text_numbers.hpp"
#include "control/cell_commands.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"

#include <utility>

namespace vkr {

bool CellCommands::mayChange(const Place& place) {
    TextBox& field = place.grid->box(place.cell);
    if (context_.company == nullptr)
        return false;
    if (field.locked())
        context_.tellRefused(field, text_number::dataLocked);
    else if (!place.grid->reasonNotToStore().empty())
        context_.tellRefused(field, text_number::reasonNoQuarter);
    else
        return true;
    return false;
}

void CellCommands::put(const Place& place, std::vector<SeriesGrid::Figure> figures, int name,
                       Origin origin) {
    if (figures.empty())
        return;
    const EntryContext::UpdateScope updating(context_);
    const int count = static_cast<int>(figures.size());
    if (const auto refusal = place.grid->put(
            figures,
            {.origin = origin, .name = countedText(context_, name, count), .document = {}}))
        context_.message(context_.refusedText(*refusal), message_box::exclamationIcon);
    place.grid->selectCell();
}

void CellCommands::empty(const Place& place) {
    if (!mayChange(place))
        return;
    const auto span = spanOf(place);
    std::vector<SeriesGrid::Figure> figures;
    for (int column = span.firstColumn; column <= span.lastColumn; ++column)
        for (int row = span.firstRow; row <= span.lastRow; ++row)
            if (const auto held = place.grid->held({column, row});
                held && (*held != 0 || place.grid->box({column, row}).isUnstored()))
                figures.push_back({{column, row}, 0});
    put(place, std::move(figures), text_number::deleteAction, Origin::typed);
}

// The uppermost figure of a selection goes to the cells below it; that above a single cell to it.
void CellCommands::fillDown(const Place& place) {
    if (!mayChange(place) || !settle(place))
        return;
    auto span = spanOf(place);
    const int source = span.firstRow == span.lastRow ? span.firstRow - 1 : span.firstRow++;
    carry(place, span, source, text_number::fillAction);
}

// All that are selected take the figure of the period before the oldest of them.
void CellCommands::takePrevious(const Place& place) {
    if (!mayChange(place) || !settle(place))
        return;
    const auto span = spanOf(place);
    carry(place, span, place.grid->isQuarterly() ? span.lastRow + 1 : span.firstRow - 1,
          text_number::previousAction);
}

// The figures of a row go to all cells of a span; a note tells the columns that have none or don't
// take it.
void CellCommands::carry(const Place& place, const CellSelection::Span& span, int source,
                         int name) {
    const SeriesGrid& grid = *place.grid;
    std::vector<SeriesGrid::Figure> figures;
    std::string without;
    std::string below;
    for (int column = span.firstColumn; column <= span.lastColumn; ++column) {
        const double figure = grid.held({column, source}).value_or(0);
        const bool refused =
            figure < 0 && !grid.columns()[static_cast<std::size_t>(column)].negatives;
        if (figure == 0 || refused) {
            std::string& list = refused ? below : without;
            list += (list.empty() ? "" : ", ") + grid.headOf(column);
            continue;
        }
        for (int row = span.firstRow; row <= span.lastRow; ++row)
            if (const auto held = grid.held({column, row});
                held && (*held != figure || grid.box({column, row}).isUnstored()))
                figures.push_back({{column, row}, figure});
    }
    std::string note;
    const std::string period = grid.labelOfElement(grid.elementOf(source));
    if (!without.empty() && !period.empty())
        note = context_.text(span.firstColumn == span.lastColumn ? text_number::noteNoSource
                                                                 : text_number::noteNoSourceIn);
    if (!below.empty())
        note += (note.empty() ? "" : " ") + context_.text(text_number::noteNoMinusIn);
    ReplaceAll(note, "%1", period);
    ReplaceAll(note, "%2", without);
    ReplaceAll(note, "%3", below);
    put(place, std::move(figures), name, Origin::pasted);
    if (!note.empty())
        ifPossible([&] { context_.services.tellRefused(place.grid->box(place.cell), note); });
}

} // namespace vkr
