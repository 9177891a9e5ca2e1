// SPDX-License-Identifier: MIT
#pragma once

#include "control/block_paste.hpp"
#include "control/cell_selection.hpp"
#include "input/mdlMenu.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <optional>
#include <string_view>
#include <vector>

namespace vkr {

// What a person does with several cells of a grid at once: selects, copies, pastes, deletes and
// fills them. Each change is one action; under the lock there is none, and a note says so.
class CellCommands {
  public:
    CellCommands(EntryContext& context, YearlyGrid& yearly, QuarterlyGrid& quarterly,
                 HostLine& host)
        : context_(context), yearly_(yearly), quarterly_(quarterly), host_(host) {}

    // True where the key was one of these commands.
    [[nodiscard]] bool key(Control& control, KeyCode key, int shift);
    [[nodiscard]] bool wants(const Control& control, KeyCode key, int shift) const;
    // True where the text is a block and was dealt with, be it refused.
    [[nodiscard]] bool paste(TextField& field, std::string_view text);
    bool drag(Control& pressed, Control& over); // false: not from cell to cell
    void endSelection() { selection_.clear(); }
    // The selection, as a menu on this cell of it depends on it; nothing where the cell is not in
    // one.
    [[nodiscard]] std::optional<MenuCells> selectedWith(const Control& control) const;
    void carryOut(MenuCommand command); // on the selection
    // The selection, or the cell that has the focus. Refused: by the clipboard.
    enum class Headings { without, with };
    enum class Copied { noCells, refused, done };
    Copied copy(Headings headings);

  private:
    using Cell = SeriesGrid::Cell;
    struct Place {
        SeriesGrid* grid;
        Cell cell;
    };

    [[nodiscard]] std::optional<Place> placeOf(const Control& control) const;
    [[nodiscard]] std::optional<Place> focused() const;
    [[nodiscard]] CellSelection::Span spanOf(const Place& place) const;
    [[nodiscard]] bool keyWithShift(const Place& place, TextField& field, KeyCode key);
    [[nodiscard]] bool keyOfSelection(const Place& place, KeyCode key, int shift);
    void extend(const Place& place, KeyCode key);
    void selectAll(const Place& place);
    // What is being typed in the cell is stored. False where the host has answered with another
    // company.
    [[nodiscard]] bool settle(const Place& place);
    void preview(const Place& place, CellTexts cells, std::string_view text);
    void empty(const Place& place);
    void fillDown(const Place& place);
    void takePrevious(const Place& place);
    void carry(const Place& place, const CellSelection::Span& span, int source, int name);
    // Whether figures can be changed at the moment; a note where they can't.
    [[nodiscard]] bool mayChange(const Place& place);
    void put(const Place& place, std::vector<SeriesGrid::Figure> figures, int name, Origin origin);

    EntryContext& context_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    HostLine& host_;
    CellSelection selection_;
    const Control* allOf_ = nullptr; // the cell whose text Ctrl+A has just selected
};

} // namespace vkr
