// SPDX-License-Identifier: MIT
#include "company/csv_text.hpp"
#include "company/exact_text.hpp"
#include "filings/filed_figures.hpp"
#include "source_folder.hpp"
#include "tests/filings/filing_texts.hpp"
#include "tests/filings/made_document.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vkr {

namespace {

struct Sample {
    Datum datum;
    std::string end;
    double value;
};

// The figures of a sample file; high and low are not in filings.
std::vector<Sample> samplesOf(const std::string& symbol, DatumPeriod period) {
    const bool yearly = period == DatumPeriod::year;
    const auto table = readCsv(
        textOf(VKR_SOURCE_DIR "/samples/" + symbol + (yearly ? "-yearly.csv" : "-quarterly.csv")));
    const auto& head = table.rows.front();
    const std::size_t endColumn = yearly ? 1 : 0;
    std::vector<Sample> samples;
    for (std::size_t row = 1; row < table.rows.size(); ++row)
        for (std::size_t column = 0; column < head.size(); ++column) {
            const auto datum = std::ranges::find_if(datumTable(), [&](const DatumRow& one) {
                return one.period == period && one.key == head[column].text;
            });
            const auto value = exactNumber(table.rows[row][column].text);
            if (datum == datumTable().end() || !value || datum->datum == Datum::YHighSeries ||
                datum->datum == Datum::YLowSeries)
                continue;
            samples.push_back({datum->datum, table.rows[row][endColumn].text, *value});
        }
    return samples;
}

struct Agreement {
    int samples = 0;
    int same = 0;
    std::vector<std::string> differences;
};

Agreement agreementOf(const FiledCompany& company, const std::string& symbol) {
    Agreement agreement;
    for (const DatumPeriod period : {DatumPeriod::year, DatumPeriod::quarter})
        for (const Sample& sample : samplesOf(symbol, period)) {
            ++agreement.samples;
            const FiledFigure* figure = figureOf(company, sample.datum, sample.end);
            if (figure != nullptr && figure->value == sample.value)
                ++agreement.same;
            else
                agreement.differences.push_back(
                    symbol + " | " + std::string(rowOf(sample.datum).name) + " | " + sample.end +
                    " | " + exactNumberText(sample.value) + " | " +
                    (figure == nullptr ? "none" : exactNumberText(figure->value)));
        }
    return agreement;
}

// The rows of the table in the docs, without their reasons; none stands without a reason.
std::vector<std::string> explainedDifferences() {
    std::vector<std::string> rows;
    std::istringstream lines(textOf(VKR_SOURCE_DIR "/docs/filings.md"));
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("| AAPL |") && !line.starts_with("| NVDA |"))
            continue;
        const auto reason = line.rfind(" | ", line.size() - 3);
        EXPECT_GT(line.size() - reason, 10u) << line;
        rows.push_back(line.substr(2, reason - 2));
    }
    return rows;
}

} // namespace

TEST(Agreement, EveryFigureIsThatOfTheSamplesOrExplainedInTheDocs) {
    std::vector<std::string> differences;
    for (const char* symbol : {"AAPL", "NVDA"}) {
        const auto agreement = agreementOf(companyOf(symbol), symbol);
        EXPECT_EQ(agreement.samples, 274);
        EXPECT_EQ(agreement.same + static_cast<int>(agreement.differences.size()), 274);
        differences.insert(differences.end(), agreement.differences.begin(),
                           agreement.differences.end());
    }
    EXPECT_EQ(differences, explainedDifferences());
}

TEST(Agreement, WhatDiffersFromTheSamplesIsATieOfTheLastPlace) {
    const auto company = companyOf("NVDA");
    for (const Sample& sample : samplesOf("NVDA", DatumPeriod::quarter)) {
        const FiledFigure* figure = figureOf(company, sample.datum, sample.end);
        ASSERT_NE(figure, nullptr);
        if (figure->value != sample.value) {
            EXPECT_NEAR(figure->exact, sample.value, 0.00005 * 1.000001) << sample.end;
        }
    }
}

} // namespace vkr
