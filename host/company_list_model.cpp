// SPDX-License-Identifier: MIT
#include "host/company_list_model.hpp"

#include "host/texts.hpp"

#include <algorithm>
#include <array>
#include <cassert>
#include <limits>
#include <utility>

namespace vkr {

namespace {

struct ColumnRow {
    const char* title;
    std::string CompanySummary::*text;
    double CompanySummary::*number;
    Date CompanySummary::*date;
};
constexpr std::array<ColumnRow, CompanyListModel::columns> columnTable = {{
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Name"), &CompanySummary::name, nullptr, nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Symbol"), &CompanySummary::symbol, nullptr,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Exchange"), &CompanySummary::exchange, nullptr,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Industry"), &CompanySummary::industry, nullptr,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Price"), nullptr, &CompanySummary::currentPrice,
     nullptr},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Price Date"), nullptr, nullptr,
     &CompanySummary::priceUpdated},
    {QT_TRANSLATE_NOOP("vkr::CompanyListModel", "Last Saved"), &CompanySummary::lastSaved, nullptr,
     nullptr},
}};

const ColumnRow& columnRow(int column) {
    return columnTable.at(static_cast<std::size_t>(column));
}

QString shown(const CompanySummary& company, int column) {
    const ColumnRow& row = columnRow(column);
    if (row.text != nullptr) {
        if (column == CompanyListModel::lastSaved)
            return localTime(company.lastSaved);
        const QString text = fromUtf8(company.*row.text);
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

} // namespace

CompanyListModel::CompanyListModel(CompanyStore& store, QObject* parent)
    : QAbstractTableModel(parent), store_(store) {}

template <typename Value>
std::optional<Value> CompanyListModel::checked(StoreResult<Value> result) {
    emit told(result ? QString() : fromUtf8(result.error().message));
    return result ? std::optional<Value>(std::move(result.value())) : std::nullopt;
}

void CompanyListModel::reset(Rows rows, bool isComplete) {
    beginResetModel();
    query_ = wanted_;
    isComplete_ = isComplete;
    rows_ = std::move(rows);
    endResetModel();
    checkInvariants();
}

void CompanyListModel::checkInvariants() const {
    assert(isRead_ || (rows_.empty() && !isComplete_ && isCurrent()));
}

std::optional<CompanyListModel::Rows> CompanyListModel::read(std::int64_t most) {
    read_.invalidate();
    auto rows = checked(store_.list(wanted_, 0, most));
    if (rows)
        read_.start();
    return rows;
}

void CompanyListModel::refresh() {
    const std::int64_t asked = std::max<std::int64_t>(pageSize, std::ssize(rows_));
    auto rows = read(asked);
    if (!rows)
        return;
    const bool isComplete = std::ssize(*rows) < asked;
    if (std::exchange(isRead_, true) && isCurrent() && *rows == rows_)
        isComplete_ = isComplete;
    else
        reset(std::move(*rows), isComplete);
}

std::optional<bool> CompanyListModel::hasNews() {
    const auto stamp = store_.changeStamp();
    if (!stamp) {
        stamp_.reset();
        return std::nullopt;
    }
    return std::exchange(stamp_, stamp.value()) != stamp.value();
}

void CompanyListModel::readFrom(const ListQuery& query) {
    if (query == wanted_ && isCurrent())
        return;
    const bool isNarrowed = isCurrent() && isComplete_ && read_.isValid() &&
                            read_.elapsed() < freshness_ && goesOn(query_, query);
    wanted_ = query;
    if (!isRead_) {
        query_ = query;
        return;
    }
    if (isNarrowed) {
        Rows found = rows_;
        std::erase_if(found, [&](const CompanySummary& row) { return !isFound(row, query); });
        reset(std::move(found), isComplete_);
        return;
    }
    if (auto rows = read(pageSize)) {
        const bool isComplete = std::ssize(*rows) < pageSize;
        reset(std::move(*rows), isComplete);
    }
}

void CompanyListModel::search(const QString& text) {
    ListQuery query = wanted_;
    query.search = text.simplified().toStdString();
    readFrom(query);
}

void CompanyListModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columns)
        return;
    ListQuery query = wanted_;
    query.sortedBy = static_cast<ListColumn>(column);
    query.isDescending = order == Qt::DescendingOrder;
    readFrom(query);
}

void CompanyListModel::append(std::int64_t most) {
    auto more = checked(store_.list(query_, std::ssize(rows_), most));
    if (!more)
        return;
    isComplete_ = std::ssize(*more) < most;
    if (more->empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(more->size()) - 1);
    rows_.insert(rows_.end(), std::make_move_iterator(more->begin()),
                 std::make_move_iterator(more->end()));
    endInsertRows();
}

bool CompanyListModel::reach(std::int64_t id) {
    if (rowOf(id))
        return true;
    if (isComplete_)
        return false;
    const auto rank = checked(store_.rank(query_, id));
    if (!rank || *rank <= std::ssize(rows_))
        return false;
    append(std::max<std::int64_t>(pageSize, *rank - std::ssize(rows_)));
    return rowOf(id).has_value();
}

void CompanyListModel::reachEnd() {
    if (!isComplete_)
        append(std::numeric_limits<int>::max());
}

bool CompanyListModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && isRead_ && !isComplete_;
}

void CompanyListModel::fetchMore(const QModelIndex& parent) {
    if (canFetchMore(parent))
        append(pageSize);
}

std::optional<CompanyListModel::Count> CompanyListModel::known() const {
    if (!isComplete_ || isSearched())
        return std::nullopt;
    return Count{std::ssize(rows_), std::ssize(rows_)};
}

std::optional<CompanyListModel::Count> CompanyListModel::count() {
    if (const auto count = known())
        return count;
    const auto all = checked(store_.count({}));
    if (!all || !isSearched())
        return all ? std::optional(Count{*all, *all}) : std::nullopt;
    const auto found = isComplete_ ? std::optional<std::int64_t>(std::ssize(rows_))
                                   : checked(store_.count(query_));
    return found ? std::optional(Count{*found, *all}) : std::nullopt;
}

bool CompanyListModel::isDatabaseEmpty() {
    const auto first = checked(store_.list({}, 0, 1));
    return first && first->empty();
}

const CompanySummary& CompanyListModel::company(int row) const {
    return rows_.at(static_cast<std::size_t>(row));
}

std::optional<int> CompanyListModel::rowOf(std::int64_t id) const {
    const auto found =
        std::ranges::find(rows_, id, [](const CompanySummary& row) { return row.key.id; });
    if (found == rows_.end())
        return std::nullopt;
    return static_cast<int>(found - rows_.begin());
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

} // namespace vkr
