// SPDX-License-Identifier: MIT
#include "host/company_list_model.hpp"

#include "host/texts.hpp"

#include <QLocale>

#include <algorithm>

namespace vkr {

namespace {

struct ColumnRow {
    const char* title;
    QString CompanyListing::*text;
    double CompanyListing::*number;
    Date CompanyListing::*date;
};
constexpr std::array<ColumnRow, CompanyListModel::columns> columnTable = {{
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Name"), &CompanyListing::name, nullptr, nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Symbol"), &CompanyListing::symbol, nullptr,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Exchange"), &CompanyListing::exchange, nullptr,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Industry"), &CompanyListing::industry, nullptr,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Price"), nullptr, &CompanyListing::price, nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Price Date"), nullptr, nullptr,
     &CompanyListing::priceDate},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Last Saved"), &CompanyListing::lastSaved, nullptr,
     nullptr},
}};

const ColumnRow& columnRow(int column) {
    return columnTable.at(static_cast<std::size_t>(column));
}

QString shown(const CompanyListing& company, int column) {
    const ColumnRow& row = columnRow(column);
    if (row.text != nullptr) {
        const QString& text = company.*row.text;
        return column == CompanyListModel::name && text.isEmpty()
                   ? CompanyListModel::tr("(no name)")
                   : text;
    }
    if (row.number != nullptr) {
        const double number = company.*row.number;
        // Prices have cents; a fraction such as 12.375 keeps its digits.
        return number == 0 ? QString() : priceText(number);
    }
    return isoDate(company.*row.date);
}

Qt::Alignment alignment(const ColumnRow& row) {
    return Qt::AlignVCenter | (row.number != nullptr ? Qt::AlignRight
                               : row.date != nullptr ? Qt::AlignHCenter
                                                     : Qt::AlignLeft);
}

QString folded(const QString& text) {
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded();
}

} // namespace

void CompanyListModel::setCompanies(std::vector<CompanyListing> companies) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);

    std::vector<Row> rows;
    rows.reserve(companies.size());
    for (CompanyListing& company : companies) {
        QStringList texts;
        for (int column = 0; column < searchedColumns; ++column)
            texts.append(company.*columnRow(column).text);
        std::array<QCollatorSortKey, searchedColumns> order = {
            collator.sortKey(texts[name]), collator.sortKey(texts[symbol]),
            collator.sortKey(texts[exchange]), collator.sortKey(texts[industry])};
        rows.push_back({std::move(company), folded(texts.join(u'\n')), std::move(order)});
    }
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

bool CompanyListModel::holds(const std::vector<CompanyListing>& companies) const {
    return std::ranges::equal(rows_, companies, {}, &Row::listing);
}

const CompanyListing& CompanyListModel::company(int row) const {
    return rows_.at(static_cast<std::size_t>(row)).listing;
}

std::optional<int> CompanyListModel::rowOf(std::int64_t id) const {
    const auto found = std::ranges::find(rows_, id, [](const Row& row) { return row.listing.id; });
    if (found == rows_.end())
        return std::nullopt;
    return static_cast<int>(found - rows_.begin());
}

bool CompanyListModel::contains(int row, const QStringList& words) const {
    const QString& searched = rows_.at(static_cast<std::size_t>(row)).searched;
    return std::ranges::all_of(words, [&](const QString& word) { return searched.contains(word); });
}

bool CompanyListModel::isBefore(int column, int left, int right) const {
    const Row& first = rows_.at(static_cast<std::size_t>(left));
    const Row& second = rows_.at(static_cast<std::size_t>(right));
    const ColumnRow& row = columnRow(column);
    if (column < searchedColumns) {
        const auto key = static_cast<std::size_t>(column);
        return first.order.at(key).compare(second.order.at(key)) < 0;
    }
    if (row.text != nullptr)
        return first.listing.*row.text < second.listing.*row.text;
    if (row.number != nullptr)
        return first.listing.*row.number < second.listing.*row.number;
    return first.listing.*row.date < second.listing.*row.date;
}

int CompanyListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CompanyListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant CompanyListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const ColumnRow& row = columnRow(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return shown(company(index.row()), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignment(row));
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1: %2").arg(tr(row.title),
                                            shown(company(index.row()), index.column()));
    default:
        return {};
    }
}

QVariant CompanyListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const ColumnRow& row = columnRow(section);
    if (role == Qt::DisplayRole)
        return tr(row.title);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignment(row));
    return {};
}

CompanyListOrder::CompanyListOrder(CompanyListModel& companies, QObject* parent)
    : QSortFilterProxyModel(parent), companies_(companies) {
    setSourceModel(&companies);
}

void CompanyListOrder::search(const QString& text) {
    QStringList words = folded(text).simplified().split(u' ', Qt::SkipEmptyParts);
    if (words == words_)
        return;
    words_ = std::move(words);
    invalidateFilter();
}

bool CompanyListOrder::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return companies_.contains(row, words_);
}

bool CompanyListOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const int column = left.column();
    if (companies_.isBefore(column, left.row(), right.row()))
        return true;
    if (companies_.isBefore(column, right.row(), left.row()))
        return false;
    // Equal ones keep a fixed order: by name, then as they were entered.
    if (column != CompanyListModel::name) {
        if (companies_.isBefore(CompanyListModel::name, left.row(), right.row()))
            return true;
        if (companies_.isBefore(CompanyListModel::name, right.row(), left.row()))
            return false;
    }
    return companies_.company(left.row()).id < companies_.company(right.row()).id;
}

} // namespace vkr
