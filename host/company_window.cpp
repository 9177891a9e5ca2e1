// SPDX-License-Identifier: MIT
#include "host/company_window.hpp"

#include "company/kept_figures.hpp"
#include "control/vkr_data_entry.hpp"
#include "form/controls.hpp"
#include "host/assistant.hpp"
#include "host/figure_checks.hpp"
#include "host/help_pages.hpp"
#include "host/history_window.hpp"
#include "host/messages.hpp"
#include "host/origin_marks.hpp"
#include "host/split_dialog.hpp"
#include "host/suggested_dates.hpp"
#include "host/texts.hpp"
#include "host/view_menu.hpp"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>

#include <algorithm>

namespace vkr {

CompanyWindow::CompanyWindow(CompanyStore& store, std::optional<std::int64_t> id,
                             const LoadedCompany& company, const OfferedLists& lists,
                             QWidget* parent)
    : QMainWindow(parent), store_(store), entry_(new VKRDataEntryWidget(this)),
      origins_(company.origins), calledRight_(company.calledRight),
      notKept_(new QLabel(tr("Changes are in this window only"), this)), id_(id),
      revision_(company.revision) {
    setObjectName(QStringLiteral("companyWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(entry_);
    entry_->setApplicationTitle(QGuiApplication::applicationDisplayName());
    entry_->setVisibleQuarters(35); // all there are, by scrolling
    entry_->component().originOf = [this](Datum series, int element) {
        return origins().of(series, element).origin;
    };
    notKept_->setObjectName(QStringLiteral("notKept"));
    notKept_->hide();
    statusBar()->addPermanentWidget(notKept_);
    checks_ = new FigureChecks(*this, *entry_, *this);
    originMarks_ = new OriginMarks(*entry_, *this, this);
    buildActions();

    connect(checks_, &FigureChecks::judged, this, [this] {
        if (history_ != nullptr && history_->isVisible())
            history_->refresh();
    });
    connect(entry_, &VKRDataEntryWidget::unloadRequest, this, &CompanyWindow::unload);
    connect(entry_, &VKRDataEntryWidget::moreHelp, this, &CompanyWindow::helpAsked);
    connect(entry_, &VKRDataEntryWidget::assistant, this, &CompanyWindow::tellAbout);
    connect(entry_, &VKRDataEntryWidget::edited, this, &CompanyWindow::showModified);
    connect(entry_, &VKRDataEntryWidget::titleChanged, this, &CompanyWindow::showTitle);

    setOffered(lists);
    open(company.record->clone());
    resize(sizeHint()); // also where that is most of the screen
}

CompanyWindow::~CompanyWindow() {
    delete assistant_; // it asks for the record whenever the focus moves
    delete entry_;     // it asks this window while it ends
    journal_->onTakenBack(nullptr);
    journal_->onUnsavedChanged(nullptr);
    journal_->onGroupsChanged(nullptr);
}

void CompanyWindow::buildActions() {
    // The letters of the component's own mnemonics are left alone.
    auto* menu = menuBar()->addMenu(tr("&File"));
    auto* save = menu->addAction(tr("&Save"), QKeySequence::Save, this, &CompanyWindow::save);
    save->setObjectName(QStringLiteral("save"));
    auto* accept = menu->addAction(tr("Save and C&lose"), this, [this] { unload(ulConfirm); });
    accept->setShortcuts({QKeySequence(tr("Ctrl+Return")), QKeySequence(tr("Ctrl+Enter"))});
    accept->setObjectName(QStringLiteral("saveAndClose"));
    auto* exported = menu->addAction(tr("&Export..."), this, [this] { emit exportAsked(); });
    exported->setObjectName(QStringLiteral("export"));
    auto* imported =
        menu->addAction(tr("&Import from Filings..."), this, &CompanyWindow::importChosenFilings);
    imported->setObjectName(QStringLiteral("importFilings"));
    auto* printed =
        menu->addAction(tr("&Print..."), QKeySequence::Print, this, [this] { emit printAsked(); });
    printed->setObjectName(QStringLiteral("print"));
    auto* pdf = menu->addAction(tr("Save as P&DF..."), this, [this] { emit pdfAsked(); });
    pdf->setObjectName(QStringLiteral("savePdf"));
    auto* history = menu->addAction(tr("&History..."), this, [this] {
        if (hasHistory())
            this->history().showAll();
    });
    history->setShortcut(Qt::CTRL | Qt::Key_H);
    history->setObjectName(QStringLiteral("history"));
    menu->addSeparator();
    auto* closing = menu->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
    closing->setObjectName(QStringLiteral("close"));

    buildEditMenu();

    auto* figures = menuBar()->addMenu(tr("F&igures"));
    checks_->addTo(*figures);
    figures->addSeparator();
    auto* split = figures->addAction(tr("Adjust for a &Split..."), this,
                                     [this] { adjustForSplit(*this, *entry_, record_); });
    split->setObjectName(QStringLiteral("split"));
    auto* view = new ViewMenu(*this, *entry_);
    originMarks_->addTo(view->menu());

    auto* guide = menuBar()->addMenu(tr("&Guide"));
    guide->addAction(tr("&Saving"), this, [this] { emit helpAsked(help::saving); });
    guide->addAction(tr("&Figures to Look At"), this, [this] { emit helpAsked(help::checks); });
    guide->addAction(tr("Sp&lits"), this, [this] { emit helpAsked(help::split); });
    guide->addAction(tr("Several Figures at &Once"), this,
                     [this] { emit helpAsked(help::blocks); });
    guide->addAction(tr("&Keys"), this, [this] { emit helpAsked(help::keyboard); });
    guide->addAction(tr("&Contents"), this, [this] { emit helpAsked(0); });
}

void CompanyWindow::tellAbout(int object, const QVariant& shown) {
    if (assistant_ == nullptr) {
        assistant_ = new Assistant(*this, this);
        connect(assistant_, &Assistant::historyAsked, this, &CompanyWindow::showHistory);
        connect(assistant_, &Assistant::helpAsked, this, &CompanyWindow::helpAsked);
    }
    // What is handed over is a caption where there is no text to ask about.
    const Form& form = entry_->component().form();
    const auto* field = dynamic_cast<const TextField*>(form.activeControl());
    const bool isTyped = field != nullptr && fromUtf8(field->text()) == shown.toString();
    assistant_->tell(object, isTyped ? shown.toString() : QString(),
                     focusedElement(form, object, *record_), entry_->dateFormat(),
                     entry_->component().get_NumberMarks());
}

void CompanyWindow::setOffered(const OfferedLists& lists) {
    entry_->setExchanges(lists.exchanges);
    entry_->setIndustries(lists.industries);
    entry_->setSources(lists.sources);
}

void CompanyWindow::open(std::shared_ptr<CompanyRecord> record) {
    const auto stored = record->clone();
    showRecord(std::move(record));
    noteWorkedOut(*stored);
    startFrom(*stored);
}

void CompanyWindow::startFrom(const CompanyRecord& stored) {
    auto unchanged = edited();
    takeBack(entry_->component().suggestedDates(), stored, *unchanged);
    unchanged_ = std::move(unchanged);
    forgetUnsaved();
    keepUnsaved(stored);
    showModified();
    originMarks_->showLater();
    keepSilenced();
    checkInvariants();
}

void CompanyWindow::showRecord(std::shared_ptr<CompanyRecord> record) {
    record_ = std::move(record);
    entry_->setDirty(false);
    if (journal_ != nullptr)
        journal_->onGroupsChanged(nullptr); // a dialog may keep it
    journal_ = std::make_shared<ChangeJournal>(record_);
    originsNow_.reset();
    journal_->onGroupsChanged([this](const ChangeGroup* added) { followOrigins(added); });
    // A dialog that is open while the window ends keeps the form, and with it the record.
    kept_ = std::make_shared<KeptFigures>(journal_, [window = QPointer<const CompanyWindow>(this)] {
        return window ? window->origins() : FigureOrigins();
    });
    entry_->setCompany(kept_);
    journal_->startOver(); // what loading suggests is no change
    showTitle();
}

void CompanyWindow::showTitle() {
    setWindowTitle(VKRDataEntryWidget::windowTitleFor(title()));
}

QString CompanyWindow::title() const {
    return companyTitle(record_->get_Name(), record_->get_Symbol());
}

void CompanyWindow::showModified() {
    if (unchanged_ != nullptr) // else a company is just being opened
        setWindowModified(hasChanges());
}

void CompanyWindow::unload(int mode) {
    if (mode == ulConfirm) {
        entry_->component().leaveField();
        if (hasChanges() && !save())
            return;
    } else if (!confirmDiscard()) {
        return;
    }
    discard(); // what was confirmed is saved by now
}

bool CompanyWindow::confirmDiscard() {
    const QStringList lines = changes();
    return lines.isEmpty() ||
           ask(this,
               lines.size() == 1 ? tr("Discard 1 change?")
                                 : tr("Discard %1 changes?").arg(lines.size()),
               (id_ ? tr("%1 stays as it was saved last.") : tr("%1 was never saved."))
                   .arg(title()),
               {{tr("&Discard"), Choice::Role::destroy}, {tr("&Go Back"), Choice::Role::reject}},
               -1, lines) == 0;
}

void CompanyWindow::discard() {
    giveUp();
    close();
    if (isVisible()) { // it was closing already, and asks about that: no more
        emit gone(this);
        deleteLater();
    }
}

bool CompanyWindow::save() {
    entry_->component().leaveField(); // what was typed last counts
    if (!acceptUnstored())
        return false;
    for (std::optional<StoreConflict> overwritten;;) {
        const auto saving = recordToSave();
        const auto result = store_.save(id_, *saving, revision_, account(*saving, overwritten));
        if (result) {
            id_ = result.value().id;
            revision_ = result.value().revision;
            entry_->setDirty(false);
            if (const auto stored = store_.load(*id_))
                calledRight_ = stored.value().calledRight;
            startFrom(*saving);
            const QPointer<CompanyWindow> stays(this);
            if (history_ != nullptr && history_->isVisible())
                history_->refresh();
            if (!stays)
                return true;
            if (assistant_ != nullptr)
                assistant_->checkStored();
            showTitle();
            notice(*this, tr("Saved."));
            emit saved(*id_);
            return true;
        }
        const StoreError& error = result.error();
        if (error.attempted) { // what is saved next is this company, whether it is stored or not
            id_ = error.attempted->id;
            revision_ = error.attempted->revision;
        }
        if (!error.conflict) {
            tellFault(
                this, tr("%1 was not saved.").arg(title()),
                tr("%1\n\nYour changes are still in this window.").arg(fromUtf8(error.message)));
            return false;
        }
        if (settle(*error.conflict, fromUtf8(error.message)) != Conflict::again)
            return false;
        overwritten = id_ ? error.conflict : std::nullopt;
    }
}

CompanyWindow::Conflict CompanyWindow::settle(const StoreConflict& conflict,
                                              const QString& message) {
    if (conflict.isRemoved) {
        const int choice =
            ask(this, message, tr("Your changes are still in this window."),
                {{tr("Save as &New Company")}, {tr("&Go Back"), Choice::Role::reject}});
        if (choice != 0)
            return Conflict::back;
        becomeNew();
        keepAsNew();
        return Conflict::again;
    }

    enum { overwrite, theirs, copy };
    const int choice = ask(this, tr("Somebody else has saved %1.").arg(title()),
                           tr("It was saved by %1 on %2 while it was open here. Nothing was "
                              "changed now; the details show what differs.")
                               .arg(fromUtf8(conflict.changedBy), localTime(conflict.changedAt)),
                           {{tr("&Overwrite with Mine"), Choice::Role::destroy},
                            {tr("&Take Theirs"), Choice::Role::destroy},
                            {tr("Save Mine as a &Copy")},
                            {tr("&Go Back"), Choice::Role::reject}},
                           -1, described(conflict.differences, tr("%1: theirs %2, yours %3")));
    switch (choice) {
    case overwrite:
        revision_ = conflict.revision;
        return Conflict::again;
    case theirs:
        return takeTheirs() ? Conflict::reloaded : Conflict::back;
    case copy: {
        becomeNew();
        auto mine = recordToSave();
        startOrigins(origins()); // the steps that led there end with the other record
        mine->put_Name(mine->get_Name() + tr(" (copy)").toStdString());
        showRecord(std::move(mine));
        keepAsNew();
        return Conflict::again;
    }
    default:
        return Conflict::back;
    }
}

bool CompanyWindow::takeTheirs() {
    const auto loaded = store_.load(*id_);
    if (!loaded) {
        tellFault(this, tr("%1 can't be read.").arg(title()),
                  tr("%1\n\nYour changes are still in this window.")
                      .arg(fromUtf8(loaded.error().message)));
        return false;
    }
    keepGivenUp(); // restored, they are made to theirs
    revision_ = loaded.value().revision;
    startOrigins(loaded.value().origins);
    calledRight_ = loaded.value().calledRight;
    open(loaded.value().record);
    return true;
}

void CompanyWindow::closeEvent(QCloseEvent* event) {
    if (!decided_) {
        entry_->component().leaveField();
        if (const QStringList lines = changes(); !lines.isEmpty()) {
            enum { saving, discarding, staying };
            const int choice = ask(this, tr("Save the changes to %1?").arg(title()),
                                   tr("What is not saved is lost."),
                                   {{tr("&Save")},
                                    {tr("&Discard"), Choice::Role::destroy},
                                    {tr("&Cancel"), Choice::Role::reject}},
                                   0, lines);
            if (choice == staying || (choice == saving && !save())) {
                event->ignore();
                return;
            }
        }
        giveUp();
    }
    event->accept();
    emit gone(this);
}

} // namespace vkr
