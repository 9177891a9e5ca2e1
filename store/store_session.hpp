// SPDX-License-Identifier: MIT
#pragma once

#include "store/change_log.hpp"
#include "store/company_file.hpp"
#include "store/company_table.hpp"
#include "store/entry_lists.hpp"
#include "store/fault_text.hpp"
#include "store/finding_verdicts.hpp"
#include "store/history_table.hpp"
#include "store/recent_companies.hpp"
#include "store/store_listing.hpp"
#include "store/store_opening.hpp"
#include "store/uncertain_saves.hpp"

#include <QFileInfo>

#include <exception>
#include <utility>

namespace vkr {

// Turns what is thrown into the result.
template <typename Value, typename Function>
StoreResult<Value> guarded(const StoreLocation& location, Function function) {
    try {
        return function();
    } catch (const StoreFailure& failure) {
        return failure.error();
    } catch (const std::exception& failure) {
        return describeFault(StoreFault::other, location, failure.what());
    }
}

// The tables behind one connection. An operation of the store is one `reading` or one `change`.
// What it does within throws where it fails, and has changed nothing then. At any time
//
//   the outcome of the last change is known, but on a server: there its answer may have got lost,
//   and the next change looks it up before anything else;
//   attempts at a save are noted on a server alone.
class StoreSession {
  public:
    StoreSession(OpenedStore opened, const StoreOptions& options);

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] const std::string& backupPath() const { return backupPath_; }
    [[nodiscard]] StoreConnection& connection() { return *connection_; }
    [[nodiscard]] EntryLists& lists() { return lists_; }
    [[nodiscard]] HistoryTable& history() { return history_; }
    [[nodiscard]] FindingVerdicts& verdicts() { return verdicts_; }

    // Everything as it is at one moment, with the result of the function.
    template <typename Value, typename Function>
    StoreResult<Value> reading(Function function);
    StoreResult<std::int64_t> number(const ListingStatement& statement);
    // One transaction, with the result of the function.
    template <typename Value, typename Function>
    StoreResult<Value> change(Function function);

    LoadedCompany load(std::int64_t id);
    CompanyKey save(const SaveRequest& request);
    [[nodiscard]] std::optional<CompanyDamage> check(std::int64_t id);
    void remove(std::int64_t id, std::int64_t expectedRevision);
    void judge(std::int64_t id, FindingVerdict verdict);
    // What was saved and what was said, in the order of time.
    [[nodiscard]] std::vector<HistoryGroup> historyOf(std::int64_t id, const HistoryQuery& query);
    [[nodiscard]] HistoryExtent extentOf(std::int64_t id);

  private:
    [[nodiscard]] bool isFile() const { return connection_->dialect().isFile; }
    [[nodiscard]] SaveStamp stamp() const;
    template <typename Value, typename Function>
    Value changeOnce(Function function);
    void settleUncertainSaves();
    void checkInvariants() const;
    [[nodiscard]] StoredState storedState(const CompanyKey& key);
    CompanyKey write(const StoredState& stored, const SaveRequest& request);

    const std::unique_ptr<StoreConnection> connection_;
    const bool isRehearsal_;
    const std::string user_;
    const std::string path_;
    const std::string backupPath_;
    CompanyTable companies_;
    EntryLists lists_;
    ChangeLog log_;
    HistoryTable history_;
    FindingVerdicts verdicts_;
    RecentCompanies recent_;
    UncertainSaves uncertain_;
};

template <typename Value, typename Function>
StoreResult<Value> StoreSession::reading(Function function) {
    return guarded<Value>(connection_->location(), [&]() -> StoreResult<Value> {
        StoreConnection::Transaction oneMoment(*connection_,
                                               StoreConnection::Transaction::Kind::read);
        StoreResult<Value> result = guarded<Value>(connection_->location(), function);
        connection_->refuseWhatChangedMeanwhile();
        return result;
    });
}

template <typename Value, typename Function>
Value StoreSession::changeOnce(Function function) {
    const StoreLocation& location = connection_->location();
    StoreConnection::Transaction transaction(*connection_,
                                             StoreConnection::Transaction::Kind::write);
    uncertain_.begin();
    RecentCompanies::Writing writing(recent_);
    Value value = function();
    // A file that was moved away or deleted would take the save with it, without an error.
    if (isFile() && !QFileInfo::exists(location.path))
        fail(StoreFault::missing, location, "it was moved or deleted while it was open");
    if (isRehearsal_)
        return value; // the transaction ends without a commit
    transaction.commit();
    uncertain_.forgetRepeated();
    writing.commit();
    checkInvariants();
    return value;
}

template <typename Value, typename Function>
StoreResult<Value> StoreSession::change(Function function) {
    const StoreLocation& location = connection_->location();
    return guarded<Value>(location, [&] {
        settleUncertainSaves();
        try {
            return changeOnce<Value>(function);
        } catch (const StoreFailure& failure) {
            // A file that could not be opened for writing at one moment is tried once more.
            if (failure.error().fault == StoreFault::readOnly && isFile() &&
                isWritableFile(location.path)) {
                connection_->reopen();
                return changeOnce<Value>(function);
            }
            const auto attempted = uncertain_.single();
            if (failure.error().fault != StoreFault::uncertain || !attempted)
                throw;
            StoreError error = failure.error();
            error.attempted = attempted;
            throw StoreFailure(error);
        }
    });
}

} // namespace vkr
