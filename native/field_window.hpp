// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"
#include "native/native_text.hpp"
#include "platform/field_face.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// The text of a native window.
struct WideTexts {
    using Text = std::wstring;

    static std::string utf8(std::wstring_view text) { return fromWide(text); }
    static std::wstring_view first(std::wstring_view text, int units) {
        return text.substr(0, static_cast<std::size_t>(units));
    }
    static std::wstring_view from(std::wstring_view text, int unit) {
        return text.substr(static_cast<std::size_t>(unit));
    }
    static int unitsOf(std::wstring_view text, int characters) {
        return vkr::unitsOf(text, characters);
    }
    static int charactersOf(std::wstring_view text, int units) {
        return vkr::charactersOf(text, units);
    }
};

// What text boxes and lists have in common.
class FieldWindow : public FieldFace<ControlWindow, WideTexts> {
  public:
    void show(Property property) override;
    bool typeCharacter(char32_t character) override;
    bool edit(const MSG& key, int shift) override;
    void focusGained() override;
    void focusLost() override;
    void pressEnded() override { firstPress_.reset(); }
    void showAll() override;
    void paintUnder(HDC context, const RECT& area) const override;
    void paintOver(HDC context, const RECT& area) const override;
    std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam) override;

    [[nodiscard]] bool canUndo() const;
    void undo();
    [[nodiscard]] std::wstring text() const override;

  protected:
    using FieldFace::FieldFace;

    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;
    void press(const Pointer& pointer) override;
    void drag(const Pointer& pointer) override;
    void releaseButton(const Pointer& pointer) override;
    void doubleClick(const Pointer& pointer) override;

    [[nodiscard]] virtual const Part& editPart() const { return mainPart(); }
    [[nodiscard]] virtual bool hasLines() const { return false; }
    void select(UnitRange range) override;
    [[nodiscard]] UnitRange selection() const override;
    void setText(const std::wstring& text) override;
    void replaceText(const std::wstring& text) override;
    void putBack(const std::wstring& text) override { setText(text); } // else another undo has it
    void stepBack() override { send(EM_UNDO); }
    void showText() override;
    [[nodiscard]] std::wstring nativeText(std::string_view text) const override;
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return pass(editPart(), message, wParam, lParam);
    }
    void paintMark() const;
    void showColors() override;
    void showEnabled() override;

  private:
    void showLocked();
    void showMark();
    void showEdit();
    void showSelection();
    [[nodiscard]] bool hasSigns() const;
    std::optional<LRESULT> handleFrame(const Part& part, UINT message, WPARAM wParam,
                                       LPARAM lParam);
    void centerText(RECT& client) const;
    void paintAround() const;
    void redrawWhole();
    void paste();
    enum class Side { before, behind }; // of the caret
    void deleteWord(Side side);
    bool deletePair(Side side);
    void leavePairs(UnitRange before);

    struct Press {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };
    std::optional<Press> firstPress_;
};

} // namespace vkr
