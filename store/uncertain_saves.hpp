// SPDX-License-Identifier: MIT
#pragma once

#include "store/stored_company.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vkr {

// A save of which the answer may get lost.
struct SaveAttempt {
    bool isNew;
    std::int64_t before; // the revision that it was made from
    CompanyKey key;      // as it is stored if the save was done
    std::shared_ptr<const CompanyRecord> record;
};

// The saves to a server whose answer got lost: a save that repeats one of them makes no second
// company and meets no conflict with itself.
//
// What may be true together:
// - The open attempts are those of the last transaction. They count while it is under way, and
//   after it where its outcome is not known: then they are settled before the next one begins.
// - A settled attempt has a known outcome, and is kept until a save that repeats it was committed.
// - The marks of repetition are those of the last transaction.
class UncertainSaves {
  public:
    // A transaction begins.
    void begin();
    void add(SaveAttempt attempt);
    // It was committed.
    void forgetRepeated();
    // The outcome of the transaction is known by now.
    void settle(bool isDone);

    // No attempt is noted.
    [[nodiscard]] bool isEmpty() const { return open_.empty() && settled_.empty(); }
    // The company of the open attempt, where it is one.
    [[nodiscard]] std::optional<CompanyKey> single() const;

    // What is to be done for a save: nothing, where it is `done` already.
    struct Repetition {
        std::optional<CompanyKey> done;
        std::optional<std::int64_t> id;
        std::int64_t expectedRevision;
    };
    // A repetition goes by the key of the attempt, or, a new company without one, by its data.
    // Without an attempt it is the save as it is.
    [[nodiscard]] Repetition repeat(std::optional<std::int64_t> id, const CompanyRecord& record,
                                    std::int64_t expectedRevision);

  private:
    struct Settled {
        SaveAttempt attempt;
        bool isDone;
        bool isRepeated = false; // by the transaction under way
    };
    [[nodiscard]] Settled* find(std::optional<std::int64_t> id, const CompanyRecord& record,
                                std::int64_t expectedRevision);

    std::vector<SaveAttempt> open_;
    std::vector<Settled> settled_;
};

} // namespace vkr
