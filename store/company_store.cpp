// SPDX-License-Identifier: MIT
#include "store/company_store.hpp"

#include "store/company_summaries.hpp"
#include "store/store_failure.hpp"
#include "store/store_session.hpp"

#include <utility>

namespace vkr {

StoreResult<std::unique_ptr<CompanyStore>>
CompanyStore::open(const std::string& path, OpenMode mode, const StoreOptions& options) {
    using Opened = std::unique_ptr<CompanyStore>;
    StoreLocation location;
    try {
        location = locateStore(path);
    } catch (const StoreFailure& failure) {
        return failure.error();
    }
    return guarded<Opened>(location, [&]() -> StoreResult<Opened> {
        return Opened(new CompanyStore(
            std::make_unique<StoreSession>(openStore(location, mode, options), options)));
    });
}

CompanyStore::CompanyStore(std::unique_ptr<StoreSession> session) : session_(std::move(session)) {}

CompanyStore::~CompanyStore() = default;

bool CompanyStore::isOnServer(std::string_view path) {
    return isServerAddress(path);
}

const std::string& CompanyStore::path() const {
    return session_->path();
}

const std::string& CompanyStore::backupPath() const {
    return session_->backupPath();
}

StoreResult<std::vector<CompanySummary>> CompanyStore::list() {
    return session_->reading<std::vector<CompanySummary>>(
        [&] { return allSummaries(session_->connection()); });
}

StoreResult<std::vector<CompanySummary>> CompanyStore::list(const ListQuery& query,
                                                            std::int64_t from, std::int64_t most) {
    return session_->reading<std::vector<CompanySummary>>(
        [&] { return summaryPage(session_->connection(), query, from, most); });
}

StoreResult<std::vector<CompanySummary>> CompanyStore::find(ListColumn column,
                                                            const std::string& text) {
    return session_->reading<std::vector<CompanySummary>>(
        [&] { return summariesWith(session_->connection(), column, text); });
}

StoreResult<std::int64_t> CompanyStore::count(const ListQuery& query) {
    return session_->number(selectCount(session_->connection().dialect(), query));
}

StoreResult<std::int64_t> CompanyStore::rank(const ListQuery& query, std::int64_t id) {
    return session_->number(selectRank(session_->connection().dialect(), query, id));
}

StoreResult<std::int64_t> CompanyStore::changeStamp() {
    return session_->number({session_->connection().dialect().changeStamp, {}});
}

StoreResult<LoadedCompany> CompanyStore::load(std::int64_t id) {
    return session_->reading<LoadedCompany>([&] { return session_->load(id); });
}

StoreResult<CompanyKey> CompanyStore::save(std::optional<std::int64_t> id,
                                           const CompanyRecord& record,
                                           std::int64_t expectedRevision,
                                           const SaveAccount& account) {
    const SaveRequest request{id, record.clone(), expectedRevision, account};
    return session_->change<CompanyKey>([&] { return session_->save(request); });
}

StoreResult<std::vector<CompanyKey>>
CompanyStore::saveAll(const std::vector<SaveRequest>& requests) {
    using Keys = std::vector<CompanyKey>;
    return session_->change<Keys>([&] {
        Keys keys;
        for (const SaveRequest& request : requests)
            keys.push_back(session_->save(request));
        return keys;
    });
}

StoreResult<CompanyKey> CompanyStore::duplicate(std::int64_t id) {
    return session_->change<CompanyKey>([&] {
        LoadedCompany original = session_->load(id);
        if (original.damage) // a copy would be as it was saved
            throw StoreFailure({StoreFault::corrupt,
                                original.damage->message +
                                    " Open it and save what it is to be, before it is copied.",
                                std::nullopt});
        SaveRequest request{std::nullopt, original.record, 0};
        request.account.rest.name = "Copy of " + calledName(*original.record);
        original.record->put_Name(original.record->get_Name() + " (copy)");
        request.account.origins = std::move(original.origins);
        const CompanyKey copy = session_->save(request);
        for (const FindingVerdict& verdict : original.calledRight)
            session_->verdicts().add(copy.id, verdict);
        return copy;
    });
}

StoreDone CompanyStore::remove(std::int64_t id, std::int64_t expectedRevision) {
    return session_->change<std::monostate>([&] {
        session_->remove(id, expectedRevision);
        return std::monostate();
    });
}

StoreResult<std::vector<HistoryGroup>> CompanyStore::history(std::int64_t id,
                                                             const HistoryQuery& query) {
    return session_->reading<std::vector<HistoryGroup>>(
        [&] { return session_->historyOf(id, query); });
}

StoreResult<HistoryExtent> CompanyStore::historyExtent(std::int64_t id) {
    return session_->reading<HistoryExtent>([&] { return session_->extentOf(id); });
}

StoreResult<HistoryState> CompanyStore::stateAfter(std::int64_t id, const HistoryGroup& group) {
    return session_->reading<HistoryState>([&]() -> StoreResult<HistoryState> {
        const auto replayed = session_->history().replay(id, group.revision, group.place);
        if (replayed.record == nullptr || !replayed.isSound)
            return describeFault(StoreFault::corrupt, session_->connection().location(),
                                 "the history of the company is damaged");
        return HistoryState(replayed);
    });
}

StoreDone CompanyStore::judge(std::int64_t id, const FindingVerdict& verdict) {
    return session_->change<std::monostate>([&] {
        session_->judge(id, verdict);
        return std::monostate();
    });
}

StoreResult<std::int64_t> CompanyStore::historyLimit() {
    return session_->reading<std::int64_t>([&] { return session_->history().limit(); });
}

StoreDone CompanyStore::setHistoryLimit(std::int64_t saves) {
    return session_->change<std::monostate>([&] {
        session_->history().setLimit(saves);
        return std::monostate();
    });
}

StoreResult<std::optional<CompanyDamage>> CompanyStore::check(std::int64_t id) {
    return session_->reading<std::optional<CompanyDamage>>([&] { return session_->check(id); });
}

StoreResult<std::vector<std::string>> CompanyStore::entries(StoreList list) {
    return session_->reading<std::vector<std::string>>(
        [&] { return session_->lists().entries(list); });
}

StoreResult<std::vector<std::string>> CompanyStore::used(StoreList list) {
    return session_->reading<std::vector<std::string>>(
        [&] { return session_->lists().used(list); });
}

StoreDone CompanyStore::addEntry(StoreList list, const std::string& text) {
    return session_->change<std::monostate>([&] {
        session_->lists().append(list, text);
        return std::monostate();
    });
}

StoreDone CompanyStore::removeEntry(StoreList list, const std::string& text) {
    return session_->change<std::monostate>([&] {
        session_->lists().remove(list, text);
        return std::monostate();
    });
}

StoreDone CompanyStore::setEntries(StoreList list, const std::vector<std::string>& texts) {
    return session_->change<std::monostate>([&] {
        session_->lists().clear(list);
        for (const std::string& text : texts)
            session_->lists().append(list, text);
        return std::monostate();
    });
}

} // namespace vkr
