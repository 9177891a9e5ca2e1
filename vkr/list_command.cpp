// SPDX-License-Identifier: MIT
#include "company/exact_text.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"

namespace vkr {

namespace {

constexpr std::int64_t pageSize = 500;

std::string figureOrNothing(double figure) {
    return figure == 0 ? "" : exactNumberText(figure);
}

} // namespace

ExitCode listCompanies(const Call& call) {
    const auto store = openDatabase(call);
    ListQuery query;
    for (const std::string& word : call.line.arguments)
        query.search += (query.search.empty() ? "" : " ") + word;
    call.output.begin({{"symbol"},
                       {"name"},
                       {"exchange"},
                       {"industry"},
                       {"last_fiscal_year", true},
                       {"current_price", true},
                       {"price_date"},
                       {"last_saved"},
                       {"id", true}});
    for (std::int64_t from = 0; call.output.isRead(); from += pageSize) {
        if (Terminal::isToStop())
            return ExitCode::stopped;
        const auto page = valueOf(store->list(query, from, pageSize));
        for (const CompanySummary& company : page)
            call.output.row({company.symbol, company.name, company.exchange, company.industry,
                             company.lastFY == 0 ? "" : std::to_string(company.lastFY),
                             figureOrNothing(company.currentPrice),
                             isoDateText(company.priceUpdated), company.lastSaved,
                             std::to_string(company.key.id)});
        if (page.size() < static_cast<std::size_t>(pageSize))
            break;
    }
    call.output.end();
    return ExitCode::done;
}

} // namespace vkr
