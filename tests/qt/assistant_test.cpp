// SPDX-License-Identifier: MIT
#include "host/assistant.hpp"
#include "host/help_pages.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/support/elements.hpp"

#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPointer>

namespace vkr {
namespace {

class AssistantTest : public HostTest {
  protected:
    // What the window says after a question.
    Assistant& ask(CompanyWindow& window, int object, const QVariant& shown = QString()) {
        emit window.entry().assistant(object, shown);
        auto* assistant = window.findChild<Assistant*>();
        if (assistant == nullptr || !assistant->isVisible())
            throw std::runtime_error("no answer");
        return *assistant;
    }
    static QString text(Assistant& assistant, const char* name) {
        const auto* label = assistant.findChild<QLabel*>(QLatin1String(name));
        return label->isVisible() ? label->text() : QString();
    }
    static HistoryChart& chart(Assistant& assistant) {
        return *assistant.findChild<HistoryChart*>();
    }
    static void edit(CompanyWindow& window, const std::function<void(iVKR_Company&)>& change) {
        const auto record = window.entry().company();
        change(*record);
    }
};

TEST_F(AssistantTest, AFigureOfTheCompanyIsALineAcrossItsSeries) {
    Assistant& assistant = ask(open(*host_, "AAPL"), doDilutedShares);
    const History& history = chart(assistant).history();
    EXPECT_EQ(history.level, 14810.356);
    EXPECT_EQ(history.marked, -1);
    EXPECT_TRUE(chart(assistant).accessibleDescription().endsWith(
        "; Diluted Shares: 14,810.356 million shares"));
    for (const DataEntryObject object : {doYRevenue, doTabYearly, doUnit, doInsiderHolding})
        EXPECT_FALSE(chart(ask(open(*host_, "AAPL"), object)).history().level) << object;
}

TEST_F(AssistantTest, AYearlyFigureIsToldInFullWithItsYearsAndTheFourQuartersBesideIt) {
    Assistant& assistant = ask(open(*host_, "AAPL"), doYRevenue);
    EXPECT_EQ(text(assistant, "title"), "Revenue");
    EXPECT_EQ(text(assistant, "company"), "Apple Inc. (AAPL), fiscal year 2025");
    EXPECT_EQ(text(assistant, "stored"), "416,161 million");
    EXPECT_EQ(text(assistant, "unit"), "In millions of the company's currency");
    EXPECT_EQ(text(assistant, "chartTitle"), "Revenue by fiscal year");
    EXPECT_EQ(chart(assistant).accessibleName(), "Revenue by fiscal year");
    const QString years = chart(assistant).accessibleDescription();
    EXPECT_TRUE(years.startsWith("fiscal year 2016: 215,639 million; ")) << years.toStdString();
    EXPECT_TRUE(years.endsWith("fiscal year 2025: 416,161 million")) << years.toStdString();
    EXPECT_EQ(years.count(';'), 9);
    EXPECT_EQ(text(assistant, "quartersTitle"), "Quarterly Revenue");
    const QString quarters = text(assistant, "quarters");
    for (const char* row : {"Quarter ended", "million", "2025-12-27", "143,756", "2025-09-27",
                            "2025-06-27", "2025-03-27", "95,359"})
        EXPECT_TRUE(quarters.contains(row)) << row;
    EXPECT_EQ(quarters.count("<tr>"), 5);
}

TEST_F(AssistantTest, TheYearOfTheCellThatIsAskedAboutIsTold) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    user_.activate(window);
    user_.click(control(window, "txtSales(8)"));
    Assistant& assistant = ask(window, doYRevenue, "391,035");
    EXPECT_EQ(text(assistant, "company"), "Apple Inc. (AAPL), fiscal year 2024");
    EXPECT_EQ(text(assistant, "stored"), "391,035 million");
    EXPECT_EQ(text(assistant, "onScreen"), "");
    EXPECT_EQ(chart(assistant).history().marked, 8);
}

TEST_F(AssistantTest, ATextOnScreenThatSaysSomethingElseIsToldBesideTheStoredFigure) {
    const auto apple = stored(*host_, "AAPL");
    struct Row {
        int object;
        const char* shown;
        bool differs;
    };
    constexpr Row rows[] = {
        {doTotalDebt, "90,509", false},
        {doTotalDebt, "91", true},
        {doTotalDebt, "90,509,000", true},
        {doName, "Apple Inc.", false},
        {doName, "Apple", true},
        {doLastFYDate, "9/27/2025", false},
        {doLastFYDate, "09/27/2025", false},
        {doLastFYDate, "9/28/2025", true},
        {doLastFYDate, "soon", true},
        {doLastFY, "2025", false},
        {doLastFY, "202", true},
        {doYBookVal, "4.991", false},
        {doYBookVal, "4.99", true},
        {doYHigh, "260 1/8", true},
        {doCurrentPrice, "230 1/2", true},
        {doUnit, "Billions", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(assistantFacts(*assistantTopic(row.object), *apple, std::nullopt, row.shown,
                                 "MM/DD/YYYY")
                      .differs,
                  row.differs)
            << row.object << " " << row.shown;
}

TEST_F(AssistantTest, ATextOnScreenIsReadByTheMarksOfTheForm) {
    const auto apple = stored(*host_, "AAPL");
    const auto differs = [&](const char* shown, const NumberMarks& marks) {
        return assistantFacts(*assistantTopic(doTotalDebt), *apple, std::nullopt, shown, {}, marks)
            .differs;
    };
    EXPECT_FALSE(differs("90.509,00", {',', "."}));
    EXPECT_TRUE(differs("90,509", {',', "."}));
    EXPECT_FALSE(differs("90\u2019509", {'.', "\u2019"}));
}

TEST_F(AssistantTest, TheCaptionThatStandsInForAnEmptyFieldIsNoTextOnScreen) {
    CompanyWindow& window = open(*host_, "AAPL");
    user_.click(control(window, "txt52WHigh"));
    Assistant& assistant = ask(window, do52WHigh, "52 Week High");
    EXPECT_EQ(text(assistant, "stored"), "Nothing is stored.");
    EXPECT_EQ(text(assistant, "onScreen"), "");
}

TEST_F(AssistantTest, AskingDoesNotStoreWhatIsHalfTyped) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "123", false);
    Assistant& assistant = ask(window, doTotalDebt, "123");
    EXPECT_EQ(window.record()->get_TotalDebt(), 90509);
    EXPECT_EQ(text(assistant, "stored"), "90,509 million");
    EXPECT_EQ(text(assistant, "onScreen"), "On screen: 123");
}

TEST_F(AssistantTest, TheWindowFollowsWhatIsStoredMeanwhile) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "91", false);
    Assistant& assistant = ask(window, doTotalDebt, "91");
    EXPECT_EQ(text(assistant, "onScreen"), "On screen: 91");
    type(window, "txtTotalDebt", "88000");
    EXPECT_EQ(text(assistant, "stored"), "88,000 million");
    EXPECT_EQ(text(assistant, "onScreen"), "");
}

TEST_F(AssistantTest, LossesAndYearsWithoutAFigureAreToldAsSuch) {
    Assistant& assistant = ask(open(*host_, "SNOW"), doYEPS);
    EXPECT_EQ(text(assistant, "stored"), "-3.86");
    const QString years = chart(assistant).accessibleDescription();
    EXPECT_TRUE(years.contains("fiscal year 2018: nothing stored; fiscal year 2019: -4.67; "))
        << years.toStdString();
    EXPECT_FALSE(chart(assistant).history().series.front().figures.front().has_value());
}

TEST_F(AssistantTest, AFigureThatHasNoHistoryOfItsOwnIsShownWithTheOneItBelongsTo) {
    struct Row {
        int object;
        const char* chart;
        const char* quarters;
    };
    constexpr Row rows[] = {
        {doCurrentPrice, "High and Low by fiscal year", ""},
        {do52WLow, "High and Low by fiscal year", ""},
        {doCommShares, "Shares Outstanding by fiscal year", ""},
        {doDilutedShares, "Shares Outstanding by fiscal year", ""},
        {doLast4QEPS, "Earnings Per Share by fiscal year", "Quarterly Earnings Per Share"},
        {doCommDiv, "Dividends Declared by fiscal year", ""},
        {doEstTaxRate, "Tax Rate by fiscal year", "Quarterly Tax Rate"},
        {doTabQuarterly, "Quarterly Revenue by quarter", "Quarterly Revenue"},
        {doInsiderHolding, "", ""},
        {doCity, "", ""},
    };
    CompanyWindow& window = open(*host_, "AAPL");
    for (const Row& row : rows) {
        Assistant& assistant = ask(window, row.object);
        EXPECT_EQ(text(assistant, "chartTitle"), row.chart) << row.object;
        EXPECT_EQ(text(assistant, "quartersTitle"), row.quarters) << row.object;
    }
    const QString prices = chart(ask(window, doCurrentPrice)).accessibleDescription();
    EXPECT_TRUE(prices.endsWith("fiscal year 2025: High 260.1, Low 169.21"))
        << prices.toStdString();
}

TEST_F(AssistantTest, AQuarterlyFigureIsShownOverAllOfItsQuarters) {
    Assistant& assistant = ask(open(*host_, "AAPL"), doQEPS);
    EXPECT_EQ(text(assistant, "company"), "Apple Inc. (AAPL), quarter ended 2025-12-27");
    EXPECT_EQ(text(assistant, "stored"), "2.84");
    EXPECT_EQ(chart(assistant).history().periods.size(), 35);
    EXPECT_TRUE(
        chart(assistant).accessibleDescription().endsWith("quarter ended 2025-12-27: 2.84"));
}

TEST_F(AssistantTest, TheComingYearIsPartOfTheHistoryOnceItHasAFigure) {
    CompanyWindow& window = open(*host_, "AAPL");
    Assistant& assistant = ask(window, doYDividend);
    EXPECT_EQ(chart(assistant).history().periods.size(), 10);
    edit(window,
         [](iVKR_Company& company) { test::putElement(company, Datum::YDividendSeries, 0, 1.08); });
    ask(window, doYDividend);
    EXPECT_EQ(chart(assistant).history().periods.size(), 11);
    EXPECT_TRUE(chart(assistant).accessibleDescription().endsWith("coming fiscal year 2026: 1.08"));
}

TEST_F(AssistantTest, ChoicesAndFiguresThatAreWorkedOutAreToldFromTheRecord) {
    CompanyWindow& window = open(*host_, "AAPL");
    edit(window, [](iVKR_Company& company) {
        company.put_TotalCap(164242);
        company.get_Settings()->put(setting::taxRate, true);
        company.get_Settings()->put(setting::currencySymbol, "$");
        company.get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{0});
    });
    const auto stored = [&](int object) { return text(ask(window, object), "stored"); };
    EXPECT_EQ(stored(doUnit), "Millions");
    EXPECT_EQ(stored(doPTI_TaxRate), "Tax rate");
    EXPECT_EQ(stored(doCommEq_BookVal), "Common equity");
    EXPECT_EQ(stored(doLockInfo), "Off");
    EXPECT_EQ(stored(doReportingPeriod), "3 months");
    EXPECT_EQ(stored(doPercentTotalCap), "55.11 %");
    EXPECT_EQ(stored(doPercentDilution), "0.88 %");
    EXPECT_EQ(text(ask(window, doTotalCap), "unit"), "In millions of the company's currency ($)");
}

TEST_F(AssistantTest, ALongTextIsShownInFull) {
    CompanyWindow& window = open(*host_, "AAPL");
    const std::string notes = "First line\nsecond line\n" + std::string(5000, 'n');
    edit(window, [&](iVKR_Company& company) { company.put_Notes(notes); });
    Assistant& assistant = ask(window, doNotes, QString::fromStdString(notes));
    EXPECT_EQ(assistant.findChild<QPlainTextEdit*>()->toPlainText().toStdString(), notes);
    EXPECT_EQ(text(assistant, "onScreen"), "");
    EXPECT_LT(assistant.height(), 500);
}

TEST_F(AssistantTest, EveryObjectHasAnAnswerForEachSampleAndForAnEmptyRecord) {
    QList<CompanyWindow*> windows{host_->newCompany()};
    for (const char* symbol : {"AAPL", "SNOW", "TSLA", "NVDA"})
        windows.append(&open(*host_, symbol));
    for (CompanyWindow* window : windows)
        for (int object = 0; object < dataEntryObjectCount; ++object) {
            Assistant& assistant = ask(*window, object, "x");
            const QString title = helpPage(helpObjectBase + object)->title;
            EXPECT_EQ(text(assistant, "title"), title);
            EXPECT_FALSE(text(assistant, "stored").isEmpty()) << title.toStdString();
            EXPECT_EQ(chart(assistant).isVisible(), !chart(assistant).accessibleName().isEmpty());
            if (chart(assistant).isVisible()) {
                EXPECT_GE(chart(assistant).history().periods.size(), 4) << title.toStdString();
            }
            EXPECT_FALSE(assistant.grab().isNull());
        }
    Assistant& empty = ask(*windows.front(), doYRevenue);
    EXPECT_EQ(text(empty, "stored"), "Nothing is stored.");
    EXPECT_EQ(chart(empty).accessibleDescription().count("nothing stored"), 10);
    EXPECT_EQ(text(empty, "quarters").count("nothing stored"), 4);
}

TEST_F(AssistantTest, PeriodsOfARecordWithoutDatesAreCountedFromTheLast) {
    const CompanyRecord undated;
    for (const AssistantTopic& topic : assistantTopics()) {
        const AssistantFacts facts = assistantFacts(topic, undated);
        EXPECT_FALSE(facts.stored.isEmpty()) << *topic.object;
        EXPECT_FALSE(facts.history.hasFigures()) << *topic.object;
    }
    const AssistantFacts years = assistantFacts(*assistantTopic(doYRevenue), undated);
    EXPECT_EQ(years.history.periods.back().name, "last fiscal year");
    EXPECT_EQ(years.history.periods.front().name, "fiscal year 9 before the last");
    EXPECT_EQ(years.quarters.front().first, "last quarter");
    EXPECT_EQ(years.quarters.back().first, "quarter 3 before the last");
}

TEST_F(AssistantTest, FiguresAtTheEndsOfTheRangeArePainted) {
    CompanyWindow& window = open(*host_, "AAPL");
    for (const double figure : {1.7e308, 5e-324, -1.7e308, 1e-9}) {
        edit(window, [&](iVKR_Company& company) {
            test::putElement(company, Datum::YRevenueSeries, 1, figure);
            test::putElement(company, Datum::YRevenueSeries, 2, -figure);
        });
        EXPECT_FALSE(ask(window, doYRevenue).grab().isNull()) << figure;
    }
}

TEST_F(AssistantTest, BarsAreOnTheirSideOfTheZeroLineAndGapsStayEmpty) {
    History history;
    history.title = "Gains";
    history.series = {{"Gains", {5.0, std::nullopt, -5.0}}};
    for (const char* year : {"1", "2", "3"})
        history.periods.append(History::Period{year, year});
    HistoryChart chart;
    chart.setHistory(history);
    chart.resize(300, 200);
    const QImage image = chart.grab().toImage();
    const QColor empty = chart.palette().color(QPalette::Window);
    // Rows in which a column has the colour of a bar, counted off the grid lines.
    const auto coloured = [&](int x) {
        int first = -1;
        int last = -1;
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(x, y);
            if (color != empty && color.saturation() > 40) {
                first = first < 0 ? y : first;
                last = y;
            }
        }
        return std::pair(first, last);
    };
    const auto gain = coloured(image.width() * 22 / 100);
    const auto loss = coloured(image.width() * 84 / 100);
    EXPECT_GE(gain.first, 0);
    EXPECT_GT(loss.first, 0);
    EXPECT_LE(gain.second, loss.first + 1);
    EXPECT_EQ(coloured(image.width() * 53 / 100).first, -1);
}

TEST_F(AssistantTest, OneWindowACompanyAnswersAndEscapeClosesIt) {
    CompanyWindow& window = open(*host_, "AAPL");
    Assistant& assistant = ask(window, doYRevenue);
    EXPECT_FALSE(assistant.isModal());
    EXPECT_EQ(&ask(window, doYEPS), &assistant);
    EXPECT_EQ(window.findChildren<Assistant*>().size(), 1);
    user_.activate(assistant);
    user_.press(Qt::Key_Escape);
    EXPECT_FALSE(assistant.isVisible());
    EXPECT_EQ(&ask(window, doYEPS), &assistant);
    CompanyWindow& other = open(*host_, "SNOW");
    EXPECT_NE(&ask(other, doYEPS), &assistant);
    emit window.entry().assistant(dataEntryObjectCount, QString());
    EXPECT_EQ(assistant.object(), doYEPS);
}

TEST_F(AssistantTest, TheAnswerStandsBesideWhatIsAskedAbout) {
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    struct : ShownCompany {
        std::shared_ptr<const CompanyRecord> record() const override { return recordToSave(); }
        std::shared_ptr<CompanyRecord> recordToSave() const override {
            return std::make_shared<CompanyRecord>();
        }
        const FigureOrigins& origins() const override { return none; }
        FigureOrigins none;
    } company;
    const QSize size(room.width(), 60);
    for (const QPoint& corner : {room.topLeft(), QPoint(room.left(), room.bottom() - 100)}) {
        QWidget form;
        form.setGeometry(QRect(corner, size));
        form.show();
        Assistant assistant(company, &form);
        assistant.tell(doName, {}, std::nullopt, "Short Date");
        EXPECT_FALSE(assistant.frameGeometry().intersects(form.frameGeometry()));
        EXPECT_TRUE(room.contains(assistant.frameGeometry()));
    }
}

TEST_F(AssistantTest, TheWindowGoesWithItsCompany) {
    CompanyWindow& window = open(*host_, "AAPL");
    const QPointer<Assistant> assistant(&ask(window, doYRevenue));
    const QPointer<CompanyWindow> company(&window);
    window.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(company.isNull());
    EXPECT_TRUE(assistant.isNull());
}

TEST_F(AssistantTest, MoreHelpOpensThePageOfTheObject) {
    CompanyWindow& window = open(*host_, "AAPL");
    Assistant& assistant = ask(window, doYBookVal);
    user_.activate(assistant);
    user_.click(*assistant.findChild<QPushButton*>("moreHelp"));
    EXPECT_EQ(host_->help().shownPage(), helpObjectBase + doYBookVal);
}

TEST_F(AssistantTest, TheMenuOfACellLeadsToItsYear) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    DialogAnswers menu;
    menu.nextEntry("Ask the Assistant...");
    user_.activate(window);
    user_.click(control(window, "txtSales(7)"), Qt::RightButton);
    auto& assistant = *window.findChild<Assistant*>();
    EXPECT_TRUE(assistant.isVisible());
    EXPECT_EQ(text(assistant, "company"), "Apple Inc. (AAPL), fiscal year 2023");
    EXPECT_EQ(text(assistant, "stored"), "383,285 million");
    EXPECT_EQ(text(assistant, "onScreen"), "");
}

TEST(AssistantTopics, EveryDatumCanBeToldOf) {
    for (int datum = 0; datum < datumCount; ++datum)
        EXPECT_FALSE(helpTitleOf(topicOf(static_cast<Datum>(datum))).isEmpty()) << datum;
}

} // namespace
} // namespace vkr
