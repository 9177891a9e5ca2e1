// SPDX-License-Identifier: MIT
#pragma once

#include "platform/during.hpp"
#include "platform/form.hpp"
#include "platform/native_edits.hpp"
#include "platform/text.hpp"

#include <cassert>
#include <string_view>
#include <utility>

namespace vkr {

// A selection of a native text, in its own units.
struct UnitRange {
    int start = 0;
    int length = 0;

    [[nodiscard]] int end() const { return start + length; }
    friend bool operator==(const UnitRange&, const UnitRange&) = default;
};

// What text boxes and lists of a face have in common. The native field edits by itself; whatever
// came of it, by key, input method, pointer, drop, undo or another program, is offered to the form,
// and a locked field gets the text of its model back.
//
// `View` is the face's side of any control. `Texts` knows the native text: its type `Text`, utf8(),
// first() and from() a unit, unitsOf() and charactersOf().
//
// At any time shown_, the native field and the model have the same text, but for two moments: while
// the native field edits, until the form has heard of it, and while the field must wait. A face
// that has lost its control tells the form nothing.
template <typename View, typename Texts>
class FieldFace : public View {
  public:
    using Text = typename Texts::Text;

    void catchUp() override { nativeChanged(); }

  protected:
    using View::View;

    // What the native field answers, and does.
    [[nodiscard]] virtual Text text() const = 0;
    virtual void setText(const Text& text) = 0;     // the undo starts anew
    virtual void replaceText(const Text& text) = 0; // one step of the undo
    virtual void putBack(const Text& text) = 0;     // what was changed is not to be had again
    [[nodiscard]] virtual UnitRange selection() const = 0;
    virtual void select(UnitRange range) = 0;
    virtual void stepBack() = 0;
    [[nodiscard]] virtual Text nativeText(std::string_view text) const = 0;
    virtual void showText() = 0; // the model's
    // Its text has changed without the model; true when that was no edit.
    virtual bool choseEntry() { return false; }
    // It must not be touched now; it gets its text once the events are through.
    [[nodiscard]] virtual bool mustWait() const { return false; }

    // To be told when its text has changed, by whatever.
    void nativeChanged() {
        if (this->showing_ == 0 && !this->passing() && this->control() != nullptr)
            takeEdit();
    }

    // Compares with the model, and tells the form.
    void takeEdit() {
        if (this->control() == nullptr)
            return;
        const Text now = text();
        if (now == shown_) {
            if (const auto range = selection(); range != modelSelection())
                tellSelection(now, range);
        } else if (field().locked()) {
            showText();
        } else if (!choseEntry()) {
            offer(now);
        }
        assert(this->control() == nullptr || mustWait() || shown_ == text());
    }

    [[nodiscard]] UnitRange modelSelection() const {
        const TextField& model = field();
        if (model.selStart() == 0 && model.selLength() == 0)
            return {};
        const auto units = [&](int characters) {
            return static_cast<int>(nativeText(textLeft(model.text(), characters)).size());
        };
        const int start = units(model.selStart());
        return {start, units(model.selStart() + model.selLength()) - start};
    }
    [[nodiscard]] TextField& field() const { return static_cast<TextField&>(*this->control()); }

    int undoing_ = 0; // what comes back was there before
    Text shown_;

  private:
    void offer(Text now) {
        const auto taken =
            offeredEdit(field(), Texts::utf8(now),
                        Texts::utf8(Texts::first(now, selection().end())), undoing_ > 0);
        if (Text wanted = nativeText(taken.text); wanted != now) {
            const Nested nested(this->showing_);
            if (mustWait()) {
                showText();
            } else {
                stepBack();
                if (pastedAnew(now))
                    return;
                if (text() != wanted)
                    replaceText(wanted);
                select({Texts::unitsOf(wanted, taken.caret), 0});
            }
            now = std::move(wanted);
        }
        shown_ = std::move(now);
        const auto [start, length] = charactersOf(shown_, selection());
        if (!this->form().userEdit(field(), taken.text, start, length) &&
            this->control() != nullptr)
            showText();
    }

    // Where something else than a key has pasted, which is taken back by now: the form puts it in,
    // as it does after the key. False for what is no paste.
    bool pastedAnew(const Text& edited) {
        if (undoing_ > 0 || this->passing() || text() != shown_)
            return false;
        const auto range = selection();
        const auto now = Texts::utf8(edited);
        const auto pasted = putBetween(Texts::utf8(Texts::first(shown_, range.start)),
                                       Texts::utf8(Texts::from(shown_, range.end())), now);
        if (!pasted)
            return false;
        tellSelection(shown_, range);
        if (!this->form().userPaste(field(), *pasted) && this->control() != nullptr)
            putBack(shown_);
        return true;
    }

    void tellSelection(const Text& shown, UnitRange range) {
        const auto [start, length] = charactersOf(shown, range);
        this->form().userSelect(field(), start, length);
    }

    [[nodiscard]] static std::pair<int, int> charactersOf(const Text& text, UnitRange range) {
        const int start = Texts::charactersOf(text, range.start);
        return {start, Texts::charactersOf(text, range.end()) - start};
    }
};

} // namespace vkr
