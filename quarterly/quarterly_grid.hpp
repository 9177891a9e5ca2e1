// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"
#include "quarterly/quarter_rows.hpp"
#include "quarterly/trailing_sum.hpp"

#include <optional>
#include <string>

namespace vkr {

// The last quarter and up to 34 before it, newest on top. Once the rows are labelled one of these
// holds:
//
//   blank     cleared: no date, the top row is element 0, nothing of the record is in the cells
//   undated   the record has no valid date: the top row is element 0
//   dated     shown() is the date of the top row, and topElement() the quarters between it and the
//             newest one of the series
//
// A last quarter that is being typed counts when it is left.
class QuarterlyGrid final : public SeriesGrid {
  public:
    explicit QuarterlyGrid(EntryContext& context);

    static constexpr int mostRows = QuarterRows::most;
    static constexpr int startRows = QuarterRows::atStart;
    static constexpr int yellowRow = 4; // a year before the newest quarter

    void showSpan() override; // txtLastQDate and spinner, from the record
    int followSpan() override;
    void relabel(); // labels, top element and the date of the last fiscal year
    void showFiscalYear();
    void clearLabels();
    void shade();
    void setShade(Color color);
    [[nodiscard]] Color shadeColor() const { return shadeColor_; }

    [[nodiscard]] int visibleRows() const { return rows_.count(); }
    void setVisibleRows(int count); // 1 to 35
    void layOut() { rows_.layOut(); }
    void scroll() { rows_.scroll(); }
    // Scrolls by as many rows as are in view, 1 down and -1 up. A cell that has the focus hands it
    // on to its column's cell at the same place of the view.
    void turnPage(const Control& active, int direction);

    [[nodiscard]] bool existsData() const; // of the record, or on screen
    void followUnit();                     // the currency unit was changed

    // --- the last quarter
    // As the form shows it, with the day that its text may leave out; nothing where the text is
    // no date. What the data lock came upon while it was typed counts for nothing.
    [[nodiscard]] std::optional<Date> lastQuarter() const;
    [[nodiscard]] const std::optional<Date>& shown() const { return shown_; }
    [[nodiscard]] int topElement() const { return element_; }
    [[nodiscard]] bool isBlank() const { return blank_; }
    [[nodiscard]] Date heldUnseen() const { return hidden_; }
    [[nodiscard]] Date newestQuarter() const; // element 0 of the series
    void accept(Date date);                   // that the field has just come to show
    [[nodiscard]] TrailingSum& trailing() { return trailing_; }

    void enter(Cell cell) override;
    void bringIntoView(Cell cell) override { rows_.bringIntoView(cell.row); }
    [[nodiscard]] std::string labelOf(int row) const override;
    [[nodiscard]] std::string labelOfElement(int element) const override;
    [[nodiscard]] BlockGrid::Row periodOf(int row) const override;
    [[nodiscard]] bool isQuarterly() const override { return true; }
    [[nodiscard]] int elementOf(int row) const override { return row + element_; }
    [[nodiscard]] std::string reasonNotToStore() const override;

    // What moves the last quarter does with the cells.
    using SeriesGrid::shiftAll;
    using SeriesGrid::storeMarked;
    using SeriesGrid::tellRefused;
    using SeriesGrid::tellStayed;

  protected:
    void stored(Cell cell) override;

  private:
    [[nodiscard]] bool isOfEarnings(Cell cell) const;
    [[nodiscard]] std::optional<Date> fiscalYearDate() const;
    void checkInvariants() const;

    QuarterRows rows_;
    Color shadeColor_ = colors::paleCyan;
    std::optional<Date> shown_; // the last quarter
    int element_ = 0;           // of the series, in the top row
    bool blank_ = true;
    Date hidden_; // what the record has while the form shows none
    TrailingSum trailing_;
};

} // namespace vkr
