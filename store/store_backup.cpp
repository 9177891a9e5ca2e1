// SPDX-License-Identifier: MIT
#include "store/store_backup.hpp"

#include "store/company_file.hpp"
#include "store/fault_text.hpp"

#include <QFile>

namespace vkr {

QString backUpFile(const StoreLocation& file, std::chrono::milliseconds patience) {
    StoreLocation copy = file;
    copy.path = backupName(file.path);
    if (!QFile(copy.path).open(QIODevice::WriteOnly | QIODevice::NewOnly))
        fail(StoreFault::readOnly, file, "a copy of it could not be made");
    try {
        const QString countCompanies = "SELECT count(*) FROM company";
        StoreConnection original(file, StoreConnection::Access::inspect, patience);
        original.copyTo(copy.path);
        StoreConnection made(copy, StoreConnection::Access::inspect, patience);
        if (const QString damage = made.damage(); !damage.isEmpty())
            fail(StoreFault::corrupt, file, damage.toStdString());
        if (made.integer(countCompanies) != original.integer(countCompanies))
            fail(StoreFault::other, file, "the backup copy is not complete");
    } catch (...) {
        removeFile(copy.path);
        throw;
    }
    return copy.path;
}

QString backUpTables(StoreConnection& connection) {
    const QString schema = "companies_before_update_" + timeInName();
    connection.execute("CREATE SCHEMA \"" + schema + "\"");
    for (const char* table :
         {"company", "series", "list_entry", "change_log", "listing", "change_group",
          "figure_change", "finding_verdict", "store_setting"}) {
        const QString name = table;
        if (connection.integer("SELECT count(to_regclass('" + name + "'))") == 0)
            continue;
        const QString copy = "\"" + schema + "\"." + name;
        connection.execute("LOCK TABLE " + name + " IN SHARE ROW EXCLUSIVE MODE");
        connection.execute("CREATE TABLE " + copy + " AS TABLE " + name);
    }
    return schema;
}

} // namespace vkr
