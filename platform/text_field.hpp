// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"
#include "platform/field_state.hpp"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// Where the figure that a field stands for comes from.
struct FieldOrigin {
    std::string text;    // what people are told, such as "imported from 0000320193-25-000079"
    bool marked = false; // shown as a small corner, too

    friend bool operator==(const FieldOrigin&, const FieldOrigin&) = default;
};

// What text boxes and editable lists have in common: a text with a selection, counted in
// characters. A locked field can be read and selected, and no user action changes it.
//
// What may be true together: the selection lies within the text; a text to take back is there only
// since the user has changed it.
class TextField : public Control {
  public:
    [[nodiscard]] const std::string& text() const { return text_; }
    // By the program: the caret goes to the start, the field's undo begins anew, and the entry too.
    void setText(std::string_view text);
    // What was typed, written in another way: like setText, and Escape goes back beyond it.
    void rewriteText(std::string_view text);
    // On the user's behalf (a menu command, a key that takes a sign off): undoable in one step.
    // Refused (false) while the field is locked.
    bool editText(std::string_view text, int selectionStart);

    [[nodiscard]] int selStart() const { return selStart_; }
    [[nodiscard]] int selLength() const { return selLength_; }
    [[nodiscard]] std::string_view selText() const;
    void select(int start, int length); // cut to what is there

    [[nodiscard]] bool locked() const { return locked_; }
    void setLocked(bool locked) { assign(locked_, locked, Property::locked); }
    // Longest text that can be typed, in characters; 0 is no limit.
    [[nodiscard]] int maxLength() const { return maxLength_; }
    void setMaxLength(int length) { maxLength_ = length; }
    [[nodiscard]] bool isFull() const; // no character more can be typed
    // Letters that the user puts in become capitals.
    [[nodiscard]] bool capitals() const { return capitals_; }
    void setCapitals(bool capitals) { capitals_ = capitals; }

    // What the field takes of a text that came of an edit in it: what was put in, as much as there
    // is room for; nothing at all is no edit. `caret` is the place behind what was put in. Undo
    // brings back what was there, also beyond the longest text.
    struct Edit {
        std::string text;
        int caret = 0;
    };
    [[nodiscard]] Edit taken(std::string_view edited, int caret) const;

    // What the field showed when it was entered. Escape brings it back.
    [[nodiscard]] const std::string& entryText() const { return entryText_ ? *entryText_ : text_; }
    // Undo does not go back beyond this, nor does that of the native field, except to a text that
    // is not stored.
    void beginEntry();
    [[nodiscard]] bool canTakeBack() const { return !locked_ && text_ != entryText(); }

    // What the text on show is to the record; the tag is the text that was shown or looked at last.
    [[nodiscard]] const std::string& tag() const override { return state_.accepted(); }
    void setTag(std::string_view tag) override { state_.accept(tag); }
    [[nodiscard]] const FieldState& state() const { return state_; }
    [[nodiscard]] bool isTyped() const { return state_.isTyped(text_); }
    [[nodiscard]] bool standsForStored() const { return state_.standsForStored(text_); }
    // See FieldState for what each of these makes of it.
    void showStored(std::string_view text); // puts the text there, too
    void acceptText() { state_.accept(text_); }
    void lookAtText();
    void holdAsTyped() { state_.holdAsTyped(); }
    void replaceStored();
    void putBackRefused(std::string_view text, const FieldMark& mark); // what is on show is stored
    // The accepted text is back in place of what was typed.
    void takeTypedBack();
    template <typename Rewritten>
    void rewriteState(const Rewritten& rewritten) {
        state_.rewrite(rewritten);
    }

    // A doubt goes with the next edit by the user; any other mark with what puts things right.
    [[nodiscard]] const FieldMark& mark() const { return state_.mark(); }
    void setMark(const FieldMark& mark);
    // Whether the record does not hold the text on show.
    [[nodiscard]] bool isUnstored() const { return state_.isUnstored(); }
    [[nodiscard]] bool isDoubtful() const { return state_.isDoubtful(); }
    void settleDoubt(); // the user has seen it
    // What there is to say of the figure that the field stands for, by whoever looks it over; empty
    // for nothing. It stays until that is told anew, whatever is typed.
    [[nodiscard]] const std::string& remark() const { return told().remark; }
    void setRemark(std::string_view text) { tell(&Told::remark, text); }
    // What a face shows: the mark, and where there is none the remark, as a quiet one.
    [[nodiscard]] MarkKind shownMark() const {
        return mark().kind != MarkKind::none || remark().empty() ? mark().kind : MarkKind::quiet;
    }
    [[nodiscard]] const std::string& shownReason() const {
        return mark().kind != MarkKind::none ? mark().reason : remark();
    }
    // Like a remark it stays until it is told anew; without a text nothing is known.
    [[nodiscard]] const FieldOrigin& origin() const { return told().origin; }
    void setOrigin(const FieldOrigin& origin) { tell(&Told::origin, origin); }
    // All that there is to say of the figure: the reason of the mark, and below it the origin.
    [[nodiscard]] std::string description() const {
        const std::string& reason = shownReason();
        return reason + (reason.empty() || origin().text.empty() ? "" : "\n") + origin().text;
    }

  protected:
    using Control::Control;

  private:
    friend class Form;
    void takeUserEdit(std::string_view text, int start, int length);
    virtual void textChanged() {}
    template <typename Change>
    void changeState(const Change& change);
    void showText(std::string_view text);
    void putSelection(int start, int length); // cut to what is there
    void checkInvariants() const;
    void keepEntry();
    bool putEdit(std::string_view text); // whether it is another text

    // Few fields have any of it.
    struct Told {
        std::string remark;
        FieldOrigin origin;
    };
    [[nodiscard]] const Told& told() const;
    template <typename Part, typename Value>
    void tell(Part Told::*part, const Value& value) {
        if (told().*part == value)
            return;
        if (told_ == nullptr)
            told_ = std::make_unique<Told>();
        (*told_).*part = value;
        notify(Property::mark);
    }

    std::string text_;
    std::unique_ptr<const std::string> entryText_; // null: nothing was edited
    FieldState state_;
    std::unique_ptr<Told> told_;
    int selStart_ = 0;
    int selLength_ = 0;
    int maxLength_ = 0;
    bool capitals_ = false;
    bool locked_ = false;
};

// The text field that a control is; null for every other kind, and for null.
[[nodiscard]] inline TextField* textFieldOf(Control* control) {
    return control != nullptr && control->isField() ? static_cast<TextField*>(control) : nullptr;
}
[[nodiscard]] inline const TextField* textFieldOf(const Control* control) {
    return control != nullptr && control->isField() ? static_cast<const TextField*>(control)
                                                    : nullptr;
}

class TextBox : public TextField {
  public:
    TextBox(ControlSite& site, std::string_view name, int index, Frame* container)
        : TextField(ControlKind::textBox, site, name, index, container) {}

    [[nodiscard]] bool multiLine() const { return multiLine_; }
    void setMultiLine(bool multiLine) { assign(multiLine_, multiLine, Property::look); }
    [[nodiscard]] Alignment alignment() const { return alignment_; }
    void setAlignment(Alignment alignment) { assign(alignment_, alignment, Property::look); }
    // One of several cells that are selected together: shown in the desktop's colours of a
    // selection in place of its own.
    [[nodiscard]] bool highlighted() const { return highlighted_; }
    void setHighlighted(bool highlighted) { assign(highlighted_, highlighted, Property::colors); }

  private:
    bool multiLine_ = false;
    bool highlighted_ = false;
    Alignment alignment_ = Alignment::left;
};

// An editable drop-down list. The chosen entry is the one whose text stands in the field; none is
// chosen only where that is none of them.
class ComboBox : public TextField {
  public:
    ComboBox(ControlSite& site, std::string_view name, int index, Frame* container)
        : TextField(ControlKind::comboBox, site, name, index, container) {}

    [[nodiscard]] const std::vector<std::string>& list() const { return list_; }
    void clearList(); // the text stays
    void addItem(std::string_view item);
    void setList(std::vector<std::string> list);
    [[nodiscard]] int listIndex() const { return listIndex_; } // -1: none of the entries
    void setListIndex(int index);                              // -1 empties the text

  private:
    friend class Form;
    void textChanged() override { findText(); }
    void findText();

    std::vector<std::string> list_;
    int listIndex_ = -1;
};

} // namespace vkr
