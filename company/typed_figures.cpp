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

const CompanyRecord& nothingStored() {
    static const CompanyRecord empty;
    return empty;
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

int firstShown(const DatumRow& row) {
    return row.period == DatumPeriod::year ? 1 : 0;
}

// Whether what comes from there is looked for.
using OriginFilter = bool (*)(std::optional<Origin> origin);

void addSeries(const DatumRow& row, const CompanyRecord& stored, const FigureOrigins& origins,
               OriginFilter isLookedFor, const CompanyRecord& imported,
               std::vector<ReplacedFigure>& found) {
    const VariantArray& before = stored.stored(row.datum).array();
    const VariantArray& after = imported.stored(row.datum).array();
    const int offset = offsetOf(row, stored, imported);
    for (int element = before.lower(); element <= before.upper(); ++element) {
        const double figure = before.number(element);
        const int place = element + offset;
        const bool isInside = after.contains(place);
        // That of the year ahead is shown by no table, but a figure that was there already.
        const bool isAhead = place < firstShown(row) && place < element;
        if (figure == 0 || !isLookedFor(origins.of(row.datum, element).origin) ||
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

void addDatum(const DatumRow& row, const CompanyRecord& stored, const CompanyRecord& imported,
              std::vector<ReplacedFigure>& found) {
    const Variant& before = stored.stored(row.datum);
    const Variant& after = imported.stored(row.datum);
    if (before != nothingStored().stored(row.datum) && before != after)
        found.push_back({row.datum, {}, std::nullopt, {}, textOf(before), textOf(after)});
}

// What nobody knows the origin of may be what it was from the beginning.
void addSettings(const CompanyRecord& stored, const FigureOrigins& origins,
                 OriginFilter isLookedFor, const CompanyRecord& imported,
                 std::vector<ReplacedFigure>& found) {
    for (const SettingRow& row : settingTable) {
        const Variant before = stored.get_Settings()->get(row.name);
        const Variant after = imported.get_Settings()->get(row.name);
        const auto origin = origins.ofSetting(row.name).origin;
        const bool isChosen = origin || before != nothingStored().get_Settings()->get(row.name);
        if (before != after && isChosen && isLookedFor(origin))
            found.push_back({{}, row.name, std::nullopt, {}, before.toText(), after.toText()});
    }
}

// Series, then single data, then settings. The dates tell which period is which, so they are
// always those of the import.
std::vector<ReplacedFigure> replacedFigures(const CompanyRecord& stored,
                                            const FigureOrigins& origins, OriginFilter isLookedFor,
                                            const CompanyRecord& imported) {
    std::vector<ReplacedFigure> found;
    for (const DatumRow& row : datumTable())
        if (isSeries(row))
            addSeries(row, stored, origins, isLookedFor, imported, found);
    for (const DatumRow& row : datumTable())
        if (!isSeries(row) && !isDating(row.datum) && isLookedFor(origins.of(row.datum).origin))
            addDatum(row, stored, imported, found);
    addSettings(stored, origins, isLookedFor, imported, found);
    return found;
}

bool isOfAnImport(std::optional<Origin> origin) {
    return origin == Origin::imported;
}

// Whether the earnings of the last four quarters, or those quarters, are others.
bool haveOtherLastQuarters(const CompanyRecord& stored, const CompanyRecord& imported) {
    const VariantArray& before = stored.stored(Datum::QEPSSeries).array();
    const VariantArray& after = imported.stored(Datum::QEPSSeries).array();
    for (int quarter = 0; quarter < 4; ++quarter)
        if (before.number(quarter) != after.number(quarter))
            return true;
    return offsetOf(rowOf(Datum::QEPSSeries), stored, imported) != 0;
}

// The files may be those of before the split.
bool isByHandOrAdjusted(std::optional<Origin> origin) {
    return mayBeByHand(origin) || origin == Origin::adjusted;
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

void keepWhatIsMissing(const CompanyRecord& stored, const FigureOrigins& origins,
                       const CsvImport& import, CompanyRecord& imported) {
    constexpr std::pair<Datum, Datum> dating[] = {{Datum::LastFY, Datum::LastFYDate},
                                                  {Datum::LastQDate, Datum::LastQDateForGrid}};
    const auto lacks = [&](Datum date) {
        return imported.stored(date) == nothingStored().stored(date);
    };
    for (const auto& [one, other] : dating)
        if (lacks(one) && lacks(other))
            for (const Datum date : {one, other})
                writeDatum(imported, date, stored.stored(date));
    if (lacks(Datum::LastFYDate) && !import.files.contains(Datum::LastFYDate) &&
        imported.stored(Datum::LastFY) == stored.stored(Datum::LastFY))
        writeDatum(imported, Datum::LastFYDate, stored.stored(Datum::LastFYDate));
    const auto settings = imported.get_Settings();
    for (const SettingRow& row : settingTable)
        if (!import.settings.contains(row.name) ||
            (row.name == setting::unit && settings->get(row.name).toLong() == 0)) // it names none
            settings->put(row.name, stored.get_Settings()->get(row.name));
    for (const DatumRow& row : datumTable()) {
        if (import.files.contains(row.datum) || isDating(row.datum))
            continue;
        const Variant& held = stored.stored(row.datum);
        writeDatum(imported, row.datum,
                   isSeries(row) ? movedOn(held, offsetOf(row, stored, imported)) : held);
    }
    // The form works it out of the new ones.
    if (!import.files.contains(Datum::Last4QEPS) &&
        origins.of(Datum::Last4QEPS).origin == Origin::derived &&
        haveOtherLastQuarters(stored, imported))
        imported.put_Last4QEPS(0);
}

std::vector<ReplacedFigure> typedFigures(const CompanyRecord& stored, const FigureOrigins& origins,
                                         const CompanyRecord& imported) {
    return replacedFigures(stored, origins, isByHandOrAdjusted, imported);
}

std::vector<ReplacedFigure> goneFigures(const CompanyRecord& stored, const FigureOrigins& origins,
                                        const CompanyRecord& imported) {
    std::vector<ReplacedFigure> gone = replacedFigures(stored, origins, isOfAnImport, imported);
    std::erase_if(gone, [](const ReplacedFigure& one) { return !one.imported.empty(); });
    for (const auto& [datum, period] : datingData) {
        const Variant before = readDatum(stored, datum);
        if (!isAbsentValue(before) && isAbsentValue(readDatum(imported, datum)))
            gone.push_back({datum, {}, std::nullopt, {}, textOf(before), {}});
    }
    return gone;
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

std::string describeGone(const ReplacedFigure& figure) {
    return titleOf(figure) + ": " + figure.stored +
           (figure.leavesTheTable() ? ", " + whyItLeaves(figure) : "");
}

std::vector<std::string> goneInWords(std::span<const ReplacedFigure> figures) {
    constexpr std::size_t named = 3;
    std::vector<std::string> sentences;
    for (const bool tooOld : {false, true}) {
        std::string names;
        std::size_t count = 0;
        for (const ReplacedFigure& one : figures)
            if ((one.leaves == ReplacedFigure::Leaves::tooOld) == tooOld && ++count <= named)
                names += (names.empty() ? "" : ", ") + titleOf(one);
        if (count == 0)
            continue;
        if (count > named)
            names += " and " + std::to_string(count - named) + " more";
        sentences.push_back(std::to_string(count) + (count == 1 ? " figure " : " figures ") +
                            (tooOld ? "too old for the table" : "that the files do not have") +
                            (count == 1 ? " is" : " are") + " gone: " + names + ".");
    }
    return sentences;
}

} // namespace vkr
