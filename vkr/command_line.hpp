// SPDX-License-Identifier: MIT
#pragma once

#include "vkr/exit_code.hpp"

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

enum class Option {
    database,
    format,
    help,
    version,
    dryRun,
    verbose,
    yearly,
    quarterly,
    all,
    create,
    replace,
    keepBoth,
    pdf,
    paper,
    symbol,
    accept,
    sameCompany,
    replaceTyped,
    user,
    from,
    until,
    origin,
    figure,
    period,
};

// What may be given for an option or an argument, for its completion.
enum class Operand { none, text, format, paper, accept, origin, figure, file, folder, symbols };

struct OptionRow {
    Option option;
    std::string_view name;  // behind "--"
    char letter;            // behind "-"; 0 for none
    std::string_view value; // what follows it; "" for none
    Operand operand;
    std::string_view help;
};

[[nodiscard]] std::span<const OptionRow> optionTable();
[[nodiscard]] const OptionRow& rowOf(Option option);
// For every command.
[[nodiscard]] bool isCommon(Option option);

struct Call;

inline constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

struct CommandRow {
    std::string_view name;
    std::string_view arguments; // as the help writes them
    std::size_t fewest;         // arguments; with --all there may be fewer
    std::size_t most;
    std::vector<Operand> operands; // of the arguments; the first one is repeated
    std::vector<Option> options;   // beside those for every command
    std::string_view summary;
    std::string_view help;
    ExitCode (*run)(const Call& call);
};

// Null where there is none of this name.
[[nodiscard]] const CommandRow* findCommand(std::span<const CommandRow> commands,
                                            std::string_view name);

// The command line, taken apart.
struct CommandLine {
    const CommandRow* command = nullptr; // null where there is none
    std::vector<std::string> arguments;
    std::map<Option, std::string> options; // with their values

    [[nodiscard]] bool has(Option option) const { return options.contains(option); }
    [[nodiscard]] std::optional<std::string> value(Option option) const;
};

// Without the program's name. Throws CommandFailure for what is not understood; what a command
// needs is not looked at where help is asked for.
[[nodiscard]] CommandLine parseCommandLine(std::span<const CommandRow> commands,
                                           const std::vector<std::string>& words);

} // namespace vkr
