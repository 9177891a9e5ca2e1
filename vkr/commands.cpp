// SPDX-License-Identifier: MIT
#include "vkr/commands.hpp"

#include "vkr/call.hpp"

#include <algorithm>

namespace vkr {

namespace {

const CommandRow commands[] = {
    {"list",
     "[WORD...]",
     0,
     anyNumber,
     {Operand::text},
     {},
     "List the companies.",
     "Lists every company by its name, or those that have all the words somewhere in name, "
     "symbol, exchange or industry.",
     listCompanies},
    {"show",
     "SYMBOL",
     1,
     1,
     {Operand::symbols},
     {Option::yearly, Option::quarterly, Option::pdf, Option::paper},
     "Show one company.",
     "Shows what is stored of a company, all digits of it: its own data, or with --yearly and "
     "--quarterly the figures of years and quarters. Money is in millions, rates are in percent; "
     "keys are those of the CSV files. Of several companies with one symbol name one by its "
     "number, as id:17.",
     showCompany},
    {"export",
     "SYMBOL... FOLDER",
     2,
     anyNumber,
     {Operand::symbols, Operand::folder},
     {Option::all, Option::replace, Option::dryRun},
     "Write companies to CSV files.",
     "Writes three CSV files for each company. Files that are there already are written anew with "
     "--replace only; nothing is written then.",
     exportCompanies},
    {"import",
     "FOLDER",
     1,
     1,
     {Operand::folder},
     {Option::replace, Option::replaceTyped, Option::keepBoth, Option::create, Option::dryRun,
      Option::verbose},
     "Read companies from CSV files.",
     "Reads every company of a folder of CSV files. A company that can't be read keeps none of "
     "the others out. One that the database has already with other data is left alone, unless "
     "--replace or --keep-both says otherwise; --replace leaves alone what was typed, and "
     "companies that are locked, and says how many figures are gone since the files do not have "
     "them. A hundred companies are saved at a time: what was listed is "
     "saved, also when the program is stopped.",
     importCompanies},
    {"facts",
     "FILE.json",
     1,
     1,
     {Operand::file},
     {Option::symbol, Option::accept, Option::sameCompany, Option::dryRun, Option::verbose},
     "Compare a company with what it has filed.",
     "Reads a companyfacts document, as filings of listed companies are published, and lists the "
     "figures that are new or differ, with the filing that each is from; with --verbose the same "
     "ones, too. --accept takes them over, all of them or none, and adds a company that the "
     "database has not, by the name that the document gives. Exit status 1 says that some were not "
     "taken over, or that stored ones are those of before a split: such figures are doubtful, and "
     "--accept new leaves them out.",
     importFacts},
    {"check",
     "[SYMBOL...]",
     0,
     anyNumber,
     {Operand::symbols},
     {},
     "List what is odd about figures.",
     "Looks at the figures of the companies named, or of all, by rules of plausibility, and lists "
     "what somebody should look at; so it does with what is not stored as it was saved. What "
     "somebody has called right is counted, and not listed. Exit status 1 says that there is "
     "something.",
     checkCompanies},
    {"history",
     "SYMBOL",
     1,
     1,
     {Operand::symbols},
     {Option::figure, Option::period, Option::user, Option::from, Option::until, Option::origin},
     "Tell who changed what of a company.",
     "Lists every change that was saved, the newest first: when, by whom, what it was before and "
     "after, and where it came from. Options leave only some of them.",
     tellHistory},
};

// The lines behind the first one begin with that many blanks.
std::string wrapped(std::string_view text, std::size_t others) {
    constexpr std::size_t width = 78;
    std::string lines;
    std::size_t column = others;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (column > others && column + 1 + end > width) {
            lines += '\n' + std::string(others, ' ');
            column = others;
        } else if (column > others) {
            lines += ' ';
            ++column;
        }
        lines += text.substr(0, end);
        column += end;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines + '\n';
}

void addEntry(std::string& text, const std::string& name, std::string_view meaning) {
    constexpr std::size_t indent = 24;
    text += "  " + name;
    text += name.size() + 4 > indent ? "\n" + std::string(indent, ' ')
                                     : std::string(indent - 2 - name.size(), ' ');
    text += wrapped(meaning, indent);
}

void addOption(std::string& text, const OptionRow& row) {
    std::string name = row.letter == 0 ? "" : std::string("-") + row.letter + ", ";
    name += "--" + std::string(row.name);
    if (!row.value.empty())
        name += " " + std::string(row.value);
    addEntry(text, name, row.help);
}

} // namespace

std::span<const CommandRow> commandTable() {
    return commands;
}

std::string helpText(const CommandRow* command) {
    std::string text = "Usage: vkr [--database PLACE] ";
    if (command != nullptr) {
        text += std::string(command->name) + " " + std::string(command->arguments);
        text += command->arguments.empty() ? "[OPTION...]\n" : " [OPTION...]\n";
        text += wrapped(command->help, 0);
        text += "\nOptions:\n";
        for (const Option option : command->options)
            addOption(text, rowOf(option));
    } else {
        text += "COMMAND [ARGUMENT...] [OPTION...]\n";
        text += "Fundamental data of listed companies, for scripts and servers.\n\nCommands:\n";
        for (const CommandRow& row : commands)
            addEntry(text, std::string(row.name) + " " + std::string(row.arguments), row.summary);
        text += "\nOptions:\n";
    }
    for (const OptionRow& row : optionTable())
        if (isCommon(row.option))
            addOption(text, row);
    text += "\nExit status:\n";
    for (const ExitCodeRow& row : exitCodes)
        addEntry(text, std::to_string(static_cast<int>(row.code)), row.meaning);
    return text;
}

} // namespace vkr
