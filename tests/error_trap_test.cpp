// SPDX-License-Identifier: MIT
#include "platform/error_trap.hpp"
#include "source_folder.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/hostile_desktop.hpp"
#include "tests/support/scripted_record.hpp"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <new>
#include <regex>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

// What can be thrown: by the standard library, for want of memory, and by no library at all.
const std::pair<const char*, std::function<void()>> throwers[] = {
    {"an exception", [] { throw std::runtime_error("fails"); }},
    {"no memory", [] { throw std::bad_alloc(); }},
    {"a number", [] { throw 42; }},
};

TEST(ErrorTrap, EndsWhateverIsThrown) {
    for (const auto& [name, fail] : throwers) {
        EXPECT_FALSE(attempt(fail)) << name;
        EXPECT_EQ(attemptOr(7,
                            [&] {
                                fail();
                                return 8;
                            }),
                  7)
            << name;
        EXPECT_TRUE(failureOf(fail).has_value()) << name;
    }
    EXPECT_TRUE(attempt([] {}));
    EXPECT_EQ(attemptOr(7, [] { return 8; }), 8);
    EXPECT_EQ(failureOf([] {}), std::nullopt);
    EXPECT_EQ(failureOf(throwers[0].second), "fails");
    EXPECT_EQ(failureOf(throwers[1].second), "") << "the library's word tells nobody anything";
    EXPECT_EQ(failureOf(throwers[2].second), "");
}

TEST(ErrorTrap, ANameThatNoControlHasIsNoFailureToGetOver) {
    Form form;
    const auto misspelt = [&] { form.get<TextBox>("txtNoSuch").setText("x"); };
    EXPECT_THROW(misspelt(), ProgramError);
#ifndef NDEBUG
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(ifPossible(misspelt), "mistake");
    EXPECT_DEATH(static_cast<void>(failureOf(misspelt)), "mistake");
#endif
}

// --- services ------------------------------------------------------------------------------------

// As they are declared: one that is added is one that has to fail here.
std::vector<std::string> serviceNames() {
    std::ifstream header(VKR_SOURCE_DIR "/platform/services.hpp");
    std::string text((std::istreambuf_iterator<char>(header)), std::istreambuf_iterator<char>());
    text.erase(0, text.find("class Services {"));
    std::vector<std::string> names;
    static const std::regex declared("virtual [^~;{]*?(\\w+)\\(");
    for (std::sregex_iterator one(text.begin(), text.end(), declared), end; one != end; ++one)
        names.push_back((*one)[1]);
    return names;
}

// Everything that asks something of the desktop.
void useEverything(HostileScene& scene) {
    auto& desktop = scene.desktop;
    auto& entry = *scene.entry;
    entry.put_objCompany(fullCompany());
    entry.put_Platform(ptZX);
    entry.put_Platform(ptStandard);
    entry.put_ShowVLs(true);
    entry.put_ShadeColorYear(0x123456);
    for (const auto* id : {"txtName", "cmbSource"})
        desktop.click(id);
    for (const auto* command : {"Undo", "Cut", "Copy", "Paste", "What's This?"}) {
        desktop.click("txtName");
        desktop.type("x");
        desktop.answerNextMenu(command);
        desktop.rightClick("txtName");
    }
    desktop.answerNextDate(makeDate(2024, 5, 6));
    desktop.doubleClick("txtPriceUpdate");
    desktop.clickTab(toYearly);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddYear");
    desktop.clickTab(toOptions);
    desktop.answerNextColor(0x00FF00);
    desktop.click("cmdColor(0)");
    desktop.clickTab(toYearly);
    desktop.click("txtSales(0)");
    ifPossible([&] { desktop.type("x"); });
    ifPossible([&] {
        desktop.setClipboardText("1\t2\n3\t4");
        entry.form().userPaste(entry.form().get<TextBox>("txtSales", 0), "1\t2\n3\t4");
    });
    desktop.clickTab(toCompany);
    desktop.click("txtName");
    desktop.type("y");
    entry.step(HistoryStep::undo);
    entry.step(HistoryStep::redo);
    entry.put_blnDirty(false);
}

TEST(ErrorTrap, AnyServiceThatThrowsEndsAtItsStatementAndReachesNobody) {
    const auto services = serviceNames();
    {
        HostileScene scene;
        scene.start();
        useEverything(scene);
        EXPECT_GE(services.size(), 22U);
        for (const auto& service : services)
            EXPECT_TRUE(scene.desktop.asked.contains(service)) << service << " is not tried";
    }
    for (const auto& [thrown, fail] : throwers)
        for (const auto& service : services) {
            SCOPED_TRACE(service + " throws " + thrown);
            HostileScene scene;
            scene.desktop.failing = {service};
            scene.desktop.fail = fail;
            ASSERT_NO_THROW(scene.start());
            ASSERT_NO_THROW(useEverything(scene));
            // The form goes on working.
            scene.desktop.failing.clear();
            const auto company = fullCompany();
            scene.entry->put_objCompany(company);
            scene.desktop.click("txtName");
            scene.desktop.type("^aStill here{TAB}");
            EXPECT_EQ(company->get_Name(), "Still here");
            EXPECT_TRUE(scene.entry->unstoredFields().empty());
        }
}

TEST(ErrorTrap, ACutThatReachesNoClipboardKeepsTheText) {
    HostileScene scene;
    scene.start();
    scene.entry->put_objCompany(fullCompany());
    scene.desktop.click("txtName");
    const std::string name = scene.field("txtName").text();
    scene.desktop.failing = {"setClipboardText"};
    scene.desktop.answerNextMenu("Cut");
    scene.desktop.rightClick("txtName");
    EXPECT_EQ(scene.field("txtName").text(), name);
    scene.desktop.failing = {"clipboardText"};
    scene.desktop.setClipboardText("pasted");
    scene.desktop.type("^a");
    scene.desktop.answerNextMenu("Paste");
    scene.desktop.rightClick("txtName");
    EXPECT_EQ(scene.field("txtName").text(), name);
}

TEST(ErrorTrap, AMenuThatDoesNotOpenChoosesNothing) {
    HostileScene scene;
    scene.start();
    scene.entry->put_objCompany(fullCompany());
    scene.desktop.click("txtName");
    scene.desktop.type("^aTyped");
    scene.desktop.failing = {"popUpMenu"};
    scene.desktop.rightClick("txtName");
    EXPECT_TRUE(scene.desktop.asked.contains("popUpMenu"));
    EXPECT_EQ(scene.field("txtName").text(), "Typed");
    EXPECT_TRUE(scene.events.log.empty());
}

TEST(ErrorTrap, ATitleThatNobodyCanReadIsThatOfTheStandardPlatform) {
    HostileScene scene;
    scene.desktop.setUserMode(false);
    scene.desktop.failing = {"applicationTitle"};
    const VKRDataEntry untouched(scene.desktop);
    EXPECT_TRUE(scene.desktop.asked.contains("applicationTitle"));
    EXPECT_EQ(untouched.get_Platform(), ptStandard);
}

TEST(ErrorTrap, ALockedCellSaysNothingOfABlockThatNobodyCanRead) {
    HostileScene scene;
    scene.start();
    scene.entry->put_objCompany(fullCompany());
    scene.desktop.clickTab(toYearly);
    scene.desktop.click("chkLockInfo");
    scene.desktop.click("txtSales(3)");
    scene.desktop.setClipboardText("1\t2");
    scene.desktop.failing = {"clipboardText"};
    EXPECT_TRUE(scene.desktop.form().keyDown('V', shifts::control)) << "the field's own paste";
    EXPECT_TRUE(scene.desktop.refusals().empty());
    scene.desktop.failing.clear();
    scene.desktop.type("^v");
    EXPECT_EQ(scene.desktop.refusals().size(), 1U);
}

TEST(ErrorTrap, CellsThatReachNoClipboardAreNotCut) {
    for (const char* keys : {"^x", "+{DEL}"}) {
        HostileScene scene;
        scene.start();
        const auto company = fullCompany();
        scene.entry->put_objCompany(company);
        scene.desktop.clickTab(toYearly);
        scene.desktop.click("txtSales(3)");
        const auto before = company->get_YRevenueSeries();
        scene.desktop.failing = {"setClipboardText"};
        scene.desktop.type(std::string("+{DOWN}") + keys);
        EXPECT_EQ(company->get_YRevenueSeries(), before) << keys;
        EXPECT_FALSE(scene.entry->copyCells());
        scene.desktop.failing.clear();
        scene.desktop.type(keys);
        EXPECT_NE(company->get_YRevenueSeries(), before) << keys;
    }
}

TEST(ErrorTrap, ADateTypedWhereTheDayOfTodayIsUnknownIsMarked) {
    HostileScene scene;
    scene.start();
    const auto company = fullCompany();
    const Date before = company->get_PriceUpdatedDate();
    scene.entry->put_objCompany(company);
    scene.desktop.failing = {"today"};
    scene.desktop.click("txtPriceUpdate");
    scene.desktop.type("^a3/5{TAB}");
    EXPECT_TRUE(scene.field("txtPriceUpdate").isUnstored());
    EXPECT_EQ(company->get_PriceUpdatedDate(), before);
}

TEST(ErrorTrap, AQuestionThatCantBeAskedIsAnsweredWithNo) {
    HostileScene scene;
    scene.start();
    const auto company = fullCompany();
    scene.entry->put_objCompany(company);
    const auto before = company->clone();
    scene.desktop.clickTab(toYearly);
    scene.desktop.failing = {"messageBox"};
    scene.desktop.click("cmdAddYear");
    EXPECT_EQ(company->get_LastFY(), before->get_LastFY());
    EXPECT_EQ(company->get_YEPSSeries(), before->get_YEPSSeries());
}

// --- handlers of the host ------------------------------------------------------------------------

class ThrowingEvents final : public VKRDataEntryEvents {
  public:
    std::function<void()> fail;
    Names log;
    void TabChange(TABObject /*tab*/) override { raise("TabChange"); }
    void MoreHelp(std::int16_t /*object*/) override { raise("MoreHelp"); }
    void Assistant(std::int16_t /*object*/, const Variant& /*value*/) override {
        raise("Assistant");
    }
    void UnloadRequest(UnloadModeType /*mode*/) override { raise("UnloadRequest"); }

  private:
    void raise(const char* event) {
        log.emplace_back(event);
        fail();
    }
};

TEST(ErrorTrap, AHandlerOfTheHostThatThrowsKeepsNoStepFromItsEnd) {
    for (const auto& [thrown, fail] : throwers) {
        SCOPED_TRACE(thrown);
        EntryScene scene;
        ThrowingEvents events;
        events.fail = fail;
        scene.entry->setEvents(&events);
        scene.load(fullCompany());
        auto& desktop = scene.desktop;

        desktop.clickTab(toYearly);
        EXPECT_EQ(scene.entry->get_CurrentTab(), toYearly);
        EXPECT_EQ(desktop.focusedId(), "txtLastFY");
        EXPECT_TRUE(desktop.canReach("cmdAddYear"));
        desktop.clickTab(toCompany);
        EXPECT_EQ(desktop.focusedId(), "txtCurrentPrice");
        scene.entry->put_CurrentTab(toOther);
        EXPECT_EQ(desktop.propertyChanges().back(), "CurrentTab");
        scene.entry->SetNext();
        EXPECT_EQ(scene.entry->get_CurrentTab(), toOptions);

        desktop.clickTab(toCompany);
        desktop.click("txtName");
        desktop.answerNextMenu("What's This?");
        desktop.rightClick("txtName");
        desktop.type("{F1}");
        EXPECT_FALSE(scene.form().get<Frame>("fraDE", 0).visible());
        desktop.click("cmdHelp");
        desktop.answerNextMenu("Ask the Assistant...");
        desktop.rightClick("txtName");
        desktop.click("cmdOK");
        desktop.click("cmdCancel");
        desktop.click("txtName");
        desktop.type("^aGoes on{TAB}");
        EXPECT_EQ(scene.entry->get_objCompany()->get_Name(), "Goes on");
        EXPECT_EQ(events.log,
                  (Names{"TabChange", "TabChange", "TabChange", "TabChange", "TabChange",
                         "MoreHelp", "MoreHelp", "Assistant", "UnloadRequest", "UnloadRequest"}));
    }
}

TEST(ErrorTrap, WhoThrowsOnHearingOfAChangeStopsNothing) {
    for (const auto& [thrown, fail] : throwers) {
        SCOPED_TRACE(thrown);
        EntryScene scene;
        int heard = 0;
        scene.entry->stateChanged = [&, &fail = fail] {
            ++heard;
            fail();
        };
        scene.entry->fractionDisplayChanged = [&fail = fail] { fail(); };
        const auto company = fullCompany();
        ASSERT_NO_THROW(scene.load(company));
        EXPECT_EQ(heard, 1);
        scene.enter("txtName", "Renamed");
        EXPECT_EQ(company->get_Name(), "Renamed");
        EXPECT_TRUE(scene.entry->get_blnDirty());
        EXPECT_TRUE(scene.entry->unstoredFields().empty());
        ASSERT_NO_THROW(scene.entry->put_blnDirty(false));
        ASSERT_NO_THROW(scene.entry->put_FractionDisplay(true));
        scene.desktop.clickTab(toOptions);
        scene.desktop.click("optCurrency(0)");
        EXPECT_EQ(company->get_Settings()->get(setting::unit).toLong(), 3);
    }
}

// --- records -------------------------------------------------------------------------------------

TEST(ErrorTrap, WhateverARecordThrowsMarksTheFieldAndComesOutNowhere) {
    constexpr std::pair<const char*, const char*> edits[] = {
        {"txtName", "Another"},  {"txtCurrentPrice", "12.5"}, {"txtPriceUpdate", "3/5/2024"},
        {"txtTotalDebt", "17"},  {"txtSales(9)", "4321"},     {"txtEPS(0)", "0.75"},
        {"txtRevenue(3)", "99"}, {"txtNotes", "Other notes"}, {"txtDateofLastFY", "6/30/2024"},
    };
    for (const auto& [thrown, fail] : throwers)
        for (const auto& [id, text] : edits) {
            SCOPED_TRACE(std::string(id) + " and " + thrown);
            EntryScene scene;
            const auto record = std::make_shared<ScriptedRecord>(fullCompany());
            scene.load(record);
            test::goTo(scene, id);
            record->hook = [&fail = fail](const std::string& operation) {
                if (operation.starts_with("write "))
                    fail();
            };
            ASSERT_NO_THROW(scene.desktop.type("^a{DEL}" + test::keysOf(text)));
            ASSERT_NO_THROW(scene.entry->leaveField());
            auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
            EXPECT_EQ(field.text(), text);
            EXPECT_TRUE(field.isUnstored());
            EXPECT_FALSE(field.mark().reason.empty());
            record->hook = nullptr;
            scene.entry->leaveField();
            EXPECT_FALSE(field.isUnstored());
        }
}

TEST(ErrorTrap, ARecordThatThrowsAtEverythingLoadsAndCommits) {
    for (const auto& [thrown, fail] : throwers) {
        SCOPED_TRACE(thrown);
        EntryScene scene;
        const auto record = std::make_shared<ScriptedRecord>(fullCompany());
        record->hook = [&fail = fail](const std::string&) { fail(); };
        ASSERT_NO_THROW(scene.load(record));
        ASSERT_NO_THROW(static_cast<void>(scene.entry->get_objCompany()));
        for (int tab = toCompany; tab <= toOptions; ++tab) {
            ASSERT_NO_THROW(scene.entry->put_CurrentTab(static_cast<TABObject>(tab)));
            ASSERT_NO_THROW(scene.desktop.tabWalk());
        }
        ASSERT_NO_THROW(scene.desktop.click("optCurrency(0)"));
        ASSERT_NO_THROW(scene.entry->put_FractionDisplay(true));
        ASSERT_NO_THROW(scene.entry->put_blnDirty(false));
    }
}

// --- memory --------------------------------------------------------------------------------------

struct MemoryEdit {
    const char* id;
    std::string (*typed)(int round);
    bool (*holds)(const iVKR_Company& company, int round);
};

std::string wordOf(int round) {
    return "A name that needs memory of its own, " + std::to_string(round);
}
std::string figureOf(int round) {
    return std::to_string(1000 + round) + ".25";
}
double valueOfFigure(int round) {
    return 1000.25 + round;
}
Date dayOf(int round) {
    return Date{makeDate(2001, 1, 1)->serial + round};
}

const MemoryEdit memoryEdits[] = {
    {"txtNotes", wordOf,
     [](const iVKR_Company& company, int round) { return company.get_Notes() == wordOf(round); }},
    {"txtCurrentPrice", figureOf,
     [](const iVKR_Company& company, int round) {
         return company.get_CurrentPrice() == valueOfFigure(round);
     }},
    {"txtTotalDebt", figureOf,
     [](const iVKR_Company& company, int round) {
         return company.get_TotalDebt() == valueOfFigure(round);
     }},
    {"txtPriceUpdate",
     [](int round) {
         const auto day = civil(dayOf(round));
         return std::to_string(day.month) + "/" + std::to_string(day.day) + "/" +
                std::to_string(day.year);
     },
     [](const iVKR_Company& company, int round) {
         return company.get_PriceUpdatedDate() == dayOf(round);
     }},
    {"txtSales(9)", figureOf,
     [](const iVKR_Company& company, int round) {
         return company.get_YRevenueSeries().array().number(1) == valueOfFigure(round);
     }},
    {"txtHigh(9)", figureOf,
     [](const iVKR_Company& company, int round) {
         return company.get_YHighSeries().array().number(1) == valueOfFigure(round);
     }},
    {"txtEPS(0)", figureOf,
     [](const iVKR_Company& company, int round) {
         return company.get_QEPSSeries().array().number(0) == valueOfFigure(round);
     }},
};

TEST(ErrorTrap, WhereMemoryRunsOutOnLeavingAFieldItsTextIsStoredOrMarked) {
    for (const auto& edit : memoryEdits) {
        SCOPED_TRACE(edit.id);
        EntryScene scene;
        const auto company = fullCompany();
        company->put_LastQDateForGrid(company->get_LastQDate());
        company->get_Settings()->put(setting::unit, 6);
        scene.load(company);
        test::goTo(scene, edit.id);
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(edit.id));
        bool failed = true;
        for (int round = 1; failed; ++round) {
            ASSERT_LT(round, 5000);
            scene.desktop.type("^a{DEL}" + test::keysOf(edit.typed(round)));
            {
                const FailingMemory memory(round);
                scene.entry->leaveField();
                failed = memory.hasFailed();
            }
            ASSERT_TRUE(edit.holds(*company, round) || field.isUnstored())
                << "at allocation " << round << ", showing " << field.text();
            scene.entry->leaveField();
            ASSERT_TRUE(edit.holds(*company, round)) << "at allocation " << round;
            ASSERT_FALSE(field.isUnstored()) << "at allocation " << round;
        }
    }
}

TEST(ErrorTrap, WhereMemoryRunsOutACopyNeverStaysInThePlaceOfTheRecord) {
    EntryScene scene;
    const auto company = fullCompany();
    scene.load(company);
    scene.entry->put_CurrentTab(toOptions);
    test::typeOver(scene, "txtCurSymbol", "A symbol that needs memory of its own");
    bool failed = true;
    for (int round = 1; failed; ++round) {
        const auto copy = company->clone();
        {
            const FailingMemory memory(round);
            scene.entry->commitInto(copy);
            failed = memory.hasFailed();
        }
        ASSERT_EQ(scene.entry->get_objCompany(), company) << "at allocation " << round;
    }
}

TEST(ErrorTrap, WhereMemoryRanOutOnLoadingTheNextLoadingIsWhole) {
    const auto company = fullCompany();
    company->get_Settings()->put(setting::lockBasicInfo, true);
    const auto names = [](const EntryScene& scene) {
        Names result;
        for (const auto& control : scene.form().controls())
            result.push_back(control->id() + ": " + control->accessibleName());
        return result;
    };
    EntryScene whole;
    whole.load(company);
    const Names expected = names(whole);
    bool failed = true;
    for (int round = 1; failed; round += 1 + round / 8) {
        EntryScene scene;
        {
            const FailingMemory memory(round);
            scene.load(company);
            failed = memory.hasFailed();
        }
        scene.load(company);
        ASSERT_EQ(names(scene), expected) << "at allocation " << round;
        ASSERT_TRUE(scene.field("txtName").locked());
    }
}

// Figures that the record keeps as texts: moving them takes memory.
TEST(ErrorTrap, WhereMemoryRunsOutEveryFigureKeepsItsPeriodOrIsToldOf) {
    struct Way {
        const char* button;
        TABObject tab;
        const char* first;
        const char* second;
        const char* names[2];
        std::string (*period)(const iVKR_Company& company);
    };
    const Way ways[] = {
        {"cmdAddQuarter",
         toQuarterly,
         "QRevenueSeries",
         "QNetIncSeries",
         {"Revenue", "Net Income"},
         [](const iVKR_Company& company) {
             return std::to_string(company.get_LastQDateForGrid().serial);
         }},
        {"cmdAddYear",
         toYearly,
         "YRevenueSeries",
         "YNetIncSeries",
         {"Revenue", "Net Inc."},
         [](const iVKR_Company& company) { return std::to_string(company.get_LastFY()); }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.button);
        bool failed = true;
        for (int round = 1; failed; round += 1 + round / 60) {
            EntryScene scene;
            const auto company = fullCompany();
            for (const char* series : {way.first, way.second})
                test::putElement(*company, series, 2, 4321.5);
            company->put_LastQDateForGrid(company->get_LastQDate());
            scene.load(company);
            scene.desktop.clickTab(way.tab);
            scene.desktop.forget();
            scene.desktop.answerNext(MessageAnswer::yes);
            const std::string before = way.period(*company);
            {
                const FailingMemory memory(round);
                try {
                    scene.desktop.click(way.button);
                } catch (const std::bad_alloc&) { // the desktop's own
                }
                failed = memory.hasFailed();
            }
            const bool moved = way.period(*company) != before;
            std::string told;
            for (const auto& message : scene.desktop.messages())
                told += message.text + "\r";
            for (const int one : {0, 1}) {
                const char* series = one == 0 ? way.first : way.second;
                const bool figureMoved = test::elementOf(*company, series, 3) == 4321.5;
                ASSERT_TRUE(figureMoved == moved || told.find(way.names[one]) != std::string::npos)
                    << series << " at allocation " << round;
            }
        }
    }
}

TEST(ErrorTrap, WhereMemoryRunsOutNothingComesOutAndNoDatumChanges) {
    struct Act {
        const char* name;
        void (*act)(VKRDataEntry& entry, const std::shared_ptr<CompanyRecord>& company);
    };
    const Act acts[] = {
        {"load", [](VKRDataEntry& entry, const auto& company) { entry.put_objCompany(company); }},
        {"commit",
         [](VKRDataEntry& entry, const auto&) { static_cast<void>(entry.get_objCompany()); }},
        {"clear", [](VKRDataEntry& entry, const auto&) { entry.Clear(); }},
        {"platform", [](VKRDataEntry& entry, const auto&) { entry.put_Platform(ptStandard); }},
        {"tabs", [](VKRDataEntry& entry, const auto&) { entry.SetNext(); }},
        {"fractions", [](VKRDataEntry& entry,
                         const auto&) { entry.put_FractionDisplay(!entry.get_FractionDisplay()); }},
        {"rows",
         [](VKRDataEntry& entry, const auto&) {
             entry.put_VisibleQuarters(entry.get_VisibleQuarters() == 9 ? 30 : 9);
         }},
        {"restore", [](VKRDataEntry& entry, const auto&) { entry.ReadProperties(PropertyBag()); }},
        {"marks",
         [](VKRDataEntry& entry, const auto&) {
             entry.put_NumberMarks(entry.get_NumberMarks().decimal == ',' ? NumberMarks()
                                                                          : NumberMarks{',', "."});
         }},
        {"paste",
         [](VKRDataEntry& entry, const auto&) {
             constexpr std::string_view text = "12.5 and more than fits into a short string";
             entry.form().userPaste(entry.form().get<TextBox>("txtTotalDebt"), text);
         }},
        {"block",
         [](VKRDataEntry& entry, const auto&) {
             constexpr std::string_view text = "1\t2\n3\t4";
             entry.form().userPaste(entry.form().get<TextBox>("txtSales", 0), text);
         }},
    };
    for (const auto& act : acts) {
        SCOPED_TRACE(act.name);
        EntryScene scene;
        const auto company = fullCompany();
        scene.load(company);
        static_cast<void>(scene.entry->get_objCompany());
        const auto before = company->clone();
        bool failed = true;
        for (int round = 1; failed; round += 1 + round / 8) {
            {
                const FailingMemory memory(round);
                act.act(*scene.entry, company);
                failed = memory.hasFailed();
            }
            scene.entry->put_objCompany(company);
            static_cast<void>(scene.entry->get_objCompany());
            ASSERT_TRUE(differences(*before, *company).empty()) << "at allocation " << round;
        }
    }
}

TEST(ErrorTrap, WhereMemoryRunsOutNoCellIsReadInOtherMarksThanTheFormHas) {
    for (const char* id : {"txtTotalDebt", "txtSales(9)", "txtEPS(0)", "txtCurrentPrice"})
        for (const char* typed : {"12.5", "1.234"}) {
            SCOPED_TRACE(std::string(id) + " " + typed);
            bool failed = true;
            for (int round = 1; failed; round += 1 + round / 8) {
                EntryScene scene;
                const auto company = test::datedCompany();
                test::putElement(*company, "YRevenueSeries", 2, 1234.5);
                scene.load(company);
                test::goTo(scene, id);
                scene.desktop.type("^a{DEL}" + test::keysOf(typed));
                {
                    const FailingMemory memory(round);
                    scene.entry->put_NumberMarks({',', "."});
                    failed = memory.hasFailed();
                }
                const bool comma = scene.form().numberMarks().decimal == ',';
                ASSERT_EQ(scene.text("txtSales", 8), comma ? "1234,50" : "1234.50")
                    << "at allocation " << round;
                for (const auto& marked : scene.entry->unstoredFields())
                    ASSERT_EQ(marked.control, id) << "at allocation " << round;
                auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
                scene.entry->leaveField();
                const std::string now =
                    std::string(id) == "txtTotalDebt" ? Variant(company->get_TotalDebt()).toText()
                    : std::string(id) == "txtCurrentPrice"
                        ? Variant(company->get_CurrentPrice()).toText()
                    : std::string(id) == "txtEPS(0)"
                        ? Variant(test::elementOf(*company, "QEPSSeries", 0)).toText()
                        : Variant(test::elementOf(*company, "YRevenueSeries", 1)).toText();
                ASSERT_TRUE(now == typed || field.isUnstored())
                    << "at allocation " << round << " " << now << " " << field.text();
            }
        }
}

TEST(ErrorTrap, WhereMemoryRunsOutNoMarkedFieldIsPassedOver) {
    EntryScene scene;
    scene.load(test::datedCompany());
    test::pasteOver(scene, "txtYOption(9)", "1e400");
    test::pasteOver(scene, "txtSales(9)", "1.5M");
    scene.entry->put_CurrentTab(toOptions);
    scene.desktop.click("optPTI(1)"); // it waits
    bool failed = true;
    for (int round = 1; failed; ++round) {
        const FailingMemory memory(round);
        const bool listed =
            scene.entry->unstoredFields().size() == 1 && scene.entry->doubtfulFields().size() == 1;
        failed = memory.hasFailed();
        ASSERT_TRUE(listed) << "at allocation " << round;
    }
}

// --- acts from within ----------------------------------------------------------------------------

TEST(ErrorTrap, RowsThatARecordTakesAwayFromWithinItsWriteGoAfterIt) {
    for (const int rows : {1, 3, 9, 35}) {
        SCOPED_TRACE(rows);
        EntryScene scene;
        const auto record = std::make_shared<ScriptedRecord>(fullCompany());
        record->company->put_LastQDateForGrid(record->company->get_LastQDate());
        record->company->get_Settings()->put(setting::unit, 6);
        scene.entry->put_VisibleQuarters(20);
        scene.load(record);
        scene.desktop.clickTab(toQuarterly);
        test::goTo(scene, "txtRevenue(4)");
        bool asked = false;
        record->hook = [&](const std::string& operation) {
            if (asked || operation != "write QRevenueSeries")
                return;
            asked = true;
            scene.entry->put_VisibleQuarters(static_cast<std::int16_t>(rows));
            EXPECT_EQ(scene.entry->get_VisibleQuarters(), rows);
            EXPECT_EQ(scene.form().upperBound("txtRevenue"), 19) << "the cell is still at work";
        };
        scene.desktop.type("^a4711{ENTER}");
        EXPECT_TRUE(asked);
        EXPECT_EQ(scene.form().upperBound("txtRevenue"), rows - 1);
        EXPECT_EQ(record->company->get_QRevenueSeries().array().number(4), 4711);
        EXPECT_EQ(scene.desktop.propertyChanges().back(), "VisibleQuarters");
        scene.desktop.type("{DOWN}{TAB}");
    }
}

TEST(ErrorTrap, AddingAYearFromWithinItsOwnQuestionAddsOne) {
    for (const auto& [answer, within] : {std::pair{MessageAnswer::yes, "cmdAddYear"},
                                         {MessageAnswer::no, "cmdAddYear"},
                                         {MessageAnswer::yes, "cmdRemoveYear"},
                                         {MessageAnswer::no, "cmdRemoveYear"}}) {
        HostileScene scene;
        scene.start();
        const auto company = fullCompany();
        const auto before = company->clone();
        scene.entry->put_objCompany(company);
        scene.desktop.clickTab(toYearly);
        bool nested = false;
        scene.desktop.duringMessage = [&, button = within] {
            if (nested)
                return;
            nested = true;
            scene.entry->form().click(scene.desktop.control(button));
        };
        scene.desktop.answerNext(answer);
        scene.desktop.click("cmdAddYear");
        EXPECT_TRUE(nested);
        EXPECT_EQ(scene.desktop.messages().size(), 1U) << "one question at a time";
        const int added = answer == MessageAnswer::yes ? 1 : 0;
        EXPECT_EQ(company->get_LastFY(), before->get_LastFY() + added);
        EXPECT_EQ(company->get_YRevenueSeries().array().number(1 + added),
                  before->get_YRevenueSeries().array().number(1));
    }
}

TEST(ErrorTrap, AYearTypedUnderTheQuestionOfAnotherMovesNothing) {
    HostileScene scene;
    scene.start();
    const auto company = fullCompany();
    scene.entry->put_objCompany(company);
    scene.desktop.clickTab(toYearly);
    const auto before = company->clone();
    scene.desktop.duringMessage = [&] {
        auto& year = scene.field("txtLastFY");
        scene.entry->form().userEdit(year, "1999", 4, 0);
    };
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddYear");
    EXPECT_EQ(company->get_LastFY(), 1999);
    EXPECT_EQ(company->get_YRevenueSeries(), before->get_YRevenueSeries());
}

// --- the ends of 32 bits -------------------------------------------------------------------------

TEST(ErrorTrap, ListsAndSeriesMayEndAtTheEndsOf32Bits) {
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    EntryScene scene;
    for (const int lower : {lowest, -1, 0, highest - 1}) {
        scene.entry->put_vntIndustry(textArray({"First", "Last"}, lower));
        EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").list(), (Names{"First", "Last"}));
        const auto record = std::make_shared<ScriptedRecord>(fullCompany());
        record->everySeries = numberArray({0, 0}, lower);
        scene.load(record);
        EXPECT_FALSE(scene.entry->blnExistsQuarterlyData());
        static_cast<void>(scene.entry->get_objCompany());
        for (const auto* button : {"cmdAddYear", "cmdRemoveYear"}) {
            scene.desktop.clickTab(toYearly);
            scene.desktop.answerNext(MessageAnswer::yes);
            scene.desktop.click(button);
        }
        scene.desktop.clickTab(toQuarterly);
        scene.desktop.answerNext(MessageAnswer::yes);
        scene.desktop.click("cmdAddQuarter");
        test::typeOver(scene, "txtLastQDate", "5/5/2024");
    }
}

} // namespace
} // namespace vkr
