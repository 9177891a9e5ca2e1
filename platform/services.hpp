// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.hpp"
#include "platform/date.hpp"
#include "platform/object.hpp"
#include "platform/text_field.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// Button codes of message boxes: buttons + icon + which button is the default.
namespace message_box {
inline constexpr int okOnly = 0;
inline constexpr int yesNo = 4;
inline constexpr int questionIcon = 32;
inline constexpr int exclamationIcon = 48;
inline constexpr int defaultSecondButton = 256;
} // namespace message_box

enum class MessageAnswer { ok = 1, cancel = 2, yes = 6, no = 7 };

// A small form with a calendar, OK and Cancel, as an adapter shows it: it draws the form, hands on
// what the user does, and stays until the form is not visible any more.
class CalendarForm {
  public:
    virtual ~CalendarForm() = default;
    [[nodiscard]] virtual const std::string& caption() const = 0;
    // Of the two buttons; may hold a mnemonic.
    [[nodiscard]] virtual const std::string& okCaption() const = 0;
    [[nodiscard]] virtual const std::string& cancelCaption() const = 0;
    // The control it opens for, which it should not hide; null for none.
    [[nodiscard]] virtual const Control* owner() const = 0;
    // The days that can be chosen, both included.
    [[nodiscard]] virtual Date firstDate() const = 0;
    [[nodiscard]] virtual Date lastDate() const = 0;
    // The day that is chosen in the calendar; absent where none is.
    [[nodiscard]] virtual Date calendarDate() const = 0;
    virtual void setCalendarDate(Date date) = 0;
    virtual void pressOk() = 0;     // also a double-click on a day
    virtual void pressCancel() = 0; // also closing the window
    [[nodiscard]] virtual bool visible() const = 0;
};

// What becomes of a cell of a block that is about to be pasted.
enum class PasteFate {
    taken,
    doubtful, // taken, though somebody should look at it
    leftOut,
};

// One cell of the block, all of it as people read it.
struct PasteLine {
    std::string period; // the year or quarter that it goes to; empty where it goes nowhere
    std::string column;
    std::string text;   // as it stands on the clipboard
    std::string before; // the figure that stands there now; empty where there is none
    std::string after;  // the figure that will stand there; empty where that is none
    std::string remark; // how it was read, what is doubtful, why it is left out
    PasteFate fate = PasteFate::taken;
};

// A choice about the block. Without entries it is on (1) or off (0).
struct PasteSwitch {
    std::string caption; // may hold a mnemonic
    std::vector<std::string> entries;
    int chosen = 0;
    bool enabled = true;
};

// The preview of a block that is pasted into a grid, as an adapter shows it: a list of the lines,
// the switches, the summary, and two buttons. Everything but the caption and the number of
// switches changes with a switch. It stays until the form is not visible any more.
class PasteForm {
  public:
    virtual ~PasteForm() = default;
    [[nodiscard]] virtual const std::string& caption() const = 0;
    // Above the six columns of the list: period, column, text, before, after, remark.
    [[nodiscard]] virtual const std::vector<std::string>& heads() const = 0;
    [[nodiscard]] virtual const std::vector<PasteLine>& lines() const = 0;
    [[nodiscard]] virtual const std::vector<PasteSwitch>& switches() const = 0;
    // Places the block anew. Out of range, or a switch that is not enabled: nothing changes.
    virtual void setSwitch(int index, int chosen) = 0;
    // How many figures are taken, left out and doubtful.
    [[nodiscard]] virtual const std::string& summary() const = 0;
    // Says what it does: "Paste 30 Figures".
    [[nodiscard]] virtual const std::string& okCaption() const = 0;
    [[nodiscard]] virtual bool canPaste() const = 0; // OK is enabled
    [[nodiscard]] virtual const std::string& cancelCaption() const = 0;
    virtual void pressOk() = 0;
    virtual void pressCancel() = 0; // also closing the window
    [[nodiscard]] virtual bool visible() const = 0;
};

// Everything the component needs of the desktop it runs on, and of the container it is placed in.
// What a service throws ends at the statement that asked for it.
class Services {
  public:
    virtual ~Services() = default;

    // --- desktop ----------------------------------------------------------------------------
    // Modal. `buttons` is one of the codes above, added up. Lines are parted by "\r".
    virtual MessageAnswer messageBox(const std::string& text, int buttons,
                                     const std::string& title) = 0;
    virtual bool clipboardHasText() = 0;
    virtual std::string clipboardText() = 0;
    // The decimal mark, "." or ",", that the text was written with, where the clipboard says so:
    // spreadsheets name it beside the text, in its HTML.
    virtual std::optional<char> clipboardDecimalMark() { return std::nullopt; }
    virtual void clearClipboard() = 0;
    virtual void setClipboardText(const std::string& text) = 0;
    virtual Date today() = 0; // without a time of day
    virtual Twips screenWidth() = 0;
    // The native colour dialog; nothing when the user gives up.
    virtual std::optional<Color> chooseColor(Color current) = 0;
    // Show the form and answer when it is not visible any more. Modal.
    virtual void showModal(CalendarForm& form) = 0;
    // By itself a message box: the summary, and whether to paste. No is the default.
    virtual void showPaste(PasteForm& form);
    // What was typed or pasted is not taken: the desktop's alert, and a note at the field that says
    // why. The note must not take the focus; FormObserver::noteOver() takes it away.
    virtual void tellRefused(TextField& field, const std::string& note) = 0;
    // The field's own undo.
    virtual bool canUndo(const TextField& field) = 0;
    virtual void undo(TextField& field) = 0;
    virtual void redo(TextField& /*field*/) {} // where the desktop's fields can
    // Width and height that a text takes on one line, in twips.
    virtual Twips textWidth(std::string_view text) = 0;
    virtual Twips textHeight() = 0;
    // Opens the visible entries of a menu array at a place of the form and answers the index of
    // the chosen one, -1 for none.
    virtual int popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) = 0;
    // A new object by its programmatic identifier; null for an unknown one.
    virtual std::shared_ptr<Object> createObject(std::string_view programmaticId) = 0;

    // --- container ----------------------------------------------------------------------------
    // True while the host runs, false at design time. Throws while the flag can't be read yet.
    virtual bool ambientUserMode() = 0;
    // The component's own application title, the caption of its message boxes.
    virtual std::string applicationTitle() = 0;
    virtual void propertyChanged(std::string_view name) = 0;
};

} // namespace vkr
