// SPDX-License-Identifier: MIT
#include "host/company_list_window.hpp"

#include "host/company_table_view.hpp"
#include "host/help_pages.hpp"
#include "host/window_memory.hpp"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr auto memoryName = "list";
enum Page { tablePage, emptyPage, notFoundPage };

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
      search_(new QLineEdit(this)), table_(new CompanyTableView(companies_, this)),
      pages_(new QStackedWidget(this)), notFound_(new QLabel(this)), count_(new QLabel(this)),
      discarded_(new QLabel(this)), restore_(new QPushButton(tr("&Restore"), this)),
      counting_(new QTimer(this)), watching_(new QTimer(this)) {
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
    discarded_->setObjectName(QStringLiteral("discarded"));
    restore_->setObjectName(QStringLiteral("restore"));
    statusBar()->addPermanentWidget(discarded_);
    statusBar()->addPermanentWidget(restore_);
    offerRestore({});
    connect(restore_, &QPushButton::clicked, this, &CompanyListWindow::restoreAsked);
    statusBar()->addPermanentWidget(count_);
    statusBar()->setSizeGripEnabled(false);
    counting_->setSingleShot(true);
    connect(counting_, &QTimer::timeout, this, &CompanyListWindow::tellCount);
    connect(watching_, &QTimer::timeout, this, &CompanyListWindow::watch);
    watching_->start(watchInterval_);

    connectTable();
    buildActions();
    buildPages();
    rememberedSize(*this, memoryName, {860, 480});
    showFound();
}

void CompanyListWindow::offerRestore(const QString& text) {
    discarded_->setText(text);
    discarded_->setVisible(!text.isEmpty());
    restore_->setVisible(!text.isEmpty());
}

CompanyListWindow::~CompanyListWindow() {
    rememberSize(*this, memoryName);
    table_->rememberColumns();
}

void CompanyListWindow::connectTable() {
    // After the table's own, which finds again what was chosen.
    connect(companies_, &CompanyListModel::modelReset, this, &CompanyListWindow::showFound);
    connect(companies_, &CompanyListModel::told, this,
            [this](const QString& error) { statusBar()->showMessage(error); });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CompanyListWindow::enableActions);
    connect(table_, &CompanyTableView::opened, this, &CompanyListWindow::openChosen);
    connect(table_, &CompanyTableView::typed, this, [this](const QString& text) {
        search_->setFocus(Qt::OtherFocusReason);
        search_->setText(text);
    });
}

// A command of the window in a menu and, where there is one, a tool bar.
template <typename Run>
QAction* CompanyListWindow::addCommand(Place place, const char* name, const QString& text,
                                       const QKeySequence& shortcut, Needs needs, Run&& run) {
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, run);
    place.menu->addAction(action);
    if (place.toolBar != nullptr)
        place.toolBar->addAction(action);
    if (needs != Needs::nothing) {
        table_->addAction(action);
        (needs == Needs::one ? forOne_ : forSome_).append(action);
    }
    return action;
}

void CompanyListWindow::buildActions() {
    auto* toolBar = addToolBar(tr("Companies"));
    toolBar->setObjectName(QStringLiteral("companyActions"));
    toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    toolBar->setMovable(false);
    toolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    auto* menu = menuBar()->addMenu(tr("&Company"));
    const Place inMenu{menu, nullptr};
    const Place inBoth{menu, toolBar};
    using enum Needs;

    addCommand(inBoth, "new", tr("&New"), QKeySequence::New, nothing, [this] { emit newAsked(); });
    // Enter is taken by the table itself, so that it keeps its meaning in the search field.
    addCommand(inBoth, "open", tr("&Open"), Qt::CTRL | Qt::Key_O, some,
               &CompanyListWindow::openChosen);
    addCommand(inBoth, "duplicate", tr("&Duplicate"), Qt::CTRL | Qt::Key_D, one,
               [this] { emit duplicateAsked(table_->chosenIds().first()); });
    addCommand(inBoth, "delete", tr("De&lete..."), QKeySequence::Delete, some, [this] {
        emit deleteAsked(table_->chosenIds());
    })->setShortcutContext(Qt::WidgetShortcut);
    menu->addSeparator();
    toolBar->addSeparator();
    addCommand(inBoth, "import", tr("&Import..."), Qt::CTRL | Qt::Key_I, nothing,
               [this] { emit importAsked(); });
    addCommand(inMenu, "importFolder", tr("Import &Folder..."), Qt::CTRL | Qt::SHIFT | Qt::Key_I,
               nothing, [this] { emit importFolderAsked(); });
    addCommand(inBoth, "export", tr("&Export..."), Qt::CTRL | Qt::Key_E, some,
               [this] { emit exportAsked(table_->chosenIds()); });
    addCommand(inMenu, "print", tr("&Print..."), QKeySequence::Print, some,
               [this] { emit printAsked(table_->chosenIds()); });
    addCommand(inMenu, "savePdf", tr("Save as P&DF..."), {}, some,
               [this] { emit pdfAsked(table_->chosenIds()); });
    menu->addSeparator();
    addCommand(inMenu, "search", tr("&Search"), QKeySequence::Find, nothing, [this] {
        search_->setFocus(Qt::ShortcutFocusReason);
        search_->selectAll();
    });
    addCommand(inMenu, "refresh", tr("&Refresh"), QKeySequence::Refresh, nothing,
               [this] { emit refreshAsked(); });
    menu->addSeparator();
    addCommand(inMenu, "quit", tr("&Quit"), Qt::CTRL | Qt::Key_Q, nothing, [this] { close(); });

    const Place inHelp{menuBar()->addMenu(tr("&Help")), nullptr};
    addCommand(inHelp, "help", tr("The &List of Companies"), QKeySequence::HelpContents, nothing,
               [this] { emit helpAsked(help::list); });
    addCommand(inHelp, "contents", tr("&Contents"), {}, nothing, [this] { emit helpAsked(0); });
    addCommand(inHelp, "about", tr("&About"), {}, nothing, [this] { emit aboutAsked(); });
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
    if (isNew && (*isNew || !companies_->isCurrent()))
        refresh();
}

std::vector<CompanySummary> CompanyListWindow::summaries(const QList<qint64>& ids) const {
    std::vector<CompanySummary> result;
    for (const qint64 id : ids)
        if (const auto row = companies_->rowOf(id))
            result.push_back(companies_->company(*row));
    return result;
}

void CompanyListWindow::choose(std::int64_t id) {
    table_->choose(id);
}

std::vector<CompanySummary> CompanyListWindow::chosen() const {
    return table_->chosen();
}

void CompanyListWindow::openChosen() {
    const QList<qint64> ids = table_->chosenIds();
    if (!ids.isEmpty())
        emit openAsked(ids);
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

bool CompanyListWindow::isShortcut(const QKeyEvent& key) const {
    const QKeySequence pressed(key.keyCombination());
    return std::ranges::any_of(findChildren<QAction*>(), [&](const QAction* action) {
        return action->shortcutContext() == Qt::WindowShortcut && action->shortcut() == pressed;
    });
}

void CompanyListWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        table_->scaleColumns();
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
        if (!isShortcut(*key))
            return QMainWindow::eventFilter(watched, event);
        event->ignore();
        return true;
    }
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        openChosen();
        return true;
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
