// SPDX-License-Identifier: MIT
#include "company/kept_figures.hpp"

#include "company/period_moves.hpp"

#include <algorithm>
#include <cassert>
#include <utility>

namespace vkr {

namespace {

constexpr int anyElement = -1; // of a series that was moved, or of what is no series

bool isDerived(Datum datum) {
    return std::ranges::find(derivations(), datum, &Derivation::derived) != derivations().end();
}

bool isInput(Datum datum) {
    return std::ranges::find(derivations(), datum, &Derivation::from) != derivations().end();
}

} // namespace

KeptFigures::KeptFigures(std::shared_ptr<iVKR_Company> record, Origins origins)
    : record_(std::move(record)), listener_(dynamic_cast<ActionListener*>(record_.get())),
      origins_(std::move(origins)) {}

void KeptFigures::beginAction(const Action& action) {
    assert(!actions_.empty() || (inputs_.empty() && moves_.empty()));
    if (listener_ != nullptr)
        listener_->beginAction(action);
    actions_.push_back(action.origin);
}

void KeptFigures::endAction() noexcept {
    actions_.pop_back();
    if (actions_.empty()) {
        inputs_.clear();
        moves_.clear();
    }
    if (listener_ != nullptr)
        listener_->endAction();
}

void KeptFigures::write(Datum datum, const Variant& value) {
    const bool isWorkedOut = !actions_.empty() && actions_.back() == Origin::derived;
    if (isWorkedOut && isDerived(datum))
        return writeDatum(*record_, datum, withoutWhatIsKept(datum, value));
    if (actions_.empty() || isWorkedOut || (!isInput(datum) && !isDerived(datum)))
        return writeDatum(*record_, datum, value);
    const Variant before = readDatum(*record_, datum);
    writeDatum(*record_, datum, value);
    const Variant after = readDatum(*record_, datum);
    const auto moved = actions_.back() == Origin::shifted && before != after
                           ? periodsMoved(before, after)
                           : std::nullopt;
    if (moved)
        noteMove(datum, *moved);
    else if (isInput(datum))
        noteInput(datum, before, after);
}

Variant KeptFigures::withoutWhatIsKept(Datum datum, const Variant& value) const {
    const Variant held = readDatum(*record_, datum);
    if (held == value)
        return value;
    const FigureOrigins origins = origins_();
    const int moved = movedBy(datum); // the origins are those of before the action
    const auto isKept = [&](std::optional<int> element, double figure) {
        const auto from = element ? std::optional(*element - moved) : std::nullopt;
        return figure != 0 && !origins.mayDerive(datum, from) && !hasNewInput(datum, element);
    };
    if (!value.isArray())
        return isKept(std::nullopt, held.toDouble()) ? held : value;
    Variant kept = value;
    const VariantArray& before = held.array();
    VariantArray& after = kept.array();
    const int upper = std::min(before.upper(), after.upper());
    for (int i = std::max(before.lower(), after.lower()); i <= upper; ++i)
        if (before.number(i) != after.number(i) && isKept(i, before.number(i)))
            after.setNumber(i, before.number(i));
    return kept;
}

bool KeptFigures::hasNewInput(Datum derived, std::optional<int> element) const {
    return std::ranges::any_of(derivations(), [&](const Derivation& rule) {
        return rule.derived == derived && std::ranges::any_of(inputs_, [&](const auto& input) {
                   return input.first == rule.from && (!element || input.second == *element);
               });
    });
}

void KeptFigures::noteInput(Datum datum, const Variant& before, const Variant& after) {
    if (!after.isArray()) {
        if (before != after)
            inputs_.emplace(datum, anyElement);
        return;
    }
    const VariantArray none;
    const VariantArray& old = before.isArray() ? before.array() : none;
    const VariantArray& now = after.array();
    for (int i = now.lower(); i <= now.upper(); ++i)
        if (!old.contains(i) || old.number(i) != now.number(i))
            inputs_.emplace(datum, i);
}

// What follows from all of the series follows from what it begins with, too.
void KeptFigures::noteMove(Datum datum, int periods) {
    moves_[datum] += periods;
    std::set<std::pair<Datum, int>> inputs;
    for (const auto& [input, element] : inputs_)
        inputs.emplace(input, input == datum && element >= 0 ? element + periods : element);
    inputs.emplace(datum, anyElement);
    inputs_ = std::move(inputs);
}

int KeptFigures::movedBy(Datum datum) const {
    const auto found = moves_.find(datum);
    return found == moves_.end() ? 0 : found->second;
}

} // namespace vkr
