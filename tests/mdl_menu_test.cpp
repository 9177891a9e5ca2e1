// SPDX-License-Identifier: MIT
#include "input/mdlMenu.hpp"
#include "localizer/string_table.hpp"
#include "platform/virtual_desktop.hpp"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace vkr {
namespace {

using Strings = std::vector<std::string>;

// A form with one text field and the menu's first entry, as it is designed.
class MenuBuilder : public testing::Test {
  protected:
    MenuBuilder() {
        form.setSize(6000, 4000);
        field = &form.add<TextBox>("txtAny");
        field->resize(1000, 285);
        form.add<MenuItem>("mnuItem", 0);
        desktop.attach(form);
        form.setHandler(&handler);
    }

    void build(unsigned extras, const TextBox* box, const TextField* changeable,
               const std::optional<MenuCells>& cells = std::nullopt) {
        BuildMenu(
            form, desktop, [](int number) { return "#" + std::to_string(number); }, extras, box,
            changeable, cells);
    }
    [[nodiscard]] Strings captions() const {
        Strings found;
        for (const auto* entry : menuEntries(form))
            found.push_back(entry->caption());
        return found;
    }
    [[nodiscard]] bool enabled(MenuCommand command) const {
        for (const auto* entry : menuEntries(form))
            if (commandOf(*entry) == command)
                return entry->enabled();
        ADD_FAILURE() << "no entry for " << command;
        return false;
    }

    struct Handler : FormHandler {
    } handler;
    VirtualDesktop desktop;
    Form form;
    TextBox* field = nullptr;
};

TEST_F(MenuBuilder, AFieldHasItsTextCommandsInOrder) {
    build(meNone, field, field);
    EXPECT_EQ(captions(),
              (Strings{"#413", "-", "#414", "#415", "#416", "#417", "-", "#418", "-", "#422"}));
    Strings tags;
    for (const auto* entry : menuEntries(form)) {
        tags.push_back(entry->tag());
        EXPECT_TRUE(entry->visible()) << entry->caption();
    }
    EXPECT_EQ(tags, (Strings{"1", "7", "2", "3", "4", "5", "7", "6", "7", "0"}));
}

TEST_F(MenuBuilder, WhatIsNoFieldHasHelpAlone) {
    build(meNone, nullptr, nullptr);
    EXPECT_EQ(captions(), Strings{"#422"});
    EXPECT_EQ(menuEntries(form)[0]->tag(), "0");
    EXPECT_TRUE(menuEntries(form)[0]->enabled());
}

TEST_F(MenuBuilder, EntriesAreEnabledByWhatTheFieldHolds) {
    // Every mixture of the four things that entries depend on, and of the lock.
    for (int mixture = 0; mixture < 32; ++mixture) {
        const bool hasText = (mixture & 1) != 0;
        const bool selected = hasText && (mixture & 2) != 0;
        const bool clipboard = (mixture & 4) != 0;
        const bool undo = (mixture & 8) != 0;
        const bool locked = (mixture & 16) != 0;
        SCOPED_TRACE(mixture);
        field->setLocked(false);
        const std::string text = hasText ? "text" : "";
        field->setText("-"); // empties the history
        field->setText(text);
        if (undo) {
            field->editText(text + "x", 0);
            field->editText(text, 0);
        }
        field->select(0, selected ? 1 : 0);
        field->setLocked(locked);
        desktop.setClipboardText(clipboard ? "held" : "");
        build(meNone, field, field);
        EXPECT_EQ(enabled(mcUndo), undo && !locked);
        EXPECT_EQ(enabled(mcCut), selected && !locked);
        EXPECT_EQ(enabled(mcCopy), hasText);
        EXPECT_EQ(enabled(mcPaste), clipboard && !locked);
        EXPECT_EQ(enabled(mcClear), selected && !locked);
        EXPECT_EQ(enabled(mcSelectAll), hasText);
        EXPECT_TRUE(enabled(mcHelp));
    }
}

TEST_F(MenuBuilder, WhatTheDesktopCannotTellIsNotOffered) {
    struct Failing : VirtualDesktop {
        bool canUndo(const TextField& /*field*/) override {
            throw std::runtime_error("no history");
        }
        bool clipboardHasText() override { throw std::runtime_error("the clipboard is in use"); }
    } failing;
    BuildMenu(
        form, failing, [](int number) { return std::to_string(number); }, meNone, field, field);
    EXPECT_FALSE(enabled(mcUndo));
    EXPECT_FALSE(enabled(mcPaste));
    EXPECT_TRUE(enabled(mcHelp));
}

struct ExtrasRow {
    unsigned extras;
    Strings captions;
    Strings tags;
};

TEST_F(MenuBuilder, ExtrasStandAboveHelp) {
    const ExtrasRow rows[] = {
        {meDate, {"#428", "-", "#422"}, {"12", "7", "0"}},
        {meLastQuarterDate, {"#421", "-", "#422"}, {"10", "7", "0"}},
        {meYears, {"#419", "#420", "-", "#422"}, {"8", "9", "7", "0"}},
        {meAssistant, {"#650", "#422"}, {"11", "0"}},
        {meDate | meLastQuarterDate | meYears | meAssistant,
         {"#428", "-", "#421", "-", "#419", "#420", "-", "#650", "#422"},
         {"12", "7", "10", "7", "8", "9", "7", "11", "0"}},
    };
    for (const auto& row : rows) {
        build(row.extras, nullptr, field);
        EXPECT_EQ(captions(), row.captions);
        Strings tags;
        for (const auto* entry : menuEntries(form))
            tags.push_back(entry->tag());
        EXPECT_EQ(tags, row.tags);
    }
}

TEST_F(MenuBuilder, ExtrasThatChangeAFieldNeedOneThatIsNotLocked) {
    const unsigned every = meDate | meLastQuarterDate | meYears | meAssistant;
    const auto expectChanging = [&](bool changeable) {
        EXPECT_EQ(enabled(mcPickDate), changeable);
        EXPECT_EQ(enabled(mcLastQuarterDate), changeable);
        // These say themselves why they don't.
        EXPECT_TRUE(enabled(mcAddYear));
        EXPECT_TRUE(enabled(mcRemoveYear));
        EXPECT_TRUE(enabled(mcAssistant));
    };
    build(every, nullptr, field);
    expectChanging(true);
    field->setLocked(true);
    build(every, nullptr, field);
    expectChanging(false);
    build(every, nullptr, nullptr);
    expectChanging(false);
}

TEST_F(MenuBuilder, CellsThatCannotChangeCanBeCopied) {
    for (const bool quarters : {false, true})
        for (const bool changeable : {true, false}) {
            build(meNone, nullptr, nullptr,
                  MenuCells{.changeable = changeable, .quarters = quarters});
            EXPECT_EQ(captions(), (Strings{"#651", "#652", "#653", "#654",
                                           quarters ? "#656" : "#655", "-", "#422"}));
            EXPECT_TRUE(enabled(mcCopyCells));
            EXPECT_TRUE(enabled(mcCopyCellsWithHeadings));
            EXPECT_EQ(enabled(mcDeleteFigures), changeable);
            EXPECT_EQ(enabled(mcFillDown), changeable);
            EXPECT_EQ(enabled(mcTakePrevious), changeable);
        }
}

TEST_F(MenuBuilder, EachMenuIsBuiltAnew) {
    build(meYears | meAssistant, field, field);
    EXPECT_EQ(form.upperBound("mnuItem"), 13);
    build(meNone, nullptr, nullptr);
    EXPECT_EQ(form.upperBound("mnuItem"), 0);
    const auto* first = form.find("mnuItem", 0);
    field->setLocked(true);
    build(meNone, field, field);
    EXPECT_EQ(form.find("mnuItem", 0), first) << "the first entry is always there";
    EXPECT_FALSE(enabled(mcUndo));
    build(meNone, nullptr, nullptr);
    EXPECT_TRUE(menuEntries(form)[0]->enabled()) << "nothing is left of the menu before";
    EXPECT_EQ(menuEntries(form)[0]->caption(), "#422");
}

TEST_F(MenuBuilder, EntriesHaveTheirWords) {
    BuildMenu(
        form, desktop,
        [](int number) { return std::string(findString(standardStrings(), number)); }, meDate,
        field, field);
    EXPECT_EQ(captions(), (Strings{"Undo", "-", "Cut", "Copy", "Paste", "Clear", "-", "Select All",
                                   "-", "Pick a Date...", "-", "What's This?"}));
    EXPECT_EQ(commandOf(*menuEntries(form)[0]), mcUndo);
}

TEST_F(MenuBuilder, AnEntryStandsForTheNumberInItsTag) {
    auto& entry = form.get<MenuItem>("mnuItem", 0);
    const std::pair<const char*, int> tags[] = {{"12", 12}, {"0", 0}, {"", 0}, {"x", 0}};
    for (const auto& [tag, command] : tags) {
        entry.setTag(tag);
        EXPECT_EQ(commandOf(entry), command) << tag;
    }
}

} // namespace
} // namespace vkr
