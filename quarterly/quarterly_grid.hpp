// SPDX-License-Identifier: MIT
#pragma once

#include "binding/series_grid.hpp"
#include "binding/trailing_earnings.hpp"
#include "form/sizes.hpp"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace vkr {

// The last quarter and up to 34 before it, newest on top.
class QuarterlyGrid final : public SeriesGrid {
  public:
    explicit QuarterlyGrid(Session& session);

    static constexpr int mostRows = 35;
    static constexpr int startRows = sizes::quarterRows;
    static constexpr int yellowRow = 4; // a year before the newest quarter

    void showSpan() override; // txtLastQDate and spinner, from the record
    void relabel();           // labels, offset and the date of the last fiscal year
    void shade();
    void setShade(Color color);
    [[nodiscard]] Color shadeColor() const { return shadeColor_; }

    [[nodiscard]] int visibleRows() const { return visibleRows_; }
    void setVisibleRows(int count); // cut to 1 to 35
    void layOut();                  // bar and scroll position
    void scroll();                  // the bar was moved
    // Scrolls by as many rows as are in view, 1 down and -1 up. A cell that has the focus hands it
    // on to its column's cell at the same place of the view.
    void turnPage(const Control& active, int direction);
    void clearLabels();

    [[nodiscard]] bool existsData() const;

    void followUnit(); // the currency unit was changed

    // Moves the last quarter. Beyond the newest quarter of the record it adds quarters, after a
    // question; back and forth inside of the record only the view moves.
    void moveLastQuarter(int quarters);
    void addQuarter();
    void leaveLastQuarterDate();
    // As the form shows it, with the day that its text may leave out; nothing where the text is
    // no date.
    [[nodiscard]] std::optional<Date> lastQuarter() const;

    // Earnings of the last four quarters, where the rule can tell them: stored in the record.
    void deriveTrailingEarnings();
    // Marks a figure that was typed where the rule has another one, which replaces it.
    void doubtTypedEarnings();
    void showTrailingEarnings(); // txtLast4QEPS, with the change check; not over a refused text
    void followCommit();         // which has tried a refused last quarter again
    // The latest yearly figure or the date of the last fiscal year has changed.
    void followYearlyEarnings();

    void enter(Cell cell) override;

    std::function<void()> showTrailing; // puts the record's sum into its field

  protected:
    [[nodiscard]] std::optional<int> elementOf(int row) const override { return row + offset_; }
    [[nodiscard]] std::string reasonNotToStore() const override;
    void stored(Cell cell) override;

  private:
    [[nodiscard]] bool isOfEarnings(Cell cell) const;
    // A last quarter that the person has moved away from.
    struct Visited {
        Date date;
        std::optional<double> trailing;
    };

    void settle();
    [[nodiscard]] bool refusesWhileLocked();
    [[nodiscard]] bool confirmAdding(int count);
    [[nodiscard]] bool holdsFigures() const;
    void tryMove(int element);
    // The last quarter becomes element `element` of the series as they are now; below 0 quarters
    // are added. Throws, with nothing moved, where the record refuses the date.
    void moveTo(int element, std::optional<Date> typed = std::nullopt);
    void retryLastQuarter(Date date);
    void takeCommitBack(std::optional<Date> before, const FieldMark& mark);
    void takeLastQuarter(std::optional<Date> before, std::optional<Date> typed);
    void setAnchor(Date date, bool ofFigures);
    void setLastQuarter(Date date);
    void accept(Date date);
    void putNewestQuarter(Date date);
    void redisplay(bool samePeriods);
    [[nodiscard]] std::optional<double> trailingEarnings();
    void storeTrailing(double sum);
    [[nodiscard]] Date newestQuarter() const; // element 0 of the series
    [[nodiscard]] std::optional<Date> fiscalYearDate() const;
    [[nodiscard]] int firstShownRow() const;

    Color shadeColor_ = colors::paleCyan;
    int visibleRows_ = startRows;
    int offset_ = 0;                 // element of the series that the top row shows
    std::optional<Date> accepted_;   // last quarter on show; one that is being typed counts later
    Date hidden_;                    // what the record has while the form shows none
    bool typedCommitted_ = false;    // a commit came while a last quarter was being typed
    std::map<int, Visited> visited_; // by element
    std::shared_ptr<TrailingEarnings> rule_;
    std::optional<double> derived_; // what the rule answered last
    bool blank_ = true;             // cleared: no date, and nothing of the record in the cells
};

} // namespace vkr
