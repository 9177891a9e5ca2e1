// SPDX-License-Identifier: MIT
#include "vkr/program.hpp"

#include "vkr/call.hpp"
#include "vkr/commands.hpp"
#include "vkr/completion.hpp"

#include <QCoreApplication>

#include <exception>

namespace vkr {

namespace {

Format formatOf(const CommandLine& line) {
    const auto named = line.value(Option::format);
    if (!named)
        return Format::text;
    return *named == "json" ? Format::json : Format::tsv;
}

// For the completion of shells, which hand over the line as far as it is typed.
constexpr std::string_view completing = "__complete";

ExitCode complete(const std::vector<std::string>& words, Terminal& terminal) {
    Output output(Format::text, terminal);
    for (const std::string& word : completions(commandTable(), {words.begin() + 1, words.end()}))
        output.write(word + "\n");
    output.finish();
    return ExitCode::done;
}

ExitCode run(const CommandLine& line, Terminal& terminal) {
    Output output(formatOf(line), terminal);
    if (line.has(Option::help)) {
        output.write(helpText(line.command));
        output.finish();
        return ExitCode::done;
    }
    if (line.has(Option::version)) {
        output.write((QCoreApplication::applicationName() + u' ' +
                      QCoreApplication::applicationVersion() + u'\n')
                         .toStdString());
        output.finish();
        return ExitCode::done;
    }
    const ExitCode code = line.command->run({line, output, terminal});
    output.finish();
    return code;
}

} // namespace

int runProgram(const std::vector<std::string>& words) {
    catchSignals();
    Terminal terminal;
    ExitCode code = ExitCode::input;
    try {
        code = !words.empty() && words.front() == completing
                   ? complete(words, terminal)
                   : run(parseCommandLine(commandTable(), words), terminal);
    } catch (const CommandFailure& failure) {
        terminal.say("vkr: " + std::string(failure.what()));
        code = failure.code();
    } catch (const std::exception& failure) {
        terminal.say("vkr: " + printable(failure.what()));
    }
    terminal.endProgress();
    return static_cast<int>(code);
}

} // namespace vkr
