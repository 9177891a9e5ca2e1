// SPDX-License-Identifier: MIT
#include "store/finding_verdicts.hpp"

#include "store/checksum.hpp"
#include "store/store_text.hpp"

#include <QStringList>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

constexpr auto definition =
    "CREATE TABLE finding_verdict ("
    " company_id {integer} NOT NULL REFERENCES company (id) ON DELETE CASCADE,"
    " line {integer} NOT NULL,"
    " finding TEXT NOT NULL,"
    " text TEXT NOT NULL,"
    " datum TEXT NOT NULL,"
    " period TEXT NOT NULL,"
    " is_right {integer} NOT NULL,"
    " said_by TEXT NOT NULL,"
    " said_at TEXT NOT NULL,"
    " checksum {integer} NOT NULL,"
    " PRIMARY KEY (company_id, line)){keyedTable}";

std::int64_t checksumOf(std::int64_t id, std::int64_t line, const FindingVerdict& verdict) {
    Checksum checksum;
    for (const std::int64_t number : {id, line, std::int64_t(verdict.isRight ? 1 : 0)})
        checksum.add(number);
    for (const std::string* text : {&verdict.finding, &verdict.text, &verdict.datum,
                                    &verdict.period, &verdict.user, &verdict.time})
        checksum.addText(*text);
    return checksum.value();
}

} // namespace

void createFindingVerdicts(StoreConnection& connection) {
    connection.execute(connection.dialect().define(definition));
}

void FindingVerdicts::add(std::int64_t id, const FindingVerdict& verdict) {
    std::int64_t line = 0;
    {
        Statement last(
            connection_,
            "SELECT coalesce(max(line) + 1, 0) FROM finding_verdict WHERE company_id = ?",
            {qlonglong(id)});
        if (last.next())
            line = last.integer(0);
    }
    connection_.run("INSERT INTO finding_verdict VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                    {qlonglong(id), qlonglong(line), textValue(verdict.finding),
                     textValue(verdict.text), textValue(verdict.datum), textValue(verdict.period),
                     qlonglong(verdict.isRight ? 1 : 0), textValue(verdict.user),
                     textValue(verdict.time), qlonglong(checksumOf(id, line, verdict))});
}

FindingVerdicts::Said FindingVerdicts::of(std::int64_t id) {
    QStringList columns = {"line", "is_right", "checksum"};
    for (const char* text : {"finding", "text", "datum", "period", "said_by", "said_at"})
        columns += connection_.dialect().wholeText(text);
    Statement rows(connection_,
                   "SELECT " + columns.join(", ") +
                       " FROM finding_verdict WHERE company_id = ? ORDER BY line",
                   {qlonglong(id)});
    Said said;
    while (rows.next()) {
        FindingVerdict verdict{rows.text(3),         rows.text(4), rows.text(5), rows.text(6),
                               rows.integer(1) != 0, rows.text(7), rows.text(8)};
        const bool isFlag = rows.integer(1) == 0 || rows.integer(1) == 1;
        said.isSound &= isFlag && rows.integer(2) == checksumOf(id, rows.integer(0), verdict);
        said.verdicts.push_back(std::move(verdict));
    }
    return said;
}

std::vector<FindingVerdict> FindingVerdicts::standing(std::int64_t id) {
    std::vector<FindingVerdict> standing;
    for (FindingVerdict& verdict : of(id).verdicts) {
        std::erase_if(standing, [&](const auto& one) { return one.finding == verdict.finding; });
        if (verdict.isRight)
            standing.push_back(std::move(verdict));
    }
    return standing;
}

void FindingVerdicts::shorten(std::int64_t id, const std::string& until) {
    std::int64_t last = -1;
    {
        Statement row(
            connection_,
            "SELECT coalesce(max(line), -1) FROM finding_verdict WHERE company_id = ? AND "
            "said_at <= ?",
            {qlonglong(id), textValue(until)});
        if (row.next())
            last = row.integer(0);
    }
    connection_.run("DELETE FROM finding_verdict WHERE company_id = ? AND line <= ? AND "
                    "(is_right = 0 OR EXISTS (SELECT 1 FROM finding_verdict AS later WHERE "
                    "later.company_id = finding_verdict.company_id AND later.finding = "
                    "finding_verdict.finding AND later.line > finding_verdict.line AND "
                    "later.line <= ?))",
                    {qlonglong(id), qlonglong(last), qlonglong(last)});
}

} // namespace vkr
