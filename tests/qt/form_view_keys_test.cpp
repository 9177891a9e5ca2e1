// SPDX-License-Identifier: MIT
#include "desktop/field_view.hpp"
#include "tests/qt/support/form_scene.hpp"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTabBar>

namespace vkr {
namespace {

using FormViewKeys = FormScene;

TEST_F(FormViewKeys, AKeyGoesDownIsPressedEditsAndComesUp) {
    open();
    enter(*name);
    press(Qt::Key_A);
    EXPECT_EQ(handler.take(),
              (Lines{"down txtName 65", "press txtName a", "change txtName a", "up txtName 65"}));
    EXPECT_EQ(line(*name)->text(), "a");
    EXPECT_EQ(name->selStart(), 1);
}

TEST_F(FormViewKeys, AKeyThatIsUsedUpGoingDownIsNoCharacter) {
    open();
    enter(*name);
    handler.keyDown = [](Control&, KeyCode& key, int) { key = keys::none; };
    press(Qt::Key_A);
    EXPECT_EQ(handler.take(), (Lines{"down txtName 65", "up txtName 65"}));
    EXPECT_EQ(line(*name)->text(), "");
}

TEST_F(FormViewKeys, ASwallowedCharacterDoesNotEdit) {
    open();
    enter(*name);
    handler.keyPress = [](Control&, char32_t& character) { character = 0; };
    press(Qt::Key_A);
    EXPECT_EQ(line(*name)->text(), "");
    EXPECT_EQ(name->text(), "");
}

TEST_F(FormViewKeys, ARewrittenCharacterIsTheOneThatEdits) {
    open();
    enter(*name);
    handler.keyPress = [](Control&, char32_t& character) { character = upperCase(character); };
    type("abc");
    EXPECT_EQ(line(*name)->text(), "ABC");
    EXPECT_EQ(name->text(), "ABC");
}

TEST_F(FormViewKeys, EnterBackspaceAndEscAreCharacters) {
    open();
    enter(*name);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Backspace, Qt::Key_Escape}) {
        press(key);
        const auto lines = handler.take();
        ASSERT_EQ(lines.size(), 3U);
        EXPECT_TRUE(lines[1].starts_with("press txtName #")) << lines[1];
    }
}

TEST_F(FormViewKeys, ArrowsDeleteAndShortcutsAreNoCharacters) {
    open();
    enter(*name, "abc");
    struct Row {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* down;
    };
    for (const auto& row :
         {Row{Qt::Key_Left, {}, "down txtName 37"}, Row{Qt::Key_Delete, {}, "down txtName 46"},
          Row{Qt::Key_C, Qt::ControlModifier, "down txtName 67+2"},
          Row{Qt::Key_V, Qt::ControlModifier, "down txtName 86+2"},
          Row{Qt::Key_Backspace, Qt::ControlModifier, "down txtName 8+2"}}) {
        handler.log.clear();
        press(row.key, row.modifiers);
        ASSERT_FALSE(handler.log.empty());
        EXPECT_EQ(handler.log[0], row.down);
        for (const auto& noted : handler.log)
            EXPECT_FALSE(noted.starts_with("press")) << noted;
    }
}

TEST_F(FormViewKeys, ModifiersAloneAreNoKeys) {
    open();
    enter(*name);
    press(Qt::Key_Shift);
    press(Qt::Key_Control);
    EXPECT_EQ(handler.take(), Lines{});
}

TEST_F(FormViewKeys, CaretMovesReachTheModel) {
    open();
    enter(*name, "Apple");
    press(Qt::Key_End);
    EXPECT_EQ(name->selStart(), 5);
    press(Qt::Key_Left, Qt::ShiftModifier);
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(name->selStart(), 3);
    EXPECT_EQ(name->selLength(), 2);
    EXPECT_EQ(name->selText(), "le");
}

TEST_F(FormViewKeys, PositionsAreCountedInCharacters) {
    open();
    enter(*name, "a\xF0\x9F\x8D\x8E"
                 "b");
    press(Qt::Key_End);
    EXPECT_EQ(name->selStart(), 3);
    name->select(2, 1);
    EXPECT_EQ(line(*name)->selectedText(), "b");
    EXPECT_EQ(line(*name)->selectionStart(), 3);
}

TEST_F(FormViewKeys, AKeystrokeThatAHandlerSendsActsWhenTheOneInProgressIsThrough) {
    open();
    enter(*name, "abc");
    handler.keyPress = [this](Control&, char32_t& character) {
        if (character == keys::enter) {
            form.sendKey(keys::tab);
            character = 0;
        }
    };
    press(Qt::Key_Return);
    EXPECT_EQ(form.activeControl(), price);
    EXPECT_EQ(QApplication::focusWidget(), native(*price));
}

TEST_F(FormViewKeys, KeysTypedWithoutAPauseLandInTheRightFields) {
    open();
    enter(*name);
    price->setText("old");
    handler.keyPress = [this](Control& control, char32_t& character) {
        if (character == keys::enter && control.kind() != ControlKind::commandButton) {
            form.sendKey(keys::tab);
            character = 0;
        }
    };
    auto* first = QApplication::focusWidget();
    // All of them are on their way to the first field before the first one is handled.
    for (const QChar character : QStringLiteral("one\rtwo\rNYSE")) {
        const int key =
            character == u'\r' ? int{Qt::Key_Return} : int{character.toUpper().unicode()};
        QApplication::postEvent(first, new QKeyEvent(QEvent::KeyPress, key, {}, character));
        QApplication::postEvent(first, new QKeyEvent(QEvent::KeyRelease, key, {}, character));
    }
    QApplication::processEvents();
    EXPECT_EQ(name->text(), "one");
    EXPECT_EQ(price->text(), "two");
    EXPECT_EQ(exchange->text(), "NYSE");
    EXPECT_EQ(line(*exchange)->text(), "NYSE");
}

TEST_F(FormViewKeys, InputMethodsPassTheFilterCharacterByCharacter) {
    open();
    enter(*name);
    handler.keyPress = [](Control&, char32_t& character) {
        if (character < '0' || character > '9')
            character = 0;
    };
    QInputMethodEvent composing("12", {});
    QApplication::sendEvent(native(*name), &composing);
    EXPECT_EQ(name->text(), "") << "text under composition is no text yet";
    QInputMethodEvent commit;
    commit.setCommitString("1a2b");
    QApplication::sendEvent(native(*name), &commit);
    EXPECT_EQ(name->text(), "12");
    EXPECT_EQ(line(*name)->text(), "12");
}

TEST_F(FormViewKeys, InputMethodsCommitWholeWordsIntoLists) {
    open();
    enter(*exchange);
    QInputMethodEvent commit;
    commit.setCommitString(QString::fromUtf8("\xE6\x9D\xB1\xE4\xBA\xAC"));
    QApplication::sendEvent(native(*exchange), &commit);
    EXPECT_EQ(exchange->text(), "\xE6\x9D\xB1\xE4\xBA\xAC");
}

TEST_F(FormViewKeys, PastedLinesBecomeOneLine) {
    open();
    enter(*name);
    QApplication::clipboard()->setText("a\tb\r\nc\nd\x01"
                                       "e");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "a b c de");
    EXPECT_EQ(line(*name)->text(), "a b c de");
    EXPECT_EQ(handler.take().back(), "up txtName 86");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "") << "one step back";
}

TEST_F(FormViewKeys, PastedLinesStayLinesWhereThereAreSeveral) {
    open();
    enter(*notes);
    QApplication::clipboard()->setText("a\r\nb\x01\tc");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(notes->text(), "a\nb\tc");
}

TEST_F(FormViewKeys, NotesTakeEnterAsALineBreak) {
    open();
    enter(*notes, "a");
    press(Qt::Key_End);
    press(Qt::Key_Return);
    type("b");
    EXPECT_EQ(notes->text(), "a\nb");
    press(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), ok);
}

TEST_F(FormViewKeys, LineBreaksOfOtherSystemsSurviveUntilTheUserEdits) {
    open();
    enter(*notes, "a\r\nb");
    EXPECT_EQ(notes->selLength(), 4);
    EXPECT_EQ(native<QPlainTextEdit>(*notes)->textCursor().selectedText().size(), 3);
    press(Qt::Key_Tab);
    EXPECT_EQ(notes->text(), "a\r\nb");
    EXPECT_EQ(handler.take(),
              (Lines{"down txtNotes 9", "lost txtNotes", "got cmdOK", "up cmdOK 9"}));
}

TEST_F(FormViewKeys, NoMoreIsTypedThanTheLimitAllows) {
    name->setMaxLength(3);
    open();
    enter(*name);
    type("abcd");
    EXPECT_EQ(name->text(), "abc");
}

TEST_F(FormViewKeys, TheLimitCountsCharacters) {
    name->setMaxLength(5);
    open();
    enter(*name, "\u20AC\u00E4\u00F6");
    QApplication::clipboard()->setText(QString::fromUtf8("\U0001F600xyz"));
    press(Qt::Key_End);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "\u20AC\u00E4\u00F6\U0001F600x");
    EXPECT_EQ(line(*name)->text(), toQt(name->text()));
    EXPECT_EQ(name->selStart(), 5);
    type("z");
    EXPECT_EQ(line(*name)->text(), toQt(name->text()));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "\u20AC\u00E4\u00F6");
    EXPECT_EQ(line(*name)->text(), toQt(name->text()));
}

TEST_F(FormViewKeys, WhatIsDroppedOnAFieldOfCapitalsIsInCapitals) {
    name->setCapitals(true);
    open();
    enter(*name, "ab");
    dropText(*line(*name), "xy");
    EXPECT_EQ(line(*name)->text().size(), 4);
    EXPECT_NE(line(*name)->text().indexOf("XY"), -1);
    EXPECT_EQ(toQt(name->text()), line(*name)->text());
}

TEST_F(FormViewKeys, ALimitDoesNotCutTheTextOfTheProgram) {
    name->setMaxLength(3);
    open();
    enter(*name, "abcdef");
    EXPECT_EQ(line(*name)->text(), "abcdef");
    press(Qt::Key_Tab);
    EXPECT_EQ(name->text(), "abcdef");
    EXPECT_EQ(std::count(handler.log.begin(), handler.log.end(), "change txtName abcdef"), 0);
}

TEST_F(FormViewKeys, ATextLongerThanTheWidgetsOwnLimitIsEditedWhole) {
    open();
    enter(*name, std::string(40'000, 'a'));
    press(Qt::Key_End);
    type("b");
    EXPECT_EQ(name->text(), std::string(40'000, 'a') + "b");
}

TEST_F(FormViewKeys, UndoAndRedoReachTheModel) {
    open();
    enter(*name, "old");
    type("new");
    EXPECT_EQ(name->text(), "new");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "old");
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(name->text(), "new");
    EXPECT_EQ(line(*name)->text(), "new");
}

TEST_F(FormViewKeys, AnEditOnTheUsersBehalfIsOneStepOfTheUndo) {
    for (TextField* field : {static_cast<TextField*>(name), static_cast<TextField*>(exchange),
                             static_cast<TextField*>(notes)}) {
        if (!window.isVisible())
            open();
        enter(*field, "abc");
        EXPECT_FALSE(view->fieldView(*field)->canUndo());
        field->editText("one", 3);
        field->editText("two", 3);
        EXPECT_TRUE(view->fieldView(*field)->canUndo());
        view->fieldView(*field)->undo();
        EXPECT_EQ(field->text(), "one") << field->id();
        view->fieldView(*field)->undo();
        EXPECT_EQ(field->text(), "abc") << field->id();
    }
}

TEST_F(FormViewKeys, ATextOfTheProgramBeginsTheUndoAnew) {
    open();
    enter(*name);
    type("abc");
    name->setText("loaded");
    EXPECT_FALSE(view->fieldView(*name)->canUndo());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "loaded");
}

TEST_F(FormViewKeys, AHandlerMayChangeTheTextThatIsBeingTyped) {
    open();
    enter(*name);
    handler.changed = [](TextField& field) {
        if (field.text() == "ab")
            field.editText("xyz", 1);
    };
    type("ab");
    EXPECT_EQ(name->text(), "xyz");
    EXPECT_EQ(line(*name)->text(), "xyz");
    EXPECT_EQ(line(*name)->cursorPosition(), 1);
}

TEST_F(FormViewKeys, AltAndALetterPressTheControlThatCarriesIt) {
    open();
    enter(*name);
    press(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(handler.take(), (Lines{"mouse cmdOK 1", "lost txtName", "got cmdOK", "click cmdOK",
                                     "ended cmdOK", "up cmdOK 79"}));
    press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(handler.take(), (Lines{"tab 2", "up cmdOK 83"}));
}

TEST_F(FormViewKeys, AltAndAnyOtherLetterIsNotTyped) {
    open();
    enter(*name, "");
    press(Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(name->text(), "");
}

TEST_F(FormViewKeys, KeysOfButtonsOptionsChecksAndTabsAreTheForms) {
    open();
    ok->setFocus();
    handler.log.clear();
    press(Qt::Key_Space);
    EXPECT_EQ(handler.take(), (Lines{"down cmdOK 32", "mouse cmdOK 1", "click cmdOK", "ended cmdOK",
                                     "up cmdOK 32"}));
    press(Qt::Key_Return);
    EXPECT_EQ(handler.take()[2], "click cmdOK");
    options[0]->setFocus();
    press(Qt::Key_Right);
    EXPECT_TRUE(options[1]->value());
    EXPECT_TRUE(native<QRadioButton>(*options[1])->isChecked());
    EXPECT_FALSE(native<QRadioButton>(*options[0])->isChecked());
    EXPECT_EQ(QApplication::focusWidget(), native(*options[1]));
    check->setFocus();
    press(Qt::Key_Space);
    EXPECT_TRUE(check->value());
    EXPECT_TRUE(native<QCheckBox>(*check)->isChecked());
    strip->setFocus();
    press(Qt::Key_Right);
    EXPECT_EQ(strip->selected(), 2);
    EXPECT_EQ(native<QTabBar>(*strip)->currentIndex(), 1);
}

TEST_F(FormViewKeys, UpAndDownChooseEntriesOfAList) {
    open();
    enter(*exchange, "AMEX");
    press(Qt::Key_Down);
    EXPECT_EQ(exchange->text(), "NASDAQ");
    EXPECT_EQ(line(*exchange)->text(), "NASDAQ");
    EXPECT_EQ(handler.take(),
              (Lines{"down cmbExchange 40", "choice cmbExchange NASDAQ", "up cmbExchange 40"}));
}

TEST_F(FormViewKeys, AListNeverCompletesWhatIsTyped) {
    open();
    enter(*exchange);
    type("NY");
    EXPECT_EQ(exchange->text(), "NY");
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    EXPECT_EQ(exchange->text(), "NY");
    EXPECT_EQ(native<QComboBox>(*exchange)->count(), 3) << "typed text is no entry";
}

TEST_F(FormViewKeys, UnusedKeysGoOnToTheHost) {
    open();
    enter(*name);
    QDialog dialog;
    dialog.setLayout(new QVBoxLayout);
    window.setParent(&dialog, Qt::Widget);
    dialog.layout()->addWidget(&window);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    name->setFocus();
    QSignalSpy closed(&dialog, &QDialog::finished);
    press(Qt::Key_Return);
    EXPECT_EQ(closed.count(), 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(closed.count(), 1);
    window.setParent(nullptr);
}

TEST_F(FormViewKeys, AKeyThatNobodyUsesIsHeardOnce) {
    auto& page = form.add<Frame>("fraPage");
    page.move(3000, 1000);
    page.resize(2500, 2000);
    auto& inside = form.add<TextBox>("txtInside", Control::noIndex, &page);
    inside.resize(1000, 285);
    open();
    enter(inside);
    press(Qt::Key_F5);
    EXPECT_EQ(handler.take(), (Lines{"down txtInside 116", "up txtInside 116"}));
}

TEST_F(FormViewKeys, AShortcutOfTheHostDoesNotTakeKeysOfTheFields) {
    open();
    auto* shortcut = new QShortcut(QKeySequence(Qt::Key_Delete), &window);
    QSignalSpy taken(shortcut, &QShortcut::activated);
    enter(*name, "abc");
    name->setLocked(true);
    QTest::keyClick(window.windowHandle(), Qt::Key_Delete);
    EXPECT_EQ(taken.count(), 0);
    name->setLocked(false);
    QTest::keyClick(window.windowHandle(), Qt::Key_Delete);
    EXPECT_EQ(taken.count(), 0);
    EXPECT_EQ(name->text(), "");
    before->setReadOnly(true);
    before->setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Delete);
    EXPECT_EQ(taken.count(), 1) << "elsewhere in the window it works";
}

} // namespace
} // namespace vkr
