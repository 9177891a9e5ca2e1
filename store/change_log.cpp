// SPDX-License-Identifier: MIT
#include "store/change_log.hpp"

#include "record/datum_titles.hpp"
#include "store/store_text.hpp"

#include <QDateTime>

#include <cassert>
#include <utility>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

std::string localTime(const std::string& utc) {
    const QDateTime time = QDateTime::fromString(toQString(utc), Qt::ISODate);
    return time.isValid() ? time.toLocalTime().toString("yyyy-MM-dd HH:mm").toStdString() : utc;
}

std::string enumerate(const std::vector<HistoryChange>& differences) {
    static constexpr std::size_t most = 8;
    std::string text;
    std::size_t count = 0;
    std::string last;
    for (const HistoryChange& difference : differences) {
        if (difference.datum == last)
            continue; // another element of the same series
        last = difference.datum;
        if (++count <= most)
            text += (text.empty() ? "" : ", ") + calledDatum(difference.datum);
    }
    return count > most ? text + " and " + std::to_string(count - most) + " more" : text;
}

} // namespace

std::string calledName(const CompanyRecord& record) {
    if (const std::string name = record.get_Name(); !name.empty())
        return "“" + name + "”";
    const std::string symbol = record.get_Symbol();
    return symbol.empty() ? "The company" : "“" + symbol + "”";
}

void ChangeLog::add(const CompanyKey& key, Change change, const SaveStamp& stamp) {
    connection_.run("INSERT INTO change_log (company_id, revision, change, changed_by, "
                    "changed_at) VALUES (?, ?, ?, ?, ?)",
                    {qlonglong(key.id), qlonglong(key.revision),
                     change == Change::saved ? "saved" : "removed", textValue(stamp.user),
                     textValue(stamp.time)});
}

StoreConflict ChangeLog::lastChange(std::int64_t id) {
    Statement row(connection_,
                  "SELECT changed_by, changed_at, change FROM change_log WHERE company_id = ? "
                  "ORDER BY id DESC LIMIT 1",
                  {qlonglong(id)});
    if (!row.next())
        return {};
    return {row.text(0), row.text(1), row.text(2) == "removed", 0, {}};
}

void ChangeLog::failSaved(const CompanyKey& stored, const CompanyRecord& record,
                          std::vector<HistoryChange> differences) {
    assert(stored.revision > 0);
    StoreConflict conflict = lastChange(stored.id);
    conflict.revision = stored.revision;
    conflict.differences = std::move(differences);
    std::string message = calledName(record) + " was saved by " + conflict.changedBy + " on " +
                          localTime(conflict.changedAt) +
                          " while it was open here. Nothing was changed now.";
    if (!conflict.differences.empty())
        message += " What differs: " + enumerate(conflict.differences) + ".";
    throw StoreFailure({StoreFault::conflict, message, conflict});
}

void ChangeLog::failRemoved(std::int64_t id, const CompanyRecord& record) {
    failAbsent(id, calledName(record), StoreFault::conflict,
               " Nothing was changed now; save it as a new company to keep it.");
}

void ChangeLog::failMissing(std::int64_t id) {
    failAbsent(id, "The company", StoreFault::missing, "");
}

void ChangeLog::failAbsent(std::int64_t id, const std::string& name, StoreFault fault,
                           const std::string& advice) {
    StoreConflict conflict = lastChange(id);
    std::string message = conflict.isRemoved ? name + " was removed by " + conflict.changedBy +
                                                   " on " + localTime(conflict.changedAt) + "."
                                             : name + " is no longer in " +
                                                   connection_.location().name.toStdString() + ".";
    conflict.isRemoved = true;
    throw StoreFailure({fault, message + advice, conflict});
}

} // namespace vkr
