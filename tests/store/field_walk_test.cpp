// SPDX-License-Identifier: MIT
// Every datum on its whole way: from a record onto the form, typed over with keys, into the record,
// into a file, and back out of it.
#include "store/company_store.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <unistd.h>

namespace vkr {

namespace {

enum class Page { company = 1, yearly, quarterly, other };

// What a person types where, and which datum it has to become. Stands beside the component's own
// tables on purpose: a row there that is mixed up with another is seen here.
struct Entry {
    Page page;
    const char* control;
    const char* before; // on the form for the full record
    const char* keys;
    const char* datum;
    const char* after; // in the record, as text; of a series "element=value"
};

constexpr Entry entries[] = {
    {Page::company, "txtName", "Name text", "Acme", "Name", "Acme"},
    {Page::company, "txtSymbol", "FULL", "acm", "Symbol", "ACM"},
    {Page::company, "cmbExchange", "Exchange text", "NYSE", "Exchange", "NYSE"},
    {Page::company, "cmbIndustry", "Industry text", "Tools", "Industry", "Tools"},
    {Page::company, "cmbSource", "Source text", "10-K", "Source", "10-K"},
    {Page::company, "txtDateOfSource", "Oct/01/2026", "5 Jan 2026", "DateOfSource", "2026-01-05"},
    {Page::company, "txtLastUpdate", "Nov/19/2026", "2026-02-06", "LastUpdate", "2026-02-06"},
    {Page::company, "txtCurrentPrice", "104.123", "105.25", "CurrentPrice", "105.25"},
    {Page::company, "txt52WHigh", "107.123", "207 1/8", "High52W", "207.125"},
    {Page::company, "txt52WLow", "105.250", "51.5", "Low52W", "51.5"},
    {Page::company, "txtPriceUpdate", "Nov/20/2026", "Mar/07/2026", "PriceUpdatedDate",
     "2026-03-07"},
    {Page::company, "txtCommDiv", "105.12", "1.11", "CommDiv", "1.11"},
    {Page::company, "txtEPSProj", "125.12", "-2.22", "ORBEPSProj", "-2.22"},
    {Page::company, "txtTotalDebt", "111.12", "333.3", "TotalDebt", "333.3"},
    {Page::company, "txtTotalCap", "115.12", "444.4", "TotalCap", "444.4"},
    {Page::company, "txtPreferredShares", "122.12", "55.5", "PrefShares", "55.5"},
    {Page::company, "txtCommonShares", "109.12", "66.6", "CommShares", "66.6"},
    {Page::company, "txtDilutedShares", "110.12", "77.7", "DilutedShares", "77.7"},
    {Page::company, "txtInsiderHolding", "116.1%", "8.8", "InsiderHolding", "8.8"},
    {Page::company, "txtInstitutional", "117.12", "99.9", "Institutional", "99.9"},
    {Page::yearly, "txtDateofLastFY", "Dec/31/2025", "Sep 30, 2024", "LastFYDate", "2024-09-30"},
    {Page::yearly, "txtLastFY", "2025", "2024", "LastFY", "2024"},
    {Page::yearly, "txtSales(9)", "", "1001", "YRevenueSeries", "1=1001"},
    {Page::yearly, "txtYOption(8)", "", "-1002", "YPTISeries", "2=-1002"},
    {Page::yearly, "txtYNetInc(7)", "", "-1003", "YNetIncSeries", "3=-1003"},
    {Page::yearly, "txtYOption2(6)", "", "-1004", "YCommEqSeries", "4=-1004"},
    {Page::yearly, "txtYEPS(5)", "", "-10.05", "YEPSSeries", "5=-10.05"},
    {Page::yearly, "txtDiv(4)", "", "10.06", "YDividendSeries", "6=10.06"},
    {Page::yearly, "txtHigh(3)", "", "10 7/8", "YHighSeries", "7=10.875"},
    {Page::yearly, "txtLow(2)", "", "10.08", "YLowSeries", "8=10.08"},
    {Page::yearly, "txtCSO(1)", "", "1009", "YCSOSeries", "9=1009"},
    {Page::quarterly, "txtRevenue(0)", "", "2001", "QRevenueSeries", "0=2001"},
    {Page::quarterly, "txtEPS(1)", "", "-2.02", "QEPSSeries", "1=-2.02"},
    {Page::quarterly, "txtQOption(2)", "", "-2003", "QPTISeries", "2=-2003"},
    {Page::quarterly, "txtNetInc(3)", "", "-2004", "QNetIncSeries", "3=-2004"},
    {Page::other, "txtAddress1", "Address1 text", "1 Main St", "Address1", "1 Main St"},
    {Page::other, "txtAddress2", "Address2 text", "Floor 2", "Address2", "Floor 2"},
    {Page::other, "txtCity", "City text", "Springfield", "City", "Springfield"},
    {Page::other, "txtState", "State text", "IL", "State", "IL"},
    {Page::other, "txtZip", "Zip text", "62701", "Zip", "62701"},
    {Page::other, "txtCountry", "Country text", "USA", "Country", "USA"},
    {Page::other, "txtInternet", "Internet text", "acme.example", "Internet", "acme.example"},
    {Page::other, "txtContactPerson", "ContactPerson text", "J. Doe", "ContactPerson", "J. Doe"},
    {Page::other, "txtTel", "Tel text", "555 0100", "Tel", "555 0100"},
    {Page::other, "txtPrefDiv", "114.12", "3.03", "PrefDiv", "3.03"},
    {Page::other, "txtTaxRate", "113.12", "21.5", "TaxRate", "21.5"},
    {Page::other, "txtVLTimelines", "VLTimeliness text", "2", "VLTimeliness", "2"},
    {Page::other, "txtVLSafety", "VLSafety text", "1", "VLSafety", "1"},
    {Page::other, "txtNotes", "Notes text", "remember", "Notes", "remember"},
    // Follows the quarters, so it comes after them.
    {Page::yearly, "txtLast4QEPS", "", "4.44", "Last4QEPS", "4.44"},
};

// Typed where the option rows show the other member of their pair.
constexpr Entry optionEntries[] = {
    {Page::yearly, "txtYOption(8)", "", "31.5", "YTaxRateSeries", "2=31.5"},
    {Page::yearly, "txtYOption2(6)", "", "12.75", "YBookValSeries", "4=12.75"},
    {Page::quarterly, "txtQOption(2)", "", "27.5", "QTaxRateSeries", "2=27.5"},
};

// Have no field of their own: written along with another one, if at all.
const std::set<std::string> writtenAlong = {"CommDivAlternate", "LastQDate", "LastQDateForGrid"};

const DatumRow& rowNamed(std::string_view name) {
    for (const auto& row : datumTable())
        if (row.name == name)
            return row;
    throw std::out_of_range(std::string(name));
}

std::string textOf(const iVKR_Company& company, const Entry& entry) {
    const DatumRow& row = rowNamed(entry.datum);
    const Variant value = readDatum(company, row.datum);
    if (isSeries(row)) {
        const int element = std::stoi(entry.after);
        return std::to_string(element) + "=" + Variant(value.array().number(element)).toText();
    }
    if (std::holds_alternative<DateAccess>(row.access)) {
        const auto day = civil(value.toDate());
        char text[16];
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
        return text;
    }
    return value.toText();
}

std::string keyNotation(const std::string& text) {
    std::string keys;
    for (const char c : text)
        keys += std::string("+^%~(){}[]").find(c) == std::string::npos
                    ? std::string(1, c)
                    : "{" + std::string(1, c) + "}";
    return keys;
}

class FieldWalk : public testing::Test {
  protected:
    void SetUp() override {
        scene_.entry->put_ShowVLs(true);
        company_ = fullCompany();
        scene_.load(company_);
    }

    void play(const Entry& entry) {
        SCOPED_TRACE(std::string(entry.control) + " -> " + entry.datum);
        scene_.entry->put_CurrentTab(static_cast<TABObject>(entry.page));
        const std::string id = entry.control;
        const auto bracket = id.find('(');
        auto& field = bracket == std::string::npos
                          ? scene_.field(id)
                          : scene_.field(id.substr(0, bracket), std::stoi(id.substr(bracket + 1)));
        if (*entry.before != '\0') {
            EXPECT_EQ(field.text(), entry.before);
        }
        field.setFocus();
        scene_.desktop.type("^a" + keyNotation(entry.keys));
        scene_.desktop.type("{TAB}");
        EXPECT_EQ(textOf(*company_, entry), entry.after);
    }

    [[nodiscard]] std::shared_ptr<CompanyRecord> throughAFile() {
        const auto path = std::filesystem::temp_directory_path() /
                          ("field_walk_" + std::to_string(::getpid()) + ".vkr");
        std::filesystem::remove(path);
        std::shared_ptr<CompanyRecord> loaded;
        {
            auto store = CompanyStore::open(path.string(), OpenMode::create);
            EXPECT_TRUE(store);
            const auto key = store.value()->save(std::nullopt, *company_);
            EXPECT_TRUE(key);
            auto read = store.value()->load(key.value().id);
            EXPECT_TRUE(read);
            loaded = read.value().record;
        }
        for (const char* suffix : {"", "-wal", "-shm"})
            std::filesystem::remove(path.string() + suffix);
        return loaded;
    }

    EntryScene scene_;
    std::shared_ptr<CompanyRecord> company_;
};

TEST_F(FieldWalk, EveryDatumThatIsTypedComesBackFromTheFile) {
    for (const auto& entry : entries)
        play(entry);
    const auto committed = scene_.entry->get_objCompany();
    const auto loaded = throughAFile();
    for (const auto& entry : entries)
        EXPECT_EQ(textOf(*loaded, entry), entry.after) << entry.datum;
    EXPECT_EQ(loaded->get_CommDivAlternate(), 1.11);
    EXPECT_TRUE(differences(*loaded, *company_).empty());
    EXPECT_TRUE(scene_.entry->unstoredFields().empty());

    scene_.load(loaded);
    for (const auto& entry : entries) {
        const std::string id = entry.control;
        if (id.find('(') != std::string::npos)
            continue;
        EXPECT_NE(scene_.text(id), entry.before) << id;
        EXPECT_FALSE(scene_.text(id).empty()) << id;
    }
}

TEST_F(FieldWalk, TheOtherMemberOfEachPairComesBackFromTheFile) {
    scene_.entry->put_CurrentTab(toOptions);
    scene_.desktop.click("optPTI(1)");
    scene_.desktop.click("optCommEq(1)");
    for (const auto& entry : optionEntries)
        play(entry);
    const auto loaded = throughAFile();
    for (const auto& entry : optionEntries)
        EXPECT_EQ(textOf(*loaded, entry), entry.after) << entry.datum;
}

TEST(FieldWalkTable, NamesEveryDatum) {
    std::set<std::string> named = writtenAlong;
    for (const auto& entry : entries)
        named.insert(entry.datum);
    for (const auto& entry : optionEntries)
        named.insert(entry.datum);
    for (const auto& row : datumTable())
        EXPECT_TRUE(named.contains(std::string(row.name)))
            << row.name
            << " is typed nowhere. Add a row to `entries`: page, control, what it shows of "
            << "the full record, the keys, \"" << row.name << "\", what the record has then. "
            << "Where it has no field, add its name to `writtenAlong`.";
}

} // namespace

} // namespace vkr
