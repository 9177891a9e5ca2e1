// SPDX-License-Identifier: MIT
#include "filings/fiscal_calendar.hpp"

#include "filings/forms.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace vkr {

namespace {

constexpr int sameEnd = 20;   // days by which two ends of one period may differ
constexpr int sameStart = 10; // days by which a period may begin beside the end of the one before

// A period, and how many concepts have it.
struct Candidate {
    Date start;
    Date end;
    int support = 0;
};

using Uses = bool (*)(const FiledFact&);

std::vector<Candidate> candidates(std::span<const FiledConcept> concepts, DayWindow window,
                                  Uses uses) {
    std::map<std::pair<double, double>, int> support;
    for (const FiledConcept& one : concepts) {
        std::set<std::pair<double, double>> periods;
        for (const FiledFact& fact : one.facts)
            if (fact.start && uses(fact) && window.holds(daysOf(*fact.start, fact.end)))
                periods.emplace(fact.end.serial, fact.start->serial);
        for (const auto& period : periods)
            ++support[period];
    }
    std::vector<Candidate> found;
    for (const auto& [period, count] : support)
        found.push_back({Date{period.second}, Date{period.first}, count});
    return found;
}

int labelOf(Date end) {
    const CivilDate day = civil(end);
    return day.month == 1 && day.day <= 7 ? day.year - 1 : day.year;
}

// Of candidates that stand for the same period the one that most concepts have.
template <typename Same>
std::vector<Candidate> strongest(std::vector<Candidate> all, Same same) {
    std::vector<Candidate> kept;
    for (const Candidate& one : all) { // by their ends
        if (kept.empty() || !same(kept.back(), one))
            kept.push_back(one);
        else if (one.support >= kept.back().support)
            kept.back() = one;
    }
    return kept;
}

std::vector<FiscalYear> yearsOf(std::span<const FiledConcept> concepts) {
    const auto kept = strongest(
        candidates(concepts, yearDays, [](const FiledFact& fact) { return isYearForm(fact.form); }),
        [](const Candidate& left, const Candidate& right) {
            return labelOf(left.end) == labelOf(right.end) ||
                   daysBetween(left.end, right.end) < yearDays.least - sameStart;
        });
    std::vector<FiscalYear> years;
    for (const Candidate& one : kept)
        years.push_back({labelOf(one.end), one.start, one.end, {}});
    return years;
}

// The place of a quarter in a year that begins on a day: 1 to 4, or what lies outside.
int numberWithin(Date start, const Candidate& quarter) {
    return static_cast<int>(std::lround(daysOf(start, quarter.end) / 91.3));
}

FiledQuarter lastQuarterOf(const FiscalYear& year) {
    const auto& third = year.quarters[2];
    const Date start = third ? addDays(third->end, 1) : addDays(year.end, 1 - 91);
    return {start, year.end, 4, longQuarterDays.holds(daysOf(start, year.end))};
}

std::vector<Candidate> quarterCandidates(std::span<const FiledConcept> concepts) {
    const auto isReport = [](const FiledFact& fact) { return isReportForm(fact.form); };
    const auto nearEnds = [](const Candidate& left, const Candidate& right) {
        return daysBetween(left.end, right.end) < sameEnd;
    };
    auto found = strongest(candidates(concepts, quarterDays, isReport), nearEnds);
    for (const auto& one : strongest(candidates(concepts, longQuarterDays, isReport), nearEnds)) {
        const bool taken = std::ranges::any_of(found, [&](const Candidate& other) {
            return std::abs(daysBetween(one.end, other.end)) < sameEnd;
        });
        if (!taken)
            found.push_back(one);
    }
    return found;
}

} // namespace

int daysOf(Date start, Date end) {
    return daysBetween(start, end) + 1;
}

std::vector<FiledQuarter> FiscalCalendar::quarters() const {
    std::vector<FiledQuarter> all;
    const auto add = [&](const auto& some) {
        for (const auto& quarter : some)
            if (quarter)
                all.push_back(*quarter);
    };
    for (const FiscalYear& year : years)
        add(year.quarters);
    add(running);
    return all;
}

FiscalCalendar fiscalCalendar(std::span<const FiledConcept> concepts) {
    FiscalCalendar calendar;
    calendar.years = yearsOf(concepts);
    for (const Candidate& one : quarterCandidates(concepts)) {
        const bool isLong = longQuarterDays.holds(daysOf(one.start, one.end));
        for (FiscalYear& year : calendar.years) {
            if (one.end < year.start || daysBetween(one.end, year.end) < sameEnd)
                continue;
            const int number = numberWithin(year.start, one);
            if (number >= 1 && number <= 3)
                year.quarters[static_cast<std::size_t>(number - 1)] =
                    FiledQuarter{one.start, one.end, number, isLong};
        }
        if (calendar.years.empty() || daysBetween(calendar.years.back().end, one.end) < sameEnd)
            continue;
        const int number = numberWithin(addDays(calendar.years.back().end, 1), one);
        if (number >= 1 && number <= 3)
            calendar.running[static_cast<std::size_t>(number - 1)] =
                FiledQuarter{one.start, one.end, number, isLong};
    }
    for (FiscalYear& year : calendar.years)
        year.quarters[3] = lastQuarterOf(year);
    return calendar;
}

} // namespace vkr
