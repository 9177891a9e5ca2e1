// SPDX-License-Identifier: MIT
#pragma once

#include "native/dialog_window.hpp"
#include "platform/services.hpp"

namespace vkr {

// The calendar form in a window of its own: the system's month calendar, OK and Cancel.
class CalendarWindow final : public DialogWindow {
  public:
    // `beside` is where the field is on the screen that it should not hide.
    CalendarWindow(CalendarForm& form, HWND owner, const PixelScale& scale,
                   const std::optional<RECT>& beside);

  protected:
    [[nodiscard]] bool isOpen() const override { return form_.visible(); }
    [[nodiscard]] HWND first() const override { return calendar_; }
    void accept() override;
    void cancel() override;
    bool key(const MSG& message) override;
    std::optional<LRESULT> handleOwn(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    static constexpr int calendarPart = 100;

    void layOut(const std::optional<RECT>& beside);
    void showDate();
    void dayChosen();
    bool moveDay(WPARAM key);
    void moveFocus(bool backward);
    [[nodiscard]] Date shownDate() const;
    void setShownDate(Date date);

    CalendarForm& form_;
    HWND calendar_ = nullptr;
    HWND ok_ = nullptr;
    HWND cancel_ = nullptr;
    Date chosen_{};
    DWORD chosenAt_ = 0;
};

} // namespace vkr
