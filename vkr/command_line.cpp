// SPDX-License-Identifier: MIT
#include "vkr/command_line.hpp"

#include <algorithm>

namespace vkr {

namespace {

constexpr OptionRow options[] = {
    {Option::database, "database", 0, "PLACE", Operand::file,
     "The companies: a file, or postgresql://user@host:port/name. Without it VKR_DATABASE of the "
     "environment says where they are."},
    {Option::format, "format", 0, "tsv|json", Operand::format,
     "Write for programs: tab-separated values, or JSON with figures as decimal texts."},
    {Option::help, "help", 'h', "", Operand::none, "Tell what there is, or about one command."},
    {Option::version, "version", 'v', "", Operand::none, "Tell the version."},
    {Option::dryRun, "dry-run", 'n', "", Operand::none,
     "Say what would happen, and leave the database and all files as they are."},
    {Option::verbose, "verbose", 0, "", Operand::none, "List what is only counted otherwise."},
    {Option::yearly, "yearly", 0, "", Operand::none, "The yearly figures."},
    {Option::quarterly, "quarterly", 0, "", Operand::none, "The quarterly figures."},
    {Option::all, "all", 0, "", Operand::none, "Every company of the database."},
    {Option::create, "create", 0, "", Operand::none, "Make the database where there is none yet."},
    {Option::replace, "replace", 0, "", Operand::none,
     "Let what comes in take the place of what is there."},
    {Option::keepBoth, "keep-both", 0, "", Operand::none,
     "Add what comes in beside what is there."},
    {Option::pdf, "pdf", 0, "FILE", Operand::file,
     "Write a data sheet of two pages into this PDF file instead. A file that is there is "
     "replaced, anything else refused."},
    {Option::paper, "paper", 0, "a4|letter", Operand::paper,
     "The paper of the data sheet; without it what is usual where you are."},
    {Option::symbol, "symbol", 0, "SYMBOL", Operand::symbols, "The company that it is about."},
    {Option::accept, "accept", 0, "new|all", Operand::accept,
     "Take over the figures that the company has not, or all that differ, what was typed and "
     "what is doubtful among them. Without it nothing is changed."},
    {Option::sameCompany, "same-company", 0, "", Operand::none,
     "It is of this company, though it bears another name."},
    {Option::replaceTyped, "replace-typed", 0, "", Operand::none,
     "As --replace, but for what was typed, too, or nobody knows the origin of."},
    {Option::user, "user", 0, "USER@HOST", Operand::text, "What this person has changed."},
    {Option::from, "from", 0, "TIME", Operand::text,
     "From this moment on, UTC, as 2026-01-31 or 2026-01-31T12:00:00Z."},
    {Option::until, "until", 0, "TIME", Operand::text, "Before this moment."},
    {Option::origin, "origin", 0, "ORIGIN", Operand::origin,
     "What was typed, pasted, imported, derived, shifted or adjusted for a split."},
    {Option::figure, "figure", 0, "NAME", Operand::figure,
     "Of this figure: its key, such as revenue_musd of both tables, or its title, such as \"Yearly "
     "Revenue\"."},
    {Option::period, "period", 0, "PERIOD", Operand::text,
     "Of this year, or of the quarter with this day."},
};

const OptionRow* named(std::string_view name) {
    const auto* found = std::ranges::find(options, name, &OptionRow::name);
    return found == std::end(options) ? nullptr : found;
}

const OptionRow* lettered(std::string_view letters) {
    if (letters.size() != 1)
        return nullptr;
    const auto* found = std::ranges::find(options, letters.front(), &OptionRow::letter);
    return found == std::end(options) ? nullptr : found;
}

[[noreturn]] void refuse(const std::string& message, const CommandRow* command) {
    const std::string name = command == nullptr ? "" : " " + std::string(command->name);
    throw CommandFailure(ExitCode::usage, message + "\nTry vkr" + name + " --help.");
}

class Parser {
  public:
    Parser(std::span<const CommandRow> commands, const std::vector<std::string>& words)
        : commands_(commands), words_(words) {}

    CommandLine parse() {
        bool onlyArguments = false;
        while (next_ < words_.size()) {
            const std::string& word = words_[next_++];
            if (!onlyArguments && word == "--")
                onlyArguments = true;
            else if (!onlyArguments && word.size() > 1 && word.front() == '-')
                takeOption(word);
            else
                takeArgument(word);
        }
        if (!line_.has(Option::help) && !line_.has(Option::version))
            refuseWhatIsMissing();
        return std::move(line_);
    }

  private:
    void takeOption(const std::string& word) {
        const auto equals = word.find('=');
        const bool isLong = word.starts_with("--");
        const std::string name = word.substr(0, equals);
        const OptionRow* row = isLong ? named(name.substr(2)) : lettered(name.substr(1));
        if (row == nullptr)
            refuse("There is no option " + name + ".", line_.command);
        std::string value;
        if (equals != std::string::npos) {
            if (row->value.empty())
                refuse(name + " takes no value.", line_.command);
            value = word.substr(equals + 1);
        } else if (!row->value.empty()) {
            if (next_ == words_.size())
                refuse(name + " needs a value: " + std::string(row->value) + ".", line_.command);
            value = words_[next_++];
        }
        if (!row->value.empty() && value.empty())
            refuse(name + " needs a value: " + std::string(row->value) + ".", line_.command);
        if (!line_.options.emplace(row->option, value).second)
            refuse(name + " is given twice.", line_.command);
    }

    void takeArgument(const std::string& word) {
        if (line_.command != nullptr) {
            line_.arguments.push_back(word);
            return;
        }
        line_.command = findCommand(commands_, word);
        if (line_.command == nullptr)
            refuse("There is no command " + word + ".", nullptr);
    }

    void refuseWhatIsMissing() const {
        const CommandRow* command = line_.command;
        if (command == nullptr)
            refuse("Name a command.", nullptr);
        for (const auto& [option, value] : line_.options)
            if (!isCommon(option) &&
                std::ranges::find(command->options, option) == command->options.end())
                refuse(std::string(command->name) + " has no option --" +
                           std::string(rowOf(option).name) + ".",
                       command);
        const std::size_t count = line_.arguments.size();
        const bool isFew = count < command->fewest && !line_.has(Option::all);
        if (isFew || count > command->most)
            refuse("vkr " + std::string(command->name) + " takes " +
                       (command->arguments.empty() ? "no arguments"
                                                   : std::string(command->arguments)) +
                       ".",
                   command);
        refuseOther(Option::format, "tsv", "json");
        refuseOther(Option::paper, "a4", "letter");
        refuseOther(Option::accept, "new", "all");
    }

    void refuseOther(Option option, std::string_view one, std::string_view other) const {
        const auto given = line_.value(option);
        if (given && *given != one && *given != other)
            refuse("There is no " + std::string(rowOf(option).name) + " " + *given + ": " +
                       std::string(one) + " or " + std::string(other) + ".",
                   line_.command);
    }

    std::span<const CommandRow> commands_;
    const std::vector<std::string>& words_;
    std::size_t next_ = 0;
    CommandLine line_;
};

} // namespace

std::span<const OptionRow> optionTable() {
    return options;
}

const OptionRow& rowOf(Option option) {
    return *std::ranges::find(options, option, &OptionRow::option);
}

bool isCommon(Option option) {
    return option == Option::database || option == Option::format || option == Option::help ||
           option == Option::version;
}

std::optional<std::string> CommandLine::value(Option option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

const CommandRow* findCommand(std::span<const CommandRow> commands, std::string_view name) {
    const auto found = std::ranges::find(commands, name, &CommandRow::name);
    return found == commands.end() ? nullptr : &*found;
}

CommandLine parseCommandLine(std::span<const CommandRow> commands,
                             const std::vector<std::string>& words) {
    return Parser(commands, words).parse();
}

} // namespace vkr
