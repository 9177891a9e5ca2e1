// SPDX-License-Identifier: MIT
#include "store/store_schema.hpp"

#include "store/store_listing.hpp"

#include <QSet>

#include <algorithm>
#include <charconv>

namespace vkr {

namespace {

constexpr const char* createCompanies[] = {
    "CREATE TABLE company ("
    " id {id},"
    " revision {integer} NOT NULL,"
    " saved_by TEXT NOT NULL,"
    " saved_at TEXT NOT NULL){table}",
    "CREATE TABLE series ("
    " company_id {integer} NOT NULL REFERENCES company (id) ON DELETE CASCADE,"
    " series TEXT NOT NULL,"
    " element {integer} NOT NULL,"
    " value {number} NOT NULL,"
    " PRIMARY KEY (company_id, series, element)){keyedTable}",
};

constexpr const char* createListsAndLog[] = {
    "CREATE TABLE list_entry ("
    " kind TEXT NOT NULL,"
    " position {integer} NOT NULL,"
    " text TEXT NOT NULL,"
    " PRIMARY KEY (kind, text)){keyedTable}",
    "CREATE TABLE change_log ("
    " id {logId},"
    " company_id {integer} NOT NULL,"
    " revision {integer} NOT NULL,"
    " change TEXT NOT NULL,"
    " changed_by TEXT NOT NULL,"
    " changed_at TEXT NOT NULL){table}",
    "CREATE INDEX change_log_of_company ON change_log (company_id)",
};

constexpr const char* exchanges[] = {
    "Nasdaq",
    "NYSE",
    "NYSE American",
    "NYSE Arca",
    "OTC Markets",
    "Toronto",
    "TSX Venture",
    "London",
    "Xetra",
    "Frankfurt",
    "Euronext Paris",
    "Euronext Amsterdam",
    "Euronext Brussels",
    "Swiss",
    "Milan",
    "Madrid",
    "Vienna",
    "Stockholm",
    "Copenhagen",
    "Helsinki",
    "Oslo",
    "Tokyo",
    "Hong Kong",
    "Shanghai",
    "Shenzhen",
    "Korea",
    "Taiwan",
    "Singapore",
    "India NSE",
    "Bombay",
    "Australia",
    "New Zealand",
    "Johannesburg",
    "São Paulo",
    "Mexico",
    "Tel Aviv",
};

constexpr const char* industries[] = {
    "Advertising & Marketing",
    "Aerospace & Defense",
    "Agriculture",
    "Airlines",
    "Apparel",
    "Auto Manufacturers",
    "Auto Parts",
    "Banks",
    "Beverages",
    "Biotechnology",
    "Broadcasting & Media",
    "Building Materials",
    "Business Services",
    "Chemicals",
    "Coal & Fuels",
    "Communications Equipment",
    "Computers & Peripherals",
    "Construction & Engineering",
    "Consumer Finance",
    "Containers & Packaging",
    "Drugs",
    "Education",
    "Electric Utilities",
    "Electrical Equipment",
    "Electronics",
    "Entertainment",
    "Environmental Services",
    "Financial Services",
    "Food Processing",
    "Footwear",
    "Forest & Paper Products",
    "Gas Utilities",
    "Grocery Stores",
    "Health Care Facilities",
    "Health Care Services",
    "Home Building",
    "Hotels & Lodging",
    "Household Products",
    "Household Durables",
    "Insurance, Life & Health",
    "Insurance, Property & Casualty",
    "Internet Services",
    "Investment Management",
    "Leisure Products",
    "Machinery",
    "Medical Devices",
    "Metals & Mining",
    "Oil & Gas Equipment & Services",
    "Oil & Gas Exploration & Production",
    "Oil & Gas Integrated",
    "Office Equipment",
    "Personal Care",
    "Pipelines",
    "Precious Metals",
    "Publishing",
    "Railroads",
    "Real Estate",
    "Real Estate Investment Trusts",
    "Restaurants",
    "Retail, Apparel",
    "Retail, General",
    "Retail, Online",
    "Retail, Specialty",
    "Scientific Instruments",
    "Semiconductor Equipment",
    "Semiconductors",
    "Shipping",
    "Software",
    "Staffing",
    "Steel",
    "Telecommunication Services",
    "Textiles",
    "Tobacco",
    "Toys & Games",
    "Trucking",
    "Water Utilities",
    "Wholesale Distribution",
};

constexpr const char* sources[] = {
    "S & P", "Value Line",    "Annual report",    "10-K",      "10-Q",
    "20-F",  "Press release", "Company web site", "Newspaper",
};

template <std::size_t count>
void seed(StoreConnection& connection, const char* kind, const char* const (&texts)[count]) {
    for (std::size_t i = 0; i < count; ++i)
        connection.run("INSERT INTO list_entry (kind, position, text) VALUES (?, ?, ?)",
                       {kind, static_cast<qlonglong>(i), QString::fromUtf8(texts[i])});
}

template <std::size_t count>
void runAll(StoreConnection& connection, const char* const (&statements)[count]) {
    for (const char* statement : statements)
        connection.execute(connection.dialect().define(statement));
}

const char* definition(StoreColumn::Kind kind) {
    switch (kind) {
    case StoreColumn::Kind::text:
        return "TEXT NOT NULL DEFAULT ''";
    case StoreColumn::Kind::number:
        return "{number} NOT NULL DEFAULT 0";
    case StoreColumn::Kind::integer:
        return "{integer} NOT NULL DEFAULT 0";
    case StoreColumn::Kind::date:
        return "TEXT DEFAULT NULL";
    }
    return "";
}

void addMissingColumns(StoreConnection& connection) {
    QSet<QString> present;
    {
        StoreConnection::Statement columns(connection, connection.dialect().columns);
        while (columns.next())
            present.insert(toQString(columns.text(0)));
    }
    for (const StoreColumn& column : storeColumns())
        if (!present.contains(column.name))
            connection.execute("ALTER TABLE company ADD COLUMN \"" + column.name + "\" " +
                               connection.dialect().define(definition(column.kind)));
}

void countFigures(StoreConnection& connection) {
    std::map<std::int64_t, FigureCounts> companies;
    {
        StoreConnection::Statement rows(
            connection,
            "SELECT company_id, series, count(*) FROM series GROUP BY company_id, series");
        while (rows.next())
            companies[rows.integer(0)][rows.text(1)] = static_cast<int>(rows.integer(2));
    }
    for (const auto& [id, counts] : companies)
        connection.run("UPDATE company SET figures = ? WHERE id = ?",
                       {textValue(figuresText(counts)), qlonglong(id)});
}

// The step at index n leads from version n to n + 1. Released steps are never changed. A new
// datum needs no step of its own, only a new version: its column is added by itself.
using Migration = void (*)(StoreConnection&);
constexpr Migration migrations[] = {
    [](StoreConnection& connection) { runAll(connection, createCompanies); },
    [](StoreConnection& connection) {
        runAll(connection, createListsAndLog);
        connection.execute(
            "INSERT INTO change_log (company_id, revision, change, changed_by, "
            "changed_at) SELECT id, revision, 'saved', saved_by, saved_at FROM company");
        seed(connection, "exchange", exchanges);
        seed(connection, "industry", industries);
        seed(connection, "source", sources);
    },
    [](StoreConnection& connection) {
        addMissingColumns(connection); // that the listing is made of
        createListing(connection);
        fillListing(connection);
    },
    [](StoreConnection& connection) {
        connection.execute("ALTER TABLE company ADD COLUMN figures TEXT NOT NULL DEFAULT ''");
        countFigures(connection);
    },
};
static_assert(std::size(migrations) == schemaVersion);

int versionOf(StoreConnection& connection) {
    return static_cast<int>(connection.integer(connection.dialect().version));
}

StoreColumn::Kind kindOf(const DatumRow& row) {
    static constexpr StoreColumn::Kind kinds[] = {
        StoreColumn::Kind::text, StoreColumn::Kind::number, StoreColumn::Kind::integer,
        StoreColumn::Kind::date};
    return kinds[row.access.index()];
}

} // namespace

SchemaState inspectSchema(StoreConnection& connection) {
    const int version = versionOf(connection);
    const StoreDialect& dialect = connection.dialect();
    if (connection.integer(dialect.isOurs) == 0)
        return connection.integer(dialect.isUntouched) != 0 ? SchemaState::empty
                                                            : SchemaState::foreign;
    if (version > schemaVersion)
        return SchemaState::newer;
    return version < schemaVersion ? SchemaState::older : SchemaState::current;
}

void migrateSchema(StoreConnection& connection, const std::function<void()>& before) {
    using Transaction = StoreConnection::Transaction;
    Transaction transaction(connection, Transaction::Kind::migrate);
    const int version = versionOf(connection);
    if (version >= schemaVersion)
        return; // another window was faster
    if (before)
        before();
    for (int step = version; step < schemaVersion; ++step)
        migrations[step](connection);
    addMissingColumns(connection);
    for (const char* statement : connection.dialect().mark)
        if (statement != nullptr)
            connection.execute(QString(statement).replace("%1", QString::number(schemaVersion)));
    transaction.commit();
}

std::string figuresText(const FigureCounts& counts) {
    std::string text;
    for (const auto& [series, count] : counts)
        text += (text.empty() ? "" : " ") + series + ":" + std::to_string(count);
    return text;
}

FigureCounts figureCounts(std::string_view text) {
    FigureCounts counts;
    while (!text.empty()) {
        const std::string_view entry = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), entry.size() + 1));
        const auto colon = std::min(entry.find(':'), entry.size());
        int count = 0;
        std::from_chars(entry.data() + std::min(colon + 1, entry.size()),
                        entry.data() + entry.size(), count);
        counts.emplace(entry.substr(0, colon), count);
    }
    return counts;
}

const std::vector<StoreColumn>& storeColumns() {
    static const std::vector<StoreColumn> columns = [] {
        std::vector<StoreColumn> all;
        const auto name = [](std::string_view text) {
            return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        };
        for (const DatumRow& row : datumTable())
            if (!isSeries(row))
                all.push_back({name(row.name), kindOf(row), row.datum});
        const CompanyRecord empty;
        for (const auto setting : settingNames()) {
            const bool isText = empty.get_Settings()->get(setting).varType() == Variant::vtString;
            all.push_back({name(setting),
                           isText ? StoreColumn::Kind::text : StoreColumn::Kind::integer, setting});
        }
        return all;
    }();
    return columns;
}

} // namespace vkr
