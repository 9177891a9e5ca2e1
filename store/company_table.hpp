// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"
#include "store/stored_company.hpp"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// Who saves, and when.
struct SaveStamp {
    std::string user; // user@host
    std::string time; // UTC, 2026-01-31T12:00:00Z
};

// What is saved of a company.
struct SavedCompany {
    const CompanyRecord& record;
    std::string origins; // as FigureOrigins says them
    const SaveStamp& stamp;
};

// Records in the tables `company` and `series`. Everything here is done within a transaction of the
// caller, who knows the revision that is to come.
class CompanyTable {
  public:
    explicit CompanyTable(StoreConnection& connection);

    // 0 where there is no such company.
    [[nodiscard]] std::int64_t revision(std::int64_t id);
    struct Row {
        LoadedCompany company;
        SaveStamp saved;
        bool isAsSaved = true;     // by its checksum
        std::int64_t checksum = 0; // of what is there
    };
    [[nodiscard]] std::optional<Row> read(std::int64_t id);
    // A new company, of revision 1. Its number.
    std::int64_t insert(const SavedCompany& company);
    void update(const CompanyKey& key, const SavedCompany& company);
    // Gives a company that has none its checksum.
    void seal(std::int64_t id);
    // With all that hangs on it, but what the change log says.
    void remove(std::int64_t id);

  private:
    void insertSeries(std::int64_t id, const CompanyRecord& record);
    void writeChecksum(std::int64_t id, std::int64_t checksum);

    StoreConnection& connection_;
    // The statements.
    const QString select_;
    const QString insert_;
    const QString update_;
    const QString insertSeries_;
};

} // namespace vkr
