// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// A selection in UTF-16 units.
struct UnitRange {
    int start = 0;
    int length = 0;

    friend bool operator==(const UnitRange&, const UnitRange&) = default;
};

// What text boxes and lists have in common. The native edit control edits by itself; whatever came
// of it, by key, input method, pointer, undo or a message of another program, is offered to the
// form, and a locked field gets the text of its model back.
class FieldWindow : public ControlWindow {
  public:
    void show(Property property) override;
    bool typeCharacter(char32_t character) override;
    bool edit(const MSG& key, int shift) override;
    void focusGained() override;
    void focusLost() override;
    void catchUp() override;
    void pressEnded() override { firstPress_.reset(); }
    void showAll() override;
    void paintUnder(HDC context, const RECT& area) const override;
    void paintOver(HDC context, const RECT& area) const override;
    std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam) override;

    [[nodiscard]] bool canUndo() const;
    void undo();
    [[nodiscard]] std::wstring text() const;

  protected:
    using ControlWindow::ControlWindow;

    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;
    void press(const Pointer& pointer) override;
    void drag(const Pointer& pointer) override;
    void releaseButton(const Pointer& pointer) override;
    void doubleClick(const Pointer& pointer) override;

    [[nodiscard]] virtual const Part& editPart() const { return mainPart(); }
    [[nodiscard]] virtual bool hasLines() const { return false; }
    // The window's text has changed without the model; true when that was no edit.
    virtual bool choseEntry() { return false; }

    void takeEdit(); // compares with the model, and tells the form
    void windowChanged();
    void select(UnitRange range);
    [[nodiscard]] UnitRange selection() const;
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return pass(editPart(), message, wParam, lParam);
    }
    void paintMark() const;
    void showColors() override;
    void showEnabled() override;
    [[nodiscard]] TextField& field() const { return static_cast<TextField&>(*control()); }

  private:
    [[nodiscard]] std::wstring nativeText(std::string_view text) const;
    [[nodiscard]] UnitRange modelSelection() const;
    void setText(const std::wstring& text);     // the undo starts anew
    void replaceText(const std::wstring& text); // one step of the undo
    void showLocked();
    void showMark();
    void showText();
    void showEdit();
    void showSelection();
    [[nodiscard]] bool hasSigns() const;
    std::optional<LRESULT> handleFrame(const Part& part, UINT message, WPARAM wParam,
                                       LPARAM lParam);
    void centerText(RECT& client) const;
    void paintAround() const;
    void redrawWhole();
    bool pastedAnew(const std::wstring& edited);
    void paste();
    void deleteWord(bool before);
    bool deletePair(bool before);
    void leavePairs(UnitRange before);
    void tellSelection(const std::wstring& text, UnitRange range);

    struct Press {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };
    int undoing_ = 0;    // what comes back was there before
    std::wstring shown_; // the window's text as the model knows it
    std::optional<Press> firstPress_;
};

} // namespace vkr
