// SPDX-License-Identifier: MIT
#include "control/cell_commands.hpp"

#include "binding/text_numbers.hpp"
#include "input/clipboard_cells.hpp"
#include "input/date_pattern.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr std::string_view isoDate = "yyyy-mm-dd"; // the same wherever it is pasted
constexpr int controlAndShift = shifts::control | shifts::shift;

bool isArrow(KeyCode key) {
    return key >= keys::left && key <= keys::down;
}

bool pastes(KeyCode key, int shift) {
    return (key == 'V' && shift == shifts::control) ||
           (key == keys::insert && shift == shifts::shift);
}

// What a key asks of a cell, with a selection or without.
enum class CellKey { none, fillDown, takePrevious, copyWithHeadings };

CellKey cellKeyOf(KeyCode key, int shift) {
    if ((shift & ~shifts::shift) == shifts::control && key == keys::apostrophe)
        return CellKey::takePrevious;
    if (shift == shifts::control && key == 'D')
        return CellKey::fillDown;
    return shift == controlAndShift && key == 'C' ? CellKey::copyWithHeadings : CellKey::none;
}

// What the cells of a grid stand for: the host may change it while a dialog is open.
std::vector<int> meaningOf(const SeriesGrid& grid) {
    std::vector<int> meaning;
    for (int row = 0; row != grid.rowCount(); ++row)
        meaning.push_back(grid.elementOf(row));
    for (const auto& column : grid.columns())
        meaning.push_back(static_cast<int>(grid.seriesOf(column).series));
    return meaning;
}

} // namespace

std::optional<CellCommands::Place> CellCommands::placeOf(const Control& control) const {
    if (control.kind() != ControlKind::textBox)
        return std::nullopt;
    if (const auto cell = yearly_.find(control))
        return Place{&yearly_, *cell};
    if (const auto cell = quarterly_.find(control))
        return Place{&quarterly_, *cell};
    return std::nullopt;
}

std::optional<CellCommands::Place> CellCommands::focused() const {
    const Control* active = context_.form.activeControl();
    return active != nullptr && context_.form.hasFocus() ? placeOf(*active) : std::nullopt;
}

CellSelection::Span CellCommands::spanOf(const Place& place) const {
    if (selection_.isActive())
        return selection_.span();
    return {place.cell.column, place.cell.column, place.cell.row, place.cell.row};
}

// --- keys ----------------------------------------------------------------------------------------

bool CellCommands::wants(const Control& control, KeyCode key, int shift) const {
    if (!placeOf(control))
        return false;
    return cellKeyOf(key, shift) != CellKey::none ||
           (key == keys::escape && shift == shifts::none && selection_.isActive());
}

bool CellCommands::key(Control& control, KeyCode key, int shift) {
    const Control* allBefore = std::exchange(allOf_, nullptr);
    const auto place = placeOf(control);
    if (!place)
        return false;
    auto& field = static_cast<TextField&>(control);
    if (pastes(key, shift)) {
        const bool refused = field.locked() && attemptOr(false, [&] {
                                 const std::string text = context_.services.clipboardText();
                                 return isTooLargeABlock(text) || isBlock(cellsOf(text));
                             });
        return refused && !mayChange(*place);
    }
    if (shift == shifts::shift && isArrow(key))
        return keyWithShift(*place, field, key);
    if (key == 'A' && shift == shifts::control) {
        allOf_ = &control;
        if (allBefore == &control)
            selectAll(*place);
        return allBefore == &control;
    }
    const CellKey command = cellKeyOf(key, shift);
    if (command == CellKey::copyWithHeadings)
        return copy(Headings::with) != Copied::noCells;
    if (command == CellKey::takePrevious)
        takePrevious(*place);
    if (command == CellKey::fillDown)
        fillDown(*place);
    if (command != CellKey::none)
        return true;
    return selection_.isActive() && keyOfSelection(*place, key, shift);
}

// What else there is to do with a selection; any other key ends it.
bool CellCommands::keyOfSelection(const Place& place, KeyCode key, int shift) {
    const bool copies = shift == shifts::control && (key == 'C' || key == keys::insert);
    const bool cuts =
        (shift == shifts::control && key == 'X') || (shift == shifts::shift && key == keys::del);
    const bool deletes = shift == shifts::none && (key == keys::del || key == keys::backspace);
    if (copies)
        return copy(Headings::without) != Copied::noCells;
    if (cuts) {
        if (mayChange(place) && copy(Headings::without) == Copied::done)
            empty(place);
        return true;
    }
    if (deletes) {
        empty(place);
        return true;
    }
    if (opensMenu(key, shift))
        return false; // on the selection
    selection_.clear();
    return key == keys::escape && shift == shifts::none;
}

bool CellCommands::keyWithShift(const Place& place, TextField& field, KeyCode key) {
    const bool sideways = key == keys::left || key == keys::right;
    const bool whole = field.standsForStored() && field.selLength() == textLength(field.text());
    if (sideways && !selection_.isActive() && !whole)
        return false; // selects within the text
    extend(place, key);
    return true;
}

void CellCommands::extend(const Place& place, KeyCode key) {
    const EntryContext::UpdateScope updating(context_);
    if (!selection_.isActive())
        place.grid->settleCell();
    Cell end = selection_.isActive() ? selection_.end() : place.cell;
    end.column += key == keys::right ? 1 : key == keys::left ? -1 : 0;
    end.row += key == keys::down ? 1 : key == keys::up ? -1 : 0;
    if (end.column < 0 || end.column >= place.grid->reachableColumns() || end.row < 0 ||
        end.row >= place.grid->rowCount())
        return;
    selection_.set(*place.grid, place.cell, end);
    place.grid->bringIntoView(end);
}

void CellCommands::selectAll(const Place& place) {
    const EntryContext::UpdateScope updating(context_);
    place.grid->settleCell();
    selection_.setAll(*place.grid);
}

bool CellCommands::drag(Control& pressed, Control& over) {
    const auto from = placeOf(pressed);
    if (!from || context_.form.activeControl() != &pressed)
        return false;
    const auto to = from->grid->find(over);
    if (!to)
        return false;
    const EntryContext::UpdateScope updating(context_);
    if (!selection_.isActive())
        from->grid->settleCell();
    selection_.set(*from->grid, from->cell, *to);
    if (selection_.isActive())
        SelectAllText(from->grid->box(from->cell));
    return true;
}

bool CellCommands::settle(const Place& place) {
    const auto settled = context_.company;
    {
        const EntryContext::UpdateScope updating(context_); // the host hears of it when it is done
        place.grid->settleCell();
    }
    return context_.company == settled;
}

// --- menu ----------------------------------------------------------------------------------------

std::optional<MenuCells> CellCommands::selectedWith(const Control& control) const {
    const auto place = placeOf(control);
    if (!place || !focused() || place->grid != selection_.grid())
        return std::nullopt;
    const auto span = selection_.span();
    const auto [column, row] = place->cell;
    if (column < span.firstColumn || column > span.lastColumn || row < span.firstRow ||
        row > span.lastRow)
        return std::nullopt;
    return MenuCells{.changeable = context_.company != nullptr && !context_.isLocked(),
                     .quarters = place->grid->isQuarterly()};
}

void CellCommands::carryOut(MenuCommand command) {
    struct Row {
        MenuCommand command;
        void (*act)(CellCommands& cells, const Place& place);
    };
    static constexpr Row rows[] = {
        {mcCopyCells, [](CellCommands& cells, const Place&) { cells.copy(Headings::without); }},
        {mcCopyCellsWithHeadings,
         [](CellCommands& cells, const Place&) { cells.copy(Headings::with); }},
        {mcDeleteFigures, [](CellCommands& cells, const Place& place) { cells.empty(place); }},
        {mcFillDown, [](CellCommands& cells, const Place& place) { cells.fillDown(place); }},
        {mcTakePrevious,
         [](CellCommands& cells, const Place& place) { cells.takePrevious(place); }},
    };
    const auto place = focused();
    if (!place || !selection_.isActive())
        return;
    for (const auto& row : rows)
        if (row.command == command)
            row.act(*this, *place);
}

// --- copy ----------------------------------------------------------------------------------------

CellCommands::Copied CellCommands::copy(Headings headings) {
    const auto place = focused();
    if (!place)
        return Copied::noCells;
    const SeriesGrid& grid = *place->grid;
    if (!settle(*place))
        return Copied::noCells;
    const auto span = spanOf(*place);
    CellTexts cells;
    if (headings == Headings::with) {
        auto& heads = cells.emplace_back(1, "");
        for (int column = span.firstColumn; column <= span.lastColumn; ++column)
            heads.push_back(grid.headOf(column));
    }
    for (int row = span.firstRow; row <= span.lastRow; ++row) {
        auto& line = cells.emplace_back();
        if (headings == Headings::with)
            line.push_back(grid.isQuarterly() ? formatDate(grid.periodOf(row).date, isoDate)
                                              : grid.labelOf(row));
        for (int column = span.firstColumn; column <= span.lastColumn; ++column) {
            const TextBox& box = grid.box({column, row});
            line.push_back(box.isUnstored()
                               ? box.text()
                               : grid.exactText(column, grid.held({column, row}).value_or(0)));
        }
    }
    const bool isThere = attempt([&] {
        const std::string text = clipboardText(cells);
        context_.services.setClipboardText(text);
        context_.noteCopy(text);
    });
    return isThere ? Copied::done : Copied::refused;
}

// --- paste ---------------------------------------------------------------------------------------

bool CellCommands::paste(TextField& field, std::string_view text) {
    const auto place = placeOf(field);
    const bool tooLarge = isTooLargeABlock(text);
    CellTexts cells = tooLarge ? CellTexts() : cellsOf(text);
    if (!place || (!tooLarge && !isBlock(cells)))
        return false;
    if (!mayChange(*place))
        return true;
    if (tooLarge)
        context_.tellRefused(field, text_number::noteTooManyCells);
    else
        preview(*place, std::move(cells), text);
    return true;
}

void CellCommands::preview(const Place& place, CellTexts cells, std::string_view text) {
    if (!settle(place))
        return;
    const auto span = spanOf(place);
    const auto decimal = context_.declaredMark(text);
    const auto asked = context_.company; // the host may hand in another one meanwhile
    const auto meaning = meaningOf(*place.grid);
    BlockPaste form(context_, *place.grid, {span.firstColumn, span.firstRow}, std::move(cells),
                    decimal, host_);
    form.setUnit(context_.copiedIn(text));
    ifPossible([&] { context_.services.showPaste(form); });
    if (!form.accepted() || context_.company != asked || meaningOf(*place.grid) != meaning ||
        !mayChange(place))
        return;
    selection_.clear();
    put(place, form.figures(), text_number::pasteAction, Origin::pasted);
}

} // namespace vkr
