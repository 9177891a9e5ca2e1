// SPDX-License-Identifier: MIT
#include "platform/form.hpp"
#include "platform/message_box.hpp"
#include "platform/stroke.hpp"
#include "platform/text.hpp"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vkr {
namespace {

using Lines = std::vector<std::string>;

// Writes down what the form and the native control hear, in one list.
class StrokeTest : public testing::Test, protected FormHandler, protected NativeEditor {
  protected:
    StrokeTest() : name(form.add<TextBox>("txtName")), ok(form.add<CommandButton>("cmdOK")) {
        ok.setCaption("&OK");
        form.setHandler(this);
        form.focus(name);
        log.clear();
    }

    void onKeyDown(Control& control, KeyCode& key, int) override {
        log.push_back("down " + control.id());
        if (keyDown)
            keyDown(key);
    }
    void onKeyPress(Control&, char32_t& character) override {
        log.push_back("press");
        if (keyPressed)
            keyPressed(character);
        if (swallows)
            character = 0;
    }
    void onGotFocus(Control& control) override { log.push_back("got " + control.id()); }
    void onClick(Control& control) override { log.push_back("click " + control.id()); }

    void catchUp() override { log.emplace_back("catch up"); }
    bool type(char32_t character) override {
        std::string text;
        appendCharacter(text, character);
        log.push_back("type " + text);
        return takes;
    }
    bool edit() override {
        log.emplace_back("edit");
        return takes;
    }

    [[nodiscard]] static Stroke typing(char32_t character) {
        return {static_cast<KeyCode>(upperCase(character)), shifts::none,
                std::u32string(1, character), character};
    }
    [[nodiscard]] static Stroke key(KeyCode code, int shift = shifts::none) {
        return {code, shift, {}, 0};
    }
    [[nodiscard]] static Stroke with(int shift, char32_t character) {
        return {static_cast<KeyCode>(upperCase(character)), shift, {}, character};
    }

    Form form;
    TextBox& name;
    CommandButton& ok;
    Lines log;
    std::function<void(KeyCode&)> keyDown;
    std::function<void(char32_t)> keyPressed;
    bool swallows = false;
    bool takes = true;
};

TEST_F(StrokeTest, GoesDownIsPressedAndTyped) {
    EXPECT_TRUE(form.stroke(typing(U'a'), *this));
    EXPECT_EQ(log, (Lines{"catch up", "down txtName", "press", "type a"}));
}

TEST_F(StrokeTest, TypesEachCharacterOfAKeyThatHasSeveral) {
    Stroke stroke = typing(U'a');
    stroke.typed = U"ab";
    EXPECT_TRUE(form.stroke(stroke, *this));
    EXPECT_EQ(log, (Lines{"catch up", "down txtName", "press", "type a", "press", "type b"}));
}

TEST_F(StrokeTest, ThatIsSwallowedIsNotTyped) {
    swallows = true;
    EXPECT_TRUE(form.stroke(typing(U'a'), *this));
    EXPECT_EQ(log, (Lines{"catch up", "down txtName", "press"}));
    log.clear();
    keyDown = [](KeyCode& code) { code = keys::none; };
    EXPECT_TRUE(form.stroke(typing(U'a'), *this));
    EXPECT_EQ(log, (Lines{"catch up", "down txtName"}));
}

TEST_F(StrokeTest, OfAModifierAloneIsNone) {
    EXPECT_FALSE(form.stroke(key(keys::none), *this));
    EXPECT_TRUE(log.empty());
}

TEST_F(StrokeTest, WithoutACharacterIsTheNativeControls) {
    takes = false;
    EXPECT_TRUE(form.stroke(key(keys::left), *this)) << "it must not move what is behind the form";
    EXPECT_EQ(log, (Lines{"catch up", "down txtName", "edit"}));
    EXPECT_FALSE(form.stroke(key(keys::f1 + 5), *this));
    takes = true;
    EXPECT_TRUE(form.stroke(key(keys::f1 + 5), *this));
}

TEST_F(StrokeTest, OfEscapeIsTheHostsWhereNobodyUsesIt) {
    Stroke escape = typing(keys::escape);
    EXPECT_TRUE(form.stroke(escape, *this));
    takes = false;
    EXPECT_FALSE(form.stroke(escape, *this));
    EXPECT_TRUE(form.stroke(typing(U'a'), *this)) << "other characters are nobody else's";
}

TEST_F(StrokeTest, CarriesOutWhatHandlersHaveSentAtItsEnd) {
    keyDown = [this](KeyCode&) {
        keyDown = nullptr;
        form.sendKey(keys::tab);
    };
    form.stroke(typing(U'a'), *this);
    EXPECT_EQ(log,
              (Lines{"catch up", "down txtName", "press", "type a", "down txtName", "got cmdOK"}));
    EXPECT_EQ(form.pressedKey(), keys::none);
}

TEST_F(StrokeTest, WithAltIsALetterOfTheFormOrTheHosts) {
    EXPECT_TRUE(form.stroke(with(shifts::alt, U'o'), *this));
    EXPECT_EQ(log, (Lines{"catch up", "got cmdOK", "click cmdOK"}));
    log.clear();
    EXPECT_FALSE(form.stroke(with(shifts::alt, U'x'), *this));
    EXPECT_EQ(log, (Lines{"catch up", "down cmdOK"}));
    ok.setCaption("\u00DC&\u00C4");
    log.clear();
    EXPECT_TRUE(form.stroke(with(shifts::alt, U'\u00E4'), *this));
    EXPECT_EQ(log, (Lines{"catch up", "click cmdOK"}));
}

TEST_F(StrokeTest, WithAltAndAnArrowIsTheNativeControls) {
    EXPECT_TRUE(form.stroke(key(keys::down, shifts::alt), *this));
    EXPECT_EQ(log.back(), "edit");
}

TEST_F(StrokeTest, ComposedTextPassesTheFilterToo) {
    form.commit(U"ab", *this);
    EXPECT_EQ(log, (Lines{"press", "type a", "press", "type b"}));
    swallows = true;
    log.clear();
    form.commit(U"ab", *this);
    EXPECT_EQ(log, (Lines{"press", "press"}));
}

TEST_F(StrokeTest, AKeySentForAComposedCharacterComesBeforeTheNextOne) {
    keyPressed = [this](char32_t character) {
        if (character == U'a')
            form.sendKey(keys::tab);
    };
    form.commit(U"ab", *this);
    EXPECT_EQ(log, (Lines{"press", "type a", "down txtName", "got cmdOK", "press", "type b"}));
}

TEST_F(StrokeTest, IsUsedBeforeItIsAShortcutOfTheHost) {
    const auto command = [](KeyCode code) {
        Stroke stroke = key(code, shifts::control);
        stroke.command = true;
        return stroke;
    };
    const struct {
        Stroke stroke;
        bool inField;
        bool atButton;
    } rows[] = {
        {typing(U'a'), true, false},
        {key(keys::f1), true, true},
        {key(keys::f1 + 4), false, false},
        {key(keys::f4), true, false},
        {key(keys::f10), false, false},
        {key(keys::f10, shifts::shift), true, true},
        {key(keys::menu), true, true},
        {key(keys::tab), true, true},
        {key(keys::tab, shifts::shift), true, true},
        {key(keys::enter), true, true},
        {key(keys::space), true, true},
        {key(keys::up), true, true},
        {key(keys::up, shifts::control), false, false},
        {key(keys::pageUp), true, false},
        {key(keys::pageUp, shifts::control), true, true},
        {key(keys::pageDown, shifts::control), true, true},
        {key(keys::home), true, false},
        {key(keys::del), true, false},
        {key(keys::escape), false, false},
        {command('C'), true, false},
        {key('S', shifts::control), false, false},
        {with(shifts::alt, U'o'), true, true},
        {with(shifts::alt, U'x'), false, false},
        {key(keys::left, shifts::alt), false, false},
        {key(keys::f4, shifts::alt), false, false},
        {key(keys::down, shifts::alt), false, false},
        {with(shifts::control | shifts::alt, U'o'), false, false},
    };
    form.add<CommandButton>("cmdPlain").setCaption("Has no letter");
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.stroke.key) + "+" + std::to_string(row.stroke.shift));
        form.focus(name);
        EXPECT_EQ(form.uses(row.stroke), row.inField);
        form.focus(ok);
        EXPECT_EQ(form.uses(row.stroke), row.atButton);
        Stroke withSystemKey = row.stroke;
        withSystemKey.systemKey = true;
        EXPECT_FALSE(form.uses(withSystemKey));
    }
    form.focus(name);
    form.userEdit(name, "edited", 0, 0);
    EXPECT_TRUE(form.uses(key(keys::escape))) << "it takes the edit back";
    form.focus(form.add<ComboBox>("cmbSource"));
    for (const KeyCode opening : {keys::down, keys::up}) {
        EXPECT_TRUE(form.uses(key(opening, shifts::alt)));
        EXPECT_FALSE(form.uses(key(opening, shifts::alt | shifts::shift)));
    }
    EXPECT_FALSE(form.uses(key(keys::left, shifts::alt)));
}

// --- native focus ------------------------------------------------------------------------------

TEST_F(StrokeTest, TheKeysGoToTheControlThatCanTakeThem) {
    EXPECT_EQ(form.keyTarget(), &name);
    name.setEnabled(false);
    EXPECT_EQ(form.keyTarget(), nullptr);
    name.setEnabled(true);
    form.focusLeft();
    EXPECT_EQ(form.keyTarget(), nullptr);
}

TEST_F(StrokeTest, FocusThatComesByItselfGoesWhereItBelongs) {
    form.focusLeft();
    form.focusCame(&ok, FocusDirection::forward);
    EXPECT_EQ(form.activeControl(), &name) << "Tab enters at the first";
    form.focusLeft();
    form.focusCame(&name, FocusDirection::backward);
    EXPECT_EQ(form.activeControl(), &ok);
    form.focusLeft();
    form.focusCame(&name);
    EXPECT_EQ(form.activeControl(), &name);
    form.focusLeft();
    form.focusCame(nullptr);
    EXPECT_EQ(form.activeControl(), &name) << "where it was";
    form.focusLeft();
    name.setEnabled(false);
    form.focusCame(&name);
    EXPECT_EQ(form.activeControl(), &ok);
    name.setEnabled(true);
    form.focusCame(&name, FocusDirection::backward);
    EXPECT_EQ(form.activeControl(), &name) << "within the form";
    form.focusCame(nullptr);
    EXPECT_EQ(form.activeControl(), &name);
}

// --- message boxes -----------------------------------------------------------------------------

TEST(MessageBoxLooks, SayButtonsIconDefaultAndWhatClosingMeans) {
    using enum MessageAnswer;
    const struct {
        int code;
        std::vector<MessageAnswer> buttons;
        MessageIcon icon;
        MessageAnswer chosen;
        MessageAnswer closed;
    } rows[] = {
        {0, {ok}, MessageIcon::none, ok, ok},
        {1, {ok, cancel}, MessageIcon::none, ok, cancel},
        {3, {yes, no, cancel}, MessageIcon::none, yes, cancel},
        {4, {yes, no}, MessageIcon::none, yes, no},
        {4 + 32, {yes, no}, MessageIcon::question, yes, no},
        {4 + 48 + 256, {yes, no}, MessageIcon::warning, no, no},
        {3 + 512, {yes, no, cancel}, MessageIcon::none, cancel, cancel},
        {0 + 16 + 256, {ok}, MessageIcon::critical, ok, ok},
        {64, {ok}, MessageIcon::information, ok, ok},
    };
    for (const auto& row : rows) {
        const auto look = messageBoxLook(row.code);
        EXPECT_EQ(look.buttons, row.buttons) << row.code;
        EXPECT_EQ(look.icon, row.icon) << row.code;
        EXPECT_EQ(look.chosen, row.chosen) << row.code;
        EXPECT_EQ(look.closed, row.closed) << row.code;
    }
}

// --- texts -------------------------------------------------------------------------------------

TEST(CleanedTexts, KeepALineBreakAtTheEndWhichAPasteDrops) {
    EXPECT_EQ(cleanedText("a\tb\r\nc\n", FieldLines::one), "a b c ");
    EXPECT_EQ(cleanedPaste("a\tb\r\nc\n", FieldLines::one), "a b c");
    EXPECT_EQ(cleanedText("a\tb\r\nc\n", FieldLines::several), "a\tb\nc\n");
    EXPECT_EQ(cleanedText("a\x01\x7F\u0085\u2028z", FieldLines::several), "a\nz");
}

} // namespace
} // namespace vkr
