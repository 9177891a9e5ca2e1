// SPDX-License-Identifier: MIT
#include "company/typed_figures.hpp"

#include "company/exact_text.hpp"
#include "platform/date.hpp"

namespace vkr {

namespace {

bool isByHand(const FigureOrigin& origin) {
    return !origin.origin || *origin.origin == Origin::typed || *origin.origin == Origin::pasted;
}

std::string textOf(const Variant& value) {
    if (const auto* number = std::get_if<double>(&value.value()))
        return *number == 0 ? "nothing" : exactNumberText(*number);
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isAbsent(*date) ? "nothing" : isoDateText(*date);
    return value.toText().empty() ? "nothing" : value.toText();
}

// How many elements further back the periods of the import stand.
int offsetOf(const DatumRow& row, const CompanyRecord& stored, const CompanyRecord& imported) {
    if (row.period == DatumPeriod::year) {
        const int before = stored.get_LastFY();
        const int after = imported.get_LastFY();
        return before == 0 || after == 0 ? 0 : after - before;
    }
    const Date before = stored.get_LastQDateForGrid();
    const Date after = imported.get_LastQDateForGrid();
    return isAbsent(before) || isAbsent(after) ? 0 : nearestQuarters(before, after);
}

std::string periodOf(const DatumRow& row, const CompanyRecord& stored, int element) {
    if (row.period == DatumPeriod::year && stored.get_LastFY() != 0)
        return std::to_string(stored.get_LastFY() + 1 - element);
    if (const Date last = stored.get_LastQDateForGrid();
        row.period == DatumPeriod::quarter && !isAbsent(last))
        return isoDateText(addQuarters(last, -element));
    return "(" + std::to_string(element) + ")";
}

void keepSeries(const DatumRow& row, const CompanyRecord& stored, const FigureOrigins& origins,
                CompanyRecord& imported, std::vector<std::string>& kept) {
    const VariantArray& before = stored.stored(row.datum).array();
    Variant series = imported.stored(row.datum);
    const int offset = offsetOf(row, stored, imported);
    bool isChanged = false;
    for (int element = before.lower(); element <= before.upper(); ++element) {
        const double figure = before.number(element);
        const int place = element + offset;
        const bool isInside = series.array().contains(place);
        if (figure == 0 || !isByHand(origins.of(row.datum, element)) ||
            (isInside && series.array().number(place) == figure))
            continue;
        const std::string name = std::string(row.name) + " " + periodOf(row, stored, element) +
                                 ": " + exactNumberText(figure);
        if (!isInside) {
            kept.push_back(name + " leaves the table");
            continue;
        }
        kept.push_back(name + ", not " + textOf(Variant(series.array().number(place))));
        series.array().setNumber(place, figure);
        isChanged = true;
    }
    if (isChanged)
        writeDatum(imported, row.datum, series);
}

} // namespace

bool isLocked(const iVKR_Company& company) {
    return company.get_Settings()->get(setting::lockBasicInfo).toBoolean();
}

std::vector<std::string> keepTyped(const CompanyRecord& stored, const FigureOrigins& origins,
                                   CompanyRecord& imported) {
    static const CompanyRecord empty;
    std::vector<std::string> kept;
    // Periods are told by the dates, so these stay those of the import until then.
    for (const DatumRow& row : datumTable())
        if (isSeries(row))
            keepSeries(row, stored, origins, imported, kept);
    for (const DatumRow& row : datumTable()) {
        const bool isDated = row.datum == Datum::LastFY || row.datum == Datum::LastFYDate ||
                             row.datum == Datum::LastQDate || row.datum == Datum::LastQDateForGrid;
        const Variant& before = stored.stored(row.datum);
        if (isSeries(row) || isDated || before == empty.stored(row.datum) ||
            before == imported.stored(row.datum) || !isByHand(origins.of(row.datum)))
            continue;
        kept.push_back(std::string(row.name) + ": " + textOf(before) + ", not " +
                       textOf(imported.stored(row.datum)));
        writeDatum(imported, row.datum, before);
    }
    return kept;
}

} // namespace vkr
