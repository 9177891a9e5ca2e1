// SPDX-License-Identifier: MIT
#include "form/form_layout.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>
#include <map>

namespace vkr {
namespace {

using Captions = std::map<std::string, std::string>;

Captions captionsOf(const Form& form) {
    Captions result;
    for (const auto& control : form.controls())
        if (control->hasCaption())
            result[control->id()] = control->caption();
    return result;
}

// Texts of its own choice behind the numbers given; nothing behind all others.
struct Script final : Localizer {
    explicit Script(std::map<int, std::string> given) : texts(std::move(given)) {}
    [[nodiscard]] std::string LoadString(int number) const override {
        const auto found = texts.find(number);
        if (found == texts.end())
            return "";
        if (found->second == "throw")
            throw std::runtime_error("no text");
        return found->second;
    }
    [[nodiscard]] Picture LoadPicture(int /*number*/, int /*kind*/) const override { return {}; }
    std::map<int, std::string> texts;
};

struct CaptionPass : testing::Test {
    VirtualDesktop desktop = VirtualDesktop();
    VKRDataEntry entry{desktop};

    CaptionPass() { desktop.attach(entry.form()); }
    void localize(std::map<int, std::string> texts) {
        desktop.factory().add(standardLocalizerId,
                              [texts] { return std::make_shared<Script>(texts); });
        entry.put_Platform(ptStandard);
    }
    [[nodiscard]] Control& control(std::string_view id) const { return desktop.control(id); }
    [[nodiscard]] std::string caption(std::string_view id) const { return control(id).caption(); }
};

struct DesignRow {
    int tag;
    const char* caption;
    const char* controls; // name of the array or control that carries it
    ControlKind kind;
};

constexpr auto labels = ControlKind::label;
constexpr DesignRow design[] = {
    {500, "Name", "lblLabel", labels},
    {501, "Symbol", "lblLabel", labels},
    {502, "Exchange", "lblLabel", labels},
    {503, "Industry", "lblLabel", labels},
    {505, "Source", "lblLabel", labels},
    {506, "Last Update", "lblLabel", labels},
    {507, "Updated by", "lblLabel", labels},
    {508, "Current Price", "lblLabel", labels},
    {509, "52 Week High", "lblLabel", labels},
    {510, "52 Week Low", "lblLabel", labels},
    {513, "ORB EPS Projection", "lblLabel", labels},
    {515, "Insider Holding (%)", "lblLabel", labels},
    {516, "Institutional", "lblLabel", labels},
    {546, "Common Dividends", "lblLabel", labels},
    {108, "Price Update Date", "lblLabel", labels},
    {163, "Date of Source", "lblLabel", labels},
    {514, "Total Debt", "lblUnit", labels},
    {517, "Preferred Shares", "lblUnit", labels},
    {518, "Common Shares", "lblUnit", labels},
    {519, "Diluted Shares", "lblUnit", labels},
    {577, "Total Capital", "lblUnit", labels},
    {520, "Year", "lblLabel", labels},
    {523, "Basic EPS", "lblLabel", labels},
    {524, "Dividends Declared", "lblLabel", labels},
    {525, "Market Price", "lblLabel", labels},
    {526, "High", "lblLabel", labels},
    {527, "", "lblLabel", labels},
    {528, "Date of Last FY", "lblLabel", labels},
    {570, "Legend caption", "lblLabel", labels},
    {578, "Last 4Q EPS", "lblLabel", labels},
    {521, "Revenue", "lblUnit", labels},
    {522, "Net Inc.", "lblUnit", labels},
    {529, "Date of Last Quarter", "lblLabel", labels},
    {530, "Quarter", "lblLabel", labels},
    {531, "Earnings Per Share", "lblLabel", labels},
    {532, "Net Income", "lblUnit", labels},
    {533, "Address", "lblLabel", labels},
    {534, "City", "lblLabel", labels},
    {535, "State/Province", "lblLabel", labels},
    {536, "Zip/Postal", "lblLabel", labels},
    {537, "Country", "lblLabel", labels},
    {538, "Internet", "lblLabel", labels},
    {539, "Contact Person", "lblLabel", labels},
    {540, "", "lblLabel", labels},
    {541, "Notes", "lblLabel", labels},
    {542, "VL Timelines", "lblLabel", labels},
    {543, "VL Safety", "lblLabel", labels},
    {544, "Reporting Period", "lblLabel", labels},
    {547, "Est. Tax Rate (%)", "lblLabel", labels},
    {545, "Preferred Dividends", "lblUnit", labels},
    {548, "Currency Unit ", "fraDE", ControlKind::frame},
    {552, "Currency Display", "fraDE", ControlKind::frame},
    {553, "Pre-tax Income or Tax Rate ", "fraDE", ControlKind::frame},
    {556, "Common Equity or Book Value ", "fraDE", ControlKind::frame},
    {559, "Colors", "fraDE", ControlKind::frame},
    {549, "Thousands", "optCurrency", ControlKind::optionButton},
    {550, "Millions", "optCurrency", ControlKind::optionButton},
    {551, "Billions", "optCurrency", ControlKind::optionButton},
    {560, "Decimal", "optDisplay", ControlKind::optionButton},
    {561, "Fractional", "optDisplay", ControlKind::optionButton},
    {555, "Tax Rate", "optPTI", ControlKind::optionButton},
    {554, "Pre-Tax Income", "optPTI", ControlKind::optionButton},
    {557, "Common Equity", "optCommEq", ControlKind::optionButton},
    {558, "Book Value", "optCommEq", ControlKind::optionButton},
    {571, "Quarterly Shade", "lblLabel", labels},
    {572, "Required Yearly Data", "lblLabel", labels},
    {573, "Locked Company Data", "lblLabel", labels},
    {562, "Lock Data", "chkLockInfo", ControlKind::checkBox},
    {563, "&Add New Year", "cmdAddYear", ControlKind::commandButton},
    {564, "&Remove Year", "cmdRemoveYear", ControlKind::commandButton},
    {574, "&OK", "cmdOK", ControlKind::commandButton},
    {575, "&Cancel", "cmdCancel", ControlKind::commandButton},
    {576, "&Help", "cmdHelp", ControlKind::commandButton},
};

TEST_F(CaptionPass, EveryTaggedControlHasItsDesignCaption) {
    for (const auto& row : design) {
        const Control* found = nullptr;
        for (const auto& any : entry.form().controls())
            if (any->name() == row.controls && any->tag() == std::to_string(row.tag))
                found = any.get();
        ASSERT_NE(found, nullptr) << row.tag;
        EXPECT_EQ(found->caption(), row.caption) << row.tag;
        EXPECT_EQ(found->kind(), row.kind) << row.tag;
    }
    EXPECT_EQ(desktop.control("cmdAddQuarter").tag(), "579");
}

TEST_F(CaptionPass, UntaggedCaptionsKeepTheirDesignText) {
    registerLocalizers(desktop.factory());
    entry.put_Platform(ptStandard);
    EXPECT_EQ(caption("lblUnit(6)"), "Shares Outstanding");
    EXPECT_EQ(caption("lblDatOfLastFY"), "Dat of Last FY");
    EXPECT_EQ(caption("lblMoreHelp"), "More Help...");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(caption("cmdColor(" + std::to_string(i) + ")"), "...");
}

TEST_F(CaptionPass, TheLocalizersTextReplacesTheDesignCaptionWithoutSurroundingBlanks) {
    localize({{500, "  Nom \t"}, {574, "&Bien"}, {548, "Unité "}, {549, "Milliers"}});
    EXPECT_EQ(caption("lblLabel(0)"), "Nom");
    EXPECT_EQ(caption("cmdOK"), "&Bien");
    EXPECT_EQ(caption("fraDE(5)"), "Unité");
    EXPECT_EQ(caption("optCurrency(0)"), "Milliers");
}

TEST_F(CaptionPass, AMissingBlankOrFailingTextKeepsTheDesignCaption) {
    localize({{500, "   "}, {501, "throw"}, {503, "Branche"}});
    EXPECT_EQ(caption("lblLabel(0)"), "Name");
    EXPECT_EQ(caption("lblLabel(1)"), "Symbol");
    EXPECT_EQ(caption("lblLabel(2)"), "Exchange");
    EXPECT_EQ(caption("lblLabel(3)"), "Branche");
    EXPECT_EQ(caption("fraDE(5)"), "Currency Unit ");
}

TEST_F(CaptionPass, APictureThatFailsKeepsNoCaptionBack) {
    struct WithoutPicture final : Localizer {
        [[nodiscard]] std::string LoadString(int number) const override {
            return number == 500 ? "Nom" : "";
        }
        [[nodiscard]] Picture LoadPicture(int /*number*/, int /*kind*/) const override {
            throw std::runtime_error("no picture");
        }
    };
    desktop.factory().add(standardLocalizerId, [] { return std::make_shared<WithoutPicture>(); });
    entry.put_Platform(ptStandard);
    EXPECT_EQ(caption("lblLabel(0)"), "Nom");
    EXPECT_TRUE(entry.form().get<Label>("lblMoreHelp").mouseIcon().empty());
    EXPECT_TRUE(desktop.messages().empty());
    desktop.setUserMode(false);
    VKRDataEntry atDesignTime(desktop);
    EXPECT_EQ(atDesignTime.get_DateFormat(), "MMM/DD/YYYY") << "the start-up goes on";
}

TEST_F(CaptionPass, OnlyAPositiveNumberInTheTagCounts) {
    struct Row {
        const char* tag;
        const char* expected;
    };
    for (const auto& [tag, expected] :
         {Row{"0", "as designed"}, Row{"-501", "as designed"}, Row{"abc", "as designed"},
          Row{"", "as designed"}, Row{"501", "found"}, Row{" 501 ", "found"}, Row{"1", "first"}}) {
        control("lblLabel(0)").setTag(tag);
        control("lblLabel(0)").setCaption("as designed");
        localize({{501, "found"}, {0, "nought"}, {1, "first"}});
        EXPECT_EQ(caption("lblLabel(0)"), expected) << tag;
    }
}

TEST_F(CaptionPass, ASecondPassChangesNothing) {
    localize({{500, "First"}});
    for (const auto& any : entry.form().controls())
        if (any->hasCaption() && any->name() != "lblQLabel") {
            EXPECT_EQ(any->tag(), "") << any->id();
        }
    const auto before = captionsOf(entry.form());
    localize({{500, "Second"}, {501, "Second"}, {548, "Second"}});
    EXPECT_EQ(captionsOf(entry.form()), before);
}

TEST_F(CaptionPass, TabsAreNoContainedControls) {
    localize({{565, "Société"}});
    EXPECT_EQ(entry.form().get<TabStrip>("tbsDataEntry").tab(1).caption, "&Company Data");
    EXPECT_EQ(entry.form().get<TabStrip>("tbsDataEntry").tab(1).tag, "565");
}

TEST_F(CaptionPass, TagsThatAreDataArePassedOver) {
    registerCompanyRecord(desktop.factory());
    entry.put_objCompany(fullCompany());
    control("lblMoreHelp").setTag("501");
    const std::string quarter = control("lblQLabel(0)").tag();
    const std::string label = caption("lblQLabel(0)");
    ASSERT_GT(leadingNumber(quarter), 0);
    localize({{501, "Wrong"}, {static_cast<int>(leadingNumber(quarter)), "Wrong"}});
    EXPECT_EQ(control("lblMoreHelp").tag(), "501");
    EXPECT_EQ(caption("lblMoreHelp"), "More Help...");
    EXPECT_EQ(control("lblQLabel(0)").tag(), quarter);
    EXPECT_EQ(caption("lblQLabel(0)"), label);
    EXPECT_EQ(entry.form().get<TextField>("txtName").tag(), "Name text");
}

TEST_F(CaptionPass, FieldsAreNamedAfterTheirLocalizedLabels) {
    EXPECT_EQ(control("txtName").accessibleName(), "Name");
    localize({{500, "&Nom"}});
    EXPECT_EQ(control("txtName").accessibleName(), "Nom");
}

TEST_F(CaptionPass, TheUnitStandsBehindLocalizedCaptionsOnce) {
    registerCompanyRecord(desktop.factory());
    entry.put_objCompany(fullCompany());
    EXPECT_EQ(caption("lblUnit(0)"), "Total Debt (M)");
    localize({{514, "Dettes"}, {621, "(Mio)"}});
    EXPECT_EQ(caption("lblUnit(0)"), "Dettes (Mio)");
    EXPECT_EQ(caption("lblUnit(6)"), "Shares Outstanding (Mio)");
    localize({{514, "Debts"}, {621, "(M)"}});
    EXPECT_EQ(caption("lblUnit(0)"), "Dettes (M)");
}

TEST_F(CaptionPass, EveryNumberInUseHasATextOnBothPlatforms) {
    const StandardLocalizer standard;
    const ZxLocalizer zx;
    for (const auto& row : formLayout())
        if (row.caption != 0) {
            EXPECT_NE(standard.LoadString(row.caption), "") << row.caption;
            EXPECT_NE(zx.LoadString(row.caption), "") << row.caption;
        }
    for (const int number : {404, 405, 406, 407, 412, 613, 614, 615, 616})
        EXPECT_NE(standard.LoadString(number), "") << number;
}

} // namespace
} // namespace vkr
