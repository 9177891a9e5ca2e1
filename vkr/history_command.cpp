// SPDX-License-Identifier: MIT
#include "record/datum_titles.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"

#include <QDateTime>
#include <QRegularExpression>

namespace vkr {

namespace {

bool isDay(const QString& text) {
    constexpr qsizetype length = 10; // what is behind it would not be looked at
    return text.size() == length && QDate::fromString(text, Qt::ISODate).isValid();
}

// 2026-01-31, or with a time of UTC behind it.
bool isMoment(const QString& text) {
    return isDay(text) ||
           (text.endsWith(u'Z') && QDateTime::fromString(text, Qt::ISODate).isValid());
}

bool isPeriod(const QString& text) {
    static const QRegularExpression year(QStringLiteral("^[0-9]{4}$"));
    return isDay(text) || year.match(text).hasMatch();
}

// As the column of figures has it: for programs the name of the property, for people its title.
std::string shownFigure(const std::string& name, Format format) {
    return format == Format::text ? calledDatum(name) : name;
}

bool isFigure(const QString& text) {
    return !datumCalled(text.toStdString()).empty();
}

// The option's value; "" without the option. One that it does not take would find nothing, which
// would pass for an answer.
std::string valueOf(const CommandLine& line, Option option, bool (*takes)(const QString&),
                    const std::string& kind) {
    const auto value = line.value(option);
    if (value && !takes(QString::fromStdString(*value)))
        throw CommandFailure(ExitCode::usage, *value + " is no " + kind + ".");
    return value.value_or("");
}

// As the history has its times, which are compared as texts.
std::string momentOf(const std::string& text) {
    const QString moment = QString::fromStdString(text);
    return moment.isEmpty() || isDay(moment) ? text
                                             : QDateTime::fromString(moment, Qt::ISODate)
                                                   .toUTC()
                                                   .toString(Qt::ISODate)
                                                   .toStdString();
}

HistoryQuery queryOf(const CommandLine& line) {
    const std::string moment = "time such as 2026-01-31 or 2026-01-31T12:00:00Z";
    HistoryQuery query;
    query.user = line.value(Option::user).value_or("");
    query.from = momentOf(valueOf(line, Option::from, isMoment, moment));
    query.until = momentOf(valueOf(line, Option::until, isMoment, moment));
    query.datum = datumCalled(valueOf(line, Option::figure, isFigure,
                                      "name of a figure such as Yearly Revenue or YRevenueSeries"));
    query.period =
        valueOf(line, Option::period, isPeriod, "year such as 2025, or day such as 2025-09-27");
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
    const auto figure = [&](const std::string& name) {
        return shownFigure(name, call.output.format());
    };
    for (const HistoryGroup& group : groups) {
        if (const auto& said = group.verdict)
            call.output.row(
                {"", group.time, group.user,
                 (said->isRight ? "Called right: " : "To be looked at again: ") + said->text,
                 figure(said->datum), said->period, "", "", "", ""});
        for (const HistoryChange& change : group.changes)
            call.output.row({std::to_string(group.revision), group.time, group.user, group.name,
                             figure(change.datum), change.period, change.before, change.after,
                             change.origin ? std::string(originName(*change.origin)) : "",
                             change.document});
    }
    call.output.end();
    // A changed row of the history looks like any other.
    const auto damage = valueOf(store->check(company.key.id));
    if (damage)
        call.terminal.say(printable(damage->message));
    return damage ? ExitCode::findings : ExitCode::done;
}

} // namespace vkr
