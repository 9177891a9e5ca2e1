// SPDX-License-Identifier: MIT
#include "native/calendar_window.hpp"

#include "native/guard.hpp"
#include "native/module.hpp"
#include "native/native_text.hpp"

#include <algorithm>
#include <stdexcept>

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

const wchar_t* CalendarWindow::kind() {
    return registeredKind(L"VKRDataEntryCalendar", &CalendarWindow::procedure);
}

CalendarWindow::CalendarWindow(CalendarForm& form, HWND owner, const PixelScale& scale,
                               const std::optional<RECT>& beside)
    : form_(form), owner_(owner), scale_(scale), fonts_(scale) {
    window_ = CreateWindowExW(WS_EX_DLGMODALFRAME, kind(), toWide(form.caption()).c_str(),
                              WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0, 0, 0, 0,
                              owner, nullptr, ownModule(), nullptr);
    if (window_ == nullptr)
        throw std::runtime_error("a window could not be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    layOut(beside);
    showDate();
}

CalendarWindow::~CalendarWindow() {
    if (window_ == nullptr)
        return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

HWND CalendarWindow::addPart(const wchar_t* className, const wchar_t* text, DWORD style, Part part,
                             const RECT& place) {
    const HWND made =
        CreateWindowExW(0, className, text, style | WS_CHILD | WS_VISIBLE | WS_TABSTOP, place.left,
                        place.top, place.right - place.left, place.bottom - place.top, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(part)), nullptr, nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.plain()), FALSE);
    return made;
}

void CalendarWindow::layOut(const std::optional<RECT>& beside) {
    const int gap = scale_.pixels(120);
    calendar_ = addPart(MONTHCAL_CLASSW, L"", WS_BORDER, calendarPart, {gap, gap, 0, 0});
    RECT needed{};
    SendMessageW(calendar_, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&needed));
    const int width = std::max<int>(
        needed.right, static_cast<int>(SendMessageW(calendar_, MCM_GETMAXTODAYWIDTH, 0, 0)));
    const int height = static_cast<int>(needed.bottom);
    MoveWindow(calendar_, gap, gap, width, height, FALSE);

    const int buttonWidth = (width - gap) / 2;
    const int buttonTop = height + 2 * gap;
    const int buttonBottom = buttonTop + scale_.pixels(345);
    ok_ = addPart(WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON, okPart,
                  {gap, buttonTop, gap + buttonWidth, buttonBottom});
    cancel_ = addPart(WC_BUTTONW, L"Cancel", BS_PUSHBUTTON, cancelPart,
                      {gap + width - buttonWidth, buttonTop, gap + width, buttonBottom});

    RECT place{0, 0, width + 2 * gap, buttonBottom + gap};
    AdjustWindowRectExForDpi(&place, WS_POPUP | WS_CAPTION | WS_SYSMENU, FALSE, WS_EX_DLGMODALFRAME,
                             static_cast<UINT>(scale_.dotsPerInch()));
    const LONG outerWidth = place.right - place.left;
    const LONG outerHeight = place.bottom - place.top;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& screen = monitor.rcWork;
    RECT around{};
    GetWindowRect(owner_, &around);
    POINT corner{(around.left + around.right - outerWidth) / 2,
                 (around.top + around.bottom - outerHeight) / 2};
    if (beside) { // right below the field, or above it where the screen ends
        corner = {beside->left, beside->bottom + 1};
        if (corner.y + outerHeight > screen.bottom)
            corner.y = beside->top - outerHeight - 1;
    }
    corner.x = std::clamp(corner.x, screen.left, std::max(screen.left, screen.right - outerWidth));
    corner.y = std::max(screen.top, corner.y);
    SetWindowPos(window_, nullptr, corner.x, corner.y, outerWidth, outerHeight,
                 SWP_NOZORDER | SWP_NOACTIVATE);
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

// --- messages ------------------------------------------------------------------------------------

void CalendarWindow::run() {
    EnableWindow(owner_, FALSE);
    ShowWindow(window_, SW_SHOW);
    SetFocus(calendar_);
    MSG message;
    while (window_ != nullptr && form_.visible()) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) { // the program ends
            if (got == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE;
        if (ours && key(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    EnableWindow(owner_, TRUE); // before the window goes, or another program would come up
    if (window_ != nullptr && GetActiveWindow() == window_)
        SetActiveWindow(owner_);
}

LRESULT CALLBACK CalendarWindow::procedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    auto* calendar = reinterpret_cast<CalendarWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (calendar == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) { // with its owner
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        calendar->window_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    return guarded<LRESULT>(0, [&] { return calendar->handle(message, wParam, lParam); });
}

LRESULT CalendarWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) == okPart)
            accept();
        else if (HIWORD(wParam) == BN_CLICKED && LOWORD(wParam) == cancelPart)
            cancel();
        return 0;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == MCN_SELECT)
            dayChosen();
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && GetFocus() == nullptr)
            SetFocus(calendar_);
        return 0;
    case WM_CLOSE:
        cancel();
        return 0;
    default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
}

} // namespace vkr
