// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"
#include "control/cell_commands.hpp"
#include "platform/exact_number.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/hostile_desktop.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {
namespace {

// Writes down which actions changed anything, and which data.
class ListeningRecord final : public CompanyBase, public ActionListener {
  public:
    struct Done {
        Action action;
        std::vector<Datum> writes;
    };
    std::vector<Done> actions;
    std::optional<Datum> refused;

    void beginAction(const Action& action) override {
        if (origins_.empty())
            open_ = {};
        if (open_.action.name.empty()) // of nested ones the first that has one
            open_.action.name = action.name;
        origins_.push_back(action.origin);
    }
    void endAction() noexcept override {
        origins_.pop_back();
        if (origins_.empty() && !open_.writes.empty())
            actions.push_back(open_);
    }

#define VKR_LISTENING(kind, name, title, unit, key, place)                                         \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        return figures_.get_##name();                                                              \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override {                                   \
        note(Datum::name, !(figures_.get_##name() == value));                                      \
        figures_.put_##name(value);                                                                \
    }
    VKR_DATA(VKR_LISTENING)
#undef VKR_LISTENING

  private:
    void note(Datum datum, bool changes) {
        if (refused == datum)
            throw std::runtime_error("No losses today.");
        if (!changes || origins_.empty())
            return;
        if (open_.writes.empty())
            open_.action.origin = origins_.back();
        open_.writes.push_back(datum);
    }

    CompanyRecord figures_;
    std::vector<Origin> origins_; // of the actions under way
    Done open_;
};

std::shared_ptr<ListeningRecord> datedRecord() {
    auto record = std::make_shared<ListeningRecord>();
    record->put_LastFY(2025);
    record->put_LastFYDate(*makeDate(2025, 9, 30));
    record->put_LastQDate(*makeDate(2026, 9, 30));
    record->put_LastQDateForGrid(*makeDate(2026, 9, 30));
    return record;
}

struct Scene : EntryScene {
    std::shared_ptr<ListeningRecord> record = datedRecord();

    explicit Scene(int tab = toYearly) {
        load(record);
        record->actions.clear(); // of loading
        desktop.clickTab(tab);
    }
    // Of the yearly grid, by its row: 9 is the last fiscal year.
    [[nodiscard]] double revenue(int row) const {
        return record->get_YRevenueSeries().array().number(10 - row);
    }
    [[nodiscard]] double netIncome(int row) const {
        return record->get_YNetIncSeries().array().number(10 - row);
    }
    void paste(std::string_view id, std::string_view text) {
        desktop.setClipboardText(std::string(text));
        desktop.click(id);
        desktop.type("^v");
    }
    [[nodiscard]] std::vector<std::string> highlighted() const {
        std::vector<std::string> ids;
        for (const auto& control : form().controls())
            if (const auto* box = dynamic_cast<const TextBox*>(control.get());
                box != nullptr && box->highlighted())
                ids.push_back(box->id());
        return ids;
    }
};

using Ids = std::vector<std::string>;

// --- paste ---------------------------------------------------------------------------------------

TEST(CellCommands, ShowABlockBeforeItIsPasted) {
    Scene scene;
    scene.paste("txtSales(8)", "1\t2\n3\tn/a");
    ASSERT_EQ(scene.desktop.pastes().size(), 1U);
    const auto& shown = scene.desktop.pastes()[0];
    EXPECT_EQ(shown.caption, "Paste into Revenue (M) 2024");
    EXPECT_EQ(shown.heads, (Ids{"Period", "Column", "Clipboard", "Now", "Then", "Remark"}));
    ASSERT_EQ(shown.lines.size(), 4U);
    EXPECT_EQ(shown.lines[0].period, "2024");
    EXPECT_EQ(shown.lines[0].column, "Revenue (M)");
    EXPECT_EQ(shown.lines[0].after, "1");
    EXPECT_EQ(shown.lines[3].fate, PasteFate::leftOut);
    EXPECT_EQ(shown.lines[3].remark, "Not available.");
    EXPECT_EQ(shown.okCaption, "&Paste 3 Figures");
    EXPECT_EQ(shown.summary, "3 figures will be pasted. One is left out.");
    EXPECT_EQ(scene.revenue(8), 0) << "nobody has pressed OK";
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_TRUE(scene.record->actions.empty());
    EXPECT_TRUE(scene.desktop.refusals().empty());
}

TEST(CellCommands, PasteABlockAsOneAction) {
    Scene scene;
    scene.desktop.acceptNextPaste();
    scene.paste("txtSales(8)", "1\t2\n3\t4");
    EXPECT_EQ(scene.revenue(8), 1);
    EXPECT_EQ(scene.revenue(9), 3);
    EXPECT_EQ(scene.text("txtSales", 8), "1.00");
    EXPECT_EQ(scene.text("txtYOption", 9), "4.00");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    ASSERT_EQ(scene.record->actions.size(), 1U);
    EXPECT_EQ(scene.record->actions[0].action.name, "Paste of 4 Figures");
    EXPECT_EQ(scene.record->actions[0].action.origin, Origin::pasted);
    EXPECT_EQ(scene.record->actions[0].writes,
              (std::vector<Datum>{Datum::YRevenueSeries, Datum::YPTISeries}))
        << "each series is written once";
    EXPECT_EQ(scene.desktop.focusedId(), "txtSales(8)");
    EXPECT_TRUE(scene.desktop.scriptUsedUp());
}

TEST(CellCommands, PasteByTheYearsOfAReport) {
    Scene scene;
    scene.desktop.acceptNextPaste();
    scene.paste("txtSales(5)", "In thousands\n\t2017\t2016\t2015\nNet Income\t(5,000)\t6,500.5\t1\n"
                               "Revenue\t$70,000\t60,250\t1\nCosts\t1\t2\t3");
    const auto& shown = scene.desktop.pastes()[0];
    EXPECT_EQ(shown.switches[0].chosen, 1);
    EXPECT_EQ(shown.switches[4].chosen, 1) << "thousands";
    EXPECT_EQ(shown.summary, "4 figures will be pasted. 5 are left out.");
    EXPECT_EQ(shown.lines[0].remark, "In brackets: a loss.");
    EXPECT_EQ(shown.lines[2].remark, "2015 is not on the form.");
    EXPECT_EQ(shown.lines[6].remark, "There is no column \"Costs\".");
    EXPECT_EQ(scene.netIncome(1), -5);
    EXPECT_EQ(scene.netIncome(0), 6.5005);
    EXPECT_EQ(scene.revenue(1), 70);
    EXPECT_EQ(scene.revenue(0), 60.25);
}

TEST(CellCommands, LeaveOutWhatTheRecordHasNoPlaceFor) {
    const auto record = std::make_shared<ScriptedRecord>(test::datedCompany());
    record->first = 1; // no year after the last one
    EntryScene scene;
    scene.load(record);
    scene.desktop.clickTab(toYearly);
    scene.desktop.setClipboardText("5\n6\n");
    scene.desktop.acceptNextPaste();
    scene.desktop.click("txtSales(9)");
    scene.desktop.type("^v");
    ASSERT_EQ(scene.desktop.pastes().size(), 1U);
    const auto& lines = scene.desktop.pastes()[0].lines;
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1].fate, PasteFate::leftOut);
    EXPECT_EQ(test::elementOf(*record->company, Datum::YRevenueSeries, 1), 5);
    EXPECT_EQ(test::elementOf(*record->company, Datum::YRevenueSeries, 0), 0);
}

TEST(CellCommands, FollowTheSwitchesOfThePreview) {
    Scene scene;
    scene.desktop.answerNextPaste([](PasteForm& form) {
        form.setSwitch(2, 1); // turned
        form.setSwitch(3, 1); // newest first
        form.setSwitch(4, 3); // billions
        form.setSwitch(0, 1); // there are no years: not enabled
        form.setSwitch(99, 1);
        form.setSwitch(4, 99);
        form.pressOk();
    });
    scene.paste("txtSales(8)", "5\t4");
    EXPECT_EQ(scene.revenue(8), 4000);
    EXPECT_EQ(scene.revenue(9), 5000);
}

TEST(CellCommands, TellWhatAPasteReplaces) {
    Scene scene;
    std::optional<Origin> origin = Origin::typed;
    scene.entry->originOf = [&](Datum, int) { return origin; };
    const auto lastPaste = [&] {
        scene.paste("txtSales(8)", "3\n2");
        return scene.desktop.pastes().back().lines;
    };
    for (const char* stored : {"1", "7.125"}) { // what is stored, not what is shown
        scene.enter("txtSales(8)", stored);
        for (const auto& one : {std::optional(Origin::typed), std::optional(Origin::pasted),
                                std::optional<Origin>()}) {
            origin = one;
            const auto lines = lastPaste();
            EXPECT_EQ(lines[0].before, stored);
            EXPECT_EQ(lines[0].fate, PasteFate::doubtful);
            EXPECT_EQ(lines[0].remark, "Replaces what was typed or pasted, or may have been.");
        }
    }
    origin = Origin::imported;
    EXPECT_EQ(lastPaste()[0].fate, PasteFate::taken);
    scene.entry->originOf = {}; // a host that keeps no account
    EXPECT_EQ(lastPaste()[0].remark, "");
}

TEST(CellCommands, TellWhatAPasteHasNoPlaceFor) {
    Scene scene;
    scene.paste("txtSales(8)", "Basic EPS\tDiluted EPS\n3.3\t3.2");
    const auto& lines = scene.desktop.pastes()[0].lines;
    EXPECT_EQ(lines[0].remark, "The figures below \"Diluted EPS\" are taken for this column.");
    EXPECT_EQ(lines[1].fate, PasteFate::taken);
    EXPECT_EQ(scene.desktop.pastes()[0].lines.size(), 2U);
}

// A whole sheet on the clipboard is a slip, and would take its time.
TEST(CellCommands, RefuseABlockThatIsTooLarge) {
    Scene scene;
    std::string sheet;
    for (int row = 0; row <= 20'000; ++row)
        sheet += "1\n";
    scene.paste("txtSales(8)", sheet);
    ASSERT_EQ(scene.desktop.refusals().size(), 1U);
    EXPECT_EQ(scene.desktop.refusals()[0].note,
              "There are more than 20 000 cells, or 2 MB of text, on the clipboard. Copy only the "
              "part that is to be pasted.");
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("chkLockInfo");
    scene.desktop.clickTab(toYearly);
    scene.paste("txtSales(8)", sheet);
    ASSERT_EQ(scene.desktop.refusals().size(), 2U);
    EXPECT_NE(scene.desktop.refusals()[1].note, scene.desktop.refusals()[0].note);
    EXPECT_TRUE(scene.desktop.pastes().empty());
    EXPECT_EQ(scene.text("txtSales", 8), "");
}

TEST(CellCommands, TellManyCellsThatGoNowhereInOneLine) {
    Scene scene;
    std::string wide;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 30; ++column)
            wide += std::to_string(column) + "\t";
        wide += "\n";
    }
    scene.paste("txtSales(8)", wide);
    const auto& lines = scene.desktop.pastes()[0].lines;
    const auto isTogether = [](const PasteLine& line) { return line.text.ends_with(" cells"); };
    ASSERT_EQ(std::ranges::count_if(lines, isTogether), 1);
    const PasteLine& outside = *std::ranges::find_if(lines, isTogether);
    EXPECT_EQ(outside.remark, "Outside the grid.");
    EXPECT_EQ(outside.fate, PasteFate::leftOut);
    EXPECT_EQ(outside.period + outside.column + outside.before + outside.after, "");
    const auto placed = static_cast<int>(lines.size()) - 1;
    EXPECT_EQ(outside.text, std::to_string(90 - placed) + " cells");

    std::string years;
    std::string figures;
    for (int year = 1900; year < 2025; ++year) {
        years += "\t" + std::to_string(year);
        figures += "\t1";
    }
    scene.paste("txtSales(8)", years + "\nRevenue" + figures);
    const auto& early = scene.desktop.pastes()[1].lines.front();
    EXPECT_EQ(early.text, "116 cells");
    EXPECT_EQ(early.remark, "1900 \u2026 2015 is not on the form.");
}

// Quarters are counted from the record's fiscal year, and shares keep the unit that is theirs.
TEST(CellCommands, ReadTheTitlesOfAReport) {
    Scene scene;
    scene.desktop.clickTab(toQuarterly);
    scene.paste("txtRevenue(0)", "\tQ3 2025\nRevenue\t5");
    const auto& quarter = scene.desktop.pastes()[0].lines[0];
    EXPECT_EQ(quarter.period,
              scene.form().get<Label>("lblQLabel", 5).caption() + " \u2190 Q3 2025");
    EXPECT_EQ(quarter.remark, "Taken for a quarter of the fiscal year.");
    scene.desktop.clickTab(toYearly);
    scene.paste("txtSales(0)", "shares in thousands, $ in billions\t2024\nRevenue\t5\n"
                               "Shares Outstanding\t15,004,697");
    const auto& lines = scene.desktop.pastes()[1].lines;
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].after, "5000");
    EXPECT_EQ(lines[1].after, "15004.697");
    EXPECT_EQ(lines[1].remark, "Unit of shares in the block: Thousands.");
}

TEST(CellCommands, StoreWhatIsBeingTypedBeforeThePaste) {
    Scene scene;
    scene.typeAt("txtSales(3)", "42");
    scene.desktop.setClipboardText("1\t2");
    scene.desktop.type("^v");
    EXPECT_EQ(scene.revenue(3), 42);
    EXPECT_EQ(scene.desktop.pastes()[0].lines[0].before, "42");
}

TEST(CellCommands, PasteAllOrNothing) {
    Scene scene;
    scene.record->refused = Datum::YNetIncSeries;
    scene.desktop.acceptNextPaste();
    scene.paste("txtSales(8)", "1\t2\t3");
    EXPECT_EQ(scene.revenue(8), 0);
    EXPECT_EQ(scene.text("txtSales", 8), "");
    ASSERT_EQ(scene.desktop.messages().size(), 1U);
    EXPECT_NE(scene.desktop.messages()[0].text.find("No losses today."), std::string::npos);
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(CellCommands, LetFollowWhatFollowsOfTypedFigures) {
    Scene scene(toQuarterly);
    scene.desktop.acceptNextPaste();
    scene.paste("txtEPS(0)", "1\n2\n3\n4\n5");
    EXPECT_EQ(scene.record->get_Last4QEPS(), 10);
    scene.desktop.clickTab(toYearly);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "10.00");
}

TEST(CellCommands, TakeOneFigureAsAField) {
    Scene scene;
    scene.paste("txtSales(8)", "1234.5\r\n");
    EXPECT_TRUE(scene.desktop.pastes().empty());
    EXPECT_EQ(scene.text("txtSales", 8), "1234.5");
    // Elsewhere a block is refused as before.
    scene.desktop.clickTab(toCompany);
    scene.paste("txtTotalDebt", "1\t2");
    EXPECT_TRUE(scene.desktop.pastes().empty());
    EXPECT_EQ(scene.desktop.refusals().size(), 1U);
}

// In the first cell it would be a figure of another column.
TEST(CellCommands, TakeAFigureBesideAnEmptyCellForABlock) {
    Scene scene;
    scene.desktop.acceptNextPaste();
    scene.paste("txtSales(8)", "\t42");
    EXPECT_EQ(scene.revenue(8), 0);
    EXPECT_EQ(scene.record->get_YPTISeries().array().number(2), 42);
    scene.desktop.acceptNextPaste();
    scene.paste("txtSales(8)", "\n43");
    EXPECT_EQ(scene.revenue(8), 0);
    EXPECT_EQ(scene.revenue(9), 43);
}

TEST(CellCommands, KnowTheMarksThatTheClipboardNames) {
    Scene scene;
    scene.desktop.setClipboardText("1,234\t2");
    scene.desktop.setClipboardDecimalMark(',');
    scene.typeAt("txtSales(8)", "^v");
    EXPECT_EQ(scene.desktop.pastes()[0].lines[0].after, "1.234");
    EXPECT_EQ(scene.desktop.pastes()[0].lines[0].fate, PasteFate::taken);
    scene.paste("txtSales(8)", "1,234\t2");
    EXPECT_EQ(scene.desktop.pastes()[1].lines[0].after, "1234");
    EXPECT_EQ(scene.desktop.pastes()[1].lines[0].fate, PasteFate::doubtful);
}

TEST(CellCommands, ChangeNothingWithoutACompany) {
    EntryScene scene;
    scene.entry->put_CurrentTab(toYearly);
    scene.form().focusCame(&scene.desktop.control("txtSales(8)"));
    ASSERT_EQ(scene.desktop.focusedId(), "txtSales(8)");
    scene.desktop.setClipboardText("1\t2");
    scene.desktop.type("^v^d");
    EXPECT_TRUE(scene.desktop.pastes().empty());
    EXPECT_TRUE(scene.desktop.refusals().empty());
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(CellCommands, PasteNothingIntoAnotherCompany) {
    Scene scene;
    const auto other = datedRecord();
    scene.desktop.answerNextPaste([&](PasteForm& form) {
        scene.load(other);
        form.pressOk();
    });
    scene.paste("txtSales(8)", "1\t2");
    EXPECT_EQ(scene.revenue(8), 0);
    EXPECT_EQ(other->get_YRevenueSeries().array().number(2), 0);
}

// Of each grid, while the preview is open: other rows, other quarters, the other row of a pair.
TEST(CellCommands, PasteNothingIntoCellsThatStandForOtherFigures) {
    struct Change {
        const char* what;
        int tab;
        std::int16_t quarters;
        std::function<void(Scene& scene)> make;
    };
    const auto chooseTaxRate = [](Scene& scene) {
        scene.entry->put_CurrentTab(toOptions);
        scene.desktop.click("optPTI(1)");
    };
    const auto moveQuarter = [](Scene& scene) {
        scene.record->put_LastQDate(*makeDate(2026, 6, 30));
        scene.entry->recordChanged();
    };
    const Change changes[] = {
        {"nothing", toYearly, 9, [](Scene&) {}},
        {"nothing", toQuarterly, 9, [](Scene&) {}},
        {"rows", toQuarterly, 9, [](Scene& scene) { scene.entry->put_VisibleQuarters(12); }},
        {"quarter", toQuarterly, 9, moveQuarter},
        {"the one quarter", toQuarterly, 1, moveQuarter},
        {"series of a year", toYearly, 9, chooseTaxRate},
        {"series of a quarter", toQuarterly, 9, chooseTaxRate},
    };
    for (const auto& change : changes) {
        SCOPED_TRACE(change.what);
        Scene scene(change.tab);
        scene.entry->put_VisibleQuarters(change.quarters);
        scene.desktop.answerNextPaste([&](PasteForm& form) {
            change.make(scene);
            form.pressOk();
        });
        scene.record->actions.clear();
        scene.paste(change.tab == toYearly ? "txtSales(0)" : "txtRevenue(0)", "1\t2");
        ASSERT_EQ(scene.desktop.pastes().size(), 1U);
        EXPECT_TRUE(scene.desktop.scriptUsedUp());
        EXPECT_EQ(std::ranges::any_of(scene.record->actions,
                                      [](const ListeningRecord::Done& done) {
                                          return done.action.origin == Origin::pasted;
                                      }),
                  std::string_view(change.what) == "nothing");
    }
}

TEST(CellCommands, EndTheSelectionByAPasteThatWasAgreedTo) {
    Scene scene;
    scene.desktop.setClipboardText("1\n2");
    scene.typeAt("txtSales(3)", "+{DOWN}^v");
    EXPECT_EQ(scene.highlighted().size(), 2U);
    scene.desktop.acceptNextPaste();
    scene.desktop.type("^v");
    EXPECT_EQ(scene.desktop.pastes().size(), 2U);
    EXPECT_TRUE(scene.highlighted().empty());
}

// One that the host hands in when it hears of what was being typed.
TEST(CellCommands, ChangeAndMarkNothingInAnotherCompany) {
    for (const char* keys : {"^+c", "^d", "^'", "^v", "+{DOWN}"}) {
        SCOPED_TRACE(keys);
        Scene scene(toQuarterly);
        const auto other = datedRecord();
        const auto before = std::make_shared<CompanyRecord>();
        scene.enter("txtRevenue(0)", "1");
        scene.enter("txtRevenue(2)", "3");
        scene.typeAt("txtRevenue(1)", "7");
        scene.desktop.setClipboardText("8\t9");
        scene.desktop.acceptNextPaste();
        scene.entry->stateChanged = [&] {
            scene.entry->stateChanged = nullptr;
            scene.load(other);
        };
        scene.desktop.type(keys);
        EXPECT_EQ(scene.record->get_QRevenueSeries().array().number(1), 7);
        EXPECT_EQ(other->get_QRevenueSeries(), before->get_QRevenueSeries());
        EXPECT_EQ(other->get_QPTISeries(), before->get_QPTISeries());
        EXPECT_TRUE(scene.entry->unstoredFields().empty());
        EXPECT_TRUE(scene.desktop.pastes().empty());
    }
}

TEST(CellCommands, NeedADateOfTheLastQuarter) {
    EntryScene scene;
    const auto record = std::make_shared<ScriptedRecord>(fullCompany());
    record->failing = {"read LastQDate", "read LastQDateForGrid"};
    scene.load(record);
    scene.desktop.clickTab(toQuarterly);
    scene.desktop.setClipboardText("1\t2");
    scene.typeAt("txtRevenue(0)", "^v");
    EXPECT_TRUE(scene.desktop.pastes().empty());
    ASSERT_EQ(scene.desktop.refusals().size(), 1U);
    EXPECT_EQ(scene.desktop.refusals()[0].note,
              "Without a date of the last quarter this figure has no quarter and was not stored.");
}

// --- selection, copy -----------------------------------------------------------------------------

TEST(CellCommands, SelectCellsByShiftAndArrows) {
    Scene scene;
    scene.typeAt("txtSales(3)", "+{DOWN}+{RIGHT}");
    EXPECT_EQ(scene.highlighted(),
              (Ids{"txtSales(3)", "txtSales(4)", "txtYOption(3)", "txtYOption(4)"}));
    EXPECT_EQ(scene.desktop.focusedId(), "txtSales(3)");
    scene.desktop.type("+{LEFT}");
    EXPECT_EQ(scene.highlighted(), (Ids{"txtSales(3)", "txtSales(4)"}));
    scene.desktop.type("+{UP}");
    EXPECT_TRUE(scene.highlighted().empty());
    scene.desktop.type("+{UP}");
    EXPECT_EQ(scene.highlighted(), (Ids{"txtSales(2)", "txtSales(3)"}));
    scene.desktop.type("{ESC}");
    EXPECT_TRUE(scene.highlighted().empty());
    scene.desktop.type("+{DOWN}{DOWN}");
    EXPECT_TRUE(scene.highlighted().empty());
    EXPECT_EQ(scene.desktop.focusedId(), "txtSales(4)");
}

TEST(CellCommands, AreNoLongerSelectedWhereTheFocusIsTakenElsewhere) {
    Scene scene;
    scene.typeAt("txtSales(3)", "+{DOWN}");
    scene.entry->put_CurrentTab(toCompany);
    EXPECT_TRUE(scene.highlighted().empty());
}

TEST(CellCommands, OfAnotherRecordAreNotSelected) {
    Scene scene;
    scene.typeAt("txtSales(3)", "+{DOWN}");
    scene.load(datedRecord());
    EXPECT_TRUE(scene.highlighted().empty());
}

// Else the host's dialog would close while somebody only wants to end the selection.
TEST(CellCommands, EndTheSelectionByEscapeBeforeTheHostHearsOfIt) {
    Scene scene;
    scene.desktop.addHostShortcut("{ESC}");
    scene.typeAt("txtSales(3)", "+{DOWN}");
    scene.desktop.type("{ESC}");
    EXPECT_EQ(scene.desktop.hostShortcutsFired(), 0);
    EXPECT_TRUE(scene.highlighted().empty());
    scene.desktop.type("{ESC}");
    EXPECT_EQ(scene.desktop.hostShortcutsFired(), 1);
}

TEST(CellCommands, SelectUpToTheEdgesOfTheGridAndNotBeyond) {
    struct Row {
        const char* from;
        const char* keys;
        Ids selected;
    };
    for (const auto& [from, keys, selected] :
         {Row{"txtSales(1)", "+{UP 3}", {"txtSales(0)", "txtSales(1)"}},
          Row{"txtSales(9)", "+{DOWN 3}", {"txtSales(9)", "txtSales(10)"}},
          Row{"txtYOption(3)", "+{LEFT 3}", {"txtSales(3)", "txtYOption(3)"}},
          Row{"txtLow(3)", "+{RIGHT 3}", {"txtLow(3)", "txtCSO(3)"}}}) {
        Scene scene;
        test::goTo(scene, from);
        scene.desktop.type(keys);
        EXPECT_EQ(scene.highlighted(), selected) << from;
    }
}

TEST(CellCommands, StoreWhatIsBeingTypedBeforeTheyAreSelected) {
    const auto storedAfter = [](auto select) {
        Scene scene;
        scene.typeAt("txtSales(3)", "7");
        select(scene.desktop);
        EXPECT_GT(scene.highlighted().size(), 1U);
        return scene.revenue(3);
    };
    EXPECT_EQ(storedAfter([](VirtualDesktop& desktop) { desktop.type("+{DOWN}"); }), 7);
    EXPECT_EQ(storedAfter([](VirtualDesktop& desktop) { desktop.type("^a^a"); }), 7);
    EXPECT_EQ(storedAfter([](VirtualDesktop& desktop) {
                  desktop.press("txtSales(3)");
                  desktop.dragTo("txtSales(4)");
                  desktop.release("txtSales(4)");
              }),
              7);
}

TEST(CellCommands, BringTheEndOfTheSelectionIntoView) {
    Scene scene;
    test::goTo(scene, "txtLow(3)");
    scene.desktop.scroll("hscrYearly", 0);
    scene.desktop.type("+{RIGHT}");
    EXPECT_TRUE(scene.desktop.canReach("txtCSO(3)"));
}

TEST(CellCommands, SelectNoRowsThatAreGone) {
    Scene scene(toQuarterly);
    scene.entry->put_VisibleQuarters(12);
    scene.typeAt("txtEPS(8)", "+{DOWN}");
    ASSERT_EQ(scene.highlighted().size(), 2U);
    scene.entry->put_VisibleQuarters(9);
    EXPECT_TRUE(scene.highlighted().empty());
}

TEST(CellCommands, LeaveTheTextOfACellToItself) {
    Scene scene;
    scene.enter("txtSales(3)", "1234");
    scene.typeAt("txtSales(3)", "{END}+{LEFT 2}");
    EXPECT_TRUE(scene.highlighted().empty());
    EXPECT_EQ(scene.field("txtSales", 3).selText(), "00");
    scene.desktop.type("^a+{RIGHT}");
    EXPECT_EQ(scene.highlighted().size(), 2U);
}

TEST(CellCommands, SelectByDragging) {
    Scene scene;
    scene.desktop.press("txtSales(3)");
    scene.desktop.dragTo("txtYOption(4)");
    EXPECT_EQ(scene.highlighted().size(), 4U);
    scene.desktop.dragTo("txtSales(3)");
    EXPECT_TRUE(scene.highlighted().empty());
    scene.desktop.dragTo("txtSales(5)");
    scene.desktop.release("txtSales(5)");
    EXPECT_EQ(scene.highlighted().size(), 3U);
    scene.desktop.click("txtSales(3)");
    EXPECT_TRUE(scene.highlighted().empty());
}

// So that whoever goes on by typing replaces the figure, as after any other way to select.
TEST(CellCommands, SelectTheTextOfTheFirstCellThatIsDragged) {
    Scene scene;
    scene.enter("txtSales(3)", "1234");
    scene.desktop.click("txtSales(3)");
    scene.desktop.press("txtSales(3)"); // the caret goes behind the text
    EXPECT_EQ(scene.field("txtSales", 3).selText(), "");
    scene.desktop.dragTo("txtSales(4)");
    EXPECT_EQ(scene.field("txtSales", 3).selText(), "1234.00");
    scene.field("txtSales", 3).select(2, 0);
    scene.desktop.dragTo("txtSales(3)");
    EXPECT_EQ(scene.field("txtSales", 3).selText(), "");
}

TEST(CellCommands, AreSelectedByDraggingFromTheFocusToACellAlone) {
    Scene scene;
    scene.desktop.click("txtSales(3)");
    const auto selects = [&](const char* pressed, const char* over) {
        const bool selected =
            scene.form().userDrag(scene.desktop.control(pressed), scene.desktop.control(over));
        EXPECT_EQ(selected, !scene.highlighted().empty()) << pressed << " to " << over;
        return selected;
    };
    EXPECT_FALSE(selects("txtSales(4)", "txtSales(5)")); // without the focus
    EXPECT_FALSE(selects("txtSales(3)", "lblYear(5)"));
    EXPECT_FALSE(selects("txtSales(3)", "txtLastFY"));
    EXPECT_TRUE(selects("txtSales(3)", "txtSales(5)"));
    scene.desktop.click("txtLastFY");
    EXPECT_FALSE(selects("txtLastFY", "txtSales(5)"));
}

TEST(CellCommands, SelectTheGridByCtrlATwice) {
    Scene scene(toQuarterly);
    scene.typeAt("txtRevenue(1)", "^a");
    EXPECT_TRUE(scene.highlighted().empty());
    scene.desktop.type("^a");
    EXPECT_EQ(scene.highlighted().size(), 4U * 9U);
    scene.desktop.type("+{UP}");
    EXPECT_EQ(scene.highlighted().size(), 4U * 7U) << "from the second row to the last but one";
    scene.desktop.type("^a^a");
    scene.desktop.type("{ESC}^a{LEFT}^a");
    EXPECT_TRUE(scene.highlighted().empty());
}

TEST(CellCommands, CopyAllDigits) {
    Scene scene;
    scene.paste("txtSales(8)", "1234.56789\t");
    scene.desktop.type("{TAB}");
    scene.enter("txtSales(9)", "0.1");
    scene.enter("txtYOption(9)", "-3");
    scene.typeAt("txtSales(8)", "+{DOWN}+{RIGHT}^c");
    EXPECT_EQ(scene.desktop.clipboardText(), "1234.56789\t\n0.1\t-3");
    scene.desktop.type("^+c");
    EXPECT_EQ(scene.desktop.clipboardText(),
              "\tRevenue (M)\tPre-Tax Income (M)\n2024\t1234.56789\t\n2025\t0.1\t-3");
    scene.entry->put_NumberMarks({.decimal = ',', .grouping = "."});
    scene.desktop.type("^c");
    EXPECT_EQ(scene.desktop.clipboardText(), "1234,56789\t\n0,1\t-3");
}

TEST(CellCommands, CopyNothingOfAQuarterThatTheRecordHasNoPlaceFor) {
    Scene scene;
    scene.record->put_LastQDateForGrid(*makeDate(2026, 6, 30));
    scene.load(scene.record);
    scene.desktop.clickTab(toQuarterly);
    scene.enter("txtEPS(1)", "1.5");
    scene.typeAt("txtEPS(1)", "+{UP}^c");
    EXPECT_EQ(scene.desktop.clipboardText(), "\n1.5");
}

TEST(CellCommands, CopyOneCellWithItsHeadings) {
    Scene scene(toQuarterly);
    scene.enter("txtEPS(1)", "1.5");
    scene.typeAt("txtEPS(1)", "^+c");
    EXPECT_EQ(scene.desktop.clipboardText(), "\tEarnings Per Share\n2026-06-30\t1.5");
    EXPECT_TRUE(scene.entry->copyCells());
    EXPECT_EQ(scene.desktop.clipboardText(), "1.5");
    scene.desktop.clickTab(toCompany);
    scene.desktop.click("txtName");
    EXPECT_FALSE(scene.entry->copyCellsWithHeadings());
}

TEST(CellCommands, CopyNothingWhileTheFocusIsBesideTheForm) {
    Scene scene;
    scene.enter("txtSales(3)", "3");
    scene.desktop.click("txtSales(3)");
    EXPECT_TRUE(scene.entry->copyCells());
    scene.desktop.setClipboardText("before");
    scene.desktop.leaveForm();
    EXPECT_FALSE(scene.entry->copyCells());
    EXPECT_EQ(scene.desktop.clipboardText(), "before");
}

// What is pasted back gives the same figures, in any unit, with any mark, with and without heads.
TEST(CellCommands, PasteBackWhatTheyHaveCopied) {
    for (const int tab : {toYearly, toQuarterly})
        for (const char* unit : {"optCurrency(0)", "optCurrency(1)", "optCurrency(2)"})
            for (const bool comma : {false, true})
                for (const char* keys : {"^c", "^+c"}) {
                    SCOPED_TRACE(std::string(unit) + (comma ? " comma " : " point ") + keys);
                    EntryScene scene;
                    const auto company = fullCompany();
                    scene.load(company);
                    scene.desktop.clickTab(toOptions);
                    scene.desktop.click(unit);
                    if (comma)
                        scene.entry->put_NumberMarks({.decimal = ',', .grouping = "."});
                    scene.desktop.clickTab(tab);
                    const char* first = tab == toYearly ? "txtSales(0)" : "txtRevenue(0)";
                    const auto before = company->clone();
                    scene.typeAt(first, "^a^a" + std::string(keys));
                    scene.desktop.type("{DEL}{ESC}");
                    EXPECT_FALSE(test::changedData(*before, *company).empty());
                    scene.desktop.acceptNextPaste();
                    scene.desktop.type("^v");
                    const auto changed = test::changedData(*before, *company);
                    EXPECT_TRUE(changed.empty()) << changed.front();
                    EXPECT_TRUE(scene.desktop.messages().empty());
                }
}

// What was copied in millions is not pasted as thousands.
TEST(CellCommands, PasteBackWhatTheyHaveCopiedInAnotherUnit) {
    for (const char* keys : {"^c", "^+c"}) {
        SCOPED_TRACE(keys);
        EntryScene scene;
        const auto company = fullCompany();
        scene.load(company);
        scene.entry->put_CurrentTab(toYearly);
        const auto before = company->clone();
        scene.typeAt("txtSales(0)", "^a^a" + std::string(keys));
        scene.desktop.type("{DEL}{ESC}");
        scene.entry->put_CurrentTab(toOptions);
        scene.desktop.click("optCurrency(0)");
        scene.entry->put_CurrentTab(toYearly);
        scene.desktop.acceptNextPaste();
        scene.typeAt("txtSales(0)", "^v");
        ASSERT_EQ(scene.desktop.pastes().size(), 1U);
        EXPECT_EQ(test::changedData(*before, *company), std::vector<std::string>{"intUnit"});
    }
    Scene scene;
    scene.enter("txtSales(8)", "8");
    scene.enter("txtSales(9)", "9");
    scene.paste("txtSales(8)", "1\t2"); // copied elsewhere
    EXPECT_EQ(scene.desktop.pastes()[0].switches[4].chosen, 0);
    scene.typeAt("txtSales(8)", "+{DOWN}^c");
    scene.desktop.type("^v"); // and here, in the unit on show
    EXPECT_EQ(scene.desktop.pastes()[1].switches[4].chosen, 0);
}

// --- delete, fill --------------------------------------------------------------------------------

TEST(CellCommands, EmptyTheSelectionAsOneAction) {
    Scene scene;
    scene.enter("txtSales(3)", "3");
    scene.enter("txtSales(4)", "4");
    scene.enter("txtSales(6)", "6");
    scene.record->actions.clear();
    scene.typeAt("txtSales(3)", "+{DOWN 3}{DEL}");
    EXPECT_EQ(scene.revenue(3) + scene.revenue(4) + scene.revenue(6), 0);
    EXPECT_EQ(scene.text("txtSales", 6), "");
    ASSERT_EQ(scene.record->actions.size(), 1U);
    EXPECT_EQ(scene.record->actions[0].action.name, "Deletion of 3 Figures");
    EXPECT_EQ(scene.record->actions[0].action.origin, Origin::typed);
    scene.desktop.type("{DEL}");
    scene.entry->put_blnDirty(false);
    scene.desktop.type("{DEL}");
    EXPECT_EQ(scene.record->actions.size(), 1U) << "there is nothing left";
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_EQ(scene.highlighted().size(), 4U);
}

TEST(CellCommands, CutTheSelection) {
    Scene scene;
    scene.enter("txtSales(3)", "3");
    scene.typeAt("txtSales(3)", "+{DOWN}^x");
    EXPECT_EQ(scene.desktop.clipboardText(), "3\n\n");
    EXPECT_EQ(scene.revenue(3), 0);
}

TEST(CellCommands, KnowEachCommandByItsOtherKeys) {
    const auto after = [](const char* keys) {
        Scene scene;
        scene.enter("txtSales(3)", "3");
        scene.enter("txtSales(4)", "4");
        scene.desktop.setClipboardText("before");
        scene.typeAt("txtSales(3)", std::string("+{DOWN}") + keys);
        std::string told = scene.desktop.clipboardText() == "3\n4" ? "copied" : "";
        told += scene.revenue(3) == 0 && scene.revenue(4) == 0 ? " emptied" : "";
        told += scene.revenue(4) == 3 ? " filled" : "";
        return told + (scene.highlighted().empty() ? " ended" : "");
    };
    for (const char* keys : {"^c", "^{INSERT}"})
        EXPECT_EQ(after(keys), "copied") << keys;
    for (const char* keys : {"^x", "+{DEL}"})
        EXPECT_EQ(after(keys), "copied emptied") << keys;
    for (const char* keys : {"{DEL}", "{BACKSPACE}"})
        EXPECT_EQ(after(keys), " emptied") << keys;
    EXPECT_EQ(after("^d"), " filled");
    EXPECT_EQ(after("{F1}"), "") << "help is about the cells as they are";
    for (const char* keys : {"^+d", "^+x", "{HOME}", "{F2}"})
        EXPECT_EQ(after(keys), " ended") << keys;
}

// Neither the field nor a shortcut of the host has a use for them then.
TEST(CellCommands, UseUpTheirKeys) {
    constexpr int both = shifts::control | shifts::shift;
    const struct {
        KeyCode key;
        int shift;
        bool ofACell;
        bool ofASelection;
    } rows[] = {
        {'C', both, true, true},
        {'D', shifts::control, true, true},
        {keys::apostrophe, shifts::control, true, true},
        {keys::apostrophe, both, true, true},
        {'C', shifts::control, false, true},
        {keys::insert, shifts::control, false, true},
        {'X', shifts::control, false, true},
        {keys::del, shifts::shift, false, true},
        {keys::del, shifts::none, false, true},
        {keys::backspace, shifts::none, false, true},
        {keys::escape, shifts::none, false, true},
        {keys::escape, shifts::shift, false, false},
        {keys::escape, shifts::control, false, false},
        {keys::home, shifts::none, false, false},
        {keys::left, shifts::shift, true, true},
        {keys::down, shifts::shift, true, true},
        {'V', shifts::control, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.key) + " with " + std::to_string(row.shift));
        Scene scene;
        scene.enter("txtSales(3)", "3");
        scene.desktop.click("txtSales(3)");
        EXPECT_EQ(!scene.form().keyDown(row.key, row.shift), row.ofACell);
        scene.desktop.click("txtYOption(4)");
        scene.typeAt("txtSales(3)", "+{DOWN}");
        EXPECT_EQ(!scene.form().keyDown(row.key, row.shift), row.ofASelection);
    }
}

TEST(CellCommands, LeaveTheFigureWhereTheRecordRefusesToEmptyIt) {
    for (const char* keys : {"{DEL}", "{BACKSPACE}", "^x"}) {
        Scene scene;
        scene.enter("txtSales(3)", "3");
        scene.record->refused = Datum::YRevenueSeries;
        scene.typeAt("txtSales(3)", "+{DOWN}");
        scene.desktop.type(keys);
        EXPECT_EQ(scene.text("txtSales", 3), "3.00") << keys;
        EXPECT_EQ(scene.desktop.messages().size(), 1U) << keys;
    }
}

TEST(CellCommands, TakeTheFigureBeforeWithOrWithoutShift) {
    for (const char* keys : {"^'", "^+'"}) {
        Scene scene;
        scene.enter("txtSales(3)", "3");
        scene.typeAt("txtSales(4)", keys);
        EXPECT_EQ(scene.revenue(4), 3) << keys;
    }
}

TEST(CellCommands, FillDown) {
    Scene scene;
    scene.enter("txtSales(3)", "3.125");
    scene.typeAt("txtSales(4)", "^d");
    EXPECT_EQ(scene.revenue(4), 3.125);
    scene.typeAt("txtSales(4)", "+{DOWN 2}^d");
    EXPECT_EQ(scene.revenue(6), 3.125);
    EXPECT_EQ(scene.record->actions.back().action.name, "Fill Down of 2 Figures");
    EXPECT_EQ(scene.field("txtSales", 4).selText(), "3.13") << "as if it was entered";
    scene.typeAt("txtSales(3)", "+{DOWN 4}^d"); // which three of four have already
    EXPECT_EQ(scene.record->actions.back().action.name, "Fill Down of One Figure");
    scene.typeAt("txtSales(0)", "^d"); // nothing above
    EXPECT_EQ(scene.revenue(0), 0);
}

// A text that waited there for its unit, which could be stored when the cell is left.
TEST(CellCommands, WhatIsFilledInStaysWhereMemoryRunsOut) {
    bool failed = true;
    int filledIn = 0;
    for (int nth = 1; failed; nth += 1 + nth / 16) {
        SCOPED_TRACE(nth);
        const auto company = test::datedCompany();
        const auto record = std::make_shared<ScriptedRecord>(company);
        EntryScene scene;
        scene.load(record);
        scene.desktop.clickTab(toYearly);
        scene.enter("txtSales(3)", "3.125");
        record->failing = {"write YRevenueSeries"};
        scene.enter("txtSales(4)", "900");
        scene.desktop.clickTab(toOptions);
        scene.desktop.click("optCurrency(2)");
        record->failing.clear();
        ASSERT_TRUE(scene.field("txtSales", 4).isUnstored());
        scene.desktop.clickTab(toYearly);
        scene.desktop.click("txtSales(4)");
        {
            const FailingMemory memory(nth);
            scene.form().keyDown('D', shifts::control);
            failed = memory.hasFailed();
        }
        const bool filled = test::elementOf(*company, "YRevenueSeries", 6) == 3.125;
        filledIn += filled ? 1 : 0;
        scene.typeAt("txtSales(4)", "{TAB}");
        EXPECT_EQ(test::elementOf(*company, "YRevenueSeries", 6) == 3.125, filled);
    }
    EXPECT_GT(filledIn, 1);
}

TEST(CellCommands, TakeTheFigureOfThePeriodBefore) {
    Scene scene;
    scene.enter("txtYNetInc(3)", "-3.5");
    scene.typeAt("txtYNetInc(4)", "^'");
    EXPECT_EQ(scene.netIncome(4), -3.5);
    EXPECT_EQ(scene.text("txtYNetInc", 4), "-3.50");
    EXPECT_EQ(scene.record->actions.back().action.name, "Figure from the Period Before");

    Scene quarters(toQuarterly);
    quarters.enter("txtEPS(2)", "1.25");
    quarters.typeAt("txtEPS(1)", "^'");
    EXPECT_EQ(quarters.record->get_QEPSSeries().array().number(1), 1.25);
}

TEST(CellCommands, LeaveAFigureWhereThereIsNoneToTake) {
    Scene scene;
    scene.enter("txtSales(4)", "7");
    scene.record->actions.clear();
    scene.typeAt("txtSales(4)", "^'");
    EXPECT_EQ(scene.revenue(4), 7);
    scene.desktop.type("^d");
    EXPECT_EQ(scene.revenue(4), 7);
    scene.typeAt("txtSales(3)", "+{DOWN}^d");
    EXPECT_EQ(scene.revenue(4), 7);
    EXPECT_TRUE(scene.record->actions.empty());
    ASSERT_EQ(scene.desktop.refusals().size(), 3U);
    for (const auto& refusal : scene.desktop.refusals())
        EXPECT_EQ(refusal.note,
                  "Nothing is stored for " + scene.form().get<Label>("lblYear", 3).caption() + ".");
}

TEST(CellCommands, TakeTheRestOfARowWithGapsAndTellThem) {
    Scene scene;
    scene.enter("txtSales(3)", "7");
    scene.enter("txtSales(4)", "8");
    scene.enter("txtYOption(4)", "9");
    scene.typeAt("txtSales(4)", "+{RIGHT}^'");
    EXPECT_EQ(scene.revenue(4), 7);
    EXPECT_EQ(scene.record->get_YPTISeries().array().number(6), 9);
    ASSERT_EQ(scene.desktop.refusals().size(), 1U);
    EXPECT_EQ(scene.desktop.refusals()[0].note,
              "Nothing is stored for 2019 in Pre-Tax Income (M).");
}

TEST(CellCommands, TellAMinusThatAColumnDoesNotTake) {
    Scene scene;
    auto series = scene.record->get_YRevenueSeries();
    series.array().setNumber(7, -3);
    scene.record->put_YRevenueSeries(series);
    scene.entry->recordChanged();
    scene.enter("txtSales(4)", "7");
    scene.typeAt("txtSales(4)", "^'");
    EXPECT_EQ(scene.revenue(4), 7);
    ASSERT_EQ(scene.desktop.refusals().size(), 1U);
    EXPECT_EQ(scene.desktop.refusals()[0].note, "No minus is taken in Revenue (M).");
}

// --- menu ----------------------------------------------------------------------------------------

Ids captionsOf(const VirtualDesktop::Menu& menu) {
    Ids captions;
    for (const auto& entry : menu.entries)
        captions.push_back(entry.caption);
    return captions;
}

TEST(CellCommands, StandInTheMenuOfTheSelection) {
    Scene scene;
    scene.enter("txtSales(3)", "3.125");
    scene.desktop.rightClick("txtSales(3)");
    const Ids alone = captionsOf(scene.desktop.menus().back());
    scene.desktop.type("+{DOWN 2}");
    scene.desktop.answerNextMenu("Fill Down");
    scene.desktop.rightClick("txtSales(4)"); // another cell of the selection
    const auto& menu = scene.desktop.menus().back();
    EXPECT_EQ(menu.refusal, "");
    EXPECT_EQ(scene.desktop.focusedId(), "txtSales(3)");
    Ids cells = captionsOf(menu);
    const Ids added = {"Copy Cells", "Copy Cells with Headings",          "Delete Figures",
                       "Fill Down",  "Take Figures from the Year Before", "-"};
    const auto first = std::ranges::find(cells, added.front());
    ASSERT_GE(cells.end() - first, std::ssize(added));
    EXPECT_EQ(Ids(first, first + std::ssize(added)), added);
    cells.erase(first, first + std::ssize(added));
    EXPECT_EQ(cells, alone) << "the others are those of a single field";
    EXPECT_EQ(scene.revenue(4), 3.125);
    EXPECT_EQ(scene.revenue(5), 3.125);
    EXPECT_EQ(scene.record->actions.back().action.name, "Fill Down of 2 Figures");
    EXPECT_EQ(scene.highlighted().size(), 3U);
}

TEST(CellCommands, AreCarriedOutByTheMenu) {
    Scene scene(toQuarterly);
    scene.enter("txtRevenue(4)", "7");
    scene.enter("txtRevenue(3)", "5");
    const auto choose = [&](std::string_view caption) {
        scene.typeAt("txtRevenue(2)", "+{DOWN}");
        scene.desktop.answerNextMenu(caption);
        scene.desktop.type("+{F10}");
        EXPECT_EQ(scene.desktop.menus().back().refusal, "") << caption;
    };
    choose("Copy Cells");
    EXPECT_EQ(scene.desktop.clipboardText(), "\n5");
    choose("Copy Cells with Headings");
    EXPECT_NE(scene.desktop.clipboardText().find("Revenue"), std::string::npos);
    choose("Take Figures from the Quarter Before");
    const auto revenue = [&](int row) {
        return scene.record->get_QRevenueSeries().array().number(row);
    };
    EXPECT_EQ(revenue(2), 7);
    EXPECT_EQ(revenue(3), 7);
    choose("Delete Figures");
    EXPECT_EQ(revenue(2), 0);
    EXPECT_EQ(revenue(3), 0);
    EXPECT_EQ(revenue(4), 7);
}

// The host changes the form while the menu is up.
TEST(CellCommands, DoNothingByTheMenuOfASelectionThatIsGone) {
    for (const char* caption : {"Copy Cells", "Copy Cells with Headings", "Delete Figures",
                                "Fill Down", "Take Figures from the Quarter Before"}) {
        HostileScene scene;
        scene.start();
        const auto company = fullCompany();
        scene.entry->put_objCompany(company);
        scene.desktop.clickTab(toQuarterly);
        scene.desktop.click("txtRevenue(2)");
        scene.desktop.type("+{DOWN}");
        const auto before = company->clone();
        scene.desktop.setClipboardText("before");
        scene.desktop.failing = {"popUpMenu"};
        scene.desktop.fail = [&] { scene.entry->put_VisibleQuarters(12); };
        scene.desktop.answerNextMenu(caption);
        scene.desktop.type("+{F10}");
        ASSERT_EQ(scene.desktop.menus().size(), 1U);
        EXPECT_EQ(scene.desktop.menus()[0].refusal, "") << caption;
        EXPECT_EQ(scene.desktop.clipboardText(), "before") << caption;
        EXPECT_EQ(test::changedData(*before, *company), Ids()) << caption;
    }
}

TEST(CellCommands, LeaveTheMenuBesideTheSelectionToTheField) {
    Scene scene;
    scene.typeAt("txtSales(3)", "+{DOWN}");
    scene.desktop.rightClick("txtSales(7)");
    const Ids beside = captionsOf(scene.desktop.menus().back());
    EXPECT_EQ(std::ranges::count(beside, "Fill Down"), 0);
    EXPECT_EQ(scene.desktop.focusedId(), "txtSales(7)");
    EXPECT_TRUE(scene.highlighted().empty());
}

TEST(CellCommands, AreNotOfferedUnderTheLock) {
    EntryScene scene;
    scene.load(fullCompany());
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("chkLockInfo");
    scene.desktop.clickTab(toYearly);
    scene.typeAt("txtSales(3)", "+{DOWN}+{F10}");
    int copying = 0;
    for (const auto& entry : scene.desktop.menus().back().entries) {
        if (entry.caption == "Delete Figures" || entry.caption == "Fill Down" ||
            entry.caption == "Take Figures from the Year Before") {
            EXPECT_FALSE(entry.enabled) << entry.caption;
        }
        if (entry.caption.starts_with("Copy Cells"))
            copying += entry.enabled ? 1 : 0;
    }
    EXPECT_EQ(copying, 2);
}

// --- lock ----------------------------------------------------------------------------------------

TEST(CellCommands, ChangeNothingUnderTheLock) {
    for (const int tab : {toYearly, toQuarterly}) {
        EntryScene scene;
        const auto company = fullCompany();
        scene.load(company);
        scene.desktop.clickTab(toOptions);
        scene.desktop.click("chkLockInfo");
        scene.desktop.clickTab(tab);
        const auto before = company->clone();
        scene.desktop.setClipboardText("1\t2\n3\t4");
        scene.desktop.acceptNextPaste();
        for (const char* keys : {"^v", "+{INSERT}", "^d", "^'", "+{DOWN}{DEL}", "+{DOWN}^x",
                                 "+{DOWN}{BS}", "^a^a{DEL}", "+{DOWN}^d"}) {
            SCOPED_TRACE(keys);
            scene.desktop.click(tab == toYearly ? "txtSales(3)" : "txtRevenue(3)");
            scene.desktop.forget();
            scene.desktop.type(keys);
            ASSERT_EQ(scene.desktop.refusals().size(), 1U);
            EXPECT_EQ(scene.desktop.refusals()[0].note,
                      "The data is locked. Unlock it to change anything.");
            EXPECT_TRUE(scene.desktop.pastes().empty());
            EXPECT_TRUE(test::changedData(*before, *company).empty());
        }
        scene.desktop.click(tab == toYearly ? "txtSales(3)" : "txtRevenue(3)");
        scene.desktop.forget();
        scene.desktop.type("+{DOWN}^c");
        EXPECT_TRUE(scene.desktop.refusals().empty());
        EXPECT_NE(scene.desktop.clipboardText(), "1\t2\n3\t4");
    }
}

TEST(CellCommands, CountWhatIsPastedLeftOutAndToBeLookedAt) {
    struct Row {
        const char* block;
        const char* summary;
        const char* ok;
    };
    const Row rows[] = {
        {"1\tn/a", "One figure will be pasted. One is left out.", "&Paste One Figure"},
        {"1\tn/a\tn/a", "One figure will be pasted. 2 are left out.", "&Paste One Figure"},
        {"1\t2\t3", "3 figures will be pasted.", "&Paste 3 Figures"},
        {"1\t1e3", "2 figures will be pasted. One to look at.", "&Paste 2 Figures"},
        {"2e3\t1e3\tn/a", "2 figures will be pasted. One is left out. 2 to look at.",
         "&Paste 2 Figures"},
        {"n/a\tn/a", "There is no figure in this block that could be pasted here.",
         "Nothing to Paste"},
    };
    for (const auto& row : rows) {
        Scene scene;
        bool can = false;
        scene.desktop.answerNextPaste([&](PasteForm& form) { can = form.canPaste(); });
        scene.paste("txtSales(8)", row.block);
        ASSERT_EQ(scene.desktop.pastes().size(), 1U) << row.block;
        EXPECT_EQ(scene.desktop.pastes()[0].summary, row.summary);
        EXPECT_EQ(scene.desktop.pastes()[0].okCaption, row.ok);
        EXPECT_EQ(can, row.block[0] != 'n') << row.block;
    }
}

// What the preview shows of a switch: its words, what is chosen, whether it can be turned.
TEST(CellCommands, NameTheSwitchesOfThePreview) {
    const auto told = [](const std::vector<PasteSwitch>& switches) {
        std::string text;
        for (const auto& one : switches) {
            text += one.enabled ? "" : "-";
            text += one.caption + " ";
            text += one.entries.empty() ? std::string(one.chosen != 0 ? "on" : "off")
                                        : one.entries[static_cast<std::size_t>(one.chosen)];
            text += "\n";
        }
        return text;
    };
    Scene scene;
    scene.paste("txtSales(8)", "1\t2");
    const auto& first = scene.desktop.pastes()[0];
    EXPECT_EQ(told(first.switches), "-Place by the &years or dates in the block off\n"
                                    "-Place by the column &names in the block off\n"
                                    "&Turn rows and columns off\n"
                                    "&Reverse the order of the periods off\n"
                                    "&Unit of amounts: As shown (M)\n"
                                    "&Empty cells and dashes: Keep the figure\n"
                                    "-&Decimal mark: Point\n");
    const std::vector<std::string> units = {"As shown (M)", "Thousands", "Millions", "Billions"};
    EXPECT_EQ(first.switches[4].entries, units);
    EXPECT_EQ(first.switches[5].entries,
              (std::vector<std::string>{"Keep the figure", "Empty the cell"}));
    EXPECT_EQ(first.switches[6].entries, (std::vector<std::string>{"Point", "Comma"}));
    scene.paste("txtSales(8)", "in billions\t2024\t2025\nRevenue\t1,5\t2,5");
    EXPECT_EQ(told(scene.desktop.pastes()[1].switches),
              "Place by the &years or dates in the block on\n"
              "Place by the column &names in the block on\n"
              "-&Turn rows and columns on\n"
              "-&Reverse the order of the periods off\n"
              "&Unit of amounts: Billions\n"
              "&Empty cells and dashes: Keep the figure\n"
              "&Decimal mark: Comma\n");
}

TEST(CellCommands, TurnEachSwitchOfThePreview) {
    const auto pasted = [](const char* block, int index, int chosen) {
        Scene scene;
        scene.enter("txtSales(9)", "7");
        scene.desktop.answerNextPaste([&](PasteForm& form) {
            form.setSwitch(index, chosen);
            form.pressOk();
        });
        scene.paste("txtSales(8)", block);
        return exactNumberText(scene.revenue(8)) + " " + exactNumberText(scene.revenue(9)) + " " +
               exactNumberText(scene.netIncome(8)) + " " + exactNumberText(scene.netIncome(9));
    };
    const char* years = "\t2025\t2024\nRevenue\t5\t4";
    EXPECT_EQ(pasted(years, 0, 1), "4 5 0 0");
    const char* unnamed = "\t2025\t2024\nx\t5\t4";
    EXPECT_EQ(pasted(unnamed, 0, 1), "4 5 0 0");
    EXPECT_EQ(pasted(unnamed, 0, 0), "2024 2025 0 0");
    const char* names = "Net Income\tx\n4\t1\n5\t2";
    EXPECT_EQ(pasted(names, 1, 1), "0 7 4 5");
    EXPECT_EQ(pasted(names, 1, 0), "4 5 0 0");
    EXPECT_EQ(pasted("4\t5", 2, 0), "4 7 0 0");
    EXPECT_EQ(pasted("4\t5", 2, 1), "4 5 0 0");
    EXPECT_EQ(pasted("4\n5", 3, 1), "5 4 0 0");
    EXPECT_EQ(pasted("4\n5", 3, 2), "4 5 0 0") << "there is no such choice";
    EXPECT_EQ(pasted("4\n5", 3, -1), "4 5 0 0");
    EXPECT_EQ(pasted("4\n5", -1, 1), "4 5 0 0");
    EXPECT_EQ(pasted("4\n5", 7, 1), "4 5 0 0");
    EXPECT_EQ(pasted("4\n5", 4, 1), "0.004 0.005 0 0");
    EXPECT_EQ(pasted("4\n5", 4, 2), "4 5 0 0");
    EXPECT_EQ(pasted("4\n5", 4, 3), "4000 5000 0 0");
    EXPECT_EQ(pasted("4\n-", 5, 0), "4 7 0 0");
    EXPECT_EQ(pasted("4\n-", 5, 1), "4 0 0 0");
    EXPECT_EQ(pasted("1.500\n2.500", 6, 0), "1.5 2.5 0 0");
    EXPECT_EQ(pasted("1.500\n2.500", 6, 1), "1500 2500 0 0");
}

TEST(CellCommands, NameTheUnitOfTheFormInThePreview) {
    const struct {
        const char* option;
        const char* head;
        const char* asShown;
        const char* stored;
    } rows[] = {{"optCurrency(0)", "Revenue (K)", "As shown (K)", "0.005"},
                {"optCurrency(1)", "Revenue (M)", "As shown (M)", "5"},
                {"optCurrency(2)", "Revenue (B)", "As shown (B)", "5000"}};
    for (const auto& row : rows) {
        Scene scene(toOptions);
        scene.desktop.click(row.option);
        scene.desktop.clickTab(toYearly);
        scene.desktop.acceptNextPaste();
        scene.paste("txtSales(8)", "5\t6");
        const auto& shown = scene.desktop.pastes()[0];
        EXPECT_EQ(shown.lines[0].column, row.head);
        EXPECT_EQ(shown.lines[0].after, "5");
        EXPECT_EQ(shown.switches[4].entries[0], row.asShown);
        EXPECT_EQ(exactNumberText(scene.revenue(8)), row.stored);
    }
}

TEST(CellCommands, AreInTheMenuInsideOfTheSelectionAlone) {
    Scene scene;
    for (const auto& [cell, inside] :
         std::initializer_list<std::pair<const char*, bool>>{{"txtSales(3)", true},
                                                             {"txtYOption(4)", true},
                                                             {"txtSales(2)", false},
                                                             {"txtSales(5)", false},
                                                             {"txtYEPS(3)", false}}) {
        scene.typeAt("txtSales(3)", "+{DOWN}+{RIGHT}");
        ASSERT_EQ(scene.highlighted().size(), 4U);
        scene.desktop.rightClick(cell);
        const Ids entries = captionsOf(scene.desktop.menus().back());
        EXPECT_EQ(std::ranges::count(entries, "Fill Down"), inside ? 1 : 0) << cell;
    }
}

} // namespace
} // namespace vkr
