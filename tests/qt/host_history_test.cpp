// SPDX-License-Identifier: MIT
// The history of a company and of a figure, as the host shows it.
#include "company/company_csv.hpp"
#include "form/controls.hpp"
#include "host/assistant.hpp"
#include "host/findings_panel.hpp"
#include "host/history_window.hpp"
#include "host/texts.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/qt/support/wheel.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QStyleOptionHeader>
#include <QTimer>
#include <QTreeWidget>

namespace vkr {

namespace {

class HostHistory : public HostTest {
  protected:
    static void change(CompanyWindow& window, Datum datum, const Variant& value) {
        const std::vector<DatumChange> changes = {
            {datum, std::nullopt, readDatum(*window.record(), datum), value}};
        ASSERT_EQ(window.entry().component().changeRecord(changes, {Origin::typed, "", ""}),
                  std::nullopt);
    }
    static HistoryWindow& shownHistory(CompanyWindow& window) {
        action(window, "history").trigger();
        auto* history = window.findChild<HistoryWindow*>();
        EXPECT_NE(history, nullptr);
        EXPECT_TRUE(history->isVisible());
        return *history;
    }
    static QTreeWidget& changes(HistoryWindow& history) {
        return *history.findChild<QTreeWidget*>("changes");
    }
    // The state that the company began with.
    static void restoreFirst(CompanyWindow& window) {
        HistoryWindow& history = shownHistory(window);
        const int entries = changes(history).topLevelItemCount();
        changes(history).setCurrentItem(changes(history).topLevelItem(entries - 1));
        const Answers answers({"Restore"});
        history.findChild<QPushButton*>("restore")->click();
        EXPECT_TRUE(answers.allGiven());
    }
    static void chooseText(HistoryWindow& history, const char* list, const QString& text) {
        auto* box = history.findChild<QComboBox*>(list);
        const int row = box->findText(text);
        ASSERT_GE(row, 0) << text.toStdString();
        box->setCurrentIndex(row);
        emit box->activated(row);
    }
};

TEST_F(HostHistory, TellsThatSamplesWereImported) {
    CompanyWindow& window = open(*host_, "AAPL");
    HistoryWindow& history = shownHistory(window);
    ASSERT_EQ(changes(history).topLevelItemCount(), 1);
    const QTreeWidgetItem* group = changes(history).topLevelItem(0);
    EXPECT_EQ(group->text(2), "Import of AAPL");
    EXPECT_GT(group->childCount(), 200);
    EXPECT_EQ(group->child(0)->text(5), "imported from AAPL-company.csv");
    window.discard();
}

TEST_F(HostHistory, TellsWhatWasTypedAndFiltersIt) {
    CompanyWindow& window = open(*host_, "AAPL");
    change(window, Datum::City, "Graz");
    ASSERT_TRUE(window.save());
    HistoryWindow& history = shownHistory(window);
    ASSERT_EQ(changes(history).topLevelItemCount(), 3);
    EXPECT_EQ(changes(history).topLevelItem(0)->text(2), "Worked out when it was saved");
    const QTreeWidgetItem* group = changes(history).topLevelItem(1);
    EXPECT_EQ(group->text(2), "City");
    EXPECT_EQ(group->text(4), "Graz");
    EXPECT_EQ(group->text(5), "typed");
    chooseText(history, "origin", "Imported");
    EXPECT_EQ(changes(history).topLevelItemCount(), 1);
    chooseText(history, "figure", "City");
    EXPECT_EQ(changes(history).topLevelItem(0)->text(2), "Import of AAPL");
    window.discard();
}

// One that ends on the right stands before one that begins on the left.
TEST_F(HostHistory, HasColumnsThatStandApart) {
    CompanyWindow& window = open(*host_, "AAPL");
    const QHeaderView& heads = *changes(shownHistory(window)).header();
    QStyleOptionHeader head;
    head.initFrom(&heads);
    head.rect = QRect(0, 0, 200, 24);
    const QRect text = heads.style()->subElementRect(QStyle::SE_HeaderLabel, &head, &heads);
    const int letter = heads.fontMetrics().averageCharWidth();
    EXPECT_GE(text.left(), letter);
    EXPECT_LE(text.right(), head.rect.right() - letter);
    window.discard();
}

// Today's tax rate: imported, and not what net and pre-tax income give.
TEST_F(HostHistory, AnImportedTaxRateIsWhatItWasAfterOk) {
    const std::int64_t id = idOf(*host_, "AAPL");
    auto record = host_->store().load(id).value().record;
    test::putElement(*record, Datum::YTaxRateSeries, 2, 18.1);
    SaveAccount account;
    account.rest = {Origin::imported, "Import", "0001-24-5"};
    ASSERT_TRUE(host_->store().save(id, *record, 1, account));
    CompanyWindow& window = open(*host_, "AAPL");
    change(window, Datum::City, "Graz");
    ASSERT_TRUE(window.save());
    const auto saved = host_->store().load(id).value();
    EXPECT_EQ(saved.record->get_City(), "Graz");
    EXPECT_EQ(test::elementOf(*saved.record, Datum::YTaxRateSeries, 2), 18.1);
    EXPECT_EQ(saved.origins.of(Datum::YTaxRateSeries, 2).document, "0001-24-5");
    // On screen it is what it was, too, also where the window stays open and saves again.
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YTaxRateSeries, 2), 18.1);
    change(window, Datum::City, "Wien");
    ASSERT_TRUE(window.save());
    EXPECT_EQ(test::elementOf(*host_->store().load(id).value().record, Datum::YTaxRateSeries, 2),
              18.1);
    window.discard();
}

// What it follows from is edited, saved, and taken back after that.
TEST_F(HostHistory, AnImportedTaxRateComesBackWithItsOrigin) {
    const std::int64_t id = idOf(*host_, "AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    const double imported = test::elementOf(*window.record(), Datum::YTaxRateSeries, 2);
    const double income = test::elementOf(*window.record(), Datum::YPTISeries, 2);
    const FigureOrigins before = window.origins();
    ASSERT_EQ(before.of(Datum::YTaxRateSeries, 2).origin, Origin::imported);
    const std::vector<DatumChange> changes = {{Datum::YPTISeries, 2, income, income * 2}};
    ASSERT_EQ(window.entry().component().changeRecord(changes, {Origin::typed, "", ""}),
              std::nullopt);
    ASSERT_TRUE(window.save());
    EXPECT_NE(test::elementOf(*window.record(), Datum::YTaxRateSeries, 2), imported);
    EXPECT_EQ(window.origins().of(Datum::YTaxRateSeries, 2).origin, Origin::derived);
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YTaxRateSeries, 2), imported);
    ASSERT_TRUE(window.save());
    const auto saved = host_->store().load(id).value();
    EXPECT_EQ(test::elementOf(*saved.record, Datum::YTaxRateSeries, 2), imported);
    EXPECT_EQ(saved.origins.of(Datum::YTaxRateSeries, 2), before.of(Datum::YTaxRateSeries, 2));
    EXPECT_EQ(saved.origins.of(Datum::YPTISeries, 2), before.of(Datum::YPTISeries, 2));
    window.discard();
}

TEST_F(HostHistory, RestoresAStateAsAChangeThatIsNotSavedYet) {
    const std::int64_t id = idOf(*host_, "AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    const std::string city = window.record()->get_City();
    change(window, Datum::City, "Graz");
    ASSERT_TRUE(window.save());
    HistoryWindow& history = shownHistory(window);
    const int entries = changes(history).topLevelItemCount();
    changes(history).setCurrentItem(changes(history).topLevelItem(entries - 1));
    {
        const Answers answers({"Restore"});
        history.findChild<QPushButton*>("restore")->click();
        EXPECT_TRUE(history.isVisible());
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(window.record()->get_City(), city);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(host_->store().load(id).value().record->get_City(), "Graz");
    ASSERT_TRUE(window.save());
    EXPECT_EQ(host_->store().load(id).value().record->get_City(), city);
    EXPECT_GT(changes(history).topLevelItemCount(), entries) << "and is in the list by now";
    window.discard();
}

TEST_F(HostHistory, RestoredFiguresComeFromWhereTheyCameThen) {
    const std::int64_t id = idOf(*host_, "AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    const FigureOrigin imported = window.origins().of(Datum::YRevenueSeries, 2);
    ASSERT_EQ(imported.document, "AAPL-yearly.csv");
    const double revenue = test::elementOf(*window.record(), Datum::YRevenueSeries, 2);
    const std::vector<DatumChange> typing = {{Datum::YRevenueSeries, 2, revenue, 7.0}};
    ASSERT_EQ(window.entry().component().changeRecord(typing, {Origin::typed, "", ""}),
              std::nullopt);
    ASSERT_TRUE(window.save());
    ASSERT_EQ(window.origins().of(Datum::YRevenueSeries, 2).origin, Origin::typed);
    restoreFirst(window);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YRevenueSeries, 2), revenue);
    EXPECT_EQ(window.origins().of(Datum::YRevenueSeries, 2), imported);
    ASSERT_TRUE(window.save());
    EXPECT_EQ(host_->store().load(id).value().origins.of(Datum::YRevenueSeries, 2), imported);
    const auto query = HistoryQuery{.datum = "YRevenueSeries"};
    EXPECT_EQ(host_->store().history(id, query).value().front().changes.front().document,
              imported.document);
    window.discard();
}

// Figures in another currency are other figures.
TEST_F(HostHistory, RestoresTheSettingsToo) {
    CompanyWindow& window = open(*host_, "AAPL");
    const auto settings = window.record()->get_Settings();
    const std::string symbol = settings->get(setting::currencySymbol).toText();
    ASSERT_NE(symbol, "CHF");
    auto& field = controls::currencySymbol.in(window.entry().component().form());
    settings->put(setting::currencySymbol, "CHF");
    window.entry().recordChanged();
    ASSERT_EQ(field.text(), "CHF");
    ASSERT_TRUE(window.save());
    restoreFirst(window);
    EXPECT_EQ(settings->get(setting::currencySymbol).toText(), symbol);
    EXPECT_EQ(field.text(), symbol);
    EXPECT_TRUE(window.isWindowModified());
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(settings->get(setting::currencySymbol).toText(), "CHF");
    window.discard();
}

TEST_F(HostHistory, OfANewCompanyBeginsWhenItIsSaved) {
    CompanyWindow& window = *host_->newCompany();
    {
        const Answers answers({"OK"});
        action(window, "history").trigger();
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(window.findChild<HistoryWindow*>(), nullptr);
    window.discard();
}

TEST_F(HostHistory, OfAFigureIsAskedForInTheAssistant) {
    CompanyWindow& window = open(*host_, "AAPL");
    emit window.entry().assistant(doTotalDebt, QString());
    auto* assistant = window.findChild<Assistant*>();
    ASSERT_NE(assistant, nullptr);
    EXPECT_EQ(assistant->findChild<QLabel*>("origin")->text(),
              "Where it comes from: imported from AAPL-company.csv");
    assistant->findChild<QPushButton*>("history")->click();
    auto* history = window.findChild<HistoryWindow*>();
    ASSERT_NE(history, nullptr);
    EXPECT_EQ(history->findChild<QComboBox*>("figure")->currentText(), "Total Debt");
    ASSERT_EQ(changes(*history).topLevelItemCount(), 1);
    EXPECT_EQ(changes(*history).topLevelItem(0)->childCount(), 1);
    window.discard();
}

TEST_F(HostHistory, IsBoundedAfterAQuestion) {
    CompanyWindow& window = open(*host_, "AAPL");
    HistoryWindow& history = shownHistory(window);
    {
        const Answers answers({"Cancel", "Keep 20"});
        chooseText(history, "limit", "20 saves");
        EXPECT_EQ(host_->store().historyLimit().value(), 0);
        EXPECT_EQ(history.findChild<QComboBox*>("limit")->currentText(), "all saves");
        turnWheel(*history.findChild<QComboBox*>("limit"), -120); // asks nothing
        chooseText(history, "limit", "20 saves");
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(host_->store().historyLimit().value(), 20);
    window.discard();
}

// Its questions are modal to its window alone: the list can still be used.
TEST_F(HostHistory, GoesWithItsCompanyUnderItsQuestions) {
    const auto deleteOnceAsked = [&](HistoryWindow& history, const char* symbol, auto ask) {
        const QPointer<HistoryWindow> watched(&history);
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, [&] {
            if (QApplication::activeModalWidget() == nullptr)
                return;
            waiting.stop();
            const Answers answers({"Delete"});
            host_->deleteCompanies({idOf(*host_, symbol)});
            EXPECT_TRUE(answers.allGiven());
        });
        waiting.start(0);
        ask(history);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(watched.isNull()) << symbol;
        EXPECT_TRUE(host_->windows().isEmpty()) << symbol;
    };
    deleteOnceAsked(shownHistory(open(*host_, "AAPL")), "AAPL",
                    [](HistoryWindow& history) { chooseText(history, "limit", "20 saves"); });
    CompanyWindow& window = open(*host_, "NVDA");
    change(window, Datum::City, "Graz");
    ASSERT_TRUE(window.save());
    deleteOnceAsked(shownHistory(window), "NVDA", [](HistoryWindow& history) {
        QTreeWidget& tree = changes(history);
        tree.setCurrentItem(tree.topLevelItem(tree.topLevelItemCount() - 1));
        history.findChild<QPushButton*>("restore")->click();
    });
    EXPECT_EQ(host_->store().historyLimit().value(), 0);
}

TEST_F(HostHistory, HasWhatWasSavedOfACompanyThatIsDamaged) {
    const std::int64_t id = idOf(*host_, "AAPL");
    const double debt = host_->store().load(id).value().record->get_TotalDebt();
    execute(QString("UPDATE company SET \"TotalDebt\" = 1 WHERE id = %1").arg(id));
    const Answers answers({"Show What Was Saved"});
    CompanyWindow& window = open(*host_, "AAPL");
    EXPECT_TRUE(answers.allGiven());
    ASSERT_EQ(answers.told().size(), 1);
    EXPECT_TRUE(answers.told().front().contains("Total Debt was saved as"));
    EXPECT_EQ(window.record()->get_TotalDebt(), debt);
    EXPECT_TRUE(window.isWindowModified());
    ASSERT_TRUE(window.save());
    EXPECT_EQ(host_->store().check(id).value(), std::nullopt);
    window.discard();
}

// Also what was damaged while the company was open, be it the history alone.
TEST_F(HostHistory, TellsDamageAsTheAssistantDoesUntilTheCompanyIsSaved) {
    const std::int64_t id = idOf(*host_, "AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    emit window.entry().assistant(doTotalDebt, QString());
    const auto* ofAssistant = window.findChild<Assistant*>()->findChild<QLabel*>("damage");
    HistoryWindow& history = shownHistory(window);
    const auto* ofHistory = history.findChild<QLabel*>("damage");
    EXPECT_TRUE(ofAssistant->isHidden());
    EXPECT_TRUE(ofHistory->isHidden());
    execute(QString("UPDATE company SET \"TotalDebt\" = 1 WHERE id = %1").arg(id));
    history.refresh();
    emit window.entry().assistant(doTotalDebt, QString());
    for (const QLabel* told : {ofAssistant, ofHistory}) {
        EXPECT_FALSE(told->isHidden());
        EXPECT_EQ(told->text().toStdString(), host_->store().check(id).value()->message);
        EXPECT_TRUE(told->text().contains("\u201cApple Inc.\u201d is not as it was saved"));
        EXPECT_TRUE(told->text().contains("Total Debt was saved as"));
    }
    change(window, Datum::City, "Graz");
    ASSERT_TRUE(window.save());
    EXPECT_EQ(host_->store().check(id).value(), std::nullopt);
    EXPECT_TRUE(ofAssistant->isHidden());
    EXPECT_TRUE(ofHistory->isHidden());
    execute(QString("UPDATE change_group SET changed_by = 'x' WHERE company_id = %1").arg(id));
    history.refresh();
    EXPECT_TRUE(ofHistory->text().startsWith("The history of \u201cApple Inc.\u201d is damaged."));
    window.discard();
}

// Nothing is restored under the lock, so nothing that would be refused is offered.
TEST_F(HostHistory, OfADamagedCompanyThatIsLockedIsHadAfterUnlocking) {
    const std::int64_t id = idOf(*host_, "AAPL");
    const double debt = host_->store().load(id).value().record->get_TotalDebt();
    CompanyWindow& first = open(*host_, "AAPL");
    const auto clickLock = [](CompanyWindow& window) {
        Form& form = window.entry().component().form();
        form.click(controls::lock.in(form));
    };
    clickLock(first);
    ASSERT_TRUE(first.save());
    first.discard();
    execute(QString("UPDATE company SET \"TotalDebt\" = 1 WHERE id = %1").arg(id));
    auto answers = std::make_unique<Answers>(QStringList("OK"));
    CompanyWindow& window = open(*host_, "AAPL");
    EXPECT_TRUE(answers->allGiven());
    ASSERT_EQ(answers->told().size(), 1);
    EXPECT_TRUE(answers->told().front().contains("Take off the lock"))
        << answers->told().front().toStdString();
    EXPECT_EQ(window.record()->get_TotalDebt(), 1);
    answers.reset();
    clickLock(window);
    restoreFirst(window);
    EXPECT_EQ(window.record()->get_TotalDebt(), debt);
    window.discard();
}

TEST_F(HostHistory, IsFilteredByAYearOrAQuarter) {
    CompanyWindow& window = open(*host_, "AAPL");
    const std::vector<DatumChange> figures = {
        {Datum::YRevenueSeries, 2, test::elementOf(*window.record(), Datum::YRevenueSeries, 2),
         7.0},
        {Datum::QEPSSeries, 1, test::elementOf(*window.record(), Datum::QEPSSeries, 1), 9.0}};
    ASSERT_EQ(window.entry().component().changeRecord(figures, {Origin::typed, "Two", ""}),
              std::nullopt);
    ASSERT_TRUE(window.save());
    const QString year = fromUtf8(historyPeriod(*window.record(), Datum::YRevenueSeries, 2));
    const QString quarter = fromUtf8(historyPeriod(*window.record(), Datum::QEPSSeries, 1));
    HistoryWindow& history = shownHistory(window);
    auto* periods = history.findChild<QComboBox*>("period");
    ASSERT_NE(periods, nullptr);
    EXPECT_EQ(periods->currentText(), "Any period");
    EXPECT_LT(periods->findText(year), periods->findText(quarter)) << "years come first";
    EXPECT_LT(periods->findText(year), periods->findText(QString::number(year.toInt() - 1)));
    chooseText(history, "origin", "Typed");
    const auto onlyOf = [&](const QString& period, const QString& after) {
        chooseText(history, "period", period);
        ASSERT_EQ(changes(history).topLevelItemCount(), 1);
        const QTreeWidgetItem* group = changes(history).topLevelItem(0);
        ASSERT_EQ(group->childCount(), 1);
        EXPECT_TRUE(group->child(0)->text(2).endsWith(period))
            << group->child(0)->text(2).toStdString();
        EXPECT_EQ(group->child(0)->text(4), after);
    };
    onlyOf(year, "7");
    onlyOf(quarter, "9");
    history.refresh();
    EXPECT_EQ(periods->currentText(), quarter) << "stays chosen";
    chooseText(history, "figure", "Yearly Revenue");
    EXPECT_EQ(changes(history).topLevelItemCount(), 0);
    window.discard();
}

// --- saved anew, beside or in place of a company that others have changed or deleted -----------

struct NewCompanyWay {
    const char* test;
    bool isRemoved; // else changed
    const char* answer;
};

class HostHistoryOfACopy : public HostHistory, public testing::WithParamInterface<NewCompanyWay> {
  protected:
    // A window whose company others have saved or deleted meanwhile, with its history beside it.
    CompanyWindow& overtaken() {
        CompanyWindow& mine = open(*host_, "SNOW");
        const auto colleague = another();
        if (GetParam().isRemoved) {
            const Answers answers({"Delete"});
            colleague->deleteCompanies({*mine.id()});
        } else {
            CompanyWindow& theirs = open(*colleague, "SNOW");
            change(theirs, Datum::City, "Theirs");
            EXPECT_TRUE(theirs.save());
            theirs.discard();
        }
        change(mine, Datum::City, "Mine");
        shownHistory(mine);
        return mine;
    }
    // Keeps new companies out of the database, or no longer.
    void keepOut(bool isToKeep) {
        execute(isToKeep ? "CREATE TRIGGER full BEFORE INSERT ON company "
                           "BEGIN SELECT RAISE(ABORT, 'full'); END"
                         : "DROP TRIGGER full");
    }
    static void expectThatOfACopy(HistoryWindow& history) {
        constexpr int what = 2;
        EXPECT_EQ(changes(history).findItems("Saved as a copy", Qt::MatchExactly, what).size(), 1);
        EXPECT_EQ(changes(history).findItems("Import of SNOW", Qt::MatchExactly, what).size(), 0);
    }
};

TEST_P(HostHistoryOfACopy, IsItsOwn) {
    CompanyWindow& mine = overtaken();
    const std::int64_t before = *mine.id();
    {
        const Answers answers({GetParam().answer});
        ASSERT_TRUE(mine.save());
        EXPECT_TRUE(answers.allGiven());
    }
    ASSERT_NE(*mine.id(), before);
    EXPECT_EQ(mine.findChild<HistoryWindow*>(), nullptr) << "that of the other company";
    HistoryWindow& history = shownHistory(mine);
    expectThatOfACopy(history);
    EXPECT_NE(history.windowTitle().indexOf(QString::fromStdString(mine.record()->get_Name())), -1);
    changes(history).setCurrentItem(changes(history).topLevelItem(0));
    const Answers answers({"Restore"});
    history.findChild<QPushButton*>("restore")->click();
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(mine.record()->get_City(), "Mine");
    mine.discard();
}

TEST_P(HostHistoryOfACopy, BeginsWhenItIsSaved) {
    CompanyWindow& mine = overtaken();
    keepOut(true);
    {
        const Answers answers({GetParam().answer, "OK", "OK"});
        EXPECT_FALSE(mine.save());
        EXPECT_EQ(mine.id(), std::nullopt);
        EXPECT_EQ(mine.findChild<HistoryWindow*>(), nullptr) << "that of the other company";
        action(mine, "history").trigger();
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(2).contains("has no history yet."));
    }
    keepOut(false);
    ASSERT_TRUE(mine.save());
    expectThatOfACopy(shownHistory(mine));
    mine.discard();
}

TEST_P(HostHistoryOfACopy, IsSpokenOfByItselfBeforeItIsSaved) {
    CompanyWindow& mine = overtaken();
    const std::int64_t before = *mine.id();
    keepOut(true);
    {
        const Answers answers({GetParam().answer, "OK"});
        EXPECT_FALSE(mine.save());
        QApplication::processEvents(); // the figures are looked over
        mine.findChild<FindingsPanel*>()->enter();
        mine.findChild<QPushButton*>("itIsRight")->click();
        EXPECT_TRUE(answers.allGiven());
    }
    const auto theirs = host_->store().load(before);
    EXPECT_EQ(!theirs, GetParam().isRemoved);
    EXPECT_TRUE(!theirs || theirs.value().calledRight.empty());
    keepOut(false);
    ASSERT_TRUE(mine.save());
    EXPECT_EQ(host_->store().load(*mine.id()).value().calledRight.size(), 1U);
    mine.discard();
}

// Its first save has failed, and so does the program.
TEST_P(HostHistoryOfACopy, IsKeptWithWhatIsTypedAfterItsFirstSaveHasFailed) {
    CompanyWindow& mine = overtaken();
    keepOut(true);
    {
        const Answers answers({GetParam().answer, "OK"});
        EXPECT_FALSE(mine.save());
    }
    change(mine, Datum::State, "Typed since");
    const auto before = mine.record()->clone();
    const FigureOrigins origins = mine.origins();
    keepOut(false);
    killWith(mine);
    host_ = another();
    const Answers answers({"Restore"});
    host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(restored.id(), std::nullopt);
    EXPECT_EQ(restored.record()->get_Name(), before->get_Name());
    EXPECT_EQ(before->get_Name().ends_with("(copy)"), !GetParam().isRemoved);
    EXPECT_EQ(restored.record()->get_City(), "Mine");
    EXPECT_EQ(restored.record()->get_State(), "Typed since");
    EXPECT_EQ(restored.record()->stored(Datum::YRevenueSeries),
              before->stored(Datum::YRevenueSeries));
    EXPECT_EQ(restored.origins().of(Datum::YRevenueSeries, 1),
              origins.of(Datum::YRevenueSeries, 1));
    ASSERT_TRUE(restored.save());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    restored.discard();
}

// The same where it is given up instead.
TEST_P(HostHistoryOfACopy, ComesBackWhenItWasDiscarded) {
    CompanyWindow& mine = overtaken();
    keepOut(true);
    {
        const Answers answers({GetParam().answer, "OK", "Discard"});
        EXPECT_FALSE(mine.save());
        change(mine, Datum::State, "Typed since");
        mine.close();
        EXPECT_TRUE(answers.allGiven());
    }
    keepOut(false);
    ASSERT_TRUE(host_->windows().isEmpty());
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    restore->click();
    EXPECT_TRUE(restore->isHidden());
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(restored.id(), std::nullopt);
    EXPECT_EQ(restored.record()->get_City(), "Mine");
    EXPECT_EQ(restored.record()->get_State(), "Typed since");
    EXPECT_EQ(restored.record()->get_Name().ends_with("(copy)"), !GetParam().isRemoved);
    const auto imported = test::sample("SNOW");
    EXPECT_EQ(restored.record()->stored(Datum::YRevenueSeries),
              imported->stored(Datum::YRevenueSeries));
    EXPECT_EQ(restored.origins().of(Datum::YRevenueSeries, 1).origin, Origin::imported);
    ASSERT_TRUE(restored.save());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    restored.discard();
}

INSTANTIATE_TEST_SUITE_P(
    Saved, HostHistoryOfACopy,
    testing::Values(NewCompanyWay{"BesideTheirs", false, "Save Mine as a Copy"},
                    NewCompanyWay{"InPlaceOfADeletedOne", true, "Save as New Company"}),
    [](const auto& row) { return row.param.test; });

} // namespace
} // namespace vkr
