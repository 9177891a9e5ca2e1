// SPDX-License-Identifier: MIT
#include "filings/share_basis.hpp"

#include "company/exact_text.hpp"
#include "company/split.hpp"
#include "plausibility/ratios.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vkr {

namespace {

constexpr std::size_t leastPeriods = 2;
constexpr std::size_t leastFigures = 2; // of a split that the filings tell
constexpr double halfACent = 0.005;
constexpr double sameCount = 0.005; // by which a count may differ, relative
// How much of a figure its rounding may be, for it to speak for a split.
constexpr double roughlyKnown = 0.1;
constexpr double wellKnown = 0.02;

bool isByShares(const ReviewRow& row) {
    const DatumUnit unit = unitOf(row.figure.datum);
    return unit == DatumUnit::perShare || unit == DatumUnit::shares;
}

bool isCompared(const ReviewRow& row) {
    return isByShares(row) && row.element && row.stored != 0;
}

struct Expected {
    double figure = 0;
    double rounding = 0;
};

// The filed figure on a basis of which `ratio` shares of today are one.
Expected onBasis(const ReviewRow& row, double ratio) {
    const double filed = row.figure.exact;
    if (unitOf(row.figure.datum) == DatumUnit::shares)
        return {filed / ratio, std::abs(filed / ratio) * sameCount};
    const int parts = row.figure.derived ? 4 : 1; // the year less its quarters
    return {filed * ratio, halfACent * (1 + parts * ratio / row.figure.basis)};
}

bool fits(const ReviewRow& row, double ratio) {
    const Expected one = onBasis(row, ratio);
    return std::abs(row.stored - one.figure) <= one.rounding;
}

// Whether the figure is on that basis, and can't be on the filed one.
bool speaksFor(const ReviewRow& row, double ratio, double mostRounding) {
    return fits(row, ratio) && !fits(row, 1) &&
           onBasis(row, ratio).rounding <= mostRounding * std::abs(row.stored);
}

// How many figures differ from the filed ones, and how many of them a split explains.
struct Differences {
    int differing = 0;
    int fitting = 0;

    [[nodiscard]] bool areMostlyFitting() const { return 2 * fitting > differing; }
};

bool isDifferent(const ReviewRow& row) {
    return isCompared(row) && row.state == ReviewState::differs;
}

std::map<Datum, Differences> differencesOf(const FilingsReview& review,
                                           const std::vector<double>& ratios) {
    std::map<Datum, Differences> found;
    for (const ReviewRow& row : review.rows) {
        if (!isDifferent(row))
            continue;
        Differences& one = found[row.figure.datum];
        ++one.differing;
        if (std::ranges::any_of(ratios, [&](double ratio) { return fits(row, ratio); }))
            ++one.fitting;
    }
    return found;
}

// What a review has for a basis, or for several.
struct Evidence {
    std::vector<double> ratios; // those that figures speak for
    std::vector<const ReviewRow*> rows;
    std::set<std::string> periods;
};

// A datum whose figures the company counts in another way, such as earnings, says nothing.
Evidence evidenceFor(const FilingsReview& review, const std::vector<double>& ratios,
                     double mostRounding) {
    const std::map<Datum, Differences> differences = differencesOf(review, ratios);
    Evidence found;
    for (const ReviewRow& row : review.rows) {
        if (!isDifferent(row) || !differences.at(row.figure.datum).areMostlyFitting())
            continue;
        const auto said = std::ranges::find_if(
            ratios, [&](double ratio) { return speaksFor(row, ratio, mostRounding); });
        if (said == ratios.end())
            continue;
        found.rows.push_back(&row);
        found.periods.insert(row.period);
        if (std::ranges::find(found.ratios, *said) == found.ratios.end())
            found.ratios.push_back(*said);
    }
    return found;
}

bool explainsMost(const FilingsReview& review, double ratio) {
    Differences all;
    for (const auto& [datum, one] : differencesOf(review, {ratio})) {
        all.differing += one.differing;
        all.fitting += one.fitting;
    }
    return all.areMostlyFitting();
}

// The splits since which figures may stand as they did: the newest one, the two newest, ...
struct KnownBasis {
    double ratio = 1;
    std::vector<FiledSplit> splits; // oldest first
};

std::vector<KnownBasis> knownBases(std::span<const FiledSplit> splits) {
    std::vector<KnownBasis> bases;
    KnownBasis basis;
    for (auto split = splits.rbegin(); split != splits.rend(); ++split) {
        if (!split->proven.value_or(true))
            continue;
        basis.ratio *= split->ratio;
        basis.splits.insert(basis.splits.begin(), *split);
        bases.push_back(basis);
    }
    return bases;
}

std::string ratioText(double shares) {
    const auto ratio = splitRatioOf(shares);
    return ratio ? splitText(*ratio) : exactNumberText(shares) + " for 1";
}

// "14 figures per share and share counts of 2016-01-31 to 2024-01-28 are stored as they were".
std::string toldRows(const Evidence& evidence) {
    const auto [first, last] = std::ranges::minmax_element(
        evidence.rows, {}, [](const ReviewRow* row) { return row->figure.end; });
    const std::string oldest = isoDateText((*first)->figure.end);
    const std::string newest = isoDateText((*last)->figure.end);
    return std::to_string(evidence.rows.size()) + " figures per share and share counts of " +
           oldest + (newest == oldest ? "" : " to " + newest) + " are stored as they were ";
}

constexpr std::string_view adjustFirst =
    "\"Adjust for a Split...\" in the menu Figures first: until then such figures that are new or "
    "differ are doubtful.";

std::optional<std::string> toldByFilings(const FilingsReview& review,
                                         std::span<const FiledSplit> splits) {
    const std::vector<KnownBasis> bases = knownBases(splits);
    std::vector<double> ratios;
    std::ranges::transform(bases, std::back_inserter(ratios), &KnownBasis::ratio);
    const Evidence evidence = evidenceFor(review, ratios, roughlyKnown);
    if (evidence.rows.size() < leastFigures)
        return std::nullopt;
    const auto oldest = std::ranges::find_if(bases.rbegin(), bases.rend(), [&](const auto& one) {
        return std::ranges::find(evidence.ratios, one.ratio) != evidence.ratios.end();
    });
    std::string told;
    for (const FiledSplit& one : oldest->splits)
        told += (told.empty() ? "" : " and ") + ratioText(one.ratio) + ", in effect by " +
                isoDateText(one.effective);
    return toldRows(evidence) + "before the split" + (oldest->splits.size() > 1 ? "s " : " ") +
           told + ". The filed ones are on the shares of today. Choose " + std::string(adjustFirst);
}

// Of a split that the filings do not tell all figures of a period have to be as before it.
bool isContradicted(const FilingsReview& review, const Evidence& evidence) {
    return std::ranges::any_of(review.rows, [&](const ReviewRow& row) {
        return isCompared(row) && row.state == ReviewState::same &&
               evidence.periods.contains(row.period) && !fits(row, evidence.ratios.front());
    });
}

std::optional<std::string> toldByFigures(const FilingsReview& review) {
    std::set<double> usual;
    for (const ReviewRow& row : review.rows) {
        if (!isDifferent(row) || row.figure.exact == 0)
            continue;
        const double filed = row.stored / row.figure.exact;
        const bool counts = unitOf(row.figure.datum) == DatumUnit::shares;
        if (const auto ratio = splitRatioNear(counts ? 1 / filed : filed, 1 + wellKnown))
            usual.insert(*ratio);
    }
    for (const double ratio : usual) {
        const Evidence evidence = evidenceFor(review, {ratio}, wellKnown);
        if (evidence.periods.size() >= leastPeriods && explainsMost(review, ratio) &&
            !isContradicted(review, evidence))
            return toldRows(evidence) + "before a split " + ratioText(ratio) + ", or after one " +
                   ratioText(1 / ratio) +
                   ". The filings do not tell of it. Where the filed ones are right, choose " +
                   std::string(adjustFirst);
    }
    return std::nullopt;
}

} // namespace

void compareShareBasis(FilingsReview& review, std::span<const FiledSplit> splits) {
    auto told = toldByFilings(review, splits);
    if (!told)
        told = toldByFigures(review);
    if (!told)
        return;
    review.shareBasis = std::move(*told);
    for (ReviewRow& row : review.rows) {
        row.isOnOtherShares = isByShares(row) && (row.state != ReviewState::same ||
                                                  row.figure.datum == Datum::Last4QEPS);
        if (row.isOnOtherShares)
            row.figure.notes.push_back({"stored figures are on other shares", true});
    }
}

} // namespace vkr
