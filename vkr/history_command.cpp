// SPDX-License-Identifier: MIT
#include "vkr/commands.hpp"
#include "vkr/database.hpp"

namespace vkr {

namespace {

HistoryQuery queryOf(const CommandLine& line) {
    HistoryQuery query;
    query.user = line.value(Option::user).value_or("");
    query.from = line.value(Option::from).value_or("");
    query.until = line.value(Option::until).value_or("");
    query.datum = line.value(Option::figure).value_or("");
    query.period = line.value(Option::period).value_or("");
    if (const auto name = line.value(Option::origin)) {
        query.origin = originNamed(*name);
        if (!query.origin)
            throw CommandFailure(ExitCode::usage,
                                 "There is no origin " + *name +
                                     ": typed, pasted, imported, derived or shifted.");
    }
    return query;
}

} // namespace

ExitCode tellHistory(const Call& call) {
    const HistoryQuery query = queryOf(call.line);
    const auto store = openDatabase(call);
    const CompanySummary company = findCompany(*store, call.line.arguments.front());
    const auto groups = valueOf(store->history(company.key.id, query));
    call.output.begin({{"revision", true},
                       {"time"},
                       {"user"},
                       {"action"},
                       {"figure"},
                       {"period"},
                       {"before", true},
                       {"after", true},
                       {"origin"},
                       {"document"}});
    for (const HistoryGroup& group : groups) {
        if (const auto& said = group.verdict)
            call.output.row(
                {"", group.time, group.user,
                 (said->isRight ? "Called right: " : "To be looked at again: ") + said->text,
                 said->datum, said->period, "", "", "", ""});
        for (const HistoryChange& change : group.changes)
            call.output.row({std::to_string(group.revision), group.time, group.user, group.name,
                             change.datum, change.period, change.before, change.after,
                             change.origin ? std::string(originName(*change.origin)) : "",
                             change.document});
    }
    call.output.end();
    return ExitCode::done;
}

} // namespace vkr
