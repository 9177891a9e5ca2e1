// SPDX-License-Identifier: MIT
#include "host/company_list_window.hpp"

#include "host/help_pages.hpp"
#include "host/window_memory.hpp"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr auto memoryName = "list";
constexpr auto headerKey = "list/header";
constexpr auto characterKey = "list/characterWidth"; // when the header was remembered

enum Page { tablePage, emptyPage, notFoundPage };

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

// A few centred lines in place of the table.
QWidget* messagePage(QWidget* parent, QLabel* label, const QList<QPushButton*>& buttons) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addStretch(2);
    layout->addWidget(label);
    layout->addSpacing(12);
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : buttons)
        row->addWidget(button);
    row->addStretch();
    layout->addLayout(row);
    layout->addStretch(3);
    return page;
}

} // namespace

CompanyListWindow::CompanyListWindow(CompanyStore& store, QWidget* parent)
    : QMainWindow(parent), companies_(new CompanyListModel(store, this)),
      search_(new QLineEdit(this)), table_(new QTableView(this)), pages_(new QStackedWidget(this)),
      notFound_(new QLabel(this)), count_(new QLabel(this)), counting_(new QTimer(this)),
      watching_(new QTimer(this)) {
    setObjectName(QStringLiteral("companyList"));
    setWindowTitle(tr("Companies"));

    search_->setObjectName(QStringLiteral("search"));
    search_->setPlaceholderText(tr("Search name, symbol, exchange or industry"));
    search_->setAccessibleName(tr("Search"));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    connect(search_, &QLineEdit::textChanged, companies_, &CompanyListModel::search);

    auto* center = new QWidget(this);
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(8, 8, 8, 0);
    layout->addWidget(search_);
    layout->addWidget(pages_);
    setCentralWidget(center);
    count_->setContentsMargins(0, 0, 8, 0);
    statusBar()->addPermanentWidget(count_);
    statusBar()->setSizeGripEnabled(false);
    counting_->setSingleShot(true);
    connect(counting_, &QTimer::timeout, this, &CompanyListWindow::tellCount);
    connect(watching_, &QTimer::timeout, this, &CompanyListWindow::watch);
    watching_->start(watchInterval_);

    buildTable();
    buildActions();
    buildPages();
    rememberedSize(*this, memoryName, {860, 480});
    showFound();
}

CompanyListWindow::~CompanyListWindow() {
    rememberSize(*this, memoryName);
    programSettings().setValue(QLatin1String(headerKey), table_->horizontalHeader()->saveState());
    programSettings().setValue(QLatin1String(characterKey), columnsFor_);
}

void CompanyListWindow::buildTable() {
    table_->setObjectName(QStringLiteral("companies"));
    table_->setAccessibleName(tr("Companies"));
    table_->setModel(companies_);
    // After the view's own, so that it knows the new rows.
    connect(companies_, &CompanyListModel::modelAboutToBeReset, this,
            &CompanyListWindow::rememberChosen);
    connect(companies_, &CompanyListModel::modelReset, this, &CompanyListWindow::recallChosen);
    connect(companies_, &CompanyListModel::told, this,
            [this](const QString& error) { statusBar()->showMessage(error); });
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setContextMenuPolicy(Qt::ActionsContextMenu);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->setItemDelegate(new ElidedCells(table_));
    table_->installEventFilter(this);

    QHeaderView* header = table_->horizontalHeader();
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    // In characters, so that they fit at every font size.
    constexpr std::array<int, CompanyListModel::columns> widths = {26, 10, 13, 32, 12, 14, 18};
    for (int column = 0; column < CompanyListModel::columns; ++column)
        header->resizeSection(
            column, qRound(widths.at(static_cast<std::size_t>(column)) * characterWidth()));
    columnsFor_ = characterWidth();
    table_->setSortingEnabled(true);
    table_->sortByColumn(CompanyListModel::name, Qt::AscendingOrder);
    if (header->restoreState(programSettings().value(QLatin1String(headerKey)).toByteArray())) {
        table_->sortByColumn(header->sortIndicatorSection(), header->sortIndicatorOrder());
        columnsFor_ = programSettings().value(QLatin1String(characterKey), columnsFor_).toDouble();
    }
    scaleColumns();

    connect(table_, &QTableView::doubleClicked, this, [this] { emit openAsked(chosenIds()); });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CompanyListWindow::enableActions);
}

double CompanyListWindow::characterWidth() const {
    return QFontMetricsF(table_->font()).averageCharWidth();
}

// To the font that is in force by now.
void CompanyListWindow::scaleColumns() {
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 8);
    const double before = std::exchange(columnsFor_, characterWidth());
    if (before <= 0 || before == columnsFor_)
        return;
    QHeaderView* header = table_->horizontalHeader();
    for (int column = 0; column < CompanyListModel::columns; ++column)
        header->resizeSection(column, qRound(header->sectionSize(column) * columnsFor_ / before));
}

void CompanyListWindow::buildActions() {
    auto* toolBar = addToolBar(tr("Companies"));
    toolBar->setObjectName(QStringLiteral("companyActions"));
    toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    toolBar->setMovable(false);
    toolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    auto* menu = menuBar()->addMenu(tr("&Company"));

    enum Needs { nothing, one, some };
    const auto add = [&](const QString& name, const QString& text, const QKeySequence& shortcut,
                         Needs needs, bool onToolBar, auto&& run) {
        auto* action = new QAction(text, this);
        action->setObjectName(name);
        action->setShortcut(shortcut);
        connect(action, &QAction::triggered, this, run);
        menu->addAction(action);
        if (onToolBar)
            toolBar->addAction(action);
        if (needs != nothing) {
            table_->addAction(action);
            (needs == one ? forOne_ : forSome_).append(action);
        }
        return action;
    };

    add(QStringLiteral("new"), tr("&New"), QKeySequence::New, nothing, true,
        [this] { emit newAsked(); });
    // Enter is taken by the table itself, so that it keeps its meaning in the search field.
    add(QStringLiteral("open"), tr("&Open"), Qt::CTRL | Qt::Key_O, some, true,
        [this] { emit openAsked(chosenIds()); });
    add(QStringLiteral("duplicate"), tr("&Duplicate"), Qt::CTRL | Qt::Key_D, one, true,
        [this] { emit duplicateAsked(chosenIds().first()); });
    add(QStringLiteral("delete"), tr("De&lete..."), QKeySequence::Delete, some, true, [this] {
        emit deleteAsked(chosenIds());
    })->setShortcutContext(Qt::WidgetShortcut);
    menu->addSeparator();
    toolBar->addSeparator();
    add(QStringLiteral("import"), tr("&Import..."), Qt::CTRL | Qt::Key_I, nothing, true,
        [this] { emit importAsked(); });
    add(QStringLiteral("importFolder"), tr("Import &Folder..."), Qt::CTRL | Qt::SHIFT | Qt::Key_I,
        nothing, false, [this] { emit importFolderAsked(); });
    add(QStringLiteral("export"), tr("&Export..."), Qt::CTRL | Qt::Key_E, some, true,
        [this] { emit exportAsked(chosenIds()); });
    menu->addSeparator();
    add(QStringLiteral("search"), tr("&Search"), QKeySequence::Find, nothing, false, [this] {
        search_->setFocus(Qt::ShortcutFocusReason);
        search_->selectAll();
    });
    add(QStringLiteral("refresh"), tr("&Refresh"), QKeySequence::Refresh, nothing, false,
        [this] { emit refreshAsked(); });
    menu->addSeparator();
    add(QStringLiteral("quit"), tr("&Quit"), Qt::CTRL | Qt::Key_Q, nothing, false,
        [this] { close(); });

    menu = menuBar()->addMenu(tr("&Help"));
    add(QStringLiteral("help"), tr("The &List of Companies"), QKeySequence::HelpContents, nothing,
        false, [this] { emit helpAsked(help::list); });
    add(QStringLiteral("contents"), tr("&Contents"), {}, nothing, false,
        [this] { emit helpAsked(0); });
    add(QStringLiteral("about"), tr("&About"), {}, nothing, false, [this] { emit aboutAsked(); });
    enableActions();
}

void CompanyListWindow::buildPages() {
    const auto button = [this](const char* action, const QString& text) {
        auto* result = new QPushButton(text, this);
        result->setAutoDefault(true); // Enter presses it
        connect(result, &QPushButton::clicked, findChild<QAction*>(QLatin1String(action)),
                &QAction::trigger);
        return result;
    };
    pages_->insertWidget(tablePage, table_);
    pages_->insertWidget(
        emptyPage, messagePage(this, new QLabel(tr("No company yet: New or Import.")),
                               {button("new", tr("New...")), button("import", tr("Import..."))}));
    auto* showAll = new QPushButton(tr("Show All"), this);
    showAll->setAutoDefault(true);
    connect(showAll, &QPushButton::clicked, this, [this] {
        search_->clear();
        search_->setFocus();
    });
    pages_->insertWidget(notFoundPage, messagePage(this, notFound_, {showAll}));
}

void CompanyListWindow::setDatabaseName(const QString& path) {
    setWindowTitle(tr("Companies - %1").arg(QFileInfo(path).fileName()));
    setWindowFilePath({});
    count_->setToolTip(path);
}

void CompanyListWindow::refresh() {
    const int scrolled = table_->verticalScrollBar()->value();
    companies_->refresh();
    table_->verticalScrollBar()->setValue(scrolled);
    showFound();
}

void CompanyListWindow::setWatchInterval(int milliseconds) {
    watchInterval_ = milliseconds;
    watching_->start(watchInterval_);
}

// A server that is gone is asked less often: asking takes time.
void CompanyListWindow::watch() {
    constexpr int slower = 15;
    if (!isVisible() || isMinimized())
        return;
    const auto isNew = companies_->hasNews();
    watching_->start(isNew ? watchInterval_ : watchInterval_ * slower);
    if (isNew.value_or(false))
        refresh();
}

void CompanyListWindow::rememberChosen() {
    const QModelIndex current = table_->currentIndex();
    remembered_.ids = chosenIds();
    remembered_.current = current.isValid() ? companies_->company(current.row()).key.id : 0;
    remembered_.column = std::max(current.column(), 0);
}

void CompanyListWindow::recallChosen() {
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
    QItemSelectionModel* chosenRows = table_->selectionModel();
    chosenRows->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
    chosenRows->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (next.isValid())
        table_->scrollTo(next);
    showFound();
}

void CompanyListWindow::choose(std::int64_t id) {
    if (!companies_->reach(id))
        return;
    const QModelIndex index = companies_->index(companies_->rowOf(id).value(), 0);
    table_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                         QItemSelectionModel::Rows);
    table_->scrollTo(index);
}

std::vector<CompanySummary> CompanyListWindow::chosen() const {
    QModelIndexList rows = table_->selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    std::vector<CompanySummary> result;
    for (const QModelIndex& index : rows)
        result.push_back(companies_->company(index.row()));
    return result;
}

std::vector<CompanySummary> CompanyListWindow::summaries(const QList<qint64>& ids) const {
    std::vector<CompanySummary> result;
    for (const qint64 id : ids)
        if (const auto row = companies_->rowOf(id))
            result.push_back(companies_->company(*row));
    return result;
}

QList<qint64> CompanyListWindow::chosenIds() const {
    QList<qint64> ids;
    for (const CompanySummary& company : chosen())
        ids.append(company.key.id);
    return ids;
}

void CompanyListWindow::showFound() {
    const bool isFound = companies_->rowCount() > 0;
    const bool isEmpty = !isFound && (!companies_->isSearched() || companies_->isDatabaseEmpty());
    const bool firstCompanies = !isEmpty && pages_->currentIndex() == emptyPage;
    notFound_->setText(
        tr("No company has \u201c%1\u201d in its name, symbol, exchange or industry.")
            .arg(search_->text().trimmed()));
    pages_->setCurrentIndex(isEmpty ? emptyPage : isFound ? tablePage : notFoundPage);
    if (companies_->known())
        tellCount();
    else
        counting_->start();
    if (isFound && table_->selectionModel()->selectedRows().isEmpty())
        table_->selectRow(0);
    if (firstCompanies)
        table_->setFocus();
    enableActions();
}

void CompanyListWindow::tellCount() {
    counting_->stop();
    if (const auto count = companies_->count())
        count_->setText(
            count->found == count->all
                ? (count->all == 1 ? tr("1 company") : tr("%L1 companies").arg(count->all))
                : tr("%L1 of %L2 companies").arg(count->found).arg(count->all));
}

void CompanyListWindow::enableActions() {
    const auto count = table_->selectionModel()->selectedRows().size();
    for (QAction* action : forOne_)
        action->setEnabled(count == 1);
    for (QAction* action : forSome_)
        action->setEnabled(count > 0);
}

void CompanyListWindow::goToEnd(bool last, bool extends) {
    if (companies_->rowCount() == 0)
        return;
    const QModelIndex target = companies_->index(last ? companies_->rowCount() - 1 : 0, 0);
    const int from = extends ? std::max(table_->currentIndex().row(), 0) : target.row();
    const auto [first, final] = std::minmax({from, target.row()});
    const QItemSelection rows(companies_->index(first, 0), companies_->index(final, 0));
    QItemSelectionModel* chosenRows = table_->selectionModel();
    chosenRows->setCurrentIndex(target, QItemSelectionModel::NoUpdate);
    chosenRows->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    table_->scrollTo(target);
}

bool CompanyListWindow::isShortcut(const QKeyEvent& key) const {
    const QKeySequence pressed(key.keyCombination());
    return std::ranges::any_of(findChildren<QAction*>(), [&](const QAction* action) {
        return action->shortcutContext() == Qt::WindowShortcut && action->shortcut() == pressed;
    });
}

void CompanyListWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        scaleColumns();
    if (event->type() != QEvent::ActivationChange || !isActiveWindow())
        return;
    if (focusWidget() == menuBar()) // left by another window, it keeps the keys
        table_->setFocus(Qt::ActiveWindowFocusReason);
    emit refreshAsked();
}

void CompanyListWindow::closeEvent(QCloseEvent* event) {
    bool allowed = true;
    emit closing(&allowed);
    event->setAccepted(allowed);
}

bool CompanyListWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QMainWindow::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::ShortcutOverride) {
        // Ctrl+E and Ctrl+D would move the caret and delete a letter, on some desktops.
        if (watched != search_ || !isShortcut(*key))
            return QMainWindow::eventFilter(watched, event);
        event->ignore();
        return true;
    }
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enter) {
        if (!chosenIds().isEmpty())
            emit openAsked(chosenIds());
        return true;
    }
    if (watched == table_) {
        // To the last row, or all of them: not only of those that were read.
        if (key->key() == Qt::Key_End || key->matches(QKeySequence::SelectAll))
            companies_->reachEnd();
        const auto held = key->modifiers() & ~Qt::KeypadModifier;
        if ((key->key() == Qt::Key_Home || key->key() == Qt::Key_End) &&
            (held == Qt::NoModifier || held == Qt::ShiftModifier)) {
            goToEnd(key->key() == Qt::Key_End, held == Qt::ShiftModifier);
            return true;
        }
        // Letters typed over the list search it.
        const QString text = key->text();
        const auto modifiers = key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
        if (modifiers != Qt::NoModifier || text.isEmpty() || !text.front().isPrint() ||
            text.front().isSpace())
            return false;
        search_->setFocus(Qt::OtherFocusReason);
        search_->setText(text);
        return true;
    }
    switch (key->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
        table_->setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(table_, event);
        return true;
    case Qt::Key_Escape:
        search_->clear();
        table_->setFocus(Qt::OtherFocusReason);
        return true;
    default:
        return false;
    }
}

} // namespace vkr
