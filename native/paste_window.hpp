// SPDX-License-Identifier: MIT
#pragma once

#include "native/dialog_window.hpp"
#include "native/palette.hpp"
#include "platform/services.hpp"

#include <vector>

namespace vkr {

// The preview of a block in a window of its own: its switches, its figures one below the other, and
// what OK will do.
class PasteWindow final : public DialogWindow {
  public:
    PasteWindow(PasteForm& form, HWND owner, const PixelScale& scale);

    // Of its windows, within it; those of the switches follow the last one.
    static constexpr int linesPart = 100;
    static constexpr int summaryPart = 101;
    static constexpr int firstSwitchPart = 200;

  protected:
    [[nodiscard]] bool isOpen() const override { return form_.visible(); }
    [[nodiscard]] HWND first() const override;
    void accept() override { form_.pressOk(); }
    void cancel() override { form_.pressCancel(); }
    std::optional<LRESULT> handleOwn(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    static constexpr int columns = 6;

    struct Switch {
        HWND window;
        HWND label; // null where the window has its own
    };

    void addSwitches();
    void addList();
    void layOut(SIZE inside);
    void placeSwitches();
    void turn(int index);
    void showForm();
    void showLines();
    [[nodiscard]] std::wstring textOf(int row, int column) const;
    void tellText(NMLVDISPINFOW& wanted) const;
    [[nodiscard]] LRESULT paintLine(NMLVCUSTOMDRAW& drawn) const;
    [[nodiscard]] COLORREF inkOf(const PasteLine& line, int column) const;
    [[nodiscard]] SIZE wantedRoom() const;

    PasteForm& form_;
    Palette palette_;
    std::vector<Switch> switches_;
    HWND summary_ = nullptr;
    HWND lines_ = nullptr;
    HWND ok_ = nullptr;
    HWND cancel_ = nullptr;
    int switchesBottom_ = 0;
    bool showing_ = false;
};

} // namespace vkr
