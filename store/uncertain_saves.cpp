// SPDX-License-Identifier: MIT
#include "store/uncertain_saves.hpp"

#include <algorithm>
#include <cassert>
#include <utility>

namespace vkr {

void UncertainSaves::begin() {
    open_.clear();
    for (Settled& settled : settled_)
        settled.isRepeated = false;
}

void UncertainSaves::add(SaveAttempt attempt) {
    assert(attempt.key.revision == (attempt.isNew ? 1 : attempt.before + 1));
    open_.push_back(std::move(attempt));
}

void UncertainSaves::forgetRepeated() {
    std::erase_if(settled_, [](const Settled& settled) { return settled.isRepeated; });
}

void UncertainSaves::settle(bool isDone) {
    for (SaveAttempt& attempt : open_)
        settled_.push_back({std::move(attempt), isDone});
    open_.clear();
}

std::optional<CompanyKey> UncertainSaves::single() const {
    return open_.size() == 1 ? std::optional(open_.front().key) : std::nullopt;
}

UncertainSaves::Settled* UncertainSaves::find(std::optional<std::int64_t> id,
                                              const CompanyRecord& record,
                                              std::int64_t expectedRevision) {
    const auto isIt = [&](const Settled& settled) {
        const SaveAttempt& attempt = settled.attempt;
        return id ? attempt.key == CompanyKey{*id, expectedRevision}
                  : attempt.isNew && settled.isDone && sameAs(*attempt.record, record);
    };
    const auto found = std::ranges::find_if(settled_, isIt);
    return found == settled_.end() ? nullptr : &*found;
}

UncertainSaves::Repetition UncertainSaves::repeat(std::optional<std::int64_t> id,
                                                  const CompanyRecord& record,
                                                  std::int64_t expectedRevision) {
    Settled* const settled = find(id, record, expectedRevision);
    if (settled == nullptr)
        return {std::nullopt, id, expectedRevision};
    settled->isRepeated = true;
    if (!id) {
        assert(settled->isDone);
        return {settled->attempt.key, id, expectedRevision};
    }
    if (settled->isDone)
        return {std::nullopt, id, expectedRevision};
    if (settled->attempt.isNew)
        return {std::nullopt, std::nullopt, expectedRevision};
    return {std::nullopt, id, settled->attempt.before};
}

} // namespace vkr
