// SPDX-License-Identifier: MIT
#include "vkr/completion.hpp"

#include "company/figure_origins.hpp"
#include "platform/text.hpp"
#include "store/company_store.hpp"
#include "vkr/figure_keys.hpp"

#include <QString>

#include <algorithm>

namespace vkr {

namespace {

constexpr std::int64_t mostSymbols = 200;

// A line as far as it is typed.
struct TypedLine {
    const CommandRow* command = nullptr;
    std::size_t arguments = 0;
    const OptionRow* open = nullptr; // that waits for its value
    std::string database;
    std::string current;
};

const OptionRow* optionIn(const std::string& word) {
    const auto rows = optionTable();
    const auto found = std::ranges::find_if(rows, [&](const OptionRow& row) {
        return word == "--" + std::string(row.name) ||
               (row.letter != 0 && word == std::string("-") + row.letter);
    });
    return found == rows.end() ? nullptr : &*found;
}

TypedLine typedLine(std::span<const CommandRow> commands, const std::vector<std::string>& words) {
    TypedLine line;
    line.database = qEnvironmentVariable("VKR_DATABASE").toStdString();
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "=") // shells part --format=tsv at it
            continue;
        if (line.open != nullptr) {
            if (line.open->option == Option::database)
                line.database = word;
            line.open = nullptr;
        } else if (word.starts_with('-')) {
            line.open = optionIn(word);
            if (line.open != nullptr && line.open->value.empty())
                line.open = nullptr;
        } else if (line.command == nullptr) {
            line.command = findCommand(commands, word);
        } else {
            ++line.arguments;
        }
    }
    if (!words.empty() && words.back() != "=")
        line.current = words.back();
    return line;
}

std::vector<std::string> symbolsIn(const TypedLine& line) {
    StoreOptions options;
    options.isRehearsal = true; // brings nothing up to date
    options.patience = {};
    const auto store = CompanyStore::open(line.database, OpenMode::reading, options);
    if (!store)
        return {};
    ListQuery query;
    query.search = line.current;
    query.sortedBy = ListColumn::symbol;
    std::vector<std::string> symbols;
    const auto companies = store.value()->list(query, 0, mostSymbols);
    if (companies)
        for (const CompanySummary& company : companies.value())
            symbols.push_back(company.symbol);
    return symbols;
}

std::vector<std::string> valuesOf(Operand operand, const TypedLine& line) {
    switch (operand) {
    case Operand::format:
        return {"tsv", "json"};
    case Operand::paper:
        return {"a4", "letter"};
    case Operand::accept:
        return {"new", "all"};
    case Operand::origin:
        return {std::begin(originNames), std::end(originNames)};
    case Operand::figure:
        return figureKeys();
    case Operand::symbols:
        return symbolsIn(line);
    default:
        return {};
    }
}

std::vector<std::string> candidates(std::span<const CommandRow> commands, const TypedLine& line) {
    std::vector<std::string> found;
    if (line.open != nullptr)
        return valuesOf(line.open->operand, line);
    if (line.current.starts_with('-')) {
        for (const OptionRow& row : optionTable())
            if (isCommon(row.option) ||
                (line.command != nullptr && std::ranges::find(line.command->options, row.option) !=
                                                line.command->options.end()))
                found.push_back("--" + std::string(row.name));
        return found;
    }
    if (line.command == nullptr) {
        for (const CommandRow& row : commands)
            found.emplace_back(row.name);
        return found;
    }
    return valuesOf(line.command->operands.front(), line);
}

} // namespace

std::vector<std::string> completions(std::span<const CommandRow> commands,
                                     const std::vector<std::string>& words) {
    const TypedLine line = typedLine(commands, words);
    std::vector<std::string> found = candidates(commands, line);
    const std::string begun = upperCase(line.current);
    std::erase_if(found, [&](const std::string& word) {
        return word.empty() || word.find('\n') != std::string::npos ||
               !upperCase(word).starts_with(begun);
    });
    return found;
}

} // namespace vkr
