// SPDX-License-Identifier: MIT
#include "store/store_session.hpp"

#include "store/company_check.hpp"
#include "store/exact_groups.hpp"

#include <QDateTime>
#include <QSysInfo>

#include <algorithm>
#include <cassert>
#include <pwd.h>
#include <unistd.h>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

std::string currentUser() {
    QString user;
    for (const char* variable : {"USER", "LOGNAME", "USERNAME"})
        if (user.isEmpty())
            user = qEnvironmentVariable(variable);
    if (user.isEmpty()) // as in a service or a timed job
        if (const passwd* account = ::getpwuid(::geteuid()))
            user = QString::fromLocal8Bit(account->pw_name);
    return ((user.isEmpty() ? "unknown" : user) + "@" + QSysInfo::machineHostName()).toStdString();
}

std::string currentTime() {
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toStdString();
}

} // namespace

StoreSession::StoreSession(OpenedStore opened, const StoreOptions& options)
    : connection_(std::move(opened.connection)), isRehearsal_(options.isRehearsal),
      user_(options.user.empty() ? currentUser() : options.user),
      path_(connection_->location().name.toStdString()), backupPath_(opened.backup.toStdString()),
      companies_(*connection_), lists_(*connection_), log_(*connection_), history_(*connection_),
      verdicts_(*connection_) {}

SaveStamp StoreSession::stamp() const {
    return {user_, currentTime()};
}

StoreResult<std::int64_t> StoreSession::number(const ListingStatement& statement) {
    return reading<std::int64_t>([&] {
        Statement row(*connection_, statement.text, statement.values);
        return row.next() ? row.integer(0) : 0;
    });
}

void StoreSession::checkInvariants() const {
    assert(!isFile() || connection_->uncertainTransaction() == 0);
    assert(!isFile() || uncertain_.isEmpty());
}

void StoreSession::settleUncertainSaves() {
    checkInvariants();
    if (connection_->uncertainTransaction() == 0)
        return;
    const auto isDone = connection_->settleTransaction();
    if (!isDone)
        fail(StoreFault::unreachable, connection_->location());
    uncertain_.settle(*isDone);
}

LoadedCompany StoreSession::load(std::int64_t id) {
    auto row = companies_.read(id);
    if (!row)
        log_.failMissing(id);
    LoadedCompany& loaded = row->company;
    std::shared_ptr<const CompanyRecord> lastSaved;
    if (!row->isAsSaved) {
        loaded.damage = damageOf(id, *row, history_);
        if (!loaded.damage->differences.empty()) {
            lastSaved = loaded.damage->saved.record->clone();
            loaded.origins.note(changedOutside(*lastSaved, *loaded.record));
        }
    }
    loaded.calledRight = verdicts_.standing(id);
    recent_.note({{id, loaded.revision}, loaded.record->clone(), loaded.origins, lastSaved});
    return std::move(loaded);
}

std::optional<CompanyDamage> StoreSession::check(std::int64_t id) {
    if (companies_.revision(id) == 0)
        log_.failMissing(id);
    return checkCompany(*connection_, companies_, history_, verdicts_, id);
}

StoredState StoreSession::storedState(const CompanyKey& key) {
    if (recent_.find(key) == nullptr)
        static_cast<void>(load(key.id));
    return *recent_.find(key);
}

CompanyKey StoreSession::save(const SaveRequest& request) {
    const CompanyRecord& record = *request.record;
    const auto wanted = uncertain_.repeat(request.id, record, request.expectedRevision);
    if (wanted.done)
        return *wanted.done;
    StoredState stored{{wanted.id.value_or(0), 0}, nullptr, {}};
    if (wanted.id) {
        stored.key.revision = companies_.revision(*wanted.id);
        if (stored.key.revision == 0)
            log_.failRemoved(*wanted.id, record);
        if (stored.key.revision != wanted.expectedRevision) {
            const auto theirs = load(*wanted.id).record;
            if (sameAs(*theirs, record))
                return stored.key;
            log_.failSaved(stored.key, record, changesByPeriod(*theirs, record));
        }
        stored = storedState(stored.key);
    } else {
        stored.record = std::make_shared<CompanyRecord>();
    }
    const CompanyKey key = write(stored, request);
    if (!isFile())
        uncertain_.add({!wanted.id, wanted.expectedRevision, key, record.clone()});
    return key;
}

CompanyKey StoreSession::write(const StoredState& stored, const SaveRequest& request) {
    const bool isNew = stored.key.id == 0;
    const auto record = request.record->clone();
    auto groups = exactGroups(*stored.record, *record, request.account);
    const bool isChangedOutside = stored.lastSaved != nullptr;
    if (isChangedOutside) // else the history would not lead to what is stored
        groups.insert(groups.begin(), changedOutside(*stored.lastSaved, *stored.record));
    FigureOrigins origins = stored.origins;
    if (request.account.origins)
        origins = *request.account.origins;
    else
        for (const ChangeGroup& group : groups)
            origins.note(group);
    const SaveStamp saved = stamp();
    const SavedCompany company{*record, origins.text(), saved};
    CompanyKey key{stored.key.id, stored.key.revision + 1};
    if (isNew)
        key.id = companies_.insert(company);
    else
        companies_.update(key, company);
    const CompanyRecord& before = isChangedOutside ? *stored.lastSaved : *stored.record;
    const bool isCopy = isNew && request.account.origins && groups.size() == 1;
    history_.add(key, saved.user,
                 savedGroups(before, groups, saved.time, isCopy ? &origins : nullptr));
    if (const auto until = history_.shorten(key))
        verdicts_.shorten(key.id, *until);
    writeListing(*connection_, listingOf(key.id, *record, saved.time));
    log_.add(key, ChangeLog::Change::saved, saved);
    recent_.note({key, record, std::move(origins), nullptr});
    return key;
}

void StoreSession::judge(std::int64_t id, FindingVerdict verdict) {
    if (companies_.revision(id) == 0)
        log_.failMissing(id);
    const SaveStamp said = stamp();
    verdict.user = said.user;
    verdict.time = said.time;
    verdicts_.add(id, verdict);
}

std::vector<HistoryGroup> StoreSession::historyOf(std::int64_t id, const HistoryQuery& query) {
    std::vector<HistoryGroup> all = history_.groups(id, query);
    for (FindingVerdict& said : verdicts_.of(id).verdicts) {
        HistoryGroup group{0, 0, {}, said.user, said.time, {}, {}};
        if (!isAsked(group, query) || !isAsked(said, query))
            continue;
        group.verdict = std::move(said);
        const auto earlier = std::ranges::find_if(
            all, [&](const HistoryGroup& one) { return one.time <= group.time; });
        all.insert(earlier, std::move(group));
    }
    return all;
}

HistoryExtent StoreSession::extentOf(std::int64_t id) {
    HistoryExtent extent = history_.extent(id);
    for (const FindingVerdict& said : verdicts_.of(id).verdicts) {
        ++extent.groups;
        for (const std::string* text :
             {&said.finding, &said.text, &said.datum, &said.period, &said.user, &said.time})
            extent.bytes += std::ssize(*text);
        extent.bytes += 32; // numbers, as the others are reckoned
    }
    return extent;
}

void StoreSession::remove(std::int64_t id, std::int64_t expectedRevision) {
    const LoadedCompany stored = load(id);
    if (stored.revision != expectedRevision)
        log_.failSaved({id, stored.revision}, *stored.record, {});
    companies_.remove(id);
    log_.add({id, stored.revision}, ChangeLog::Change::removed, stamp());
}

} // namespace vkr
