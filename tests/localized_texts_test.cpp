// SPDX-License-Identifier: MIT
#include "control/entry_objects.hpp"
#include "form/form_layout.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"
#include "tests/support/entry_object_rows.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vkr {
namespace {

using namespace test;

// Every text of another localizer in brackets; blanks around it stay around the brackets.
template <typename Texts>
struct Bracketed final : Localizer {
    Texts texts;
    [[nodiscard]] std::string LoadString(int number) const override {
        const std::string text = texts.LoadString(number);
        const auto words = trimmed(text);
        if (words.empty())
            return text;
        const auto begin = static_cast<std::size_t>(words.data() - text.data());
        return text.substr(0, begin) + "[" + std::string(words) + "]" +
               text.substr(begin + words.size());
    }
    [[nodiscard]] Picture LoadPicture(int number, int kind) const override {
        return texts.LoadPicture(number, kind);
    }
};

// What of a text did not come from the localizer, without blanks around it.
std::string outside(std::string_view text) {
    std::string rest;
    int depth = 0;
    for (const char c : text)
        if (c == '[')
            ++depth;
        else if (c == ']')
            --depth;
        else if (depth == 0)
            rest += c == '\r' ? ' ' : c;
    return std::string(trimmed(rest));
}

// Never localized: the text is the design's.
struct Design {
    const char* control; // of all elements of an array
    int index;
    const char* text;
    const char* reason;
};
constexpr int all = Control::noIndex;
constexpr Design designTexts[] = {
    {"lblMoreHelp", all, "More Help...", "the link carries an object's number in its tag"},
    {"cmdColor", all, "...", "a sign, no words"},
    {"lblUnit", 6, "Shares Outstanding", "a caption without a string number"},
};

// Captions that show data.
struct Data {
    const char* control;
    const char* reason;
};
constexpr Data dataCaptions[] = {
    {"lblYear", "a year"},
    {"lblQLabel", "a date"},
    {"lblDatOfLastFY", "a date, over the design text \"Dat of Last FY\""},
    {"lblCurrency", "the company's currency symbol"},
    {"lblQCurrency", "the company's currency symbol"},
};

// Tabs are no contained controls: captions and tips are the design's. On the ZX platform the
// fourth has a caption of its own.
constexpr const char* tabTexts[][2] = {
    {"&Company Data", "Company Data"},
    {"&Yearly Data", "Yearly Data"},
    {"&Quarterly Data", "Quarterly Data"},
    {"Company &Other", "Other Company Data"},
    {"O&ptions", "Options"},
};

// Messages whose words are fixed, with the beginning of each.
constexpr const char* designMessages[] = {
    "Data is locked!\r\rYou must unlock data to add a new year.",
    "Data is locked!\r\rYou must unlock data to remove a year.",
    "Data is locked!\r\rYou must unlock data to add a new quarter.",
    "Bad or missing Localizer object\rData Entry",
    "Bad or missing value object\rData Entry",
    "LastQDate Lost Focus error: ", // and what the record says
};

struct BracketScene : EntryScene {
    explicit BracketScene(PlatformType platform = ptStandard) {
        desktop.factory().add(standardLocalizerId,
                              [] { return std::make_shared<Bracketed<StandardLocalizer>>(); });
        desktop.factory().add(zxLocalizerId,
                              [] { return std::make_shared<Bracketed<ZxLocalizer>>(); });
        auto localized = std::make_unique<VKRDataEntry>(desktop);
        localized->setEvents(&events);
        desktop.attach(localized->form());
        entry = std::move(localized);
        entry->InitProperties();
        PropertyBag bag;
        bag.write("Platform", static_cast<std::int32_t>(platform), std::int32_t{ptStandard});
        bag.write("ShowVLs", true, false);
        bag.write("ShowReportingPeriod", true, false);
        entry->ReadProperties(bag);
        desktop.forget();
    }

    std::set<std::string> metExceptions;
    std::vector<std::string> foreign; // "where: text"

    void note(const std::string& where, const std::string& text) {
        foreign.push_back(where + ": " + text);
    }
    [[nodiscard]] bool isDesign(const Control& control, const std::string& rest) {
        for (const auto& row : designTexts)
            if (control.name() == row.control &&
                (row.index == all || row.index == control.index()) && rest == row.text) {
                metExceptions.insert(row.control);
                return true;
            }
        return false;
    }
    [[nodiscard]] bool isData(const Control& control) {
        return std::ranges::any_of(dataCaptions, [&](const Data& row) {
            if (control.name() != row.control)
                return false;
            metExceptions.insert(row.control);
            return true;
        });
    }
    [[nodiscard]] bool isRowLabel(std::string_view text) const {
        for (const auto& control : form().controls())
            if ((control->name() == "lblYear" || control->name() == "lblQLabel") &&
                control->caption() == text)
                return true;
        return false;
    }

    void readCaption(const Control& control) {
        if (control.hasCaption() && control.kind() != ControlKind::menuItem && !isData(control)) {
            const std::string rest = outside(control.caption());
            if (!rest.empty() && !isDesign(control, rest))
                note(control.id() + " caption", control.caption());
        }
        if (!control.toolTip().empty() && !outside(control.toolTip()).empty())
            note(control.id() + " tool tip", control.toolTip());
        std::string name = outside(control.accessibleName());
        if (control.name() == "txtCSO" && name.starts_with("Shares Outstanding"))
            name = trimmed(std::string_view(name).substr(18)); // of its design label
        const bool secondLine = control.name() == "txtAddress2" && name == "2";
        if (!name.empty() && !secondLine && !isRowLabel(name))
            note(control.id() + " name", control.accessibleName());
        if (const auto* field = dynamic_cast<const TextField*>(&control);
            field != nullptr && !outside(field->mark().reason).empty())
            note(control.id() + " mark", field->mark().reason);
    }
    void readTabs() {
        const auto& strip = form().get<TabStrip>("tbsDataEntry");
        for (int i = 1; i <= strip.count(); ++i) {
            const auto& tab = strip.tab(i);
            if (outside(tab.caption) != "" && tab.caption != tabTexts[i - 1][0])
                note("tab", tab.caption);
            if (tab.toolTip != tabTexts[i - 1][1])
                note("tab tip", tab.toolTip);
        }
    }
    void readPage() {
        for (const auto& control : form().controls())
            if (control->isShown())
                readCaption(*control);
        const auto& periods = form().get<ComboBox>("cmbReportingPeriod");
        for (const auto& entry_text : periods.list())
            if (!outside(entry_text).empty())
                note("reporting period", entry_text);
        readTabs();
    }
    void readMenus() {
        for (const auto& menu : desktop.menus())
            for (const auto& item : menu.entries)
                if (item.caption != "-" && !outside(item.caption).empty())
                    note("menu", item.caption);
    }
    // Questions name the year or the quarters that will be gone.
    void readMessages(const std::set<std::string>& data = {}) {
        for (const auto& box : desktop.messages()) {
            const bool design = std::ranges::any_of(designMessages, [&](std::string_view text) {
                return std::string_view(box.text).starts_with(text);
            });
            if (const auto rest = outside(box.text);
                !design && !rest.empty() && !data.contains(rest))
                note("message", box.text);
        }
    }
    void expectNoneForeign() {
        EXPECT_EQ(foreign, std::vector<std::string>{});
        foreign.clear();
    }

    // Opens the menu and then the help of everything in sight; the objects that were met.
    void askEverything(std::set<int>& objects) {
        std::vector<std::string> ids;
        for (const auto& control : form().controls())
            if (control->kind() != ControlKind::tabStrip &&
                control->kind() != ControlKind::menuItem &&
                control->container() != &form().get<Frame>("fraDE", frame::help))
                ids.push_back(control->id());
        for (const auto& id : ids)
            if (desktop.canReach(id)) {
                answerHelp();
                desktop.rightClick(id);
                readHelp(objects);
            }
    }
    void answerHelp() {
        if (desktop.scriptUsedUp())
            desktop.answerNextMenu("[What's This?]");
    }
    void readHelp(std::set<int>& objects) {
        if (!form().get<Frame>("fraDE", frame::help).visible())
            return;
        const auto& text = form().get<Label>("lblToolTip").caption();
        const int object = static_cast<int>(leadingNumber(form().get<Label>("lblMoreHelp").tag()));
        objects.insert(object);
        if (text.empty() || !outside(text).empty())
            note("help of " + std::to_string(object), text);
        readCaption(form().get<Label>("lblMoreHelp"));
        desktop.clickSurface();
    }
};

TEST(LocalizedTexts, EveryPageReadsAsTheLocalizerSaysOnBothPlatforms) {
    for (const auto platform : {ptStandard, ptZX}) {
        BracketScene scene(platform);
        scene.load(fullCompany());
        for (const int second : {0, 1})
            for (const int unit : {0, 1, 2}) {
                goTo(scene, "optCurrency(" + std::to_string(unit) + ")");
                goTo(scene, "optPTI(" + std::to_string(second) + ")");
                goTo(scene, "optCommEq(" + std::to_string(second) + ")");
                for (int tab = toCompany; tab <= toOptions; ++tab) {
                    scene.desktop.clickTab(tab);
                    scene.readPage();
                }
                goTo(scene, "chkLockInfo");
            }
        scene.expectNoneForeign();
        const auto& strip = scene.form().get<TabStrip>("tbsDataEntry");
        EXPECT_EQ(strip.tab(toOther).caption,
                  platform == ptZX ? "[&Other Data]" : "Company &Other");
        for (const auto& row : dataCaptions)
            EXPECT_TRUE(scene.metExceptions.contains(row.control)) << row.control << row.reason;
    }
}

TEST(LocalizedTexts, EveryMenuAndEveryHelpTextReadsAsTheLocalizerSaysOnBothPlatforms) {
    for (const auto platform : {ptStandard, ptZX}) {
        BracketScene scene(platform);
        scene.load(fullCompany());
        std::set<int> objects;
        for (const int second : {0, 1}) {
            goTo(scene, "optPTI(" + std::to_string(second) + ")");
            goTo(scene, "optCommEq(" + std::to_string(second) + ")");
            for (int tab = toCompany; tab <= toOptions; ++tab) {
                scene.desktop.clickTab(tab);
                scene.answerHelp();
                scene.desktop.rightClickTab(tab);
                scene.readHelp(objects);
                scene.askEverything(objects);
            }
            scene.desktop.clickTab(toYearly);
            scene.desktop.scroll("hscrYearly", 30000);
            scene.askEverything(objects);
        }
        scene.readMenus();
        EXPECT_GT(scene.desktop.menus().size(), 150U);
        scene.expectNoneForeign();
        if (platform == ptStandard) {
            EXPECT_TRUE(scene.metExceptions.contains("lblMoreHelp"));
            std::set<int> missing;
            for (int object = 0; object < dataEntryObjectCount; ++object)
                if (!objects.contains(object))
                    missing.insert(object);
            EXPECT_EQ(missing, (std::set<int>{doUpdatedBy, doPercentDilution, doPercentTotalCap}))
                << "are on no page";
        }
    }
    const Bracketed<StandardLocalizer> texts;
    for (int object = 0; object < dataEntryObjectCount; ++object) {
        const auto text = texts.LoadString(helpTextOf(static_cast<DataEntryObject>(object)));
        EXPECT_FALSE(text.empty()) << object;
        EXPECT_EQ(outside(text), "") << object;
    }
}

TEST(LocalizedTexts, EveryQuestionReadsAsTheLocalizerSays) {
    BracketScene scene;
    scene.load(fullCompany());
    for (const char* id : {"cmdAddYear", "cmdRemoveYear"}) {
        scene.desktop.clickTab(toYearly);
        scene.desktop.click(id);
    }
    goTo(scene, "cmdAddQuarter");
    typeOver(scene, "txtLastQDate", "3/31/2027"); // two quarters on
    typeOver(scene, "txtLastQDate", "7/4/2001");  // not accepted
    ASSERT_EQ(scene.desktop.messages().size(), 5U);
    scene.readMessages(
        {"2016", "2025", "MAR 2018", "MAR 2018 - JUN 2018", "Mar 2018", "Mar 2018 - Jun 2018"});
    scene.expectNoneForeign();
}

TEST(LocalizedTexts, MessagesWhoseWordsAreLaidDownStayAsTheyAre) {
    BracketScene scene;
    const auto company = std::make_shared<ScriptedRecord>(fullCompany());
    scene.load(company);
    company->failing = {"write LastQDateForGrid"};
    scene.desktop.answerNext(MessageAnswer::yes);
    goTo(scene, "cmdAddQuarter"); // question, then a refusal
    scene.desktop.answerNext(MessageAnswer::yes);
    typeOver(scene, "txtLastQDate", "12/31/2026"); // question, then the record's error
    company->failing.clear();
    goTo(scene, "chkLockInfo");
    goTo(scene, "cmdAddQuarter");
    scene.desktop.clickTab(toYearly);
    scene.desktop.click("cmdAddYear");
    scene.desktop.click("cmdRemoveYear");
    scene.entry->put_Platform(static_cast<PlatformType>(2));
    ASSERT_EQ(scene.desktop.messages().size(), 8U);
    EXPECT_EQ(scene.desktop.messages()[1].text,
              "[This value could not be stored.] write LastQDateForGrid fails");
    for (std::size_t i = 0; i < 3; ++i) // as the lock is met
        EXPECT_EQ(scene.desktop.messages()[4 + i].text, designMessages[(i + 2) % 3]);
    EXPECT_TRUE(scene.desktop.messages()[3].text.starts_with(designMessages[5]));
    EXPECT_EQ(scene.desktop.messages()[7].text, designMessages[3]);
    scene.readMessages({"Jun 2018", "Mar 2018", "write LastQDateForGrid fails"});
    scene.expectNoneForeign();

    VirtualDesktop designing;
    designing.setUserMode(false);
    const VKRDataEntry placed(designing);
    ASSERT_EQ(designing.messages().size(), 1U);
    EXPECT_EQ(designing.messages()[0].text, designMessages[4]);
}

TEST(LocalizedTexts, EveryReasonReadsAsTheLocalizerSays) {
    BracketScene scene;
    auto company = std::make_shared<ScriptedRecord>(fullCompany());
    scene.load(company);
    for (const char* id : {"txtLastUpdate", "txtPriceUpdate", "txtDateOfSource", "txtDateofLastFY"})
        typeOver(scene, id, "someday");
    const std::string huge(400, '9');
    for (const char* id : {"txtTotalDebt", "txtSales(3)", "txtRevenue(2)"})
        pasteOver(scene, id, huge);
    typeOver(scene, "cmbReportingPeriod", "5 weeks");
    company->hook = [](const std::string& operation) { // refuses without a word
        if (operation == "write Name" || operation == "write YEPSSeries" ||
            operation == "write QEPSSeries")
            throw 42;
    };
    for (const char* id : {"txtName", "txtYEPS(2)", "txtEPS(2)"})
        typeOver(scene, id, "7");
    auto unstored = scene.entry->unstoredFields();
    EXPECT_EQ(unstored.size(), 11U);

    BracketScene undated;
    auto dateless = std::make_shared<ScriptedRecord>(fullCompany());
    dateless->failing = {"read LastQDate", "write LastQDate", "read LastQDateForGrid",
                         "write LastQDateForGrid"};
    undated.load(dateless);
    typeOver(undated, "txtRevenue(0)", "5");
    const auto more = undated.entry->unstoredFields();
    EXPECT_EQ(std::ranges::count(more, "txtRevenue(0)", &MarkedField::control), 1);
    unstored.insert(unstored.end(), more.begin(), more.end());

    std::set<std::string> reasons;
    for (const auto& field : unstored) {
        EXPECT_EQ(outside(field.reason), "") << field.control;
        reasons.insert(field.reason);
    }
    EXPECT_EQ(reasons.size(), 4U);
    for (auto* reader : {&scene, &undated})
        for (int tab = toCompany; tab <= toOptions; ++tab) {
            reader->desktop.clickTab(tab);
            reader->readPage();
            reader->expectNoneForeign();
        }
}

TEST(LocalizedTexts, ADateIsPickedUnderTheNameOfItsField) {
    BracketScene scene;
    scene.load(fullCompany());
    for (const char* id :
         {"txtLastUpdate", "txtPriceUpdate", "txtDateOfSource", "txtDateofLastFY", "txtLastQDate"})
        typeAt(scene, id, "{F4}");
    ASSERT_EQ(scene.desktop.calendars().size(), 5U);
    for (const auto& calendar : scene.desktop.calendars())
        EXPECT_TRUE(!calendar.caption.empty() && outside(calendar.caption).empty())
            << calendar.caption;
}

TEST(LocalizedTexts, EveryExceptionIsAControlOfTheForm) {
    const EntryScene scene;
    for (const auto& row : designTexts)
        EXPECT_TRUE(scene.form().upperBound(row.control) >= 0 || scene.form().find(row.control))
            << row.control << ": " << row.reason;
    for (const auto& row : dataCaptions)
        EXPECT_TRUE(scene.form().upperBound(row.control) >= 0 || scene.form().find(row.control))
            << row.control << ": " << row.reason;
}

// What the component asks and offers by itself reads the same where no localizer is there to say
// it.
TEST(WithoutALocalizer, QuestionsWarningsAndMenusKeepTheirWords) {
    const auto told = [](bool localized) {
        EntryScene scene;
        auto& desktop = scene.desktop;
        if (!localized)
            scene.entry->put_Platform(static_cast<PlatformType>(2));
        scene.load(fullCompany());
        desktop.forget();
        desktop.clickTab(toYearly);
        desktop.click("cmdAddYear");
        desktop.click("cmdRemoveYear");
        for (const auto* id : {"txtDateofLastFY", "lblYear(3)"})
            desktop.rightClick(id);
        desktop.clickTab(toQuarterly);
        desktop.click("cmdAddQuarter");
        scene.enter("txtLastQDate", "Mar/31/2020");
        std::vector<std::string> texts;
        for (const auto& message : desktop.messages())
            texts.push_back(message.text);
        for (const auto& menu : desktop.menus())
            for (const auto& entry : menu.entries)
                texts.push_back(entry.caption);
        return texts;
    };
    const auto texts = told(false);
    EXPECT_EQ(texts, told(true));
    EXPECT_EQ(texts.size(), 4U + test::expectedTextMenu("dqa", true, true, true, true).size() +
                                test::expectedExtras("y", true).size());
    for (const auto& text : texts)
        EXPECT_FALSE(text.empty());
}

} // namespace
} // namespace vkr
