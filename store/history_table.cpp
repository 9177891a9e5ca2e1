// SPDX-License-Identifier: MIT
#include "store/history_table.hpp"

#include "company/company_record.hpp"
#include "store/checksum.hpp"
#include "store/exact_groups.hpp"
#include "store/history_periods.hpp"
#include "store/store_text.hpp"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

constexpr auto limitSetting = "history_limit";

constexpr const char* definitions[] = {
    "CREATE TABLE change_group ("
    " company_id {integer} NOT NULL REFERENCES company (id) ON DELETE CASCADE,"
    " revision {integer} NOT NULL,"
    " place {integer} NOT NULL,"
    " name TEXT NOT NULL,"
    " changed_by TEXT NOT NULL,"
    " changed_at TEXT NOT NULL,"
    " checksum {integer} NOT NULL,"
    " PRIMARY KEY (company_id, revision, place)){keyedTable}",
    "CREATE TABLE figure_change ("
    " company_id {integer} NOT NULL REFERENCES company (id) ON DELETE CASCADE,"
    " revision {integer} NOT NULL,"
    " place {integer} NOT NULL,"
    " line {integer} NOT NULL,"
    " datum TEXT NOT NULL,"
    " counted_from TEXT NOT NULL,"
    " elements TEXT NOT NULL,"
    " before TEXT NOT NULL,"
    " after TEXT NOT NULL,"
    " origin TEXT NOT NULL,"
    " document TEXT NOT NULL,"
    " PRIMARY KEY (company_id, revision, place, line)){keyedTable}",
    "CREATE TABLE store_setting ("
    " name TEXT NOT NULL,"
    " value TEXT NOT NULL,"
    " PRIMARY KEY (name)){keyedTable}",
};

constexpr int rowTexts = 7;

// A statement of its own for each row takes several times as long as the rows; statements are kept,
// so there are few.
constexpr std::size_t rowsAtOnce[] = {32, 8, 1};

// The texts of each row, then what they have in common: the group, and the line of the first row.
QString rowInsertion(const StoreDialect& dialect, std::size_t rows) {
    const QString texts = QStringList(rowTexts, "?").join(", ");
    QStringList given;
    for (std::size_t line = 0; line < rows; ++line)
        given += "(" + QString::number(line) + ", " + texts + ")";
    return dialect.define("INSERT INTO figure_change "
                          "WITH given (line, datum, counted_from, elements, before, after, origin, "
                          "document) AS (VALUES " +
                          given.join(", ") +
                          ") SELECT CAST(? AS {integer}), CAST(? AS {integer}), "
                          "CAST(? AS {integer}), CAST(? AS {integer}) + line, datum, counted_from, "
                          "elements, before, after, origin, document FROM given");
}

std::int64_t checksumOf(std::int64_t id, const HistoryGroup& group,
                        const std::vector<HistoryRow>& rows) {
    Checksum checksum;
    for (const std::int64_t number : {id, group.revision, group.place})
        checksum.add(number);
    for (const std::string* text : {&group.name, &group.user, &group.time})
        checksum.addText(*text);
    for (const HistoryRow& row : rows)
        for (const std::string* text : {&row.datum, &row.countedFrom, &row.elements, &row.before,
                                        &row.after, &row.origin, &row.document})
            checksum.addText(*text);
    return checksum.value();
}

QString selection(const StoreDialect& dialect) {
    QStringList columns = {"g.revision", "g.place", "g.checksum", "c.line"};
    for (const char* text : {"g.name", "g.changed_by", "g.changed_at", "c.datum", "c.counted_from",
                             "c.elements", "c.before", "c.after", "c.origin", "c.document"})
        columns += dialect.wholeText(text);
    return "SELECT " + columns.join(", ") +
           " FROM change_group g LEFT JOIN figure_change c ON c.company_id = g.company_id AND "
           "c.revision = g.revision AND c.place = g.place "
           "WHERE g.company_id = ? AND g.revision <= ? ORDER BY g.revision, g.place, c.line";
}

bool isAsked(const HistoryChange& change, const HistoryQuery& query) {
    return (query.datum.empty() || change.datum == query.datum) &&
           (!query.origin || change.origin == query.origin) &&
           (query.period.empty() || isPeriod(change.period, query.period));
}

// False where a row can't be read.
bool redoGroup(const std::vector<HistoryRow>& rows, HistoryState& state) {
    bool isSound = true;
    ChangeGroup done;
    std::vector<Change> outdated;
    for (const HistoryRow& row : rows) {
        const auto before = std::ssize(done.changes);
        isSound &= redo(row, *state.record, done.changes);
        if (isOutdated(row))
            outdated.insert(outdated.end(), done.changes.begin() + before, done.changes.end());
    }
    state.origins.note(done);
    for (const Change& change : outdated) {
        FigureOrigin origin = state.origins.of(change.datum, change.element);
        origin.isOutdated = true;
        state.origins.put(change.datum, change.element, origin);
    }
    return isSound;
}

} // namespace

bool isAsked(const HistoryGroup& group, const HistoryQuery& query) {
    return (query.user.empty() || group.user == query.user) &&
           (query.from.empty() || group.time >= query.from) &&
           (query.until.empty() || group.time < query.until);
}

// No figure has become another one: it has no origin.
bool isAsked(const FindingVerdict& verdict, const HistoryQuery& query) {
    return (query.datum.empty() || verdict.datum == query.datum) && !query.origin &&
           (query.period.empty() || isPeriod(verdict.period, query.period));
}

void createHistory(StoreConnection& connection) {
    for (const char* definition : definitions)
        connection.execute(connection.dialect().define(definition));
}

HistoryTable::HistoryTable(StoreConnection& connection)
    : connection_(connection), select_(selection(connection.dialect())) {
    for (const std::size_t rows : rowsAtOnce)
        insertions_.push_back(rowInsertion(connection.dialect(), rows));
}

void HistoryTable::add(const CompanyKey& key, const std::string& user,
                       const std::vector<SavedGroup>& groups) {
    std::int64_t place = 0;
    for (const SavedGroup& saved : groups) {
        const HistoryGroup group{key.revision, place, saved.name, user, saved.time, {}};
        connection_.run("INSERT INTO change_group VALUES (?, ?, ?, ?, ?, ?, ?)",
                        {qlonglong(key.id), qlonglong(key.revision), qlonglong(place),
                         textValue(saved.name), textValue(user), textValue(saved.time),
                         qlonglong(checksumOf(key.id, group, saved.rows))});
        insertRows(key, place++, saved.rows);
    }
}

void HistoryTable::begin(const CompanyKey& key, const std::string& name, const HistoryState& state,
                         const SaveStamp& stamp) {
    const CompanyRecord empty;
    SaveAccount account;
    account.rest.name = name;
    account.origins = state.origins;
    add(key, stamp.user,
        savedGroups(empty, exactGroups(empty, *state.record, account), stamp.time, &state.origins));
}

void HistoryTable::insertRows(const CompanyKey& key, std::int64_t place,
                              const std::vector<HistoryRow>& rows) {
    std::size_t line = 0;
    for (std::size_t size = 0; size < std::size(rowsAtOnce); ++size)
        while (rows.size() - line >= rowsAtOnce[size]) {
            const std::size_t first = line;
            std::vector<QVariant> values;
            values.reserve(rowsAtOnce[size] * rowTexts + 4);
            for (const std::size_t end = line + rowsAtOnce[size]; line < end; ++line)
                for (const std::string* text :
                     {&rows[line].datum, &rows[line].countedFrom, &rows[line].elements,
                      &rows[line].before, &rows[line].after, &rows[line].origin,
                      &rows[line].document})
                    values.push_back(textValue(*text));
            for (const std::int64_t number :
                 {key.id, key.revision, place, static_cast<std::int64_t>(first)})
                values.emplace_back(qlonglong(number));
            connection_.run(insertions_[size], values);
        }
}

void HistoryTable::forEach(std::int64_t id, std::int64_t lastRevision,
                           const std::function<bool(const StoredGroup&)>& function) {
    Statement found(connection_, select_, {qlonglong(id), qlonglong(lastRevision)});
    StoredGroup stored{};
    std::int64_t checksum = 0;
    const auto isToGoOn = [&] {
        if (stored.group.revision == 0)
            return true; // before the first one
        stored.isSound &= checksum == checksumOf(id, stored.group, stored.rows);
        return function(stored);
    };
    while (found.next()) {
        const std::int64_t revision = found.integer(0);
        const std::int64_t place = found.integer(1);
        if (revision != stored.group.revision || place != stored.group.place) {
            if (!isToGoOn())
                return;
            stored = {{revision, place, found.text(4), found.text(5), found.text(6), {}}, {}, true};
            checksum = found.integer(2);
        }
        if (found.isNull(3))
            continue; // nothing was changed
        stored.isSound &= found.integer(3) == std::ssize(stored.rows);
        stored.rows.push_back({found.text(7), found.text(8), found.text(9), found.text(10),
                               found.text(11), found.text(12), found.text(13)});
    }
    static_cast<void>(isToGoOn());
}

std::vector<HistoryGroup> HistoryTable::groups(std::int64_t id, const HistoryQuery& query) {
    std::vector<HistoryGroup> all;
    forEach(id, std::numeric_limits<std::int64_t>::max(), [&](const StoredGroup& stored) {
        if (!isAsked(stored.group, query))
            return true;
        HistoryGroup group = stored.group;
        for (const HistoryRow& row : stored.rows)
            if (query.datum.empty() || row.datum == query.datum)
                for (HistoryChange& change : changesOf(row))
                    if (isAsked(change, query))
                        group.changes.push_back(std::move(change));
        const bool isOfAll = query.datum.empty() && query.period.empty() && !query.origin;
        if (isOfAll || !group.changes.empty())
            all.push_back(std::move(group));
        return true;
    });
    std::ranges::reverse(all);
    return all;
}

HistoryExtent HistoryTable::extent(std::int64_t id) {
    HistoryExtent extent;
    {
        Statement row(
            connection_,
            "SELECT count(*), coalesce(min(changed_at), ''), "
            "coalesce(sum(length(name) + length(changed_by) + length(changed_at) + 32), 0) "
            "FROM change_group WHERE company_id = ?",
            {qlonglong(id)});
        if (row.next()) {
            extent.groups = row.integer(0);
            extent.since = row.text(1);
            extent.bytes = row.integer(2);
        }
    }
    Statement row(connection_,
                  "SELECT coalesce(sum(length(datum) + length(counted_from) + length(elements) + "
                  "length(before) + length(after) + length(origin) + length(document) + 32), 0) "
                  "FROM figure_change WHERE company_id = ?",
                  {qlonglong(id)});
    if (row.next())
        extent.bytes += row.integer(0);
    return extent;
}

HistoryTable::Replayed HistoryTable::replay(std::int64_t id, std::int64_t revision,
                                            std::optional<std::int64_t> place) {
    Replayed replayed;
    forEach(id, revision, [&](const StoredGroup& stored) {
        if (stored.group.revision == revision && place && stored.group.place > *place)
            return false;
        if (replayed.record == nullptr)
            replayed.record = std::make_shared<CompanyRecord>();
        replayed.revision = stored.group.revision;
        replayed.isSound &= stored.isSound;
        replayed.isSound &= redoGroup(stored.rows, replayed);
        return true;
    });
    return replayed;
}

std::int64_t HistoryTable::limit() {
    Statement row(connection_, "SELECT value FROM store_setting WHERE name = ?",
                  {QString(limitSetting)});
    return row.next() ? toQString(row.text(0)).toLongLong() : 0;
}

void HistoryTable::setLimit(std::int64_t saves) {
    connection_.run("DELETE FROM store_setting WHERE name = ?", {QString(limitSetting)});
    connection_.run("INSERT INTO store_setting VALUES (?, ?)",
                    {QString(limitSetting), QString::number(saves)});
}

std::optional<std::string> HistoryTable::shorten(const CompanyKey& key) {
    const std::int64_t most = limit();
    if (most <= 0)
        return std::nullopt;
    std::int64_t saves = 0;
    {
        Statement row(connection_,
                      "SELECT count(DISTINCT revision) FROM change_group WHERE company_id = ?",
                      {qlonglong(key.id)});
        saves = row.next() ? row.integer(0) : 0;
    }
    if (saves <= most + most / 4)
        return std::nullopt;
    std::int64_t last = 0; // of those that become one
    {
        Statement row(connection_,
                      "SELECT DISTINCT revision FROM change_group WHERE company_id = ? "
                      "ORDER BY revision DESC LIMIT 1 OFFSET ?",
                      {qlonglong(key.id), qlonglong(most)});
        last = row.next() ? row.integer(0) : 0;
    }
    const Replayed state = replay(key.id, last);
    if (state.record == nullptr || !state.isSound)
        return std::nullopt; // damaged: all of it is kept
    SaveStamp stamp;
    for (const HistoryGroup& group : groups(key.id, {}))
        if (group.revision == last) {
            stamp = {group.user, group.time};
            break;
        }
    for (const char* table : {"figure_change", "change_group"})
        connection_.run("DELETE FROM " + QString(table) + " WHERE company_id = ? AND revision <= ?",
                        {qlonglong(key.id), qlonglong(last)});
    begin({key.id, last}, "Earlier changes", state, stamp);
    return stamp.time;
}

} // namespace vkr
