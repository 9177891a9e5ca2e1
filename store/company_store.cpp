// SPDX-License-Identifier: MIT
#include "store/company_store.hpp"

#include "company/exact_text.hpp"
#include "platform/text.hpp"
#include "store/store_connection.hpp"
#include "store/store_listing.hpp"
#include "store/store_schema.hpp"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <map>
#include <set>
#include <stdexcept>
#include <system_error>
#include <tuple>

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

std::string localTime(const std::string& utc) {
    const QDateTime time = QDateTime::fromString(toQString(utc), Qt::ISODate);
    return time.isValid() ? time.toLocalTime().toString("yyyy-MM-dd HH:mm").toStdString() : utc;
}

std::string called(const std::string& name, const std::string& symbol) {
    if (!name.empty())
        return "“" + name + "”";
    return symbol.empty() ? "The company" : "“" + symbol + "”";
}

std::string called(const CompanyRecord& record) {
    return called(record.get_Name(), record.get_Symbol());
}

std::string enumerate(const std::vector<Difference>& differences) {
    static constexpr std::size_t most = 8;
    std::string text;
    std::size_t count = 0;
    std::string last;
    for (const Difference& difference : differences) {
        if (difference.datum == last)
            continue; // another element of the same series
        last = difference.datum;
        if (++count <= most)
            text += (text.empty() ? "" : ", ") + difference.datum;
    }
    return count > most ? text + " and " + std::to_string(count - most) + " more" : text;
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

// Opening

[[noreturn]] void fail(StoreFault fault, const StoreLocation& location,
                       const std::string& detail = {}) {
    throw StoreFailure(describeFault(fault, location, detail));
}

QString logOf(const StoreLocation& file) {
    return file.path + "-wal";
}

// A program that was killed leaves its log behind. Where the file was replaced since, by a copy
// from before, the two do not belong together.
void refuseStrangeLog(StoreConnection& connection, const StoreLocation& file) {
    const QString found = connection.damage();
    if (found.isEmpty())
        return;
    StoreError error = describeFault(StoreFault::corrupt, file, found.simplified().toStdString());
    const std::string log = QFileInfo(logOf(file)).fileName().toStdString();
    error.message += ". Beside it lies " + log +
                     ", which has to belong to it. If the file was put there as a copy, move that "
                     "one away and open it again";
    throw StoreFailure(error);
}

SchemaState inspectOnce(const StoreLocation& file, std::chrono::milliseconds patience) {
    const bool hasLog = QFileInfo(logOf(file)).size() > 0;
    StoreConnection connection(file, StoreConnection::Access::inspect, patience);
    const SchemaState state = inspectSchema(connection);
    if (hasLog && (state == SchemaState::current || state == SchemaState::older))
        refuseStrangeLog(connection, file);
    return state;
}

// Without a log a file is taken to be at rest. What is found wrong is looked at again where
// another program has begun to write meanwhile.
SchemaState inspect(const StoreLocation& file, std::chrono::milliseconds patience) {
    const auto looks = [&] {
        const QFileInfo info(file.path);
        return std::tuple(info.size(), info.lastModified(), QFileInfo::exists(logOf(file)));
    };
    static constexpr int mostAttempts = 10;
    for (int attempt = 1;; ++attempt) {
        const auto before = looks();
        const auto isAtRest = [&] { return attempt == mostAttempts || looks() == before; };
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

QString fileTime() {
    return QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
}

QString backupName(const QString& path) {
    const QFileInfo file(path);
    const QString stem =
        file.absolutePath() + "/" + file.completeBaseName() + "-backup-" + fileTime();
    const QString suffix = file.suffix().isEmpty() ? "" : "." + file.suffix();
    QString name = stem + suffix;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = stem + "-" + QString::number(number) + suffix;
    return name;
}

// With what the database lays beside it.
void removeFile(const QString& path) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(path + suffix);
}

// A copy is made by the database itself, which other windows may be writing to, and counts only
// when it was opened again and found sound.
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

void refuseWhatCannotBeOpened(const StoreLocation& location, OpenMode mode) {
    const QFileInfo file(location.path);
    if (!file.exists()) {
        if (mode == OpenMode::existing)
            fail(StoreFault::missing, location);
        if (!QDir().mkpath(file.absolutePath()))
            fail(StoreFault::readOnly, location);
    } else if (!file.isFile()) {
        fail(StoreFault::notADatabase, location);
    } else if (!file.isReadable()) {
        fail(StoreFault::other, location, "no permission to read it");
    } else if (file.size() == 0 && mode == OpenMode::existing) {
        fail(StoreFault::notADatabase, location, "it is empty");
    }
    if (!isWritableFile(location.path))
        fail(StoreFault::readOnly, location);
}

void refuseState(SchemaState state, const StoreLocation& location, OpenMode mode) {
    if (state == SchemaState::newer)
        fail(StoreFault::newerSchema, location);
    if (state == SchemaState::foreign)
        fail(StoreFault::notADatabase, location);
    if (state == SchemaState::empty && mode == OpenMode::existing)
        fail(location.dialect->isFile ? StoreFault::notADatabase : StoreFault::empty, location);
}

// The copy stands in the same database; within a transaction of the caller.
void copyTables(StoreConnection& connection, const QString& schema) {
    connection.execute("CREATE SCHEMA \"" + schema + "\"");
    for (const char* table : {"company", "series", "list_entry", "change_log", "listing"}) {
        const QString name = table;
        if (connection.integer("SELECT count(to_regclass('" + name + "'))") == 0)
            continue;
        const QString copy = "\"" + schema + "\"." + name;
        connection.execute("LOCK TABLE " + name + " IN SHARE ROW EXCLUSIVE MODE");
        connection.execute("CREATE TABLE " + copy + " AS TABLE " + name);
    }
}

struct Opening {
    std::unique_ptr<StoreConnection> connection;
    QString backup;
};

// A new file gets its name when it is whole: another program that makes the same one finds all of
// it or nothing, and what failed is taken away without taking away anybody else's.
void makeFile(const StoreLocation& file, std::chrono::milliseconds patience) {
    const QFileInfo place(file.path);
    StoreLocation made = file;
    made.path = place.absolutePath() + "/." + place.fileName() + "-" +
                QUuid::createUuid().toString(QUuid::WithoutBraces) + ".new";
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

Opening openFile(const StoreLocation& file, OpenMode mode, std::chrono::milliseconds patience) {
    refuseWhatCannotBeOpened(file, mode);
    if (!QFileInfo::exists(file.path))
        makeFile(file, patience);
    SchemaState state = SchemaState::empty;
    if (QFileInfo(file.path).size() > 0)
        state = inspect(file, patience);
    refuseState(state, file, mode);

    Opening opening;
    const auto access = mode == OpenMode::create ? StoreConnection::Access::create
                                                 : StoreConnection::Access::existing;
    opening.connection = std::make_unique<StoreConnection>(file, access, patience);
    if (state == SchemaState::current)
        return opening;
    const auto copyFirst = [&] {
        if (state == SchemaState::older)
            opening.backup = backUpFile(file, patience);
    };
    try {
        migrateSchema(*opening.connection, copyFirst);
    } catch (...) {
        if (!opening.backup.isEmpty())
            removeFile(opening.backup); // of a file that is as it was
        throw;
    }
    return opening;
}

Opening openOnServer(const StoreLocation& database, OpenMode mode,
                     std::chrono::milliseconds patience) {
    Opening opening;
    opening.connection =
        std::make_unique<StoreConnection>(database, StoreConnection::Access::existing, patience);
    StoreConnection& connection = *opening.connection;
    const SchemaState state = inspectSchema(connection);
    refuseState(state, database, mode);
    const auto copyFirst = [&] {
        const QString schema = "companies_before_update_" + fileTime();
        copyTables(connection, schema);
        opening.backup = schema;
    };
    if (state == SchemaState::older)
        migrateSchema(connection, copyFirst);
    else if (state == SchemaState::empty)
        migrateSchema(connection);
    return opening;
}

// Records and rows

QString columnList(const char* separator, const char* suffix) {
    QStringList names;
    for (const StoreColumn& column : storeColumns())
        names += "\"" + column.name + "\"" + suffix;
    return names.join(separator);
}

// As they are read; the revision and the number of figures come first.
QString selectCompany(const StoreDialect& dialect) {
    QStringList columns = {"revision", "figures"};
    for (const StoreColumn& column : storeColumns()) {
        const QString name = "\"" + column.name + "\"";
        columns += column.kind == StoreColumn::Kind::text
                       ? QString(dialect.whole).replace("%1", name)
                       : name;
    }
    return "SELECT " + columns.join(", ") + " FROM company WHERE id = ?";
}

QVariant columnValue(const CompanyRecord& record, const StoreColumn& column) {
    const auto* datum = std::get_if<Datum>(&column.content);
    const Variant value =
        datum != nullptr ? record.stored(*datum)
                         : record.get_Settings()->get(std::get<std::string_view>(column.content));
    switch (column.kind) {
    case StoreColumn::Kind::text:
        return textValue(value.toText());
    case StoreColumn::Kind::number:
        return value.toDouble();
    case StoreColumn::Kind::integer:
        if (value.varType() == Variant::vtBoolean)
            return value.toBoolean() ? 1 : 0;
        return value.toLong();
    case StoreColumn::Kind::date: {
        const std::string text = isoDateText(value.toDate());
        return text.empty() ? QVariant(QMetaType::fromType<QString>()) : textValue(text);
    }
    }
    return {};
}

Variant datumOf(const Statement& row, int place, StoreColumn::Kind kind) {
    switch (kind) {
    case StoreColumn::Kind::text:
        return row.text(place);
    case StoreColumn::Kind::number:
        return row.number(place);
    case StoreColumn::Kind::integer: {
        const auto value = row.integer(place);
        using Limits = std::numeric_limits<std::int16_t>;
        if (value < Limits::min() || value > Limits::max())
            throw std::out_of_range("no 16-bit number");
        return static_cast<std::int16_t>(value);
    }
    case StoreColumn::Kind::date: {
        if (row.isNull(place))
            return Date{};
        const auto date = dateFromIso(row.text(place));
        if (!date)
            throw std::invalid_argument("no date");
        return *date;
    }
    }
    return {};
}

void readColumns(const Statement& row, int first, LoadedCompany& loaded) {
    for (const StoreColumn& column : storeColumns()) {
        try {
            const Variant value = datumOf(row, first++, column.kind);
            if (const auto* datum = std::get_if<Datum>(&column.content))
                writeDatum(*loaded.record, *datum, value);
            else
                loaded.record->get_Settings()->put(std::get<std::string_view>(column.content),
                                                   value);
        } catch (const std::logic_error&) {
            loaded.unreadable.push_back(column.name.toStdString());
        }
    }
}

// `stated` is how many figures there have to be.
void readSeries(Statement& rows, const FigureCounts& stated, LoadedCompany& loaded) {
    struct Series {
        Variant figures;
        int missing;
    };
    std::map<std::string, Series, std::less<>> all;
    for (const DatumRow& row : datumTable())
        if (isSeries(row)) {
            const auto count = stated.find(row.name);
            all.emplace(row.name, Series{loaded.record->stored(row.datum),
                                         count == stated.end() ? 0 : count->second});
        }
    while (rows.next()) {
        const std::string name = rows.text(0);
        const auto found = all.find(name);
        const auto element = rows.integer(1);
        if (found != all.end() && element >= found->second.figures.array().lower() &&
            element <= found->second.figures.array().upper()) {
            found->second.figures.array().setNumber(static_cast<int>(element), rows.number(2));
            --found->second.missing;
        } else {
            loaded.unreadable.push_back(name);
        }
    }
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const Series& read = all.find(row.name)->second;
        try {
            writeDatum(*loaded.record, row.datum, read.figures);
            if (read.missing > 0)
                loaded.unreadable.emplace_back(row.name);
        } catch (const std::logic_error&) {
            loaded.unreadable.emplace_back(row.name);
        }
    }
}

// One row a figure that is not 0.
FigureCounts countFigures(const CompanyRecord& record) {
    FigureCounts counts;
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const VariantArray& series = record.stored(row.datum).array();
        int count = 0;
        for (int element = series.lower(); element <= series.upper(); ++element)
            count += series.number(element) != 0 ? 1 : 0;
        if (count > 0)
            counts.emplace(row.name, count);
    }
    return counts;
}

// In the order of the primary key, so that rows are put behind one another.
const std::vector<const DatumRow*>& seriesInOrderOfTheTable() {
    static const std::vector<const DatumRow*> rows = [] {
        std::vector<const DatumRow*> found;
        for (const DatumRow& row : datumTable())
            if (isSeries(row))
                found.push_back(&row);
        std::ranges::sort(found, {}, &DatumRow::name);
        return found;
    }();
    return rows;
}

// All figures of a company by one statement: its number, then every element of every series. A
// statement for each figure takes more time than all the rest of a save.
QString insertSeries(const StoreDialect& dialect) {
    const CompanyRecord bounds;
    QStringList rows;
    for (const DatumRow* row : seriesInOrderOfTheTable()) {
        const VariantArray& series = bounds.stored(row->datum).array();
        for (int element = series.lower(); element <= series.upper(); ++element)
            rows += QString("('%1', %2, CAST(? AS {number}))")
                        .arg(toQString(std::string(row->name)))
                        .arg(element);
    }
    return dialect.define("INSERT INTO series (company_id, series, element, value) "
                          "SELECT company, series, element, value "
                          "FROM (SELECT CAST(? AS {integer}) AS company) AS chosen, "
                          "(WITH given (series, element, value) AS (VALUES " +
                          rows.join(", ") + ") SELECT * FROM given) AS figures WHERE value <> 0");
}

QString summaryColumns(const StoreDialect& dialect) {
    QStringList columns = {"id", "revision"};
    for (const char* text :
         {"\"Name\"", "\"Symbol\"", "\"Exchange\"", "\"Industry\"", "\"Source\""})
        columns += QString(dialect.whole).replace("%1", text);
    columns +=
        {"\"LastFY\"", "\"LastFYDate\"", "\"CurrentPrice\"", "\"PriceUpdatedDate\"", "saved_at"};
    return columns.join(", ");
}

CompanySummary summaryOf(const Statement& row) {
    const auto date = [&](int column) { return dateFromIso(row.text(column)).value_or(Date{}); };
    int year = static_cast<int>(row.integer(7));
    if (const Date end = date(8); year == 0 && !isAbsent(end))
        year = civil(end).year;
    return {{row.integer(0), row.integer(1)},
            row.text(2),
            row.text(3),
            row.text(4),
            row.text(5),
            row.text(6),
            year,
            row.number(9),
            date(10),
            row.text(11)};
}

std::vector<CompanySummary> summariesOf(Statement& rows) {
    std::vector<CompanySummary> found;
    while (rows.next())
        found.push_back(summaryOf(rows));
    return found;
}

ListingRow listingOf(std::int64_t id, const CompanyRecord& record, const std::string& savedAt) {
    return {id,
            record.get_Name(),
            record.get_Symbol(),
            record.get_Exchange(),
            record.get_Industry(),
            record.stored(Datum::CurrentPrice).toDouble(),
            isoDateText(record.stored(Datum::PriceUpdatedDate).toDate()),
            savedAt};
}

struct ListNames {
    const char* kind;
    const char* column; // of the table of companies
};
// In the order of StoreList.
constexpr ListNames listNames[] = {
    {"exchange", "\"Exchange\""}, {"industry", "\"Industry\""}, {"source", "\"Source\""}};

const ListNames& namesOf(StoreList list) {
    return listNames[static_cast<std::size_t>(list)];
}

const char* kindText(StoreList list) {
    return namesOf(list).kind;
}

} // namespace

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
        const auto openIt = location.dialect->isFile ? openFile : openOnServer;
        Opening opening = openIt(location, mode, options.patience);
        return Opened(new CompanyStore(location, opening.backup.toStdString(),
                                       options.user.empty() ? currentUser() : options.user,
                                       std::move(opening.connection)));
    });
}

bool CompanyStore::isOnServer(std::string_view path) {
    return path.starts_with("postgresql://") || path.starts_with("postgres://");
}

// A save of which the answer got lost.
struct CompanyStore::Attempt {
    bool isNew;
    std::int64_t before; // the revision that it was made from
    CompanyKey key;      // as it is stored if the save was done
    std::shared_ptr<const CompanyRecord> record;
    bool isDone = false;
    bool isUsed = false; // by the transaction under way
};

CompanyStore::CompanyStore(const StoreLocation& location, std::string backupPath, std::string user,
                           std::unique_ptr<StoreConnection> connection)
    : location_(std::make_unique<StoreLocation>(location)), path_(location.name.toStdString()),
      backupPath_(std::move(backupPath)), user_(std::move(user)),
      insertSeries_(insertSeries(*location.dialect).toStdString()),
      selectCompany_(selectCompany(*location.dialect).toStdString()),
      connection_(std::move(connection)) {}

CompanyStore::~CompanyStore() = default;

template <typename Value, typename Function>
Value CompanyStore::changeOnce(Function function) {
    Transaction transaction(*connection_, Transaction::Kind::write);
    attempts_.clear();
    for (Attempt& attempt : settled_)
        attempt.isUsed = false;
    Value value = function();
    // A file that was moved away or deleted would take the save with it, without an error.
    if (location_->dialect->isFile && !QFileInfo::exists(location_->path))
        fail(StoreFault::missing, *location_, "it was moved or deleted while it was open");
    transaction.commit();
    std::erase_if(settled_, [](const Attempt& attempt) { return attempt.isUsed; });
    return value;
}

template <typename Value, typename Function>
StoreResult<Value> CompanyStore::change(Function function) {
    return guarded<Value>(*location_, [&] {
        settleUncertainSaves();
        try {
            return changeOnce<Value>(function);
        } catch (const StoreFailure& failure) {
            // A file that could not be opened for writing at one moment is tried once more.
            if (failure.error().fault == StoreFault::readOnly && location_->dialect->isFile &&
                isWritableFile(location_->path)) {
                connection_->reopen();
                return changeOnce<Value>(function);
            }
            if (failure.error().fault != StoreFault::uncertain || attempts_.size() != 1)
                throw;
            StoreError error = failure.error();
            error.attempted = attempts_.front().key;
            throw StoreFailure(error);
        }
    });
}

void CompanyStore::settleUncertainSaves() {
    if (connection_->uncertainTransaction() == 0)
        return;
    const auto isDone = connection_->settleTransaction();
    if (!isDone)
        fail(StoreFault::unreachable, *location_);
    for (Attempt& attempt : attempts_) {
        attempt.isDone = *isDone;
        settled_.push_back(std::move(attempt));
    }
    attempts_.clear();
}

// The attempt that a save repeats: under the key of it, or, a new company without, by its data.
CompanyStore::Attempt* CompanyStore::repeated(std::optional<std::int64_t> id,
                                              const CompanyRecord& record,
                                              std::int64_t expectedRevision) {
    for (Attempt& attempt : settled_)
        if (id ? attempt.key == CompanyKey{*id, expectedRevision}
               : attempt.isNew && attempt.isDone && sameAs(*attempt.record, record))
            return &attempt;
    return nullptr;
}

StoreResult<std::vector<CompanySummary>> CompanyStore::list() {
    return guarded<std::vector<CompanySummary>>(*location_, [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        const QString folded = connection_->dialect().folded;
        Statement rows(*connection_, "SELECT " + summaryColumns(connection_->dialect()) +
                                         " FROM company ORDER BY " +
                                         QString(folded).replace("%1", "\"Name\"") + ", " +
                                         QString(folded).replace("%1", "\"Symbol\"") + ", id");
        return summariesOf(rows);
    });
}

StoreResult<std::vector<CompanySummary>> CompanyStore::list(const ListQuery& query,
                                                            std::int64_t from, std::int64_t most) {
    return guarded<std::vector<CompanySummary>>(*location_, [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        const auto page = selectPage(connection_->dialect(), query,
                                     summaryColumns(connection_->dialect()), from, most);
        Statement rows(*connection_, page.text, page.values);
        return summariesOf(rows);
    });
}

StoreResult<std::int64_t> CompanyStore::count(const ListQuery& query) {
    return number(selectCount(connection_->dialect(), query));
}

StoreResult<std::int64_t> CompanyStore::rank(const ListQuery& query, std::int64_t id) {
    return number(selectRank(connection_->dialect(), query, id));
}

StoreResult<std::int64_t> CompanyStore::number(const ListingStatement& statement) {
    return guarded<std::int64_t>(*location_, [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        Statement row(*connection_, statement.text, statement.values);
        return row.next() ? row.integer(0) : 0;
    });
}

StoreResult<std::int64_t> CompanyStore::changeStamp() {
    return number({connection_->dialect().changeStamp, {}});
}

StoreResult<LoadedCompany> CompanyStore::load(std::int64_t id) {
    return guarded<LoadedCompany>(*location_, [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        return read(id);
    });
}

LoadedCompany CompanyStore::read(std::int64_t id) {
    LoadedCompany loaded{std::make_shared<CompanyRecord>(), 0, {}};
    FigureCounts stated;
    {
        Statement row(*connection_, toQString(selectCompany_), {qlonglong(id)});
        if (!row.next())
            failRemoved(id, "The company", StoreFault::missing);
        loaded.revision = row.integer(0);
        stated = figureCounts(row.text(1));
        readColumns(row, 2, loaded);
    }
    Statement rows(*connection_, "SELECT series, element, value FROM series WHERE company_id = ?",
                   {qlonglong(id)});
    readSeries(rows, stated, loaded);
    return loaded;
}

StoreResult<CompanyKey> CompanyStore::save(std::optional<std::int64_t> id,
                                           const CompanyRecord& record,
                                           std::int64_t expectedRevision) {
    return change<CompanyKey>([&] { return write(id, record, expectedRevision); });
}

StoreResult<std::vector<CompanyKey>>
CompanyStore::saveAll(const std::vector<SaveRequest>& requests) {
    using Keys = std::vector<CompanyKey>;
    return change<Keys>([&] {
        Keys keys;
        for (const SaveRequest& request : requests)
            keys.push_back(write(request.id, *request.record, request.expectedRevision));
        return keys;
    });
}

StoreResult<CompanyKey> CompanyStore::duplicate(std::int64_t id) {
    return change<CompanyKey>([&] {
        const LoadedCompany original = read(id);
        original.record->put_Name(original.record->get_Name() + " (copy)");
        return write(std::nullopt, *original.record, 0);
    });
}

StoreDone CompanyStore::remove(std::int64_t id, std::int64_t expectedRevision) {
    return change<std::monostate>([&] {
        const LoadedCompany stored = read(id);
        if (stored.revision != expectedRevision)
            failChanged(id, called(*stored.record), stored.revision, {});
        connection_->run("DELETE FROM company WHERE id = ?", {qlonglong(id)});
        log({id, stored.revision}, "removed", currentTime());
        return std::monostate();
    });
}

CompanyKey CompanyStore::write(std::optional<std::int64_t> id, const CompanyRecord& record,
                               std::int64_t expectedRevision) {
    static const QString marks = [] {
        QStringList all;
        for (std::size_t i = 0; i < storeColumns().size(); ++i)
            all += "?";
        return all.join(", ");
    }();
    static const QString insertCompany =
        "INSERT INTO company (revision, saved_by, saved_at, figures, " + columnList(", ", "") +
        ") VALUES (?, ?, ?, ?, " + marks + ") RETURNING id";
    static const QString updateCompany =
        "UPDATE company SET revision = ?, saved_by = ?, saved_at = ?, figures = ?, " +
        columnList(", ", " = ?") + " WHERE id = ?";

    if (Attempt* attempt = repeated(id, record, expectedRevision)) {
        attempt->isUsed = true;
        if (!id)
            return attempt->key;
        if (!attempt->isDone && attempt->isNew)
            id.reset();
        else if (!attempt->isDone)
            expectedRevision = attempt->before;
    }
    CompanyKey key{id.value_or(0), 1};
    if (id) {
        const std::int64_t stored = storedRevision(*id);
        if (stored == 0)
            failRemoved(*id, called(record), StoreFault::conflict);
        if (stored != expectedRevision) {
            const auto changes = differences(*read(*id).record, record);
            if (changes.empty())
                return {*id, stored};
            failChanged(*id, called(record), stored, changes);
        }
        key.revision = stored + 1;
    }
    const std::string time = currentTime();
    std::vector<QVariant> values = {qlonglong(key.revision), textValue(user_), textValue(time),
                                    textValue(figuresText(countFigures(record)))};
    for (const StoreColumn& column : storeColumns())
        values.push_back(columnValue(record, column));
    if (id) {
        values.emplace_back(qlonglong(*id));
        connection_->run(updateCompany, values);
        connection_->run("DELETE FROM series WHERE company_id = ?", {qlonglong(*id)});
    } else {
        Statement made(*connection_, insertCompany, values);
        made.next();
        key.id = made.integer(0);
    }
    writeSeries(key.id, record);
    writeListing(*connection_, listingOf(key.id, record, time));
    log(key, "saved", time);
    if (!location_->dialect->isFile)
        attempts_.push_back({!id, expectedRevision, key, record.clone()});
    return key;
}

void CompanyStore::writeSeries(std::int64_t id, const CompanyRecord& record) {
    std::vector<QVariant> values = {qlonglong(id)};
    for (const DatumRow* row : seriesInOrderOfTheTable()) {
        const VariantArray& series = record.stored(row->datum).array();
        for (int element = series.lower(); element <= series.upper(); ++element)
            values.emplace_back(series.number(element));
    }
    connection_->run(toQString(insertSeries_), values);
}

std::int64_t CompanyStore::storedRevision(std::int64_t id) {
    Statement row(*connection_, "SELECT revision FROM company WHERE id = ?", {qlonglong(id)});
    return row.next() ? row.integer(0) : 0;
}

void CompanyStore::log(const CompanyKey& key, const char* change, const std::string& time) {
    connection_->run(
        "INSERT INTO change_log (company_id, revision, change, changed_by, "
        "changed_at) VALUES (?, ?, ?, ?, ?)",
        {qlonglong(key.id), qlonglong(key.revision), change, textValue(user_), textValue(time)});
}

StoreConflict CompanyStore::lastChange(std::int64_t id) {
    Statement row(*connection_,
                  "SELECT changed_by, changed_at, change FROM change_log WHERE company_id = ? "
                  "ORDER BY id DESC LIMIT 1",
                  {qlonglong(id)});
    if (!row.next())
        return {};
    return {row.text(0), row.text(1), row.text(2) == "removed", 0, {}};
}

void CompanyStore::failChanged(std::int64_t id, const std::string& name, std::int64_t revision,
                               std::vector<Difference> changes) {
    StoreConflict conflict = lastChange(id);
    conflict.revision = revision;
    conflict.differences = std::move(changes);
    std::string message = name + " was saved by " + conflict.changedBy + " on " +
                          localTime(conflict.changedAt) +
                          " while it was open here. Nothing was changed now.";
    if (!conflict.differences.empty())
        message += " What differs: " + enumerate(conflict.differences) + ".";
    throw StoreFailure({StoreFault::conflict, message, conflict});
}

void CompanyStore::failRemoved(std::int64_t id, const std::string& name, StoreFault fault) {
    StoreConflict conflict = lastChange(id);
    std::string message = name + " is no longer in " + path_ + ".";
    if (conflict.isRemoved)
        message = name + " was removed by " + conflict.changedBy + " on " +
                  localTime(conflict.changedAt) + ".";
    conflict.isRemoved = true;
    if (fault == StoreFault::conflict)
        message += " Nothing was changed now; save it as a new company to keep it.";
    throw StoreFailure({fault, message, conflict});
}

StoreResult<std::vector<std::string>> CompanyStore::entries(StoreList list) {
    using Texts = std::vector<std::string>;
    return guarded<Texts>(*location_, [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        Statement rows(*connection_,
                       "SELECT " + QString(connection_->dialect().whole).replace("%1", "text") +
                           " FROM list_entry WHERE kind = ? ORDER BY position, text",
                       {kindText(list)});
        Texts texts;
        while (rows.next())
            texts.push_back(rows.text(0));
        return texts;
    });
}

StoreResult<std::vector<std::string>> CompanyStore::used(StoreList list) {
    using Texts = std::vector<std::string>;
    return guarded<Texts>(*location_, [&] {
        Transaction oneMoment(*connection_, Transaction::Kind::read);
        const QString column = namesOf(list).column;
        Statement rows(*connection_,
                       "SELECT DISTINCT " +
                           QString(connection_->dialect().whole).replace("%1", column) +
                           " FROM company WHERE " + column + " <> ''");
        Texts texts;
        while (rows.next())
            texts.push_back(rows.text(0));
        return texts;
    });
}

StoreDone CompanyStore::addEntry(StoreList list, const std::string& text) {
    return change<std::monostate>([&] {
        appendEntry(list, text);
        return std::monostate();
    });
}

StoreDone CompanyStore::removeEntry(StoreList list, const std::string& text) {
    return change<std::monostate>([&] {
        connection_->run("DELETE FROM list_entry WHERE kind = ? AND text = ?",
                         {kindText(list), textValue(text)});
        return std::monostate();
    });
}

StoreDone CompanyStore::setEntries(StoreList list, const std::vector<std::string>& texts) {
    return change<std::monostate>([&] {
        connection_->run("DELETE FROM list_entry WHERE kind = ?", {kindText(list)});
        for (const std::string& text : texts)
            appendEntry(list, text);
        return std::monostate();
    });
}

void CompanyStore::appendEntry(StoreList list, const std::string& text) {
    if (trimmed(text).empty())
        return;
    connection_->run("INSERT INTO list_entry (kind, position, text) "
                     "SELECT ?, 1 + coalesce(max(position), -1), ? FROM list_entry WHERE kind = ? "
                     "ON CONFLICT (kind, text) DO NOTHING",
                     {kindText(list), textValue(text), kindText(list)});
}

} // namespace vkr
