// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "store/company_list.hpp"
#include "store/store_connection.hpp"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <string>
#include <vector>

namespace vkr {

// The table `listing` has what companies are sorted and searched by, a narrow row for each, so that
// finding a page of the list does not read the companies themselves.
struct ListingRow {
    std::int64_t id = 0;
    std::string name;
    std::string symbol;
    std::string exchange;
    std::string industry;
    double price = 0;
    std::string priceDate; // ISO; "" where absent
    std::string savedAt;
};

[[nodiscard]] ListingRow listingOf(std::int64_t id, const CompanyRecord& record,
                                   const std::string& savedAt);

void createListing(StoreConnection& connection);
// A row for each company that is there.
void fillListing(StoreConnection& connection);
// Replaces the row of the company. It leaves together with its company.
void writeListing(StoreConnection& connection, const ListingRow& row);
// Whether the row of the company is just this one.
[[nodiscard]] bool isListed(StoreConnection& connection, const ListingRow& row);

struct ListingStatement {
    QString text;
    std::vector<QVariant> values;
};

// The given columns of the companies on a page, in the order of the list.
[[nodiscard]] ListingStatement selectPage(const StoreDialect& dialect, const ListQuery& query,
                                          const QString& columns, std::int64_t from,
                                          std::int64_t most);
// Of the companies that have this text there.
[[nodiscard]] ListingStatement selectWith(ListColumn column, const QString& columns,
                                          const std::string& text);
[[nodiscard]] ListingStatement selectCount(const StoreDialect& dialect, const ListQuery& query);
[[nodiscard]] ListingStatement selectRank(const StoreDialect& dialect, const ListQuery& query,
                                          std::int64_t id);

} // namespace vkr
