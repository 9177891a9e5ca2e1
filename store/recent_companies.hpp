// SPDX-License-Identifier: MIT
#pragma once

#include "store/stored_company.hpp"

#include <cstdint>
#include <memory>
#include <vector>

namespace vkr {

// A company as it is stored.
struct StoredState {
    CompanyKey key;
    std::shared_ptr<const CompanyRecord> record;
    FigureOrigins origins;
    // What was saved last, where something else is stored and the history has it; else null.
    std::shared_ptr<const CompanyRecord> lastSaved = nullptr;
};

// The companies that were read or saved last, so that a save need not read again what it replaces.
// What is read or saved in a transaction that writes counts once that is committed. At any time
//
//   there is one transaction that writes, or none: then no company waits for its commit;
//   no company stands twice among the recent ones, or among those that wait.
class RecentCompanies {
  public:
    // Null where the company is not among them in this revision.
    [[nodiscard]] const StoredState* find(const CompanyKey& key) const;
    void note(StoredState state);

    // A transaction that writes. Without commit() it came to nothing, and so does what was noted.
    class [[nodiscard]] Writing {
      public:
        explicit Writing(RecentCompanies& companies);
        ~Writing();
        void commit();
        Writing(const Writing&) = delete;
        Writing& operator=(const Writing&) = delete;

      private:
        RecentCompanies& companies_;
    };

  private:
    void checkInvariants() const;

    bool isWriting_ = false;
    std::vector<StoredState> recent_; // the oldest first
    std::vector<StoredState> open_;   // of the transaction under way
};

} // namespace vkr
