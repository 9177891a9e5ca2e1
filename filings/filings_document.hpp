// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// What a company has reported, as a "companyfacts" document holds it: a JSON text with `cik`,
// `entityName` and `facts`, below that taxonomy, concept, unit and the list of facts.

// One value in one filing. The same period comes back in later filings.
struct FiledFact {
    std::optional<Date> start; // first day of its period; none for a value at a date
    Date end;                  // last day, or the date
    double value = 0;
    std::string form;      // "10-K", "10-Q/A"
    std::string accession; // number of the filing
    Date filed;
};

// The facts of one concept in one unit.
struct FiledConcept {
    std::string name; // with the taxonomy: "us-gaap:NetIncomeLoss"
    std::string unit; // "USD", "shares", "USD/shares", "pure"
    std::vector<FiledFact> facts;
};

struct FilingsDocument {
    std::int64_t cik = 0; // 0 where the document has none
    std::string entityName;
    // Those that a record has a place for; the others are left out when reading.
    std::vector<FiledConcept> concepts;
    std::map<std::string, int> taxonomies; // how many concepts each has, used or not
    std::map<std::string, int> units;      // how many facts of the used concepts are given in each
    int unusable = 0;                      // facts without value, date, form or filing
};

struct FilingsReading {
    std::optional<FilingsDocument> document; // none where there is an error
    std::string error;                       // for people
};

// A larger file is not read at all. That of a company with seventeen years of filings has 4 MB;
// reading takes eight times the size of the file in memory.
inline constexpr std::uintmax_t filingsSizeLimit = 64u << 20;

// Never throws for what the text holds, and takes all or nothing of it.
[[nodiscard]] FilingsReading readFilings(std::string_view json);
[[nodiscard]] FilingsReading readFilingsFile(const std::filesystem::path& file);

} // namespace vkr
