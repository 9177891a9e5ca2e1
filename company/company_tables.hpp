// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// What a record holds, in plain texts: figures as plain decimals with all their digits, dates as
// 2025-09-27, "" for what is absent. Keys, units and order are those of the CSV files: money is in
// millions, share counts outside of the series are plain counts.

struct PlainValue {
    std::string_view key;
    std::string text;
    bool isText = false; // which people have typed; else a figure, a date or a setting
};

// What is in no series, then the settings.
[[nodiscard]] std::vector<PlainValue> plainValues(const CompanyRecord& company);

// The yearly or the quarterly figures: a row a period, the newest first, down to the oldest one
// with a figure; the period ahead only where it has one.
struct FigureTable {
    struct Row {
        int element;
        std::vector<std::string> names; // of the period
        std::vector<std::string> figures;
    };
    // What the names are: fiscal_year and fiscal_year_end, or quarter_end. Where the record has no
    // date to count from, the element alone.
    std::vector<std::string_view> names;
    std::vector<const DatumRow*> series;
    std::vector<Row> rows;
};

[[nodiscard]] FigureTable figureTable(const CompanyRecord& company, DatumPeriod period);

} // namespace vkr
