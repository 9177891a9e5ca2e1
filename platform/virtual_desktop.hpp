// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"
#include "platform/key_codes.hpp"
#include "platform/object_factory.hpp"
#include "platform/services.hpp"
#include "platform/virtual_fields.hpp"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vkr {

// A complete desktop without a display: it answers every service from a script, records what was
// shown, and stands in for the native controls, the keyboard and the mouse. Tests of an embedding
// run on it:
//
//     VirtualDesktop desktop;
//     desktop.factory().add(standardLocalizerId, [] { return std::make_shared<MyLocalizer>(); });
//     VKRDataEntry entry(desktop);
//     desktop.attach(entry.form());
//     desktop.click("txtSales(3)");
//     desktop.type("1500{ENTER}");
//     desktop.answerNext(MessageAnswer::yes);
//     desktop.click("cmdAddYear");
//     EXPECT_EQ(desktop.messages().size(), 1U);
//
// The desktop outlives the form it is attached to. Everything runs on the caller's thread; no call
// waits for anything. A press is under way only on the form that is attached, and on a control that
// it still has, or on none. Nothing can be typed while another window is active.
//
// Wrong use of the desktop itself, such as a click on what nobody could see, throws
// std::logic_error (a malformed key notation its kind std::invalid_argument) with a message that
// says why. Nothing has happened to the form by then.
class VirtualDesktop : public Services, private FormObserver {
  public:
    // The day a new desktop has as today: 15 March 2024.
    static constexpr Date defaultToday{45366};
    // Every character is as wide and as high as every other.
    static constexpr Twips characterWidth = 105;
    static constexpr Twips characterHeight = 195;

    VirtualDesktop() = default;
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;

    // Stands in for the native controls of this form from now on, in place of any form before.
    // The form has no focus yet: click into it, or tabInto().
    void attach(Form& form);
    // The attached form; throws while there is none.
    [[nodiscard]] Form& form() const;

    // --- scripted answers --------------------------------------------------------------------
    // Each call adds one answer to the end of that dialog's queue; every dialog that opens takes
    // the answer in front. With an empty queue message boxes answer their default button (No where
    // the code makes the second of Yes and No the default, else OK or Yes), and every other dialog
    // and menu is closed without a choice.

    // An answer that the box has no button for counts as its default button.
    void answerNext(MessageAnswer answer);
    void answerNextColor(std::optional<Color> color); // nothing: given up
    // A day and OK, or nothing: Cancel. OK on an absent date leaves the dialog open, so that it
    // takes the answer after that one, and is closed where there is none.
    void answerNextDate(std::optional<Date> date);
    void confirmNextDate(); // OK without touching the day on show
    // By caption, with or without its "&", or by the index of the entry. An entry that is not
    // there or disabled can't be chosen: the menu closes, and its record says why.
    void answerNextMenu(std::string_view caption);
    void answerNextMenu(int index);
    void dismissNextMenu(); // closed without a choice
    // What a person does in the next preview of a paste: turns switches, presses a button. One that
    // is still on show afterwards is closed by Cancel.
    void answerNextPaste(std::function<void(PasteForm& form)> answer);
    void acceptNextPaste(); // OK at once
    // Whether every answer given so far has been asked for.
    [[nodiscard]] bool scriptUsedUp() const;

    // --- records, oldest first -----------------------------------------------------------------
    struct MessageBox {
        std::string text;
        int buttons = 0;
        std::string title;
        MessageAnswer answer = MessageAnswer::ok;
    };
    struct ColorDialog {
        Color shown = 0; // the colour it opened with
        std::optional<Color> chosen;
    };
    struct CalendarDialog {
        Date shown; // the day it opened with
        std::string caption;
        std::optional<Date> chosen;
        std::vector<std::string> buttons; // OK and Cancel
    };
    struct PasteDialog {
        std::string caption;
        std::vector<std::string> heads;
        std::vector<PasteLine> lines; // as it opened
        std::vector<PasteSwitch> switches;
        std::string summary;
        std::string okCaption;
    };
    struct MenuEntry {
        std::string caption;
        bool enabled = true;
        std::string tag;
        int index = 0; // of the entry in its control array
    };
    struct Menu {
        std::vector<MenuEntry> entries; // the visible ones
        Twips left = 0;
        Twips top = 0;
        int chosen = -1;     // index of the chosen entry, -1 for none
        std::string refusal; // why the scripted choice could not be made
    };
    struct Refusal {
        std::string field; // its id
        std::string note;
    };
    [[nodiscard]] const std::vector<MessageBox>& messages() const { return messages_; }
    [[nodiscard]] const std::vector<ColorDialog>& colorDialogs() const { return colorDialogs_; }
    [[nodiscard]] const std::vector<CalendarDialog>& calendars() const { return calendars_; }
    [[nodiscard]] const std::vector<PasteDialog>& pastes() const { return pastes_; }
    [[nodiscard]] const std::vector<Menu>& menus() const { return menus_; }
    // What was typed or pasted and not taken; and the note of it that is on show at the moment.
    [[nodiscard]] const std::vector<Refusal>& refusals() const { return refusals_; }
    [[nodiscard]] const std::optional<Refusal>& note() const { return note_; }
    // Names of the property-changed notifications to the container.
    [[nodiscard]] const std::vector<std::string>& propertyChanges() const {
        return propertyChanges_;
    }
    void forget(); // empties the records; scripted answers stay

    // --- surroundings ------------------------------------------------------------------------
    // What the clipboard's text was written with, until another text is put there.
    void setClipboardDecimalMark(char mark) { clipboardDecimalMark_ = mark; }
    void setToday(Date today) { today_ = today; } // its time of day is cut off
    void setScreenWidth(Twips width) { screenWidth_ = width; }
    void setApplicationTitle(std::string_view title) { applicationTitle_ = title; }
    void setUserMode(bool userMode) { userMode_ = userMode; } // true at first
    void makeUserModeUnreadable() { userMode_.reset(); }      // reading it throws
    // Objects that can be created. Removing an identifier makes it missing on this machine.
    [[nodiscard]] ObjectFactory& factory() { return factory_; }

    // --- keyboard ------------------------------------------------------------------------------
    // Types into the control that has the focus, in the send-keys notation:
    //   plain characters   themselves, any UTF-8 text; control characters are malformed
    //   ~                  Enter
    //   + ^ %              Shift, Ctrl, Alt for the key or the (group) that follows: "^c", "+(ab)"
    //   {NAME} {NAME n}    a named key, pressed n times (1 to 1000000): ENTER TAB ESC BACKSPACE BS
    //                      BKSP DELETE DEL INSERT INS HOME END LEFT RIGHT UP DOWN PGUP PGDN MENU
    //                      F1 to F12, DECIMAL (of the keypad); small letters will do
    //   {c} {c n}          a single character, also one that means something else: {+} {{} {}}
    // A malformed notation throws std::invalid_argument before any key is pressed.
    //
    // Each key goes down, is pressed as a character, edits, is followed by what handlers have sent
    // as keystrokes, and comes up. Keys on a US keyboard; Shift, Ctrl and Alt themselves are no
    // key events. Ctrl+A, C, X, V, Z (and Ctrl+Insert, Shift+Insert, Shift+Delete) are shortcuts
    // of the field and no characters. Keys that follow one that took the focus out of the form
    // are lost to it.
    void type(std::string_view notation);
    // The same, each key held down until it has repeated so often.
    void hold(std::string_view notation, int times);
    // Keys that the host has for itself, such as "^s": it gets those that the component does not
    // use, and the form does not hear of them.
    void addHostShortcut(std::string_view notation);
    [[nodiscard]] int hostShortcutsFired() const { return firedShortcuts_; }

    // --- mouse ---------------------------------------------------------------------------------
    // Controls are given by their id, "cmdOK" or "txtSales(3)", or by name and index. One that is
    // unknown, invisible, on a parked page or scrolled out of view throws. A disabled one takes no
    // click: nothing happens. Any click activates the window again after switchAway().
    void press(std::string_view id, int index = Control::noIndex,
               MouseButton button = MouseButton::left);
    // On the control that was pressed a left button clicks; anywhere else the press is given up.
    void release(std::string_view id, int index = Control::noIndex);
    void release();                                                 // where it was pressed
    void dragTo(std::string_view id, int index = Control::noIndex); // the press goes on over it
    void dragAway(); // the press that is under way ends on nothing
    // On a text field: a press that brings the focus leaves the selection to what the form does on
    // entering; one into the field that has the focus already puts the caret behind its text.
    void click(std::string_view id, int index = Control::noIndex);
    void doubleClick(std::string_view id, int index = Control::noIndex);
    void rightClick(std::string_view id, int index = Control::noIndex);
    void clickSurface(); // beside all controls
    // Within the text field that has the focus: a click in front of a character, and dragging over
    // characters.
    void clickAt(int position);
    void dragOver(int start, int length);
    // A tab of the strip on show, 1 to its count.
    void clickTab(int tab);
    void rightClickTab(int tab);
    // Opens the list and chooses an entry; one that the list doesn't have throws. A locked list
    // opens and keeps its text.
    void pick(std::string_view id, std::string_view entry);
    void pick(std::string_view id, int entry); // from 0
    // Drags the thumb to a value (cut to the range), or presses arrows (+1 down or right) or the
    // trough so many times.
    void scroll(std::string_view id, int value);
    void scrollLines(std::string_view id, int lines);
    void scrollPages(std::string_view id, int pages);
    void spin(std::string_view id, int steps); // up for positive steps, down for negative ones

    // --- windows and focus -----------------------------------------------------------------------
    // Another window is activated and this one again: the active field is not left. There is
    // nothing to type into meanwhile.
    void switchAway() { away_ = true; }
    void switchBack() { away_ = false; }
    // The focus goes to a control of the host. False when the form kept it.
    bool leaveForm();
    // The focus comes from a control of the host, with Tab or Shift+Tab.
    void tabInto(FocusDirection direction = FocusDirection::forward);
    // With host controls around it, tabbing past either end leaves the form; without (as at first)
    // it goes round.
    void setHostControls(bool around) { hostControls_ = around; }
    // The id of the control that has the focus; empty when the form does not have it.
    [[nodiscard]] std::string focusedId() const;
    // Presses Tab until the walk comes to a control for the second time or leaves the form. The
    // ids in the order met, beginning where the focus is, or where it enters.
    std::vector<std::string> tabWalk();

    // --- what is on screen ---------------------------------------------------------------------
    // The control of an id, whether it can be seen or not; an unknown one throws.
    [[nodiscard]] Control& control(std::string_view id, int index = Control::noIndex) const;
    // Whether a person can see it and reach it with the mouse.
    [[nodiscard]] bool canReach(std::string_view id, int index = Control::noIndex) const;
    // The visible controls, one a line, containers before their contents, with place, text or
    // caption, and state.
    [[nodiscard]] std::string snapshot() const;

    // --- Services ------------------------------------------------------------------------------
    MessageAnswer messageBox(const std::string& text, int buttons,
                             const std::string& title) override;
    bool clipboardHasText() override { return !clipboard_.empty(); }
    std::string clipboardText() override { return clipboard_; }
    void clearClipboard() override { clipboard_.clear(); }
    void setClipboardText(const std::string& text) override {
        clipboard_ = text;
        clipboardDecimalMark_.reset();
    }
    Date today() override;
    Twips screenWidth() override { return screenWidth_; }
    std::optional<Color> chooseColor(Color current) override;
    void showModal(CalendarForm& form) override;
    std::optional<char> clipboardDecimalMark() override { return clipboardDecimalMark_; }
    void showPaste(PasteForm& form) override;
    void tellRefused(TextField& field, const std::string& note) override;
    // The history of a field: a run of typing, of Backspace or of Delete is one step, as is every
    // other edit and every command on the user's behalf. A text put there by the program empties
    // it. A locked field can't undo.
    bool canUndo(const TextField& field) override;
    void undo(TextField& field) override;
    Twips textWidth(std::string_view text) override;
    Twips textHeight() override { return characterHeight; }
    int popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) override;
    std::shared_ptr<Object> createObject(std::string_view programmaticId) override;
    bool ambientUserMode() override; // throws std::runtime_error once it is unreadable
    std::string applicationTitle() override { return applicationTitle_; }
    void propertyChanged(std::string_view name) override;

  private:
    struct ShownDate {};
    using DateAnswer = std::variant<std::optional<Date>, ShownDate>;
    using MenuAnswer = std::variant<int, std::string>;

    void controlAdded(Control& control) override;
    void controlRemoved(Control& control) override;
    void controlChanged(Control& control, Property property) override;
    void focusChanged() override;
    bool takesTab(FocusDirection direction) override;
    void noteOver() override { note_.reset(); }

    class Editor;

    bool strike(const KeyStroke& pressed, KeyDown press = KeyDown::first);
    [[nodiscard]] std::vector<KeyStroke> strokesOf(std::string_view notation);
    [[nodiscard]] TextField* editedField() const;
    [[nodiscard]] TextField& focusedField() const;

    struct Press {
        MouseButton button;
        Control* control; // null where it takes no click, or has gone meanwhile
    };
    Control& reach(std::string_view id, int index = Control::noIndex);
    template <typename Kind>
    Kind& reachKind(std::string_view id, std::string_view kind);
    void pressControl(Control& control, MouseButton button, int tab = 0);
    [[nodiscard]] Press& pressUnderWay();
    void checkInvariants() const;
    [[nodiscard]] Control* pressed() const { return press_ ? press_->control : nullptr; }
    TabStrip& reachTab(int tab);
    void pickEntry(ComboBox& list, int entry);
    void stepBar(ScrollBar& bar, int steps, int size);
    void describe(std::string& lines, const Frame* container, int depth) const;

    Form* form_ = nullptr;
    VirtualFields fields_{*this};
    std::optional<Press> press_; // that is under way
    bool away_ = false;
    bool hostControls_ = false;
    std::set<std::pair<KeyCode, int>> hostShortcuts_;
    int firedShortcuts_ = 0;

    std::string clipboard_;
    std::optional<char> clipboardDecimalMark_;
    Date today_ = defaultToday;
    Twips screenWidth_ = 28800; // 1920 pixels
    std::string applicationTitle_ = "VKRDataEntry";
    std::optional<bool> userMode_ = true;
    ObjectFactory factory_;

    std::deque<MessageAnswer> messageAnswers_;
    std::deque<std::optional<Color>> colorAnswers_;
    std::deque<DateAnswer> dateAnswers_;
    std::deque<MenuAnswer> menuAnswers_;
    std::deque<std::function<void(PasteForm&)>> pasteAnswers_;
    std::vector<MessageBox> messages_;
    std::vector<ColorDialog> colorDialogs_;
    std::vector<CalendarDialog> calendars_;
    std::vector<PasteDialog> pastes_;
    std::vector<Menu> menus_;
    std::vector<std::string> propertyChanges_;
    std::vector<Refusal> refusals_;
    std::optional<Refusal> note_;
};

} // namespace vkr
