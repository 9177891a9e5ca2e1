// SPDX-License-Identifier: MIT
#include "host/filings_review_model.hpp"

#include "filings/review_table.hpp"
#include "host/texts.hpp"

#include <QFont>

#include <utility>

namespace vkr {

namespace {

const ReviewColumn& columnAt(int column) {
    return reviewColumns()[static_cast<std::size_t>(column)];
}

// A figure as a number, all else as text; nothing for a figure that is not there.
QVariant valueOf(const ReviewRow& row, const ReviewColumn& column) {
    if (column.text != nullptr)
        return fromUtf8(column.text(row));
    const auto number = column.number(row);
    return number.has_value() ? QVariant(number.value_or(0)) : QVariant();
}

} // namespace

void FilingsReviewModel::setReview(FilingsReview review) {
    beginResetModel();
    review_ = std::move(review);
    endResetModel();
    emit ticksChanged();
}

const ReviewRow& FilingsReviewModel::row(int row) const {
    return review_.rows[static_cast<std::size_t>(row)];
}

QString FilingsReviewModel::details(int row) const {
    return fromUtf8(reviewDetails(this->row(row),
                                  [](double figure) { return figureText(figure).toStdString(); }));
}

void FilingsReviewModel::setTicked(const QModelIndexList& rows, bool ticked) {
    for (const QModelIndex& index : rows)
        review_.rows[static_cast<std::size_t>(index.row())].ticked = ticked;
    followTicks(review_);
    tellTicks();
}

void FilingsReviewModel::setTicks(ReviewTicks ticks) {
    tick(review_, ticks);
    tellTicks();
}

void FilingsReviewModel::tellTicks() {
    if (!review_.rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    emit ticksChanged();
}

int FilingsReviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(review_.rows.size());
}

int FilingsReviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(reviewColumns().size());
}

QVariant FilingsReviewModel::data(const QModelIndex& index, int role) const {
    const ReviewRow& at = row(index.row());
    const ReviewColumn& column = columnAt(index.column());
    switch (role) {
    case Qt::DisplayRole: {
        const QVariant value = valueOf(at, column);
        return value.typeId() == QMetaType::Double ? figureText(value.toDouble())
                                                   : value.toString();
    }
    case sortRole:
        return valueOf(at, column);
    case Qt::CheckStateRole:
        if (index.column() == 0)
            return at.ticked ? Qt::Checked : Qt::Unchecked;
        break;
    case Qt::TextAlignmentRole:
        if (column.number != nullptr)
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        break;
    case Qt::FontRole:
        if (at.figure.isDoubtful()) {
            QFont font;
            font.setItalic(true);
            return font;
        }
        break;
    case Qt::ToolTipRole:
        return details(index.row());
    default:
        break;
    }
    return {};
}

QVariant FilingsReviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const ReviewColumn& column = columnAt(section);
    if (role == Qt::DisplayRole)
        return fromUtf8(column.title);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((column.number != nullptr ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags FilingsReviewModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return index.column() == 0 ? usual | Qt::ItemIsUserCheckable : usual;
}

bool FilingsReviewModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || index.column() != 0)
        return false;
    setTicked({index}, value.toInt() == Qt::Checked);
    return true;
}

FilteredReview::FilteredReview(FilingsReviewModel& model, QObject* parent)
    : QSortFilterProxyModel(parent), model_(model) {
    setSourceModel(&model);
    setSortRole(FilingsReviewModel::sortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setDynamicSortFilter(false); // a tick moves no row
}

void FilteredReview::setFilter(ReviewFilter filter) {
    filter_ = filter;
    invalidateFilter();
}

QModelIndexList FilteredReview::inReview(const QModelIndexList& shown) const {
    QModelIndexList rows;
    for (const QModelIndex& index : shown)
        rows.append(mapToSource(index));
    return rows;
}

bool FilteredReview::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return passes(model_.row(row), filter_);
}

} // namespace vkr
