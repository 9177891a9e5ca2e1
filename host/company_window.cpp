// SPDX-License-Identifier: MIT
#include "host/company_window.hpp"

#include "control/vkr_data_entry.hpp"
#include "host/assistant.hpp"
#include "host/help_pages.hpp"
#include "host/messages.hpp"
#include "host/texts.hpp"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMenuBar>
#include <QStatusBar>

#include <tuple>

namespace vkr {

namespace {

QString told(const std::string& value) {
    return value.empty() ? CompanyWindow::tr("nothing") : fromUtf8(value);
}

QStringList described(const std::vector<Difference>& differences) {
    QStringList lines;
    for (const Difference& difference : differences) {
        const QString element =
            difference.element ? QStringLiteral("(%1)").arg(*difference.element) : QString();
        lines.append(CompanyWindow::tr("%1%2: theirs %3, yours %4")
                         .arg(datumTitle(difference.datum), element, told(difference.before),
                              told(difference.after)));
    }
    return lines;
}

} // namespace

CompanyWindow::CompanyWindow(CompanyStore& store, std::optional<std::int64_t> id,
                             const LoadedCompany& company, const OfferedLists& lists,
                             QWidget* parent)
    : QMainWindow(parent), store_(store), entry_(new VKRDataEntryWidget(this)), id_(id),
      revision_(company.revision) {
    setObjectName(QStringLiteral("companyWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(entry_);
    entry_->setApplicationTitle(QGuiApplication::applicationDisplayName());
    layout()->setSizeConstraint(QLayout::SetFixedSize); // the component has one size
    statusBar()->setSizeGripEnabled(false);
    buildActions();

    connect(entry_, &VKRDataEntryWidget::unloadRequest, this, &CompanyWindow::unload);
    connect(entry_, &VKRDataEntryWidget::moreHelp, this, &CompanyWindow::helpAsked);
    connect(entry_, &VKRDataEntryWidget::assistant, this, &CompanyWindow::tellAbout);
    connect(entry_, &VKRDataEntryWidget::dirtyChanged, this, &CompanyWindow::setWindowModified);
    connect(entry_, &VKRDataEntryWidget::titleChanged, this, &CompanyWindow::showTitle);

    setOffered(lists);
    showRecord(company.record->clone());
}

CompanyWindow::~CompanyWindow() {
    delete assistant_; // it asks for the record whenever the focus moves
}

void CompanyWindow::buildActions() {
    // The letters of the component's own mnemonics are left alone.
    auto* menu = menuBar()->addMenu(tr("&File"));
    auto* save = menu->addAction(tr("&Save"), QKeySequence::Save, this, &CompanyWindow::save);
    save->setObjectName(QStringLiteral("save"));
    auto* exported = menu->addAction(tr("&Export..."), this, [this] { emit exportAsked(); });
    exported->setObjectName(QStringLiteral("export"));
    menu->addSeparator();
    auto* closing = menu->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
    closing->setObjectName(QStringLiteral("close"));

    auto* guide = menuBar()->addMenu(tr("&Guide"));
    guide->addAction(tr("&Saving"), this, [this] { emit helpAsked(help::saving); });
    guide->addAction(tr("&Keys"), this, [this] { emit helpAsked(help::keyboard); });
    guide->addAction(tr("&Contents"), this, [this] { emit helpAsked(0); });
}

void CompanyWindow::tellAbout(int object, const QVariant& shown) {
    if (assistant_ == nullptr) {
        assistant_ = new Assistant([this] { return record(); }, this);
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

void CompanyWindow::showRecord(std::shared_ptr<CompanyRecord> record) {
    record_ = std::move(record);
    entry_->setDirty(false);
    entry_->setCompany(record_);
    showTitle();
    setWindowModified(hasChanges());
}

void CompanyWindow::showTitle() {
    setWindowTitle(VKRDataEntryWidget::windowTitleFor(title()));
}

QString CompanyWindow::title() const {
    return companyTitle(record_->get_Name(), record_->get_Symbol());
}

// A text that could not be stored is a change, also after all else was saved without it.
bool CompanyWindow::hasChanges() const {
    return entry_->isDirty() || !entry_->unstoredFields().empty();
}

void CompanyWindow::unload(int mode) {
    if (mode == ulConfirm) {
        entry_->component().leaveField();
        if (hasChanges() && !save())
            return;
    }
    discard(); // what was confirmed is saved by now
}

void CompanyWindow::discard() {
    decided_ = true;
    close();
}

bool CompanyWindow::save() {
    // Reading the record leaves the focused field first, so that what was typed last counts.
    std::ignore = entry_->company(); // the one we hold
    if (!acceptUnstored())
        return false;
    for (;;) {
        const auto result = store_.save(id_, *record_, revision_);
        if (result) {
            id_ = result.value().id;
            revision_ = result.value().revision;
            entry_->setDirty(false);
            setWindowModified(false);
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
    }
}

bool CompanyWindow::acceptUnstored() {
    const std::vector<UnstoredField> fields = entry_->unstoredFields();
    if (fields.empty())
        return true;
    QStringList lines;
    for (const UnstoredField& field : fields)
        lines.append(tr("%1: \u201c%2\u201d - %3")
                         .arg(fromUtf8(field.label), fromUtf8(field.text), fromUtf8(field.reason)));
    const int choice = ask(
        this,
        fields.size() == 1 ? tr("One field holds a text that can't be stored.")
                           : tr("%1 fields hold texts that can't be stored.").arg(fields.size()),
        tr("%1\n\nSaving keeps what was stored there before.").arg(lines.join(u'\n')),
        {{tr("&Save Without"), Choice::Role::destroy}, {tr("&Go Back"), Choice::Role::reject}});
    if (choice != 0)
        entry_->component().showField(fields.front().control);
    return choice == 0;
}

CompanyWindow::Conflict CompanyWindow::settle(const StoreConflict& conflict,
                                              const QString& message) {
    if (conflict.isRemoved) {
        const int choice =
            ask(this, message, tr("Your changes are still in this window."),
                {{tr("Save as &New Company")}, {tr("&Go Back"), Choice::Role::reject}});
        if (choice != 0)
            return Conflict::back;
        id_.reset();
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
                           -1, described(conflict.differences));
    switch (choice) {
    case overwrite:
        revision_ = conflict.revision;
        return Conflict::again;
    case theirs:
        return takeTheirs() ? Conflict::reloaded : Conflict::back;
    case copy: {
        id_.reset();
        auto mine = record_->clone();
        mine->put_Name(record_->get_Name() + tr(" (copy)").toStdString());
        showRecord(std::move(mine));
        entry_->setDirty(true);
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
    revision_ = loaded.value().revision;
    showRecord(loaded.value().record);
    return true;
}

void CompanyWindow::closeEvent(QCloseEvent* event) {
    if (!decided_) {
        entry_->component().leaveField();
        if (hasChanges()) {
            enum { saving, discarding, staying };
            const int choice = ask(this, tr("Save the changes to %1?").arg(title()),
                                   tr("What is not saved is lost."),
                                   {{tr("&Save")},
                                    {tr("&Discard"), Choice::Role::destroy},
                                    {tr("&Cancel"), Choice::Role::reject}},
                                   0);
            if (choice == staying || (choice == saving && !save())) {
                event->ignore();
                return;
            }
        }
        decided_ = true;
    }
    event->accept();
    emit gone(this);
}

} // namespace vkr
