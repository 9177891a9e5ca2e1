// SPDX-License-Identifier: MIT
// What the windows did not save: discarded a moment ago, or left behind by a program that ended.
#include "host/messages.hpp"
#include "host/texts.hpp"
#include "host/unsaved_work.hpp"
#include "host/workspace.hpp"
#include "store/unsaved_changes.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

void Workspace::checkInvariants() const {
    for ([[maybe_unused]] const CompanyWindow* window : windows_)
        assert(!window->id() || windowOf(*window->id()) == window);
    for ([[maybe_unused]] const DiscardedChanges& changes : discarded_)
        assert(!changes.company.id ||
               std::ranges::count(discarded_, changes.company.id,
                                  [](const DiscardedChanges& one) { return one.company.id; }) == 1);
}

void Workspace::showDiscarded() {
    checkInvariants();
    if (discarded_.isEmpty()) {
        list_->offerRestore({});
        return;
    }
    const DiscardedChanges& last = discarded_.back();
    const QString title = fromUtf8(last.company.title);
    list_->offerRestore(last.count == 1
                            ? tr("Discarded 1 change of %1.").arg(title)
                            : tr("Discarded %1 changes of %2.").arg(last.count).arg(title));
}

void Workspace::offerDiscarded(DiscardedChanges changes) {
    const auto isEarlier = [&](const DiscardedChanges& one) {
        return changes.company.id && one.company.id == changes.company.id;
    };
    if (const auto earlier = std::ranges::find_if(discarded_, isEarlier);
        earlier != discarded_.end()) {
        changes.groups.insert(changes.groups.begin(), earlier->groups.begin(),
                              earlier->groups.end());
        changes.count += earlier->count;
        changes.company.digest = 0; // there is no one record that they lead from
        discarded_.erase(earlier);
    }
    discarded_.append(changes);
    showDiscarded();
}

void Workspace::forgetDiscarded(std::int64_t id) {
    discarded_.removeIf([id](const DiscardedChanges& changes) { return changes.company.id == id; });
    showDiscarded();
}

void Workspace::restoreDiscarded() {
    if (discarded_.isEmpty())
        return;
    DiscardedChanges last = discarded_.takeLast();
    const Unrestored left = restore(last.company, last.groups);
    if (!left.groups.empty()) {
        last.groups = left.groups;
        last.count = left.count.value_or(last.count);
        if (left.count)
            last.company.digest = 0;
        offerDiscarded(last);
    } else {
        showDiscarded();
    }
}

Workspace::Unrestored Workspace::restore(const UnsavedCompany& of,
                                         const std::vector<ChangeGroup>& groups) {
    CompanyWindow* window = of.id ? openCompany(*of.id) : newCompany();
    if (window == nullptr)
        return {groups, std::nullopt};
    const Restored restored = window->restore(of, groups);
    Unrestored left{restored.left, std::nullopt, window->isKept()};
    if (!restored.isAny && left.groups.empty()) {
        tellNews(window, tr("All of it is there already."));
    } else if (!restored.isAny) {
        tellFault(window, tr("Nothing was restored."), restored.reasons.value(0), restored.reasons);
        left.groups = groups;
    } else if (!left.groups.empty()) {
        left.count = static_cast<int>(lines(*window->record(), left.groups).size());
        tellFault(window, tr("Not every change could be made again."),
                  tr("The others are in this window. Nothing is saved yet. What could not be made "
                     "is offered again."),
                  restored.reasons);
    }
    return left;
}

void Workspace::offerFound() {
    const UnsavedPlace place = unsavedPlaceOf(*store_);
    for (const FoundChanges& found : findUnsavedChanges(place)) {
        const QString title = found.company.title.empty() ? tr("a company whose name can't be read")
                                                          : fromUtf8(found.company.title);
        QString more = tr("The program ended before they were saved.");
        bool canRestore = !found.groups.empty();
        std::shared_ptr<const CompanyRecord> stored = std::make_shared<CompanyRecord>();
        if (found.company.id) {
            const auto loaded = store_->load(*found.company.id);
            if (!loaded) {
                more += u'\n' +
                        tr("The company can't be opened: %1").arg(fromUtf8(loaded.error().message));
                canRestore = false;
            } else {
                stored = loaded.value().record;
                if (loaded.value().revision != found.company.revision ||
                    digestOf(*stored) != found.company.digest)
                    more += u'\n' + tr("It was saved since, by somebody else or in another window. "
                                       "The changes are made to what is stored now.");
            }
        }
        if (found.isDamaged)
            more += u'\n' + tr("Part of what was kept can't be read: %1").arg(fromUtf8(found.path));
        QList<Choice> choices;
        if (canRestore)
            choices.append({tr("&Restore")});
        choices.append({tr("&Discard"), Choice::Role::destroy});
        choices.append({tr("&Later"), Choice::Role::reject});
        const int choice = ask(list_.get(), tr("There are unsaved changes to %1.").arg(title), more,
                               choices, canRestore ? 0 : -1, lines(*stored, found.groups));
        const bool discards = choice == (canRestore ? 1 : 0);
        if (canRestore && choice == 0) {
            const Unrestored left = restore(found.company, found.groups);
            if ((left.groups.empty() || left.count) && left.isRestKept)
                if (const auto failure = keepOnly(found, left.groups, place))
                    tellFault(list_.get(), tr("All changes to %1 are offered again.").arg(title),
                              fromUtf8(*failure));
        } else if (discards &&
                   askFirst(list_.get(), tr("Discard the unsaved changes to %1?").arg(title),
                            tr("They can't be had back."), tr("&Discard"))) {
            removeFound(found);
        }
    }
}

} // namespace vkr
