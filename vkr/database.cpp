// SPDX-License-Identifier: MIT
#include "vkr/database.hpp"

#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include <algorithm>
#include <charconv>
#include <functional>
#include <iterator>
#include <optional>
#include <set>

namespace vkr {

namespace {

constexpr std::string_view byNumber = "id:";
constexpr std::int64_t pageSize = 500;

std::string databasePlace(const CommandLine& line) {
    if (const auto named = line.value(Option::database))
        return *named;
    const std::string place = qEnvironmentVariable("VKR_DATABASE").toStdString();
    if (place.empty())
        throw CommandFailure(ExitCode::usage,
                             "Name the database with --database PLACE: a file, or "
                             "postgresql://user@host:port/name. Or put it into VKR_DATABASE. A new "
                             "one is made by vkr --database FILE import FOLDER --create.");
    return place;
}

std::optional<std::int64_t> numberIn(const std::string& symbol) {
    std::int64_t id = 0;
    if (!symbol.starts_with(byNumber))
        return std::nullopt;
    const char* end = symbol.data() + symbol.size();
    const auto [rest, fault] = std::from_chars(symbol.data() + byNumber.size(), end, id);
    return fault == std::errc() && rest == end ? std::optional(id) : std::nullopt;
}

CompanySummary summaryOf(CompanyStore& store, std::int64_t id) {
    const LoadedCompany loaded = valueOf(store.load(id));
    const CompanyRecord& record = *loaded.record;
    CompanySummary summary;
    summary.key = {id, loaded.revision};
    summary.name = record.get_Name();
    summary.symbol = record.get_Symbol();
    return summary;
}

std::string numbersOf(const std::vector<CompanySummary>& companies) {
    std::string text;
    for (const CompanySummary& company : companies)
        text += "\n  " + std::string(byNumber) + std::to_string(company.key.id) + "  " +
                printable(titleOf(company.name, company.symbol));
    return text;
}

// A dry run makes no database: it goes by an empty one that goes when the program ends.
std::optional<std::string> placeInstead(const std::string& place, OpenMode mode,
                                        const StoreOptions& options) {
    const QFileInfo file(QString::fromStdString(place));
    if (!options.isRehearsal || mode != OpenMode::create || CompanyStore::isOnServer(place) ||
        file.exists())
        return std::nullopt;
    QFileInfo folder(file.absolutePath());
    while (!folder.exists() && folder.absoluteFilePath() != folder.absolutePath())
        folder.setFile(folder.absolutePath());
    if (!folder.isDir() || !folder.isWritable())
        throw CommandFailure(ExitCode::refused,
                             printable(place) + " can't be made: there is no writing to " +
                                 printable(folder.absoluteFilePath().toStdString()) + ".");
    static const QTemporaryDir made;
    if (!made.isValid())
        throw CommandFailure(ExitCode::refused, made.errorString().toStdString() + ".");
    const std::string instead = made.filePath(file.fileName()).toStdString();
    StoreOptions real = options;
    real.isRehearsal = false;
    static_cast<void>(valueOf(CompanyStore::open(instead, OpenMode::create, real)));
    return instead;
}

} // namespace

ExitCode exitCodeOf(StoreFault fault) {
    switch (fault) {
    case StoreFault::locked:
    case StoreFault::readOnly:
    case StoreFault::full:
    case StoreFault::conflict:
    case StoreFault::uncertain:
        return ExitCode::refused;
    default:
        return ExitCode::input;
    }
}

void fail(const StoreError& error) {
    throw CommandFailure(exitCodeOf(error.fault), error.message);
}

std::unique_ptr<CompanyStore> openDatabase(const Call& call, OpenMode mode) {
    StoreOptions options;
    options.patience = std::chrono::seconds(10); // nobody sits there waiting
    options.isRehearsal = call.line.has(Option::dryRun);
    const std::string place = databasePlace(call.line);
    auto opened =
        CompanyStore::open(placeInstead(place, mode, options).value_or(place), mode, options);
    if (!opened && opened.error().fault == StoreFault::missing && !CompanyStore::isOnServer(place))
        throw CommandFailure(ExitCode::input,
                             opened.error().message + "\nvkr import FOLDER --create makes one.");
    auto store = valueOf(std::move(opened));
    if (!store->backupPath().empty())
        call.terminal.say(store->path() +
                          " was brought up to date. As it was before it is kept as " +
                          store->backupPath() + ".");
    return store;
}

CompanySummary findCompany(CompanyStore& store, const std::string& symbol) {
    if (auto found = companyIfThere(store, symbol))
        return std::move(*found);
    throw CommandFailure(ExitCode::input, "No company in " + store.path() + " has the symbol " +
                                              printable(symbol) + ".");
}

std::optional<CompanySummary> companyIfThere(CompanyStore& store, const std::string& symbol) {
    if (const auto id = numberIn(symbol))
        return summaryOf(store, *id);
    std::vector<CompanySummary> found = valueOf(store.find(ListColumn::symbol, symbol));
    const auto isExact = [&](const CompanySummary& company) { return company.symbol == symbol; };
    if (std::ranges::any_of(found, isExact))
        std::erase_if(found, std::not_fn(isExact));
    if (found.empty())
        return std::nullopt;
    if (found.size() > 1)
        throw CommandFailure(ExitCode::input, "Several companies have the symbol " +
                                                  printable(symbol) +
                                                  ". Name one by its number:" + numbersOf(found));
    return found.front();
}

std::vector<CompanySummary> chosenCompanies(const Call& call, CompanyStore& store,
                                            const std::vector<std::string>& symbols) {
    std::vector<CompanySummary> chosen;
    if (call.line.has(Option::all)) {
        if (!symbols.empty())
            throw CommandFailure(ExitCode::usage, "--all is every company: name no symbol.");
        for (;;) {
            auto page = valueOf(
                store.list(ListQuery{}, static_cast<std::int64_t>(chosen.size()), pageSize));
            std::ranges::move(page, std::back_inserter(chosen));
            if (page.size() < static_cast<std::size_t>(pageSize))
                return chosen;
        }
    }
    std::set<std::int64_t> seen;
    for (const std::string& symbol : symbols)
        if (CompanySummary company = findCompany(store, symbol); seen.insert(company.key.id).second)
            chosen.push_back(std::move(company));
    return chosen;
}

LoadedCompany load(const Call& call, CompanyStore& store, const CompanySummary& company) {
    LoadedCompany loaded = valueOf(store.load(company.key.id));
    if (loaded.damage)
        call.terminal.say(printable(loaded.damage->message));
    std::string unreadable;
    for (const std::string& datum : loaded.unreadable)
        unreadable += (unreadable.empty() ? "" : ", ") + datum;
    if (!unreadable.empty())
        call.terminal.say(printable(titleOf(company.name, company.symbol)) +
                          ": what is stored of " + unreadable +
                          " can't be read and is taken for absent.");
    return loaded;
}

std::string titleOf(const std::string& name, const std::string& symbol) {
    if (name.empty() || symbol.empty())
        return name.empty() && symbol.empty() ? "a company without a name" : name + symbol;
    return name + " (" + symbol + ")";
}

} // namespace vkr
