// SPDX-License-Identifier: MIT
#include "platform/error_trap.hpp"
#include "platform/form.hpp"
#include "platform/text_field.hpp"
#include "tests/support/failing_memory.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vkr {
namespace {

class Listener : public FormObserver, public FormHandler {
  public:
    std::vector<Property> changes;
    std::vector<int> values; // of scroll bars, as seen at every change of value
    int scrolls = 0;
    int tabs = 0;

    void controlChanged(Control& control, Property property) override {
        changes.push_back(property);
        if (const auto* bar = dynamic_cast<ScrollBar*>(&control))
            values.push_back(bar->value());
    }
    void onScroll(ScrollBar& /*bar*/) override { ++scrolls; }
    void onTabSelected(TabStrip& /*strip*/) override { ++tabs; }
};

class ControlTest : public testing::Test {
  protected:
    ControlTest() {
        form.setObserver(&heard);
        form.setHandler(&heard);
    }
    std::vector<Property> takeChanges() { return std::exchange(heard.changes, {}); }

    Form form;
    Listener heard;
};

using Changes = std::vector<Property>;

TEST_F(ControlTest, AnIdNamesTheElementOfAControlArray) {
    EXPECT_EQ(form.add<TextBox>("txtName").id(), "txtName");
    EXPECT_EQ(form.add<TextBox>("txtSales", 3).id(), "txtSales(3)");
}

TEST_F(ControlTest, AnEqualValueTellsNobody) {
    auto& box = form.add<TextBox>("txtName");
    const auto setAll = [&] {
        box.move(10, 20);
        box.resize(30, 40);
        box.setVisible(false);
        box.setEnabled(false);
        box.setToolTip("tip");
        box.setBackColor(colors::yellow);
        box.setForeColor(colors::blue);
        box.setText("text");
        box.select(1, 2);
        box.setLocked(true);
        box.setMark({MarkKind::unstored, "no date"});
        box.setMultiLine(true);
        box.setAlignment(Alignment::right);
    };
    setAll();
    EXPECT_EQ(takeChanges(),
              (Changes{Property::place, Property::place, Property::visible, Property::enabled,
                       Property::toolTip, Property::colors, Property::colors, Property::text,
                       Property::selection, Property::locked, Property::mark, Property::look,
                       Property::look}));
    box.select(1, 2);
    box.move(10, 20);
    box.resize(30, 40);
    box.setMark({MarkKind::unstored, "no date"});
    EXPECT_EQ(takeChanges(), Changes{});
}

TEST_F(ControlTest, EveryKindTellsWhatHasChanged) {
    auto& list = form.add<ComboBox>("cmbName");
    auto& label = form.add<Label>("lblName");
    auto& first = form.add<OptionButton>("optName", 0);
    auto& second = form.add<OptionButton>("optName", 1);
    auto& box = form.add<CheckBox>("chkName");
    auto& bar = form.add<ScrollBar>("vscrName");
    auto& frame = form.add<Frame>("fraName");
    auto& strip = form.add<TabStrip>("tbsName");
    auto& shape = form.add<Shape>("shaName");
    form.add<PictureBox>("picName");
    takeChanges();
    struct Row {
        std::function<void()> change;
        Changes told;
    };
    const Row rows[] = {
        {[&] { list.addItem("one"); }, {Property::list}},
        {[&] {
             list.setList({"two", "three"});
         },
         {Property::list}},
        {[&] { list.setListIndex(1); }, {Property::text}},
        {[&] { label.bringToFront(); }, {Property::order}},
        {[&] { label.setAccessibleName("name"); }, {Property::toolTip}},
        {[&] { label.setAutoSize(true); }, {Property::look}},
        {[&] { label.setWordWrap(true); }, {Property::look}},
        {[&] { label.setAlignment(Alignment::center); }, {Property::look}},
        {[&] { label.setLink(true); }, {Property::look}},
        {[&] {
             label.setMouseIcon({1, "<svg/>"});
         },
         {Property::look}},
        {[&] { label.setBuddy(&list); }, {Property::look}},
        {[&] { first.setValue(true); }, {Property::value}},
        {[&] { second.setValue(true); }, {Property::value, Property::value}},
        {[&] { box.setValue(true); }, {Property::value}},
        {[&] { bar.setOrientation(Orientation::vertical); }, {Property::look}},
        {[&] { bar.setRange(0, 9, 1, 3); }, {Property::value}},
        {[&] { bar.setValue(4); }, {Property::value}},
        {[&] { frame.setBorder(FrameBorder::line); }, {Property::look}},
        {[&] { strip.addTab({}); }, {Property::caption}},
        {[&] { strip.addTab({}); }, {Property::caption}},
        {[&] { strip.setTabCaption(1, "Tab"); }, {Property::caption}},
        {[&] { strip.selectTab(2); }, {Property::value}},
        {[&] { shape.setFilled(false); }, {Property::look}},
    };
    for (const Row& row : rows) {
        row.change();
        EXPECT_EQ(takeChanges(), row.told) << "row " << &row - rows;
    }
}

TEST_F(ControlTest, EachPartOfAPlaceOrARangeIsAChange) {
    auto& label = form.add<Label>("lblName");
    auto& bar = form.add<ScrollBar>("vscrName");
    label.move(10, 20);
    label.resize(30, 40);
    bar.setRange(1, 9, 2, 3);
    takeChanges();
    const std::function<void()> places[] = {
        [&] { label.move(11, 20); }, [&] { label.move(11, 21); }, [&] { label.resize(31, 40); },
        [&] { label.resize(31, 41); }};
    for (const auto& change : places) {
        change();
        EXPECT_EQ(takeChanges(), Changes{Property::place});
        change();
        EXPECT_EQ(takeChanges(), Changes{});
    }
    const int ranges[][4] = {{0, 9, 2, 3}, {0, 8, 2, 3}, {0, 8, 1, 3}, {0, 8, 1, 4}};
    for (const auto& range : ranges) {
        bar.setRange(range[0], range[1], range[2], range[3]);
        EXPECT_EQ(takeChanges(), Changes{Property::value}) << range[0] << range[1];
        bar.setRange(range[0], range[1], range[2], range[3]);
        EXPECT_EQ(takeChanges(), Changes{}) << range[0] << range[1];
    }
}

TEST_F(ControlTest, AFieldTellsOfEveryChangeOfItsMark) {
    auto& box = form.add<TextBox>("txtName");
    const FieldMark refused{MarkKind::unstored, "no date"};
    box.showStored("1.00");
    takeChanges();
    box.putBackRefused("x", refused);
    EXPECT_EQ(takeChanges(), (Changes{Property::text, Property::mark}));
    box.putBackRefused("x", refused);
    EXPECT_EQ(takeChanges(), Changes{Property::mark});
    box.showStored("2.00");
    EXPECT_EQ(takeChanges(), (Changes{Property::text, Property::mark}));
    box.setMark(refused);
    EXPECT_EQ(takeChanges(), Changes{Property::mark});
    box.setMark({MarkKind::unstored, "too large"});
    EXPECT_EQ(takeChanges(), Changes{Property::mark});
    box.replaceStored();
    EXPECT_EQ(takeChanges(), Changes{Property::mark});
}

TEST_F(ControlTest, ARefusedTextIsPutBackAsAWholeOrNotAtAll) {
    const FieldMark mark{MarkKind::unstored, std::string(60, 'r')};
    const std::string refused(60, 'x');
    const std::string stored(60, '1');
    bool failed = true;
    for (int nth = 1; failed; ++nth) {
        auto& box = form.add<TextBox>("txtName", nth);
        box.showStored(stored);
        {
            const FailingMemory memory(nth);
            failed = !attempt([&] { box.putBackRefused(refused, mark); });
        }
        EXPECT_EQ(box.text(), failed ? stored : refused) << nth;
        EXPECT_EQ(box.mark(), failed ? FieldMark() : mark) << nth;
        EXPECT_EQ(box.standsForStored(), failed) << nth;
    }
}

TEST_F(ControlTest, ABarKeepsItsValueWithinItsRange) {
    auto& bar = form.add<ScrollBar>("vscrName");
    bar.setRange(2, 9, 0, -5);
    EXPECT_EQ(bar.value(), 2);
    EXPECT_EQ(bar.smallChange(), 1);
    EXPECT_EQ(bar.largeChange(), 1);
    bar.setValue(10);
    EXPECT_EQ(bar.value(), 9);
    bar.setValue(1);
    EXPECT_EQ(bar.value(), 2);
    bar.setValue(7);
    bar.setRange(0, 5, 1, 1);
    EXPECT_EQ(bar.value(), 5);
    bar.setRange(0, 5, 1, 1);
    EXPECT_EQ(bar.value(), 5);
    bar.setRange(3, 1, 1, 1);
    EXPECT_EQ(bar.maximum(), 3);
    EXPECT_EQ(bar.value(), 3);
}

TEST_F(ControlTest, AFieldIsFullWhereNoCharacterMoreHasRoom) {
    auto& box = form.add<TextBox>("txtName");
    box.setText("abc");
    EXPECT_FALSE(box.isFull());
    box.setMaxLength(4);
    EXPECT_FALSE(box.isFull());
    box.setMaxLength(3);
    EXPECT_TRUE(box.isFull());
    box.select(1, 1);
    EXPECT_FALSE(box.isFull());
    box.setMaxLength(2);
    EXPECT_TRUE(box.isFull());
    box.setMaxLength(1);
    EXPECT_TRUE(box.isFull());
    box.setText("");
    EXPECT_FALSE(box.isFull());
}

TEST_F(ControlTest, AFieldTakesAsMuchOfAnEditAsThereIsRoomFor) {
    struct Row {
        const char* before;
        int longest;
        bool capitals;
        const char* edited;
        int caret;
        const char* after;
        int caretAfter;
    };
    const Row rows[] = {
        {"abcdef", 0, false, "abcXYZdef", 6, "abcXYZdef", 6},
        {"abcdef", 9, false, "abcXYZdef", 6, "abcXYZdef", 6},
        {"abcdef", 8, false, "abcXYZdef", 6, "abcXYdef", 5},
        {"abcdef", 7, false, "abcXYZdef", 6, "abcXdef", 4},
        {"abcdef", 6, false, "abcXYZdef", 6, "abcdef", 1}, // no room: where the caret was
        {"abcdef", 3, false, "abXf", 3, "abcdef", 1},
        {"abcdef", 3, false, "abcde", 5, "abcde",
         5}, // longer than it may be, and shorter than before
        {"abcdef", 3, false, "abcf", 3, "abcf", 3},
        {"", 2, false, "XYZ", 3, "XY", 2},
        {"ab", 3, false, "XYab", 2, "Xab", 1},
        {"ab", 3, false, "abXY", 4, "abX", 3},
        {"aba", 4, false, "ababa", 5, "abab", 4},
        {"\u00E9", 2, false, "\u00E9\u00FC\u00FC", 3, "\u00E9\u00FC", 2},
        {"ab", 0, true, "aXyb", 3, "aXYb", 3}, // what was there stays as it is
        {"ab", 3, true, "axyb", 3, "aXb", 2},
        {"ab", 0, true, "a", 1, "a", 1},
        {"ab", 0, true, "ab", 2, "ab", 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.before) + " to " + row.edited);
        auto& box = form.add<TextBox>("txtRow");
        box.setText(row.before);
        box.select(1, 0);
        box.setMaxLength(row.longest);
        box.setCapitals(row.capitals);
        const auto taken = box.taken(row.edited, row.caret);
        EXPECT_EQ(taken.text, row.after);
        EXPECT_EQ(taken.caret, row.caretAfter);
        form.remove(box);
    }
}

TEST_F(ControlTest, ADoubtGoesWithTheUsersNextEdit) {
    auto& box = form.add<TextBox>("txtName");
    const FieldMark doubt{MarkKind::doubtful, "M was left out"};
    box.setText("1.5");
    box.setMark(doubt);
    EXPECT_TRUE(box.isDoubtful());
    EXPECT_FALSE(box.isUnstored());
    form.userEdit(box, "1.5", 0, 3); // nothing was changed
    EXPECT_EQ(box.mark(), doubt);
    form.userEdit(box, "1.50", 4, 0);
    EXPECT_EQ(box.mark(), FieldMark());
    box.setMark(doubt);
    EXPECT_TRUE(box.editText("15", 0));
    EXPECT_EQ(box.mark(), FieldMark());

    const FieldMark refused{MarkKind::unstored, "too large"};
    box.setMark(refused);
    form.userEdit(box, "1e999", 0, 0);
    EXPECT_TRUE(box.isUnstored());
}

TEST_F(ControlTest, PlacesAddUpThroughContainers) {
    auto& page = form.add<Frame>("fraPage");
    page.move(100, 200);
    auto& panel = form.add<Frame>("fraPanel", Control::noIndex, &page);
    panel.move(-30, 5);
    auto& box = form.add<TextBox>("txtName", Control::noIndex, &panel);
    box.move(1, 2);
    EXPECT_EQ(box.formLeft(), 71);
    EXPECT_EQ(box.formTop(), 207);
}

TEST_F(ControlTest, AControlIsShownAndEnabledWithItsContainers) {
    auto& page = form.add<Frame>("fraPage");
    auto& box = form.add<TextBox>("txtName", Control::noIndex, &page);
    EXPECT_TRUE(box.canTakeFocus());
    page.setEnabled(false);
    EXPECT_FALSE(box.isEnabled());
    EXPECT_TRUE(box.enabled());
    page.setEnabled(true);
    page.setVisible(false);
    EXPECT_FALSE(box.isShown());
    EXPECT_TRUE(box.visible());
    page.setVisible(true);
    page.move(Control::parkedLeft, 0);
    EXPECT_FALSE(box.isShown());
    page.move(0, 0);
    EXPECT_TRUE(box.canTakeFocus());
}

TEST_F(ControlTest, KindsDifferInWhatTheyHave) {
    struct Row {
        Control& control;
        bool colors;
        bool caption;
        bool focus;
    };
    const Row rows[] = {
        {form.add<TextBox>("a"), true, false, true},
        {form.add<ComboBox>("b"), true, false, true},
        {form.add<CommandButton>("c"), true, true, true},
        {form.add<OptionButton>("d"), true, true, true},
        {form.add<CheckBox>("e"), true, true, true},
        {form.add<TabStrip>("f"), true, false, true},
        {form.add<Label>("g"), true, true, false},
        {form.add<Frame>("h"), true, true, false},
        {form.add<Shape>("i"), true, false, false},
        {form.add<PictureBox>("j"), true, false, false},
        {form.add<ScrollBar>("k"), false, false, false},
        {form.add<Spinner>("l"), false, false, false},
        {form.add<MenuItem>("m", 0), false, true, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.control.hasColors(), row.colors) << row.control.id();
        EXPECT_EQ(row.control.hasCaption(), row.caption) << row.control.id();
        EXPECT_EQ(row.control.isFocusable(), row.focus) << row.control.id();
        EXPECT_EQ(row.control.canTakeFocus(), row.focus) << row.control.id();
    }
}

TEST_F(ControlTest, BarsSpinnersAndMenuEntriesHaveNoColors) {
    EXPECT_THROW(form.add<ScrollBar>("hscr").setBackColor(colors::white), std::logic_error);
    EXPECT_THROW(form.add<Spinner>("spn").setForeColor(colors::white), std::logic_error);
    EXPECT_FALSE(form.add<MenuItem>("mnu", 0).hasColors());
}

TEST_F(ControlTest, OnlyCaptionedControlsTakeACaption) {
    auto& label = form.add<Label>("lblName");
    label.setCaption("&Name");
    label.setCaption("&Name");
    EXPECT_EQ(label.caption(), "&Name");
    EXPECT_EQ(takeChanges(), Changes{Property::caption});
    EXPECT_THROW(form.add<TextBox>("txtName").setCaption("x"), std::logic_error);
}

TEST_F(ControlTest, AProgramsTextPutsTheCaretInFront) {
    auto& box = form.add<TextBox>("txtName");
    box.setText("abc");
    box.select(1, 2);
    takeChanges();
    box.setText("abc");
    EXPECT_EQ(box.selLength(), 0);
    EXPECT_EQ(takeChanges(), Changes{Property::selection});
    box.setText("abcd");
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(takeChanges(), Changes{Property::text});
    box.setText("abcd");
    EXPECT_EQ(takeChanges(), Changes{});
    box.select(2, 0);
    takeChanges();
    box.setText("abcd");
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(takeChanges(), Changes{Property::selection});
}

TEST_F(ControlTest, ATextMayBeSetFromAPartOfItself) {
    auto& box = form.add<TextBox>("txtName");
    box.setText("one two three four five six seven");
    box.select(4, 29);
    box.setText(box.selText());
    EXPECT_EQ(box.text(), "two three four five six seven");
    box.select(0, 3);
    box.editText(box.selText(), 3);
    EXPECT_EQ(box.text(), "two");
}

TEST_F(ControlTest, EditsOnTheUsersBehalfAreRefusedWhileLocked) {
    auto& box = form.add<TextBox>("txtName");
    EXPECT_TRUE(box.editText("abc", 99));
    EXPECT_EQ(box.selStart(), 3);
    EXPECT_TRUE(box.editText("abc", -1));
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(takeChanges(), (Changes{Property::edit, Property::selection}));
    box.setLocked(true);
    takeChanges();
    EXPECT_FALSE(box.editText("x", 0));
    EXPECT_EQ(box.text(), "abc");
    EXPECT_EQ(takeChanges(), Changes{});
    box.setText("by the program");
    EXPECT_EQ(box.text(), "by the program");
}

TEST_F(ControlTest, SelectionsAreCutToTheText) {
    constexpr int huge = std::numeric_limits<int>::max();
    constexpr int farBelow = std::numeric_limits<int>::min();
    auto& box = form.add<TextBox>("txtName");
    box.setText("a\xC3\xA9z"); // aéz
    struct Row {
        int start, length;
        std::string_view selected;
    };
    const Row rows[] = {{1, 1, "\xC3\xA9"},         {2, huge, "z"},    {huge, huge, ""},
                        {farBelow, 2, "a\xC3\xA9"}, {1, farBelow, ""}, {0, huge, "a\xC3\xA9z"}};
    for (const auto& row : rows) {
        box.select(row.start, row.length);
        EXPECT_EQ(box.selText(), row.selected) << row.start << " " << row.length;
    }
}

TEST_F(ControlTest, AListKnowsTheEntryWhoseTextStandsInTheField) {
    auto& list = form.add<ComboBox>("cmbExchange");
    EXPECT_EQ(list.listIndex(), -1);
    list.setText("Nasdaq");
    list.addItem("NYSE");
    EXPECT_EQ(list.listIndex(), -1);
    list.addItem("Nasdaq");
    EXPECT_EQ(list.listIndex(), 1);
    list.setListIndex(0);
    EXPECT_EQ(list.text(), "NYSE");
    list.setListIndex(-1);
    EXPECT_EQ(list.text(), "");
    EXPECT_THROW(list.setListIndex(2), std::out_of_range);
    EXPECT_THROW(list.setListIndex(-2), std::out_of_range);
    list.setText("Nasdaq");
    EXPECT_EQ(list.listIndex(), 1);
    list.setText("Amex");
    EXPECT_EQ(list.listIndex(), -1);
    list.setText("NYSE");
    list.clearList();
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.text(), "NYSE");
    takeChanges();
    list.clearList();
    EXPECT_EQ(takeChanges(), Changes{}) << "it was empty";
}

TEST_F(ControlTest, OfEqualEntriesTheOneAskedForIsChosen) {
    auto& list = form.add<ComboBox>("cmbSource");
    list.setList({"a", "same", "same", ""});
    list.setListIndex(2);
    EXPECT_EQ(list.listIndex(), 2);
    list.addItem("last");
    EXPECT_EQ(list.listIndex(), 2);
    list.setListIndex(-1);
    EXPECT_EQ(list.listIndex(), -1);
}

TEST_F(ControlTest, OneOptionOfAnArrayIsChosen) {
    auto& first = form.add<OptionButton>("optUnit", 0);
    auto& third = form.add<OptionButton>("optUnit", 7);
    auto& alone = form.add<OptionButton>("optAlone");
    alone.setValue(true);
    first.setValue(true);
    third.setValue(true);
    EXPECT_FALSE(first.value());
    EXPECT_TRUE(third.value());
    EXPECT_TRUE(alone.value());
    third.setValue(false);
    EXPECT_FALSE(third.value());
}

TEST_F(ControlTest, OptionsAndCheckBoxesCanBeChosen) {
    auto& option = form.add<OptionButton>("optUnit", 0);
    auto& box = form.add<CheckBox>("chkLockInfo");
    const auto& button = form.add<CommandButton>("cmdOK");
    EXPECT_FALSE(isChosen(option));
    EXPECT_FALSE(isChosen(box));
    EXPECT_FALSE(isChosen(button));
    option.setValue(true);
    box.setValue(true);
    EXPECT_TRUE(isChosen(option));
    EXPECT_TRUE(isChosen(box));
}

TEST_F(ControlTest, AScrollBarKeepsItsValueInRange) {
    auto& bar = form.add<ScrollBar>("vscr");
    bar.setRange(0, 26, 1, 9);
    bar.setValue(99);
    EXPECT_EQ(bar.value(), 26);
    EXPECT_EQ(heard.scrolls, 1);
    bar.setValue(26);
    EXPECT_EQ(heard.scrolls, 1);
    bar.setRange(0, 10, 1, 9);
    EXPECT_EQ(bar.value(), 10);
    EXPECT_EQ(heard.scrolls, 2);
    EXPECT_EQ(heard.values, (std::vector<int>{0, 26, 10}));
    bar.setRange(5, 1, 0, -1);
    EXPECT_EQ(bar.maximum(), 5);
    EXPECT_EQ(bar.value(), 5);
    EXPECT_EQ(bar.smallChange(), 1);
    EXPECT_EQ(bar.largeChange(), 1);
    takeChanges();
    bar.setRange(5, 1, 0, -1);
    EXPECT_EQ(takeChanges(), Changes{});
}

TEST_F(ControlTest, TabsAreCountedFromOne) {
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    EXPECT_EQ(strip.count(), 0);
    for (const int outside : {0, 1, -1})
        EXPECT_THROW(strip.selectTab(outside), std::out_of_range);
    strip.addTab({});
    strip.addTab({});
    strip.setTabCaption(2, "Yearly Data");
    EXPECT_EQ(strip.tab(2).caption, "Yearly Data");
    takeChanges();
    strip.setTabCaption(2, "Yearly Data");
    EXPECT_EQ(takeChanges(), Changes{});
    EXPECT_THROW(static_cast<void>(strip.tab(0)), std::out_of_range);
    EXPECT_THROW(static_cast<void>(strip.tab(3)), std::out_of_range);
    EXPECT_THROW(strip.setTabCaption(0, ""), std::out_of_range);
    strip.selectTab(2);
    strip.selectTab(2);
    EXPECT_EQ(heard.tabs, 2);
}

TEST_F(ControlTest, AnUpdateTellsEachChangeOnceInTheEnd) {
    auto& box = form.add<TextBox>("txtName");
    auto& bar = form.add<ScrollBar>("vscrName");
    takeChanges();
    {
        const Form::Update update(form);
        box.setToolTip("tip");
        box.setText("one");
        box.setText("two");
        bar.setOrientation(Orientation::vertical);
        EXPECT_EQ(takeChanges(), Changes{});
    }
    Changes told = takeChanges();
    std::ranges::sort(told);
    Changes expected{Property::toolTip, Property::text, Property::look};
    std::ranges::sort(expected);
    EXPECT_EQ(told, expected);
    box.setText("three");
    EXPECT_EQ(takeChanges(), Changes{Property::text});
}

TEST_F(ControlTest, WhereMemoryRunsOutAChangeWithinAnUpdateIsToldAtOnce) {
    auto& box = form.add<TextBox>("txtName");
    takeChanges();
    {
        const Form::Update update(form);
        {
            const FailingMemory memory(1);
            box.setEnabled(false);
        }
        EXPECT_EQ(takeChanges(), Changes{Property::enabled});
    }
    EXPECT_EQ(takeChanges(), Changes{});
    {
        const Form::Update update(form);
        box.setVisible(false);
    }
    EXPECT_EQ(takeChanges(), Changes{Property::visible});
}

TEST_F(ControlTest, AMarkIsToldOfWhenItComesAndWhenItGoes) {
    auto& box = form.add<TextBox>("txtName");
    box.setMark({MarkKind::unstored, "why"});
    takeChanges();
    box.showStored("5");
    const Changes gone = takeChanges();
    EXPECT_EQ(std::ranges::count(gone, Property::mark), 1);
    box.showStored("6");
    EXPECT_EQ(takeChanges(), Changes{Property::text});
}

} // namespace
} // namespace vkr
