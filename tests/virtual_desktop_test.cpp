// SPDX-License-Identifier: MIT
#include "platform/virtual_desktop.hpp"
#include "tests/support/date_picking.hpp"
#include "tests/support/form_recorder.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <locale>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vkr {
namespace {

class VirtualDesktopTest : public testing::Test {
  protected:
    VirtualDesktopTest()
        : name(form.add<TextBox>("txtName")), notes(form.add<TextBox>("txtNotes")),
          list(form.add<ComboBox>("cmbExchange")), ok(form.add<CommandButton>("cmdOK")) {
        form.setHandler(&heard);
        notes.setMultiLine(true);
        list.setList({"NYSE", "Nasdaq"});
        ok.setCaption("&OK");
        desktop.attach(form);
    }
    Events takeEvents() { return std::exchange(heard.events, {}); }
    // The field's text with its selection in brackets, a caret alone as "|".
    static std::string picture(const TextField& field) {
        const auto text = field.text();
        const auto start = static_cast<std::size_t>(field.selStart());
        const auto length = static_cast<std::size_t>(field.selLength());
        if (length == 0)
            return text.substr(0, start) + "|" + text.substr(start);
        return text.substr(0, start) + "[" + text.substr(start, length) + "]" +
               text.substr(start + length);
    }
    // What stands in `field` after the keys, typed with the caret behind `text`.
    std::string typed(TextField& field, std::string_view text, std::string_view notation) {
        field.setText(text);
        field.setFocus();
        desktop.clickAt(99999);
        desktop.type(notation);
        return picture(field);
    }

    VirtualDesktop desktop;
    FormRecorder heard;
    Form form;
    TextBox& name;
    TextBox& notes;
    ComboBox& list;
    CommandButton& ok;
};

// --- services ------------------------------------------------------------------------------------

TEST_F(VirtualDesktopTest, MessageBoxesAreRecordedAndAnswerTheirDefaultButton) {
    struct Row {
        int buttons;
        MessageAnswer answer;
    };
    const Row rows[] = {
        {0, MessageAnswer::ok},       {48, MessageAnswer::ok},      {16, MessageAnswer::ok},
        {1, MessageAnswer::ok},       {257, MessageAnswer::cancel}, {4, MessageAnswer::yes},
        {36, MessageAnswer::yes},     {260, MessageAnswer::no},     {292, MessageAnswer::no},
        {515, MessageAnswer::cancel}, {772, MessageAnswer::no},     {-1, MessageAnswer::ok}};
    for (const auto& row : rows)
        EXPECT_EQ(desktop.messageBox("Text", row.buttons, "Title"), row.answer) << row.buttons;
    ASSERT_EQ(desktop.messages().size(), std::size(rows));
    EXPECT_EQ(desktop.messages().front().text, "Text");
    EXPECT_EQ(desktop.messages().front().title, "Title");
    EXPECT_EQ(desktop.messages()[8].buttons, 292);
    EXPECT_EQ(desktop.messages()[8].answer, MessageAnswer::no);
    desktop.forget();
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(VirtualDesktopTest, ScriptedAnswersAreTakenInOrder) {
    desktop.answerNext(MessageAnswer::yes);
    desktop.answerNext(MessageAnswer::ok);
    EXPECT_FALSE(desktop.scriptUsedUp());
    EXPECT_EQ(desktop.messageBox("", 292, ""), MessageAnswer::yes);
    EXPECT_EQ(desktop.messageBox("", 292, ""), MessageAnswer::no) << "OK is no button of that box";
    EXPECT_TRUE(desktop.scriptUsedUp());
}

TEST_F(VirtualDesktopTest, TheClipboardHoldsText) {
    EXPECT_FALSE(desktop.clipboardHasText());
    desktop.setClipboardText("abc");
    EXPECT_TRUE(desktop.clipboardHasText());
    EXPECT_EQ(desktop.clipboardText(), "abc");
    desktop.clearClipboard();
    EXPECT_FALSE(desktop.clipboardHasText());
}

TEST_F(VirtualDesktopTest, TheSurroundingsAreWhatTheTestSays) {
    EXPECT_EQ(desktop.today(), VirtualDesktop::defaultToday);
    EXPECT_EQ(civil(desktop.today()), (CivilDate{2024, 3, 15}));
    desktop.setToday(Date{36526.75});
    EXPECT_EQ(desktop.today(), Date{36526});
    desktop.setScreenWidth(9600);
    EXPECT_EQ(desktop.screenWidth(), 9600);
    desktop.setApplicationTitle("Stock Study");
    EXPECT_EQ(desktop.applicationTitle(), "Stock Study");
    EXPECT_TRUE(desktop.ambientUserMode());
    desktop.setUserMode(false);
    EXPECT_FALSE(desktop.ambientUserMode());
    desktop.makeUserModeUnreadable();
    EXPECT_THROW(desktop.ambientUserMode(), std::runtime_error);
    EXPECT_EQ(desktop.textWidth("\xC3\xA9t\xC3\xA9"), 3 * VirtualDesktop::characterWidth);
    EXPECT_EQ(desktop.textHeight(), VirtualDesktop::characterHeight);
    desktop.propertyChanged("ShadeColorYear");
    EXPECT_EQ(desktop.propertyChanges(), Events{"ShadeColorYear"});
}

TEST_F(VirtualDesktopTest, ObjectsCanBeCreatedUntilTheyAreMissing) {
    EXPECT_EQ(desktop.createObject("iVKR_DataEntry.Localizer"), nullptr);
    desktop.factory().add("iVKR_DataEntry.Localizer", [] { return std::make_shared<Object>(); });
    EXPECT_NE(desktop.createObject("iVKR_DataEntry.Localizer"), nullptr);
    desktop.factory().remove("iVKR_DataEntry.Localizer");
    EXPECT_EQ(desktop.createObject("iVKR_DataEntry.Localizer"), nullptr);
}

TEST_F(VirtualDesktopTest, TheColorDialogIsGivenUpWithoutAScript) {
    EXPECT_EQ(desktop.chooseColor(colors::white), std::nullopt);
    desktop.answerNextColor(colors::yellow);
    desktop.answerNextColor(std::nullopt);
    EXPECT_EQ(desktop.chooseColor(colors::blue), colors::yellow);
    EXPECT_EQ(desktop.chooseColor(colors::blue), std::nullopt);
    ASSERT_EQ(desktop.colorDialogs().size(), 3U);
    EXPECT_EQ(desktop.colorDialogs()[1].shown, colors::blue);
    EXPECT_EQ(desktop.colorDialogs()[1].chosen, colors::yellow);
}

TEST_F(VirtualDesktopTest, TheCalendarStaysOpenUntilADateOrCancel) {
    const Date start{36526};
    EXPECT_EQ(pickDate(desktop, start), std::nullopt);
    desktop.confirmNextDate();
    EXPECT_EQ(pickDate(desktop, start), start);
    desktop.answerNextDate(Date{0}); // OK on nothing: it stays open
    desktop.answerNextDate(Date{40000});
    EXPECT_EQ(pickDate(desktop, start), Date{40000});
    desktop.confirmNextDate();
    EXPECT_EQ(pickDate(desktop, Date{}), std::nullopt);
    EXPECT_TRUE(desktop.scriptUsedUp());
    desktop.answerNextDate(std::nullopt);
    EXPECT_EQ(pickDate(desktop, start), std::nullopt);
    ASSERT_EQ(desktop.calendars().size(), 5U);
    EXPECT_EQ(desktop.calendars()[2].shown, start);
    EXPECT_EQ(desktop.calendars()[2].caption, "Pick");
    EXPECT_EQ(desktop.calendars()[2].chosen, Date{40000});
}

TEST_F(VirtualDesktopTest, TheMenuRecordsVisibleEntriesAndTakesTheScriptedOne) {
    std::vector<MenuItem*> items;
    for (const char* caption : {"&Undo", "-", "Cu&t", "Hidden"}) {
        auto& item = form.add<MenuItem>("mnuItem", static_cast<int>(items.size()));
        item.setCaption(caption);
        item.setTag(std::to_string(items.size() + 10));
        items.push_back(&item);
    }
    items[0]->setEnabled(false);
    items[3]->setVisible(false);

    desktop.answerNextMenu("Cut");
    desktop.answerNextMenu(2);
    EXPECT_EQ(desktop.popUpMenu(items, 100, 200), 2);
    EXPECT_EQ(desktop.popUpMenu(items, 100, 200), 2);
    EXPECT_EQ(desktop.popUpMenu(items, 100, 200), -1);
    const auto& menu = desktop.menus().front();
    EXPECT_EQ(menu.left, 100);
    EXPECT_EQ(menu.top, 200);
    EXPECT_EQ(menu.chosen, 2);
    ASSERT_EQ(menu.entries.size(), 3U);
    EXPECT_EQ(menu.entries[0].caption, "&Undo");
    EXPECT_FALSE(menu.entries[0].enabled);
    EXPECT_EQ(menu.entries[2].tag, "12");
    EXPECT_EQ(menu.entries[2].index, 2);

    desktop.forget();
    desktop.answerNextMenu("&Undo");
    desktop.answerNextMenu("-");
    desktop.answerNextMenu("Hidden");
    desktop.answerNextMenu(7);
    desktop.dismissNextMenu();
    Events refusals;
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(desktop.popUpMenu(items, 0, 0), -1);
        refusals.push_back(desktop.menus().back().refusal);
    }
    EXPECT_EQ(refusals, (Events{"entry &Undo is disabled", "entry - is a separator",
                                "there is no entry Hidden", "there is no entry 7", ""}));
}

// --- typing --------------------------------------------------------------------------------------

TEST_F(VirtualDesktopTest, AKeyGoesDownIsPressedEditsAndComesUp) {
    desktop.click("txtName");
    takeEvents();
    desktop.type("a");
    EXPECT_EQ(name.text(), "a");
    EXPECT_EQ(takeEvents(),
              (Events{"down 65/0 txtName", "press 97 txtName", "change txtName", "up 65 txtName"}));
}

TEST_F(VirtualDesktopTest, TypingNeedsTheFocus) {
    EXPECT_THROW(desktop.type("a"), std::logic_error);
    desktop.click("txtName");
    EXPECT_THROW(desktop.type("ab{"), std::invalid_argument);
    EXPECT_EQ(name.text(), "") << "nothing is typed of a malformed notation";
    desktop.switchAway();
    EXPECT_THROW(desktop.type("a"), std::logic_error);
    desktop.switchBack();
    desktop.type("a");
    EXPECT_EQ(name.text(), "a");
    VirtualDesktop bare;
    EXPECT_THROW(bare.type("a"), std::logic_error);
}

TEST_F(VirtualDesktopTest, KeysGoElsewhereOnceTheFocusHasLeftTheForm) {
    desktop.click("txtName");
    takeEvents();
    heard.keyPress = [this](char32_t&) { form.focusLeft(); };
    desktop.type("a");
    const auto after = takeEvents();
    EXPECT_EQ(after, (Events{"down 65/0 txtName", "press 97 txtName", "lost txtName",
                             "left the form", "up 65 txtName"}));
    desktop.click("txtName");
    takeEvents();
    desktop.type("ab");
    EXPECT_EQ(takeEvents(), after) << "nothing of the second key";
    desktop.click("txtName");
    takeEvents();
    desktop.hold("a", 3);
    EXPECT_EQ(takeEvents(), (Events{after.begin(), after.end() - 1}))
        << "where it is let go is another window's";
    EXPECT_EQ(name.text(), "");
}

TEST_F(VirtualDesktopTest, AFilterCanReplaceOrSwallowCharacters) {
    heard.keyPress = [](char32_t& character) {
        character = character == 'x' ? 0 : character == 'a' ? U'\u00C4' : character;
    };
    typed(name, "", "xab");
    EXPECT_EQ(name.text(), "\xC3\x84"
                           "b");
}

TEST_F(VirtualDesktopTest, ASentTabActsBeforeTheNextKey) {
    heard.keyPress = [&](char32_t& character) {
        if (character == 13) {
            character = 0;
            form.sendKey(keys::tab);
        }
    };
    desktop.click("txtName");
    desktop.type("one~two");
    EXPECT_EQ(name.text(), "one");
    EXPECT_EQ(notes.text(), "two");
}

TEST_F(VirtualDesktopTest, EditsASingleLine) {
    struct Row {
        const char* before;
        const char* keys;
        const char* after;
    };
    const Row rows[] = {
        {"", "1500", "1500|"},
        {"abc", "{LEFT}x", "abx|c"},
        {"abc", "{HOME}x", "x|abc"},
        {"abc", "{HOME}{RIGHT}{END}x", "abcx|"},
        {"abc", "{LEFT 100000}", "|abc"},
        {"abc", "{HOME}{RIGHT 100000}", "abc|"},
        {"abc", "{BS}", "ab|"},
        {"abc", "{BS 9}", "|"},
        {"abc", "{DEL}", "abc|"},
        {"abc", "{HOME}{DEL 2}", "|c"},
        {"abc", "+{LEFT 2}", "a[bc]"},
        {"abc", "+{LEFT 2}+{RIGHT}", "ab[c]"},
        {"abc", "{HOME}+{RIGHT 2}", "[ab]c"},
        {"abc", "{HOME}+{RIGHT 2}{RIGHT}", "ab|c"},
        {"abc", "{LEFT}+{LEFT}{LEFT}", "a|bc"},
        {"abc", "{LEFT}+{HOME}", "[ab]c"},
        {"abc", "{HOME}{RIGHT}+{END}x", "ax|"},
        {"abc", "{LEFT}+{LEFT}{BS}", "a|c"},
        {"abc", "{LEFT}+{LEFT}{DEL}", "a|c"},
        {"abc", "^a", "[abc]"},
        {"abc", "^ax", "x|"},
        {"one two three", "^{LEFT}", "one two |three"},
        {"one two three", "^{LEFT 2}", "one |two three"},
        {"one two three", "{HOME}^{RIGHT}", "one |two three"},
        {"one two three", "{HOME}^+{RIGHT}", "[one ]two three"},
        {"one two", "^{HOME}x^{END}y", "xone twoy|"},
        {"one two", "^{BS}", "one |"},
        {"one two", "{HOME}^{DEL}", "|two"},
        {"abc", "~{ESC}{UP}{DOWN}{PGUP}{F2}{INS}", "abc|"},
        {"abc", "%x", "abc|"},
        {"a", "{+}{%}{{}", "a+%{|"},
        {"", "Ab!+(cd)e", "Ab!CDe|"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(typed(name, row.before, row.keys), row.after) << row.before << " " << row.keys;
}

TEST_F(VirtualDesktopTest, EditsSeveralLines) {
    struct Row {
        const char* before;
        const char* keys;
        const char* after;
    };
    const Row rows[] = {
        {"ab", "~c", "ab\nc|"},
        {"one\ntwo", "{HOME}x", "one\nx|two"},
        {"one\ntwo", "{UP}x", "onex|\ntwo"},
        {"one\ntw", "{UP}x", "onx|e\ntw"},
        {"o\ntwo", "{UP}x", "ox|\ntwo"},
        {"one\ntwo", "{UP 5}x", "onex|\ntwo"},
        {"one\ntwo", "^{HOME}{DOWN}x", "one\nx|two"},
        {"one\nt", "^{HOME}{END}{DOWN}x", "one\ntx|"},
        {"one\n", "^{HOME}{END}{DOWN 3}x", "one\nx|"},
        {"one\ntwo", "{PGUP}{PGDN}", "one\ntwo|"},
        {"one\ntwo", "+{UP}", "one[\ntwo]"},
        {"one\ntwo", "{HOME}{BS}", "one|two"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(typed(notes, row.before, row.keys), row.after) << row.before << " " << row.keys;
}

TEST_F(VirtualDesktopTest, PositionsAreCharacters) {
    name.setText("\xC3\xA9t\xC3\xA9"); // été
    desktop.click("txtName");
    desktop.type("{END}{LEFT}{BS}");
    EXPECT_EQ(name.text(), "\xC3\xA9\xC3\xA9");
    desktop.type("\xE2\x82\xAC");
    EXPECT_EQ(name.text(), "\xC3\xA9\xE2\x82\xAC\xC3\xA9");
    EXPECT_EQ(name.selStart(), 2);
}

TEST_F(VirtualDesktopTest, TextsThatAreNoValidTextCanBeEdited) {
    name.setText("\xFFz\xC3");
    desktop.click("txtName");
    desktop.type("{END}{BS}{HOME}{RIGHT}a");
    EXPECT_EQ(name.text(), "\xFF"
                           "az");
}

TEST_F(VirtualDesktopTest, AHeldKeyComesUpOnce) {
    desktop.click("txtName");
    takeEvents();
    desktop.hold("a", 3);
    EXPECT_EQ(takeEvents(),
              (Events{"down 65/0 txtName", "press 97 txtName", "change txtName",
                      "down 65/0 txtName", "press 97 txtName", "change txtName",
                      "down 65/0 txtName", "press 97 txtName", "change txtName", "up 65 txtName"}));
}

TEST_F(VirtualDesktopTest, MaxLengthStopsTypingAndCutsPastes) {
    name.setMaxLength(3);
    EXPECT_EQ(typed(name, "", "abcd"), "abc|");
    EXPECT_EQ(typed(name, "abc", "{LEFT}x"), "ab|c");
    EXPECT_EQ(typed(name, "abc", "^ax"), "x|");
    EXPECT_EQ(typed(name, "abc", "{BS}x"), "abx|");
    desktop.setClipboardText("1\xC3\xA9"
                             "345");
    typed(name, "a", "^v");
    EXPECT_EQ(name.text(), "a1\xC3\xA9");
    // A text that is longer already can be shortened, and not be typed into.
    EXPECT_EQ(typed(name, "abcdef", "x{BS}+{LEFT}y"), "abcd[e]");
    name.setMaxLength(1);
    typed(name, "", "^v");
    EXPECT_EQ(name.text(), "1");
}

TEST_F(VirtualDesktopTest, LengthsCountCharacters) {
    name.setMaxLength(3);
    typed(name, "", "\u20AC\U0001F600\u00E9x");
    EXPECT_EQ(name.text(), "\u20AC\U0001F600\u00E9");
    EXPECT_EQ(name.selStart(), 3);
    desktop.setClipboardText("\U0001F600\U0001F600\U0001F600");
    typed(name, "a", "^v");
    EXPECT_EQ(name.text(), "a\U0001F600\U0001F600");
}

TEST_F(VirtualDesktopTest, WhatIsPutIntoAFieldOfCapitalsIsInCapitals) {
    name.setCapitals(true);
    desktop.setClipboardText("brk.b");
    EXPECT_EQ(typed(name, "xy", "{LEFT}^v"), "xBRK.B|y");
    desktop.type("^z");
    EXPECT_EQ(name.text(), "xy");
    desktop.type("{END}z{BS 3}");
    EXPECT_EQ(name.text(), "");
    desktop.type("^z");
    EXPECT_EQ(name.text(), "xyZ");
}

TEST_F(VirtualDesktopTest, ShortcutsAreNoCharacters) {
    name.setText("abc");
    desktop.click("txtName");
    takeEvents();
    desktop.type("^a^c{END}^v");
    EXPECT_EQ(name.text(), "abcabc");
    for (const auto& event : takeEvents())
        EXPECT_EQ(event.find("press"), std::string::npos) << event;
}

TEST_F(VirtualDesktopTest, CutsCopiesAndPastes) {
    EXPECT_EQ(typed(name, "abc", "+{LEFT}^x{HOME}^v"), "c|ab");
    EXPECT_EQ(desktop.clipboardText(), "c");
    EXPECT_EQ(typed(name, "abc", "^c^x"), "abc|") << "nothing is selected";
    EXPECT_EQ(desktop.clipboardText(), "c");
    EXPECT_EQ(typed(name, "abc", "+{LEFT}+{DEL}{HOME}+{INS}"), "c|ab");
    EXPECT_EQ(typed(name, "xyz", "+{LEFT 2}^{INS}{END}^v"), "xyzyz|");
    desktop.clearClipboard();
    EXPECT_EQ(typed(name, "abc", "^a^v"), "[abc]");
}

TEST_F(VirtualDesktopTest, PastedTextIsCleaned) {
    struct Row {
        std::string_view pasted;
        std::string_view oneLine;
        std::string_view lines;
    };
    const Row rows[] = {
        {"a\r\nb\nc\rd\te", "a b c d e", "a\nb\nc\nd\te"},
        {"a\n\nb\r\r\nc", "a  b  c", "a\n\nb\n\nc"},
        {std::string_view("a\0\x01\x1B\x7Fz", 6), "az", "az"},
        {"a\xC2\x9Fz", "az", "az"},
        {"a\xE2\x80\xA8z", "a z", "a\nz"},
        {"a\xFFz", "a\xEF\xBF\xBDz", "a\xEF\xBF\xBDz"},
    };
    for (const auto& row : rows) {
        desktop.setClipboardText(std::string(row.pasted));
        typed(name, "", "^v");
        EXPECT_EQ(name.text(), row.oneLine);
        typed(notes, "", "^v");
        EXPECT_EQ(notes.text(), row.lines);
    }
    desktop.setClipboardText("\x01");
    EXPECT_EQ(typed(name, "abc", "^a^v"), "[abc]") << "nothing is left to paste";
}

TEST_F(VirtualDesktopTest, NothingChangesALockedField) {
    name.setText("abc def");
    name.setLocked(true);
    desktop.setClipboardText("paste");
    desktop.click("txtName");
    takeEvents();
    desktop.type("x{BS}{DEL}^a{BS}^x^v+{INS}+{DEL}^z{HOME}^{DEL}{END}^{BS}");
    EXPECT_EQ(name.text(), "abc def");
    EXPECT_EQ(desktop.clipboardText(), "paste");
    for (const auto& event : takeEvents())
        EXPECT_EQ(event.find("change"), std::string::npos) << event;
    desktop.type("{HOME}^+{RIGHT}^c");
    EXPECT_EQ(desktop.clipboardText(), "abc ");
}

TEST_F(VirtualDesktopTest, ADisabledFieldTakesNoMoreKeys) {
    desktop.click("txtName");
    name.setEnabled(false);
    desktop.type("abc");
    EXPECT_EQ(name.text(), "");
}

TEST_F(VirtualDesktopTest, HandlersMayRemoveTheFieldInTheMiddleOfAnEdit) {
    heard.change = [&](TextField& field) { form.remove(field); };
    desktop.click("txtName");
    desktop.type("abc{LEFT}");
    EXPECT_EQ(form.find("txtName"), nullptr);
    EXPECT_EQ(desktop.focusedId(), "");
}

TEST_F(VirtualDesktopTest, MnemonicsGoByAltAndAreFoundBeyondTheKeyboardToo) {
    auto& label = form.add<Label>("lblOver");
    label.setCaption("&\xC3\x9C"
                     "ber");
    form.add<TextBox>("txtOver");
    desktop.click("txtName");
    desktop.type("%\xC3\xBC");
    EXPECT_EQ(desktop.focusedId(), "txtOver");
    takeEvents();
    desktop.type("%o");
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 cmdOK", "lost txtOver", "got cmdOK", "click cmdOK",
                                    "ended cmdOK", "up 79 cmdOK"}));
}

// --- undo ----------------------------------------------------------------------------------------

TEST_F(VirtualDesktopTest, RunsOfTypingAreOneStep) {
    desktop.click("txtName");
    desktop.type("abc{BS 2}{HOME}x");
    EXPECT_EQ(name.text(), "xa");
    Events texts;
    while (desktop.canUndo(name)) {
        desktop.type("^z");
        texts.push_back(name.text());
    }
    EXPECT_EQ(texts, (Events{"a", "abc", ""}));
    desktop.type("^z");
    EXPECT_EQ(name.text(), "");
}

TEST_F(VirtualDesktopTest, RunsEndWhereTheCaretMovesOrTheFieldIsLeft) {
    desktop.click("txtName");
    desktop.type("ab{LEFT}{RIGHT}cd");
    desktop.click("cmdOK");
    desktop.click("txtName");
    desktop.type("e^z");
    EXPECT_EQ(name.text(), "abcd");
    desktop.type("^z");
    EXPECT_EQ(name.text(), "abcd") << "what was typed in another stay stands";
}

TEST_F(VirtualDesktopTest, UndoRestoresTheSelectionAndIsAChange) {
    name.setText("abc");
    desktop.click("txtName");
    desktop.dragOver(1, 1);
    desktop.type("xy");
    takeEvents();
    desktop.undo(name);
    EXPECT_EQ(picture(name), "a[b]c");
    EXPECT_EQ(takeEvents(), Events{"change txtName"});
}

TEST_F(VirtualDesktopTest, PastesAndCommandsAreStepsOfTheirOwn) {
    desktop.setClipboardText("12");
    desktop.click("txtName");
    desktop.type("a^v^v");
    name.editText("-a1212", 0);
    name.editText("", 0);
    Events texts;
    while (desktop.canUndo(name)) {
        desktop.undo(name);
        texts.push_back(name.text());
    }
    EXPECT_EQ(texts, (Events{"-a1212", "a1212", "a12", "a", ""}));
}

TEST_F(VirtualDesktopTest, ACommandInsideAChangeIsAStepOfItsOwn) {
    heard.change = [](TextField& field) {
        if (field.text() == "ab")
            field.editText("AB", 2);
    };
    desktop.click("txtName");
    desktop.type("ab");
    EXPECT_EQ(name.text(), "AB");
    heard.change = nullptr;
    desktop.undo(name);
    EXPECT_EQ(name.text(), "ab");
    desktop.undo(name);
    EXPECT_EQ(name.text(), "");
}

TEST_F(VirtualDesktopTest, AProgramsTextBeginsTheHistoryAnew) {
    desktop.click("txtName");
    desktop.type("abc");
    name.setText("abc");
    EXPECT_FALSE(desktop.canUndo(name)) << "it may stand for another figure";
    desktop.type("d");
    EXPECT_TRUE(desktop.canUndo(name));
    name.setText("program");
    EXPECT_FALSE(desktop.canUndo(name));
    desktop.undo(name);
    EXPECT_EQ(name.text(), "program");
}

TEST_F(VirtualDesktopTest, LockedFieldsDoNotUndo) {
    desktop.click("txtName");
    desktop.type("abc");
    name.setLocked(true);
    EXPECT_FALSE(desktop.canUndo(name));
    desktop.undo(name);
    EXPECT_EQ(name.text(), "abc");
    name.setLocked(false);
    EXPECT_TRUE(desktop.canUndo(name));
}

TEST_F(VirtualDesktopTest, ChoosingAnEntryCanBeUndone) {
    list.setText("Amex");
    desktop.pick("cmbExchange", "Nasdaq");
    desktop.undo(list);
    EXPECT_EQ(list.text(), "Amex");
    EXPECT_EQ(list.listIndex(), -1);
}

TEST_F(VirtualDesktopTest, FieldsOfNoAttachedFormHaveNothingToUndo) {
    Form other;
    auto& field = other.add<TextBox>("txtOther");
    EXPECT_FALSE(desktop.canUndo(field));
    desktop.undo(field);
    EXPECT_EQ(field.text(), "");
}

// --- mouse ---------------------------------------------------------------------------------------

TEST_F(VirtualDesktopTest, AClickPressesAndReleases) {
    desktop.click("txtName");
    desktop.click("cmdOK");
    EXPECT_EQ(takeEvents(),
              (Events{"got txtName", "mouse 1 txtName", "click txtName", "ended txtName",
                      "mouse 1 cmdOK", "lost txtName", "got cmdOK", "click cmdOK", "ended cmdOK"}));
}

TEST_F(VirtualDesktopTest, APressCanBeGivenUp) {
    desktop.press("cmdOK");
    desktop.dragAway();
    desktop.press("cmdOK");
    desktop.release("txtName");
    desktop.press("cmdOK");
    desktop.release("cmdOK");
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 cmdOK", "got cmdOK", "ended cmdOK", "mouse 1 cmdOK",
                                    "ended cmdOK", "mouse 1 cmdOK", "click cmdOK", "ended cmdOK"}));
    EXPECT_THROW(desktop.release(), std::logic_error);
    EXPECT_THROW(desktop.release("cmdOK"), std::logic_error);
    EXPECT_THROW(desktop.dragAway(), std::logic_error);
    desktop.press("cmdOK");
    EXPECT_THROW(desktop.press("cmdOK"), std::logic_error);
}

TEST_F(VirtualDesktopTest, APressOnWhatGoesAwayEndsOnNothing) {
    desktop.press("cmdOK");
    form.remove(ok);
    desktop.release();
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 cmdOK", "got cmdOK"}));
}

TEST_F(VirtualDesktopTest, TheRightButtonClicksNothing) {
    desktop.rightClick("txtName");
    desktop.rightClick("cmdOK");
    EXPECT_EQ(takeEvents(), (Events{"got txtName", "mouse 2 txtName", "ended txtName",
                                    "mouse 2 cmdOK", "lost txtName", "got cmdOK", "ended cmdOK"}));
}

TEST_F(VirtualDesktopTest, TheLeftButtonDragsFromWhatIsEnabled) {
    struct : FormHandler {
        Events drags;
        bool onDrag(Control& pressed, Control& over) override {
            drags.push_back(pressed.id() + " to " + over.id());
            return true;
        }
    } dragged;
    form.setHandler(&dragged);
    for (const auto button : {MouseButton::left, MouseButton::right}) {
        desktop.press("txtName", Control::noIndex, button);
        desktop.dragTo("cmdOK");
        desktop.dragAway();
    }
    ok.setEnabled(false);
    desktop.press("cmdOK");
    desktop.dragTo("txtName");
    desktop.dragAway();
    EXPECT_EQ(dragged.drags, Events{"txtName to cmdOK"});
}

TEST_F(VirtualDesktopTest, ADoubleClickIsAClickAndADoubleClickOrTwoPresses) {
    auto& lock = form.add<CheckBox>("chkLockInfo");
    desktop.doubleClick("txtName");
    EXPECT_EQ(takeEvents(), (Events{"got txtName", "mouse 1 txtName", "click txtName",
                                    "ended txtName", "double txtName"}));
    desktop.doubleClick("chkLockInfo");
    EXPECT_FALSE(lock.value());
    desktop.click("chkLockInfo");
    EXPECT_TRUE(lock.value());
    form.add<OptionButton>("optUnit", 0);
    for (const std::string twice : {"optUnit(0)", "cmdOK"}) {
        takeEvents();
        desktop.doubleClick(twice);
        const Events heardOf = takeEvents();
        EXPECT_EQ(std::count(heardOf.begin(), heardOf.end(), "click " + twice), 2);
        EXPECT_EQ(std::count(heardOf.begin(), heardOf.end(), "double " + twice), 0);
    }
}

TEST_F(VirtualDesktopTest, ADoubleClickEndsWhereItsFirstClickHidTheControl) {
    heard.click = [](Control& control) { control.setVisible(false); };
    desktop.doubleClick("txtName");
    desktop.doubleClick("cmdOK");
    EXPECT_EQ(takeEvents(),
              (Events{"got txtName", "mouse 1 txtName", "click txtName", "ended txtName",
                      "mouse 1 cmdOK", "lost txtName", "got cmdOK", "click cmdOK", "ended cmdOK"}));
}

TEST_F(VirtualDesktopTest, AClickIntoTheFocusedFieldPlacesTheCaret) {
    name.setText("abcdef");
    heard.gotFocus = [&](Control& control) {
        if (&control == &name)
            name.select(0, 6);
    };
    desktop.click("txtName");
    EXPECT_EQ(picture(name), "[abcdef]");
    desktop.click("txtName");
    EXPECT_EQ(picture(name), "abcdef|");
    desktop.clickAt(2);
    EXPECT_EQ(picture(name), "ab|cdef");
    desktop.dragOver(1, 3);
    EXPECT_EQ(picture(name), "a[bcd]ef");
    desktop.dragOver(4, 99);
    EXPECT_EQ(picture(name), "abcd[ef]");
    desktop.rightClick("txtName");
    EXPECT_EQ(picture(name), "abcd[ef]") << "the menu acts on the selection";
    desktop.click("cmdOK");
    EXPECT_THROW(desktop.clickAt(0), std::logic_error);
}

TEST_F(VirtualDesktopTest, ControlsAreGivenByIdOrByNameAndIndex) {
    form.add<TextBox>("txtSales", 0);
    auto& cell = form.add<TextBox>("txtSales", 3);
    desktop.click("txtSales(3)");
    EXPECT_EQ(desktop.focusedId(), "txtSales(3)");
    desktop.click("txtName");
    desktop.click("txtSales", 3);
    EXPECT_EQ(form.activeControl(), &cell);
    EXPECT_EQ(&desktop.control("txtSales(3)"), &cell);
    for (const char* unknown : {"", "txtSales", "txtSales(4)", "txtSales(x)", "txtSales()", "()",
                                ")(", "txtSales(99999999999)", "txtSales(-1)", "txtSales(3x)"})
        EXPECT_THROW(static_cast<void>(desktop.control(unknown)), std::logic_error) << unknown;
    const auto messageFor = [&](int index) {
        try {
            static_cast<void>(desktop.control("txtSales", index));
        } catch (const std::logic_error& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(messageFor(4), "there is no control txtSales(4)");
    EXPECT_EQ(messageFor(Control::noIndex), "there is no control txtSales");
}

TEST_F(VirtualDesktopTest, WhatNobodyCouldReachThrowsAndSaysWhy) {
    auto& page = form.add<Frame>("fraPage", 2);
    auto& view = form.add<Frame>("fraView", Control::noIndex, &page);
    view.resize(1000, 1000);
    auto& panel = form.add<Frame>("fraPanel", Control::noIndex, &view);
    panel.resize(5000, 1000);
    auto& cell = form.add<TextBox>("txtSales", 9, &panel);
    cell.move(4000, 0);
    cell.resize(500, 300);
    const auto message = [&] {
        try {
            desktop.click("txtSales", 9);
        } catch (const std::logic_error& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(message(), "txtSales(9) can't be clicked: it is scrolled out of view");
    panel.move(-3500, -400);
    EXPECT_EQ(message(), "txtSales(9) can't be clicked: it is scrolled out of view");
    panel.move(-3500, 0);
    EXPECT_EQ(message(), "");
    page.move(Control::parkedLeft, 0);
    EXPECT_EQ(message(), "txtSales(9) can't be clicked: it is on a page that is not on show");
    page.setVisible(false);
    page.move(0, 0);
    EXPECT_EQ(message(), "txtSales(9) can't be clicked: it is invisible with fraPage(2)");
    page.setVisible(true);
    cell.setVisible(false);
    EXPECT_EQ(message(), "txtSales(9) can't be clicked: it is invisible");
    EXPECT_FALSE(desktop.canReach("txtSales(9)"));
    EXPECT_TRUE(desktop.canReach("txtName"));
    form.add<MenuItem>("mnuItem", 0);
    EXPECT_FALSE(desktop.canReach("mnuItem(0)"));
    cell.setVisible(true);
    const std::pair<Twips, Twips> unsized[] = {{0, 100}, {100, 0}, {0, 0}};
    for (const auto& [width, height] : unsized) {
        view.resize(width, height);
        EXPECT_TRUE(desktop.canReach("txtSales(9)")) << width << " by " << height;
    }
    view.resize(1, 1);
    EXPECT_FALSE(desktop.canReach("txtSales(9)"));
    name.move(400, 0);
    for (const auto& [width, height] : unsized) {
        form.setSize(width, height);
        EXPECT_TRUE(desktop.canReach("txtName")) << width << " by " << height;
    }
    form.setSize(1, 1);
    EXPECT_FALSE(desktop.canReach("txtName"));
    form.setSize(400, 400);
    EXPECT_FALSE(desktop.canReach("txtName"));
    name.move(399, 0);
    EXPECT_TRUE(desktop.canReach("txtName"));
    name.move(0, 400);
    EXPECT_FALSE(desktop.canReach("txtName"));
}

TEST_F(VirtualDesktopTest, DisabledControlsTakeNoClick) {
    auto& lock = form.add<CheckBox>("chkLockInfo");
    auto& bar = form.add<ScrollBar>("hscrYearly");
    bar.setRange(0, 9, 1, 3);
    auto& spinner = form.add<Spinner>("spnQuarter");
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    strip.addTab({});
    strip.addTab({});
    for (Control* control : std::vector<Control*>{&name, &ok, &lock, &bar, &spinner, &strip, &list})
        control->setEnabled(false);
    desktop.click("txtName");
    desktop.doubleClick("cmdOK");
    desktop.rightClick("cmdOK");
    desktop.click("chkLockInfo");
    desktop.scroll("hscrYearly", 5);
    desktop.scrollLines("hscrYearly", 1);
    desktop.spin("spnQuarter", 1);
    desktop.clickTab(2);
    desktop.pick("cmbExchange", "NYSE");
    desktop.press("cmdOK");
    desktop.release("cmdOK");
    EXPECT_EQ(takeEvents(), Events{});
    EXPECT_EQ(list.text(), "");
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(strip.selected(), 1);
    EXPECT_FALSE(lock.value());
}

TEST_F(VirtualDesktopTest, OptionsAndCheckBoxesAreClicked) {
    auto& first = form.add<OptionButton>("optUnit", 0);
    auto& second = form.add<OptionButton>("optUnit", 1);
    first.setValue(true);
    desktop.click("optUnit", 1);
    EXPECT_TRUE(second.value());
    EXPECT_FALSE(first.value());
}

TEST_F(VirtualDesktopTest, TabsAreClicked) {
    EXPECT_THROW(desktop.clickTab(1), std::logic_error);
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    strip.addTab({});
    strip.addTab({});
    desktop.click("txtName");
    takeEvents();
    desktop.clickTab(2);
    EXPECT_EQ(takeEvents(), (Events{"lost txtName", "got tbsDataEntry", "mouse 1 tbsDataEntry",
                                    "tab 2 tbsDataEntry", "ended tbsDataEntry"}));
    for (const int outside : {0, 3, -1})
        EXPECT_THROW(desktop.clickTab(outside), std::logic_error);
    desktop.press("cmdOK");
    EXPECT_THROW(desktop.clickTab(1), std::logic_error);
    EXPECT_EQ(strip.selected(), 2);
}

TEST_F(VirtualDesktopTest, ListEntriesArePicked) {
    desktop.pick("cmbExchange", "Nasdaq");
    EXPECT_EQ(list.text(), "Nasdaq");
    EXPECT_EQ(list.listIndex(), 1);
    EXPECT_EQ(takeEvents(),
              (Events{"got cmbExchange", "mouse 1 cmbExchange", "choice 1 cmbExchange",
                      "click cmbExchange", "ended cmbExchange"}));
    desktop.pick("cmbExchange", 0);
    EXPECT_EQ(list.text(), "NYSE");
    EXPECT_THROW(desktop.pick("cmbExchange", "Amex"), std::logic_error);
    EXPECT_THROW(desktop.pick("cmbExchange", 2), std::logic_error);
    EXPECT_THROW(desktop.pick("txtName", "NYSE"), std::logic_error);
    list.setLocked(true);
    desktop.pick("cmbExchange", "Nasdaq");
    EXPECT_EQ(list.text(), "NYSE");
}

TEST_F(VirtualDesktopTest, ScrollBarsAreDraggedAndStepped) {
    auto& bar = form.add<ScrollBar>("vscrQuarterly");
    bar.setRange(0, 26, 1, 9);
    desktop.scroll("vscrQuarterly", 4);
    desktop.scrollLines("vscrQuarterly", 2);
    desktop.scrollPages("vscrQuarterly", 1);
    desktop.scrollLines("vscrQuarterly", -1);
    EXPECT_EQ(bar.value(), 14);
    desktop.scrollPages("vscrQuarterly", -1000000000);
    EXPECT_EQ(bar.value(), 0);
    desktop.scroll("vscrQuarterly", 1000);
    EXPECT_EQ(bar.value(), 26);
    EXPECT_EQ(takeEvents(), (Events{"scroll 4 vscrQuarterly", "scroll 5 vscrQuarterly",
                                    "scroll 6 vscrQuarterly", "scroll 15 vscrQuarterly",
                                    "scroll 14 vscrQuarterly", "scroll 5 vscrQuarterly",
                                    "scroll 0 vscrQuarterly", "scroll 26 vscrQuarterly"}));
    EXPECT_THROW(desktop.scroll("txtName", 1), std::logic_error);
    bar.setVisible(false);
    EXPECT_THROW(desktop.scroll("vscrQuarterly", 1), std::logic_error);
    EXPECT_EQ(bar.value(), 26);
}

TEST_F(VirtualDesktopTest, SpinnersStepOneByOne) {
    form.add<Spinner>("spnQuarter");
    desktop.spin("spnQuarter", 2);
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(takeEvents(),
              (Events{"spin 1 spnQuarter", "spin 1 spnQuarter", "spin -1 spnQuarter"}));
}

// --- windows and focus ---------------------------------------------------------------------------

TEST_F(VirtualDesktopTest, SwitchingWindowsDoesNotLeaveTheField) {
    desktop.click("txtName");
    takeEvents();
    desktop.switchAway();
    desktop.switchBack();
    EXPECT_EQ(takeEvents(), Events{});
    desktop.switchAway();
    desktop.click("txtName"); // activates the window again
    desktop.type("a");
    EXPECT_EQ(name.text(), "a");
    desktop.clickSurface();
    EXPECT_EQ(takeEvents().back(), "surface");
}

TEST_F(VirtualDesktopTest, WhateverIsClickedActivatesTheWindowAgain) {
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    strip.addTab({});
    desktop.click("txtName");
    const std::function<void()> clicks[] = {
        [&] { desktop.clickSurface(); }, [&] { desktop.clickTab(1); },
        [&] { desktop.rightClickTab(1); }, [&] { desktop.click("txtName"); }};
    for (const auto& click : clicks) {
        desktop.switchAway();
        EXPECT_THROW(desktop.type("{LEFT}"), std::logic_error);
        click();
        EXPECT_NO_THROW(desktop.type("{LEFT}")) << &click - clicks;
    }
}

TEST_F(VirtualDesktopTest, GoingToAHostControlLeavesTheField) {
    desktop.click("txtName");
    takeEvents();
    EXPECT_TRUE(desktop.leaveForm());
    EXPECT_EQ(takeEvents(), (Events{"lost txtName", "left the form"}));
    EXPECT_EQ(desktop.focusedId(), "");
    desktop.tabInto(FocusDirection::backward);
    EXPECT_EQ(desktop.focusedId(), "cmdOK");
    heard.lostFocus = [](Control& left) { left.setFocus(); };
    desktop.switchAway();
    EXPECT_FALSE(desktop.leaveForm());
    EXPECT_EQ(desktop.focusedId(), "cmdOK");
    EXPECT_NO_THROW(desktop.type("{LEFT}"));
    desktop.tabInto();
    EXPECT_EQ(desktop.focusedId(), "cmdOK") << "the form has kept the focus";
    heard.lostFocus = nullptr;
    desktop.tabInto();
    EXPECT_EQ(desktop.focusedId(), "txtName") << "as from a control of the host";
    desktop.leaveForm();
    desktop.switchAway();
    desktop.tabInto();
    EXPECT_NO_THROW(desktop.type("{LEFT}"));
}

TEST_F(VirtualDesktopTest, AKeyThatTheFormDoesNotHearOfIsNotLetGoThere) {
    desktop.click("txtName");
    desktop.addHostShortcut("^n");
    takeEvents();
    desktop.type("^n");
    desktop.hold("a", 0);
    EXPECT_EQ(takeEvents(), Events{});
    heard.change = [&](TextField&) { form.focusLeft(); };
    desktop.type("ab");
    EXPECT_EQ(takeEvents(), (Events{"down 65/0 txtName", "press 97 txtName", "change txtName",
                                    "lost txtName", "left the form", "up 65 txtName"}));
}

TEST_F(VirtualDesktopTest, TabbingPastTheEndGoesToTheHostWhereItHasControls) {
    desktop.click("cmdOK");
    desktop.type("{TAB}");
    EXPECT_EQ(desktop.focusedId(), "txtName");
    desktop.setHostControls(true);
    desktop.type("+{TAB}abc");
    EXPECT_EQ(desktop.focusedId(), "");
    EXPECT_EQ(name.text(), "") << "keys behind the Tab are the host's";
}

TEST_F(VirtualDesktopTest, WalksTheTabOrder) {
    form.add<TextBox>("txtLast");
    ok.setTabIndex(0);
    name.setEnabled(false);
    const Events all{"cmdOK", "txtNotes", "cmbExchange", "txtLast"};
    EXPECT_EQ(desktop.tabWalk(), all);
    desktop.setHostControls(true);
    desktop.leaveForm();
    EXPECT_EQ(desktop.tabWalk(), all);
    desktop.setHostControls(false);
    desktop.click("cmbExchange");
    EXPECT_EQ(desktop.tabWalk(), (Events{"cmbExchange", "txtLast", "cmdOK", "txtNotes"}));
    heard.lostFocus = [](Control& left) { left.setFocus(); };
    EXPECT_EQ(desktop.tabWalk(), Events{"cmbExchange"});
}

TEST_F(VirtualDesktopTest, WalksNothingWhereNothingTakesTheFocus) {
    Form empty;
    desktop.attach(empty);
    EXPECT_EQ(desktop.tabWalk(), Events{});
}

// --- what is on screen ---------------------------------------------------------------------------

TEST_F(VirtualDesktopTest, ASnapshotShowsWhatCanBeSeen) {
    form.setSize(6000, 4000);
    name.move(120, 240);
    name.resize(2400, 285);
    name.setText("Apple");
    name.setMark({MarkKind::unstored, "no date"});
    notes.setText("one\ntwo");
    notes.setLocked(true);
    list.setVisible(false);
    auto& page = form.add<Frame>("fraPage", 1);
    auto& unit = form.add<OptionButton>("optUnit", 0, &page);
    unit.setCaption("&Millions");
    unit.setValue(true);
    auto& lock = form.add<CheckBox>("chkLockInfo", Control::noIndex, &page);
    lock.setCaption("Lock");
    lock.setEnabled(false);
    auto& bar = form.add<ScrollBar>("vscr");
    bar.setRange(0, 26, 1, 9);
    auto& strip = form.add<TabStrip>("tbs");
    for (const char* caption : {"Company", "Yearly"}) {
        Tab tab;
        tab.caption = caption;
        strip.addTab(tab);
    }
    strip.selectTab(2);
    form.add<Frame>("fraParked").move(Control::parkedLeft, 0);
    form.add<MenuItem>("mnuItem", 0);
    desktop.click("txtName");
    EXPECT_EQ(desktop.snapshot(), "form 6000 x 4000\n"
                                  "  txtName (120, 240, 2400 x 285) \"Apple\" marked \"no date\" "
                                  "focus\n"
                                  "  txtNotes (0, 0, 0 x 0) \"one\\ntwo\" locked\n"
                                  "  cmdOK (0, 0, 0 x 0) \"&OK\"\n"
                                  "  fraPage(1) (0, 0, 0 x 0) \"\"\n"
                                  "    optUnit(0) (0, 0, 0 x 0) (x) \"&Millions\"\n"
                                  "    chkLockInfo (0, 0, 0 x 0) [ ] \"Lock\" disabled\n"
                                  "  vscr (0, 0, 0 x 0) 0 of 0 to 26\n"
                                  "  tbs (0, 0, 0 x 0) \"Company\" >\"Yearly\"\n");
}

TEST_F(VirtualDesktopTest, ASnapshotIsTheSameInEveryLocale) {
    struct Grouping final : std::numpunct<char> {
        [[nodiscard]] std::string do_grouping() const override { return "\3"; }
        [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    };
    form.setSize(6000, 4000);
    name.resize(2400, 285);
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
    const std::string snapshot = desktop.snapshot();
    std::locale::global(before);
    EXPECT_EQ(snapshot.find("form 6000 x 4000\n  txtName (0, 0, 2400 x 285)"), 0U) << snapshot;
}

TEST_F(VirtualDesktopTest, ASnapshotKeepsEachControlOnItsLine) {
    notes.setText("one\r\ntwo");
    EXPECT_NE(desktop.snapshot().find("\"one\\r\\ntwo\""), std::string::npos);
}

TEST_F(VirtualDesktopTest, ASnapshotTellsTheNoteAtItsFieldAlone) {
    desktop.tellRefused(name, "Figures only.");
    const std::string snapshot = desktop.snapshot();
    const auto line = snapshot.substr(snapshot.find("txtName"));
    EXPECT_NE(line.substr(0, line.find('\n')).find(" note \"Figures only.\""), std::string::npos);
    EXPECT_EQ(snapshot.find(" note "), snapshot.rfind(" note "));
    ok.setEnabled(false);
    desktop.click("cmdOK");
    EXPECT_TRUE(desktop.note().has_value()) << "a press on nothing";
    ok.setEnabled(true);
    desktop.click("cmdOK");
    EXPECT_FALSE(desktop.note().has_value());
}

TEST_F(VirtualDesktopTest, WithoutAFormThereIsNothingToActOn) {
    VirtualDesktop bare;
    EXPECT_THROW(static_cast<void>(bare.form()), std::logic_error);
    EXPECT_THROW(bare.click("cmdOK"), std::logic_error);
    EXPECT_THROW(bare.tabInto(), std::logic_error);
    EXPECT_THROW(static_cast<void>(bare.snapshot()), std::logic_error);
}

TEST_F(VirtualDesktopTest, ControlsAddedLaterAreLikeTheOthers) {
    auto& later = form.add<TextBox>("txtLater");
    later.setText("a");
    later.editText("ab", 2);
    desktop.undo(later);
    EXPECT_EQ(later.text(), "a");
}

// An adapter without a window for it asks by a message box.
TEST(PasteWithoutAWindow, IsAskedByAMessageBox) {
    class Form final : public PasteForm {
      public:
        const std::string& caption() const override { return caption_; }
        const std::vector<std::string>& heads() const override { return heads_; }
        const std::vector<PasteLine>& lines() const override { return lines_; }
        const std::vector<PasteSwitch>& switches() const override { return switches_; }
        void setSwitch(int /*index*/, int /*chosen*/) override {}
        const std::string& summary() const override { return summary_; }
        const std::string& okCaption() const override { return caption_; }
        bool canPaste() const override { return true; }
        const std::string& cancelCaption() const override { return caption_; }
        void pressOk() override { pressed = "ok"; }
        void pressCancel() override { pressed = "cancel"; }
        bool visible() const override { return pressed.empty(); }
        std::string pressed;

      private:
        std::string caption_ = "Paste into Revenue";
        std::string summary_ = "2 figures.";
        std::vector<std::string> heads_;
        std::vector<PasteLine> lines_;
        std::vector<PasteSwitch> switches_;
    };
    VirtualDesktop desktop;
    for (const bool yes : {false, true}) {
        Form form;
        if (yes)
            desktop.answerNext(MessageAnswer::yes);
        desktop.Services::showPaste(form);
        EXPECT_EQ(form.pressed, yes ? "ok" : "cancel");
    }
    EXPECT_EQ(desktop.messages().front().text, "Paste into Revenue\r\r2 figures.");
}

} // namespace
} // namespace vkr
