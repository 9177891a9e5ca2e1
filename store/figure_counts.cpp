// SPDX-License-Identifier: MIT
#include "store/figure_counts.hpp"

#include <algorithm>
#include <charconv>

namespace vkr {

std::string figuresText(const FigureCounts& counts) {
    std::string text;
    for (const auto& [series, count] : counts)
        text += (text.empty() ? "" : " ") + series + ":" + std::to_string(count);
    return text;
}

FigureCounts figureCounts(std::string_view text) {
    FigureCounts counts;
    while (!text.empty()) {
        const std::string_view entry = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), entry.size() + 1));
        const auto colon = std::min(entry.find(':'), entry.size());
        int count = 0;
        std::from_chars(entry.data() + std::min(colon + 1, entry.size()),
                        entry.data() + entry.size(), count);
        counts.emplace(entry.substr(0, colon), count);
    }
    return counts;
}

FigureCounts countFigures(const CompanyRecord& record) {
    FigureCounts counts;
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const VariantArray& series = record.stored(row.datum).array();
        int count = 0;
        for (int element = series.lower(); element <= series.upper(); ++element)
            count += series.number(element) != 0 ? 1 : 0;
        if (count > 0)
            counts.emplace(row.name, count);
    }
    return counts;
}

} // namespace vkr
