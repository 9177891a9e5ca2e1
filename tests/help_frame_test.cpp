// SPDX-License-Identifier: MIT
#include "control/help_frame.hpp"
#include "form/form_layout.hpp"
#include "input/mdlMenu.hpp"
#include "platform/text.hpp"
#include "tests/support/component_parts.hpp"
#include "tests/support/entry_object_rows.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

namespace vkr {
namespace {

using namespace test;
using Names = std::vector<std::string>;

constexpr std::string_view helpEntry = "What's This?";

// A company on a form that shows everything its platform shows.
struct HelpScene : EntryScene {
    explicit HelpScene(PlatformType platform = ptStandard) {
        PropertyBag bag;
        bag.write("Platform", static_cast<std::int32_t>(platform), std::int32_t{-1});
        entry->ReadProperties(bag);
        showEveryField(*this);
        load(fullCompany());
        desktop.tabInto();
        events.log.clear();
    }

    [[nodiscard]] Frame& frame() const { return form().get<Frame>("fraDE", frame::help); }
    [[nodiscard]] Label& text() const { return form().get<Label>("lblToolTip"); }
    [[nodiscard]] Label& link() const { return form().get<Label>("lblMoreHelp"); }

    // Chooses help in the menu of a control.
    void help(std::string_view id) {
        test::show(*this, id);
        desktop.answerNextMenu(helpEntry);
        desktop.rightClick(id);
        ASSERT_TRUE(frame().visible()) << id;
    }
    void helpOfTab(int tab) {
        desktop.answerNextMenu(helpEntry);
        desktop.rightClickTab(tab);
        ASSERT_TRUE(frame().visible()) << tab;
    }
    void choose(Choice choice) {
        if (choice == Choice::none)
            return;
        desktop.clickTab(toOptions);
        desktop.click(choice == Choice::taxRate ? "optPTI(1)" : "optCommEq(1)");
    }
    void chooseBack() {
        desktop.clickTab(toOptions);
        desktop.click("optPTI(0)");
        desktop.click("optCommEq(0)");
    }
};

// Out of sight on the second platform.
const std::set<int> notOnZx = {doTotalCap,   doTotalDebt,  doInsiderHolding, doInstitutional,
                               doPrefShares, doCommShares, doDilutedShares};

// What an object's help is asked for on: its control and its label.
void forEveryControl(HelpScene& scene, PlatformType platform,
                     const std::function<void(const EntryObjectRow&, std::string_view)>& act) {
    for (const auto& row : entryObjectRows) {
        if (row.control[0] == '\0' || (platform == ptZX && notOnZx.contains(row.object)))
            continue;
        scene.choose(row.choice);
        for (const std::string& id : {row.control, row.label})
            if (!id.empty())
                act(row, id);
        if (row.choice != Choice::none)
            scene.chooseBack();
    }
}

void askFor(HelpScene& scene, const EntryObjectRow& row, std::string_view id) {
    if (id == "tbsDataEntry")
        scene.helpOfTab(row.object - doTabCompany + 1);
    else
        scene.help(id);
}

void expectInside(const HelpScene& scene) {
    const auto& frame = scene.frame();
    EXPECT_GE(frame.left(), 0);
    EXPECT_GE(frame.top(), 0);
    EXPECT_LE(frame.left() + frame.width(), 8070);
    EXPECT_LE(frame.top() + frame.height(), 5835);
    const auto& text = scene.text();
    const auto& link = scene.link();
    for (const Control* part :
         {static_cast<const Control*>(&text), static_cast<const Control*>(&link)}) {
        EXPECT_GE(part->left(), 0);
        EXPECT_GE(part->top(), 0);
        EXPECT_LE(part->left() + part->width(), frame.width());
        EXPECT_LE(part->top() + part->height(), frame.height());
    }
    EXPECT_GE(link.top(), text.top() + text.height()) << "the link is below the text";
}

// --- text, place and number of every object ------------------------------------------------------

class HelpFrameOn : public testing::TestWithParam<PlatformType> {};
INSTANTIATE_TEST_SUITE_P(EitherPlatform, HelpFrameOn, testing::Values(ptStandard, ptZX),
                         [](const auto& row) { return row.param == ptZX ? "Zx" : "Standard"; });

TEST_P(HelpFrameOn, EveryObjectShowsItsText) {
    HelpScene scene(GetParam());
    const auto localizer = std::dynamic_pointer_cast<Localizer>(
        scene.desktop.createObject(GetParam() == ptZX ? zxLocalizerId : standardLocalizerId));
    ASSERT_EQ(std::ssize(entryObjectRows), dataEntryObjectCount);
    forEveryControl(scene, GetParam(), [&](const EntryObjectRow& row, std::string_view id) {
        SCOPED_TRACE(std::string(id));
        askFor(scene, row, id);
        EXPECT_EQ(scene.text().caption(), localizer->LoadString(row.helpText));
        EXPECT_EQ(scene.link().caption(), "More Help...");
        EXPECT_EQ(scene.link().tag(), std::to_string(row.object));
        EXPECT_TRUE(scene.desktop.canReach("lblMoreHelp"));
    });
}

TEST_P(HelpFrameOn, EveryFrameLiesInsideOfTheForm) {
    for (const Twips screen : {0.0, 1500.0, 9600.0, 15360.0, 28800.0, 57600.0}) {
        HelpScene scene(GetParam());
        scene.desktop.setScreenWidth(screen);
        forEveryControl(scene, GetParam(), [&](const EntryObjectRow& row, std::string_view id) {
            SCOPED_TRACE(std::string(id) + " on a screen of " + std::to_string(screen));
            askFor(scene, row, id);
            expectInside(scene);
        });
    }
}

TEST_P(HelpFrameOn, EveryFrameHasItsCornerAtTheControl) {
    HelpScene scene(GetParam());
    forEveryControl(scene, GetParam(), [&](const EntryObjectRow& row, std::string_view id) {
        SCOPED_TRACE(std::string(id));
        if (isTab(row))
            return;
        askFor(scene, row, id);
        // A label stands for the field that it names.
        const auto& control = scene.desktop.control(row.control);
        const bool ofField = dynamic_cast<const TextField*>(&control) != nullptr &&
                             control.index() == Control::noIndex;
        const auto& shown = ofField ? control : scene.desktop.control(id);
        const auto& frame = scene.frame();
        EXPECT_EQ(frame.left(), std::max(0.0, shown.formLeft() - frame.width()));
        EXPECT_EQ(frame.top(), std::max(0.0, shown.formTop() - frame.height()));
    });
}

TEST_P(HelpFrameOn, LinkAndF1NameEveryObject) {
    HelpScene scene(GetParam());
    forEveryControl(scene, GetParam(), [&](const EntryObjectRow& row, std::string_view id) {
        SCOPED_TRACE(std::string(id));
        const Names expected{"MoreHelp " + std::to_string(3000 + row.object)};
        askFor(scene, row, id);
        scene.events.log.clear();
        scene.desktop.click("lblMoreHelp");
        EXPECT_EQ(scene.events.log, expected);
        EXPECT_FALSE(scene.frame().visible());
        askFor(scene, row, id);
        scene.events.log.clear();
        scene.desktop.type("{F1}");
        EXPECT_EQ(scene.events.log, expected);
        EXPECT_FALSE(scene.frame().visible());
    });
}

TEST(HelpFrame, ATabsFrameBeginsBehindTheTabsInFrontOfIt) {
    HelpScene scene;
    const auto& strip = scene.form().get<TabStrip>("tbsDataEntry");
    Twips before = 0;
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        scene.helpOfTab(tab);
        EXPECT_EQ(scene.frame().left(), std::max(0.0, before - scene.frame().width() + 60)) << tab;
        EXPECT_EQ(scene.frame().top(), 0) << tab;
        before += strip.tab(tab).width;
    }
    expectInside(scene);
}

TEST(HelpFrame, OfATabAtOneOfItsControlsStandsAboveIt) {
    HelpScene scene;
    for (const char* id : {"txtCurSymbol", "lblLabel(28)"}) {
        scene.help(id);
        const auto& frame = scene.frame();
        const auto& control = scene.desktop.control(id);
        EXPECT_GT(frame.top(), 0);
        EXPECT_EQ(frame.top(), control.formTop() - frame.height()) << id;
    }
}

TEST(HelpFrame, AnyTabsMenuShowsItsOwnTextWhicheverIsSelected) {
    HelpScene scene;
    scene.desktop.clickTab(toOther);
    scene.helpOfTab(toQuarterly);
    EXPECT_EQ(scene.link().tag(), "66");
    EXPECT_EQ(scene.text().caption(), StandardLocalizer().LoadString(160));
    EXPECT_EQ(scene.entry->get_CurrentTab(), toOther);
}

TEST(HelpFrame, HelpChangesNothingElse) {
    HelpScene scene;
    const auto company = fullCompany();
    scene.load(company);
    const auto loaded = company->clone();
    scene.desktop.setClipboardText("held");
    scene.desktop.click("txtSymbol");
    scene.help("txtSymbol");
    EXPECT_EQ(textOf(scene, "txtSymbol"), "FULL");
    EXPECT_EQ(scene.desktop.focusedId(), "txtSymbol");
    scene.help("lblLabel(0)");
    EXPECT_EQ(scene.desktop.focusedId(), "txtSymbol") << "a label takes no focus";
    EXPECT_EQ(scene.desktop.clipboardText(), "held");
    EXPECT_EQ(scene.events.log, Names{});
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_EQ(changedData(*loaded, *company), Names{});
}

TEST(HelpFrame, TheLockHidesNoHelp) {
    HelpScene scene;
    scene.desktop.click("chkLockInfo");
    for (const auto* id : {"txtName", "lblLabel(2)", "cmbExchange", "chkLockInfo", "txtSales(3)"})
        scene.help(id);
    scene.desktop.click("lblMoreHelp");
    EXPECT_EQ(scene.events.log.back(), "MoreHelp 3022");
}

// --- hiding --------------------------------------------------------------------------------------

struct Hiding {
    const char* name;
    void (*act)(HelpScene& scene);
};

constexpr Hiding hidings[] = {
    {"ClickOnTheSurface", [](HelpScene& scene) { scene.desktop.clickSurface(); }},
    {"FocusLeavesTheForm", [](HelpScene& scene) { EXPECT_TRUE(scene.desktop.leaveForm()); }},
    {"AKeyComesUp", [](HelpScene& scene) { scene.desktop.type("x"); }},
    {"AKeyThatDoesNothing", [](HelpScene& scene) { scene.desktop.type("{LEFT}"); }},
    {"Escape", [](HelpScene& scene) { scene.desktop.type("{ESC}"); }},
    {"Tab", [](HelpScene& scene) { scene.desktop.type("{TAB}"); }},
    {"SetNext", [](HelpScene& scene) { scene.entry->SetNext(); }},
    {"SetPrevious", [](HelpScene& scene) { scene.entry->SetPrevious(); }},
    {"ClickOnATab", [](HelpScene& scene) { scene.desktop.clickTab(toYearly); }},
    {"ClickOnTheSelectedTab", [](HelpScene& scene) { scene.desktop.clickTab(toCompany); }},
    {"TheHostSelectsATab", [](HelpScene& scene) { scene.entry->put_CurrentTab(toOther); }},
    {"NextTabByKey", [](HelpScene& scene) { scene.desktop.type("^{PGDN}"); }},
    {"TheLetterOfATab", [](HelpScene& scene) { scene.desktop.type("%y"); }},
    {"PressOnItsField",
     [](HelpScene& scene) {
         scene.desktop.press("txtName");
         EXPECT_FALSE(scene.frame().visible()) << "at the press already";
         scene.desktop.release();
     }},
    {"PressOnAnotherField", [](HelpScene& scene) { scene.desktop.press("txtTotalDebt"); }},
    {"PressOnALabel", [](HelpScene& scene) { scene.desktop.press("lblLabel(13)"); }},
    {"PressOnAList", [](HelpScene& scene) { scene.desktop.press("cmbSource"); }},
    {"MiddlePress",
     [](HelpScene& scene) {
         scene.desktop.press("txtTotalDebt", Control::noIndex, MouseButton::middle);
     }},
    {"AnotherMenu", [](HelpScene& scene) { scene.desktop.rightClick("txtTotalDebt"); }},
    {"AMenuByKey", [](HelpScene& scene) { scene.desktop.type("{MENU}"); }},
    {"ClickOnItsText", [](HelpScene& scene) { scene.desktop.click("lblToolTip"); }},
    {"ClickOnItsLink", [](HelpScene& scene) { scene.desktop.click("lblMoreHelp"); }},
    {"TheLockBox", [](HelpScene& scene) { scene.desktop.click("chkLockInfo"); }},
    {"OkButton", [](HelpScene& scene) { scene.desktop.click("cmdOK"); }},
    {"HelpButton", [](HelpScene& scene) { scene.desktop.click("cmdHelp"); }},
    {"F1", [](HelpScene& scene) { scene.desktop.type("{F1}"); }},
    {"AnotherRecord", [](HelpScene& scene) { scene.load(fullCompany()); }},
    {"Clear", [](HelpScene& scene) { scene.entry->Clear(); }},
    {"ARecordThatChanged", [](HelpScene& scene) { scene.entry->recordChanged(); }},
};

class HelpFrameHides : public testing::TestWithParam<Hiding> {};
INSTANTIATE_TEST_SUITE_P(By, HelpFrameHides, testing::ValuesIn(hidings),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(HelpFrameHides, After) {
    HelpScene scene;
    scene.desktop.click("txtName");
    scene.help("txtName");
    GetParam().act(scene);
    EXPECT_FALSE(scene.frame().visible());
}

TEST(HelpFrame, GoesWhereTheHostLeavesAnyField) {
    for (const char* typed : {"", "1"}) {
        HelpScene scene;
        for (const auto* id : {"txtName", "txtCurSymbol", "txtSales(3)", "txtLastFY",
                               "txtDateofLastFY", "txtLastQDate", "optCurrency(0)"}) {
            test::show(scene, id);
            scene.help(id);
            if (auto* field = dynamic_cast<TextField*>(&scene.desktop.control(id)))
                scene.form().userEdit(*field, field->text() + typed, 0, 0);
            scene.entry->leaveField();
            EXPECT_FALSE(scene.frame().visible()) << id << typed;
        }
    }
}

TEST(HelpFrame, OptionClicksHideIt) {
    HelpScene scene;
    for (const auto* id : {"optCurrency(0)", "optDisplay(1)", "optPTI(1)", "optCommEq(1)"}) {
        scene.help("txtCurSymbol");
        scene.desktop.click(id);
        EXPECT_FALSE(scene.frame().visible()) << id;
    }
    scene.help("txtCurSymbol");
    scene.desktop.click("optCommEq(1)"); // chosen already
    EXPECT_FALSE(scene.frame().visible());
    scene.desktop.click("optCommEq(1)");
    scene.help("txtCurSymbol");
    scene.form().get<OptionButton>("optCurrency", 0).setFocus();
    scene.desktop.type("{DOWN}");
    EXPECT_FALSE(scene.frame().visible());
}

TEST(HelpFrame, ScrollingEitherGridHidesIt) {
    HelpScene scene;
    scene.entry->put_VisibleQuarters(35);
    struct Row {
        const char* cell;
        const char* bar;
        TABObject tab;
    };
    for (const Row& row : {Row{"txtSales(3)", "hscrYearly", toYearly},
                           Row{"txtRevenue(1)", "vscrQuarterly", toQuarterly}}) {
        scene.desktop.clickTab(row.tab);
        auto& bar = scene.form().get<ScrollBar>(row.bar);
        bar.setRange(0, 900, 1, 5);
        scene.help(row.cell);
        scene.desktop.scroll(row.bar, 2);
        EXPECT_FALSE(scene.frame().visible()) << row.bar;
        scene.help(row.cell);
        std::int16_t key = keys::down;
        std::int16_t shift = 0;
        scene.entry->ScrollMouse(key, shift);
        EXPECT_FALSE(scene.frame().visible()) << row.bar;
    }
}

TEST(HelpFrame, StandsAtItsCellWhereTheGridIsScrolled) {
    HelpScene scene;
    scene.entry->put_VisibleQuarters(35);
    scene.desktop.clickTab(toQuarterly);
    const auto& cell = scene.field("txtNetInc", 20);
    Twips before = -1;
    for (const int first : {20, 15, 12}) {
        scene.desktop.scroll("vscrQuarterly", first);
        scene.help("txtNetInc(20)");
        EXPECT_EQ(scene.frame().left(), std::max(0.0, cell.formLeft() - scene.frame().width()));
        EXPECT_EQ(scene.frame().top(), std::max(0.0, cell.formTop() - scene.frame().height()));
        EXPECT_GT(cell.formTop(), before);
        before = cell.formTop();
    }
}

// Every field, wherever it is, hides it at the press; no other button than the right one asks for
// a menu.
TEST(HelpFrame, APressOnAnyFieldHidesIt) {
    HelpScene scene;
    for (const auto& row : entryObjectRows) {
        if (row.control[0] == '\0' || isTab(row))
            continue;
        scene.help(row.control);
        const auto menus = scene.desktop.menus().size();
        if (!scene.desktop.canReach(row.control))
            continue; // it lies under its own frame
        scene.desktop.press(row.control);
        EXPECT_FALSE(scene.frame().visible()) << row.control;
        scene.desktop.dragAway();
        EXPECT_EQ(scene.desktop.menus().size(), menus) << row.control;
    }
}

TEST(HelpFrame, TheKeyThatAskedForItDoesNotHideIt) {
    HelpScene scene;
    for (const auto* keys : {"{MENU}", "+{F10}"})
        for (const auto* id : {"txtName", "cmbExchange", "chkLockInfo"}) {
            scene.desktop.control(id).setFocus();
            scene.desktop.answerNextMenu(helpEntry);
            scene.desktop.type(keys);
            EXPECT_TRUE(scene.frame().visible()) << id;
            scene.desktop.type("{LEFT}");
            EXPECT_FALSE(scene.frame().visible()) << id;
        }
}

// Opened by the mouse, the menu may be left by Enter, whose release comes afterwards.
TEST(HelpFrame, TheKeyThatChoseItInTheMenuDoesNotHideIt) {
    HelpScene scene;
    scene.desktop.type("{LEFT}");
    scene.help("txtName");
    scene.form().keyUp(keys::enter, shifts::none);
    EXPECT_TRUE(scene.frame().visible());
}

TEST(HelpFrame, HiddenItLeavesF1ToTheTab) {
    HelpScene scene;
    scene.help("txtName");
    scene.desktop.type("{F1}{F1}");
    EXPECT_EQ(scene.events.log, (Names{"MoreHelp 3000", "MoreHelp 3064"}));
    scene.help("txtName");
    scene.desktop.clickSurface();
    scene.desktop.type("{F1}");
    EXPECT_EQ(scene.events.log.back(), "MoreHelp 3064");
    scene.desktop.clickTab(toOptions);
    scene.desktop.type("{F1}");
    EXPECT_EQ(scene.events.log.back(), "MoreHelp 3068");
}

// The host's help may take the release of the key that called it.
TEST(HelpFrame, AReleaseThatGoesElsewhereCostsNoPress) {
    HelpScene scene;
    scene.help("txtName");
    EXPECT_TRUE(scene.form().keyDown(keys::f1, shifts::none));
    EXPECT_EQ(scene.events.log, Names{"MoreHelp 3000"});
    scene.desktop.type("{F1}");
    EXPECT_EQ(scene.events.log.back(), "MoreHelp 3064");
}

TEST(HelpFrame, F1ThatIsHeldDownActsOnce) {
    HelpScene scene;
    scene.help("txtName");
    scene.form().keyDown(keys::f1, shifts::none);
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(scene.form().keyDown(keys::f1, shifts::none, KeyDown::repeated));
    scene.form().keyUp(keys::f1, shifts::none);
    EXPECT_EQ(scene.events.log, Names{"MoreHelp 3000"});
}

TEST(HelpFrame, HidesWhenTheFocusGoesFromABoxToTheHost) {
    HelpScene scene;
    scene.desktop.click("chkLockInfo");
    scene.help("chkLockInfo");
    ASSERT_TRUE(scene.frame().visible());
    EXPECT_TRUE(scene.desktop.leaveForm());
    EXPECT_FALSE(scene.frame().visible());
}

// An assistive technology clicks without a pointer.
TEST(HelpFrame, HidesWhereAnOptionIsChosenWithoutAPointer) {
    HelpScene scene;
    scene.help("optCurrency(1)");
    scene.form().click(scene.desktop.control("optCurrency(2)"));
    EXPECT_FALSE(scene.frame().visible());
}

TEST(HelpFrame, IsReadOutWithItsText) {
    HelpScene scene;
    scene.help("txtName");
    EXPECT_TRUE(scene.frame().isNotice());
    EXPECT_EQ(scene.frame().accessibleName(), scene.form().get<Label>("lblToolTip").caption());
}

TEST(HelpFrame, IsHiddenAtTheStart) {
    EXPECT_FALSE(HelpScene().frame().visible());
}

TEST(HelpFrameOnShow, ClosesWhereAFieldIsLeftByWhateverWay) {
    HelpScene scene;
    scene.help("txtName");
    scene.form().get<TextBox>("txtName").setFocus();
    scene.frame().setVisible(true);
    scene.form().get<TextBox>("txtSymbol").setFocus(); // as a host does
    EXPECT_FALSE(scene.frame().visible());
}

// --- size ----------------------------------------------------------------------------------------

// The frame alone, with texts of a test's own.
class HelpFrameSize : public testing::Test, protected test::ComponentParts {
  protected:
    HelpFrameSize() { desktop.attach(form); }

    void showText(std::string_view text, Twips left = 8000, Twips top = 5000) {
        help.ShowHelpFrame(text, left, top, doSymbol);
    }
    template <typename Kind = Label>
    Kind& get(std::string_view name) {
        return form.get<Kind>(name);
    }
    Frame& frame() { return form.get<Frame>("fraDE", frame::help); }

    HelpFrame help{context};
};

TEST_F(HelpFrameSize, AShortTextTakesOneLine) {
    showText("About twenty letters"); // 2100 twips
    EXPECT_FALSE(get("lblToolTip").wordWrap());
    EXPECT_EQ(get("lblToolTip").height(), VirtualDesktop::characterHeight);
    EXPECT_GE(get("lblToolTip").width(), 2100);
    EXPECT_EQ(frame().width(), get("lblToolTip").width() + 300);
}

TEST_F(HelpFrameSize, TheFrameIsNeverNarrowerThanTheLinkNeeds) {
    for (const auto* text : {"", "x", "Symbol"}) {
        showText(text);
        const Twips link = desktop.textWidth("More Help...");
        EXPECT_GE(get("lblToolTip").width(), 1.5 * link);
        EXPECT_LE(get("lblMoreHelp").left() + link, frame().width());
    }
}

TEST_F(HelpFrameSize, ALongTextBreaksAtTheLimitOfTheScreen) {
    std::string text = "word";
    for (int i = 0; i < 39; ++i)
        text += " word";
    for (const Twips screen : {9600.0, 14400.0, 28800.0}) {
        desktop.setScreenWidth(screen);
        showText(text);
        EXPECT_TRUE(get("lblToolTip").wordWrap());
        EXPECT_LE(get("lblToolTip").width(), screen / 2);
        // Enough lines for every word.
        const int perLine =
            static_cast<int>((get("lblToolTip").width() + VirtualDesktop::characterWidth) /
                             (5 * VirtualDesktop::characterWidth));
        EXPECT_GE(get("lblToolTip").height() / VirtualDesktop::characterHeight,
                  (40 + perLine - 1) / perLine);
    }
    showText("short");
    EXPECT_FALSE(get("lblToolTip").wordWrap()) << "the next text starts on one line again";
}

TEST_F(HelpFrameSize, OnATinyScreenTheLinesAreAsWideAsTheLink) {
    desktop.setScreenWidth(0);
    showText("one two three four five six");
    const Twips width = get("lblToolTip").width();
    EXPECT_GE(width, 1.5 * desktop.textWidth("More Help..."));
    EXPECT_EQ(get("lblToolTip").height(), 2 * VirtualDesktop::characterHeight);
}

TEST_F(HelpFrameSize, BackgroundAndBorderAreDrawnRoundTheWhole) {
    for (const auto* text : {"x", "A text that is long enough to take more than a single line of "
                                  "the frame that it is shown in"}) {
        showText(text);
        for (const auto* name : {"shaBackground", "shaBorder"}) {
            const auto& shape = get<Shape>(name);
            EXPECT_EQ(shape.left(), 0) << name;
            EXPECT_EQ(shape.top(), 0) << name;
            EXPECT_EQ(shape.width(), frame().width()) << name;
            EXPECT_EQ(shape.height(), frame().height()) << name;
        }
        const auto& link = get("lblMoreHelp");
        EXPECT_GE(link.top(), get("lblToolTip").top() + get("lblToolTip").height());
        EXPECT_LE(link.top() + link.height(), frame().height());
    }
}

TEST_F(HelpFrameSize, TheLowerRightCornerIsAtThePlace) {
    showText("Symbol", 6000, 3000);
    const auto& page = form.get<Frame>("fraDE", frame::firstPage);
    EXPECT_EQ(frame().left() + frame().width(), 6000 + 60);
    EXPECT_EQ(frame().top() + frame().height(), 3000 + page.top());
    EXPECT_EQ(help.object(), doSymbol);
    EXPECT_EQ(get("lblMoreHelp").tag(), "1");
    EXPECT_TRUE(help.visible());
}

TEST_F(HelpFrameSize, WhatWouldBeginOutsideBeginsAtTheEdge) {
    const std::pair<Twips, Twips> places[] = {{0, 0}, {100, 4000}, {7000, 100}, {-500, -500}};
    for (const auto& [left, top] : places) {
        showText("Symbol", left, top);
        EXPECT_GE(frame().left(), 0);
        EXPECT_GE(frame().top(), 0);
    }
    showText("Symbol", 0, 0);
    EXPECT_EQ(frame().left(), 0);
    EXPECT_EQ(frame().top(), 0);
}

TEST_F(HelpFrameSize, ATextOfOneEndlessWordStaysInside) {
    showText(std::string(500, 'w'));
    EXPECT_LE(frame().left() + frame().width(), 8070);
    EXPECT_LE(frame().top() + frame().height(), 5835);
}

TEST_F(HelpFrameSize, LineBreaksOfItsOwnMakeLines) {
    struct Row {
        const char* text;
        int lines;
    };
    for (const Row& row :
         {Row{"one\rtwo", 2}, Row{"one\ntwo", 2}, Row{"one\r\ntwo", 2}, Row{"one\r\n\r\nthree", 3},
          Row{"one\n\rthree", 3}, Row{"one\n", 2}, Row{"a\rb\nc\r\nd", 4}}) {
        showText(row.text);
        EXPECT_EQ(get("lblToolTip").height(), row.lines * VirtualDesktop::characterHeight)
            << row.text;
        EXPECT_TRUE(get("lblToolTip").wordWrap());
        EXPECT_EQ(get("lblToolTip").caption(), row.text);
        EXPECT_LT(get("lblToolTip").width(), 2 * desktop.textWidth("More Help..."));
    }
    const std::string line = "about twenty letters"; // the widest line counts, not their sum
    showText(line + "\r" + line + "\r" + line);
    EXPECT_LT(get("lblToolTip").width(), 2 * desktop.textWidth(line));
    EXPECT_EQ(get("lblToolTip").height(), 3 * VirtualDesktop::characterHeight);
}

TEST_F(HelpFrameSize, AWordThatIsTooLongForALineGoesOnInTheNext) {
    const std::string endless(200, 'w');
    showText(endless);
    const Twips width = get("lblToolTip").width();
    EXPECT_TRUE(get("lblToolTip").wordWrap());
    EXPECT_GE(get("lblToolTip").height() * width,
              desktop.textWidth(endless) * VirtualDesktop::characterHeight);
    const auto linesOf = [&](std::string_view text) {
        showText(text);
        return get("lblToolTip").height() / VirtualDesktop::characterHeight;
    };
    const auto alone = linesOf(endless);
    EXPECT_EQ(linesOf("a " + endless), alone + 1);
    EXPECT_EQ(linesOf(endless + " b"), alone);
    EXPECT_EQ(linesOf("a\r" + endless), alone + 1);
    std::string chinese;
    for (int i = 0; i < 200; ++i)
        chinese += "\u8CC7";
    EXPECT_EQ(linesOf(chinese), alone);
}

TEST_F(HelpFrameSize, AWordOrLineThatJustFitsIsNotBroken) {
    constexpr int characters = 37;
    constexpr Twips slack = 60;
    desktop.setScreenWidth(2 * (characters * VirtualDesktop::characterWidth + slack));
    struct Row {
        std::vector<int> words; // by their length
        int lines;
    };
    for (const auto& [words, lines] :
         {Row{{characters, 1}, 2}, Row{{1, characters}, 2}, Row{{characters + 1, 1}, 2},
          Row{{1, characters + 1}, 3}, Row{{18, 18, 18}, 2}, Row{{18, 19, 18}, 3},
          Row{{2 * characters}, 2}, Row{{2 * characters + 1}, 3}, Row{{3 * characters}, 3}}) {
        std::string text;
        for (const int length : words)
            text += (text.empty() ? "" : " ") + std::string(static_cast<std::size_t>(length), 'w');
        showText(text);
        EXPECT_EQ(get("lblToolTip").height(), lines * VirtualDesktop::characterHeight) << text;
    }
}

TEST_F(HelpFrameSize, AVeryLongTextLeavesTheLinkOnTheForm) {
    std::string text;
    for (int i = 0; i < 3000; ++i)
        text += "word ";
    for (const std::string& shown : {text, std::string(20'000, 'w'), std::string(500, '\r')}) {
        showText(shown);
        EXPECT_LE(frame().left() + frame().width(), 8070);
        EXPECT_LE(frame().top() + frame().height(), 5835);
        EXPECT_LE(get("lblMoreHelp").top() + get("lblMoreHelp").height(), frame().height());
    }
}

// What is too high for it takes the whole width of the form, and as many lines as there is room
// for.
TEST_F(HelpFrameSize, AVeryLongTextTakesAllTheRoomThereIs) {
    showText(std::string(20'000, 'w'));
    EXPECT_EQ(frame().width(), 8070);
    EXPECT_LE(frame().height(), 5835);
    EXPECT_GT(frame().height() + VirtualDesktop::characterHeight, 5835);
    const int lines =
        static_cast<int>(get("lblToolTip").height() / VirtualDesktop::characterHeight);
    showText(std::string(static_cast<std::size_t>(lines - 1), '\r'));
    EXPECT_LT(frame().width(), 8070) << "it has just room";
    EXPECT_EQ(get("lblToolTip").height(), lines * VirtualDesktop::characterHeight);
}

TEST_F(HelpFrameSize, OfAShortTextIsAsWideAsOneAndAHalfLinks) {
    showText("x");
    EXPECT_EQ(get("lblToolTip").width(), 1.5 * desktop.textWidth("More Help..."));
    EXPECT_EQ(frame().width(), get("lblToolTip").width() + 300);
}

// A desktop that measures texts as a test says.
struct MeasuringDesktop final : VirtualDesktop {
    std::function<Twips(std::string_view)> width;
    std::function<Twips()> height;
    Twips textWidth(std::string_view text) override { return width(text); }
    Twips textHeight() override { return height(); }
};

class HelpFrameMeasured : public testing::Test {
  protected:
    // "2160x195 at 150,150"
    [[nodiscard]] std::string placeOf(std::string_view id) const {
        const Control* control = nullptr;
        for (const auto& any : form.controls())
            if (any->id() == id)
                control = any.get();
        const auto number = [](Twips twips) { return std::to_string(static_cast<int>(twips)); };
        return number(control->width()) + "x" + number(control->height()) + " at " +
               number(control->left()) + "," + number(control->top());
    }
    void expectPlaces(std::string_view text, std::string_view label, std::string_view link,
                      std::string_view size) {
        help.ShowHelpFrame(text, 8000, 5000, doSymbol);
        EXPECT_EQ(placeOf("lblToolTip"), label) << text;
        EXPECT_EQ(placeOf("lblMoreHelp"), link) << text;
        for (const char* shape : {"shaBackground", "shaBorder"})
            EXPECT_EQ(placeOf(shape), std::string(size) + " at 0,0") << text;
        EXPECT_TRUE(placeOf("fraDE(0)").starts_with(size)) << text;
    }

    MeasuringDesktop desktop;
    Form form;
    struct Built {
        explicit Built(Form& form) { buildForm(form); }
    } built{form};
    EntryContext context{form, desktop};
    HelpFrame help{context};
};

TEST_F(HelpFrameMeasured, HasItsTextAndItsLinkAtWholePixels) {
    desktop.width = [](std::string_view text) { return 101.0 * textLength(text); };
    desktop.height = [] { return 201.0; };
    expectPlaces("About twenty letters", "2085x210 at 150,150", "1215x210 at 150,450", "2385x810");
    expectPlaces("Short\r\nAbout twenty letters\nShort", "2085x630 at 150,150",
                 "1215x210 at 150,870", "2385x1230");
    expectPlaces("Short\rAbout twenty letters", "2085x420 at 150,150", "1215x210 at 150,660",
                 "2385x1020");
    expectPlaces("About twenty letters\r\nShort", "2085x420 at 150,150", "1215x210 at 150,660",
                 "2385x1020");
    expectPlaces("About twenty letters\r\nAbout twenty letters", "2085x420 at 150,150",
                 "1215x210 at 150,660", "2385x1020");
}

TEST_F(HelpFrameMeasured, GuessesWhatTheDesktopCannotMeasure) {
    desktop.width = [](std::string_view) -> Twips { throw std::runtime_error("no display"); };
    desktop.height = []() -> Twips { throw std::runtime_error("no display"); };
    expectPlaces("About twenty letters", "1860x240 at 150,150", "1080x240 at 150,480", "2160x870");
}

TEST_F(HelpFrameMeasured, ALetterThatIsTooWideForALineHasOneOfItsOwn) {
    desktop.width = [](std::string_view text) {
        return 100.0 * textLength(text) +
               100'000.0 * static_cast<double>(std::ranges::count(text, 'W'));
    };
    desktop.height = [] { return 195.0; };
    for (const auto& [text, lines] :
         {std::pair{"WWW", 3}, std::pair{"a WW", 3}, std::pair{"W W", 2}, std::pair{"W a", 2}}) {
        help.ShowHelpFrame(text, 8000, 5000, doSymbol);
        EXPECT_EQ(form.get<Label>("lblToolTip").height(), 195.0 * lines) << text;
    }
}

TEST(HelpFrame, OfATabAtItsPageIsAsHighUpForEveryTab) {
    MeasuringDesktop desktop;
    desktop.width = [](std::string_view) { return 1500.0; };
    desktop.height = [] { return 15.0; };
    registerLocalizers(desktop.factory());
    VKRDataEntry entry(desktop);
    desktop.attach(entry.form());
    entry.InitProperties();
    entry.ReadProperties(PropertyBag());
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        desktop.answerNextMenu(helpEntry);
        desktop.rightClick("fraDE(" + std::to_string(frame::companyPage + tab - toCompany) + ")");
        const auto& shown = entry.form().get<Frame>("fraDE", frame::help);
        ASSERT_TRUE(shown.visible()) << tab;
        EXPECT_EQ(shown.top(), 300) << tab;
    }
}

// Pages and what a host has put on the form would hide it.
TEST_F(HelpFrameMeasured, ComesToTheFront) {
    struct Order final : FormObserver {
        std::vector<std::string> raised;
        void controlChanged(Control& control, Property property) override {
            if (property == Property::order)
                raised.push_back(control.id());
        }
    } observer;
    desktop.width = [](std::string_view) { return 1000.0; };
    desktop.height = [] { return 195.0; };
    form.setObserver(&observer);
    help.ShowHelpFrame("Text", 8000, 5000, doSymbol);
    form.setObserver(nullptr);
    EXPECT_EQ(observer.raised, Names{"fraDE(0)"});
}

// --- without texts -------------------------------------------------------------------------------

class BrokenLocalizer : public Localizer {
  public:
    explicit BrokenLocalizer(bool throws) : throws_(throws) {}
    [[nodiscard]] std::string LoadString(int /*number*/) const override {
        if (throws_)
            throw std::runtime_error("the texts can't be read");
        return {};
    }
    [[nodiscard]] Picture LoadPicture(int /*number*/, int /*kind*/) const override {
        if (throws_)
            throw std::runtime_error("the pictures can't be read");
        return {};
    }

  private:
    bool throws_;
};

enum class Texts { missing, failing, empty };

class HelpFrameWithoutTexts : public testing::TestWithParam<Texts> {};
INSTANTIATE_TEST_SUITE_P(Localizer, HelpFrameWithoutTexts,
                         testing::Values(Texts::missing, Texts::failing, Texts::empty));

bool changesTextOrYears(const VirtualDesktop::MenuEntry& entry) {
    for (const int command : {mcCut, mcPaste, mcClear, mcAddYear, mcRemoveYear})
        if (entry.tag == std::to_string(command))
            return true;
    return false;
}

TEST_P(HelpFrameWithoutTexts, EveryMenuOpensAndHelpShowsNothing) {
    EntryScene scene;
    auto& factory = scene.desktop.factory();
    factory.remove(standardLocalizerId);
    if (GetParam() != Texts::missing)
        factory.add(standardLocalizerId,
                    [] { return std::make_shared<BrokenLocalizer>(GetParam() == Texts::failing); });
    scene.entry->put_Platform(ptStandard);
    showEveryField(scene);
    const auto company = fullCompany();
    scene.load(company);
    const auto loaded = company->clone();
    scene.desktop.tabInto();
    for (const auto& row : entryObjectRows) {
        const std::string_view id = row.control;
        if (id.empty() || row.choice != Choice::none)
            continue;
        SCOPED_TRACE(std::string(id));
        show(scene, id);
        const auto open = [&] {
            if (isTab(row))
                scene.desktop.rightClickTab(row.object - doTabCompany + 1);
            else
                scene.desktop.rightClick(id);
            EXPECT_FALSE(scene.form().get<Frame>("fraDE", frame::help).visible());
        };
        open(); // and chooses nothing
        const auto menu = scene.desktop.menus().back();
        for (const auto& entry : menu.entries) {
            if (changesTextOrYears(entry))
                continue;
            scene.desktop.answerNextMenu(entry.index);
            open();
        }
    }
    // The date of the last quarter was taken over.
    EXPECT_EQ(changedData(*loaded, *company), (Names{"LastFYDate"}));
}

// The component's own entry has its text from the start; localizers of hosts may not know it.
TEST(HelpFrame, TheAssistantsEntryIsNamedWithoutALocalizer) {
    EntryScene scene;
    scene.desktop.factory().remove(standardLocalizerId);
    scene.entry->put_Platform(ptStandard);
    scene.load(fullCompany());
    scene.desktop.rightClick("lblLabel(0)");
    ASSERT_EQ(scene.desktop.menus().back().entries.size(), 2U);
    EXPECT_EQ(scene.desktop.menus().back().entries[0].caption, "Ask the Assistant...");
}

TEST(HelpFrame, StaysHiddenWhereThereIsNoText) {
    EntryScene scene;
    scene.load(fullCompany());
    scene.entry->put_Platform(static_cast<PlatformType>(2));
    scene.desktop.answerNextMenu(helpEntry);
    scene.desktop.rightClick("txtName");
    EXPECT_TRUE(scene.desktop.scriptUsedUp());
    EXPECT_NE(scene.desktop.menus().back().chosen, -1);
    EXPECT_FALSE(scene.form().get<Frame>("fraDE", frame::help).visible());
}

} // namespace
} // namespace vkr
