// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filings_review.hpp"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

namespace vkr {

// The rows of a review, with a box to tick in the first column.
class FilingsReviewModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    // What a cell is sorted by.
    static constexpr int sortRole = Qt::UserRole;

    explicit FilingsReviewModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    void setReview(FilingsReview review);
    [[nodiscard]] const FilingsReview& review() const { return review_; }
    [[nodiscard]] const ReviewRow& row(int row) const;
    [[nodiscard]] QString details(int row) const; // as its user writes figures
    void setTicked(const QModelIndexList& rows, bool ticked);
    void setTicks(ReviewTicks ticks);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  signals:
    void ticksChanged();

  private:
    void tellTicks();

    FilingsReview review_;
};

// Those of its rows that pass a filter, in the order of the review until a heading is clicked.
class FilteredReview : public QSortFilterProxyModel {
    Q_OBJECT
  public:
    explicit FilteredReview(FilingsReviewModel& model, QObject* parent = nullptr);

    void setFilter(ReviewFilter filter);
    // Rows as the review has them.
    [[nodiscard]] QModelIndexList inReview(const QModelIndexList& shown) const;

  protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    FilingsReviewModel& model_;
    ReviewFilter filter_ = ReviewFilter::all;
};

} // namespace vkr
