// SPDX-License-Identifier: MIT
#include "company/change_group.hpp"
#include "company/company_record.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/field_steps.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

using Lines = std::vector<std::string>;

// "QEPSSeries(0) 0>5", of a whole series only that it is one; what was moved has a star.
Lines told(const ChangeGroup& group) {
    Lines lines;
    for (const Change& one : group.changes) {
        const std::string name =
            one.setting.empty() ? std::string(rowOf(one.datum).name) : one.setting;
        std::string line = one.element ? name + "(" + std::to_string(*one.element) + ")" : name;
        if (!one.after.isArray())
            line += " " + one.before.toText() + ">" + one.after.toText();
        lines.push_back(line + (one.origin == Origin::shifted ? "*" : ""));
    }
    return lines;
}

// A company in which two years and two quarters stand.
std::shared_ptr<CompanyRecord> twoPeriods() {
    auto company = test::datedCompany();
    test::putElement(*company, Datum::YEPSSeries, 1, 2);
    test::putElement(*company, Datum::YEPSSeries, 2, 1);
    test::putElement(*company, Datum::QEPSSeries, 0, 0.5);
    test::putElement(*company, Datum::QEPSSeries, 1, 0.25);
    return company;
}

const Action importing{Origin::imported, "Import", "0001-24"};

TEST(ChangeGroup, LeadsFromOneRecordToTheOtherByDataAndSettings) {
    CompanyRecord before;
    CompanyRecord after;
    before.get_Settings()->put(setting::unit, std::int16_t{6});
    after.get_Settings()->put(setting::unit, std::int16_t{6});
    after.get_Settings()->put(setting::currencySymbol, "EUR");
    after.put_TotalDebt(12);
    const Action import{Origin::imported, "Import", "0001-24"};
    const ChangeGroup group = changesBetween(before, after, import);
    EXPECT_EQ(group.name, "Import");
    ASSERT_EQ(group.changes.size(), 2U);
    EXPECT_EQ(group.changes[0].datum, Datum::TotalDebt);
    EXPECT_EQ(group.changes[0].setting, "");
    EXPECT_EQ(group.changes[1].setting, setting::currencySymbol);
    EXPECT_EQ(group.changes[1].after, Variant("EUR"));
    for (const Change& change : group.changes) {
        EXPECT_EQ(change.origin, Origin::imported);
        EXPECT_EQ(change.document, "0001-24");
    }
    EXPECT_TRUE(changesBetween(after, after, import).changes.empty());
}

TEST(ChangeGroup, OfALaterYearMovesItsYearsAndNamesWhatIsNew) {
    const auto before = twoPeriods();
    const auto after = before->clone();
    after->put_LastFY(2026);
    after->put_YEPSSeries(numberArray({0, 3, 2, 1.5, 0, 0, 0, 0, 0, 0, 9}));
    test::putElement(*after, Datum::QEPSSeries, 1, 0.75);
    after->put_TotalDebt(12);
    after->get_Settings()->put(setting::currencySymbol, "EUR");
    const ChangeGroup apart = withMovesApart(changesBetween(*before, *after, importing));
    EXPECT_EQ(apart.name, "Import");
    EXPECT_EQ(told(apart), (Lines{"LastFY 2025>2026", "TotalDebt 0>12", "QEPSSeries", "YEPSSeries*",
                                  "YEPSSeries(1) 0>3", "YEPSSeries(3) 1>1.5", "YEPSSeries(10) 0>9",
                                  "strCurSymbol $>EUR"}));
    EXPECT_EQ(apart.changes[4].origin, Origin::imported);
    EXPECT_EQ(apart.changes[4].document, "0001-24");
    EXPECT_EQ(told(elementByElement(apart)),
              (Lines{"LastFY 2025>2026", "TotalDebt 0>12", "QEPSSeries(1) 0.25>0.75", "YEPSSeries*",
                     "YEPSSeries(1) 0>3", "YEPSSeries(3) 1>1.5", "YEPSSeries(10) 0>9",
                     "strCurSymbol $>EUR"}));
}

TEST(ChangeGroup, OfALaterQuarterMovesItsQuartersAlone) {
    const auto before = twoPeriods();
    const auto after = before->clone();
    after->put_LastQDateForGrid(*makeDate(2027, 3, 31));
    test::putElement(*after, Datum::QEPSSeries, 3, 0.25);
    test::putElement(*after, Datum::QEPSSeries, 2, 0.5);
    test::putElement(*after, Datum::QEPSSeries, 1, 0);
    test::putElement(*after, Datum::QEPSSeries, 0, 0.125);
    test::putElement(*after, Datum::YEPSSeries, 1, 4);
    const Lines lines = told(withMovesApart(changesBetween(*before, *after, importing)));
    EXPECT_EQ(std::ranges::count(lines, "QEPSSeries*"), 1);
    EXPECT_EQ(std::ranges::count(lines, "QEPSSeries(0) 0>0.125"), 1);
    EXPECT_EQ(std::ranges::count(lines, "YEPSSeries"), 1);
    EXPECT_EQ(lines.size(), 4U);
}

// A series that is empty has nothing to move.
TEST(ChangeGroup, OfALaterYearMovesNoEmptySeries) {
    const auto before = twoPeriods();
    const auto after = before->clone();
    after->put_LastFY(2026);
    test::putElement(*after, Datum::YHighSeries, 1, 70);
    EXPECT_EQ(told(withMovesApart(changesBetween(*before, *after, importing))),
              (Lines{"LastFY 2025>2026", "YHighSeries(1) 0>70"}));
}

} // namespace
} // namespace vkr
