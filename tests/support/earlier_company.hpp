// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/period_moves.hpp"
#include "company/split.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/elements.hpp"

#include <gtest/gtest.h>

namespace vkr::test {

// Makes of a company what it was some years and quarters ago: the periods since are gone.
inline void goBack(CompanyRecord& record, int years, int quarters) {
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const bool isYear = row.period == DatumPeriod::year;
        Variant moved = movedOn(record.stored(row.datum), isYear ? -years : -quarters);
        if (isYear && years > 0)
            moved.array().setNumber(0, 0); // the year after the last one
        writeDatum(record, row.datum, moved);
    }
    if (years > 0) {
        record.put_LastFY(static_cast<std::int16_t>(record.get_LastFY() - years));
        record.put_LastFYDate(addYears(record.get_LastFYDate(), -years));
    }
    if (quarters > 0) {
        record.put_LastQDateForGrid(addQuarters(record.get_LastQDateForGrid(), -quarters));
        record.put_LastQDate(record.get_LastQDateForGrid());
    }
}

// Makes of NVDA's figures what they were before its split of 2024, and leaves out a later one.
inline void goBeforeSplit(CompanyRecord& record) {
    const auto split = splitChanges(record, {{1, 10}, *makeDate(2024, 6, 30)});
    ASSERT_EQ(applyChanges(record, changesOf(split)), std::nullopt);
    putElement(record, Datum::YEPSSeries, 1, 0);
}

} // namespace vkr::test
