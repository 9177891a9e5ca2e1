// SPDX-License-Identifier: MIT
#include "store/company_store.hpp"

#include "store/change_log.hpp"
#include "store/company_file.hpp"
#include "store/company_summaries.hpp"
#include "store/company_table.hpp"
#include "store/entry_lists.hpp"
#include "store/fault_text.hpp"
#include "store/store_listing.hpp"
#include "store/store_opening.hpp"
#include "store/uncertain_saves.hpp"

#include <QDateTime>
#include <QFileInfo>
#include <QSysInfo>

#include <cassert>
#include <exception>
#include <utility>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;
using Transaction = StoreConnection::Transaction;

std::string currentUser() {
    QString user;
    for (const char* variable : {"USER", "LOGNAME", "USERNAME"})
        if (user.isEmpty())
            user = qEnvironmentVariable(variable);
    return ((user.isEmpty() ? "unknown" : user) + "@" + QSysInfo::machineHostName()).toStdString();
}

std::string currentTime() {
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toStdString();
}

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

} // namespace

// The tables behind one connection. An operation of the store is one `reading` or one `change`;
// what it does within throws, and changes nothing then.
//
// What may be true together: the outcome of a change is not known only on a server, and the next
// change settles it before anything else. Attempts are noted only there.
class CompanyStore::Impl {
  public:
    Impl(OpenedStore opened, const StoreOptions& options)
        : connection_(std::move(opened.connection)), isRehearsal_(options.isRehearsal),
          user_(options.user.empty() ? currentUser() : options.user),
          path_(connection_->location().name.toStdString()),
          backupPath_(opened.backup.toStdString()), companies_(*connection_), lists_(*connection_),
          log_(*connection_) {}

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] const std::string& backupPath() const { return backupPath_; }
    [[nodiscard]] StoreConnection& connection() { return *connection_; }
    [[nodiscard]] EntryLists& lists() { return lists_; }

    // Everything as it is at one moment, with the result of the function.
    template <typename Value, typename Function>
    StoreResult<Value> reading(Function function);
    StoreResult<std::int64_t> number(const ListingStatement& statement);
    // One transaction, with the result of the function.
    template <typename Value, typename Function>
    StoreResult<Value> change(Function function);

    LoadedCompany load(std::int64_t id);
    CompanyKey save(std::optional<std::int64_t> id, const CompanyRecord& record,
                    std::int64_t expectedRevision);
    void remove(std::int64_t id, std::int64_t expectedRevision);

  private:
    [[nodiscard]] bool isFile() const { return connection_->dialect().isFile; }
    [[nodiscard]] SaveStamp stamp() const { return {user_, currentTime()}; }
    template <typename Value, typename Function>
    Value changeOnce(Function function);
    void settleUncertainSaves();

    const std::unique_ptr<StoreConnection> connection_;
    const bool isRehearsal_;
    const std::string user_;
    const std::string path_;
    const std::string backupPath_;
    CompanyTable companies_;
    EntryLists lists_;
    ChangeLog log_;
    UncertainSaves uncertain_;
};

template <typename Value, typename Function>
StoreResult<Value> CompanyStore::Impl::reading(Function function) {
    return guarded<Value>(connection_->location(), [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        return function();
    });
}

StoreResult<std::int64_t> CompanyStore::Impl::number(const ListingStatement& statement) {
    return reading<std::int64_t>([&] {
        Statement row(*connection_, statement.text, statement.values);
        return row.next() ? row.integer(0) : 0;
    });
}

template <typename Value, typename Function>
Value CompanyStore::Impl::changeOnce(Function function) {
    const StoreLocation& location = connection_->location();
    Transaction transaction(*connection_, Transaction::Kind::write);
    uncertain_.begin();
    Value value = function();
    // A file that was moved away or deleted would take the save with it, without an error.
    if (isFile() && !QFileInfo::exists(location.path))
        fail(StoreFault::missing, location, "it was moved or deleted while it was open");
    if (isRehearsal_)
        return value; // the transaction ends without a commit
    transaction.commit();
    uncertain_.forgetRepeated();
    return value;
}

template <typename Value, typename Function>
StoreResult<Value> CompanyStore::Impl::change(Function function) {
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

void CompanyStore::Impl::settleUncertainSaves() {
    if (connection_->uncertainTransaction() == 0)
        return;
    assert(!isFile());
    const auto isDone = connection_->settleTransaction();
    if (!isDone)
        fail(StoreFault::unreachable, connection_->location());
    uncertain_.settle(*isDone);
}

LoadedCompany CompanyStore::Impl::load(std::int64_t id) {
    auto loaded = companies_.read(id);
    if (!loaded)
        log_.failMissing(id);
    return std::move(*loaded);
}

CompanyKey CompanyStore::Impl::save(std::optional<std::int64_t> id, const CompanyRecord& record,
                                    std::int64_t expectedRevision) {
    const auto wanted = uncertain_.repeat(id, record, expectedRevision);
    if (wanted.done)
        return *wanted.done;
    CompanyKey key{wanted.id.value_or(0), 1};
    const SaveStamp saved = stamp();
    if (wanted.id) {
        const std::int64_t stored = companies_.revision(key.id);
        if (stored == 0)
            log_.failRemoved(key.id, record);
        if (stored != wanted.expectedRevision) {
            const auto changes = differences(*load(key.id).record, record);
            if (changes.empty())
                return {key.id, stored};
            log_.failSaved({key.id, stored}, record, changes);
        }
        key.revision = stored + 1;
        companies_.update(key, record, saved);
    } else {
        key.id = companies_.insert(record, saved);
    }
    writeListing(*connection_, listingOf(key.id, record, saved.time));
    log_.add(key, ChangeLog::Change::saved, saved);
    if (!isFile())
        uncertain_.add({!wanted.id, wanted.expectedRevision, key, record.clone()});
    return key;
}

void CompanyStore::Impl::remove(std::int64_t id, std::int64_t expectedRevision) {
    const LoadedCompany stored = load(id);
    if (stored.revision != expectedRevision)
        log_.failSaved({id, stored.revision}, *stored.record, {});
    companies_.remove(id);
    log_.add({id, stored.revision}, ChangeLog::Change::removed, stamp());
}

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
        return Opened(
            new CompanyStore(std::make_unique<Impl>(openStore(location, mode, options), options)));
    });
}

CompanyStore::CompanyStore(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

CompanyStore::~CompanyStore() = default;

bool CompanyStore::isOnServer(std::string_view path) {
    return isServerAddress(path);
}

const std::string& CompanyStore::path() const {
    return impl_->path();
}

const std::string& CompanyStore::backupPath() const {
    return impl_->backupPath();
}

StoreResult<std::vector<CompanySummary>> CompanyStore::list() {
    return impl_->reading<std::vector<CompanySummary>>(
        [&] { return allSummaries(impl_->connection()); });
}

StoreResult<std::vector<CompanySummary>> CompanyStore::list(const ListQuery& query,
                                                            std::int64_t from, std::int64_t most) {
    return impl_->reading<std::vector<CompanySummary>>(
        [&] { return summaryPage(impl_->connection(), query, from, most); });
}

StoreResult<std::vector<CompanySummary>> CompanyStore::find(ListColumn column,
                                                            const std::string& text) {
    return impl_->reading<std::vector<CompanySummary>>(
        [&] { return summariesWith(impl_->connection(), column, text); });
}

StoreResult<std::int64_t> CompanyStore::count(const ListQuery& query) {
    return impl_->number(selectCount(impl_->connection().dialect(), query));
}

StoreResult<std::int64_t> CompanyStore::rank(const ListQuery& query, std::int64_t id) {
    return impl_->number(selectRank(impl_->connection().dialect(), query, id));
}

StoreResult<std::int64_t> CompanyStore::changeStamp() {
    return impl_->number({impl_->connection().dialect().changeStamp, {}});
}

StoreResult<LoadedCompany> CompanyStore::load(std::int64_t id) {
    return impl_->reading<LoadedCompany>([&] { return impl_->load(id); });
}

StoreResult<CompanyKey> CompanyStore::save(std::optional<std::int64_t> id,
                                           const CompanyRecord& record,
                                           std::int64_t expectedRevision) {
    return impl_->change<CompanyKey>([&] { return impl_->save(id, record, expectedRevision); });
}

StoreResult<std::vector<CompanyKey>>
CompanyStore::saveAll(const std::vector<SaveRequest>& requests) {
    using Keys = std::vector<CompanyKey>;
    return impl_->change<Keys>([&] {
        Keys keys;
        for (const SaveRequest& request : requests)
            keys.push_back(impl_->save(request.id, *request.record, request.expectedRevision));
        return keys;
    });
}

StoreResult<CompanyKey> CompanyStore::duplicate(std::int64_t id) {
    return impl_->change<CompanyKey>([&] {
        const LoadedCompany original = impl_->load(id);
        original.record->put_Name(original.record->get_Name() + " (copy)");
        return impl_->save(std::nullopt, *original.record, 0);
    });
}

StoreDone CompanyStore::remove(std::int64_t id, std::int64_t expectedRevision) {
    return impl_->change<std::monostate>([&] {
        impl_->remove(id, expectedRevision);
        return std::monostate();
    });
}

StoreResult<std::vector<std::string>> CompanyStore::entries(StoreList list) {
    return impl_->reading<std::vector<std::string>>([&] { return impl_->lists().entries(list); });
}

StoreResult<std::vector<std::string>> CompanyStore::used(StoreList list) {
    return impl_->reading<std::vector<std::string>>([&] { return impl_->lists().used(list); });
}

StoreDone CompanyStore::addEntry(StoreList list, const std::string& text) {
    return impl_->change<std::monostate>([&] {
        impl_->lists().append(list, text);
        return std::monostate();
    });
}

StoreDone CompanyStore::removeEntry(StoreList list, const std::string& text) {
    return impl_->change<std::monostate>([&] {
        impl_->lists().remove(list, text);
        return std::monostate();
    });
}

StoreDone CompanyStore::setEntries(StoreList list, const std::vector<std::string>& texts) {
    return impl_->change<std::monostate>([&] {
        impl_->lists().clear(list);
        for (const std::string& text : texts)
            impl_->lists().append(list, text);
        return std::monostate();
    });
}

} // namespace vkr
