// SPDX-License-Identifier: MIT
#pragma once

#include "native/fonts.hpp"
#include "platform/services.hpp"

#include <optional>

namespace vkr {

// The calendar form in a window of its own: the system's month calendar, OK and Cancel.
class CalendarWindow {
  public:
    // `beside` is where the field is on the screen that it should not hide.
    CalendarWindow(CalendarForm& form, HWND owner, const PixelScale& scale,
                   const std::optional<RECT>& beside);
    ~CalendarWindow();
    CalendarWindow(const CalendarWindow&) = delete;
    CalendarWindow& operator=(const CalendarWindow&) = delete;

    // Until the form is not visible any more.
    void run();

  private:
    enum Part : int { okPart = IDOK, cancelPart = IDCANCEL, calendarPart = 100 };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] static const wchar_t* kind();
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] HWND addPart(const wchar_t* className, const wchar_t* text, DWORD style,
                               Part part, const RECT& place);
    void layOut(const std::optional<RECT>& beside);
    void showDate();
    void accept();
    void cancel();
    void dayChosen();
    bool key(const MSG& message);
    bool moveDay(WPARAM key);
    void moveFocus(bool backward);
    [[nodiscard]] Date shownDate() const;
    void setShownDate(Date date);

    CalendarForm& form_;
    HWND owner_;
    PixelScale scale_;
    Fonts fonts_;
    HWND window_ = nullptr;
    HWND calendar_ = nullptr;
    HWND ok_ = nullptr;
    HWND cancel_ = nullptr;
    Date chosen_{};
    DWORD chosenAt_ = 0;
};

} // namespace vkr
