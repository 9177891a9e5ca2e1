// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <memory>
#include <string>
#include <variant>

namespace vkr {

// Two companies without a figure in common, so that every field changes with each load.
inline std::shared_ptr<CompanyRecord> company(double seed) {
    auto record = std::make_shared<CompanyRecord>();
    for (const auto& row : datumTable()) {
        seed += 1.37;
        if (std::holds_alternative<TextAccess>(row.access)) {
            writeDatum(*record, row.datum, std::string(row.name) + " " + std::to_string(seed));
        } else if (std::holds_alternative<NumberAccess>(row.access)) {
            writeDatum(*record, row.datum, seed);
        } else if (isSeries(row)) {
            Variant series = readDatum(*record, row.datum);
            for (int i = series.array().lower(); i <= series.array().upper(); ++i)
                series.array().setNumber(i, seed + 10 * i);
            writeDatum(*record, row.datum, series);
        }
    }
    const int year = 1990 + static_cast<int>(seed) % 30;
    const Date day = makeDate(year, 12, 31).value();
    for (const Datum datum : {Datum::DateOfSource, Datum::PriceUpdatedDate, Datum::LastQDate,
                              Datum::LastQDateForGrid, Datum::LastFYDate, Datum::LastUpdate})
        writeDate(*record, datum, day);
    record->put_LastFY(static_cast<std::int16_t>(year));
    return record;
}

struct CompanyPair {
    std::shared_ptr<CompanyRecord> first = company(100);
    std::shared_ptr<CompanyRecord> second = company(217);
};

} // namespace vkr
