// SPDX-License-Identifier: MIT
#pragma once

#include "binding/block_placing.hpp"
#include "binding/entry_context.hpp"
#include "binding/typed_unit.hpp"
#include "form/form_layout.hpp"
#include "record/figure_place.hpp"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vkr {

// A grid of cells over the record's series: one column a series, one row a period. The yearly and
// the quarterly grid are this mechanism with a column table each.
//
// What may be true together: all columns have the same rows, and what a cell shows is known beside
// it; a figure has at most one marked text that waits, until a cell shows the figure.
class SeriesGrid {
  public:
    // Which cell was meant, of all columns.
    struct Cell {
        int column;
        int row;
    };

    // What is to stand in a cell, as the record holds it.
    struct Figure {
        Cell cell;
        double stored;
    };

    SeriesGrid(EntryContext& context, std::span<const GridColumn> columns);
    virtual ~SeriesGrid() = default;
    SeriesGrid(const SeriesGrid&) = delete;
    SeriesGrid& operator=(const SeriesGrid&) = delete;

    [[nodiscard]] std::span<const GridColumn> columns() const { return columns_; }
    [[nodiscard]] const GridColumn& columnOf(Cell cell) const {
        return columns_[static_cast<std::size_t>(cell.column)];
    }
    // The one of its series that a column shows at the moment.
    [[nodiscard]] const GridSeries& seriesOf(const GridColumn& column) const;
    [[nodiscard]] const GridSeries& seriesOf(int column) const {
        return seriesOf(columns_[static_cast<std::size_t>(column)]);
    }
    [[nodiscard]] DataEntryObject objectOf(const Control& control) const;
    [[nodiscard]] std::optional<Cell> find(const Control& control) const;
    [[nodiscard]] Form& form() const { return context_.form; }
    [[nodiscard]] int rowCount() const { return static_cast<int>(cells_.front().size()); }
    [[nodiscard]] TextBox& box(Cell cell) const {
        return *cells(cell.column)[static_cast<std::size_t>(cell.row)];
    }
    [[nodiscard]] std::span<TextBox* const> cells(int column) const {
        return cells_[static_cast<std::size_t>(column)];
    }

    // Shows the span of periods: dates and labels of the rows, from the record.
    virtual void showSpan() = 0;
    // The same after somebody else has changed the record: marked texts stay with their year or
    // quarter. By how many periods the figures have moved.
    virtual int followSpan() = 0;
    // Shows a column's series in its cells. The unit decides the scale of money and shares;
    // `unitFactor` overrides it.
    void show(int column, std::optional<double> unitFactor = std::nullopt);
    void show(Datum series);
    void showAll();
    void showScaled(); // the columns that follow the currency unit
    void showChoice(ColumnChoice choice);
    void followPriceDisplay(); // decimals or eighths, also of what is being typed
    void followNumberMarks(const NumberMarks& before); // those of the form are others by now
    void clear();                                      // its cells alone
    void showNotes(); // remarks and origins of the figures that are on show

    // The cell that shows an element of a series, or of the one that takes turns with it; null
    // where none does.
    [[nodiscard]] TextBox* cellOf(Datum series, int element) const;

    // --- marked texts (series_grid_marks.cpp)
    // A text that is marked belongs to its figure. It moves with it, and waits where no cell shows
    // the figure: in a row that is switched away, in a quarter out of view. A doubt goes with the
    // figure that it is about.
    struct MarkedText {
        FigurePlace place; // an element of a series
        std::string text;
        FieldMark mark;
        double figure = 0; // that the record has; of a doubt
        TypedUnit typedIn;
    };
    [[nodiscard]] std::vector<const MarkedText*> waitingTexts() const;
    // What people call a waiting text's figure, with its period.
    [[nodiscard]] std::string nameOf(const FigurePlace& place) const;
    // How a waiting text is brought back on show: the row of the pair to choose, and its cell or
    // the nearest one.
    struct WayBack {
        ColumnChoice choice;
        PairRow row;
        TextBox* cell;
    };
    [[nodiscard]] WayBack wayBackTo(const FigurePlace& place) const;
    [[nodiscard]] FigurePlace placeOf(Cell cell) const { // of the figure that it shows
        return {seriesOf(cell.column).series, elementOf(cell.row)};
    }
    void putMarked(MarkedText text); // into the cell of its figure, or it waits
    void forgetMarked() noexcept;    // another record comes
    // The currency unit was `before` until now: amounts that are not stored were typed in that one.
    void keepUnit(std::int32_t before);

    // The handlers of every cell.
    void keyDown(Cell cell, KeyCode& key, int shift);
    bool keyPress(Cell cell, char32_t& character); // true: the character was refused
    void leave(Cell cell);
    virtual void enter(Cell cell);
    virtual void bringIntoView(Cell cell) = 0;
    // What is being typed belongs to the period that its cell shows now: stored before the cells
    // come to show other ones, and selected anew afterwards.
    void settleCell();
    void selectCell();

    // --- several cells at once (series_grid_cells.cpp)
    // The name of the series that a column shows; `head` with the unit of amounts.
    [[nodiscard]] std::string nameOf(int column) const;
    [[nodiscard]] std::string headOf(int column) const;
    [[nodiscard]] virtual std::string labelOf(int row) const = 0;
    [[nodiscard]] virtual std::string labelOfElement(int element) const = 0;
    [[nodiscard]] virtual BlockGrid::Row periodOf(int row) const = 0;
    [[nodiscard]] virtual bool isQuarterly() const = 0; // newest on top then, else at the bottom
    // The element of a series that a row shows; a record may have none of that number.
    [[nodiscard]] virtual int elementOf(int row) const = 0;
    // Why nothing can be stored at the moment; empty when it can.
    [[nodiscard]] virtual std::string reasonNotToStore() const { return {}; }
    // Columns that the keys reach at the moment; the others are out of sight.
    [[nodiscard]] virtual int reachableColumns() const;
    // The figure of the record, also beyond the rows on show; nothing where it has no such place.
    [[nodiscard]] std::optional<double> held(Cell cell) const;
    [[nodiscard]] bool holdsFigures() const; // the record, in any period
    // A stored figure with all digits, in the unit and with the decimal mark of the form; "" for 0.
    [[nodiscard]] std::string exactText(int column, double stored) const;
    // Puts figures into the record, all or none, as one action of a person; shows them, and lets
    // follow what follows of typed ones. No value where all are there. A value where the record
    // refused one: its words, which may be empty.
    std::optional<std::string> put(std::span<const Figure> figures, const Action& action);

  protected:
    virtual void movedRight(Cell /*from*/) {} // Ctrl+Right went off
    virtual void stored(Cell /*cell*/) {}     // left, and written back where it was not touched
    void collectCells();                      // again after rows were made or removed
    void storeMarked();                       // tries again what could not be stored
    // Every series that a column can show, once.
    template <typename Act>
    void forEachSeries(Act&& act) const {
        vkr::forEachSeries(columns_, act);
    }
    // Moves all series of the record by a number of periods; what comes in is 0. A series that the
    // record does not hand out as an array is left alone. Names those that stay since the record
    // can't read or write them.
    [[nodiscard]] std::vector<std::string> shiftAll(int periods);
    [[nodiscard]] std::optional<Cell> activeCell() const;
    void moveMarked(int periods); // the figures of all series have moved so far
    void setMarkedAside();        // before cells go
    void tellStayed(const std::vector<std::string>& names);
    void tellRefused(std::string_view words); // of the record

    EntryContext& context_;

  private:
    [[nodiscard]] std::string nameOf(const GridSeries& series) const;
    [[nodiscard]] bool shiftSeries(Datum series, int periods);
    void showThose(const std::function<bool(const GridColumn&)>& wanted);
    void follow(const std::function<bool(const GridColumn&)>& concerns,
                const std::function<void(TextField&, const std::function<bool()>&)>& cellFollows);
    void moveWithControl(Cell cell, KeyCode key);
    void moveWithinColumns(Cell cell, KeyCode& key, bool upward);
    [[nodiscard]] std::vector<TextBox*> focusable(int column) const;
    void takeText(Cell cell);
    [[nodiscard]] TextBox* cellBeside(Cell cell, int step) const;
    void showStored(Cell cell, double stored);
    [[nodiscard]] double scaleOf(const GridSeries& series) const;

    // The figure that a cell shows, or that its text is to be.
    struct ShownFigure {
        FigurePlace place;
        double figure = 0;
        TypedUnit typedIn;
    };
    [[nodiscard]] std::optional<ShownFigure>& shownIn(Cell cell) {
        return shown_[static_cast<std::size_t>(cell.column)][static_cast<std::size_t>(cell.row)];
    }
    [[nodiscard]] const std::optional<ShownFigure>& shownIn(Cell cell) const {
        return shown_[static_cast<std::size_t>(cell.column)][static_cast<std::size_t>(cell.row)];
    }
    [[nodiscard]] std::optional<int> columnOf(Datum series) const; // that shows it in its turn
    [[nodiscard]] std::optional<Cell> cellShowing(const FigurePlace& place) const;
    void draw(int column, const VariantArray& figures, double unitFactor);
    void wait(MarkedText text);
    void forgetWaiting(const FigurePlace& place);
    void setMarkedAside(int column);
    void putMarkedBack(int column, const VariantArray* figures);
    bool putBack(const MarkedText& text);
    void moveMarked(Datum series, int periods);
    void forgetGone(Datum series);
    [[nodiscard]] bool waitsForUnit(Cell cell) const;
    void checkInvariants() const;

    std::span<const GridColumn> columns_;
    std::vector<std::vector<TextBox*>> cells_;
    std::vector<std::vector<std::optional<ShownFigure>>> shown_; // like cells_
    std::vector<MarkedText> waiting_;
    std::int16_t lastVerticalDirection_ = 0;
};

} // namespace vkr
