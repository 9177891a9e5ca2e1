// SPDX-License-Identifier: MIT
#include "tests/native/answerer.hpp"

#include "native/native_text.hpp"
#include "native/paste_window.hpp"
#include "platform/key_codes.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {

namespace {

Answerer* current = nullptr;

INPUT keyInput(WORD key, WORD unit, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = unit != 0 ? unit : static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

bool isExtended(WORD key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE ||
           key == VK_APPS;
}

std::wstring kindOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return name;
}

// The dialog or menu that is open; the topmost comes first.
HWND openWindow() {
    HWND found = nullptr;
    const auto visit = [](HWND window, LPARAM place) -> BOOL {
        const auto kind = kindOf(window);
        DWORD process = 0;
        const bool ours = GetWindowThreadProcessId(window, &process) == GetCurrentThreadId();
        if (!ours || IsWindowVisible(window) == FALSE || IsWindowEnabled(window) == FALSE ||
            (kind != L"#32770" && kind != L"#32768" && kind != L"VKRDataEntryDialog"))
            return TRUE;
        *reinterpret_cast<HWND*>(place) = window;
        return FALSE;
    };
    EnumWindows(visit, reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace

void strikeKey(WORD key, int shift, int times) {
    std::vector<INPUT> inputs;
    const std::pair<int, WORD> modifiers[] = {
        {shifts::control, VK_CONTROL}, {shifts::alt, VK_MENU}, {shifts::shift, VK_SHIFT}};
    for (const auto& [flag, modifier] : modifiers)
        if ((shift & flag) != 0)
            inputs.push_back(keyInput(modifier, 0, 0));
    const DWORD extended = isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0;
    inputs.insert(inputs.end(), static_cast<std::size_t>(times), keyInput(key, 0, extended));
    inputs.push_back(keyInput(key, 0, extended | KEYEVENTF_KEYUP));
    for (const auto& [flag, modifier] : modifiers)
        if ((shift & flag) != 0)
            inputs.push_back(keyInput(modifier, 0, KEYEVENTF_KEYUP));
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void strikeCharacter(char32_t character, int times) {
    const SHORT key = character < 0x80 ? VkKeyScanW(static_cast<WCHAR>(character)) : -1;
    if (key != -1) {
        strikeKey(LOBYTE(key), HIBYTE(key) & 1 ? shifts::shift : shifts::none, times);
        return;
    }
    std::string narrow;
    appendCharacter(narrow, character);
    const auto units = toWide(narrow);
    for (const wchar_t unit : units) {
        INPUT inputs[] = {keyInput(0, unit, KEYEVENTF_UNICODE),
                          keyInput(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)};
        SendInput(2, inputs, sizeof(INPUT));
    }
}

Answerer::Answerer() : timer_(SetTimer(nullptr, 0, 10, &Answerer::look)) {
    current = this;
}

Answerer::~Answerer() {
    KillTimer(nullptr, timer_);
    current = nullptr;
}

void CALLBACK Answerer::look(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*now*/) {
    if (current == nullptr)
        return;
    const HWND window = openWindow();
    if (window == nullptr)
        current->worked_ = nullptr;
    else if (window != current->worked_)
        current->work(window);
}

void Answerer::work(HWND window) {
    worked_ = window;
    const auto kind = kindOf(window);
    if (kind == L"#32768")
        choose(window);
    else if (kind == L"#32770")
        answer(window);
    else if (const HWND calendar = FindWindowExW(window, nullptr, MONTHCAL_CLASSW, nullptr))
        pick(calendar);
    else if (const HWND lines = GetDlgItem(window, PasteWindow::linesPart))
        paste(window, lines);
}

void Answerer::answer(HWND box) {
    std::wstring text;
    EnumChildWindows(
        box,
        [](HWND part, LPARAM place) -> BOOL {
            if (const auto shown = windowText(part); kindOf(part) == L"Static" && !shown.empty())
                *reinterpret_cast<std::wstring*>(place) = shown;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&text));
    seen.push_back(fromWide(text));
    if (script.empty()) {
        strikeKey(VK_RETURN);
        return;
    }
    const HWND button = GetDlgItem(box, static_cast<int>(script.front()));
    script.pop_front();
    ASSERT_NE(button, nullptr);
    PostMessageW(button, BM_CLICK, 0, 0);
}

void Answerer::choose(HWND window) {
    constexpr UINT getMenu = 0x01E1; // MN_GETHMENU
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, getMenu, 0, 0));
    lastMenu.clear();
    int wanted = -1;
    int steps = 0; // the keys pass over separators
    const int count = GetMenuItemCount(menu);
    for (int item = 0; item < count; ++item) {
        wchar_t caption[256] = L"";
        const UINT state = GetMenuState(menu, static_cast<UINT>(item), MF_BYPOSITION);
        const bool separator = (state & MF_SEPARATOR) != 0;
        GetMenuStringW(menu, static_cast<UINT>(item), caption, static_cast<int>(std::size(caption)),
                       MF_BYPOSITION);
        const bool enabled = (state & (MF_GRAYED | MF_DISABLED)) == 0;
        const auto shown = fromWide(caption);
        lastMenu.push_back(separator ? "-" : enabled ? shown : "(" + shown + ")");
        steps += separator ? 0 : 1;
        std::string plain = shown;
        std::erase(plain, '&');
        if (!menuScript.empty() && !separator && plain == menuScript.front() && enabled)
            wanted = steps;
    }
    if (!menuScript.empty())
        menuScript.pop_front();
    if (wanted < 0) {
        strikeKey(VK_ESCAPE);
        return;
    }
    for (int step = 0; step < wanted; ++step)
        strikeKey(VK_DOWN);
    strikeKey(VK_RETURN);
}

// By the arrows of the calendar's keys, day by day within a month, month by month.
void Answerer::pick(HWND calendar) {
    SYSTEMTIME time{};
    SendMessageW(calendar, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&time));
    const Date shown = makeDate(time.wYear, time.wMonth, time.wDay).value_or(Date{});
    calendars.push_back(shown);
    std::optional<Date> day;
    if (!dateScript.empty()) {
        day = dateScript.front();
        dateScript.pop_front();
    }
    if (!day) {
        strikeKey(VK_ESCAPE);
        return;
    }
    const auto from = civil(shown);
    const auto to = civil(*day);
    strikeKey(VK_HOME); // no month is too short for its first day
    const int months = 12 * (to.year - from.year) + to.month - from.month;
    for (int step = 0; step < std::abs(months) / 12; ++step)
        strikeKey(months > 0 ? VK_NEXT : VK_PRIOR, shifts::control);
    for (int step = 0; step < std::abs(months) % 12; ++step)
        strikeKey(months > 0 ? VK_NEXT : VK_PRIOR);
    for (int step = 1; step < to.day; ++step)
        strikeKey(VK_RIGHT);
    strikeKey(VK_RETURN);
}

// Each switch by Space or by the arrows, as one that has the keys takes them.
void Answerer::paste(HWND dialog, HWND lines) {
    const PasteAnswer answer = pasteScript.empty() ? PasteAnswer{} : pasteScript.front();
    if (!pasteScript.empty())
        pasteScript.pop_front();
    for (const auto& [index, chosen] : answer.switches) {
        const HWND turned = GetDlgItem(dialog, PasteWindow::firstSwitchPart + index);
        ASSERT_NE(turned, nullptr);
        const bool list = SendMessageW(turned, CB_GETCOUNT, 0, 0) > 0; // a box has no entries
        for (int step = 0; step < 20; ++step) {
            const auto now =
                static_cast<int>(SendMessageW(turned, list ? CB_GETCURSEL : BM_GETCHECK, 0, 0));
            if (now == chosen)
                break;
            const WPARAM key = !list ? VK_SPACE : now < chosen ? VK_DOWN : VK_UP;
            SendMessageW(turned, WM_KEYDOWN, key, 0);
            SendMessageW(turned, WM_KEYUP, key, 0);
        }
    }
    lastPaste.clear();
    const auto rows = static_cast<int>(SendMessageW(lines, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < rows; ++row) {
        std::string line;
        for (int column = 0; column < 6; ++column) {
            wchar_t text[500] = L"";
            LVITEMW item{};
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = static_cast<int>(std::size(text));
            SendMessageW(lines, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&item));
            line += (column == 0 ? "" : "|") + fromWide(text);
        }
        lastPaste.push_back(line);
    }
    lastPaste.push_back(fromWide(windowText(GetDlgItem(dialog, IDOK))));
    std::erase(lastPaste.back(), '&');
    strikeKey(answer.ok ? VK_RETURN : VK_ESCAPE); // OK is the default
}

} // namespace vkr
