// SPDX-License-Identifier: MIT
#include "company/record_snapshot.hpp"

#include "platform/error_trap.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

void writeSetting(iVKR_Company& company, std::string_view name, const Variant& value) {
    const SettingHolder holder = holderOf(name);
    settingObject(company, holder)->put(name, value);
    applySettings(company, holder);
}

bool isNoNumber(const Variant& value) {
    const auto* number = std::get_if<double>(&value.value());
    return number != nullptr && std::isnan(*number);
}

bool haveSameBounds(const VariantArray& left, const VariantArray& right) {
    return left.lower() == right.lower() && left.size() == right.size();
}

void addDifferences(Datum datum, const Variant& before, const Variant& after,
                    std::vector<Change>& found) {
    const auto add = [&](std::optional<int> element, const Variant& from, const Variant& to) {
        Change change;
        static_cast<DatumChange&>(change) = {datum, element, from, to};
        found.push_back(std::move(change));
    };
    if (!before.isArray() || !after.isArray() || !haveSameBounds(before.array(), after.array())) {
        add(std::nullopt, before, after);
        return;
    }
    const std::int64_t last = before.array().upper(); // which may be the end of int
    for (std::int64_t next = before.array().lower(); next <= last; ++next) {
        const int i = static_cast<int>(next);
        const Variant from = before.array().at(i);
        const Variant to = after.array().at(i);
        if (!isSame(from, to))
            add(i, from, to);
    }
}

// As far as the record takes it. Twice, as a datum may move another one.
void bringBack(iVKR_Company& company, const RecordSnapshot& wanted) {
    for (int pass = 0; pass < 2; ++pass) {
        for (const DatumRow& row : datumTable()) {
            const auto& value = wanted[static_cast<std::size_t>(row.datum)];
            ifPossible([&] {
                if (value && !isSame(readDatum(company, row.datum), *value))
                    writeDatum(company, row.datum, *value);
            });
        }
    }
}

// What the record is to have when all are there, a change for each datum.
std::vector<DatumChange> wholeData(const iVKR_Company& company, std::span<const Change> changes) {
    std::vector<DatumChange> whole;
    for (const Change& one : changes) {
        if (!one.setting.empty())
            continue;
        auto datum = std::ranges::find(whole, one.datum, &DatumChange::datum);
        if (datum == whole.end())
            datum = whole.insert(datum, {one.datum, {}, {}, readDatum(company, one.datum)});
        if (one.element)
            datum->after.array().set(*one.element, one.after); // std::out_of_range: no such place
        else
            datum->after = one.after;
    }
    return whole;
}

bool isWorkedOut(Datum datum, std::span<const Change> changes) {
    return std::ranges::all_of(changes, [datum](const Change& one) {
        return !one.setting.empty() || one.datum != datum || one.origin == Origin::derived;
    });
}

// Whether another date answers for one that is to be absent.
bool isStoodInFor(const iVKR_Company& company, const DatumChange& change) {
    switch (change.datum) {
    case Datum::LastFY:
        return change.after.toLong() == 0 &&
               company.get_LastFY() == civil(company.get_LastFYDate()).year;
    case Datum::LastQDate:
    case Datum::LastQDateForGrid:
        return isAbsent(change.after.toDate()) &&
               company.get_LastQDate() == company.get_LastQDateForGrid();
    default:
        return false;
    }
}

// What followed by itself is written where it does not follow again: one datum may move another.
std::optional<std::string> putData(iVKR_Company& company, std::span<const Change> changes) {
    std::vector<DatumChange> left;
    std::vector<DatumChange> first;
    auto refusal = failureOf([&] {
        left = wholeData(company, changes);
        std::ranges::copy_if(left, std::back_inserter(first), [changes](const DatumChange& one) {
            return !isWorkedOut(one.datum, changes);
        });
    });
    for (int pass = 0; pass < 3 && !refusal && !left.empty(); ++pass) {
        refusal = applyChanges(company, pass == 0 ? first : left);
        if (!refusal)
            refusal = failureOf([&] {
                std::erase_if(left, [&](const DatumChange& one) {
                    return isStoodInFor(company, one) ||
                           isSame(readDatum(company, one.datum), one.after);
                });
            });
    }
    return refusal || left.empty() ? refusal : std::optional(std::string());
}

std::optional<NewestPeriods> newestIn(const RecordSnapshot& record) {
    const auto& year = record[static_cast<std::size_t>(Datum::LastFY)];
    const auto& quarter = record[static_cast<std::size_t>(Datum::LastQDateForGrid)];
    if (!year || !quarter)
        return std::nullopt;
    return NewestPeriods{static_cast<std::int16_t>(year->toLong()), quarter->toDate()};
}

bool hasFigures(const std::optional<Variant>& series) {
    const auto* figures = series && series->isArray() ? series->array().numbers() : nullptr;
    return figures != nullptr && std::ranges::any_of(*figures, [](double one) { return one != 0; });
}

} // namespace

RecordSnapshot snapshotOf(const iVKR_Company& company) {
    RecordSnapshot all;
    for (const DatumRow& row : datumTable())
        ifPossible(
            [&] { all[static_cast<std::size_t>(row.datum)] = readDatum(company, row.datum); });
    return all;
}

bool isSame(const Variant& left, const Variant& right) {
    if (left == right || (isNoNumber(left) && isNoNumber(right)))
        return true;
    if (!left.isArray() || !right.isArray() || !haveSameBounds(left.array(), right.array()))
        return false;
    const std::int64_t last = left.array().upper();
    for (std::int64_t next = left.array().lower(); next <= last; ++next) {
        const int i = static_cast<int>(next);
        const Variant one = left.array().at(i);
        const Variant other = right.array().at(i);
        if (!(one == other || (isNoNumber(one) && isNoNumber(other))))
            return false;
    }
    return true;
}

std::vector<Change> changesBetween(const RecordSnapshot& before, const RecordSnapshot& after) {
    std::vector<Change> found;
    for (const DatumRow& row : datumTable()) {
        const auto& from = before[static_cast<std::size_t>(row.datum)];
        const auto& to = after[static_cast<std::size_t>(row.datum)];
        if (from && to && !isSame(*from, *to))
            addDifferences(row.datum, *from, *to, found);
    }
    return found;
}

std::optional<CountedFrom> countedFrom(const RecordSnapshot& before, const RecordSnapshot& after,
                                       const std::vector<Change>& changes) {
    const auto from = newestIn(before);
    const auto to = newestIn(after);
    if (!from || !to)
        return std::nullopt;
    const auto isMoved = [&](const DatumRow& row) {
        return std::ranges::any_of(changes, [&](const Change& change) {
            return change.setting.empty() && change.datum == row.datum && change.after.isArray();
        });
    };
    for (const DatumPeriod period : {DatumPeriod::year, DatumPeriod::quarter}) {
        bool someMove = false;
        bool someStay = false;
        for (const DatumRow& row : datumTable())
            if (row.period == period)
                (isMoved(row) ? someMove : someStay) |=
                    isMoved(row) || hasFigures(before[static_cast<std::size_t>(row.datum)]);
        if (someMove && someStay)
            return std::nullopt;
    }
    return CountedFrom{*from, *to};
}

std::optional<std::string> putChanges(iVKR_Company& company, std::span<const Change> changes) {
    const RecordSnapshot before = snapshotOf(company);
    auto refusal = putData(company, changes);
    std::vector<std::pair<std::string, Variant>> settings;
    for (const Change& one : changes)
        if (!refusal && !one.setting.empty())
            refusal = failureOf([&] {
                settings.emplace_back(one.setting, readSetting(company, one.setting));
                writeSetting(company, one.setting, one.after);
            });
    if (!refusal)
        return std::nullopt;
    bringBack(company, before);
    for (auto one = settings.rbegin(); one != settings.rend(); ++one)
        ifPossible([&] { writeSetting(company, one->first, one->second); });
    return refusal;
}

} // namespace vkr
