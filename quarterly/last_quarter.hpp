// SPDX-License-Identifier: MIT
#pragma once

#include "quarterly/quarterly_grid.hpp"

#include <map>
#include <optional>

namespace vkr {

// The last quarter as a person moves it: by its date, the spinner, a row's label, the button that
// adds one. Inside of the record's quarters only the view moves; beyond the newest one quarters are
// added, after a question. The date that each visited quarter had comes back with it.
//
// What may be true together: quarters that were visited are among those of the record, and there
// are some only while one is held.
class LastQuarter {
  public:
    LastQuarter(EntryContext& context, QuarterlyGrid& grid);

    void startOver(); // another company is held
    void move(int quarters);
    void add();
    void leave();        // its date was left
    void followCommit(); // which has tried a refused date again

  private:
    // A last quarter that the person has moved away from.
    struct Visited {
        Date date;
        std::optional<double> trailing;
    };

    void settle();
    [[nodiscard]] bool refusesWhileLocked();
    [[nodiscard]] bool confirmAdding(int count);
    void tryMove(int element);
    // The last quarter becomes element `element` of the series as they are now; below 0 quarters
    // are added. Throws, with nothing moved, where the record refuses the date.
    void moveTo(int element, std::optional<Date> typed = std::nullopt);
    void retry(Date date);
    void takeCommitBack(std::optional<Date> before, const FieldMark& mark);
    void take(std::optional<Date> before, std::optional<Date> typed);
    // At the end of which quarter behind the one before a date lies, up to the third; nothing
    // where it lies near none.
    [[nodiscard]] static std::optional<int> quartersAhead(Date before, Date typed);
    // Whether the figures keep the quarters that the record states, or follow the date.
    enum class Figures { stay, follow };
    void setAnchor(Date date, Figures figures);
    void put(Date date);
    void putNewestQuarter(Date date);
    void redisplay();

    void checkInvariants() const;

    EntryContext& context_;
    QuarterlyGrid& grid_;
    TrailingSum& trailing_;
    std::map<int, Visited> visited_; // by element: a quarter that the series have
    bool typedCommitted_ = false;    // a commit came while the date was being typed
};

} // namespace vkr
