// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_journal.hpp"
#include "control/vkr_data_entry_events.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "host/shown_company.hpp"
#include "host/unsaved_work.hpp"
#include "store/company_store.hpp"

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

#include <functional>
#include <optional>
#include <vector>

namespace vkr {

class Assistant;
class FigureChecks;
class HistoryWindow;
class KeptFigures;
class OriginMarks;
class SilencedFindings;

// What the three lists of the component offer.
struct OfferedLists {
    QStringList exchanges;
    QStringList industries;
    QStringList sources;
};

// One company in a window of its own. It edits a copy of the record, which leaves the window only
// by being saved: OK saves and closes, Ctrl+S saves and goes on, Cancel and closing ask before
// changes are discarded. Whatever can't be saved stays on screen.
//
// What may be true together: the form edits the record through the journal, which has each step
// since it was opened; what of them is not saved is on the disk as well, until changes are given
// up. The history and what is called right are those of the company with the id, so a new company
// has neither. A beginning is there only for a company that was made of another one and is not
// known to be saved. Once changes are given up nothing is kept on the disk, and closing asks no
// more.
class CompanyWindow : public QMainWindow, public ShownCompany {
    Q_OBJECT
  public:
    // Without an id the record is a new company.
    CompanyWindow(CompanyStore& store, std::optional<std::int64_t> id, const LoadedCompany& company,
                  const OfferedLists& lists, QWidget* parent = nullptr);
    ~CompanyWindow() override;

    void setOffered(const OfferedLists& lists);
    [[nodiscard]] std::optional<std::int64_t> id() const { return id_; }
    [[nodiscard]] std::shared_ptr<const CompanyRecord> record() const override { return record_; }
    [[nodiscard]] std::shared_ptr<CompanyRecord> recordToSave() const override;
    [[nodiscard]] const FigureOrigins& origins() const override;
    [[nodiscard]] std::string damage() const override;
    [[nodiscard]] VKRDataEntryWidget& entry() { return *entry_; }
    [[nodiscard]] const ChangeJournal& journal() const { return *journal_; }
    // Does again what was lost or given up of the company as it was then, as one step to undo, each
    // figure in its year or quarter; nothing where figures of it are locked by now.
    [[nodiscard]] Restored restore(const UnsavedCompany& of,
                                   const std::vector<ChangeGroup>& groups);
    // Whether what is not saved is on the disk.
    [[nodiscard]] bool isKept() const;

    // What was called right, here or before.
    [[nodiscard]] std::shared_ptr<const SilencedFindings> silenced() const;
    // Makes the company what it was, but for the lock, as one change that is not saved yet; `name`
    // says which state. Figures have the origin again that they had then.
    bool restore(const HistoryState& state, const QString& name);

    // False where there was an error or the user went back; both were told.
    bool save();
    // Figures from a document of filings into the record, after a review; nothing is saved.
    void importFilings(const QString& path);
    void discard(); // closes without a question

  signals:
    void saved(qint64 id);
    void exportAsked();
    void printAsked();
    void pdfAsked();
    void helpAsked(int page);
    void discarded(const vkr::DiscardedChanges& changes); // before they go
    void gone(CompanyWindow* window);                     // closed for good

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildActions();
    [[nodiscard]] bool mayImport(); // tells where it may not
    void importChosenFilings();
    void buildEditMenu();
    void showSteps();
    bool step(HistoryStep step);
    void showPlace(); // of the last change that was undone, redone or restored
    void showRestored();
    // Whether the company is as it was when these changes were begun, with none of its own.
    [[nodiscard]] bool isAsNoted(const UnsavedCompany& of,
                                 const std::vector<ChangeGroup>& groups) const;
    [[nodiscard]] UnsavedCompany unsavedCompany() const;
    void keepUnsaved(const CompanyRecord& stored); // from here on, in a file of its own
    void forgetUnsaved();
    void keepAsNew(); // from the empty record on, what is not saved
    [[nodiscard]] std::vector<ChangeGroup> unsavedSteps() const;
    void keep(const std::function<std::optional<std::string>(UnsavedChanges&)>& change);
    void tellOfKeeping(const QString& failure); // empty: it works
    void keepGivenUp();
    void giveUp();
    void tellAbout(int object, const QVariant& shown);
    [[nodiscard]] bool hasHistory(); // tells where there is none
    HistoryWindow& history();
    void showHistory(Datum datum, std::optional<int> element);
    void restoreState(const HistoryGroup& group);
    bool canRestore(); // tells where not
    [[nodiscard]] ChangeGroup changesTo(const HistoryState& state, const QString& name) const;
    // What was changed since the company was opened or saved, and what saving adds.
    [[nodiscard]] SaveAccount account(const CompanyRecord& saving,
                                      const std::optional<StoreConflict>& overwritten) const;
    void unload(int mode);
    void open(std::shared_ptr<CompanyRecord> record); // as it is stored
    void showRecord(std::shared_ptr<CompanyRecord> record);
    void noteWorkedOut(const CompanyRecord& before); // by loading
    void startOrigins(FigureOrigins origins);
    void followOrigins(const ChangeGroup* added); // null: others have gone
    void showTitle();
    void showModified();
    [[nodiscard]] QString title() const;
    void startFrom(const CompanyRecord& stored); // there are no changes
    void keepSilenced();                         // beside the company, where it is stored
    // A copy of the record as a commit leaves it.
    [[nodiscard]] std::shared_ptr<CompanyRecord> committed() const;
    // The same without what only the commit has worked out.
    [[nodiscard]] std::shared_ptr<CompanyRecord> edited() const;
    [[nodiscard]] std::vector<Datum> untypedDates() const; // that are not to be stored
    // A line each; those of the record, which alone can be had back, and with texts that are not
    // stored.
    [[nodiscard]] QStringList recordChanges() const;
    [[nodiscard]] QStringList changes() const;
    [[nodiscard]] bool hasChanges() const { return !changes().isEmpty(); }
    [[nodiscard]] bool confirmDiscard();
    [[nodiscard]] bool acceptUnstored();
    enum class Conflict { again, reloaded, back };
    Conflict settle(const StoreConflict& conflict, const QString& message);
    void becomeNew(); // to be saved as another company
    bool takeTheirs();
    void checkInvariants() const;

    CompanyStore& store_;
    VKRDataEntryWidget* entry_;
    FigureChecks* checks_;
    OriginMarks* originMarks_;
    Assistant* assistant_ = nullptr;   // from the first question on
    HistoryWindow* history_ = nullptr; // of the company id_
    FigureOrigins origins_;            // of the record as it was opened
    mutable std::optional<FigureOrigins> originsNow_;
    std::vector<FindingVerdict> calledRight_;   // of what is stored
    std::optional<std::int64_t> judgedCompany_; // beside which calledRight_ is kept
    std::shared_ptr<CompanyRecord> record_;
    std::shared_ptr<ChangeJournal> journal_;  // of what is done to it
    std::shared_ptr<KeptFigures> kept_;       // that the form edits it through
    std::unique_ptr<UnsavedChanges> unsaved_; // on the disk
    QLabel* notKept_;                         // shown while that does not work
    // Of a company that another one has become: what leads from the empty record to it.
    std::optional<ChangeGroup> beginning_;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    std::shared_ptr<const CompanyRecord> unchanged_; // as the form shows it without any change
    std::optional<std::int64_t> id_;
    std::int64_t revision_;
    std::uint64_t digest_ = 0; // of what the changes are to
    bool decided_ = false;     // what becomes of changes is settled: closing asks no more
};

} // namespace vkr
