// SPDX-License-Identifier: MIT
#include "company/placed_changes.hpp"

#include "company/period_moves.hpp"
#include "company/record_snapshot.hpp"
#include "company/split.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <map>
#include <utility>

namespace vkr {

namespace {

bool dates(const Change& change, DatumPeriod period) {
    return change.setting.empty() && periodsDatedBy(change.datum) == period;
}

bool isOfWholeSeries(const Change& change) {
    return change.setting.empty() && !change.element && isSeries(rowOf(change.datum));
}

// How many periods later the other one begins; nothing where only one of them is known.
std::optional<int> distance(DatumPeriod period, const NewestPeriods& from,
                            const NewestPeriods& to) {
    const bool isOneUnknown = period == DatumPeriod::quarter
                                  ? isAbsent(from.quarter) != isAbsent(to.quarter)
                                  : (from.year == 0) != (to.year == 0);
    if (isOneUnknown)
        return std::nullopt;
    return period == DatumPeriod::quarter ? periodsBetween(period, from.quarter, to.quarter)
                                          : periodsBetween(period, from.year, to.year);
}

// With the bounds of the record's own series.
bool isWhole(Datum datum, const Variant& series) {
    return series.isArray() && series.array().numbers() != nullptr && series.array().lower() == 0 &&
           series.array().upper() == rowOf(datum).upper;
}

// A group while its changes find their places. `reached` is the record with those that have one.
class GroupPlacing {
  public:
    GroupPlacing(const ChangePlacing& all, const ChangeGroup& group, const CompanyRecord& record)
        : all_(all), group_(group),
          reached_(record.clone()), placed_{{group.name, group.at, {}}, {}},
          isStep_(!group.name.empty() &&
                  std::ranges::all_of(group.changes, [](const Change& change) {
                      return change.origin == Origin::derived;
                  })) {}

    ChangePlacing::Placed take() {
        for (const DatumPeriod period : {DatumPeriod::year, DatumPeriod::quarter})
            placePeriods(period);
        for (const Change& change : group_.changes)
            if (!change.setting.empty())
                placeSetting(change);
            else if (change.element)
                placeElement(change);
            else if (!isDating(change.datum) && !isOfWholeSeries(change))
                placeValue(change);
        if (isSplit(group_.name) && hasConflict())
            leaveAll();
        return std::move(placed_);
    }

  private:
    void leave(const Change& change, NotPlaced why, Variant found = {}) {
        if (change.origin != Origin::derived || isStep_) // else it follows from what there is
            placed_.left.push_back({change, why, std::move(found)});
    }
    void add(const Change& change, const Change& here) {
        placed_.group.changes.push_back(here);
        noted_.push_back(change);
        if (!here.setting.empty())
            return;
        Variant value = here.after;
        if (here.element) {
            value = reached_->stored(here.datum);
            value.array().set(*here.element, here.after);
        }
        ifPossible([&] { writeDatum(*reached_, here.datum, value); }); // else it is refused later
    }
    [[nodiscard]] bool hasConflict() const {
        return std::ranges::any_of(placed_.left, [](const UnplacedChange& one) {
            return one.why != NotPlaced::outsideTable;
        });
    }
    void leaveAll() {
        placed_.group.changes.clear();
        for (const Change& change : noted_)
            leave(change, NotPlaced::besideOthers);
    }

    // --- single data and settings

    [[nodiscard]] bool isThere(const Change& change) const {
        const Variant& stored = reached_->stored(change.datum);
        return isSame(stored, change.after) || all_.isLast(group_, change, stored);
    }
    // A datum may stand in for an absent one.
    [[nodiscard]] bool isFree(const Change& change) const {
        const Variant shown = readDatum(*reached_, change.datum);
        return isSame(shown, change.before) || isSame(shown, change.after) ||
               isSame(reached_->stored(change.datum), change.before) ||
               all_.isSuggested(change.datum);
    }
    void placeValue(const Change& change) {
        if (isThere(change))
            return;
        if (isFree(change))
            add(change, change);
        else
            leave(change, NotPlaced::changedSince, readDatum(*reached_, change.datum));
    }
    void placeSetting(const Change& change) {
        Variant held;
        ifPossible([&] { held = reached_->get_Settings()->get(change.setting); });
        const std::string now = held.toText();
        if (now == change.after.toText() || all_.isLast(group_, change, held))
            return;
        if (now == change.before.toText())
            add(change, change);
        else
            leave(change, NotPlaced::changedSince, held);
    }

    // --- years and quarters

    void placePeriods(DatumPeriod period) {
        std::vector<Change> stated;
        std::vector<Change> series;
        for (const Change& change : group_.changes) {
            if (dates(change, period)) {
                stated.push_back(change);
            } else if (isOfWholeSeries(change) && rowOf(change.datum).period == period) {
                if (isWhole(change.datum, change.before) && isWhole(change.datum, change.after))
                    series.push_back(change);
                else
                    leave(change, NotPlaced::notDated);
            }
        }
        if (!group_.counted)
            return placeUncounted(stated, series);
        const auto& [before, after] = *group_.counted;
        const int moved = series.empty() ? 0 : distance(period, before, after).value_or(0);
        const auto ahead = distance(period, after, newestPeriods(*reached_));
        const bool isBeyond = ahead && (moved > 0 ? *ahead > 0 : moved < 0 && *ahead < 0);
        if (!isBeyond && (moved == 0 || ahead == 0))
            placeDates(stated, NotPlaced::changedSince);
        else if (!isBeyond)
            move(period, moved, stated, series);
        offsets_[period] = distance(period, after, newestPeriods(*reached_));
        for (const Change& whole : series)
            placeBeside(whole, moved);
    }
    // All of them or none: they say the same.
    bool placeDates(const std::vector<Change>& stated, NotPlaced why) {
        const auto inTheWay = std::ranges::find_if_not(
            stated, [&](const Change& change) { return isThere(change) || isFree(change); });
        for (const Change& change : stated)
            if (!isThere(change)) {
                if (inTheWay == stated.end())
                    add(change, change);
                else
                    leave(change, isFree(change) ? NotPlaced::periodsMoved : why,
                          readDatum(*reached_, change.datum));
            }
        return inTheWay == stated.end();
    }
    void move(DatumPeriod period, int periods, const std::vector<Change>& stated,
              const std::vector<Change>& series) {
        const bool isFromThere =
            distance(period, group_.counted->before, newestPeriods(*reached_)) == 0;
        if (!isFromThere || losesOthers(period, periods, series)) {
            for (const std::vector<Change>* some : {&stated, &series})
                for (const Change& change : *some)
                    leave(change, NotPlaced::periodsMoved);
            return;
        }
        if (!placeDates(stated, NotPlaced::periodsMoved)) {
            for (const Change& change : series)
                leave(change, NotPlaced::periodsMoved);
            return;
        }
        for (const DatumRow& row : datumTable()) {
            const Variant& held = reached_->stored(row.datum);
            if (row.period != period)
                continue;
            const Change change{
                {row.datum, std::nullopt, held, movedOn(held, periods)}, {}, Origin::shifted, {}};
            if (!isSame(change.before, change.after))
                add(change, change);
        }
    }
    // Whether the move takes a figure out of the table that it did not take out before.
    [[nodiscard]] bool losesOthers(DatumPeriod period, int periods,
                                   const std::vector<Change>& series) const {
        return std::ranges::any_of(datumTable(), [&](const DatumRow& row) {
            if (row.period != period)
                return false;
            const auto whole = std::ranges::find(series, row.datum, &Change::datum);
            const VariantArray& held = reached_->stored(row.datum).array();
            for (int i = 0; i <= row.upper; ++i) {
                const bool isLeaving = i + periods < 0 || i + periods > row.upper;
                const double noted = whole == series.end() ? 0 : whole->before.array().number(i);
                if (isLeaving && held.number(i) != 0 && held.number(i) != noted)
                    return true;
            }
            return false;
        });
    }
    // What a whole series has become but for the move.
    void placeBeside(const Change& whole, int periods) {
        const Variant moved = movedOn(whole.before, periods);
        for (int i = 0; i <= rowOf(whole.datum).upper; ++i) {
            const double from = moved.array().number(i);
            const double to = whole.after.array().number(i);
            if (from != to)
                placeElement({{whole.datum, i, from, to}, {}, whole.origin, whole.document});
        }
    }
    // Only what is there says then that nothing has moved.
    void placeUncounted(const std::vector<Change>& stated, const std::vector<Change>& series) {
        const bool isSound = std::ranges::all_of(series, [&](const Change& change) {
            const Variant& held = reached_->stored(change.datum);
            return isSame(held, change.before) || isSame(held, change.after);
        });
        if (isSound && placeDates(stated, NotPlaced::changedSince)) {
            for (const Change& change : series)
                if (!isSame(reached_->stored(change.datum), change.after))
                    add(change, change);
        } else {
            for (const Change& change : series)
                leave(change, NotPlaced::notDated);
        }
    }

    void placeElement(const Change& change) {
        const DatumRow& row = rowOf(change.datum);
        const auto moved = offsets_[row.period];
        const int element = *change.element + moved.value_or(0);
        const VariantArray& series = reached_->stored(change.datum).array();
        if (!series.contains(element))
            return leave(change, NotPlaced::outsideTable);
        const Variant held = series.number(element);
        if (isSame(held, change.after) || all_.isLast(group_, change, held))
            return;
        if (!isSame(held, change.before))
            return leave(change, NotPlaced::changedSince, held);
        if (!moved && held.toDouble() == 0) // as absent as in any other year
            return leave(change, NotPlaced::notDated);
        Change here = change;
        here.element = element;
        add(change, here);
    }

    const ChangePlacing& all_;
    const ChangeGroup& group_;
    std::shared_ptr<CompanyRecord> reached_;
    ChangePlacing::Placed placed_;
    std::vector<Change> noted_;                         // those that are placed
    bool isStep_;                                       // back to what was worked out
    std::map<DatumPeriod, std::optional<int>> offsets_; // of elements; nothing: not known
};

} // namespace

ChangePlacing::ChangePlacing(const std::vector<ChangeGroup>& groups, std::vector<Datum> suggested)
    : suggested_(std::move(suggested)) {
    for (const ChangeGroup& group : groups) {
        if (!base_ && group.counted)
            base_ = group.counted->after;
        for (const Change& change : group.changes)
            if (const auto key = keyOf(group, change))
                last_.insert_or_assign(*key, change.after);
    }
}

std::optional<ChangePlacing::Key> ChangePlacing::keyOf(const ChangeGroup& group,
                                                       const Change& change) const {
    if (!change.setting.empty())
        return Key(change.setting, Datum{}, std::nullopt);
    if (!change.element)
        return isOfWholeSeries(change) ? std::nullopt
                                       : std::optional(Key({}, change.datum, std::nullopt));
    if (!group.counted || !base_)
        return std::nullopt;
    const auto later = distance(rowOf(change.datum).period, *base_, group.counted->after);
    return later ? std::optional(Key({}, change.datum, *change.element - *later)) : std::nullopt;
}

bool ChangePlacing::isSuggested(Datum datum) const {
    return std::ranges::find(suggested_, datum) != suggested_.end();
}

bool ChangePlacing::isLast(const ChangeGroup& group, const Change& change,
                           const Variant& value) const {
    const auto key = keyOf(group, change);
    const auto found = key ? last_.find(*key) : last_.end();
    return found != last_.end() &&
           (change.setting.empty() ? isSame(found->second, value)
                                   : found->second.toText() == value.toText());
}

ChangePlacing::Placed ChangePlacing::place(const ChangeGroup& group,
                                           const CompanyRecord& record) const {
    return GroupPlacing(*this, group, record).take();
}

} // namespace vkr
