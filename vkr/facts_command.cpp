// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "company/typed_figures.hpp"
#include "filings/filings_review.hpp"
#include "filings/review_table.hpp"
#include "platform/text.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"
#include "vkr/figure_keys.hpp"

#include <algorithm>
#include <memory>

namespace vkr {

namespace {

// The figures that differ or are new; all of them with --verbose. For programs the first column,
// the title, is the table and the key in it.
void writeReview(const Call& call, const FilingsReview& review) {
    const bool isForPrograms = call.output.format() != Format::text;
    const auto others = reviewColumns().subspan(1);
    std::vector<Column> columns;
    if (isForPrograms)
        columns.push_back({"table"});
    columns.push_back({reviewColumns().front().key});
    for (const ReviewColumn& column : others)
        columns.push_back({column.key, column.number != nullptr});
    if (isForPrograms)
        columns.push_back({"doubtful"});
    call.output.begin(std::move(columns));
    for (const ReviewRow& row : review.rows) {
        if (row.state == ReviewState::same && !call.line.has(Option::verbose))
            continue;
        const FigureKey key = figureKey(row.figure.datum);
        std::vector<std::string> cells;
        if (isForPrograms)
            cells = {std::string(key.table), std::string(key.key)};
        else
            cells = {reviewCell(row, reviewColumns().front())};
        for (const ReviewColumn& column : others)
            cells.push_back(column.number != nullptr ? inUnitOf(key, reviewCell(row, column))
                                                     : reviewCell(row, column));
        if (isForPrograms)
            cells.emplace_back(row.figure.isDoubtful() ? "true" : "");
        call.output.row(std::move(cells));
    }
    call.output.end();
}

std::string counted(std::ptrdiff_t count, const std::string& what) {
    return std::to_string(count) + " " + what;
}

// Whether later periods are not added, for what was typed in the oldest ones.
bool keepsPeriodsBack(const FilingsReview& review) {
    const auto keepsBack = [](const RecordSpan& span) {
        return span.added == 0 && !span.leaving.empty();
    };
    return keepsBack(review.years) || keepsBack(review.quarters);
}

// What becomes of figures where stored ones are on other shares.
void tellShareBasis(const Call& call, const FilingsReview& review) {
    const auto accepted = call.line.value(Option::accept);
    if (review.shareBasis.empty() || !accepted)
        return;
    const bool all = *accepted == "all";
    const auto figures = std::ranges::count_if(review.rows, [&](const ReviewRow& row) {
        return row.isOnOtherShares && (all || row.state == ReviewState::fresh);
    });
    if (all)
        call.terminal.say("--accept all takes " + counted(figures,
                                                          "figures on the shares of "
                                                          "today. Prices, and what no "
                                                          "filing has, stay as they are."));
    else if (figures > 0)
        call.terminal.say("--accept new leaves out what is new among them (" +
                          std::to_string(figures) + ").");
}

// What is left to look at.
std::ptrdiff_t tellCounts(const Call& call, const FilingsReview& review) {
    const auto count = [&](ReviewState state) {
        return std::ranges::count(review.rows, state, &ReviewRow::state);
    };
    const auto fresh = count(ReviewState::fresh);
    const auto differing = count(ReviewState::differs);
    call.terminal.say(counted(fresh, "new, ") + counted(differing, "different, ") +
                      counted(count(ReviewState::same), "as they are stored."));
    for (const std::string& note : notesOf(review))
        call.terminal.say(printable(note));
    tellShareBasis(call, review);
    if (keepsPeriodsBack(review))
        call.terminal.say("--accept all adds them nevertheless.");
    return fresh + differing;
}

// The account that the journal has kept of the import, each figure with the filing that it is from.
SaveAccount accountOf(const ChangeJournal& journal, const FilingsReview& review) {
    return {journal.unsaved(), {Origin::imported, importName(review.ticked()), {}}};
}

void takeOver(const Call& call, CompanyStore& store, const CompanySummary& company,
              const LoadedCompany& loaded, const FilingsReview& review) {
    if (isLocked(*loaded.record))
        throw CommandFailure(ExitCode::refused,
                             "The data of " + printable(titleOf(company.name, company.symbol)) +
                                 " are locked; nothing was changed.");
    if (loaded.damage || !loaded.unreadable.empty()) // which a save would make final; it was told
        throw CommandFailure(ExitCode::refused,
                             "Nothing was changed. Open the company in the program, and save what "
                             "it is to be.");
    const auto record = loaded.record->clone();
    const auto journal = std::make_shared<ChangeJournal>(record);
    if (const auto refusal = importFilings(journal, review))
        throw CommandFailure(ExitCode::refused, printable(*refusal));
    valueOf(store.save(company.key.id, *record, loaded.revision, accountOf(*journal, review)));
    call.terminal.say(importName(review.ticked()) +
                      (call.line.has(Option::dryRun) ? ": would be done." : ": done."));
}

// A company that the database has under another symbol is not to come in twice, for a slip in it.
void refuseKnownName(CompanyStore& store, const std::string& name) {
    const auto known = valueOf(store.find(ListColumn::name, name));
    if (known.empty())
        return;
    const CompanySummary& one = known.front();
    throw CommandFailure(ExitCode::input, "The database has " +
                                              printable(titleOf(one.name, one.symbol)) +
                                              " already. Nothing was changed. Name it by its "
                                              "symbol, or by --symbol id:" +
                                              std::to_string(one.key.id) + ".");
}

FilingsReview reviewOf(const Call& call, const CompanyRecord& record,
                       const FigureOrigins& origins) {
    const auto accepted = call.line.value(Option::accept);
    const Adding adding = accepted == "all" ? Adding::always : Adding::whereNothingTypedLeaves;
    FilingsReview review = reviewFilingsFile(
        call.line.arguments.front(), record,
        {.originOf = [&](Datum datum,
                         std::optional<int> element) { return origins.of(datum, element).origin; },
         .cik = importedCik(origins),
         .years = adding,
         .quarters = adding});
    if (!review.refusal.empty())
        throw CommandFailure(ExitCode::input,
                             printable(call.line.arguments.front() + ": " + review.refusal));
    tick(review, !accepted            ? ReviewTicks::none
                 : *accepted == "all" ? ReviewTicks::all
                                      : ReviewTicks::fresh);
    return review;
}

// What the document says of a company that the database has not: it is added with what is accepted.
void addCompany(const Call& call, CompanyStore& store, const std::string& symbol,
                const std::shared_ptr<CompanyRecord>& record, const FilingsReview& review) {
    const std::string title = printable(titleOf(review.entityName, upperCase(symbol)));
    const int ticked = review.ticked();
    if (ticked == 0) {
        call.terminal.say(title + " is not in the database. It is added with what --accept takes.");
        return;
    }
    const auto journal = std::make_shared<ChangeJournal>(record);
    journal->put_Symbol(upperCase(symbol)); // typed: no document has it
    if (const auto refusal = importFilings(journal, review))
        throw CommandFailure(ExitCode::refused, printable(*refusal));
    valueOf(store.save(std::nullopt, *record, 0, accountOf(*journal, review)));
    call.terminal.say(title + " was not in the database and " +
                      (call.line.has(Option::dryRun) ? "would be" : "is") +
                      " added: " + importName(ticked) + ".");
}

} // namespace

ExitCode importFacts(const Call& call) {
    const auto symbol = call.line.value(Option::symbol);
    if (!symbol || trimmed(*symbol).empty())
        throw CommandFailure(ExitCode::usage, "Name the company with --symbol SYMBOL.");
    const auto store =
        openDatabase(call, call.line.has(Option::accept) ? OpenMode::existing : OpenMode::reading);
    const auto found = companyIfThere(*store, *symbol);
    const LoadedCompany loaded = found ? load(call, *store, *found)
                                       : LoadedCompany{std::make_shared<CompanyRecord>(), 0, {}};
    const FilingsReview review = reviewOf(call, *loaded.record, loaded.origins);
    if (!found)
        refuseKnownName(*store, review.entityName);
    else if (review.match != CompanyMatch::same && !call.line.has(Option::sameCompany))
        throw CommandFailure(ExitCode::input, printable(review.question) +
                                                  "\nNothing was changed. With "
                                                  "--same-company it is taken as it is.");
    if (!review.shareBasis.empty())
        call.terminal.say(printable(review.shareBasis));
    writeReview(call, review);
    const auto open = tellCounts(call, review);
    const int ticked = review.ticked();
    if (!found)
        addCompany(call, *store, *symbol, loaded.record, review);
    else if (ticked > 0)
        takeOver(call, *store, *found, loaded, review);
    if (call.line.has(Option::dryRun))
        call.terminal.say("This was a dry run: nothing was saved.");
    const bool isToLookAt =
        open > ticked || keepsPeriodsBack(review) || !review.shareBasis.empty() || loaded.damage;
    return isToLookAt ? ExitCode::findings : ExitCode::done;
}

} // namespace vkr
