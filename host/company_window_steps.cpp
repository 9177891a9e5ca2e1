// SPDX-License-Identifier: MIT
// Undo, redo, and what becomes of changes that are not saved, of the window of a company.
#include "company/record_snapshot.hpp"
#include "company/typed_figures.hpp"
#include "control/vkr_data_entry.hpp"
#include "form/controls.hpp"
#include "host/change_place.hpp"
#include "host/company_window.hpp"
#include "host/messages.hpp"
#include "host/suggested_dates.hpp"
#include "host/texts.hpp"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

// A step that was taken back, in a note and in the history.
QString undoneTitle(const ChangeGroup& step) {
    return CompanyWindow::tr("Undone: %1").arg(groupTitle(step));
}

// Whether one of the groups changes data while they are locked.
bool changesLocked(const CompanyRecord& record, const std::vector<ChangeGroup>& groups) {
    bool locked = isLocked(record);
    for (const ChangeGroup& group : groups)
        for (const Change& change : group.changes) {
            if (change.setting == setting::lockBasicInfo)
                locked = change.after.toBoolean();
            else if (locked && change.setting.empty())
                return true;
        }
    return false;
}

} // namespace

// What stands in the menu "Edit", from top to bottom.
void CompanyWindow::buildEditMenu() {
    struct Entry {
        const char* name;
        QString text;
        QList<QKeySequence> keys;
        void (*act)(CompanyWindow& window);
        QAction* CompanyWindow::*place;
    };
    const Entry entries[] = {
        {"undo",
         tr("&Undo"),
         {QKeySequence(tr("Ctrl+Z"))},
         [](CompanyWindow& window) { window.entry_->component().step(HistoryStep::undo); },
         &CompanyWindow::undo_},
        {"redo",
         tr("&Redo"),
         {QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))},
         [](CompanyWindow& window) { window.entry_->component().step(HistoryStep::redo); },
         &CompanyWindow::redo_},
        {"copyWithHeadings",
         tr("Copy with &Headings"),
         {QKeySequence(tr("Ctrl+Shift+C"))},
         [](CompanyWindow& window) { window.entry_->copyWithHeadings(); },
         nullptr},
    };
    auto* menu = menuBar()->addMenu(tr("&Edit"));
    for (const Entry& entry : entries) {
        auto* action = menu->addAction(entry.text);
        action->setObjectName(QLatin1String(entry.name));
        action->setShortcuts(entry.keys);
        connect(action, &QAction::triggered, this, [this, act = entry.act] { act(*this); });
        if (entry.place != nullptr)
            this->*entry.place = action;
    }
    connect(menu, &QMenu::aboutToShow, this, &CompanyWindow::showSteps);
    connect(menu, &QMenu::aboutToHide, this, [this] {
        undo_->setEnabled(true); // its keys are the field's as well
        redo_->setEnabled(true);
    });
    entry_->component().historyAsked = [this](HistoryStep asked) { return step(asked); };
}

void CompanyWindow::showSteps() {
    const Form& form = entry_->component().form();
    const auto* field = dynamic_cast<const TextField*>(form.activeControl());
    const bool isTyped = field != nullptr && form.hasFocus() && field->canTakeBack();
    const bool isLocked = controls::lock.in(form).value();
    const ChangeGroup* back = isLocked ? nullptr : journal_->toUndo();
    const ChangeGroup* forward = isLocked ? nullptr : journal_->toRedo();
    const auto shown = [](const ChangeGroup& group) {
        return groupTitle(group).replace(u'&', QStringLiteral("&&"));
    };
    undo_->setText(isTyped           ? tr("&Undo Typing")
                   : back != nullptr ? tr("&Undo %1").arg(shown(*back))
                                     : tr("&Undo"));
    redo_->setText(isTyped              ? tr("&Redo Typing")
                   : forward != nullptr ? tr("&Redo %1").arg(shown(*forward))
                                        : tr("&Redo"));
    undo_->setEnabled(isTyped || back != nullptr);
    redo_->setEnabled(isTyped || forward != nullptr);
}

bool CompanyWindow::step(HistoryStep step) {
    const bool back = step == HistoryStep::undo;
    const ChangeGroup* next = back ? journal_->toUndo() : journal_->toRedo();
    if (next == nullptr) {
        notice(*this, back ? tr("There is nothing to undo.") : tr("There is nothing to redo."));
        return false;
    }
    const QString name = groupTitle(*next);
    const QString undone = undoneTitle(*next);
    if (const auto refusal = back ? journal_->undo() : journal_->redo()) {
        notice(*this, (back ? tr("%1 can't be undone. %2") : tr("%1 can't be redone. %2"))
                          .arg(name, fromUtf8(*refusal))
                          .trimmed());
        return false;
    }
    entry_->recordChanged();
    showPlace();
    notice(*this, back ? undone : tr("Redone: %1").arg(name));
    return true;
}

void CompanyWindow::showPlace() {
    if (const auto& place = journal_->place())
        if (const std::string control = controlOf(entry_->component(), *place); !control.empty())
            entry_->component().showField(control);
}

bool CompanyWindow::isAsNoted(const UnsavedCompany& of,
                              const std::vector<ChangeGroup>& groups) const {
    const auto counted = std::ranges::find_if(
        groups, [](const ChangeGroup& group) { return group.counted.has_value(); });
    return of.revision == revision_ && of.digest == digest_ && journal_->unsaved().empty() &&
           (counted == groups.end() || counted->counted->before == newestPeriods(*record_));
}

Restored CompanyWindow::restore(const UnsavedCompany& of, const std::vector<ChangeGroup>& groups) {
    entry_->component().leaveField(); // what was typed last is not given up for it
    Restored result;
    const auto refuse = [&result](const ChangeGroup& group, const QString& words) {
        result.left.push_back(group);
        result.reasons.append(QStringLiteral("%1: %2").arg(groupTitle(group), words));
    };
    if (changesLocked(*record_, groups)) {
        for (const ChangeGroup& group : groups)
            refuse(group, tr("The data is locked."));
        return result;
    }
    const bool asNoted = isAsNoted(of, groups);
    const ChangePlacing placing(groups,
                                withThoseBeside(entry_->component().suggestedDates(), *record_));
    journal_->beginStep(tr("Restore").toStdString());
    for (const ChangeGroup& group : groups) {
        auto placed = asNoted ? ChangePlacing::Placed{group, {}} : placing.place(group, *record_);
        if (!placed.group.changes.empty()) {
            if (const auto refusal = journal_->apply(placed.group)) {
                refuse(group, fromUtf8(*refusal));
                continue;
            }
            result.isAny = true;
        }
        if (placed.left.empty())
            continue;
        result.reasons.append(unplacedLines(*record_, group, placed.left));
        ChangeGroup left = group;
        left.changes.clear();
        for (const UnplacedChange& one : placed.left)
            left.changes.push_back(one.change);
        result.left.push_back(std::move(left));
    }
    journal_->endStep();
    if (result.isAny)
        showRestored();
    return result;
}

void CompanyWindow::showRestored() {
    entry_->recordChanged();
    entry_->setDirty(true);
    showPlace();
    showModified();
}

UnsavedCompany CompanyWindow::unsavedCompany() const {
    return {id_, revision_, digest_, title().toStdString()};
}

void CompanyWindow::keepUnsaved(const CompanyRecord& stored) {
    digest_ = digestOf(stored);
    unsaved_ = std::make_unique<UnsavedChanges>(unsavedPlaceOf(store_), unsavedCompany());
    journal_->onTakenBack([this](ChangeGroup& back, const ChangeGroup& step) {
        back.name = undoneTitle(step).toStdString();
        origins().tellIn(back);
    });
    journal_->onUnsavedChanged([this](const ChangeGroup* added) {
        keep([added](UnsavedChanges& unsaved) {
            return added != nullptr ? unsaved.add(*added) : unsaved.takeBackLast();
        });
    });
}

void CompanyWindow::keep(const std::function<std::optional<std::string>(UnsavedChanges&)>& change) {
    const auto failure = change(*unsaved_);
    const QString told = failure ? tr("Changes are not kept on the disk before they are saved: %1")
                                       .arg(fromUtf8(*failure))
                                 : QString();
    if (failure && isKept())
        notice(*this, told);
    tellOfKeeping(told);
}

bool CompanyWindow::isKept() const {
    return notKept_->isHidden();
}

void CompanyWindow::tellOfKeeping(const QString& failure) {
    notKept_->setVisible(!failure.isEmpty());
    notKept_->setToolTip(failure);
    notKept_->setAccessibleDescription(failure);
}

// Keeps the figures that it began with, too: they are stored nowhere. The file before goes only
// when this one is on the disk.
void CompanyWindow::keepAsNew() {
    const auto began = record_->clone();
    const auto& steps = journal_->unsaved();
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        for (auto change = step->changes.rbegin(); change != step->changes.rend(); ++change) {
            Change back = *change;
            std::swap(back.before, back.after);
            static_cast<void>(putChanges(*began, {&back, 1}));
        }
    const CompanyRecord empty;
    beginning_ = elementByElement(
        changesBetween(empty, *began, {Origin::typed, tr("Saved as a copy").toStdString(), {}}));
    beginning_->at = std::chrono::system_clock::now();
    origins_.tellIn(*beginning_);
    const auto others = std::move(unsaved_);
    keepUnsaved(empty);
    for (const ChangeGroup& step : unsavedSteps())
        keep([&step](UnsavedChanges& unsaved) { return unsaved.add(step); });
    if (others != nullptr && isKept())
        others->remove();
    checkInvariants();
}

std::vector<ChangeGroup> CompanyWindow::unsavedSteps() const {
    std::vector<ChangeGroup> steps = journal_->unsaved();
    if (beginning_)
        steps.insert(steps.begin(), *beginning_);
    return steps;
}

void CompanyWindow::forgetUnsaved() {
    if (unsaved_ != nullptr)
        unsaved_->remove();
    unsaved_.reset();
    beginning_.reset();
    journal_->setSavePoint();
    tellOfKeeping({});
}

bool CompanyWindow::acceptUnstored() {
    const std::vector<MarkedField> fields = entry_->unstoredFields();
    if (fields.empty())
        return true;
    QStringList lines;
    for (const MarkedField& field : fields)
        lines.append(tr("%1: \u201c%2\u201d - %3")
                         .arg(fromUtf8(field.label), fromUtf8(field.text), fromUtf8(field.reason)));
    const QPointer<CompanyWindow> stays(this);
    const int choice = ask(
        this,
        fields.size() == 1 ? tr("One field holds a text that can't be stored.")
                           : tr("%1 fields hold texts that can't be stored.").arg(fields.size()),
        tr("%1\n\nSaving keeps what was stored there before.").arg(lines.join(u'\n')),
        {{tr("&Save Without"), Choice::Role::destroy}, {tr("&Go Back"), Choice::Role::reject}});
    if (choice != 0 && stays)
        entry_->component().showField(fields.front().control);
    return choice == 0;
}

// Hands what is not saved to whoever offers it for restoring.
void CompanyWindow::keepGivenUp() {
    const auto count = static_cast<int>(recordChanges().size());
    if (const auto steps = unsavedSteps(); count > 0 && !steps.empty())
        emit discarded({unsavedCompany(), steps, count});
}

void CompanyWindow::giveUp() {
    if (!decided_)
        keepGivenUp();
    decided_ = true;
    forgetUnsaved();
    checkInvariants();
}

void CompanyWindow::checkInvariants() const {
    assert(record_ != nullptr && journal_ != nullptr && kept_ != nullptr && unchanged_ != nullptr);
    assert(unsaved_ != nullptr || decided_);
    assert(unsaved_ != nullptr || !beginning_);
    assert(history_ == nullptr || id_);
    assert(!judgedCompany_ || judgedCompany_ == id_);
}

} // namespace vkr
