// SPDX-License-Identifier: MIT
#include "vkr/folder_import.hpp"

#include "company/typed_figures.hpp"
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

void noteFault(ImportedCompany& company, const StoreError& error) {
    company.fate = Fate::failed;
    company.errors.push_back(error.message);
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
    const auto stored = matches_.take(*record);
    if (!stored)
        return noteFault(company, stored.error());
    SaveRequest request{std::nullopt, record, 0, importedFrom(company.prefix, import)};
    company.fate = Fate::added;
    if (stored.value()) {
        const CompanyKey key = stored.value()->key;
        const auto loaded = store_.load(key.id);
        if (!loaded)
            return noteFault(company, loaded.error());
        if (loaded.value().unreadable.empty() && sameAs(*loaded.value().record, *record)) {
            company.fate = Fate::unchanged;
            return;
        }
        if (known_ == KnownCompany::leave) {
            company.fate = Fate::left;
            company.errors.emplace_back("the database has it already, with other data");
            return;
        }
        if (known_ != KnownCompany::keepBoth) {
            request.id = key.id;
            replace(pending, request, loaded.value(), record);
            return;
        }
    }
    pending.request = std::move(request);
}

void FolderImporter::replace(Pending& pending, SaveRequest& request, const LoadedCompany& stored,
                             const std::shared_ptr<CompanyRecord>& record) {
    ImportedCompany& company = pending.company;
    if (isLocked(*stored.record)) {
        company.fate = Fate::left;
        company.errors.emplace_back("its data are locked in the database");
        return;
    }
    keepWhatIsMissing(*stored.record, request.account.documents, *record);
    if (known_ == KnownCompany::replace) {
        if (stored.damage) { // what was typed can't be told from what is damaged
            company.fate = Fate::left;
            company.errors.push_back(stored.damage->message);
            return;
        }
        const auto typed = typedFigures(*stored.record, stored.origins, *record);
        for (const TypedFigure& figure : typed)
            if (figure.leavesTheTable) {
                company.fate = Fate::left;
                company.errors.push_back("what was typed would be lost: " + describe(figure));
            }
        if (company.fate == Fate::left)
            return;
        keepFigures(*stored.record, typed, *record);
        for (const TypedFigure& figure : typed)
            company.notes.push_back("what was typed stays: " + describe(figure));
        if (sameAs(*stored.record, *record)) {
            company.fate = Fate::unchanged;
            return;
        }
    }
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
