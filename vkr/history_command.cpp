// SPDX-License-Identifier: MIT
#include "record/datum_titles.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"
#include "vkr/figure_keys.hpp"

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>

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

bool isFigure(const QString& text) {
    return !figuresCalled(text.toStdString()).empty();
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
    query.period =
        valueOf(line, Option::period, isPeriod, "year such as 2025, or day such as 2025-09-27");
    if (const auto name = line.value(Option::origin)) {
        query.origin = originNamed(*name);
        if (!query.origin) {
            std::string known;
            for (const std::string_view& one : originNames) {
                const bool isLast = &one == std::end(originNames) - 1;
                known += (known.empty() ? ": " : isLast ? " or " : ", ") + std::string(one);
            }
            throw CommandFailure(ExitCode::usage, "There is no origin " + *name + known + ".");
        }
    }
    return query;
}

// Rows for people call a figure by its title, those for programs by its table and key there.
class HistoryRows {
  public:
    explicit HistoryRows(Output& output) : output_(output) {
        std::vector<Column> columns{{"revision", true}, {"time"}, {"user"}, {"action"}};
        if (isForPrograms())
            columns.push_back({"table"});
        for (const Column& column : {Column{"figure"},
                                     {"period"},
                                     {"before", true},
                                     {"after", true},
                                     {"origin"},
                                     {"document"}})
            columns.push_back(column);
        output_.begin(std::move(columns));
    }

    void add(const HistoryGroup& group, const HistoryChange& change) {
        row({std::to_string(group.revision), group.time, group.user, group.name}, change,
            {change.origin ? std::string(originName(*change.origin)) : "", change.document});
    }
    void add(const HistoryGroup& group, const FindingVerdict& said) {
        HistoryChange about;
        about.datum = said.datum;
        about.period = said.period;
        row({"", group.time, group.user,
             (said.isRight ? "Called right: " : "To be looked at again: ") + said.text},
            about, {"", ""});
    }

  private:
    [[nodiscard]] bool isForPrograms() const { return output_.format() != Format::text; }

    void row(std::vector<std::string> cells, const HistoryChange& change,
             const std::vector<std::string>& source) {
        const FigureKey key = figureKey(change.datum);
        if (isForPrograms())
            cells.emplace_back(change.datum.empty() ? "" : key.table);
        cells.push_back(isForPrograms() ? std::string(key.key) : calledDatum(change.datum));
        for (const std::string& cell :
             {change.period, inUnitOf(key, change.before), inUnitOf(key, change.after)})
            cells.push_back(cell);
        cells.insert(cells.end(), source.begin(), source.end());
        output_.row(std::move(cells));
    }

    Output& output_;
};

} // namespace

ExitCode tellHistory(const Call& call) {
    HistoryQuery query = queryOf(call.line);
    const std::vector<std::string> figures = figuresCalled(
        valueOf(call.line, Option::figure, isFigure,
                "name of a figure such as revenue_musd, Yearly Revenue or YRevenueSeries"));
    if (figures.size() == 1)
        query.datum = figures.front();
    const auto isAsked = [&](const std::string& datum) {
        return figures.empty() || std::ranges::find(figures, datum) != figures.end();
    };
    const auto store = openDatabase(call);
    const CompanySummary company = findCompany(*store, call.line.arguments.front());
    const auto groups = valueOf(store->history(company.key.id, query));
    HistoryRows rows(call.output);
    for (const HistoryGroup& group : groups) {
        if (group.verdict && isAsked(group.verdict->datum))
            rows.add(group, *group.verdict);
        for (const HistoryChange& change : group.changes)
            if (isAsked(change.datum))
                rows.add(group, change);
    }
    call.output.end();
    // A changed row of the history looks like any other.
    const auto damage = valueOf(store->check(company.key.id));
    if (damage)
        call.terminal.say(printable(damage->message));
    return damage ? ExitCode::findings : ExitCode::done;
}

} // namespace vkr
