// SPDX-License-Identifier: MIT
#include "company/figure_origins.hpp"

#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>

namespace vkr {

namespace {

constexpr std::string_view unknownName = "unknown";

// The hidden member of each pair, and the trailing sum.
constexpr Derivation derivationTable[] = {
    {Datum::YCommEqSeries, Datum::YBookValSeries}, {Datum::YCommEqSeries, Datum::YCSOSeries},
    {Datum::YTaxRateSeries, Datum::YNetIncSeries}, {Datum::YTaxRateSeries, Datum::YPTISeries},
    {Datum::QTaxRateSeries, Datum::QNetIncSeries}, {Datum::QTaxRateSeries, Datum::QPTISeries},
    {Datum::YPTISeries, Datum::YNetIncSeries},     {Datum::YPTISeries, Datum::YTaxRateSeries},
    {Datum::QPTISeries, Datum::QNetIncSeries},     {Datum::QPTISeries, Datum::QTaxRateSeries},
    {Datum::Last4QEPS, Datum::QEPSSeries},         {Datum::Last4QEPS, Datum::YEPSSeries},
    {Datum::Last4QEPS, Datum::LastQDate},          {Datum::Last4QEPS, Datum::LastQDateForGrid},
    {Datum::Last4QEPS, Datum::LastFYDate},
};

// Where the places of each datum begin; the last one is the end of all.
const std::array<std::size_t, datumCount + 1>& firstPlaces() {
    static const auto places = [] {
        std::array<std::size_t, datumCount + 1> first{};
        for (const DatumRow& row : datumTable())
            first[static_cast<std::size_t>(row.datum) + 1] =
                isSeries(row) ? static_cast<std::size_t>(row.upper) + 1 : 1;
        std::partial_sum(first.begin(), first.end(), first.begin());
        return first;
    }();
    return places;
}

std::size_t placesOfAll() {
    return firstPlaces().back() + settingCount;
}

std::optional<std::size_t> placeOf(std::string_view setting) {
    const SettingRow* const row = settingNamed(setting);
    if (row == nullptr)
        return std::nullopt;
    return firstPlaces().back() + static_cast<std::size_t>(row - std::begin(settingTable));
}

std::size_t firstPlace(Datum datum) {
    return firstPlaces()[static_cast<std::size_t>(datum)];
}

std::size_t placeCount(Datum datum) {
    return firstPlaces()[static_cast<std::size_t>(datum) + 1] - firstPlace(datum);
}

std::optional<std::size_t> placeOf(Datum datum, std::optional<int> element) {
    const int index = element.value_or(0);
    if (index < 0 || static_cast<std::size_t>(index) >= placeCount(datum))
        return std::nullopt;
    return firstPlace(datum) + static_cast<std::size_t>(index);
}

// By how many elements the figures of the series have moved, as the dates of the same group say.
int movedBy(const ChangeGroup& group, const Change& series) {
    const DatumPeriod period = rowOf(series.datum).period;
    int dated = 0;
    for (const Change& change : group.changes)
        if (change.setting.empty() && change.datum == firstPeriodOf(period))
            dated = periodsBetween(period, change.before, change.after);
    return periodsMoved(series.before, series.after, dated).value_or(dated);
}

// Every element of a series, or the datum itself.
template <typename Function>
void forEachElement(const Change& change, Function function) {
    if (!change.after.isArray())
        return function(change.element, change.before, change.after);
    const VariantArray& after = change.after.array();
    const bool hasBefore = change.before.isArray();
    for (int i = after.lower(); i <= after.upper(); ++i) {
        const Variant before = hasBefore && change.before.array().contains(i)
                                   ? change.before.array().at(i)
                                   : Variant();
        function(std::optional<int>(i), before, after.at(i));
    }
}

// What a figure was and is that a group changes.
std::optional<std::pair<double, double>> changeIn(const ChangeGroup& group, Datum datum,
                                                  std::optional<int> element) {
    std::optional<std::pair<double, double>> found;
    for (const Change& change : group.changes)
        if (change.setting.empty() && change.datum == datum)
            forEachElement(
                change, [&](std::optional<int> one, const Variant& before, const Variant& after) {
                    if (one == element)
                        found = {before.toDouble(), after.toDouble()};
                });
    return found;
}

// A split changes shares and what each of them has by the same ratio: all of them have what they
// had.
bool isSameTotal(const ChangeGroup& group, Datum total, std::optional<int> element) {
    if (total != Datum::YCommEqSeries)
        return false;
    const auto each = changeIn(group, Datum::YBookValSeries, element);
    const auto shares = changeIn(group, Datum::YCSOSeries, element);
    if (!each || !shares)
        return false;
    constexpr double rounding = 1e-12;
    const double before = each->first * shares->first;
    return std::abs(each->second * shares->second - before) <= rounding * std::abs(before);
}

// What comes before the separator; it and the separator are taken away.
std::string_view takeUntil(std::string_view& text, char separator) {
    const std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return part;
}

std::optional<int> readWholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                    : std::nullopt;
}

// "3", or "3-7".
void putRun(FigureOrigins& origins, const DatumRow& series, std::string_view run,
            const FigureOrigin& origin) {
    const auto from = readWholeNumber(takeUntil(run, '-'));
    const auto to = run.empty() ? from : readWholeNumber(run);
    if (from && to)
        for (int i = *from; i <= std::min(*to, series.upper); ++i)
            origins.put(series.datum, i, origin);
}

} // namespace

bool isAbsentValue(const Variant& value) {
    if (const auto* text = std::get_if<std::string>(&value.value()))
        return text->empty();
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isAbsent(*date);
    return value.isEmpty() || value.toDouble() == 0;
}

std::string_view originName(Origin origin) {
    return originNames[static_cast<std::size_t>(origin)];
}

std::optional<Origin> originNamed(std::string_view name) {
    const auto* const found = std::ranges::find(originNames, name);
    if (found == std::end(originNames))
        return std::nullopt;
    return static_cast<Origin>(found - std::begin(originNames));
}

std::span<const Derivation> derivations() {
    return derivationTable;
}

FigureOrigins::FigureOrigins() : kinds_(1), places_(placesOfAll()) {}

FigureOrigins::Kind FigureOrigins::kindOf(const FigureOrigin& origin) {
    const auto found = std::ranges::find(kinds_, origin);
    const auto index = found - kinds_.begin();
    assert(index <= std::numeric_limits<Kind>::max());
    if (found == kinds_.end())
        kinds_.push_back(origin);
    return static_cast<Kind>(index);
}

FigureOrigin FigureOrigins::of(Datum datum, std::optional<int> element) const {
    const auto place = placeOf(datum, element);
    return place ? kinds_[places_[*place]] : FigureOrigin();
}

void FigureOrigins::put(Datum datum, std::optional<int> element, const FigureOrigin& origin) {
    if (const auto place = placeOf(datum, element))
        places_[*place] = kindOf(origin);
}

FigureOrigin FigureOrigins::ofSetting(std::string_view setting) const {
    const auto place = placeOf(setting);
    return place ? kinds_[places_[*place]] : FigureOrigin();
}

void FigureOrigins::putSetting(std::string_view setting, const FigureOrigin& origin) {
    if (const auto place = placeOf(setting))
        places_[*place] = kindOf(origin);
}

// Figures move first, then what followed from the old ones is outdated, and then comes what is
// new, so that what is put in together with what it follows from is up to date.
void FigureOrigins::note(const ChangeGroup& group) {
    for (const Change& change : group.changes)
        if (change.setting.empty() && change.origin == Origin::shifted)
            shift(group, change);
    const std::vector<Kind> before = places_;
    for (const Change& change : group.changes)
        if (change.setting.empty() && change.origin != Origin::derived &&
            change.origin != Origin::shifted)
            outdateWhatFollowsFrom(group, change);
    for (const Change& change : group.changes)
        if (!change.setting.empty()) // each value of it is one, "no" as well
            putSetting(change.setting, {change.origin, change.document, false});
        else if (change.origin == Origin::adjusted && change.document.empty())
            adjust(change, before);
        else if (change.origin != Origin::shifted)
            putEach(change);
    checkInvariants();
}

void FigureOrigins::checkInvariants() const {
    assert(kinds_.front() == FigureOrigin());
    assert(std::ranges::all_of(kinds_, [this](const FigureOrigin& kind) {
        return std::ranges::count(kinds_, kind) == 1;
    }));
    assert(places_.size() == placesOfAll());
    assert(std::ranges::all_of(places_, [this](Kind kind) { return kind < kinds_.size(); }));
}

void FigureOrigins::shift(const ChangeGroup& group, const Change& change) {
    if (!change.after.isArray())
        return put(change.datum, change.element, {Origin::shifted, {}, false});
    const auto first = static_cast<std::ptrdiff_t>(firstPlace(change.datum));
    const auto count = static_cast<std::ptrdiff_t>(placeCount(change.datum));
    const std::vector<Kind> before(places_.begin() + first, places_.begin() + first + count);
    const int by = movedBy(group, change);
    forEachElement(change, [&](std::optional<int> element, const Variant&, const Variant& after) {
        const auto place = placeOf(change.datum, element);
        if (!place)
            return;
        const std::ptrdiff_t from = *element - by;
        places_[*place] = isAbsentValue(after) || from < 0 || from >= count
                              ? Kind{0}
                              : before[static_cast<std::size_t>(from)];
    });
}

// An import replaces nothing that a person may have typed, not even by what follows from it.
bool FigureOrigins::isSafeFrom(const Change& change, std::size_t place) const {
    return change.origin == Origin::imported && mayBeByHand(kinds_[places_[place]].origin);
}

void FigureOrigins::outdate(std::size_t place) {
    FigureOrigin outdated = kinds_[places_[place]];
    outdated.isOutdated = true;
    places_[place] = kindOf(outdated);
}

void FigureOrigins::outdateWhatFollowsFrom(const ChangeGroup& group, const Change& change) {
    for (const Derivation& rule : derivationTable) {
        if (rule.from != change.datum)
            continue;
        if (!isSeries(rowOf(rule.derived))) {
            if (const auto place = firstPlace(rule.derived); !isSafeFrom(change, place))
                outdate(place);
        } else {
            forEachElement(change, [&](std::optional<int> element, const Variant& before,
                                       const Variant& after) {
                if (const auto place = placeOf(rule.derived, element);
                    place && before != after && !isSafeFrom(change, *place) &&
                    !isSameTotal(group, rule.derived, element))
                    outdate(*place);
            });
        }
    }
}

void FigureOrigins::putEach(const Change& change) {
    forEachElement(
        change, [&](std::optional<int> element, const Variant& before, const Variant& after) {
            if (before == after && change.after.isArray())
                return;
            put(change.datum, element,
                isAbsentValue(after) ? FigureOrigin()
                                     : FigureOrigin{change.origin, change.document, false});
        });
}

void FigureOrigins::adjust(const Change& change, const std::vector<Kind>& before) {
    const auto place = placeOf(change.datum, change.element);
    if (!place || change.after.isArray())
        return putEach(change);
    FigureOrigin held = kinds_[before[*place]];
    if (held.origin == Origin::imported)
        held.origin = Origin::adjusted;
    places_[*place] = kindOf(isAbsentValue(change.after) ? FigureOrigin() : held);
}

void FigureOrigins::tellIn(ChangeGroup& group) const {
    for (Change& change : group.changes) {
        if (change.setting.empty() && change.after.isArray())
            continue;
        const FigureOrigin held =
            change.setting.empty() ? of(change.datum, change.element) : ofSetting(change.setting);
        change.origin = held.origin;
        change.document = held.document;
    }
}

bool FigureOrigins::mayDerive(Datum datum, std::optional<int> element) const {
    const FigureOrigin held = of(datum, element);
    return held.isOutdated || held.origin == Origin::derived;
}

std::string FigureOrigins::text() const {
    std::vector<std::string> lines(kinds_.size());
    const auto index = [](std::ptrdiff_t number) { return std::to_string(number); };
    for (const DatumRow& row : datumTable()) {
        const auto first = places_.begin() + static_cast<std::ptrdiff_t>(firstPlace(row.datum));
        const auto end = first + static_cast<std::ptrdiff_t>(placeCount(row.datum));
        const std::string* last = nullptr; // line with elements of this series at its end
        for (auto from = first; from != end;) {
            const auto to = std::find_if(from, end, [&](Kind kind) { return kind != *from; });
            if (*from != 0) {
                std::string& line = lines[*from];
                if (!isSeries(row)) {
                    line.append(" ").append(row.name);
                } else {
                    if (&line == last)
                        line += ",";
                    else
                        line.append(" ").append(row.name).append(":");
                    line += index(from - first);
                    if (to - from > 1)
                        line += "-" + index(to - first - 1);
                    last = &line;
                }
            }
            from = to;
        }
    }
    for (const SettingRow& row : settingTable)
        if (const Kind kind = places_[*placeOf(row.name)]; kind != 0)
            lines[kind].append(" ").append(row.name);
    std::string text;
    for (std::size_t i = 0; i < kinds_.size(); ++i)
        if (!lines[i].empty())
            text.append(kinds_[i].origin ? originName(*kinds_[i].origin) : unknownName)
                .append(kinds_[i].isOutdated ? "!\t" : "\t")
                .append(escapedLine(kinds_[i].document))
                .append("\t")
                .append(lines[i], 1)
                .append("\n");
    return text;
}

FigureOrigins FigureOrigins::fromText(std::string_view text) {
    FigureOrigins origins;
    while (!text.empty()) {
        std::string_view line = takeUntil(text, '\n');
        std::string_view name = takeUntil(line, '\t');
        FigureOrigin origin;
        origin.isOutdated = name.ends_with('!');
        if (origin.isOutdated)
            name.remove_suffix(1);
        origin.origin = originNamed(name);
        if (!origin.origin && name != unknownName)
            continue;
        origin.document = unescapedLine(takeUntil(line, '\t'));
        while (!line.empty()) {
            std::string_view elements = takeUntil(line, ' ');
            const std::string_view datum = takeUntil(elements, ':');
            const auto row = std::ranges::find(datumTable(), datum, &DatumRow::name);
            if (row == datumTable().end())
                origins.putSetting(datum, origin);
            else if (!isSeries(*row))
                origins.put(row->datum, std::nullopt, origin);
            else
                while (!elements.empty())
                    putRun(origins, *row, takeUntil(elements, ','), origin);
        }
    }
    return origins;
}

bool operator==(const FigureOrigins& left, const FigureOrigins& right) {
    for (std::size_t place = 0; place < left.places_.size(); ++place)
        if (left.kinds_[left.places_[place]] != right.kinds_[right.places_[place]])
            return false;
    return true;
}

} // namespace vkr
