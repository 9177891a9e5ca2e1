// SPDX-License-Identifier: MIT
#pragma once

#include "platform/key_codes.hpp"
#include "platform/number_marks.hpp"
#include "platform/text_field.hpp"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vkr {

struct Stroke;
class NativeEditor;

// What a form does when the user acts; the component implements it. The order in which the calls
// come is the form's: mouse down (buttons) or after the focus has moved (fields), key down, key
// press, change, focus lost, focus gained, click, double-click. What a handler throws ends there.
class FormHandler {
  public:
    virtual ~FormHandler() = default;

    virtual void onGotFocus(Control& /*control*/) {}
    virtual void onLostFocus(Control& /*control*/) {}
    // Setting the key to keys::none uses it up: no key press, no edit, no move follows.
    virtual void onKeyDown(Control& /*control*/, KeyCode& /*key*/, int /*shift*/) {}
    // A key with Ctrl or Alt, or Escape, that it takes at this control, before a shortcut of the
    // host does.
    [[nodiscard]] virtual bool wantsKey(const Control& /*control*/, KeyCode /*key*/,
                                        int /*shift*/) const {
        return false;
    }
    virtual void onKeyPress(Control& /*control*/, char32_t& /*character*/) {}
    virtual void onKeyUp(Control& /*control*/, KeyCode /*key*/, int /*shift*/) {}
    // A text is about to be pasted or dropped, as the clipboard has it. False refuses it.
    virtual bool onPaste(TextField& /*field*/, std::string_view /*text*/) { return true; }
    // The end of a pasted text for which the field had no room.
    virtual void onPasteCut(TextField& /*field*/, std::string_view /*leftOut*/) {}
    virtual void onChange(TextField& /*field*/) {} // the user changed the text
    // `tab` is the one under the pointer, of a tab strip; else 0.
    virtual void onMouseDown(Control& /*control*/, MouseButton /*button*/, int /*tab*/) {}
    // Whether a press on a control leaves the focus where it is, as on what is selected together
    // with the control that has it.
    [[nodiscard]] virtual bool keepsFocus(const Control& /*control*/,
                                          MouseButton /*button*/) const {
        return false;
    }
    // The press that began on one control is dragged over another one, or back over the first.
    // True where that selects controls, and no text in the first.
    virtual bool onDrag(Control& /*pressed*/, Control& /*over*/) { return false; }
    virtual void onPressEnded(Control& /*control*/) {} // after click, or when given up
    virtual void onClick(Control& /*control*/) {}      // button, option, check box, label
    virtual void onDoubleClick(Control& /*control*/) {}
    virtual void onListChoice(ComboBox& /*list*/) {}
    virtual void onScroll(ScrollBar& /*bar*/) {}
    // A turn of the wheel that no control uses, in steps (down is positive, fractions come as 0).
    // False: not used.
    virtual bool onWheel(int /*steps*/) { return false; }
    virtual void onSpin(Spinner& /*spinner*/, int /*steps*/) {} // +1 up, -1 down
    virtual void onTabSelected(TabStrip& /*strip*/) {}
    virtual void onFormClick() {} // on the form's own surface
    virtual void onFocusLeft() {} // the focus left the form
};

enum class FocusDirection { forward, backward };

// An adapter's ear: told after a model has changed.
class FormObserver {
  public:
    virtual ~FormObserver() = default;

    virtual void controlAdded(Control& /*control*/) {}
    virtual void controlRemoved(Control& /*control*/) {} // still whole, gone after the call
    virtual void controlChanged(Control& /*control*/, Property /*property*/) {}
    virtual void focusChanged() {} // activeControl() is the one that has the focus now
    virtual void noteOver() {}     // what Services::tellRefused has put up goes away
    virtual void formChanged() {}  // size, colours, border, pointer of the form itself
    // Tab at the end of the tab order: true where the focus has gone on to a control beside the
    // form. It wraps otherwise.
    virtual bool takesTab(FocusDirection /*direction*/) { return false; }
};

enum class BorderStyle { none = 0, fixedSingle = 1 };

// A form: its controls, its focus, and the one input pipeline that every adapter feeds. At any time
//
//   what has changed waits to be told only while an update is under way;
//   the active control, where there is one, is one that the form has;
//   the tab order has each of the form's controls once;
//   one leave event is under way at most, and the control that is left is active until then;
//   keystrokes that handlers have sent wait only while a stroke is under way;
//   between two strokes no key is pressed. Whether one is held is told of the last one.
class Form final : private ControlSite {
  public:
    Form();
    ~Form() override;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    void setHandler(FormHandler* handler) { handler_ = handler; }
    void setObserver(FormObserver* observer) { observer_ = observer; }
    [[nodiscard]] FormObserver* observer() const { return observer_; }

    // --- controls -------------------------------------------------------------------------
    // A new control comes last in tab order and in front of the others. A name and index that
    // exist already throw std::invalid_argument.
    template <typename Kind>
    Kind& add(std::string_view name, int index = Control::noIndex, Frame* container = nullptr) {
        ControlSite& site = *this;
        auto control = std::make_unique<Kind>(site, name, index, container);
        Kind& added = *control;
        adopt(std::move(control));
        return added;
    }
    // With all that it holds. The focus leaves it first, without a leave event.
    void remove(Control& control);

    [[nodiscard]] const std::vector<std::unique_ptr<Control>>& controls() const {
        return controls_;
    }
    [[nodiscard]] Control* find(std::string_view name, int index = Control::noIndex) const;
    // The control of that name; throws std::out_of_range when there is none or of another kind.
    template <typename Kind>
    [[nodiscard]] Kind& get(std::string_view name, int index = Control::noIndex) const {
        auto* control = dynamic_cast<Kind*>(find(name, index));
        if (control == nullptr)
            fail(name, index);
        return *control;
    }
    // The controls of a name by index; empty where there is none.
    [[nodiscard]] const std::map<int, Control*>& elements(std::string_view name) const;
    // Highest and lowest index of a control array; -1 and 0 where it has no element.
    [[nodiscard]] int upperBound(std::string_view name) const;
    [[nodiscard]] int lowerBound(std::string_view name) const;

    // Changes of models that belong together: observers are told once a control and property, when
    // the outermost scope ends, and of the focus after them: it may have gone to a control that
    // could not take it before.
    class Update {
      public:
        explicit Update(Form& form) : form_(form) { ++form_.updates_; }
        ~Update() { form_.endUpdate(); }
        Update(const Update&) = delete;
        Update& operator=(const Update&) = delete;

      private:
        Form& form_;
    };

    // --- looks ----------------------------------------------------------------------------
    [[nodiscard]] Twips width() const { return width_; }
    [[nodiscard]] Twips height() const { return height_; }
    void setSize(Twips width, Twips height);
    [[nodiscard]] Color backColor() const { return backColor_; }
    void setBackColor(Color color);
    [[nodiscard]] BorderStyle borderStyle() const { return borderStyle_; }
    void setBorderStyle(BorderStyle style);
    [[nodiscard]] const Picture& mouseIcon() const { return mouseIcon_; }
    void setMouseIcon(const Picture& icon);

    // How figures are written in its fields. Another decimal mark than point and comma is the
    // point; a grouping that is the decimal mark too gives way to the other of the two. What is on
    // show stays as it is.
    [[nodiscard]] const NumberMarks& numberMarks() const { return numberMarks_; }
    void setNumberMarks(NumberMarks marks);

    // --- focus ----------------------------------------------------------------------------
    // The control that has the focus, or had it when the focus left the form.
    [[nodiscard]] Control* activeControl() const { return active_; }
    [[nodiscard]] bool hasFocus() const { return focused_; }
    // By program or by the user: leave event of the old control, enter event of the new one.
    // A control that can't take the focus leaves everything as it is (false).
    // A leave handler that sends the focus elsewhere, or back to its own control, has the last word
    // (false); back to its own control is a leave event and an enter event.
    bool focus(Control& control) override;
    // The next control in tab order. At the end it starts again, or stays put and answers false, so
    // that the focus can go on to the host's next control.
    enum class AtEnd { startAgain, stay };
    bool moveFocus(FocusDirection direction, AtEnd atEnd = AtEnd::startAgain);
    // The first control in tab order (the last one going backward), when the focus enters.
    bool enterFocus(FocusDirection direction);
    // Once the control that has the focus can't take it any more (hidden, disabled, removed): the
    // focus goes on to the next one that can.
    void settleFocus();
    [[nodiscard]] const std::vector<Control*>& tabOrder() const { return tabOrder_; }

    // --- native focus, for adapters -----------------------------------------------------------
    // The control whose native one is to have the keys, now and after focusChanged(); null: the
    // form's own surface, where no control can take them, or the form does not have the focus.
    [[nodiscard]] Control* keyTarget() const;
    // Native focus has come by itself: to a control or to the form's surface (null), from the
    // host's control beside the form by Tab or Shift+Tab, or some other way.
    void focusCame(Control* control, std::optional<FocusDirection> tabbed = std::nullopt);

    // --- input, for adapters: what the user did --------------------------------------------
    // The focus went to a control of the host: the active control is left. Not to be called
    // when another window, a message box, a menu or a list takes the focus for a while.
    void focusLeft();
    // A key is pressed: key down, key press, the native control's own editing, keystrokes that
    // handlers have sent. False: neither form nor control has a use for it, it is the host's.
    bool stroke(const Stroke& stroke, NativeEditor& editor);
    // Whether a key is the component's before it is a shortcut of the host.
    [[nodiscard]] bool uses(const Stroke& stroke) const;
    // What an input method has composed passes the same filter as keys, character by character.
    void commit(std::u32string_view text, NativeEditor& editor);
    // The parts of a stroke.
    // Key down at the active control: mnemonics, the handler, tabbing, keys of buttons, options
    // and lists. False when the key is used up; else key press and the field's own editing follow.
    // Function keys and the Menu key act once, however long they are held.
    // Escape brings back what an edited field showed on entry; in any other it is not used.
    bool keyDown(KeyCode key, int shift, KeyDown press = KeyDown::first);
    // The character may be replaced by the handler. False when it is swallowed, or has no room.
    bool keyPress(char32_t& character);
    void keyUp(KeyCode key, int shift);
    // Ends one key stroke: keystrokes that handlers have sent are carried out now.
    void keyDone();
    // The key whose press is under way, keys::none between two of them.
    [[nodiscard]] KeyCode pressedKey() const { return pressedKey_; }
    // The key of the last key down is one that is held.
    [[nodiscard]] bool isKeyHeld() const { return keyHeld_; }
    // The field's own editing changed text and selection. False while it is locked: the adapter
    // takes the model's text back.
    bool userEdit(TextField& field, std::string_view text, int selStart, int selLength);
    void userSelect(TextField& field, int start, int length);
    // A pasted or dropped text takes the place of the selection, as much of it as the field takes.
    // False where nothing of it is taken.
    bool userPaste(TextField& field, std::string_view text);
    void mouseDown(Control& control, MouseButton button, int tab = 0); // moves the focus
    // The left button is held over another control, or over the first one again; once for each.
    // True where that selects controls: the native one must not select text meanwhile.
    bool userDrag(Control& pressed, Control& over);
    void click(Control& control);        // the press ended on it
    void pressGivenUp(Control& control); // the press ended elsewhere
    void doubleClick(Control& control);
    void surfaceClick();
    void userScroll(ScrollBar& bar, int value);
    void userSpin(Spinner& spinner, int steps);
    bool userPick(ComboBox& list, int index); // false while locked
    bool userTurn(ComboBox& list, int steps); // so many entries on, not beyond the ends; likewise
    bool
    userWheel(int steps); // a turn that no control uses; false where the form has no use for it
    void userSelectTab(TabStrip& strip, int index);
    // Alt and a letter. A letter that a tab and something else share belongs to the tab; of
    // several others the next one in tab order takes the focus and none is pressed.
    // The letter of a label leads to the control that it names, that of a frame to the first
    // control in it where Tab stops.
    bool mnemonic(char32_t letter);
    [[nodiscard]] bool hasMnemonic(char32_t letter) const;
    // Where the letter of a caption leads; null: nowhere, at present.
    [[nodiscard]] Control* mnemonicTarget(const Control& control) const;

    // --- keyboard injection -----------------------------------------------------------------
    // A keystroke that acts as if typed, once the one in progress is through.
    void sendKey(KeyCode key, int shift = shifts::none);

  private:
    [[nodiscard]] Form& form() override { return *this; }
    void tellChanged(Control& control, Property property) override;
    [[nodiscard]] int tabIndexOf(const Control& control) const override;
    void setTabIndex(Control& control, int index) override;
    void takeChoiceFromOthers(const OptionButton& chosen) override;
    void scrolled(ScrollBar& bar) override;
    void tabSelected(TabStrip& strip) override;

    void adopt(std::unique_ptr<Control> control);
    void checkInvariants() const;
    void endNote();
    void tellFocus();
    void endUpdate();
    bool leave();
    bool conduct(const Stroke& stroke, NativeEditor& editor);
    bool type(char32_t character, NativeEditor& editor);
    [[nodiscard]] bool holds(const Control& control) const;
    [[nodiscard]] bool passesOver(const OptionButton& option) const;
    bool builtInKey(Control& control, KeyCode key, int shift);
    bool takeBack(Control& control);
    [[nodiscard]] bool bearsMnemonic(const Control& control, char32_t letter) const;
    void press(Control& control);
    void stepOption(OptionButton& option, int step);
    [[noreturn]] static void fail(std::string_view name, int index);
    [[nodiscard]] FormHandler& handler() const;

    // Names are looked up without being copied.
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const {
            return std::hash<std::string_view>()(name);
        }
    };

    FormHandler* handler_ = nullptr;
    FormObserver* observer_ = nullptr;
    int updates_ = 0;
    std::vector<Control*> changed_; // within an update
    bool focusMoved_ = false;       // the same
    std::vector<std::unique_ptr<Control>> controls_;
    std::unordered_map<std::string, std::map<int, Control*>, NameHash, std::equal_to<>> byName_;
    std::vector<Control*> tabOrder_;
    Control* active_ = nullptr;
    bool focused_ = false;
    bool keyHeld_ = false;
    bool leaving_ = false; // while the leave event of the active control runs
    unsigned focusMoves_ = 0;
    KeyCode pressedKey_ = keys::none;
    std::deque<std::pair<KeyCode, int>> sentKeys_;
    bool sending_ = false;
    Twips width_ = 0;
    Twips height_ = 0;
    Color backColor_ = colors::buttonFace;
    BorderStyle borderStyle_ = BorderStyle::none;
    Picture mouseIcon_;
    NumberMarks numberMarks_;
};

} // namespace vkr
