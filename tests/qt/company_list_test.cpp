// SPDX-License-Identifier: MIT
#include "host/company_list_window.hpp"
#include "host/texts.hpp"
#include "tools/event_driver.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolTip>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace vkr {
namespace {

class CompanyListTest : public testing::Test {
  protected:
    CompanyListTest() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                           folder_.filePath("settings"));
        auto opened = CompanyStore::open(folder_.filePath("companies.vkr").toStdString(),
                                         OpenMode::create, {"test@here"});
        if (!opened)
            throw std::runtime_error(opened.error().message);
        store_ = std::move(opened.value());
        window_ = std::make_unique<CompanyListWindow>(*store_);
        QObject::connect(window_.get(), &CompanyListWindow::openAsked,
                         [this](const QList<qint64>& ids) { opened_ = ids; });
    }
    ~CompanyListTest() override { QLocale::setDefault(QLocale::c()); }

    std::int64_t add(const std::string& name, double price = 0, const std::string& symbol = "") {
        return addAll({name}, price, symbol).front();
    }
    std::vector<std::int64_t> addAll(const std::vector<std::string>& names, double price = 0,
                                     const std::string& symbol = "") {
        std::vector<SaveRequest> requests;
        for (const std::string& name : names) {
            auto record = std::make_shared<CompanyRecord>();
            record->put_Name(name);
            record->put_Symbol(symbol);
            record->put_CurrentPrice(price);
            requests.push_back({std::nullopt, record, 0});
        }
        std::vector<std::int64_t> ids;
        const auto saved = store_->saveAll(requests);
        for (const CompanyKey& key : saved.value())
            ids.push_back(key.id);
        return ids;
    }
    // "Company 1" and so on, the rows of several pages.
    std::vector<std::int64_t> addMany(int count) {
        std::vector<std::string> names;
        for (int number = 1; number <= count; ++number)
            names.push_back("Company " + std::to_string(number));
        return addAll(names);
    }

    // By themselves.
    bool rowsBecome(const QStringList& names) {
        QElapsedTimer time;
        time.start();
        while (column(CompanyListModel::name) != names && time.elapsed() < 10000)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return column(CompanyListModel::name) == names;
    }

    [[nodiscard]] QTableView& table() { return *window_->findChild<QTableView*>("companies"); }
    [[nodiscard]] CompanyListModel& rows() {
        return dynamic_cast<CompanyListModel&>(*table().model());
    }
    QStringList column(int column) {
        QStringList texts;
        for (int row = 0; row < rows().rowCount(); ++row)
            texts.append(rows().index(row, column).data().toString());
        return texts;
    }
    void search(const char* text) {
        window_->findChild<QLineEdit*>("search")->setText(QString::fromUtf8(text));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&table(), &event);
    }
    [[nodiscard]] QString counted() {
        QApplication::processEvents(); // counting waits for the first rows
        for (const QLabel* label : window_->findChildren<QLabel*>())
            if (label->text().contains("compan") && !label->text().contains("No company"))
                return label->text();
        return {};
    }
    [[nodiscard]] std::vector<std::string> chosenNames() {
        std::vector<std::string> names;
        for (const CompanySummary& company : window_->chosen())
            names.push_back(company.name);
        return names;
    }

    using Names = std::vector<std::string>;
    QTemporaryDir folder_;
    std::unique_ptr<CompanyStore> store_;
    std::unique_ptr<CompanyListWindow> window_;
    QList<qint64> opened_;
};

TEST_F(CompanyListTest, NamesAreSortedAsPeopleSortThem) {
    addAll({"zeta", "Österreich AG", "Alpha", "Plant 10", "alpha", "Plant 9"});
    window_->refresh();
    EXPECT_EQ(column(CompanyListModel::name),
              (QStringList{"Alpha", "alpha", QString::fromUtf8("Österreich AG"), "Plant 9",
                           "Plant 10", "zeta"}));
}

TEST_F(CompanyListTest, PricesAreSortedAsNumbersAndShownWithTheirCents) {
    add("a", 9.5);
    add("b", 1234.125);
    add("c");
    add("d", 100);
    window_->refresh();
    table().sortByColumn(CompanyListModel::price, Qt::DescendingOrder);
    EXPECT_EQ(column(CompanyListModel::price), (QStringList{"1,234.125", "100.00", "9.50", ""}));
    const QVariant alignment =
        rows().data(rows().index(0, CompanyListModel::price), Qt::TextAlignmentRole);
    EXPECT_TRUE(alignment.value<Qt::Alignment>() & Qt::AlignRight);
}

TEST_F(CompanyListTest, EveryWordOfASearchMustBeFoundSomewhere) {
    add("Apple Inc.", 0, "AAPL");
    add("Applied Works");
    window_->refresh();
    struct Case {
        const char* search;
        int found;
        const char* counted;
    };
    for (const Case& row :
         {Case{"", 2, "2 companies"}, Case{"  ", 2, "2 companies"}, Case{"APPL", 2, "2 companies"},
          Case{"aapl", 1, "1 of 2 companies"}, Case{"apple inc", 1, "1 of 2 companies"},
          Case{"aap  apple ", 1, "1 of 2 companies"}, Case{"apple x", 0, "0 of 2 companies"}}) {
        search(row.search);
        EXPECT_EQ(rows().rowCount(), row.found) << row.search;
        EXPECT_EQ(counted(), row.counted) << row.search;
    }
}

TEST_F(CompanyListTest, ACompanyWithoutANameCanBeSeen) {
    add("");
    window_->refresh();
    EXPECT_EQ(column(CompanyListModel::name), QStringList{"(no name)"});
    EXPECT_EQ(counted(), "1 company");
}

TEST_F(CompanyListTest, ALongListHoldsOnePageAndCountsAll) {
    addMany(1250);
    window_->refresh();
    EXPECT_EQ(rows().rowCount(), CompanyListModel::pageSize);
    EXPECT_EQ(counted(), "1,250 companies");
    EXPECT_EQ(column(CompanyListModel::name).last(), "Company 100");
    search("company 12");
    EXPECT_EQ(counted(), "83 of 1,250 companies");
    EXPECT_EQ(column(CompanyListModel::name).mid(0, 3),
              (QStringList{"Company 12", "Company 112", "Company 120"}));
}

TEST_F(CompanyListTest, ScrollingDownReadsOn) {
    addMany(250);
    window_->refresh();
    window_->show();
    QApplication::processEvents();
    auto* bar = table().verticalScrollBar();
    for (const int rowsThen : {200, 250}) {
        bar->setValue(bar->maximum());
        QApplication::processEvents();
        EXPECT_EQ(rows().rowCount(), rowsThen);
    }
    EXPECT_FALSE(rows().canFetchMore({}));
    EXPECT_EQ(column(CompanyListModel::name).last(), "Company 250");
    table().sortByColumn(CompanyListModel::name, Qt::DescendingOrder);
    EXPECT_EQ(column(CompanyListModel::name).first(), "Company 250");
}

TEST_F(CompanyListTest, EndAndSelectAllMeanTheWholeList) {
    addMany(350);
    window_->refresh();
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(table().currentIndex().row(), 349);
    search("company 3");
    search("");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window_->chosen().size(), 350U);
}

TEST_F(CompanyListTest, HomeAndEndGoToTheFirstAndTheLastCompany) {
    addMany(250);
    window_->refresh();
    press(Qt::Key_End);
    EXPECT_EQ(chosenNames(), Names{"Company 250"});
    EXPECT_EQ(table().currentIndex().row(), 249);
    press(Qt::Key_Home);
    EXPECT_EQ(chosenNames(), Names{"Company 1"});
    press(Qt::Key_Down);
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(chosenNames().size(), 249U);
    press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(table().currentIndex().row(), 0);
}

TEST_F(CompanyListTest, TheKeysOfItsCommandsWorkFromTheSearchField) {
    addAll({"Alpha", "Beta"});
    window_->refresh();
    QList<qint64> exported;
    int duplicated = 0;
    QObject::connect(window_.get(), &CompanyListWindow::exportAsked,
                     [&](const QList<qint64>& ids) { exported = ids; });
    QObject::connect(window_.get(), &CompanyListWindow::duplicateAsked, [&] { ++duplicated; });
    const EventDriver user;
    user.activate(*window_);
    user.press(Qt::Key_F, Qt::ControlModifier);
    user.type("bet");
    user.press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(exported.size(), 1);
    user.press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(duplicated, 1);
    user.press(Qt::Key_Home);
    user.press(Qt::Key_Delete);
    auto* field = window_->findChild<QLineEdit*>("search");
    EXPECT_EQ(field->text(), "et") << "keys of the field stay the field's";
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(CompanyListTest, WhatAnotherProgramSavesShowsByItself) {
    addAll({"Alpha", "Beta"});
    window_->refresh();
    window_->show();
    window_->setWatchInterval(1);
    auto other = CompanyStore::open(folder_.filePath("companies.vkr").toStdString(),
                                    OpenMode::existing, {"other@there"});
    ASSERT_TRUE(other);
    table().selectRow(1);
    CompanyRecord record;
    record.put_Name("Aaron");
    ASSERT_TRUE(other.value()->save(std::nullopt, record));
    EXPECT_TRUE(rowsBecome({"Aaron", "Alpha", "Beta"}));
    EXPECT_EQ(chosenNames(), Names{"Beta"});
    const auto listed = other.value()->list();
    ASSERT_TRUE(listed);
    ASSERT_TRUE(
        other.value()->remove(listed.value().front().key.id, listed.value().front().key.revision));
    EXPECT_TRUE(rowsBecome({"Alpha", "Beta"}));
}

TEST_F(CompanyListTest, ColumnsFollowTheFontAlsoFromOneStartToTheNext) {
    const auto widths = [&] {
        std::vector<int> found;
        for (int column = 0; column + 1 < CompanyListModel::columns; ++column)
            found.push_back(table().horizontalHeader()->sectionSize(column));
        return found;
    };
    table().horizontalHeader()->resizeSection(CompanyListModel::symbol, 200);
    const std::vector<int> small = widths();
    const int row = table().verticalHeader()->defaultSectionSize();
    QFont large = window_->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    window_->setFont(large);
    const double ratio = QFontMetricsF(table().font()).averageCharWidth() /
                         QFontMetricsF(QApplication::font()).averageCharWidth();
    ASSERT_GT(ratio, 1.5);
    const std::vector<int> wide = widths();
    for (std::size_t column = 0; column < small.size(); ++column)
        EXPECT_NEAR(wide[column], small[column] * ratio, 1) << column;
    EXPECT_GT(table().verticalHeader()->defaultSectionSize(), row + row / 2);
    window_.reset();
    window_ = std::make_unique<CompanyListWindow>(*store_);
    const std::vector<int> again = widths();
    for (std::size_t column = 0; column < small.size(); ++column)
        EXPECT_NEAR(again[column], small[column], 2) << column;
}

TEST_F(CompanyListTest, ANameThatIsCutHasAllOfItAsToolTip) {
    const QString longName = QString("<b>Incorporated</b> & Sons ").repeated(8).trimmed();
    addAll({"Alpha", "Beta " + longName.toStdString()});
    window_->refresh();
    window_->show();
    const auto toolTipAt = [&](int row) {
        const QPoint place = table().visualRect(rows().index(row, CompanyListModel::name)).center();
        QHelpEvent event(QEvent::ToolTip, place, table().viewport()->mapToGlobal(place));
        QApplication::sendEvent(table().viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(table().textElideMode(), Qt::ElideRight);
    EXPECT_EQ(toolTipAt(0), "") << "a name that is seen whole needs none";
    EXPECT_EQ(toolTipAt(1), "<p>Beta " + longName.toHtmlEscaped() + "</p>");
}

TEST_F(CompanyListTest, WhatIsChosenStaysChosen) {
    const auto ids = addMany(350);
    window_->refresh();
    window_->choose(ids[299]);
    ASSERT_EQ(chosenNames(), Names{"Company 300"});
    add("A new one");
    window_->refresh();
    EXPECT_EQ(column(CompanyListModel::name).first(), "A new one");
    EXPECT_EQ(chosenNames(), Names{"Company 300"});
    table().sortByColumn(CompanyListModel::name, Qt::DescendingOrder);
    EXPECT_EQ(chosenNames(), Names{"Company 300"});
    search("300");
    EXPECT_EQ(chosenNames(), Names{"Company 300"});
    table().sortByColumn(CompanyListModel::name, Qt::AscendingOrder);
    search("");
    EXPECT_EQ(chosenNames(), Names{"Company 300"});
    press(Qt::Key_Return);
    EXPECT_EQ(opened_, QList<qint64>{ids[299]});
    // A search that it is no part of takes the first one found.
    search("new");
    EXPECT_EQ(chosenNames(), Names{"A new one"});
}

TEST_F(CompanyListTest, ACompanyOutsideTheSearchIsNotChosen) {
    const auto ids = addMany(3);
    window_->refresh();
    search("company 2");
    window_->choose(ids[0]);
    EXPECT_EQ(chosenNames(), Names{"Company 2"});
}

TEST_F(CompanyListTest, ARefreshWithoutChangesLeavesTheRowsAlone) {
    addMany(250);
    window_->refresh();
    int resets = 0;
    QObject::connect(&rows(), &CompanyListModel::modelReset, [&] { ++resets; });
    window_->refresh();
    EXPECT_EQ(resets, 0);
    EXPECT_TRUE(rows().canFetchMore({}));
    add("A new one");
    window_->refresh();
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(counted(), "251 companies");
}

class UnreadableListTest : public CompanyListTest {
  protected:
    UnreadableListTest() {
        auto other = QSqlDatabase::addDatabase("QSQLITE", "other");
        other.setDatabaseName(folder_.filePath("companies.vkr"));
        if (!other.open())
            throw std::runtime_error("no second connection");
    }
    ~UnreadableListTest() override { QSqlDatabase::removeDatabase("other"); }
    static void rename(const QString& from, const QString& to) {
        QSqlQuery query(QSqlDatabase::database("other"));
        ASSERT_TRUE(query.exec("ALTER TABLE " + from + " RENAME TO " + to));
    }
    [[nodiscard]] QString told() { return window_->statusBar()->currentMessage(); }
};

TEST_F(UnreadableListTest, ASearchThatGoesOnAsksTheDatabaseOnlyWhenItsRowsHaveAged) {
    addMany(20);
    window_->refresh();
    search("1");
    EXPECT_EQ(rows().rowCount(), 11);
    rename("listing", "elsewhere");
    search("12");
    EXPECT_EQ(column(0), QStringList{"Company 12"});
    EXPECT_EQ(told(), "");
    search("2"); // others than those
    EXPECT_NE(told(), "");
    rename("elsewhere", "listing");
    search("1");
    EXPECT_EQ(told(), "");
    rename("listing", "elsewhere");
    rows().setFreshness(0);
    search("12");
    EXPECT_NE(told(), "");
    EXPECT_EQ(rows().rowCount(), 11);
    rows().setFreshness(2000);
    search("120"); // goes on from rows that were not read
    EXPECT_NE(told(), "");
    EXPECT_EQ(rows().rowCount(), 11);
}

TEST_F(UnreadableListTest, SaysSoAndStays) {
    addMany(3);
    window_->refresh();
    rename("listing", "elsewhere");
    window_->refresh();
    EXPECT_NE(told(), "");
    search("2");
    EXPECT_EQ(rows().rowCount(), 3);
    rename("elsewhere", "listing");
    window_->refresh();
    EXPECT_EQ(told(), "");
    EXPECT_EQ(rows().rowCount(), 1);
}

// Neither another query's rows behind them, nor a count of those for one of all.
TEST_F(UnreadableListTest, RowsOfASearchThatFailedAreThoseOfTheOneBefore) {
    addMany(250);
    window_->refresh();
    search("Company 1");
    const int found = rows().rowCount();
    ASSERT_TRUE(rows().canFetchMore({}));
    rename("listing", "elsewhere");
    search("");
    EXPECT_NE(told(), "");
    rename("elsewhere", "listing");
    rows().reachEnd();
    EXPECT_GT(rows().rowCount(), found);
    EXPECT_EQ(column(0).filter("1").size(), rows().rowCount());
    EXPECT_EQ(rows().known(), std::nullopt);
    EXPECT_FALSE(rows().isCurrent());
    rows().search(""); // the same once more
    EXPECT_TRUE(rows().isCurrent());
    EXPECT_EQ(rows().count()->all, 250);
}

TEST_F(UnreadableListTest, AFailedSearchIsMadeAgainByItself) {
    addMany(3);
    window_->refresh();
    window_->show();
    rows().setFreshness(0);
    rename("listing", "elsewhere");
    search("2");
    EXPECT_EQ(rows().rowCount(), 3);
    rename("elsewhere", "listing");
    EXPECT_TRUE(rows().hasNews()); // what the renaming has brought
    window_->setWatchInterval(1);
    EXPECT_TRUE(rowsBecome({"Company 2"}));
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
         {Case{"Name", "Name"}, Case{"TotalDebt", "Total Debt"},
          Case{"YEPSSeries", "Yearly Earnings Per Share"},
          Case{"QTaxRateSeries", "Quarterly Tax Rate"}, Case{"High52W", "52 Week High"},
          Case{"intUnit", "Unit"}, Case{"blnLockBasicInfo", "Lock Data"},
          Case{"LastFYDate", "Date of Last FY"}, Case{"", ""}})
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
