// SPDX-License-Identifier: MIT
#include "store/recent_companies.hpp"

#include <algorithm>
#include <cassert>
#include <utility>

namespace vkr {

namespace {

constexpr std::size_t most = 8;

void keep(std::vector<StoredState>& states, StoredState state) {
    std::erase_if(states, [&](const StoredState& one) { return one.key.id == state.key.id; });
    if (states.size() == most)
        states.erase(states.begin());
    states.push_back(std::move(state));
}

} // namespace

void RecentCompanies::checkInvariants() const {
    assert(isWriting_ || open_.empty());
    for ([[maybe_unused]] const auto* states : {&recent_, &open_})
        assert(
            states->size() <= most && std::ranges::all_of(*states, [&](const StoredState& state) {
                return std::ranges::count(*states, state.key.id,
                                          [](const StoredState& one) { return one.key.id; }) == 1;
            }));
}

const StoredState* RecentCompanies::find(const CompanyKey& key) const {
    for (const auto* states : {&open_, &recent_}) {
        const auto found = std::ranges::find(*states, key, &StoredState::key);
        if (found != states->end())
            return &*found;
    }
    return nullptr;
}

void RecentCompanies::note(StoredState state) {
    keep(isWriting_ ? open_ : recent_, std::move(state));
    checkInvariants();
}

RecentCompanies::Writing::Writing(RecentCompanies& companies) : companies_(companies) {
    assert(!companies_.isWriting_ && companies_.open_.empty());
    companies_.isWriting_ = true;
}

RecentCompanies::Writing::~Writing() {
    companies_.isWriting_ = false;
    companies_.open_.clear();
    companies_.checkInvariants();
}

void RecentCompanies::Writing::commit() {
    for (StoredState& state : std::exchange(companies_.open_, {}))
        keep(companies_.recent_, std::move(state));
}

} // namespace vkr
