// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"
#include "form/sizes.hpp"

namespace vkr {

// Ten fiscal years and the one after: cell 9 is the last fiscal year Y, cell i the year Y - 9 + i.
class YearlyGrid final : public SeriesGrid {
  public:
    explicit YearlyGrid(EntryContext& context);

    static constexpr int rows = sizes::yearRows;
    static constexpr int lastYearRow = 9; // of the last fiscal year; the next one is below
    static constexpr int firstYear = 1980;
    static constexpr int lastYear = 9900;

    // The last fiscal year as txtLastFY shows it; 0 where it shows none.
    [[nodiscard]] int lastFiscalYear() const;

    void showSpan() override; // txtLastFY, txtDateofLastFY and the labels
    int followSpan() override;
    void relabel();             // year labels
    void shade();               // required cells, in the shade colour
    void setShade(Color color); // also shows or hides the legend
    [[nodiscard]] Color shadeColor() const { return shadeColor_; }
    void pan(); // the bar was moved
    void setUpBar();
    void clearLabels();

    // Adding and removing ask first; the figures keep their years.
    void addYear() { changeSpan(1); }
    void removeYear() { changeSpan(-1); }
    void typeLastFiscalYear(); // at each change of txtLastFY
    void leaveLastFiscalYear();
    void leaveLastFiscalYearDate();

    void enter(Cell cell) override;
    void bringIntoView(Cell cell) override;
    [[nodiscard]] std::string labelOf(int row) const override;
    [[nodiscard]] std::string labelOfElement(int element) const override;
    [[nodiscard]] BlockGrid::Row periodOf(int row) const override;
    [[nodiscard]] bool isQuarterly() const override { return false; }
    [[nodiscard]] int elementOf(int row) const override { return rows - 1 - row; }
    [[nodiscard]] int reachableColumns() const override;

  protected:
    void movedRight(Cell from) override;
    void stored(Cell cell) override;

  private:
    void changeSpan(int years);
    // `end` is the date of the last fiscal year. Names the figures that could not be moved.
    std::vector<std::string> shift(int years, std::optional<Date> end);
    void acceptLastFiscalYear(int year);
    void doubtOtherYears(int year);

    Color shadeColor_ = colors::paleCyan;
    int figuresYear_ = 0; // that the newest figures belong to, whatever was typed since
};

} // namespace vkr
