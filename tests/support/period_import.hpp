// SPDX-License-Identifier: MIT
#pragma once

#include "company/period_moves.hpp"
#include "record/actions.hpp"
#include "record/datum_changes.hpp"

#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace vkr::test {

// One part of an import: what is written together, and where it comes from.
struct ImportPart {
    Action action;
    std::vector<DatumChange> changes;
};

// An import as of filings that go beyond the record: it moves years and quarters on, then writes
// figures of two documents, into periods that came and into such that were there.
inline std::vector<ImportPart> periodImport(const iVKR_Company& company, unsigned seed) {
    std::mt19937 random(seed);
    const auto within = [&](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    const int years = within(0, 2);
    const int quarters = within(years == 0 ? 1 : 0, 3);
    ImportPart moves{{Origin::shifted, {}, {}}, {}};
    const auto add = [&](ImportPart& part, Datum datum, Variant after) {
        part.changes.push_back({datum, std::nullopt, readDatum(company, datum), std::move(after)});
    };
    if (years > 0) {
        add(moves, Datum::LastFY, static_cast<std::int16_t>(company.get_LastFY() + years));
        add(moves, Datum::LastFYDate, addYears(company.get_LastFYDate(), years));
    }
    if (quarters > 0)
        for (const Datum datum : {Datum::LastQDate, Datum::LastQDateForGrid})
            add(moves, datum, addQuarters(company.get_LastQDateForGrid(), quarters));
    std::vector<ImportPart> documents = {{{Origin::imported, {}, "0001-25-7"}, {}},
                                         {{Origin::imported, {}, "0001-26-1"}, {}}};
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const Variant held = readDatum(company, row.datum);
        const int by = row.period == DatumPeriod::year ? years : quarters;
        if (by > 0 && held.isArray())
            add(moves, row.datum, movedOn(held, by));
        for (int i = row.period == DatumPeriod::year ? 1 : 0; held.isArray() && i < 8; ++i)
            if (held.array().contains(i) && within(0, i < by ? 1 : 4) == 0)
                documents[static_cast<std::size_t>(within(0, 1))].changes.push_back(
                    {row.datum, i, {}, within(0, 999999) / 8.0});
    }
    std::vector<ImportPart> parts = {std::move(moves)};
    std::ranges::move(documents, std::back_inserter(parts));
    return parts;
}

// Does it as one action, whole or not at all: what the record said where it refuses. `read` is the
// same record, where its own reads may fail.
inline std::optional<std::string> importPeriods(const std::shared_ptr<iVKR_Company>& company,
                                                unsigned seed, const iVKR_Company& read) {
    std::vector<ImportPart> parts = periodImport(read, seed);
    const ActionScope whole(company, {Origin::imported, "Import", {}});
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        for (DatumChange& change : part->changes)
            if (change.element)
                change.before = readDatum(read, change.datum).array().at(*change.element);
        const auto write = [&](const ImportPart& one, const std::vector<DatumChange>& changes) {
            const ActionScope scope(company, one.action);
            return applyChanges(*company, changes);
        };
        const auto refusal = write(*part, part->changes);
        if (!refusal)
            continue;
        while (part != parts.begin()) {
            --part;
            static_cast<void>(write(*part, inverted(part->changes)));
        }
        return refusal;
    }
    return std::nullopt;
}
inline std::optional<std::string> importPeriods(const std::shared_ptr<iVKR_Company>& company,
                                                unsigned seed) {
    return importPeriods(company, seed, *company);
}

} // namespace vkr::test
