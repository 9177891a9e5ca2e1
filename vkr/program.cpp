// SPDX-License-Identifier: MIT
#include "vkr/program.hpp"

#include "vkr/commands.hpp"

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

ExitCode run(const CommandLine& line, Terminal& terminal) {
    Output output(formatOf(line));
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
        code = run(parseCommandLine(commandTable(), words), terminal);
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
