// SPDX-License-Identifier: MIT
#include "store/store_opening.hpp"

#include "store/company_file.hpp"
#include "store/fault_text.hpp"
#include "store/store_backup.hpp"
#include "store/store_schema.hpp"

#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace vkr {

namespace {

// A program that was killed leaves its log behind. Where the file was replaced since, by a copy
// from before, the two do not belong together.
void refuseStrangeLog(StoreConnection& connection, const StoreLocation& file) {
    const QString found = connection.damage();
    if (found.isEmpty())
        return;
    StoreError error = describeFault(StoreFault::corrupt, file, found.simplified().toStdString());
    const std::string log = QFileInfo(logOf(file.path)).fileName().toStdString();
    error.message += ". Beside it lies " + log +
                     ", which has to belong to it. If the file was put there as a copy, move that "
                     "one away and open it again";
    throw StoreFailure(error);
}

SchemaState inspectOnce(const StoreLocation& file, std::chrono::milliseconds patience) {
    const bool hasLog = QFileInfo(logOf(file.path)).size() > 0;
    StoreConnection connection(file, StoreConnection::Access::inspect, patience);
    const SchemaState state = inspectSchema(connection);
    if (hasLog && (state == SchemaState::current || state == SchemaState::older))
        refuseStrangeLog(connection, file);
    return state;
}

// Without a log a file is taken to be at rest. What is found wrong is looked at again where
// another program has begun to write meanwhile.
SchemaState inspect(const StoreLocation& file, std::chrono::milliseconds patience) {
    static constexpr int mostAttempts = 10;
    for (int attempt = 1;; ++attempt) {
        const FileLooks before = looksOf(file.path);
        const auto isAtRest = [&] {
            return attempt == mostAttempts || looksOf(file.path) == before;
        };
        try {
            const SchemaState state = inspectOnce(file, patience);
            const bool isSuspect = state == SchemaState::empty || state == SchemaState::foreign;
            if (!isSuspect || isAtRest())
                return state;
        } catch (const StoreFailure&) {
            if (isAtRest())
                throw;
        }
    }
}

void refuseWhatCannotBeOpened(const StoreLocation& location, OpenMode mode) {
    const QFileInfo file(location.path);
    if (!file.exists()) {
        if (mode != OpenMode::create)
            fail(StoreFault::missing, location);
        if (!QDir().mkpath(file.absolutePath()))
            fail(StoreFault::readOnly, location);
    } else if (!file.isFile()) {
        fail(StoreFault::notADatabase, location);
    } else if (!file.isReadable()) {
        fail(StoreFault::other, location, "no permission to read it");
    } else if (file.size() == 0 && mode != OpenMode::create) {
        fail(StoreFault::notADatabase, location, "it is empty");
    }
    if (mode != OpenMode::reading && !isWritableFile(location.path))
        fail(StoreFault::readOnly, location);
}

void refuseState(SchemaState state, const StoreLocation& location, OpenMode mode,
                 const StoreOptions& options) {
    if (state == SchemaState::older && options.isRehearsal)
        fail(StoreFault::other, location,
             "it is of an older version, and opening it to stay would bring it up to date first");
    if (state == SchemaState::newer)
        fail(StoreFault::newerSchema, location);
    if (state == SchemaState::foreign)
        fail(StoreFault::notADatabase, location);
    if (state == SchemaState::empty && mode != OpenMode::create)
        fail(location.dialect->isFile ? StoreFault::notADatabase : StoreFault::empty, location);
}

// A new file gets its name when it is whole: another program that makes the same one finds all of
// it or nothing, and what failed is taken away without taking away anybody else's.
void makeFile(const StoreLocation& file, std::chrono::milliseconds patience) {
    StoreLocation made = file;
    made.path = unfinishedName(file.path);
    try {
        StoreConnection connection(made, StoreConnection::Access::create, patience);
        migrateSchema(connection);
        connection.emptyLog();
    } catch (...) {
        removeFile(made.path);
        throw;
    }
    const auto pathOf = [](const QString& path) {
        return std::filesystem::path(path.toStdU16String());
    };
    // Where another program was faster, theirs is opened. Where the file system knows no links,
    // the file is made in its place.
    std::error_code ignored;
    std::filesystem::create_hard_link(pathOf(made.path), pathOf(file.path), ignored);
    removeFile(made.path);
}

OpenedStore openFile(const StoreLocation& file, OpenMode mode, const StoreOptions& options) {
    const std::chrono::milliseconds patience = options.patience;
    refuseWhatCannotBeOpened(file, mode);
    if (!QFileInfo::exists(file.path))
        makeFile(file, patience);
    SchemaState state = SchemaState::empty;
    if (QFileInfo(file.path).size() > 0)
        state = inspect(file, patience);
    refuseState(state, file, mode, options);

    OpenedStore opened;
    if (mode == OpenMode::reading && !isWritableFile(file.path)) {
        if (state != SchemaState::current)
            fail(StoreFault::readOnly, file,
                 "it is of an older version, and would have to be brought up to date first");
        opened.connection =
            std::make_unique<StoreConnection>(file, StoreConnection::Access::inspect, patience);
        return opened;
    }
    const auto access = mode == OpenMode::create ? StoreConnection::Access::create
                                                 : StoreConnection::Access::existing;
    opened.connection = std::make_unique<StoreConnection>(file, access, patience);
    if (state == SchemaState::current)
        return opened;
    const auto copyFirst = [&] {
        if (state == SchemaState::older)
            opened.backup = backUpFile(file, patience);
    };
    try {
        migrateSchema(*opened.connection, copyFirst);
    } catch (...) {
        if (!opened.backup.isEmpty())
            removeFile(opened.backup); // of a file that is as it was
        throw;
    }
    return opened;
}

OpenedStore openOnServer(const StoreLocation& database, OpenMode mode,
                         const StoreOptions& options) {
    OpenedStore opened;
    opened.connection = std::make_unique<StoreConnection>(
        database, StoreConnection::Access::existing, options.patience);
    StoreConnection& connection = *opened.connection;
    const SchemaState state = inspectSchema(connection);
    refuseState(state, database, mode, options);
    const auto copyFirst = [&] { opened.backup = backUpTables(connection); };
    if (state == SchemaState::older)
        migrateSchema(connection, copyFirst);
    else if (state == SchemaState::empty)
        migrateSchema(connection);
    return opened;
}

} // namespace

OpenedStore openStore(const StoreLocation& location, OpenMode mode, const StoreOptions& options) {
    if (options.isRehearsal && mode == OpenMode::create)
        mode = OpenMode::existing;
    return location.dialect->isFile ? openFile(location, mode, options)
                                    : openOnServer(location, mode, options);
}

} // namespace vkr
