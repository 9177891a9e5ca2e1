// SPDX-License-Identifier: MIT
#include "company/typed_figures.hpp"

#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "platform/date.hpp"
#include "record/datum_titles.hpp"
#include "record/setting_table.hpp"

#include <utility>

namespace vkr {

namespace {

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

int firstShown(const DatumRow& row) {
    return row.period == DatumPeriod::year ? 1 : 0;
}

void addSeries(const DatumRow& row, const CompanyRecord& stored, const FigureOrigins& origins,
               const CompanyRecord& imported, std::vector<ReplacedFigure>& found) {
    const VariantArray& before = stored.stored(row.datum).array();
    const VariantArray& after = imported.stored(row.datum).array();
    const int offset = offsetOf(row, stored, imported);
    for (int element = before.lower(); element <= before.upper(); ++element) {
        const double figure = before.number(element);
        const int place = element + offset;
        const bool isInside = after.contains(place);
        // That of the year ahead is shown by no table, but a figure that was there already.
        const bool isAhead = place < firstShown(row) && place < element;
        if (figure == 0 || !mayBeByHand(origins.of(row.datum, element).origin) ||
            (isInside && after.number(place) == figure))
            continue;
        found.push_back({row.datum,
                         {},
                         element,
                         periodText(row, stored, element),
                         exactNumberText(figure),
                         isInside ? textOf(Variant(after.number(place))) : std::string(),
                         isAhead    ? ReplacedFigure::Leaves::tooNew
                         : isInside ? ReplacedFigure::Leaves::no
                                    : ReplacedFigure::Leaves::tooOld});
    }
}

// What nobody knows the origin of may be what it was from the beginning.
void addSettings(const CompanyRecord& stored, const FigureOrigins& origins,
                 const CompanyRecord& imported, std::vector<ReplacedFigure>& found) {
    static const CompanyRecord empty;
    for (const SettingRow& row : settingTable) {
        const Variant before = stored.get_Settings()->get(row.name);
        const Variant after = imported.get_Settings()->get(row.name);
        const auto origin = origins.ofSetting(row.name).origin;
        const bool isChosen = origin || before != empty.get_Settings()->get(row.name);
        if (before != after && isChosen && mayBeByHand(origin))
            found.push_back({{}, row.name, std::nullopt, {}, before.toText(), after.toText()});
    }
}

// The dates tell which period is which, so they are always those of the import.
bool isDating(Datum datum) {
    return periodsDatedBy(datum) != DatumPeriod::none;
}

} // namespace

bool isLocked(const iVKR_Company& company) {
    return company.get_Settings()->get(setting::lockBasicInfo).toBoolean();
}

std::string periodText(const DatumRow& row, const iVKR_Company& company, int element) {
    if (row.period == DatumPeriod::year && company.get_LastFY() != 0)
        return std::to_string(company.get_LastFY() + 1 - element);
    if (const Date last = company.get_LastQDateForGrid();
        row.period == DatumPeriod::quarter && !isAbsent(last))
        return isoDateText(addQuarters(last, -element));
    return "(" + std::to_string(element) + ")";
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
    if (imported.get_Settings()->get(setting::unit).toLong() == 0) // it names none
        imported.get_Settings()->put(setting::unit, stored.get_Settings()->get(setting::unit));
    for (const DatumRow& row : datumTable()) {
        if (files.contains(row.datum) || isDating(row.datum))
            continue;
        const Variant& held = stored.stored(row.datum);
        writeDatum(imported, row.datum,
                   isSeries(row) ? movedOn(held, offsetOf(row, stored, imported)) : held);
    }
}

std::vector<ReplacedFigure> typedFigures(const CompanyRecord& stored, const FigureOrigins& origins,
                                         const CompanyRecord& imported) {
    static const CompanyRecord empty;
    std::vector<ReplacedFigure> found;
    for (const DatumRow& row : datumTable())
        if (isSeries(row))
            addSeries(row, stored, origins, imported, found);
    for (const DatumRow& row : datumTable()) {
        const Variant& before = stored.stored(row.datum);
        if (!isSeries(row) && !isDating(row.datum) && before != empty.stored(row.datum) &&
            before != imported.stored(row.datum) && mayBeByHand(origins.of(row.datum).origin))
            found.push_back({row.datum,
                             {},
                             std::nullopt,
                             {},
                             textOf(before),
                             textOf(imported.stored(row.datum))});
    }
    addSettings(stored, origins, imported, found);
    return found;
}

void keepFigures(const CompanyRecord& stored, std::span<const ReplacedFigure> figures,
                 CompanyRecord& imported) {
    for (const ReplacedFigure& figure : figures) {
        if (!figure.setting.empty()) {
            imported.get_Settings()->put(figure.setting,
                                         stored.get_Settings()->get(figure.setting));
            continue;
        }
        const Variant& held = stored.stored(figure.datum);
        if (!figure.element) {
            writeDatum(imported, figure.datum, held);
            continue;
        }
        Variant series = imported.stored(figure.datum);
        const int place = *figure.element + offsetOf(rowOf(figure.datum), stored, imported);
        if (!series.array().contains(place))
            continue;
        series.array().setNumber(place, held.array().number(*figure.element));
        writeDatum(imported, figure.datum, series);
    }
}

std::string titleOf(const ReplacedFigure& figure) {
    if (const SettingRow* const setting = settingNamed(figure.setting))
        return std::string(setting->title);
    return fullTitleOf(figure.datum) + (figure.period.empty() ? "" : " " + figure.period);
}

std::string whyItLeaves(const ReplacedFigure& figure) {
    if (figure.leaves == ReplacedFigure::Leaves::tooOld)
        return "too old for the table";
    return rowOf(figure.datum).period == DatumPeriod::year ? "after the last year of the import"
                                                           : "after the last quarter of the import";
}

std::string describe(const ReplacedFigure& figure) {
    const std::string text = titleOf(figure) + ": " + figure.stored;
    if (figure.leavesTheTable())
        return text + ", " + whyItLeaves(figure);
    return text + ", not " + (figure.imported.empty() ? "nothing" : figure.imported);
}

} // namespace vkr
