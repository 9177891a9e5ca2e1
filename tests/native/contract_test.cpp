// SPDX-License-Identifier: MIT
#include "native/control_window.hpp"
#include "native/drawing.hpp"
#include "native/field_window.hpp"
#include "native/native_text.hpp"
#include "platform/key_notation.hpp"
#include "tests/native/answerer.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/contract.hpp"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <oleacc.h>
#include <stdexcept>

namespace vkr {

namespace {

// What a button of the mouse does at a place of the screen.
void clickAt(POINT place, DWORD down, DWORD up) {
    SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
    INPUT inputs[2] = {};
    inputs[0].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = down;
    inputs[1].type = INPUT_MOUSE;
    inputs[1].mi.dwFlags = up;
    SendInput(2, inputs, sizeof(INPUT));
}

void send(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

std::string heard(HWND window, HRESULT (STDMETHODCALLTYPE IAccessible::*told)(VARIANT, BSTR*)) {
    void* found = nullptr;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                          __uuidof(IAccessible), &found)))
        return {};
    auto* object = static_cast<IAccessible*>(found);
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR text = nullptr;
    (object->*told)(self, &text);
    object->Release();
    std::string plain = text == nullptr ? "" : fromWide({text, SysStringLen(text)});
    SysFreeString(text);
    return plain;
}

class NativeDriver final : public ContractDriver {
  public:
    NativeDriver() : host_(&events_) {
        host_.shortcut = [this](const MSG& message) { return hostTakes(message); };
        events_.log.clear();
        other_ = CreateWindowExW(0, WC_STATICW, L"Other", WS_POPUP | WS_CAPTION, 900, 20, 200, 100,
                                 nullptr, nullptr, nullptr, nullptr);
    }
    ~NativeDriver() override { DestroyWindow(other_); }

    VKRDataEntry& entry() override { return host_.entry(); }

    void type(std::string_view notation) override {
        for (const KeyStroke& stroke : parseKeyNotation(notation))
            for (int i = 0; i < stroke.count; ++i)
                strike(stroke);
    }

    void hold(std::string_view notation, int times) override {
        for (const KeyStroke& stroke : parseKeyNotation(notation))
            strikeCharacter(stroke.character, times);
        host_.pump();
    }

    void click(std::string_view id) override {
        clickAt(placeIn(id), MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
        host_.pump();
    }
    void doubleClick(std::string_view id) override {
        const POINT place = placeIn(id);
        clickAt(place, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
        clickAt(place, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
        host_.pump();
    }
    void rightClick(std::string_view id) override {
        clickAt(placeIn(id), MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
        host_.pump();
    }
    void clickTab(int tab) override {
        clickAt(placeOfTab(tab), MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
        host_.pump();
    }
    void rightClickTab(int tab) override {
        clickAt(placeOfTab(tab), MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
        host_.pump();
    }
    // With the upper or the lower one of the two arrows.
    void spin(std::string_view id, int steps) override {
        for (int step = 0; step < std::abs(steps); ++step) {
            const RECT area = areaOf(native(id));
            const LONG height = area.bottom - area.top;
            clickAt({(area.left + area.right) / 2, area.top + height * (steps > 0 ? 1 : 3) / 4},
                    MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
            host_.pump();
        }
    }
    void dragOff(std::string_view id) override {
        const POINT place = placeIn(id);
        const RECT area = areaOf(native(id));
        SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
        send(MOUSEEVENTF_LEFTDOWN);
        host_.pump();
        SetCursorPos(static_cast<int>(place.x),
                     static_cast<int>(area.top - 2 * (area.bottom - area.top)));
        send(MOUSEEVENTF_LEFTUP);
        host_.pump();
    }
    void drag(std::string_view from, std::string_view to) override {
        const POINT place = placeIn(from);
        const POINT end = middleOf(native(to));
        SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
        send(MOUSEEVENTF_LEFTDOWN);
        host_.pump();
        for (const POINT& way : {POINT{(place.x + end.x) / 2, (place.y + end.y) / 2}, end}) {
            SetCursorPos(static_cast<int>(way.x), static_cast<int>(way.y));
            send(MOUSEEVENTF_MOVE);
            host_.pump();
        }
        send(MOUSEEVENTF_LEFTUP);
        host_.pump();
    }
    void nextPaste(std::vector<std::pair<int, int>> switches, bool ok) override {
        answerer_.pasteScript.push_back({std::move(switches), ok});
    }
    std::vector<std::string> lastPaste() override { return answerer_.lastPaste; }
    // What is on the screen beside its text.
    bool isHighlighted(std::string_view id) override {
        const HWND window = native(id);
        UpdateWindow(window);
        const WindowContext context(window);
        return GetPixel(context, 1, 1) == GetSysColor(COLOR_HIGHLIGHT);
    }

    void pick(std::string_view id, std::string_view item) override {
        const HWND combo = native(id);
        const auto entry = toWide(item);
        const auto row =
            static_cast<int>(SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(entry.c_str())));
        ASSERT_GE(row, 0);
        const RECT area = areaOf(combo);
        clickAt({area.right - 8, (area.top + area.bottom) / 2}, MOUSEEVENTF_LEFTDOWN,
                MOUSEEVENTF_LEFTUP);
        host_.pump();
        ASSERT_NE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0), 0);
        const auto at = static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0));
        for (int step = 0; step < std::abs(row - at); ++step)
            strikeKey(row > at ? VK_DOWN : VK_UP);
        strikeKey(VK_RETURN);
        host_.pump();
    }

    void answerNext(MessageAnswer answer) override { answerer_.script.push_back(answer); }
    void nextMenuEntry(const std::string& caption) override {
        answerer_.menuScript.push_back(caption);
    }
    void nextDate(std::optional<Date> date) override { answerer_.dateScript.push_back(date); }
    void setClipboard(const std::string& text) override { host_.services().setClipboardText(text); }
    std::string clipboard() override { return host_.services().clipboardText(); }

    void switchAway() override {
        ShowWindow(other_, SW_SHOW);
        SetForegroundWindow(other_);
        host_.pump();
    }
    void switchBack() override {
        host_.activate();
        ShowWindow(other_, SW_HIDE);
        host_.pump();
    }
    void leaveToHost() override {
        const RECT area = areaOf(host_.field());
        clickAt({(area.left + area.right) / 2, (area.top + area.bottom) / 2}, MOUSEEVENTF_LEFTDOWN,
                MOUSEEVENTF_LEFTUP);
        host_.pump();
    }
    void tabFromHost(FocusDirection direction) override {
        SetFocus(host_.field());
        strikeKey(VK_TAB, direction == FocusDirection::forward ? shifts::none : shifts::shift);
        host_.pump();
    }
    void addHostShortcut(std::string_view notation) override {
        for (const KeyStroke& stroke : parseKeyNotation(notation))
            shortcuts_.push_back(stroke);
    }
    int hostShortcutsFired() override { return fired_; }

    bool canReach(std::string_view id) override {
        const HWND window = find(id);
        if (window == nullptr || IsWindowVisible(window) == FALSE ||
            IsWindowEnabled(window) == FALSE)
            return false;
        const HWND hit = WindowFromPoint(middleOf(window));
        return hit == window || IsChild(window, hit) != FALSE;
    }
    std::string shownText(std::string_view id) override {
        const HWND window = native(id);
        const HWND edit = FindWindowExW(window, nullptr, WC_EDITW, nullptr); // of a list
        auto text = fromWide(windowText(edit == nullptr ? window : edit));
        std::erase(text, '\r');
        return text;
    }
    std::string focusedId() override {
        for (HWND focused = GetFocus(); focused != nullptr; focused = GetParent(focused))
            if (const auto* view = ControlWindow::of(focused);
                view != nullptr && view->control() != nullptr)
                return view->control()->id();
        return {};
    }
    std::string heardName(std::string_view id) override {
        return heard(native(id), &IAccessible::get_accName);
    }
    std::string heardMark(std::string_view id) override {
        return heard(native(id), &IAccessible::get_accDescription);
    }
    std::string note() override {
        const HWND note = host_.form().noteWindow();
        return note != nullptr && IsWindowVisible(note) != FALSE ? fromWide(windowText(note)) : "";
    }
    int refusals() override { return host_.services().refusals; }
    bool liesInside(std::string_view id) override {
        const RECT area = areaOf(native(id));
        const RECT form = areaOf(host_.form().window());
        return area.left >= form.left && area.top >= form.top && area.right <= form.right &&
               area.bottom <= form.bottom;
    }
    std::vector<std::string> lastMenu() override { return answerer_.lastMenu; }
    std::vector<Date> calendars() override { return answerer_.calendars; }
    std::vector<std::string> messages() override { return answerer_.seen; }
    std::vector<std::string>& events() override { return events_.log; }

  private:
    static RECT areaOf(HWND window) {
        RECT area;
        GetWindowRect(window, &area);
        return area;
    }

    // The middle of what can be seen of it within the windows around it.
    static POINT middleOf(HWND window) {
        RECT area = areaOf(window);
        for (HWND around = GetParent(window); around != nullptr; around = GetParent(around)) {
            const RECT outer = areaOf(around);
            IntersectRect(&area, &area, &outer);
        }
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    }

    HWND find(std::string_view id) {
        for (const auto& control : entry().form().controls())
            if (control->id() == id)
                return host_.form().windowOf(*control);
        return nullptr;
    }
    HWND native(std::string_view id) {
        const HWND window = find(id);
        if (window == nullptr || IsWindowVisible(window) == FALSE)
            throw std::out_of_range("not on screen: " + std::string(id));
        return window;
    }
    // Two clicks that follow each other are no double-click: they are at different places.
    POINT placeIn(std::string_view id) {
        const HWND window = native(id);
        const RECT area = areaOf(window);
        beside_ = beside_ == 0 ? 1 + GetSystemMetrics(SM_CXDOUBLECLK) : 0;
        POINT place{area.left + 8 + beside_, (area.top + area.bottom) / 2};
        if (area.bottom - area.top > 100)
            place.y = area.top + 10;
        if (area.right - area.left < 20 || WindowFromPoint(place) != window)
            place.x = middleOf(window).x;
        return place;
    }
    POINT placeOfTab(int tab) {
        const HWND strip = native("tbsDataEntry");
        RECT area{};
        SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(tab - 1),
                     reinterpret_cast<LPARAM>(&area));
        POINT place{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
        ClientToScreen(strip, &place);
        return place;
    }

    void strike(const KeyStroke& stroke) {
        const bool types = stroke.character >= U' ' && stroke.key != keys::decimal &&
                           (stroke.shift & (shifts::control | shifts::alt)) == 0;
        if (types)
            strikeCharacter(stroke.character);
        else
            strikeKey(static_cast<WORD>(stroke.key), stroke.shift);
        host_.pump();
    }

    bool hostTakes(const MSG& message) {
        const int shift = (GetKeyState(VK_SHIFT) < 0 ? shifts::shift : 0) +
                          (GetKeyState(VK_CONTROL) < 0 ? shifts::control : 0) +
                          (GetKeyState(VK_MENU) < 0 ? shifts::alt : 0);
        const bool takes =
            std::any_of(shortcuts_.begin(), shortcuts_.end(), [&](const KeyStroke& one) {
                return one.key == static_cast<KeyCode>(message.wParam) && one.shift == shift;
            });
        fired_ += takes ? 1 : 0;
        return takes;
    }

    EventRecorder events_;
    NativeWindow host_;
    Answerer answerer_;
    HWND other_ = nullptr;
    std::vector<KeyStroke> shortcuts_;
    int fired_ = 0;
    int beside_ = 0;
};

class OnWindows : public testing::TestWithParam<ContractScene> {};

TEST_P(OnWindows, Scene) {
    NativeDriver desktop;
    GetParam().play(desktop);
}

INSTANTIATE_TEST_SUITE_P(Contract, OnWindows, testing::ValuesIn(contractScenes()),
                         [](const auto& scene) { return std::string(scene.param.name); });

} // namespace

} // namespace vkr
