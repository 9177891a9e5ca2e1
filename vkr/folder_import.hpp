// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "company/typed_figures.hpp"
#include "store/company_store.hpp"
#include "store/import_matches.hpp"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vkr {

// What becomes of a company that the database has already.
enum class KnownCompany {
    leave,
    replace, // but for what was typed, and for a company that is locked
    replaceTyped,
    keepBoth,
};

enum class Fate {
    added,
    replaced,
    unchanged, // the database had just that
    left,      // the database has another state of it, which stays
    failed,
};

struct ImportedCompany {
    std::string prefix; // of its files
    std::string name;
    std::string symbol;
    Fate fate = Fate::failed;
    std::vector<std::string> errors;  // why it failed, or was left
    std::vector<std::string> kept;    // what the import has otherwise, and stayed as it was typed
    std::vector<std::string> typed;   // what was typed, and is as the import has it
    std::vector<ReplacedFigure> gone; // what else was stored, and the import has nothing for
    std::vector<std::string> notes;   // what was left out of it
    std::optional<StoreFault> fault;  // of the database
};

// Brings the companies of a folder of CSV files into a database, a hundred by each transaction:
// what was told is saved, and no more than that is in memory.
class FolderImporter {
  public:
    static constexpr std::size_t batchSize = 100;

    FolderImporter(CompanyStore& store, std::filesystem::path folder, KnownCompany known)
        : store_(store), folder_(std::move(folder)), known_(known), matches_(store) {}

    struct Watch {
        // Before each company is read; false ends it, without what was read since the last save.
        std::function<bool(const std::string& prefix)> reading;
        std::function<void(const ImportedCompany&)> saved; // after each transaction, in order
    };
    // False where it was ended, by the watch or because the database takes nothing more.
    bool run(const std::vector<std::string>& prefixes, const Watch& watch);

  private:
    struct Pending {
        ImportedCompany company;
        std::optional<SaveRequest> request;
    };
    [[nodiscard]] Pending pendingOf(const std::string& prefix, const CsvImport& import);
    void choose(Pending& pending, const CsvImport& import);
    void meet(Pending& pending, const CsvImport& import, SaveRequest& request,
              const std::vector<CompanySummary>& stored);
    void replace(Pending& pending, const CsvImport& import, SaveRequest& request,
                 const LoadedCompany& stored);
    bool save(std::vector<Pending>& batch);

    CompanyStore& store_;
    std::filesystem::path folder_;
    KnownCompany known_;
    ImportMatches matches_;
    std::set<std::string> symbols_; // of this import
};

} // namespace vkr
