// SPDX-License-Identifier: MIT
#include "host/workspace.hpp"

#include "company/typed_figures.hpp"
#include "control/vkr_data_entry.hpp"
#include "host/csv_transfer.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "plausibility/silenced_findings.hpp"
#include "record/enumerations.hpp"
#include "sheet/company_notes.hpp"
#include "sheet/today.hpp"
#include "store/import_matches.hpp"

#include <QApplication>
#include <QCollator>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>

namespace vkr {

// --- opening ---------------------------------------------------------------------------------

Workspace::Opened Workspace::opened(const QString& path, OpenMode mode,
                                    const StoreOptions& options) {
    auto store = CompanyStore::open(path.toStdString(), mode, options);
    Opened result;
    if (!store) {
        result.error = fromUtf8(store.error().message);
        result.fault = store.error().fault;
        return result;
    }
    if (!store.value()->backupPath().empty())
        result.notes.append(
            tr("%1 was brought up to date. The file as it was before is kept as %2.")
                .arg(fromUtf8(store.value()->path()), fromUtf8(store.value()->backupPath())));
    result.workspace.reset(new Workspace(std::move(store.value())));
    return result;
}

Workspace::Opened Workspace::open(const QString& path, const StoreOptions& options) {
    return opened(path, OpenMode::existing, options);
}

Workspace::Opened Workspace::create(const QString& path, const QString& samples,
                                    const StoreOptions& options) {
    Opened result = opened(path, OpenMode::create, options);
    if (!result.workspace || samples.isEmpty())
        return result;
    const FolderImport folder = vkr::importFolder(std::filesystem::path(samples.toStdU16String()));
    if (!folder.error.empty())
        result.notes.append(fromUtf8(folder.error));
    std::vector<SaveRequest> requests;
    for (const FolderImport::Entry& entry : folder.entries) {
        if (entry.result.company)
            requests.push_back(
                {std::nullopt, entry.result.company, 0, importedFrom(entry.prefix, entry.result)});
        for (const CsvProblem& problem : entry.result.errors)
            result.notes.append(fromUtf8(describe(problem)));
    }
    const auto saved = result.workspace->store_->saveAll(requests);
    if (!saved)
        result.notes.append(fromUtf8(saved.error().message));
    result.workspace->refresh();
    return result;
}

Workspace::Workspace(std::unique_ptr<CompanyStore> store)
    : store_(std::move(store)), list_(std::make_unique<CompanyListWindow>(*store_)) {
    connectList();
    list_->setDatabaseName(fromUtf8(store_->path()));
    refresh();
}

Workspace::~Workspace() {
    for (CompanyWindow* window : std::exchange(windows_, {})) {
        window->disconnect(this);
        delete window;
    }
}

void Workspace::connectList() {
    CompanyListWindow* list = list_.get();
    connect(list, &CompanyListWindow::newAsked, this, &Workspace::newCompany);
    connect(list, &CompanyListWindow::openAsked, this, [this](const QList<qint64>& ids) {
        for (const qint64 id : ids)
            if (openCompany(id) == nullptr)
                break;
    });
    connect(list, &CompanyListWindow::duplicateAsked, this, &Workspace::duplicateCompany);
    connect(list, &CompanyListWindow::deleteAsked, this, &Workspace::deleteCompanies);
    connect(list, &CompanyListWindow::importAsked, this,
            [this] { imported(CsvTransfer(*store_, list_.get()).importChosenFile()); });
    connect(list, &CompanyListWindow::importFolderAsked, this,
            [this] { imported(CsvTransfer(*store_, list_.get()).importChosenFolder()); });
    connect(list, &CompanyListWindow::exportAsked, this, [this](const QList<qint64>& ids) {
        CsvTransfer transfer(*store_, list_.get());
        if (const QString folder = transfer.chosenFolder(); !folder.isEmpty())
            transfer.exportCompanies(list_->summaries(ids), folder);
    });
    connect(list, &CompanyListWindow::printAsked, this, [this](const QList<qint64>& ids) {
        SheetPrinting(list_.get()).printOnChosen(sheets(ids));
    });
    connect(list, &CompanyListWindow::pdfAsked, this, [this](const QList<qint64>& ids) {
        const std::vector<CompanySummary> companies = list_->summaries(ids);
        if (!companies.empty())
            SheetPrinting(list_.get())
                .saveToChosen(sheets(ids),
                              companies.size() == 1
                                  ? companyTitle(companies.front().name, companies.front().symbol)
                                  : tr("Companies"));
    });
    connect(list, &CompanyListWindow::restoreAsked, this, &Workspace::restoreDiscarded);
    connect(list, &CompanyListWindow::refreshAsked, this, &Workspace::refresh);
    connect(list, &CompanyListWindow::helpAsked, this, &Workspace::showHelp);
    connect(list, &CompanyListWindow::aboutAsked, this, &Workspace::tellAbout);
    connect(list, &CompanyListWindow::closing, this, [this](bool* allowed) {
        *allowed = closeAll();
        if (*allowed && help_)
            help_->close();
    });
}

// --- the list --------------------------------------------------------------------------------

void Workspace::refresh() {
    list_->refresh();
}

OfferedLists Workspace::offered() const {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    // First what the database lists, in its order; then what companies have beyond that.
    const auto texts = [&](StoreList kind) {
        QStringList listed;
        if (const auto entries = store_->entries(kind))
            for (const std::string& entry : entries.value())
                listed.append(fromUtf8(entry));
        QStringList others;
        if (const auto used = store_->used(kind))
            for (const std::string& text : used.value())
                if (!listed.contains(fromUtf8(text)))
                    others.append(fromUtf8(text));
        std::sort(others.begin(), others.end(), collator);
        return listed + others;
    };
    return {texts(StoreList::exchanges), texts(StoreList::industries), texts(StoreList::sources)};
}

void Workspace::offerLists() {
    const OfferedLists lists = offered();
    for (CompanyWindow* window : windows_)
        window->setOffered(lists);
}

// --- company windows -------------------------------------------------------------------------

CompanyWindow* Workspace::windowOf(std::int64_t id) const {
    const auto found = std::ranges::find(windows_, std::optional(id), &CompanyWindow::id);
    return found == windows_.end() ? nullptr : *found;
}

CompanyWindow* Workspace::openCompany(std::int64_t id) {
    if (CompanyWindow* window = windowOf(id)) {
        window->show();
        window->raise();
        window->activateWindow();
        return window;
    }
    const auto loaded = store_->load(id);
    if (!loaded) {
        tellFault(list_.get(), tr("The company can't be opened."),
                  fromUtf8(loaded.error().message));
        refresh();
        return nullptr;
    }
    forgetDiscarded(id);
    const QPointer<CompanyWindow> window = show(id, loaded.value()); // it may go under a question
    if (loaded.value().damage) {
        tellDamage(*window, *loaded.value().damage);
    } else if (!loaded.value().unreadable.empty()) {
        QStringList lines;
        for (const std::string& datum : loaded.value().unreadable)
            lines.append(fromUtf8(datum));
        tellFault(window, tr("Not everything of this company can be read."),
                  tr("Another program has left something unreadable in: %1. It is shown as empty, "
                     "and saving makes that final. Cancel leaves the database as it is.")
                      .arg(lines.join(QStringLiteral(", "))));
    }
    return window;
}

// What was saved may be shown in place of what is stored; either way the user decides by saving.
void Workspace::tellDamage(CompanyWindow& window, const CompanyDamage& damage) {
    const QString title = tr("This company is not as it was saved.");
    const QString more = tr("%1\n\nNothing was changed now.").arg(fromUtf8(damage.message));
    if (damage.saved.record == nullptr || damage.differences.empty())
        return tellFault(&window, title, more);
    if (isLocked(*window.record()))
        return tellFault(&window, title,
                         more +
                             tr("\n\nThe data is locked. Take off the lock, and History... takes "
                                "it back to what was saved."));
    const int choice =
        ask(&window, title, more,
            {{tr("Show What Was &Saved")}, {tr("Show What Is S&tored"), Choice::Role::reject}}, 0);
    if (choice == 0)
        window.restore(damage.saved, tr("Take what was saved"));
}

CompanyWindow* Workspace::newCompany() {
    return show(std::nullopt, {std::make_shared<CompanyRecord>(), 0, {}});
}

CompanyWindow* Workspace::show(std::optional<std::int64_t> id, const LoadedCompany& company) {
    auto* window = new CompanyWindow(*store_, id, company, offered());
    connect(window, &CompanyWindow::saved, this, [this](qint64 saved) {
        refresh();
        list_->choose(saved);
        offerLists();
    });
    connect(window, &CompanyWindow::exportAsked, this, [this, window] {
        CsvTransfer transfer(*store_, window);
        if (const QString folder = transfer.chosenFolder(); !folder.isEmpty())
            exportWindow(*window, folder);
    });
    connect(window, &CompanyWindow::printAsked, this,
            [window] { SheetPrinting(window).printOnChosen(sheet(*window)); });
    connect(window, &CompanyWindow::pdfAsked, this, [window] {
        const auto companies = sheet(*window);
        SheetPrinting(window).saveToChosen(companies, titleOf(*window));
    });
    connect(window, &CompanyWindow::helpAsked, this, &Workspace::showHelp);
    connect(window, &CompanyWindow::discarded, this, &Workspace::offerDiscarded);
    connect(window, &CompanyWindow::gone, this,
            [this](CompanyWindow* closed) { windows_.removeOne(closed); });
    windows_.append(window);
    checkInvariants();
    window->show();
    window->activateWindow();
    window->entry().setCurrentTab(toCompany); // takes the focus to its first field
    return window;
}

bool Workspace::closeAll() {
    const QList<CompanyWindow*> open = windows_;
    for (CompanyWindow* window : open) {
        window->raise();
        if (!window->close())
            return false;
    }
    return true;
}

void Workspace::duplicateCompany(std::int64_t id) {
    const auto copy = store_->duplicate(id);
    if (!copy)
        tellFault(list_.get(), tr("The company was not duplicated."),
                  fromUtf8(copy.error().message));
    refresh();
    if (copy)
        list_->choose(copy.value().id);
}

void Workspace::deleteCompanies(const QList<qint64>& ids) {
    const std::vector<CompanySummary> companies = list_->summaries(ids);
    if (companies.empty())
        return;
    QStringList names;
    for (const CompanySummary& company : companies)
        names.append(companyTitle(company.name, company.symbol));
    constexpr qsizetype most = 10;
    QString shown = names.mid(0, most).join(u'\n');
    if (names.size() > most)
        shown += tr("\nand %1 more").arg(names.size() - most);
    const bool one = names.size() == 1;
    QString more = one ? tr("All of its figures are deleted. This can't be undone.")
                       : tr("%1\n\nThis can't be undone.").arg(shown);
    if (std::ranges::any_of(companies, [this](const CompanySummary& company) {
            const CompanyWindow* window = windowOf(company.key.id);
            return window != nullptr && window->isWindowModified();
        }))
        more += tr("\n\nChanges that are not saved yet are lost, too.");
    if (!askFirst(list_.get(),
                  one ? tr("Delete %1?").arg(names.front())
                      : tr("Delete these %1 companies?").arg(names.size()),
                  more, tr("&Delete")))
        return;
    for (const CompanySummary& company : companies) {
        const auto removed = store_->remove(company.key.id, company.key.revision);
        if (!removed) {
            tellFault(list_.get(),
                      tr("%1 was not deleted.").arg(companyTitle(company.name, company.symbol)),
                      fromUtf8(removed.error().message));
            break;
        }
        if (CompanyWindow* window = windowOf(company.key.id))
            window->discard();
        forgetDiscarded(company.key.id);
    }
    refresh();
}

// --- in and out ------------------------------------------------------------------------------

void Workspace::imported(const std::vector<CompanyKey>& companies) {
    refresh();
    if (!companies.empty())
        list_->choose(companies.front().id);
    offerLists();
}

void Workspace::importFile(const QString& path) {
    imported(CsvTransfer(*store_, list_.get()).importFile(path));
}

void Workspace::importFolder(const QString& path) {
    imported(CsvTransfer(*store_, list_.get()).importFolder(path));
}

void Workspace::exportCompanies(const QList<qint64>& ids, const QString& folder) {
    CsvTransfer(*store_, list_.get()).exportCompanies(list_->summaries(ids), folder);
}

void Workspace::exportWindow(CompanyWindow& window, const QString& folder) {
    window.entry().component().leaveField(); // with what was typed last
    CsvTransfer(*store_, &window).exportRecords({window.recordToSave()}, folder);
}

std::vector<SheetPrinting::Sheet> Workspace::sheets(const QList<qint64>& ids) {
    return SheetPrinting::stored(*store_, list_->summaries(ids));
}

std::vector<SheetPrinting::Sheet> Workspace::sheet(CompanyWindow& window) {
    window.entry().component().leaveField(); // with what was typed last
    return {[record = std::shared_ptr<const CompanyRecord>(window.recordToSave()),
             origins = window.origins(), silenced = window.silenced()] {
        return StoreResult(sheetOf(
            record, origins, [&](const Finding& finding) { return silenced->isSilenced(finding); },
            today()));
    }};
}

QString Workspace::titleOf(CompanyWindow& window) {
    const auto record = window.recordToSave();
    return companyTitle(record->get_Name(), record->get_Symbol());
}

void Workspace::saveSheets(const QList<qint64>& ids, const QString& file, Paper paper) {
    SheetPrinting(list_.get()).savePdf(sheets(ids), QFileInfo(file).baseName(), file, paper);
}

void Workspace::saveWindowSheet(CompanyWindow& window, const QString& file, Paper paper) {
    const auto companies = sheet(window); // its title is that of the field left by this
    SheetPrinting(&window).savePdf(companies, titleOf(window), file, paper);
}

// --- help ------------------------------------------------------------------------------------

HelpViewer& Workspace::help() {
    if (!help_)
        help_ = std::make_unique<HelpViewer>();
    return *help_;
}

void Workspace::showHelp(int page) {
    help().showPage(page);
}

void Workspace::tellAbout() {
    tellNews(
        list_.get(),
        tr("%1 %2").arg(QApplication::applicationDisplayName(), QApplication::applicationVersion()),
        tr("Fundamental data of listed companies, typed in and kept.\n\nDatabase: %1")
            .arg(fromUtf8(store_->path())));
}

} // namespace vkr
