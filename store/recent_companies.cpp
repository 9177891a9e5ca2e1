// SPDX-License-Identifier: MIT
#include "store/recent_companies.hpp"

#include <algorithm>
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
}

void RecentCompanies::begin() {
    isWriting_ = true;
    open_.clear();
}

void RecentCompanies::committed() {
    isWriting_ = false;
    for (StoredState& state : std::exchange(open_, {}))
        keep(recent_, std::move(state));
}

} // namespace vkr
