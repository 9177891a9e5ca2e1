// SPDX-License-Identifier: MIT
#include "vkr/folder_import.hpp"

#include "vkr/database.hpp"
#include "vkr/read_ahead.hpp"

#include <utility>

namespace vkr {

namespace {

std::vector<std::string> described(const std::vector<CsvProblem>& problems) {
    std::vector<std::string> lines;
    lines.reserve(problems.size());
    for (const CsvProblem& problem : problems)
        lines.push_back(describe(problem));
    return lines;
}

// "Apple Inc. (AAPL), id:1, and ..."
std::string namesOf(const std::vector<CompanySummary>& companies) {
    std::string names;
    for (const CompanySummary& one : companies)
        names += (names.empty() ? "" : " and ") + titleOf(one.name, one.symbol) +
                 ", id:" + std::to_string(one.key.id);
    return names;
}

void noteFault(ImportedCompany& company, const StoreError& error) {
    company.fate = Fate::failed;
    company.errors.push_back(error.message);
    company.gone.clear();
    company.fault = error.fault;
}

} // namespace

bool FolderImporter::run(const std::vector<std::string>& prefixes, const Watch& watch) {
    std::vector<Pending> batch;
    const auto saveBatch = [&] {
        const bool goesOn = save(batch);
        for (const Pending& pending : batch)
            watch.saved(pending.company);
        batch.clear();
        return goesOn;
    };
    ReadAhead files(folder_, prefixes);
    for (const std::string& prefix : prefixes) {
        if (!watch.reading(prefix))
            return false;
        batch.push_back(pendingOf(prefix, files.next()));
        if (batch.back().company.fault) {
            saveBatch();
            return false;
        }
        if (batch.size() == batchSize && !saveBatch())
            return false;
    }
    return saveBatch();
}

FolderImporter::Pending FolderImporter::pendingOf(const std::string& prefix,
                                                  const CsvImport& import) {
    Pending pending;
    pending.company.prefix = prefix;
    pending.company.errors = described(import.errors);
    pending.company.notes = described(import.notes);
    if (import.company) {
        pending.company.name = import.company->get_Name();
        pending.company.symbol = import.company->get_Symbol();
        choose(pending, import);
    }
    return pending;
}

void FolderImporter::choose(Pending& pending, const CsvImport& import) {
    ImportedCompany& company = pending.company;
    const std::shared_ptr<CompanyRecord>& record = import.company;
    if (!company.symbol.empty() && !symbols_.insert(company.symbol).second &&
        known_ != KnownCompany::keepBoth) {
        company.errors.push_back("another company of the folder has the symbol " + company.symbol +
                                 ", too");
        return;
    }
    const auto stored = matches_.of(*record);
    if (!stored)
        return noteFault(company, stored.error());
    SaveRequest request{std::nullopt, record, 0, importedFrom(company.prefix, import)};
    company.fate = Fate::added;
    if (stored.value().empty())
        pending.request = std::move(request);
    else
        meet(pending, import, request, stored.value());
}

// What is stored of its symbol already.
void FolderImporter::meet(Pending& pending, const CsvImport& import, SaveRequest& request,
                          const std::vector<CompanySummary>& stored) {
    ImportedCompany& company = pending.company;
    std::optional<LoadedCompany> known;
    for (const CompanySummary& one : stored) {
        auto loaded = store_.load(one.key.id);
        if (!loaded)
            return noteFault(company, loaded.error());
        if (loaded.value().unreadable.empty() && sameAs(*loaded.value().record, *request.record)) {
            matches_.take(one);
            company.fate = Fate::unchanged;
            return;
        }
        known = std::move(loaded.value());
    }
    if (known_ == KnownCompany::keepBoth) {
        pending.request = std::move(request);
        return;
    }
    company.fate = Fate::left;
    if (known_ == KnownCompany::leave) {
        company.errors.emplace_back("the database has it already, with other data");
    } else if (stored.size() > 1) {
        company.errors.push_back(
            "the database has several companies that it may be: " + namesOf(stored) +
            ". Give the others another symbol, or delete them");
    } else {
        matches_.take(stored.front());
        request.id = stored.front().key.id;
        replace(pending, import, request, *known);
    }
}

void FolderImporter::replace(Pending& pending, const CsvImport& import, SaveRequest& request,
                             const LoadedCompany& stored) {
    ImportedCompany& company = pending.company;
    const auto record = request.record->clone();
    request.record = record;
    if (isLocked(*stored.record)) {
        company.errors.emplace_back("its data are locked in the database");
        return;
    }
    if (!stored.damage) // nothing that is wrong is to become right by a save
        keepWhatIsMissing(*stored.record, stored.origins, import, *record);
    const bool keeps = known_ == KnownCompany::replace;
    if (keeps && stored.damage) { // what was typed can't be told from what is damaged
        company.errors.push_back(stored.damage->message);
        return;
    }
    const auto typed = typedFigures(*stored.record, stored.origins, *record);
    for (const ReplacedFigure& figure : typed)
        if (!keeps)
            company.typed.push_back("what was typed is replaced: " + describe(figure));
        else if (figure.leavesTheTable())
            company.errors.push_back("what was typed would be lost: " + describe(figure));
    if (!company.errors.empty())
        return;
    if (keeps) {
        keepFigures(*stored.record, typed, *record);
        for (const ReplacedFigure& figure : typed)
            company.kept.push_back("what was typed stays: " + describe(figure));
        if (sameAs(*stored.record, *record)) {
            company.fate = Fate::unchanged;
            return;
        }
    }
    company.gone = goneFigures(*stored.record, stored.origins, *record);
    company.fate = Fate::replaced;
    request.expectedRevision = stored.revision;
    pending.request = std::move(request);
}

// Where a company was changed elsewhere in the meantime the others are saved one by one.
bool FolderImporter::save(std::vector<Pending>& batch) {
    std::vector<SaveRequest> requests;
    for (const Pending& pending : batch)
        if (pending.request)
            requests.push_back(*pending.request);
    if (requests.empty())
        return true;
    const auto saved = store_.saveAll(requests);
    if (saved)
        return true;
    const bool isConflict = saved.error().fault == StoreFault::conflict;
    for (Pending& pending : batch) {
        if (!pending.request)
            continue;
        if (!isConflict) {
            noteFault(pending.company, saved.error());
            continue;
        }
        const SaveRequest& request = *pending.request;
        const auto single =
            store_.save(request.id, *request.record, request.expectedRevision, request.account);
        if (!single)
            noteFault(pending.company, single.error());
    }
    return isConflict;
}

} // namespace vkr
