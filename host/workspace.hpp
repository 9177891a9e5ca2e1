// SPDX-License-Identifier: MIT
#pragma once

#include "host/company_list_window.hpp"
#include "host/company_window.hpp"
#include "host/help_viewer.hpp"
#include "host/sheet_printing.hpp"
#include "store/company_store.hpp"

#include <QObject>

#include <memory>
#include <vector>

namespace vkr {

// One database and all windows on it. At any time no company has two windows; changes that were
// discarded are on offer once a company, and no more once it is opened again.
class Workspace : public QObject {
    Q_OBJECT
  public:
    struct Opened {
        std::unique_ptr<Workspace> workspace; // null where there was an error
        QString error;                        // for people
        StoreFault fault = StoreFault::other;
        QStringList notes; // what else to tell: samples that can't be read, the copy of an old file
    };
    // Opens a database that is there.
    [[nodiscard]] static Opened open(const QString& path, const StoreOptions& options = {});
    // Makes a new one with the companies of a folder in it; without a folder it is empty.
    [[nodiscard]] static Opened create(const QString& path, const QString& samples,
                                       const StoreOptions& options = {});
    ~Workspace() override;

    [[nodiscard]] CompanyListWindow& list() { return *list_; }
    [[nodiscard]] HelpViewer& help();
    [[nodiscard]] const QList<CompanyWindow*>& windows() const { return windows_; }
    [[nodiscard]] CompanyStore& store() { return *store_; }

    // The window of the company, in front; null where it can't be read, which is told.
    CompanyWindow* openCompany(std::int64_t id);
    CompanyWindow* newCompany();
    void duplicateCompany(std::int64_t id);
    void deleteCompanies(const QList<qint64>& ids); // asks
    void importFile(const QString& path);
    void importFolder(const QString& path);
    void exportCompanies(const QList<qint64>& ids, const QString& folder);
    void exportWindow(CompanyWindow& window, const QString& folder); // as it is on screen
    void saveSheets(const QList<qint64>& ids, const QString& file, Paper paper);
    void saveWindowSheet(CompanyWindow& window, const QString& file, Paper paper);
    // Reads the list anew. An error is told in the status bar of the list.
    void refresh();
    // Offers what programs have left behind that ended without saving or discarding it, one
    // company after the other.
    void offerFound();
    // Every window may ask; false when the user wants to stay.
    bool closeAll();

  private:
    [[nodiscard]] std::vector<SheetPrinting::Sheet> sheets(const QList<qint64>& ids);
    // As it is on screen.
    [[nodiscard]] static std::vector<SheetPrinting::Sheet> sheet(CompanyWindow& window);
    [[nodiscard]] static QString titleOf(CompanyWindow& window);
    explicit Workspace(std::unique_ptr<CompanyStore> store);

    static Opened opened(const QString& path, OpenMode mode, const StoreOptions& options);
    void connectList();
    CompanyWindow* show(std::optional<std::int64_t> id, const LoadedCompany& company);
    void tellDamage(CompanyWindow& window, const CompanyDamage& damage);
    void imported(const std::vector<CompanyKey>& companies);
    void showHelp(int page);
    void tellAbout();
    // Into the window of the company; what is left is told.
    struct Unrestored {
        std::vector<ChangeGroup> groups;
        std::optional<int> count; // of changes, where it is but a part
        bool isRestKept = true;   // on the disk, by its window
    };
    [[nodiscard]] Unrestored restore(const UnsavedCompany& of,
                                     const std::vector<ChangeGroup>& groups);
    void restoreDiscarded();
    void showDiscarded();
    void checkInvariants() const;
    void offerDiscarded(DiscardedChanges changes); // with those of the company that are on offer
    void forgetDiscarded(std::int64_t id);         // it is opened again, or deleted
    [[nodiscard]] CompanyWindow* windowOf(std::int64_t id) const;
    [[nodiscard]] OfferedLists offered() const;
    void offerLists(); // to every window

    std::unique_ptr<CompanyStore> store_;
    std::unique_ptr<CompanyListWindow> list_;
    std::unique_ptr<HelpViewer> help_;
    QList<CompanyWindow*> windows_;
    QList<DiscardedChanges> discarded_; // the last one is offered
};

} // namespace vkr
