// SPDX-License-Identifier: MIT
#include "filings/company_match.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace vkr {

namespace {

using namespace std::string_view_literals;

// Words that one writes and the other leaves out.
constexpr std::array legalWords = {
    "THE"sv, "INC"sv,     "INCORPORATED"sv, "CORP"sv, "CORPORATION"sv, "CO"sv, "COMPANY"sv,
    "LTD"sv, "LIMITED"sv, "PLC"sv,          "LLC"sv,  "LP"sv,          "SA"sv, "NV"sv,
    "AG"sv,  "SE"sv,      "COM"sv,          "AND"sv,  "CLASS"sv,       "DE"sv, "NEW"sv,
};

std::vector<std::string> wordsOf(std::string_view name) {
    std::vector<std::string> all(1);
    for (const char one : upperCase(name)) {
        const bool isMark = static_cast<unsigned char>(one) < 0x80 && !(one >= 'A' && one <= 'Z') &&
                            !(one >= '0' && one <= '9');
        if (one == '.' || one == '\'') // "U.S.", "Lowe's"
            continue;
        if (!isMark)
            all.back() += one;
        else if (!all.back().empty())
            all.emplace_back();
    }
    std::vector<std::string> words;
    for (const auto& word : all)
        if (!word.empty() && std::ranges::find(legalWords, word) == legalWords.end())
            words.push_back(word);
    return words;
}

} // namespace

CompanyMatch matchCompany(std::string_view entityName, std::string_view recordName) {
    const auto filed = wordsOf(entityName);
    const auto held = wordsOf(recordName);
    if (filed.empty() || held.empty())
        return CompanyMatch::unsure;
    if (filed == held)
        return CompanyMatch::same;
    return filed.front() == held.front() ? CompanyMatch::unsure : CompanyMatch::other;
}

} // namespace vkr
