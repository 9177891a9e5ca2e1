// SPDX-License-Identifier: MIT
#pragma once

#include "record/actions.hpp"
#include "record/datum_changes.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// New shares for old ones: 4:1 makes four of one, 3:2 three of two, 1:10 one of ten.
struct SplitRatio {
    int shares = 1; // after the split ...
    int before = 1; // ... for so many before it

    [[nodiscard]] SplitRatio inverse() const { return {before, shares}; }
    [[nodiscard]] bool isSplit() const { return shares != before; }
    friend bool operator==(const SplitRatio&, const SplitRatio&) = default;
};

// "4:1", "3 for 2", "1-for-10", "4/1"; a single number is one for one old share. Nothing for what
// is none, for 1:1, and beyond 1000.
[[nodiscard]] std::optional<SplitRatio> readSplitRatio(std::string_view text);
[[nodiscard]] std::string splitText(const SplitRatio& ratio); // "4:1"
// So many new shares for an old one: 1.5 is 3:2, 0.1 is 1:10, also where it was rounded to three
// digits. Nothing where that takes more than 100 old shares, or more than 1000 new ones.
[[nodiscard]] std::optional<SplitRatio> splitRatioOf(double shares);

struct Split {
    SplitRatio ratio;
    Date effective; // the first day on which the new shares are traded
};

// A figure on the basis of the shares after the split: prices, earnings, dividends and book values
// per share become smaller with more shares, share counts larger. The exact result where it has no
// more than 15 digits, else the double nearest to it: nothing is rounded to cents. A figure of up
// to 15 digits comes back by the inverse split, bit for bit but for one in a hundred
// thousand, of which the last bit differs.
[[nodiscard]] double afterSplit(double figure, DatumUnit unit, const SplitRatio& ratio);

struct SplitChange {
    DatumChange change;
    // The inverse split would give back another last bit, such as of a figure of 17 digits.
    bool isInexact = false;
};

// What a split does to figures of before it.
struct SplitChanges {
    std::vector<SplitChange> changes; // in the order of the record's data, the newest period first
    // What was left alone for want of a date to go by: the end of the last fiscal year, the last
    // quarter, the date of the price.
    std::vector<Datum> missingDates;
};

// Figures that are per share, and share counts, of what ended or was dated before the split took
// effect: years and quarters by the day on which they ended, the price and the 52-week range by the
// date of the price, and the other data of the company (shares, dividend, projected and trailing
// earnings) by the last quarter, else by the end of the last fiscal year. Figures of 0 are none and
// stay. What the record can't read is left out.
[[nodiscard]] SplitChanges splitChanges(const iVKR_Company& company, const Split& split);

// What a split is as one action of the user's, with its changes: "Split 4:1". Each figure is from
// where it was before: what was typed stays typed, and filings may replace what was imported.
[[nodiscard]] Action splitAction(const SplitRatio& ratio);
// Whether an action of this name is one of these.
[[nodiscard]] bool isSplit(std::string_view actionName);

} // namespace vkr
