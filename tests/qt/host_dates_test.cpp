// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "record/enumerations.hpp"
#include "tests/qt/host_fixture.hpp"

namespace vkr {
namespace {

// Fills what is named by control, on its tab, and presses OK.
struct DateCase {
    const char* test;
    int tab;
    const char* field;
    const char* typed;
    Datum stored; // Datum::Name: no date
};

class HostDatesTest : public HostTest, public testing::WithParamInterface<DateCase> {};

TEST_P(HostDatesTest, AreStoredOnlyWithWhatGoesByThem) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    window.entry().setCurrentTab(GetParam().tab);
    type(window, GetParam().field, GetParam().typed);
    EXPECT_TRUE(window.isWindowModified());
    click(window, "cmdOK");
    if (!host_->windows().isEmpty())
        click(window, "cmdOK"); // the first one settled a date
    const auto company = stored(*host_, "ACME");
    ASSERT_NE(company, nullptr);
    for (const Datum date :
         {Datum::LastQDate, Datum::LastFYDate, Datum::PriceUpdatedDate, Datum::LastUpdate})
        EXPECT_EQ(isAbsent(company->stored(date).toDate()), date != GetParam().stored)
            << rowOf(date).name;
    EXPECT_EQ(company->get_LastFY() != 0, GetParam().stored == Datum::LastFYDate);
}

QString todayAsShown() {
    return QLocale::c().toString(QDate::currentDate(), "MMM/dd/yyyy");
}

INSTANTIATE_TEST_SUITE_P(
    Data, HostDatesTest,
    testing::Values(
        DateCase{"Name", toCompany, "txtName", "Acme", Datum::Name},
        DateCase{"Debt", toCompany, "txtTotalDebt", "7", Datum::Name},
        DateCase{"Price", toCompany, "txtCurrentPrice", "12", Datum::PriceUpdatedDate},
        DateCase{"PriceDate", toCompany, "txtPriceUpdate", "1/30/2026", Datum::PriceUpdatedDate},
        DateCase{"LastUpdate", toCompany, "txtLastUpdate", "1/30/2026", Datum::LastUpdate},
        DateCase{"Quarter", toQuarterly, "txtEPS(3)", "1.5", Datum::LastQDate},
        DateCase{"Year", toYearly, "txtSales(9)", "7", Datum::LastFYDate},
        DateCase{"YearTyped", toYearly, "txtLastFY", "2020", Datum::LastFYDate}),
    [](const auto& row) { return row.param.test; });

TEST_F(HostTest, ADateIsStoredThatWasTypedAsItStoodThere) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtLastUpdate", todayAsShown());
    click(window, "cmdOK");
    const auto company = stored(*host_, "ACME");
    EXPECT_FALSE(isAbsent(company->stored(Datum::LastUpdate).toDate()));
    EXPECT_TRUE(isAbsent(company->stored(Datum::PriceUpdatedDate).toDate()));
}

TEST_F(HostTest, ADateThatCameWithItsFigureStaysThereAfterTheNextSave) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtCurrentPrice", "12");
    user_.press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window.isWindowModified());
    const Date saved = stored(*host_, "ACME")->get_PriceUpdatedDate();
    EXPECT_FALSE(isAbsent(saved));
    type(window, "txtName", "Acme");
    click(window, "cmdOK");
    EXPECT_EQ(stored(*host_, "ACME")->get_PriceUpdatedDate(), saved);
    EXPECT_TRUE(isAbsent(stored(*host_, "ACME")->get_LastUpdate()));
}

// The day that the form suggested is not the one that somebody meant to type.
TEST_F(HostTest, APriceWhoseDateIsRefusedIsNotStoredAsOfToday) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtCurrentPrice", "12.5");
    type(window, "txtPriceUpdate", "31/31/2026");
    Answers answers({"Save Without"});
    click(window, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(stored(*host_, "ACME")->get_CurrentPrice(), 12.5);
    EXPECT_EQ(stored(*host_, "ACME")->get_PriceUpdatedDate(), Date{});
}

TEST_F(HostTest, AnExportedWindowHasNoDateThatNobodyHasTyped) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    const QTemporaryDir folder;
    host_->exportWindow(window, folder.path());
    const auto company = importCompany(folder.path().toStdString(), "ACME").company;
    ASSERT_NE(company, nullptr);
    EXPECT_TRUE(isAbsent(company->get_PriceUpdatedDate()));
    EXPECT_TRUE(isAbsent(company->get_LastQDate()));
    Answers answers({"Discard"});
    click(window, "cmdCancel");
}

} // namespace
} // namespace vkr
