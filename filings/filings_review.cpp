// SPDX-License-Identifier: MIT
#include "filings/filings_review.hpp"

#include "company/exact_text.hpp"
#include "filings/earnings_sum.hpp"
#include "filings/figure_order.hpp"
#include "filings/share_basis.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

namespace vkr {

namespace {

constexpr std::string_view ofCik = "CIK "; // a document that is all of a company's filings

// A stored figure that is the filed one, rounded as figures of its unit are.
double rounding(DatumUnit unit) {
    switch (unit) {
    case DatumUnit::perShare:
        return 0.00005;
    case DatumUnit::percent:
        return 0.005;
    default:
        return 0.0005; // thousands
    }
}

ReviewState stateOf(const FiledFigure& figure, double stored) {
    if (stored == figure.value)
        return ReviewState::same;
    if (stored == 0)
        return ReviewState::fresh;
    const double most = rounding(unitOf(figure.datum)) + std::abs(figure.exact) * 1e-13;
    return std::abs(stored - figure.exact) <= most ? ReviewState::same : ReviewState::differs;
}

// Whether the figure may be taken unasked.
bool isSafe(const ReviewRow& row) {
    return !row.figure.isDoubtful() && !row.isByHand();
}

// A figure of the record, as it is before the spans are made.
std::optional<double> storedFigure(const iVKR_Company& company, Datum datum,
                                   std::optional<int> element) {
    const Variant held = readDatum(company, datum);
    if (!element)
        return held.toDouble();
    return held.isArray() && held.array().contains(*element)
               ? std::optional(held.array().number(*element))
               : std::nullopt;
}

class Reviewer {
  public:
    Reviewer(const FiledCompany& filed, const iVKR_Company& company, const ReviewOptions& options)
        : filed_(filed), company_(company), options_(options) {}

    FilingsReview review() {
        review_.entityName = filed_.name;
        review_.cik = filed_.cik;
        review_.refusal = filed_.refusal;
        compareNames();
        if (!review_.refusal.empty())
            return std::move(review_);
        review_.years = yearSpan(filed_.calendar, company_, options_.years, options_.originOf);
        review_.quarters =
            quarterSpan(filed_.calendar, company_, options_.quarters, options_.originOf);
        for (const FiledFigure& figure : filed_.figures)
            add(figure);
        addEarningsSum(review_, company_);
        if (ReviewRow* sum = earningsSumRow(review_); sum != nullptr && options_.originOf)
            sum->origin = options_.originOf(Datum::Last4QEPS, std::nullopt);
        compareShareBasis(review_, filed_.splits);
        std::ranges::stable_sort(
            review_.rows, {}, [](const ReviewRow& row) { return figureOrder(row.figure.datum); });
        if (outside_ > 0)
            review_.notes.push_back(
                outside_ == 1
                    ? "1 figure of a period that the table has no place for is left out."
                    : std::to_string(outside_) +
                          " figures of periods that the table has no place for are left out.");
        review_.notes.insert(review_.notes.end(), filed_.notes.begin(), filed_.notes.end());
        tick(review_, ReviewTicks::preset);
        return std::move(review_);
    }

  private:
    void compareNames() {
        const std::string name = company_.get_Name();
        const std::string symbol = company_.get_Symbol();
        review_.match = matchCompany(filed_.name, name);
        const bool wasAnother = options_.cik != 0 && filed_.cik != 0 && options_.cik != filed_.cik;
        if (wasAnother && review_.match == CompanyMatch::same)
            review_.match = CompanyMatch::unsure;
        if (review_.match == CompanyMatch::same)
            return;
        std::string held = name.empty() ? symbol : name;
        if (!name.empty() && !symbol.empty())
            held += " (" + symbol + ")";
        review_.question = "The document is of " + filed_.name + " (CIK " +
                           std::to_string(filed_.cik) + "), the company is " +
                           (held.empty() ? "one without a name" : held) + ".";
        if (wasAnother)
            review_.question += " It was imported from the filings of another one before (CIK " +
                                std::to_string(options_.cik) + ").";
    }

    void add(const FiledFigure& figure) {
        const DatumPeriod period = rowOf(figure.datum).period;
        std::optional<int> element;
        int added = 0;
        std::string label = isoDateText(figure.end);
        if (period == DatumPeriod::year) {
            const int year = yearOf(figure.end);
            element = placeIn(review_.years, review_.years.elementOfYear(year), 1);
            added = review_.years.added;
            label = std::to_string(year);
        } else if (period == DatumPeriod::quarter) {
            element = placeIn(review_.quarters, review_.quarters.elementOfQuarter(figure.end), 0);
            added = review_.quarters.added;
        }
        const bool isSeries = period != DatumPeriod::none;
        if (isSeries && (!element || !places_.emplace(figure.datum, *element).second)) {
            ++outside_;
            return;
        }
        // Moved on from outside of the series, an element is empty.
        const auto place = isSeries ? std::optional(*element - added) : std::nullopt;
        const auto target = storedFigure(company_, figure.datum, element);
        if (!target) {
            ++outside_;
            return;
        }
        const double stored = storedFigure(company_, figure.datum, place).value_or(0);
        if (stored == 0 && figure.value == 0)
            return; // what a record has no value for is 0
        ReviewRow row{figure, element, label, stored, stateOf(figure, stored), std::nullopt, false};
        if (stored != 0 && options_.originOf)
            row.origin = options_.originOf(figure.datum, place);
        review_.rows.push_back(std::move(row));
    }

    // Element 0 of a yearly series is shown nowhere.
    [[nodiscard]] static std::optional<int> placeIn(const RecordSpan& span, int element,
                                                    int least) {
        return span.placed && element >= least ? std::optional(element) : std::nullopt;
    }

    [[nodiscard]] int yearOf(Date end) const {
        const auto& years = filed_.calendar.years;
        return std::ranges::find(years, end, &FiscalYear::end)->year;
    }

    const FiledCompany& filed_;
    const iVKR_Company& company_;
    const ReviewOptions& options_;
    FilingsReview review_;
    std::set<std::pair<Datum, int>> places_;
    int outside_ = 0;
};

// Those that the ticked figures need.
std::vector<const RecordSpan*> spansOf(const FilingsReview& review) {
    std::vector<const RecordSpan*> spans;
    if (review.makesSpan(DatumPeriod::year))
        spans.push_back(&review.years);
    if (review.makesSpan(DatumPeriod::quarter))
        spans.push_back(&review.quarters);
    return spans;
}

// What is written together: the inner action, and its changes.
struct Part {
    Action action;
    std::vector<DatumChange> changes;
};

std::vector<Part> partsOf(const iVKR_Company& company, const FilingsReview& review) {
    const Action asTheWhole{Origin::imported, {}, std::string(ofCik) + std::to_string(review.cik)};
    std::vector<Part> parts;
    for (const RecordSpan* span : spansOf(review)) {
        Part dates{asTheWhole, {}};
        Part moved{{Origin::shifted, {}, {}}, {}};
        for (const DatumChange& change : span->changes)
            (change.after.isArray() ? moved : dates).changes.push_back(change);
        for (Part* part : {&dates, &moved})
            if (!part->changes.empty())
                parts.push_back(std::move(*part));
    }
    if (company.get_Name().empty() && !review.entityName.empty())
        parts.push_back(
            {asTheWhole, {{Datum::Name, std::nullopt, std::string(), review.entityName}}});
    for (const ReviewRow& row : review.rows) {
        if (!row.ticked || row.figure.datum == Datum::Last4QEPS)
            continue;
        const std::string& document = row.figure.source.accession;
        auto part = std::ranges::find_if(parts, [&](const Part& one) {
            return one.action.origin == Origin::imported && one.action.document == document;
        });
        if (part == parts.end())
            part = parts.insert(part, Part{{Origin::imported, {}, document}, {}});
        part->changes.push_back({row.figure.datum, row.element, row.stored, row.figure.value});
    }
    return parts;
}

// Whether the record is still the one that was reviewed.
bool isCurrent(const iVKR_Company& company, const FilingsReview& review) {
    const auto unchanged = [&](const ReviewRow& row) {
        const int added = rowOf(row.figure.datum).period == DatumPeriod::year
                              ? review.years.added
                              : review.quarters.added;
        const auto place = row.element ? std::optional(*row.element - added) : std::nullopt;
        return storedFigure(company, row.figure.datum, place).value_or(0) == row.stored;
    };
    const auto holds = [&](const DatumChange& one) {
        return readDatum(company, one.datum) == one.before;
    };
    return std::ranges::all_of(review.rows, unchanged) &&
           std::ranges::all_of(review.years.changes, holds) &&
           std::ranges::all_of(review.quarters.changes, holds);
}

} // namespace

std::int64_t importedCik(const FigureOrigins& origins) {
    for (const Datum datum : {Datum::LastFYDate, Datum::LastQDateForGrid, Datum::Name}) {
        const std::string document = origins.of(datum).document;
        std::int64_t cik = 0;
        if (document.starts_with(ofCik) &&
            std::from_chars(document.data() + ofCik.size(), document.data() + document.size(), cik)
                    .ec == std::errc())
            return cik;
    }
    return 0;
}

FilingsReview reviewFilings(const FiledCompany& filed, const iVKR_Company& company,
                            const ReviewOptions& options) {
    FilingsReview review = Reviewer(filed, company, options).review();
    if (review.shareBasis.empty())
        return review;
    // Before the split is made: later periods would move its figures to where it does not reach.
    ReviewOptions without = options;
    for (Adding* adding : {&without.years, &without.quarters})
        if (*adding == Adding::whereNothingTypedLeaves)
            *adding = Adding::never;
    return Reviewer(filed, company, without).review();
}

FilingsReview reviewFilingsFile(const std::filesystem::path& file, const iVKR_Company& company,
                                const ReviewOptions& options) {
    const FilingsReading reading = readFilingsFile(file);
    if (reading.document)
        return reviewFilings(filedFigures(*reading.document), company, options);
    FilingsReview review;
    review.refusal = reading.error;
    return review;
}

bool passes(const ReviewRow& row, ReviewFilter filter) {
    switch (filter) {
    case ReviewFilter::all:
        return true;
    case ReviewFilter::fresh:
        return row.state == ReviewState::fresh;
    case ReviewFilter::differs:
        return row.state == ReviewState::differs;
    case ReviewFilter::same:
        return row.state == ReviewState::same;
    case ReviewFilter::byHand:
        return row.isByHand();
    case ReviewFilter::doubtful:
        return row.figure.isDoubtful();
    }
    return true;
}

void tick(FilingsReview& review, ReviewTicks ticks) {
    ReviewRow* const sum = earningsSumRow(review);
    for (ReviewRow& row : review.rows) {
        if (&row == sum)
            continue;
        const bool isNew = row.state == ReviewState::fresh;
        const bool changes = row.state != ReviewState::same;
        row.ticked = ticks == ReviewTicks::all     ? changes
                     : ticks == ReviewTicks::none  ? false
                     : ticks == ReviewTicks::fresh ? isNew && isSafe(row)
                                                   : changes && isSafe(row);
    }
    followTicks(review);
    if (sum != nullptr)
        sum->ticked = sum->state != ReviewState::same && ticks != ReviewTicks::none &&
                      (ticks == ReviewTicks::all || isSafe(*sum));
}

void followTicks(FilingsReview& review) {
    ReviewRow* const sum = earningsSumRow(review);
    if (sum == nullptr)
        return;
    const bool stayed = sum->state == ReviewState::same;
    sum->figure.value = earningsSum(review).value_or(sum->stored);
    sum->figure.exact = sum->figure.value;
    sum->state = stateOf(sum->figure, sum->stored);
    if (sum->state == ReviewState::same)
        sum->ticked = false;
    else if (stayed)
        sum->ticked = isSafe(*sum);
}

std::vector<std::string> notesOf(const FilingsReview& review) {
    std::vector<std::string> notes;
    const auto add = [&](const std::vector<std::string>& more) {
        notes.insert(notes.end(), more.begin(), more.end());
    };
    for (const RecordSpan* span : spansOf(review))
        add(span->toldOfChanges);
    add(review.years.told);
    add(review.quarters.told);
    add(review.notes);
    return notes;
}

std::optional<std::string> importFilings(const std::shared_ptr<iVKR_Company>& company,
                                         const FilingsReview& review) {
    if (!review.refusal.empty())
        return review.refusal;
    if (review.ticked() == 0)
        return "No figure is ticked.";
    std::vector<Part> parts;
    bool current = false;
    if (auto refusal = failureOf([&] {
            current = isCurrent(*company, review);
            parts = partsOf(*company, review);
        }))
        return refusal;
    if (!current)
        return "The company has been changed since the figures were compared.";
    const ActionScope whole(company, {Origin::imported, importName(review.ticked()), {}});
    const auto write = [&](const Part& part) {
        const ActionScope scope(company, part.action);
        return applyChanges(*company, part.changes);
    };
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        auto refusal = write(*part);
        if (!refusal)
            continue;
        while (part != parts.begin()) {
            --part;
            static_cast<void>(write({part->action, inverted(part->changes)}));
        }
        return refusal;
    }
    // A record that has no place for the sum has all figures nevertheless.
    for (const ReviewRow& row : review.rows)
        if (const auto sum = earningsSum(review);
            sum && row.ticked && row.figure.datum == Datum::Last4QEPS)
            ifPossible([&] {
                static_cast<void>(write({{Origin::derived, {}, {}},
                                         {{Datum::Last4QEPS, std::nullopt, row.stored, *sum}}}));
            });
    return std::nullopt;
}

std::string importName(int figures) {
    return "Import of " + std::to_string(figures) + (figures == 1 ? " Figure" : " Figures");
}

} // namespace vkr
