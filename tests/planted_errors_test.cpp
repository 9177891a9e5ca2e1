// SPDX-License-Identifier: MIT
// Slips that people make, put into each figure of the samples: how many the checks find.
#include "plausibility/company_findings.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <set>

namespace vkr {
namespace {

// The figure that is put in place of another one; of two neighbours each gets the other's.
struct Slip {
    const char* name;
    std::optional<double> times;
};
constexpr Slip slips[] = {
    {"x 10", 10},      {"x 100", 100}, {"x 1000", 1000},         {"/ 10", 0.1},
    {"/ 1000", 0.001}, {"sign", -1},   {"swapped", std::nullopt}};

struct Hits {
    int planted = 0;
    int found = 0;   // a finding names the figure
    int pointed = 0; // and puts it in front
};

double figureAt(const CompanyRecord& company, const FigurePlace& place) {
    return place.element ? test::elementOf(company, place.datum, *place.element)
                         : readNumber(company, place.datum);
}

void put(CompanyRecord& company, const FigurePlace& place, double figure) {
    if (place.element)
        test::putElement(company, place.datum, *place.element, figure);
    else
        writeNumber(company, place.datum, figure);
}

std::vector<FigurePlace> figuresOf(const CompanyRecord& company) {
    std::vector<FigurePlace> places;
    for (const DatumRow& row : datumTable()) {
        if (row.unit == DatumUnit::none)
            continue;
        for (int element = 0; element <= row.upper; ++element) {
            const FigurePlace place{row.datum,
                                    isSeries(row) ? std::optional(element) : std::nullopt};
            if (figureAt(company, place) != 0)
                places.push_back(place);
        }
    }
    return places;
}

// Plants a slip in a copy; the places where it is, none where it cannot be made there.
std::vector<FigurePlace> plant(CompanyRecord& company, const FigurePlace& place, const Slip& slip) {
    const double figure = figureAt(company, place);
    if (slip.times) {
        put(company, place, figure * *slip.times);
        return {place};
    }
    if (!place.element || *place.element >= rowOf(place.datum).upper)
        return {};
    const FigurePlace older{place.datum, *place.element + 1};
    const double other = figureAt(company, older);
    if (other == 0 || other == figure)
        return {};
    put(company, place, other);
    put(company, older, figure);
    return {place, older};
}

Hits hitsOf(const Slip& slip) {
    Hits hits;
    for (const char* symbol : {"AAPL", "NVDA", "TSLA", "SNOW"}) {
        const auto company = test::sample(symbol);
        std::set<std::string> known;
        for (const Finding& one : companyFindings(*company))
            known.insert(one.key);
        for (const FigurePlace& place : figuresOf(*company)) {
            const auto copy = company->clone();
            const auto planted = plant(*copy, place, slip);
            if (planted.empty())
                continue;
            const auto isPlanted = [&](const FigurePlace& one) {
                return std::ranges::find(planted, one) != planted.end();
            };
            ++hits.planted;
            bool found = false;
            bool pointed = false;
            for (const Finding& one : companyFindings(*copy)) {
                if (known.contains(one.key))
                    continue;
                found = found || std::ranges::any_of(one.places, isPlanted);
                pointed = pointed || isPlanted(one.places.front());
            }
            hits.found += found ? 1 : 0;
            hits.pointed += pointed ? 1 : 0;
        }
    }
    return hits;
}

// The bounds may only rise.
TEST(PlantedErrors, areFoundAtLeastAsOftenAsBefore) {
    const std::map<std::string, Hits> bounds = {
        {"x 10", {1025, 957, 765}},   {"x 100", {1025, 1013, 921}}, {"x 1000", {1025, 1020, 927}},
        {"/ 10", {1025, 858, 771}},   {"/ 1000", {1025, 934, 919}}, {"sign", {1025, 934, 824}},
        {"swapped", {943, 472, 270}},
    };
    for (const Slip& slip : slips) {
        const Hits hits = hitsOf(slip);
        const Hits& bound = bounds.at(slip.name);
        EXPECT_EQ(hits.planted, bound.planted) << slip.name;
        EXPECT_GE(hits.found, bound.found) << slip.name;
        EXPECT_GE(hits.pointed, bound.pointed) << slip.name;
    }
}

} // namespace
} // namespace vkr
