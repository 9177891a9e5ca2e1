// SPDX-License-Identifier: MIT
#include "platform/text.hpp"
#include "tests/support/company_on_form.hpp"

#include <cctype>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vkr {
namespace {

using namespace test;

struct Hostile {
    const char* name;
    std::string text;
};

std::string novel() {
    std::string text;
    while (text.size() < 1'000'000)
        text += "Call me 1,234.5 (Ishmael) - 3 1/8 $5; \u2212\u00bd \U0001F40B\r\n\tChapter 2/31. ";
    return text;
}

std::string repeated(std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
        text += piece;
    return text;
}

// Things that no adapter promises to keep out.
const std::vector<Hostile>& hostileTexts() {
    static const std::vector<Hostile> texts = {
        {"letters", "twelve"},
        {"31 February", "2/31/2024"},
        {"31 February in words", "31 February 2024"},
        {"year 0", "0000-00-00"},
        {"far date", "1/1/99999999999999999999"},
        {"1e400", "1e400"},
        {"-1e400", "-1e400"},
        {"1e-400", "1e-400"},
        {"1e308", "1e308"},
        {"huge exponent", "1e99999999999999999999"},
        {"tiny exponent", "-1e-99999999999999999999"},
        {"nan", "nan"},
        {"inf", "inf"},
        {"-inf", "-inf"},
        {"hexadecimal", "0x1p1023"},
        {"novel", novel()},
        {"emoji", "\U0001F4B0\U0001F4C8\U0001F468\u200d\U0001F469\u200d\U0001F467"},
        {"invalid UTF-8", "\xff\xfe\x80 5 \xc3"},
        {"half a surrogate", "\xed\xa0\xbd"},
        {"overlong", "\xc0\xaf"},
        {"NUL", std::string("5\0"
                            "7",
                            3)},
        {"control characters", "\x01\x02\x1b[31m\x7f"},
        {"10,000 digits", std::string(10'000, '9')},
        {"10,000 zeros and a digit", std::string(10'000, '0') + "7"},
        {"10,000 decimals", "0." + std::string(10'000, '3')},
        {"10,000 minus signs", std::string(10'000, '-')},
        {"10,000 points", std::string(10'000, '.')},
        {"10,000 slashes", std::string(10'000, '/')},
        {"10,000 blanks", std::string(10'000, ' ')},
        {"10,000 brackets", std::string(10'000, '(')},
        {"10,000 groups", "1" + repeated(",000", 10'000)},
        {"fraction of nothing", "1 1/0"},
        {"fraction of much", "1 1/" + std::string(400, '9')},
        {"much of a fraction", std::string(400, '9') + " 1/8"},
        {"nested fraction", "1/2/3/4"},
        {"bidi", "\u202e5.21\u202c"},
        {"byte order mark", "\ufeff5"},
        {"line breaks", "5\r\n6\n7\r8\t9\u2028\u2029"},
        {"quotes", "'; DROP TABLE company; -- \"\\"},
        {"formula", "=1+1"},
        {"format", "%s%n%d"},
        {"empty", ""},
    };
    return texts;
}

// Whether a record holds only what can be shown and saved again.
void expectValid(const iVKR_Company& company) {
    for (const auto& row : datumTable()) {
        if (std::holds_alternative<NumberAccess>(row.access)) {
            EXPECT_TRUE(std::isfinite(readNumber(company, row.datum))) << row.name;
        } else if (std::holds_alternative<DateAccess>(row.access)) {
            const Date date = readDate(company, row.datum);
            EXPECT_TRUE(isAbsent(date) || (civil(date).year >= 1900 && civil(date).year <= 2999))
                << row.name;
        } else if (isSeries(row)) {
            const Variant series = readDatum(company, row.datum);
            for (int e = series.array().lower(); e <= series.array().upper(); ++e)
                EXPECT_TRUE(std::isfinite(series.array().number(e))) << row.name;
        }
    }
    EXPECT_GE(company.get_LastFY(), 1980);
    EXPECT_LE(company.get_LastFY(), 9900);
}

// The component still does its work.
void expectWorking(EntryScene& scene) {
    const auto company = datedCompany();
    scene.load(company);
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    typeOver(scene, "txtName", "Acme");
    typeOver(scene, "txtTotalDebt", "12.5");
    typeOver(scene, "txtLastUpdate", "3/4/2024");
    typeOver(scene, "txtSales(9)", "100");
    typeOver(scene, "txtEPS(0)", "1.5");
    EXPECT_EQ(company->get_Name(), "Acme");
    EXPECT_EQ(company->get_TotalDebt(), 12.5);
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2024, 3, 4));
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 100);
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), 1.5);
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
}

// Every single field, and one cell of each column.
std::vector<std::string> attackedIds(const EntryScene& scene) {
    std::vector<std::string> ids;
    for (const TextField* field : allFields(scene))
        if (field->index() <= 0)
            ids.push_back(field->id());
    return ids;
}

class HostileInput : public CompanyOnFullForm, public testing::WithParamInterface<std::size_t> {
  protected:
    HostileInput() : CompanyOnFullForm(datedCompany()) { load(); }
    [[nodiscard]] static const Hostile& hostile() { return hostileTexts()[GetParam()]; }
};

// An adapter may hand over any bytes as the text of a field.
TEST_P(HostileInput, EditedIntoEveryFieldLeavesAValidRecord) {
    for (const auto& id : attackedIds(scene)) {
        SCOPED_TRACE(id + " " + hostile().name);
        goTo(scene, id);
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
        EXPECT_NO_THROW({
            scene.form().userEdit(field, hostile().text, 3, 100'000'000);
            scene.desktop.type("{TAB}");
        });
        const std::string text = field.text();
        EXPECT_NO_THROW(goTo(scene, id)); // and it can be gone through again
        EXPECT_NO_THROW(scene.desktop.type("{END}{LEFT}+{HOME}^c{TAB}"));
        EXPECT_EQ(field.text(), text);
    }
    expectValid(*company);
    EXPECT_NO_THROW({
        for (const auto& one : scene.entry->unstoredFields()) {
            EXPECT_FALSE(one.reason.empty()) << one.control;
            EXPECT_FALSE(one.label.empty()) << one.control;
        }
        scene.entry->put_FractionDisplay(true);
        scene.entry->put_FractionDisplay(false);
        expectValid(*scene.entry->get_objCompany());
        scene.load(company);
    });
    expectWorking(scene);
}

TEST_P(HostileInput, PastedIntoEveryFieldLeavesAValidRecord) {
    for (const auto& id : attackedIds(scene)) {
        SCOPED_TRACE(id + " " + hostile().name);
        EXPECT_NO_THROW(pasteOver(scene, id, hostile().text));
        const auto& field = dynamic_cast<const TextField&>(scene.desktop.control(id));
        if (field.maxLength() > 0) {
            EXPECT_LE(textLength(field.tag()), field.maxLength());
        }
    }
    expectValid(*company);
    expectWorking(scene);
}

std::string caseName(const testing::TestParamInfo<std::size_t>& info) {
    std::string name;
    for (const char c : std::string(hostileTexts()[info.param].name))
        name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name + "_" + std::to_string(info.param);
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileInput, testing::Range(std::size_t{0}, hostileTexts().size()),
                         caseName);

TEST(HostileKeys, LettersInEveryNumericFieldChangeNothing) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = fullCompany();
    scene.load(company);
    const auto before = company->clone();
    for (const char* id :
         {"txtCurrentPrice", "txtTotalDebt", "txtInsiderHolding", "txtTaxRate", "txtSales(3)",
          "txtHigh(3)", "txtYEPS(3)", "txtRevenue(2)", "txtNetInc(2)", "txtLastFY"})
        typeAt(scene, id, "{END}abcXYZ!?#&{%}\u00e9\U0001F600{TAB}");
    EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(HostileKeys, ATextThatTheRecordCannotKeepIsMarked) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_Name("Acme");
    scene.load(company);
    goTo(scene, "txtName");
    scene.form().userEdit(scene.field("txtName"), "bad \xff", 0, 0);
    scene.desktop.type("{TAB}");
    EXPECT_EQ(company->get_Name(), "Acme");
    EXPECT_EQ(scene.text("txtName"), "bad \xff");
    EXPECT_EQ(markOf(scene, "txtName"),
              "This value could not be stored. The text is not valid UTF-8.");
}

TEST(HostileKeys, ANovelFitsIntoTheNotesAlone) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    std::string text = novel();
    pasteOver(scene, "txtNotes", text);
    const std::string kept = company->get_Notes();
    EXPECT_GT(kept.size(), 900'000U);
    EXPECT_EQ(kept.find('\r'), std::string::npos);
    EXPECT_NE(kept.find("Chapter 2/31"), std::string::npos);
    pasteOver(scene, "txtName", text);
    EXPECT_EQ(textLength(company->get_Name()), 100);
    EXPECT_EQ(company->get_Name().find_first_of("\r\n\t"), std::string::npos);
}

} // namespace
} // namespace vkr
