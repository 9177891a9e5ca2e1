// SPDX-License-Identifier: MIT
#include "vkr/call.hpp"
#include "vkr/database.hpp"
#include "vkr/folder_import.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vkr {

namespace {

constexpr std::string_view fateNames[] = {"added", "replaced", "unchanged", "left", "failed"};

KnownCompany knownIn(const CommandLine& line) {
    const bool isReplacing = line.has(Option::replace) || line.has(Option::replaceTyped);
    if (isReplacing && line.has(Option::keepBoth))
        throw CommandFailure(ExitCode::usage, "--replace and --keep-both rule each other out.");
    if (line.has(Option::replaceTyped))
        return KnownCompany::replaceTyped;
    if (line.has(Option::replace))
        return KnownCompany::replace;
    return line.has(Option::keepBoth) ? KnownCompany::keepBoth : KnownCompany::leave;
}

// Tells what happens while it does, and what it comes to.
class ImportReport {
  public:
    explicit ImportReport(const Call& call) : call_(call) {
        std::vector<Column> columns = {
            {.name = "fate", .width = 9}, {.name = "symbol", .width = 8}, {"name"}};
        if (isForPrograms())
            columns.push_back({"gone"});
        call_.output.begin(std::move(columns), {}, Rows::oneByOne);
    }

    void add(const ImportedCompany& company) {
        ++counts_[static_cast<std::size_t>(company.fate)];
        notes_ += company.notes.size();
        if (company.fault && !fault_)
            fault_ = company.fault;
        std::vector<std::string> row = {
            std::string(fateNames[static_cast<std::size_t>(company.fate)]),
            company.symbol.empty() ? company.prefix : company.symbol, company.name};
        if (isForPrograms())
            row.push_back(std::to_string(company.gone.size()));
        call_.output.row(std::move(row));
        kept_ += company.kept.size();
        typed_ += company.typed.size();
        tell(company, company.errors);
        tell(company, company.kept);
        if (listsWhatGoes())
            tell(company, company.typed);
        tellGone(company);
        lacksWhatWasThere_ |= std::ranges::any_of(company.gone, [](const ReplacedFigure& one) {
            return one.leaves != ReplacedFigure::Leaves::tooOld;
        });
        if (isVerbose())
            tell(company, company.notes);
    }

    ExitCode finish(std::size_t total, bool isStopped) {
        call_.output.end();
        std::string words;
        std::size_t seen = 0;
        for (std::size_t fate = 0; fate < counts_.size(); ++fate)
            if (const std::size_t count = counts_[fate]; count > 0) {
                seen += count;
                words += (words.empty() ? "" : ", ") + std::to_string(count) + " " +
                         std::string(fateNames[fate]);
            }
        call_.terminal.say((words.empty() ? "Nothing was imported" : words) + ".");
        if (typed_ > 0)
            call_.terminal.say("Replaced though typed: " + std::to_string(typed_) +
                               (isVerbose() ? "." : "; --verbose lists them."));
        if (notes_ > 0 && !isVerbose())
            call_.terminal.say(std::to_string(notes_) +
                               " entries and tables were left out or are not there; --verbose "
                               "lists them.");
        if (seen < total)
            call_.terminal.say(std::string(isStopped ? "Stopped: " : "Given up: ") +
                               std::to_string(total - seen) + " companies were not looked at.");
        if (call_.line.has(Option::dryRun))
            call_.terminal.say("This was a dry run: nothing was saved.");
        return code(isStopped);
    }

  private:
    [[nodiscard]] bool isVerbose() const { return call_.line.has(Option::verbose); }
    [[nodiscard]] bool listsWhatGoes() const {
        return isVerbose() || call_.line.has(Option::dryRun);
    }
    [[nodiscard]] bool isForPrograms() const { return call_.output.format() != Format::text; }
    // Each of them, or how many and the first ones.
    void tellGone(const ImportedCompany& company) {
        if (!listsWhatGoes())
            return tell(company, goneInWords(company.gone));
        std::vector<std::string> lines;
        for (const ReplacedFigure& figure : company.gone)
            lines.push_back("gone: " + describeGone(figure));
        tell(company, lines);
    }
    void tell(const ImportedCompany& company, const std::vector<std::string>& lines) {
        for (const std::string& line : lines)
            call_.terminal.say(printable(company.prefix + ": " + line));
    }
    [[nodiscard]] std::size_t count(Fate fate) const {
        return counts_[static_cast<std::size_t>(fate)];
    }
    [[nodiscard]] ExitCode code(bool isStopped) const {
        if (isStopped)
            return ExitCode::stopped;
        if (count(Fate::failed) + count(Fate::left) + kept_ == 0)
            return lacksWhatWasThere_ ? ExitCode::findings : ExitCode::done;
        if (count(Fate::added) + count(Fate::replaced) + count(Fate::unchanged) > 0)
            return ExitCode::partly;
        if (fault_)
            return exitCodeOf(*fault_);
        return count(Fate::failed) > 0 ? ExitCode::input : ExitCode::partly;
    }

    const Call& call_;
    std::array<std::size_t, std::size(fateNames)> counts_{};
    std::size_t notes_ = 0;
    std::size_t kept_ = 0;           // figures that stayed as they were typed
    std::size_t typed_ = 0;          // and those that did not
    bool lacksWhatWasThere_ = false; // something that was stored, and the files do not have
    std::optional<StoreFault> fault_;
};

} // namespace

ExitCode importCompanies(const Call& call) {
    const KnownCompany known = knownIn(call.line);
    const std::filesystem::path path = call.line.arguments.front();
    const CsvFolder folder = csvFolder(path);
    if (!folder.error.empty())
        throw CommandFailure(ExitCode::input, printable(folder.error) + ".");
    if (folder.prefixes.empty())
        throw CommandFailure(ExitCode::input,
                             "There is no company in " + printable(path.string()) +
                                 ": one has at least a file named like AAPL-company.csv.");
    const auto store =
        openDatabase(call, call.line.has(Option::create) ? OpenMode::create : OpenMode::existing);

    ImportReport report(call);
    std::size_t read = 0;
    FolderImporter importer(*store, path, known);
    importer.run(folder.prefixes, {[&](const std::string& prefix) {
                                       call.terminal.progress(read++, folder.prefixes.size(),
                                                              prefix);
                                       return !Terminal::isToStop();
                                   },
                                   [&](const ImportedCompany& company) { report.add(company); }});
    return report.finish(folder.prefixes.size(), Terminal::isToStop());
}

} // namespace vkr
