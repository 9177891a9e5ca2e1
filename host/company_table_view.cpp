// SPDX-License-Identifier: MIT
#include "host/company_table_view.hpp"

#include "host/window_memory.hpp"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <utility>

namespace vkr {

namespace {

constexpr auto headerKey = "list/header";
constexpr auto characterKey = "list/characterWidth"; // when the header was remembered

// The whole text of a cell that has no room for it.
class ElidedCells : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
        // What stands in a record is text, whatever it looks like.
        const QString whole = index.data().toString().toHtmlEscaped();
        QToolTip::showText(event->globalPos(),
                           isCut ? QStringLiteral("<p>%1</p>").arg(whole) : QString(), view);
        return true;
    }
};

} // namespace

CompanyTableView::CompanyTableView(CompanyListModel* companies, QWidget* parent)
    : QTableView(parent), companies_(companies) {
    setObjectName(QStringLiteral("companies"));
    setAccessibleName(tr("Companies"));
    setModel(companies_);
    // After the view's own, so that it knows the new rows.
    connect(companies_, &CompanyListModel::modelAboutToBeReset, this,
            &CompanyTableView::rememberChosen);
    connect(companies_, &CompanyListModel::modelReset, this, &CompanyTableView::recallChosen);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setItemDelegate(new ElidedCells(this));
    buildColumns();
    connect(this, &QTableView::doubleClicked, this, &CompanyTableView::opened);
}

void CompanyTableView::buildColumns() {
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    // In characters, so that they fit at every font size.
    constexpr std::array<int, CompanyListModel::columns> widths = {26, 10, 13, 32, 12, 14, 18};
    for (int column = 0; column < CompanyListModel::columns; ++column)
        header->resizeSection(
            column, qRound(widths.at(static_cast<std::size_t>(column)) * characterWidth()));
    columnsFor_ = characterWidth();
    setSortingEnabled(true);
    sortByColumn(CompanyListModel::name, Qt::AscendingOrder);
    if (header->restoreState(programSettings().value(QLatin1String(headerKey)).toByteArray())) {
        sortByColumn(header->sortIndicatorSection(), header->sortIndicatorOrder());
        columnsFor_ = programSettings().value(QLatin1String(characterKey), columnsFor_).toDouble();
    }
    scaleColumns();
}

void CompanyTableView::rememberColumns() const {
    programSettings().setValue(QLatin1String(headerKey), horizontalHeader()->saveState());
    programSettings().setValue(QLatin1String(characterKey), columnsFor_);
}

double CompanyTableView::characterWidth() const {
    return QFontMetricsF(font()).averageCharWidth();
}

// To the font that is in force by now.
void CompanyTableView::scaleColumns() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    const double before = std::exchange(columnsFor_, characterWidth());
    if (before <= 0 || before == columnsFor_)
        return;
    QHeaderView* header = horizontalHeader();
    for (int column = 0; column < CompanyListModel::columns; ++column)
        header->resizeSection(column, qRound(header->sectionSize(column) * columnsFor_ / before));
}

void CompanyTableView::rememberChosen() {
    const QModelIndex current = currentIndex();
    remembered_.ids = chosenIds();
    remembered_.current = current.isValid() ? companies_->company(current.row()).key.id : 0;
    remembered_.column = std::max(current.column(), 0);
}

void CompanyTableView::recallChosen() {
    // It may stand far down; among those found by a search it is not looked for there.
    if (remembered_.current != 0 && !companies_->isSearched())
        companies_->reach(remembered_.current);
    QItemSelection selection;
    for (const qint64 id : remembered_.ids)
        if (const auto row = companies_->rowOf(id)) {
            const QModelIndex index = companies_->index(*row, 0);
            selection.select(index, index);
        }
    QModelIndex next;
    if (const auto row = companies_->rowOf(remembered_.current))
        next = companies_->index(*row, remembered_.column);
    if (!next.isValid() && companies_->rowCount() > 0) {
        // The current one is gone; the keyboard needs a place to go on from.
        next = companies_->index(0, 0);
        if (selection.isEmpty())
            selection.select(next, next);
    }
    QItemSelectionModel* chosenRows = selectionModel();
    chosenRows->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
    chosenRows->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (next.isValid())
        scrollTo(next);
}

void CompanyTableView::choose(std::int64_t id) {
    if (!companies_->reach(id))
        return;
    const QModelIndex index = companies_->index(companies_->rowOf(id).value(), 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index);
}

std::vector<CompanySummary> CompanyTableView::chosen() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    std::vector<CompanySummary> result;
    for (const QModelIndex& index : rows)
        result.push_back(companies_->company(index.row()));
    return result;
}

QList<qint64> CompanyTableView::chosenIds() const {
    QList<qint64> ids;
    for (const CompanySummary& company : chosen())
        ids.append(company.key.id);
    return ids;
}

void CompanyTableView::goTo(End end, Choosing choosing) {
    if (companies_->rowCount() == 0)
        return;
    const QModelIndex target =
        companies_->index(end == End::last ? companies_->rowCount() - 1 : 0, 0);
    const int from =
        choosing == Choosing::upToIt ? std::max(currentIndex().row(), 0) : target.row();
    const auto [first, final] = std::minmax({from, target.row()});
    const QItemSelection rows(companies_->index(first, 0), companies_->index(final, 0));
    QItemSelectionModel* chosenRows = selectionModel();
    chosenRows->setCurrentIndex(target, QItemSelectionModel::NoUpdate);
    chosenRows->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(target);
}

void CompanyTableView::keyPressEvent(QKeyEvent* key) {
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        emit opened();
        return;
    }
    // To the last row, or all of them: not only of those that were read.
    if (key->key() == Qt::Key_End || key->matches(QKeySequence::SelectAll))
        companies_->reachEnd();
    const auto held = key->modifiers() & ~Qt::KeypadModifier;
    if ((key->key() == Qt::Key_Home || key->key() == Qt::Key_End) &&
        (held == Qt::NoModifier || held == Qt::ShiftModifier)) {
        goTo(key->key() == Qt::Key_End ? End::last : End::first,
             held == Qt::ShiftModifier ? Choosing::upToIt : Choosing::alone);
        return;
    }
    const QString text = key->text();
    const bool isTyped = (held & ~Qt::ShiftModifier) == Qt::NoModifier && !text.isEmpty() &&
                         text.front().isPrint() && !text.front().isSpace();
    if (isTyped)
        emit typed(text);
    else
        QTableView::keyPressEvent(key);
}

} // namespace vkr
