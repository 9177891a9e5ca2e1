// SPDX-License-Identifier: MIT
#include "store/company_table.hpp"

#include "company/exact_text.hpp"
#include "store/company_checksum.hpp"
#include "store/figure_counts.hpp"
#include "store/store_columns.hpp"
#include "store/store_text.hpp"

#include <QStringList>

#include <algorithm>
#include <limits>
#include <map>
#include <stdexcept>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

QString columnList(const char* separator, const char* suffix) {
    QStringList names;
    for (const StoreColumn& column : storeColumns())
        names += "\"" + column.name + "\"" + suffix;
    return names.join(separator);
}

// As they are read: what stands beside the data comes first.
constexpr int firstDatum = 6;
QString companySelection(const StoreDialect& dialect) {
    QStringList columns = {"revision", "checksum"};
    for (const char* text : {"figures", "saved_by", "saved_at", "origins"})
        columns += dialect.wholeText(text);
    for (const StoreColumn& column : storeColumns()) {
        const QString name = "\"" + column.name + "\"";
        columns += column.kind == StoreColumn::Kind::text ? dialect.wholeText(name) : name;
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

// All figures of a company by one statement: every element of every series, then its number. A
// statement for each figure takes more time than all the rest of a save, and a join with the number
// would put the figures into a table of its own first.
QString seriesInsertion(const StoreDialect& dialect) {
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
                          "WITH given (series, element, value) AS (VALUES " +
                          rows.join(", ") +
                          ") SELECT CAST(? AS {integer}), series, element, value FROM given "
                          "WHERE value <> 0");
}

QString companyInsertion() {
    QStringList marks;
    for (std::size_t i = 0; i < storeColumns().size(); ++i)
        marks += "?";
    return "INSERT INTO company (revision, saved_by, saved_at, figures, origins, " +
           columnList(", ", "") + ") VALUES (?, ?, ?, ?, ?, " + marks.join(", ") + ") RETURNING id";
}

QString companyUpdate() {
    return "UPDATE company SET revision = ?, saved_by = ?, saved_at = ?, figures = ?, origins = "
           "?, " +
           columnList(", ", " = ?") + ", checksum = ? WHERE id = ?";
}

// For the statements above, but for what stands at the end of an update.
std::vector<QVariant> valuesOf(std::int64_t revision, const SavedCompany& company,
                               const std::string& figures) {
    std::vector<QVariant> values = {qlonglong(revision), textValue(company.stamp.user),
                                    textValue(company.stamp.time), textValue(figures),
                                    textValue(company.origins)};
    for (const StoreColumn& column : storeColumns())
        values.push_back(columnValue(company.record, column));
    return values;
}

std::int64_t sealOf(const CompanyKey& key, const SavedCompany& company,
                    const std::string& figures) {
    return checksumOf({key.id, key.revision, company.stamp.user, company.stamp.time, figures,
                       company.origins, company.record});
}

} // namespace

CompanyTable::CompanyTable(StoreConnection& connection)
    : connection_(connection), select_(companySelection(connection.dialect())),
      insert_(companyInsertion()), update_(companyUpdate()),
      insertSeries_(seriesInsertion(connection.dialect())) {}

std::int64_t CompanyTable::revision(std::int64_t id) {
    Statement row(connection_, "SELECT revision FROM company WHERE id = ?", {qlonglong(id)});
    return row.next() ? row.integer(0) : 0;
}

std::optional<CompanyTable::Row> CompanyTable::read(std::int64_t id) {
    Row read{{std::make_shared<CompanyRecord>(), 0, {}}, {}};
    LoadedCompany& loaded = read.company;
    std::string figures;
    std::string origins;
    std::int64_t checksum = 0; // as it was saved
    {
        Statement row(connection_, select_, {qlonglong(id)});
        if (!row.next())
            return std::nullopt;
        loaded.revision = row.integer(0);
        checksum = row.integer(1);
        figures = row.text(2);
        read.saved = {row.text(3), row.text(4)};
        origins = row.text(5);
        readColumns(row, firstDatum, loaded);
    }
    {
        Statement rows(connection_,
                       "SELECT series, element, value FROM series WHERE company_id = ?",
                       {qlonglong(id)});
        readSeries(rows, figureCounts(figures), loaded);
    }
    loaded.origins = FigureOrigins::fromText(origins);
    read.checksum = checksumOf(
        {id, loaded.revision, read.saved.user, read.saved.time, figures, origins, *loaded.record});
    read.isAsSaved = checksum == read.checksum;
    return read;
}

std::int64_t CompanyTable::insert(const SavedCompany& company) {
    const std::string figures = figuresText(countFigures(company.record));
    std::int64_t id = 0;
    {
        Statement made(connection_, insert_, valuesOf(1, company, figures));
        made.next();
        id = made.integer(0);
    }
    insertSeries(id, company.record);
    writeChecksum(id, sealOf({id, 1}, company, figures));
    return id;
}

void CompanyTable::update(const CompanyKey& key, const SavedCompany& company) {
    const std::string figures = figuresText(countFigures(company.record));
    std::vector<QVariant> values = valuesOf(key.revision, company, figures);
    values.emplace_back(qlonglong(sealOf(key, company, figures)));
    values.emplace_back(qlonglong(key.id));
    connection_.run(update_, values);
    connection_.run("DELETE FROM series WHERE company_id = ?", {qlonglong(key.id)});
    insertSeries(key.id, company.record);
}

void CompanyTable::seal(std::int64_t id) {
    if (const auto row = read(id))
        writeChecksum(id, row->checksum);
}

void CompanyTable::writeChecksum(std::int64_t id, std::int64_t checksum) {
    connection_.run("UPDATE company SET checksum = ? WHERE id = ?",
                    {qlonglong(checksum), qlonglong(id)});
}

void CompanyTable::remove(std::int64_t id) {
    connection_.run("DELETE FROM company WHERE id = ?", {qlonglong(id)});
}

void CompanyTable::insertSeries(std::int64_t id, const CompanyRecord& record) {
    std::vector<QVariant> values;
    for (const DatumRow* row : seriesInOrderOfTheTable()) {
        const VariantArray& series = record.stored(row->datum).array();
        for (int element = series.lower(); element <= series.upper(); ++element)
            values.emplace_back(series.number(element));
    }
    values.emplace_back(qlonglong(id));
    connection_.run(insertSeries_, values);
}

} // namespace vkr
