// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_store.hpp"

#include <QAbstractTableModel>
#include <QElapsedTimer>

#include <cstdint>
#include <optional>
#include <vector>

namespace vkr {

// The companies of the database that are searched for, in the order chosen. It holds the rows from
// the first one to the last one that was looked at; more are read when the view asks for them.
//
// What may be true together: the rows are the first ones of query_, all of them once they are
// complete. It is another query than the one that is wanted only where reading that has failed;
// before the first refresh there are no rows.
class CompanyListModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { name, symbol, exchange, industry, price, priceDate, lastSaved }; // as ListColumn
    static constexpr int columns = lastSaved + 1;
    static constexpr int pageSize = 100; // more than a screen has room for

    // Empty until the first refresh.
    explicit CompanyListModel(CompanyStore& store, QObject* parent = nullptr);

    // Reads the rows anew, as many as there were. Nothing is reset where nothing has changed.
    void refresh();
    // Whether somebody else has changed something since this was asked last; nothing where the
    // database doesn't answer.
    [[nodiscard]] std::optional<bool> hasNews();
    void search(const QString& text); // every word, somewhere
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    // Reads on to this company; false where it is not among those searched for.
    bool reach(std::int64_t id);
    void reachEnd();
    // While the rows are this fresh, a search that only goes on is carried out among them.
    void setFreshness(int milliseconds) { freshness_ = milliseconds; }

    [[nodiscard]] const CompanySummary& company(int row) const;
    [[nodiscard]] std::optional<int> rowOf(std::int64_t id) const; // of the rows read
    // Whether the rows are those searched for: reading them may have failed.
    [[nodiscard]] bool isCurrent() const { return query_ == wanted_; }
    [[nodiscard]] bool isSearched() const { return !query_.search.empty(); }
    // How many companies are searched for, and how many there are in all. `known` where that takes
    // no question to the database; else it may.
    struct Count {
        std::int64_t found = 0;
        std::int64_t all = 0;
    };
    [[nodiscard]] std::optional<Count> known() const;
    [[nodiscard]] std::optional<Count> count();
    [[nodiscard]] bool isDatabaseEmpty();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

  signals:
    void told(const QString& error); // for people; empty when reading works

  private:
    using Rows = std::vector<CompanySummary>;

    template <typename Value>
    std::optional<Value> checked(StoreResult<Value> result);
    std::optional<Rows> read(std::int64_t most);
    void readFrom(const ListQuery& query);
    void reset(Rows rows, bool isComplete); // to those of what is wanted
    void checkInvariants() const;
    void append(std::int64_t most);

    CompanyStore& store_;
    ListQuery wanted_;
    ListQuery query_; // of the rows
    Rows rows_;
    std::optional<std::int64_t> stamp_; // of the database, when it was asked last
    QElapsedTimer read_;                // since the rows were read; invalid where that failed
    int freshness_ = 2000;              // milliseconds
    bool isRead_ = false;               // once
    bool isComplete_ = false;           // there are no more rows than these
};

} // namespace vkr
