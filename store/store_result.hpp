// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "store/stored_company.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vkr {

enum class StoreFault {
    missing,      // there is no such file, database or company
    empty,        // a database on a server without any tables yet; OpenMode::create makes them
    locked,       // another window or program is writing; trying again later helps
    readOnly,     // the file or its folder cannot be written
    full,         // the disk is full
    notADatabase, // something else than a company file
    newerSchema,  // written by a newer version of this program
    corrupt,      // damaged
    conflict,     // the company was saved or removed elsewhere in the meantime
    unreachable,  // the server does not answer, or has gone in the meantime
    denied,       // the server does not know the user, or the password is wrong
    uncertain,    // the server went away while it was saving; the save may be done or not
    other,
};

// Who was there first.
struct StoreConflict {
    std::string changedBy;     // user@host
    std::string changedAt;     // UTC, 2026-01-31T12:00:00Z
    bool isRemoved = false;    // else saved
    std::int64_t revision = 0; // to save with, in order to overwrite; 0 where it is removed
    // From the stored company to ours, by period.
    std::vector<HistoryChange> differences;
};

struct StoreError {
    StoreFault fault = StoreFault::other;
    std::string message; // for people: which file, what happened, what to do
    std::optional<StoreConflict> conflict;
    // `uncertain`: the company as it is stored if the save was done. Saving it again through the
    // same store, under this key, makes no second one, whatever came of the first save.
    std::optional<CompanyKey> attempted = std::nullopt;
};

// A value or the error that stood in the way of it.
template <typename Value>
class [[nodiscard]] StoreResult {
  public:
    StoreResult(Value value) : content_(std::move(value)) {}
    StoreResult(StoreError error) : content_(std::move(error)) {}

    [[nodiscard]] explicit operator bool() const { return std::holds_alternative<Value>(content_); }
    // Each throws std::bad_variant_access where it is the other one. Of a temporary the value
    // itself, which outlives it: for (const HistoryGroup& group : store.history(id).value()).
    [[nodiscard]] Value& value() & { return std::get<Value>(content_); }
    [[nodiscard]] const Value& value() const& { return std::get<Value>(content_); }
    [[nodiscard]] Value value() && { return std::get<Value>(std::move(content_)); }
    [[nodiscard]] const StoreError& error() const& { return std::get<StoreError>(content_); }
    [[nodiscard]] StoreError error() && { return std::get<StoreError>(std::move(content_)); }

  private:
    std::variant<Value, StoreError> content_;
};
using StoreDone = StoreResult<std::monostate>;

} // namespace vkr
