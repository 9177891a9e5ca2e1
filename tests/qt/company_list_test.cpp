// SPDX-License-Identifier: MIT
#include "host/company_list_model.hpp"
#include "host/texts.hpp"

#include <QLocale>

#include <gtest/gtest.h>

namespace vkr {
namespace {

class CompanyListTest : public testing::Test {
  protected:
    CompanyListTest() : order_(companies_) {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }
    ~CompanyListTest() override { QLocale::setDefault(QLocale::c()); }

    QStringList column(int column) {
        QStringList texts;
        for (int row = 0; row < order_.rowCount(); ++row)
            texts.append(order_.index(row, column).data().toString());
        return texts;
    }

    CompanyListModel companies_;
    CompanyListOrder order_;
};

CompanyListing company(std::int64_t id, const char* name, double price = 0) {
    CompanyListing listing;
    listing.id = id;
    listing.name = QString::fromUtf8(name);
    listing.price = price;
    return listing;
}

TEST_F(CompanyListTest, NamesAreSortedAsPeopleSortThem) {
    companies_.setCompanies({company(1, "zeta"), company(2, "Österreich AG"), company(3, "Alpha"),
                             company(4, "Part 10"), company(5, "alpha"), company(6, "Part 9")});
    order_.sort(CompanyListModel::name);
    EXPECT_EQ(column(CompanyListModel::name),
              (QStringList{"Alpha", "alpha", QString::fromUtf8("Österreich AG"), "Part 9",
                           "Part 10", "zeta"}));
}

TEST_F(CompanyListTest, PricesAreSortedAsNumbersAndStandRight) {
    companies_.setCompanies(
        {company(1, "a", 100), company(2, "b", 9.5), company(3, "c"), company(4, "d", 1234.125)});
    order_.sort(CompanyListModel::price, Qt::DescendingOrder);
    EXPECT_EQ(column(CompanyListModel::price), (QStringList{"1,234.125", "100.00", "9.50", ""}));
    const QVariant alignment =
        companies_.data(companies_.index(0, CompanyListModel::price), Qt::TextAlignmentRole);
    EXPECT_TRUE(alignment.value<Qt::Alignment>() & Qt::AlignRight);
}

TEST_F(CompanyListTest, EveryWordOfASearchMustBeFoundSomewhere) {
    auto apple = company(1, "Apple Inc.");
    apple.symbol = "AAPL";
    apple.industry = "Electronic Computers";
    companies_.setCompanies({apple, company(2, "Applied Works")});
    struct Case {
        const char* search;
        int found;
    };
    for (const Case& row : {Case{"", 2}, Case{"  ", 2}, Case{"APPL", 2}, Case{"aapl", 1},
                            Case{"apple comp", 1}, Case{"comp  apple ", 1}, Case{"apple x", 0}}) {
        order_.search(row.search);
        EXPECT_EQ(order_.rowCount(), row.found) << row.search;
    }
}

TEST_F(CompanyListTest, ACompanyWithoutANameCanBeSeen) {
    companies_.setCompanies({company(1, "")});
    EXPECT_EQ(column(CompanyListModel::name), QStringList{"(no name)"});
}

TEST(TextsTest, PricesKeepTheirDigitsAndShowCents) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(priceText(12), "12.00");
    EXPECT_EQ(priceText(12.5), "12.50");
    EXPECT_EQ(priceText(12.375), "12.375");
    EXPECT_EQ(priceText(1234.5), "1,234.50");
    QLocale::setDefault(QLocale::c());
}

TEST(TextsTest, ADatumIsNamedInWords) {
    struct Case {
        const char* datum;
        const char* words;
    };
    for (const Case& row :
         {Case{"Name", "Name"}, Case{"TotalDebt", "Total Debt"}, Case{"YEPSSeries", "Yearly EPS"},
          Case{"QTaxRateSeries", "Quarterly Tax Rate"}, Case{"High52W", "High 52W"},
          Case{"intUnit", "Unit"}, Case{"blnLockBasicInfo", "Lock Basic Info"},
          Case{"LastFYDate", "Last FY Date"}, Case{"", ""}})
        EXPECT_EQ(datumTitle(row.datum), row.words);
}

TEST(TextsTest, ATitleTakesWhatThereIs) {
    EXPECT_EQ(companyTitle("Apple Inc.", "AAPL"), "Apple Inc. (AAPL)");
    EXPECT_EQ(companyTitle("Apple Inc.", ""), "Apple Inc.");
    EXPECT_EQ(companyTitle("", "AAPL"), "AAPL");
    EXPECT_EQ(companyTitle("", ""), "New company");
    EXPECT_EQ(companyTitle("%1 (%2)", "A%1"), "%1 (%2) (A%1)");
}

} // namespace
} // namespace vkr
