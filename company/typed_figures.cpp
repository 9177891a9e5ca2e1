// SPDX-License-Identifier: MIT
#include "company/typed_figures.hpp"

#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "platform/date.hpp"

#include <utility>

namespace vkr {

namespace {

bool isByHand(const FigureOrigin& origin) {
    return !origin.origin || *origin.origin == Origin::typed || *origin.origin == Origin::pasted;
}

std::string textOf(const Variant& value) {
    if (const auto* number = std::get_if<double>(&value.value()))
        return *number == 0 ? std::string() : exactNumberText(*number);
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isoDateText(*date);
    return value.toText();
}

// How many elements further back the periods of the import stand.
int offsetOf(const DatumRow& row, const CompanyRecord& stored, const CompanyRecord& imported) {
    const Datum first = firstPeriodOf(row.period);
    return periodsBetween(row.period, readDatum(stored, first), readDatum(imported, first));
}

std::string periodOf(const DatumRow& row, const CompanyRecord& stored, int element) {
    if (row.period == DatumPeriod::year && stored.get_LastFY() != 0)
        return std::to_string(stored.get_LastFY() + 1 - element);
    if (const Date last = stored.get_LastQDateForGrid();
        row.period == DatumPeriod::quarter && !isAbsent(last))
        return isoDateText(addQuarters(last, -element));
    return "(" + std::to_string(element) + ")";
}

void addSeries(const DatumRow& row, const CompanyRecord& stored, const FigureOrigins& origins,
               const CompanyRecord& imported, std::vector<TypedFigure>& found) {
    const VariantArray& before = stored.stored(row.datum).array();
    const VariantArray& after = imported.stored(row.datum).array();
    const int offset = offsetOf(row, stored, imported);
    for (int element = before.lower(); element <= before.upper(); ++element) {
        const double figure = before.number(element);
        const int place = element + offset;
        const bool isInside = after.contains(place);
        if (figure == 0 || !isByHand(origins.of(row.datum, element)) ||
            (isInside && after.number(place) == figure))
            continue;
        found.push_back(
            {row.datum, element, periodOf(row, stored, element), exactNumberText(figure),
             isInside ? textOf(Variant(after.number(place))) : std::string(), !isInside});
    }
}

// The dates tell which period is which, so they are always those of the import.
bool isDating(Datum datum) {
    return datum == Datum::LastFY || datum == Datum::LastFYDate || datum == Datum::LastQDate ||
           datum == Datum::LastQDateForGrid;
}

} // namespace

bool isLocked(const iVKR_Company& company) {
    return company.get_Settings()->get(setting::lockBasicInfo).toBoolean();
}

void keepWhatIsMissing(const CompanyRecord& stored, const std::map<Datum, std::string>& files,
                       CompanyRecord& imported) {
    constexpr std::pair<Datum, Datum> dating[] = {{Datum::LastFY, Datum::LastFYDate},
                                                  {Datum::LastQDate, Datum::LastQDateForGrid}};
    static const CompanyRecord empty;
    const auto lacks = [&](Datum date) { return imported.stored(date) == empty.stored(date); };
    for (const auto& [one, other] : dating)
        if (lacks(one) && lacks(other))
            for (const Datum date : {one, other})
                writeDatum(imported, date, stored.stored(date));
    for (const DatumRow& row : datumTable())
        if (isSeries(row) && !files.contains(row.datum))
            writeDatum(imported, row.datum,
                       movedOn(stored.stored(row.datum), offsetOf(row, stored, imported)));
}

std::vector<TypedFigure> typedFigures(const CompanyRecord& stored, const FigureOrigins& origins,
                                      const CompanyRecord& imported) {
    static const CompanyRecord empty;
    std::vector<TypedFigure> found;
    for (const DatumRow& row : datumTable())
        if (isSeries(row))
            addSeries(row, stored, origins, imported, found);
    for (const DatumRow& row : datumTable()) {
        const Variant& before = stored.stored(row.datum);
        if (!isSeries(row) && !isDating(row.datum) && before != empty.stored(row.datum) &&
            before != imported.stored(row.datum) && isByHand(origins.of(row.datum)))
            found.push_back(
                {row.datum, std::nullopt, {}, textOf(before), textOf(imported.stored(row.datum))});
    }
    return found;
}

void keepFigures(const CompanyRecord& stored, std::span<const TypedFigure> figures,
                 CompanyRecord& imported) {
    for (const TypedFigure& figure : figures) {
        if (figure.leavesTheTable)
            continue;
        const Variant& held = stored.stored(figure.datum);
        if (!figure.element) {
            writeDatum(imported, figure.datum, held);
            continue;
        }
        Variant series = imported.stored(figure.datum);
        series.array().setNumber(*figure.element + offsetOf(rowOf(figure.datum), stored, imported),
                                 held.array().number(*figure.element));
        writeDatum(imported, figure.datum, series);
    }
}

std::string describe(const TypedFigure& figure) {
    const std::string text = std::string(rowOf(figure.datum).name) +
                             (figure.period.empty() ? "" : " " + figure.period) + ": " +
                             figure.stored;
    if (figure.leavesTheTable)
        return text + " leaves the table";
    return text + ", not " + (figure.imported.empty() ? "nothing" : figure.imported);
}

} // namespace vkr
