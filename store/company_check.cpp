// SPDX-License-Identifier: MIT
#include "store/company_check.hpp"

#include "record/datum_titles.hpp"
#include "store/change_log.hpp"
#include "store/store_listing.hpp"
#include "store/store_text.hpp"

#include <limits>

namespace vkr {

namespace {

CompanyDamage found(std::int64_t id, const LoadedCompany& company) {
    return {{id, company.revision}, calledName(*company.record), {}};
}

std::string shown(const std::string& value) {
    return value.empty() ? "nothing" : value.size() > 40 ? value.substr(0, 40) + "..." : value;
}

std::string told(const std::vector<HistoryChange>& differences) {
    static constexpr std::size_t most = 8;
    std::string text;
    for (std::size_t i = 0; i < std::min(most, differences.size()); ++i) {
        const HistoryChange& one = differences[i];
        text += (i == 0 ? "" : "; ") + calledDatum(one.datum) + whichFigure(one) +
                " was saved as " + shown(one.after) + ", stored is " + shown(one.before);
    }
    return differences.size() > most
               ? text + " and " + std::to_string(differences.size() - most) + " more"
               : text;
}

} // namespace

CompanyDamage damageOf(std::int64_t id, const CompanyTable::Row& row, HistoryTable& history) {
    CompanyDamage damage = found(id, row.company);
    damage.message = damage.name + " is not as it was saved: the database is damaged, or something "
                                   "else than this program has written to it. ";
    const auto replayed = history.replay(id, std::numeric_limits<std::int64_t>::max());
    if (replayed.record == nullptr || !replayed.isSound) {
        damage.message += "Its history is damaged, too; what can be read of it may still help. "
                          "Compare the figures with where they came from, or take the company from "
                          "a backup.";
        return damage;
    }
    damage.saved = replayed;
    damage.differences = changesByPeriod(*row.company.record, *replayed.record);
    if (damage.differences.empty())
        damage.message += "Its figures are those that the history has. What differs stands beside "
                          "them: who saved it when, or where the figures come from.";
    else
        damage.message +=
            "The history is sound and has what was saved last. " +
            std::string(damage.differences.size() == 1 ? "One value differs: " : "What differs: ") +
            told(damage.differences) + ".";
    return damage;
}

ChangeGroup changedOutside(const CompanyRecord& saved, const CompanyRecord& stored) {
    ChangeGroup group = elementByElement(changesBetween(
        saved, stored, {Origin::typed, "Found changed: by damage, or by another program", {}}));
    for (Change& change : group.changes)
        change.origin.reset();
    return group;
}

std::optional<CompanyDamage> checkCompany(StoreConnection& connection, CompanyTable& companies,
                                          HistoryTable& history, FindingVerdicts& verdicts,
                                          std::int64_t id) {
    const auto row = companies.read(id);
    if (!row)
        return std::nullopt; // removed meanwhile
    if (!row->isAsSaved)
        return damageOf(id, *row, history);
    CompanyDamage damage = found(id, row->company);
    const auto replayed = history.replay(id, std::numeric_limits<std::int64_t>::max());
    if (replayed.record == nullptr || !replayed.isSound ||
        replayed.revision != row->company.revision ||
        !sameAs(*replayed.record, *row->company.record)) {
        damage.message =
            "The history of " + damage.name + " is damaged. Its figures are as they were saved.";
        return damage;
    }
    if (!verdicts.of(id).isSound) {
        damage.message = "What was called right of " + damage.name +
                         " is damaged. Its figures are as they were saved.";
        return damage;
    }
    StoreConnection::Statement logged(
        connection,
        "SELECT count(*) FROM change_log WHERE company_id = ? AND revision = ? AND "
        "change = 'saved' AND changed_by = ? AND changed_at = ?",
        {qlonglong(id), qlonglong(row->company.revision), textValue(row->saved.user),
         textValue(row->saved.time)});
    if (!logged.next() || logged.integer(0) == 0) {
        damage.message =
            "Who saved " + damage.name + " last is damaged. Its figures are as they were saved.";
        return damage;
    }
    if (!isListed(connection, listingOf(id, *row->company.record, row->saved.time))) {
        damage.message = "The list shows " + damage.name +
                         " in another way than it was saved. Saving it again mends that.";
        return damage;
    }
    return std::nullopt;
}

} // namespace vkr
