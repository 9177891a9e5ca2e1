// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"

#include <filesystem>
#include <map>
#include <unistd.h>

namespace vkr {

namespace {

namespace fs = std::filesystem;

// Before the first file is written, so that nothing is half done for a reason known from the start.
void refuseClashes(const Call& call, const std::vector<CompanySummary>& companies,
                   const fs::path& folder) {
    std::map<std::string, const CompanySummary*> prefixes;
    for (const CompanySummary& company : companies) {
        const std::string prefix = csvPrefix(company.symbol);
        const auto [other, isNew] = prefixes.emplace(prefix, &company);
        if (!isNew)
            throw CommandFailure(ExitCode::input,
                                 printable(titleOf(other->second->name, other->second->symbol) +
                                           " and " + titleOf(company.name, company.symbol) +
                                           " would be written to the same files, " + prefix +
                                           "-company.csv. Export them to different folders."));
        for (const fs::path& file : csvFiles(folder, prefix)) {
            std::string reason = whyNotReplaced(file);
            if (std::error_code ignored;
                reason.empty() && !call.line.has(Option::replace) && fs::exists(file, ignored))
                reason = file.string() + " is there already. With --replace it is written anew.";
            if (!reason.empty())
                throw CommandFailure(ExitCode::refused, printable(reason));
        }
    }
}

} // namespace

ExitCode exportCompanies(const Call& call) {
    std::vector<std::string> symbols = call.line.arguments;
    if (symbols.empty())
        throw CommandFailure(ExitCode::usage, "Name the folder to write to.");
    const fs::path folder = symbols.back();
    symbols.pop_back();
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored))
        throw CommandFailure(ExitCode::input,
                             "There is no folder " + printable(folder.string()) + ".");
    const auto store = openDatabase(call);
    const auto companies = chosenCompanies(call, *store, symbols);
    refuseClashes(call, companies, folder);

    const bool isRehearsal = call.line.has(Option::dryRun);
    if (isRehearsal && ::access(folder.c_str(), W_OK) != 0)
        throw CommandFailure(ExitCode::refused,
                             "Nothing can be written to " + printable(folder.string()) + ".");
    call.output.begin({{.name = "symbol", .width = 8}, {.name = "name", .width = 30}, {"file"}}, {},
                      Rows::oneByOne);
    std::size_t done = 0;
    ExitCode failed = ExitCode::done;
    bool isDoubtful = false; // something that is not as it was saved, or can't be read
    for (const CompanySummary& company : companies) {
        if (Terminal::isToStop()) {
            failed = ExitCode::stopped;
            break;
        }
        call.terminal.progress(done, companies.size(), company.symbol);
        try {
            const LoadedCompany loaded = load(call, *store, company);
            const CsvExport written =
                isRehearsal ? CsvExport{csvFiles(folder, csvPrefix(*loaded.record)), {}}
                            : exportCompany(*loaded.record, folder);
            if (!written.error.empty())
                throw CommandFailure(ExitCode::refused, printable(written.error));
            isDoubtful |= loaded.damage || !loaded.unreadable.empty();
            call.output.row({company.symbol, company.name, written.files.front().string()});
            ++done;
        } catch (const CommandFailure& failure) {
            call.terminal.say(printable(titleOf(company.name, company.symbol)) +
                              " was not exported: " + failure.what());
            failed = failure.code();
        }
    }
    call.output.end();
    call.terminal.endProgress();
    if (isRehearsal)
        call.terminal.say("This was a dry run: no file was written.");
    if (failed == ExitCode::done)
        return isDoubtful ? ExitCode::findings : ExitCode::done;
    call.terminal.say(std::to_string(done) + " of " + std::to_string(companies.size()) +
                      " companies were exported.");
    return failed == ExitCode::stopped || done == 0 ? failed : ExitCode::partly;
}

} // namespace vkr
