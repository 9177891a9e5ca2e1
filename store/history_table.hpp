// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_table.hpp"
#include "store/history_rows.hpp"
#include "store/store_connection.hpp"
#include "store/stored_company.hpp"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

void createHistory(StoreConnection& connection);

// What was changed in each save, in the tables `change_group` and `figure_change`. A company's
// first group begins at the empty record, so that all of them, one after the other, lead to what is
// stored. Everything here is done within a transaction of the caller. The history leaves together
// with its company.
class HistoryTable {
  public:
    explicit HistoryTable(StoreConnection& connection);

    void add(const CompanyKey& key, const std::string& user, const std::vector<SavedGroup>& groups);
    // A history that begins with the company as it is.
    void begin(const CompanyKey& key, const std::string& name, const HistoryState& state,
               const SaveStamp& stamp);
    // The newest first.
    [[nodiscard]] std::vector<HistoryGroup> groups(std::int64_t id, const HistoryQuery& query);
    [[nodiscard]] HistoryExtent extent(std::int64_t id);

    struct Replayed : HistoryState {
        std::int64_t revision = 0; // of the last group
        bool isSound = true;       // every group is as it was written, and could be redone
    };
    // The company after a group; without a place after the last one of the save. A null record
    // where there is no history.
    [[nodiscard]] Replayed replay(std::int64_t id, std::int64_t revision,
                                  std::optional<std::int64_t> place = std::nullopt);

    // How many saves of a company are kept at least; 0: all.
    [[nodiscard]] std::int64_t limit();
    void setLimit(std::int64_t saves);
    // Puts the oldest saves together to one where there are more than a quarter above the limit;
    // then tells the time of the last one of them.
    std::optional<std::string> shorten(const CompanyKey& key);

  private:
    struct StoredGroup {
        HistoryGroup group;
        std::vector<HistoryRow> rows;
        bool isSound;
    };
    void insertRows(const CompanyKey& key, std::int64_t place, const std::vector<HistoryRow>& rows);
    // In the order in which they were written, one after the other.
    void forEach(std::int64_t id, std::int64_t lastRevision,
                 const std::function<bool(const StoredGroup&)>& function);

    StoreConnection& connection_;
    const QString select_;
    std::vector<QString> insertions_; // of rows, by how many they put in
};

// Whether person and time, and figure and period, are those of the query.
[[nodiscard]] bool isAsked(const HistoryGroup& group, const HistoryQuery& query);
[[nodiscard]] bool isAsked(const FindingVerdict& verdict, const HistoryQuery& query);

} // namespace vkr
