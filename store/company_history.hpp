// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"
#include "company/figure_origins.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// What led from the company as it was stored to the one that is saved. Whatever the groups do not
// account for is found out by comparing, and noted as `rest` says: a save without any account keeps
// what it changes all the same.
struct SaveAccount {
    std::vector<ChangeGroup> groups; // since the last save, the first one first
    // An import says where it comes from: {Origin::imported, "Import of AAPL", "AAPL-company.csv"}.
    Action rest;
    // Where the data come from that are saved, where whoever saves knows better than the groups
    // tell, such as of a company that was made from another one, or of what was taken back.
    std::optional<FigureOrigins> origins = std::nullopt;
    // Of `rest`: the data that are from another document than the others.
    std::map<Datum, std::string> documents = {};
    // `rest` goes over what somebody else has saved meanwhile: each of its data has the origin that
    // it has in `origins`.
    bool overwrites = false;
};

// One value that changed. Of a series it is told by its period, and the figures of a period that
// only moved to another element are no change.
struct HistoryChange {
    std::string datum;          // the name of the property or the setting
    std::optional<int> element; // of a series, as it was counted after the change
    std::string period;         // "2024", or the end of a quarter, "2025-09-27"; "" where not known
    std::string before;         // as in Difference
    std::string after;
    std::optional<Origin> origin; // nothing: not known
    std::string document;

    friend bool operator==(const HistoryChange&, const HistoryChange&) = default;
};

// What a person has said of a finding about a company's figures.
struct FindingVerdict {
    std::string finding;   // names it for good: another one as soon as its figures change
    std::string text;      // the finding in words
    std::string datum;     // whose figure it is about first, as in HistoryChange
    std::string period;    // of a series
    bool isRight = true;   // else it is to be looked at again
    std::string user = {}; // user@host; the store knows
    std::string time = {}; // UTC, 2026-01-31T12:00:00Z; the store knows

    friend bool operator==(const FindingVerdict&, const FindingVerdict&) = default;
};

// What a person did, as it was saved.
struct HistoryGroup {
    std::int64_t revision = 0; // of the save
    std::int64_t place = 0;    // within it, from 0
    std::string name;          // for people; may be empty
    std::string user;          // user@host
    std::string time;          // UTC, 2026-01-31T12:00:00Z
    std::vector<HistoryChange> changes;
    // Then it is this and no save: there is neither revision nor change, and no state after it.
    std::optional<FindingVerdict> verdict = std::nullopt;
};

// What to look for; what is left empty is not asked for.
struct HistoryQuery {
    std::string user = {};
    std::string from = {};  // UTC, the first moment; 2026-01-31 will do
    std::string until = {}; // UTC, the first moment that is too late
    std::optional<Origin> origin = std::nullopt;
    std::string datum = {};
    std::string period = {}; // of a series; a quarter by any day in it
};

// What there is of a company's history.
struct HistoryExtent {
    std::int64_t groups = 0;
    std::int64_t bytes = 0; // of text, about what it takes in the database
    std::string since;      // time of the first group
};

// A company as it was at a moment of its history, and where its figures came from.
struct HistoryState {
    std::shared_ptr<CompanyRecord> record;
    FigureOrigins origins;
};

// What groups change, as the history tells it, the first one first. `before` is the company that
// they begin with.
[[nodiscard]] std::vector<HistoryGroup> toldGroups(const CompanyRecord& before,
                                                   const std::vector<ChangeGroup>& groups);
// What differs between two records, told in the same way: figures of a period that only stand at
// another element are no difference.
[[nodiscard]] std::vector<HistoryChange> changesByPeriod(const CompanyRecord& before,
                                                         const CompanyRecord& after);
// Which figure of its datum has changed: " 2025", or " (3)" where there is no date to count from;
// "" where it is the only one.
[[nodiscard]] std::string whichFigure(const HistoryChange& change);

// The period of a figure, as the history of the company has it; "" where it is not known.
[[nodiscard]] std::string historyPeriod(const CompanyRecord& company, Datum datum,
                                        std::optional<int> element);

} // namespace vkr
