// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <QAbstractTableModel>
#include <QCollator>
#include <QSortFilterProxyModel>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace vkr {

// What the list shows of a company.
struct CompanyListing {
    std::int64_t id = 0;
    QString name;
    QString symbol;
    QString exchange;
    QString industry;
    double price = 0; // 0: none
    Date priceDate;
    QString lastSaved; // 2026-01-31 12:00, the user's own time

    friend bool operator==(const CompanyListing&, const CompanyListing&) = default;
};

// The companies of the database as a table. Everything is in memory: no row asks the database.
class CompanyListModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { name, symbol, exchange, industry, price, priceDate, lastSaved };
    static constexpr int columns = lastSaved + 1;

    using QAbstractTableModel::QAbstractTableModel;

    void setCompanies(std::vector<CompanyListing> companies);
    [[nodiscard]] bool holds(const std::vector<CompanyListing>& companies) const; // exactly these
    [[nodiscard]] const CompanyListing& company(int row) const;
    [[nodiscard]] std::optional<int> rowOf(std::int64_t id) const;
    [[nodiscard]] bool contains(int row, const QStringList& words) const; // every word, somewhere
    [[nodiscard]] bool isBefore(int column, int left, int right) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    static constexpr int searchedColumns = industry + 1;
    struct Row {
        CompanyListing listing;
        QString searched; // the texts of these columns, folded
        std::array<QCollatorSortKey, searchedColumns> order;
    };

    std::vector<Row> rows_;
};

// Sorted as people of the user's country sort, and only the rows that contain the words searched.
class CompanyListOrder : public QSortFilterProxyModel {
    Q_OBJECT
  public:
    explicit CompanyListOrder(CompanyListModel& companies, QObject* parent = nullptr);

    void search(const QString& text);

  protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    CompanyListModel& companies_;
    QStringList words_;
};

} // namespace vkr
