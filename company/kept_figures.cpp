// SPDX-License-Identifier: MIT
#include "company/kept_figures.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

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
    if (listener_ != nullptr)
        listener_->beginAction(action);
    actions_.push_back(action.origin);
}

void KeptFigures::endAction() noexcept {
    actions_.pop_back();
    if (actions_.empty())
        inputs_.clear();
    if (listener_ != nullptr)
        listener_->endAction();
}

void KeptFigures::write(Datum datum, const Variant& value) {
    const bool isWorkedOut = !actions_.empty() && actions_.back() == Origin::derived;
    if (isWorkedOut && isDerived(datum))
        return writeDatum(*record_, datum, withoutWhatIsKept(datum, value));
    if (actions_.empty() || isWorkedOut || !isInput(datum))
        return writeDatum(*record_, datum, value);
    const Variant before = readDatum(*record_, datum);
    writeDatum(*record_, datum, value);
    noteInput(datum, before, readDatum(*record_, datum));
}

Variant KeptFigures::withoutWhatIsKept(Datum datum, const Variant& value) const {
    const Variant held = readDatum(*record_, datum);
    if (held == value)
        return value;
    const FigureOrigins origins = origins_();
    const auto isKept = [&](std::optional<int> element, double figure) {
        return figure != 0 && !origins.mayDerive(datum, element) && !hasNewInput(datum, element);
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
    if (!after.isArray() || !before.isArray()) {
        if (before != after)
            inputs_.emplace(datum, 0);
        return;
    }
    const VariantArray& old = before.array();
    const VariantArray& now = after.array();
    for (int i = now.lower(); i <= now.upper(); ++i)
        if (!old.contains(i) || old.number(i) != now.number(i))
            inputs_.emplace(datum, i);
}

} // namespace vkr
