// SPDX-License-Identifier: MIT
#include "store/company_list.hpp"

#include "store/search_text.hpp"

#include <algorithm>

namespace vkr {

bool goesOn(const ListQuery& wider, const ListQuery& narrower) {
    const QStringList words = searchWords(narrower.search);
    return wider.sortedBy == narrower.sortedBy && wider.isDescending == narrower.isDescending &&
           std::ranges::all_of(searchWords(wider.search), [&](const QString& begun) {
               return std::ranges::any_of(
                   words, [&](const QString& word) { return word.contains(begun); });
           });
}

bool isFound(const CompanySummary& company, const ListQuery& query) {
    const QString searched = searchedText(company);
    return std::ranges::all_of(searchWords(query.search),
                               [&](const QString& word) { return searched.contains(word); });
}

} // namespace vkr
