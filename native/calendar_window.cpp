// SPDX-License-Identifier: MIT
#include "native/calendar_window.hpp"

#include "native/native_text.hpp"

#include <algorithm>

namespace vkr {

namespace {

SYSTEMTIME systemTime(Date date) {
    const auto day = civil(date);
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(day.year);
    time.wMonth = static_cast<WORD>(day.month);
    time.wDay = static_cast<WORD>(day.day);
    return time;
}

Date dateOf(const SYSTEMTIME& time) {
    return makeDate(time.wYear, time.wMonth, time.wDay).value_or(Date{});
}

} // namespace

CalendarWindow::CalendarWindow(CalendarForm& form, HWND owner, const PixelScale& scale,
                               const std::optional<RECT>& beside)
    : DialogWindow(form.caption(), owner, scale, 0), form_(form) {
    layOut(beside);
    showDate();
}

void CalendarWindow::layOut(const std::optional<RECT>& beside) {
    const int gap = scale().pixels(120);
    calendar_ =
        addPart(MONTHCAL_CLASSW, L"", WS_BORDER | WS_TABSTOP, calendarPart, {gap, gap, 0, 0});
    RECT needed{};
    SendMessageW(calendar_, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&needed));
    const int width = std::max<int>(
        needed.right, static_cast<int>(SendMessageW(calendar_, MCM_GETMAXTODAYWIDTH, 0, 0)));
    const int height = static_cast<int>(needed.bottom);
    MoveWindow(calendar_, gap, gap, width, height, FALSE);

    const int buttonWidth = (width - gap) / 2;
    const int buttonTop = height + 2 * gap;
    const int buttonBottom = buttonTop + scale().pixels(345);
    ok_ = addPart(WC_BUTTONW, toWide(form_.okCaption()), BS_DEFPUSHBUTTON | WS_TABSTOP, okPart,
                  {gap, buttonTop, gap + buttonWidth, buttonBottom});
    cancel_ =
        addPart(WC_BUTTONW, toWide(form_.cancelCaption()), BS_PUSHBUTTON | WS_TABSTOP, cancelPart,
                {gap + width - buttonWidth, buttonTop, gap + width, buttonBottom});

    giveRoom({width + 2 * gap, buttonBottom + gap}, beside);
}

Date CalendarWindow::shownDate() const {
    SYSTEMTIME time{};
    SendMessageW(calendar_, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&time));
    return dateOf(time);
}

void CalendarWindow::setShownDate(Date date) {
    const auto time = systemTime(std::clamp(date, form_.firstDate(), form_.lastDate()));
    SendMessageW(calendar_, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&time));
}

void CalendarWindow::showDate() {
    SYSTEMTIME range[2] = {systemTime(form_.firstDate()), systemTime(form_.lastDate())};
    SendMessageW(calendar_, MCM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range));
    if (!isAbsent(form_.calendarDate()))
        setShownDate(form_.calendarDate());
}

void CalendarWindow::accept() {
    form_.setCalendarDate(shownDate());
    form_.pressOk();
}

void CalendarWindow::cancel() {
    form_.pressCancel();
}

// A day that is chosen twice in a short time is a double-click.
void CalendarWindow::dayChosen() {
    const DWORD now = GetTickCount();
    const Date day = shownDate();
    const bool twice = day == chosen_ && now - chosenAt_ <= GetDoubleClickTime();
    chosen_ = day;
    chosenAt_ = now;
    if (twice)
        accept();
}

// --- keys ----------------------------------------------------------------------------------------

bool CalendarWindow::moveDay(WPARAM key) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    const Date day = shownDate();
    switch (key) {
    case VK_LEFT:
        setShownDate(addDays(day, -1));
        return true;
    case VK_RIGHT:
        setShownDate(addDays(day, 1));
        return true;
    case VK_UP:
        setShownDate(addDays(day, -7));
        return true;
    case VK_DOWN:
        setShownDate(addDays(day, 7));
        return true;
    case VK_PRIOR:
        setShownDate(control ? addYears(day, -1) : addMonths(day, -1));
        return true;
    case VK_NEXT:
        setShownDate(control ? addYears(day, 1) : addMonths(day, 1));
        return true;
    case VK_HOME:
        setShownDate(addDays(day, 1 - civil(day).day));
        return true;
    case VK_END:
        setShownDate(addDays(day, daysInMonth(civil(day).year, civil(day).month) - civil(day).day));
        return true;
    default:
        return false;
    }
}

void CalendarWindow::moveFocus(bool backward) {
    const HWND parts[] = {calendar_, ok_, cancel_};
    const auto count = std::ssize(parts);
    const auto at = std::find(std::begin(parts), std::end(parts), GetFocus()) - std::begin(parts);
    SetFocus(parts[(at + (backward ? count - 1 : 1)) % count]);
}

// Of the whole window; true when used.
bool CalendarWindow::key(const MSG& message) {
    if (message.message == WM_SYSCHAR) // the letters of the buttons
        return DialogWindow::key(message);
    if (message.message != WM_KEYDOWN)
        return false;
    switch (message.wParam) {
    case VK_ESCAPE:
        cancel();
        return true;
    case VK_RETURN:
        if (GetFocus() == cancel_)
            cancel();
        else
            accept();
        return true;
    case VK_TAB:
        moveFocus(GetKeyState(VK_SHIFT) < 0);
        return true;
    default:
        return GetFocus() == calendar_ && moveDay(message.wParam);
    }
}

std::optional<LRESULT> CalendarWindow::handleOwn(UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    if (message != WM_NOTIFY)
        return std::nullopt;
    if (reinterpret_cast<const NMHDR*>(lParam)->code == MCN_SELECT)
        dayChosen();
    return 0;
}

} // namespace vkr
