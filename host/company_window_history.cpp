// SPDX-License-Identifier: MIT
// Where figures come from and what became of them, of the window of a company.
#include "company/kept_figures.hpp"
#include "control/vkr_data_entry.hpp"
#include "host/company_window.hpp"
#include "host/figure_checks.hpp"
#include "host/history_window.hpp"
#include "host/messages.hpp"
#include "host/silenced_in_store.hpp"
#include "host/texts.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

const FigureOrigins& CompanyWindow::origins() const {
    if (!originsNow_) {
        FigureOrigins now = origins_;
        if (journal_ != nullptr)
            for (const ChangeGroup& group : journal_->groups())
                now.note(group);
        originsNow_ = std::move(now);
    }
    return *originsNow_;
}

void CompanyWindow::startOrigins(FigureOrigins origins) {
    origins_ = std::move(origins);
    originsNow_.reset();
}

void CompanyWindow::followOrigins(const ChangeGroup* added) {
    auto now = std::exchange(originsNow_, std::nullopt);
    if (!now || added == nullptr)
        return;
    now->note(*added);
    originsNow_ = std::move(now);
}

std::string CompanyWindow::damage() const {
    const auto found = id_ ? store_.check(*id_) : StoreResult(std::optional<CompanyDamage>());
    return found && found.value() ? found.value()->message : std::string();
}

void CompanyWindow::keepSilenced() {
    if (!id_)
        return checks_->lookLater();
    auto kept = std::make_shared<SilencedInStore>(store_, *id_, calledRight_, *this);
    if (std::exchange(judgedCompany_, id_) == id_)
        checks_->setSilenced(std::move(kept));
    else
        checks_->moveSilencedTo(std::move(kept));
}

std::shared_ptr<const SilencedFindings> CompanyWindow::silenced() const {
    return checks_->silenced();
}

// A sum that was missing; suggested dates are none of these, and are stored once they are typed.
void CompanyWindow::noteWorkedOut(const CompanyRecord& before) {
    ChangeGroup loading = changesBetween(before, *record_, {Origin::derived, {}, {}});
    std::erase_if(loading.changes, [](const Change& change) {
        return !change.setting.empty() ||
               std::ranges::find(derivations(), change.datum, &Derivation::derived) ==
                   derivations().end();
    });
    origins_.note(loading);
    originsNow_.reset();
}

std::shared_ptr<CompanyRecord> CompanyWindow::committed() const {
    auto copy = record_->clone();
    entry_->component().commitInto(
        std::make_shared<KeptFigures>(copy, [this] { return origins(); }));
    return copy;
}

SaveAccount CompanyWindow::account(const CompanyRecord& saving,
                                   const std::optional<StoreConflict>& overwritten) const {
    SaveAccount account;
    account.groups = journal_->unsaved();
    account.rest = {Origin::derived, tr("Worked out when it was saved").toStdString(), {}};
    account.origins = origins();
    account.origins->note(changesBetween(*record_, saving, account.rest));
    if (!id_ && origins_ != FigureOrigins())
        account.rest = {Origin::typed, tr("Saved as a copy").toStdString(), {}};
    if (!overwritten)
        return account;
    account.rest = {Origin::typed,
                    tr("Overwriting what %1 saved on %2")
                        .arg(fromUtf8(overwritten->changedBy), localTime(overwritten->changedAt))
                        .toStdString(),
                    {}};
    account.overwrites = true;
    // Steps that were counted from another year or quarter would lead to another figure.
    if (std::ranges::any_of(overwritten->differences, [](const HistoryChange& difference) {
            return difference.datum == rowOf(Datum::LastFY).name ||
                   difference.datum == rowOf(Datum::LastQDateForGrid).name;
        }))
        account.groups.clear();
    return account;
}

bool CompanyWindow::hasHistory() {
    const bool isStored = id_.has_value();
    if (!isStored)
        tellNews(this, tr("%1 has no history yet.").arg(title()),
                 tr("It begins when the company is saved."));
    return isStored;
}

HistoryWindow& CompanyWindow::history() {
    if (history_ == nullptr) {
        history_ = new HistoryWindow(store_, *id_, title(), this);
        connect(history_, &HistoryWindow::restoreAsked, this, &CompanyWindow::restoreState);
    }
    return *history_;
}

void CompanyWindow::showHistory(Datum datum, std::optional<int> element) {
    if (hasHistory())
        history().showFigure(datum, fromUtf8(historyPeriod(*record_, datum, element)));
}

// The history, and what is called right from now on, are not those of the company that it was.
void CompanyWindow::becomeNew() {
    id_.reset();
    delete std::exchange(history_, nullptr);
    judgedCompany_.reset();
    checks_->moveSilencedTo(std::make_shared<SilencedInMemory>());
}

void CompanyWindow::restoreState(const HistoryGroup& group) {
    const auto state = store_.stateAfter(*id_, group);
    if (!state) {
        tellFault(this, tr("This state can't be restored."), fromUtf8(state.error().message));
        return;
    }
    if (!canRestore())
        return;
    const QString time = localTime(group.time);
    const QString name = tr("Restore of %1").arg(time);
    const auto count = changesTo(state.value(), name).changes.size();
    if (count == 0) {
        tellNews(history_, tr("The company is as it was then."));
        return;
    }
    if (askFirst(history_, tr("Make %1 what it was on %2?").arg(title(), time),
                 (count == 1 ? tr("1 value changes.") : tr("%1 values change.").arg(count)) + u' ' +
                     tr("It is saved when you save the company."),
                 tr("&Restore")))
        restore(state.value(), name);
}

ChangeGroup CompanyWindow::changesTo(const HistoryState& state, const QString& name) const {
    ChangeGroup group = elementByElement(withMovesApart(
        changesBetween(*record_, *state.record, {Origin::typed, name.toStdString(), {}})));
    std::erase_if(group.changes,
                  [](const Change& change) { return change.setting == setting::lockBasicInfo; });
    state.origins.tellIn(group);
    return group;
}

bool CompanyWindow::canRestore() {
    const auto locked = entry_->component().changeRecord({}, {}); // the field is left in any case
    if (locked)
        tellFault(this, tr("Nothing was restored."), fromUtf8(*locked));
    return !locked;
}

bool CompanyWindow::restore(const HistoryState& state, const QString& name) {
    if (!canRestore())
        return false;
    const auto refusal = journal_->apply(changesTo(state, name));
    if (!refusal)
        showRestored();
    showTitle();
    if (refusal)
        tellFault(this, tr("Nothing was restored."),
                  QStringLiteral("%1: %2").arg(fromUtf8(name.toStdString()), fromUtf8(*refusal)));
    return !refusal;
}

} // namespace vkr
