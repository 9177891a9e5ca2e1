// SPDX-License-Identifier: MIT
#include "quarterly/last_quarter.hpp"

#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/date_pattern.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

namespace vkr {

namespace {

constexpr int oldestElement = QuarterlyGrid::mostRows - 1;
constexpr std::string_view monthAndYear = "MMM YYYY";

} // namespace

LastQuarter::LastQuarter(EntryContext& context, QuarterlyGrid& grid)
    : context_(context), grid_(grid), trailing_(grid.trailing()) {}

void LastQuarter::startOver() {
    visited_.clear();
    typedCommitted_ = false;
}

void LastQuarter::settle() {
    context_.hideHelpFrame();
    grid_.settleCell();
    leave();
}

bool LastQuarter::refusesWhileLocked() {
    if (context_.isLocked())
        context_.message("Data is locked!\r\rYou must unlock data to add a new quarter.",
                         message_box::okOnly);
    return context_.isLocked();
}

void LastQuarter::add() {
    const auto& button = context_[controls::addQuarter];
    const EntryContext::UpdateScope updating(
        context_, Action{Origin::shifted, withoutMnemonic(button.caption()), {}});
    if (refusesWhileLocked())
        return;
    settle();
    tryMove(std::min(grid_.topElement(), 0) - 1);
}

void LastQuarter::move(int quarters) {
    const auto& field = context_[controls::lastQuarterDate];
    const EntryContext::UpdateScope updating(context_, typingIn(field));
    if (!grid_.shown() || quarters == 0 || refusesWhileLocked())
        return;
    settle();
    tryMove(grid_.topElement() - quarters);
}

void LastQuarter::tryMove(int element) {
    if (!grid_.shown() || element > oldestElement)
        return;
    if (const auto refusal = failureOf([&] { moveTo(element); }))
        grid_.tellRefused(*refusal);
}

// Names the quarters that will be gone: one, or the first and the last of several.
bool LastQuarter::confirmAdding(int count) {
    const auto named = [&](int element) {
        return formatDate(addQuarters(grid_.newestQuarter(), -element), monthAndYear);
    };
    std::string leaving = named(oldestElement);
    if (count > 1)
        leaving += " - " + named(std::max(0, QuarterlyGrid::mostRows - count));
    return context_.confirmLoss(text_number::addsQuarter, leaving, message_box::questionIcon);
}

void LastQuarter::moveTo(int element, std::optional<Date> typed) {
    auto& company = *context_.company;
    if (element < 0 && !confirmAdding(-element))
        return;
    std::vector<std::string> stayed;
    const Date newest = grid_.newestQuarter();
    const auto known = visited_.find(element);
    const Date date = typed                     ? *typed
                      : known != visited_.end() ? known->second.date
                                                : addQuarters(newest, -element);
    Visited left{grid_.shown().value_or(newest), {}};
    ifPossible([&] { left.trailing = company.get_Last4QEPS(); });
    if (element < 0) {
        const ActionScope shifting(context_.company, {Origin::shifted, {}, {}});
        putNewestQuarter(date);
        stayed = grid_.shiftAll(-element);
        visited_.clear();
    } else {
        // Stated even where it has not changed: a record may let it follow the last quarter.
        company.put_LastQDateForGrid(element == 0 && typed ? date : newest);
        visited_[grid_.topElement()] = left;
    }
    put(date);
    context_.markChanged();
    if (grid_.isBlank())
        grid_.storeMarked();
    trailing_.derive();
    if (const auto again = visited_.find(element);
        !trailing_.isDerived() && again != visited_.end() && again->second.trailing)
        ifPossible([&] { trailing_.store(*again->second.trailing); });
    checkInvariants();
    redisplay();
    grid_.tellStayed(stayed);
}

void LastQuarter::checkInvariants() const {
    assert(visited_.empty() ||
           (visited_.begin()->first >= 0 && visited_.rbegin()->first <= oldestElement));
    assert(visited_.empty() || context_.company != nullptr);
}

// Both dates of the record, before any figure moves. Throws, with neither changed.
void LastQuarter::putNewestQuarter(Date date) {
    auto& company = *context_.company;
    Date before = grid_.shown().value_or(grid_.heldUnseen());
    ifPossible([&] { before = company.get_LastQDate(); });
    company.put_LastQDate(date);
    try {
        company.put_LastQDateForGrid(date);
    } catch (...) {
        ifPossible([&] { company.put_LastQDate(before); });
        throw;
    }
}

void LastQuarter::put(Date date) {
    context_.putDate(context_[controls::lastQuarterDate], Datum::LastQDate, date);
    grid_.accept(date);
}

void LastQuarter::redisplay() {
    grid_.relabel();
    grid_.shade();
    grid_.showAll();
    grid_.selectCell();
    trailing_.show();
}

void LastQuarter::leave() {
    context_.dates.setPending(false);
    auto& field = context_[controls::lastQuarterDate];
    if (context_.dates.isSkipped() || field.locked() || context_.company == nullptr)
        return;
    const auto before = grid_.shown();
    const bool committed = std::exchange(typedCommitted_, false);
    if (field.standsForStored()) {
        if (committed)
            takeCommitBack(before, field.mark());
        if (before)
            grid_.storeMarked(); // what waited for the date to be back
        return;
    }
    const auto typed = context_.typedDate(field);
    const bool sameDay = typed && before && daysBetween(*before, *typed) == 0;
    const FieldMark mark = field.isUnstored() ? field.mark() : FieldMark();
    if (sameDay && field.isUnstored()) {
        retry(*before);
        return;
    }
    field.showStored(context_.dateText(before.value_or(Date{})));
    field.setMark(mark);
    takeCommitBack(before, mark);
    if (before)
        grid_.storeMarked(); // in the quarters that are still beside the cells
    if (const auto failure = failureOf([&] { take(before, typed); }))
        context_.message("LastQDate Lost Focus error: " + *failure, message_box::exclamationIcon);
}

// A commit may have written what was being typed in the place of the date before.
void LastQuarter::takeCommitBack(std::optional<Date> before, const FieldMark& mark) {
    auto& field = context_[controls::lastQuarterDate];
    ifPossible([&] {
        const Date held = context_.company->get_LastQDate();
        const Date old = before.value_or(grid_.heldUnseen());
        if (held == old || (!before && !EntryContext::isValidDate(held)))
            return;
        if (const auto refusal = context_.refusalOf(Datum::LastQDate, old)) {
            field.setMark(context_.refused(*refusal));
            return;
        }
        field.setMark({});
        context_.markChanged();                // what was committed is no longer what is there
        if (mark.kind == MarkKind::unstored) { // taken by now
            trailing_.derive();
            trailing_.show();
        }
    });
}

void LastQuarter::followCommit() {
    auto& field = context_[controls::lastQuarterDate];
    typedCommitted_ = typedCommitted_ || field.isTyped();
    if (!field.isUnstored() || field.isTyped() || context_.isLocked())
        return;
    bool stored = false;
    ifPossible([&] { stored = context_.company->get_LastQDate() == grid_.shown(); });
    if (!stored)
        return;
    field.setMark({});
    trailing_.derive();
    if (!context_[controls::trailingEarnings].isUnstored())
        // A commit changes nothing that the host would have to save anew.
        context_.consequences.trailingEarningsDerived();
}

// The record may take by now what it refused.
void LastQuarter::retry(Date date) {
    put(date);
    if (context_[controls::lastQuarterDate].isUnstored())
        return;
    context_.markChanged();
    trailing_.derive();
    redisplay();
}

std::optional<int> LastQuarter::quartersAhead(Date before, Date typed) {
    // Of a week-based quarter the last day wanders by some days, so it may lie in another month.
    for (int quarters = 0; quarters <= 3; ++quarters) {
        const Date expected = addQuarters(before, quarters);
        if (std::abs(daysBetween(expected, typed)) <= 7 ||
            daysBetween(EndOfMonth(expected), EndOfMonth(typed)) == 0)
            return quarters;
    }
    return std::nullopt;
}

void LastQuarter::take(std::optional<Date> before, std::optional<Date> typed) {
    if (typed && before && daysBetween(*before, *typed) == 0)
        return;
    // Without figures any date will do: there is nothing that could come to stand elsewhere.
    // Figures keep the quarters that the record states for them, though the form shows no date.
    const bool figures = grid_.holdsFigures();
    const Date newest = grid_.newestQuarter();
    const bool stated = figures && EntryContext::isValidDate(newest);
    const int back = typed && stated ? nearestQuarters(*typed, newest) : 0;
    if (typed &&
        (!figures || (!before && back >= (grid_.isBlank() ? 0 : -3) && back <= oldestElement))) {
        setAnchor(*typed, stated ? Figures::stay : Figures::follow);
        return;
    }
    std::optional<int> ahead;
    if (grid_.isBlank() && back < 0 && back >= -3)
        ahead = -back;
    else if (before && typed)
        ahead = quartersAhead(*before, *typed);
    if (ahead)
        moveTo(grid_.topElement() - *ahead, typed);
    else
        context_.message(context_.text(text_number::quarterRejected) + "\r" +
                             context_.text(text_number::quarterPutBack),
                         message_box::exclamationIcon);
}

void LastQuarter::setAnchor(Date date, Figures figures) {
    if (figures == Figures::follow)
        context_.company->put_LastQDateForGrid(date);
    visited_.clear();
    put(date);
    context_.markChanged();
    if (figures == Figures::follow || grid_.isBlank())
        grid_.relabel();
    grid_.storeMarked(); // what was typed over a figure takes its place
    trailing_.derive();
    redisplay();
}

} // namespace vkr
