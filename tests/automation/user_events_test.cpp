// SPDX-License-Identifier: MIT
// What the user asks for comes to the container as events, with what it is about.
#include "tests/automation/control_fixture.hpp"

#include <string>

namespace vkr::automation {
namespace {

void strike(WORD key) {
    INPUT inputs[2] = {};
    inputs[0].type = inputs[1].type = INPUT_KEYBOARD;
    inputs[0].ki.wVk = inputs[1].ki.wVk = key;
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

// Chooses an entry of the menu that opens, by the arrows.
class NextMenu {
  public:
    explicit NextMenu(std::wstring entry) {
        wanted_ = std::move(entry);
        timer_ = SetTimer(nullptr, 0, 10, look);
    }
    ~NextMenu() { KillTimer(nullptr, timer_); }
    NextMenu(const NextMenu&) = delete;
    NextMenu& operator=(const NextMenu&) = delete;

  private:
    static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
        constexpr UINT getMenu = 0x01E1; // MN_GETHMENU
        const HWND window = FindWindowW(L"#32768", nullptr);
        if (wanted_.empty() || window == nullptr || IsWindowVisible(window) == FALSE)
            return;
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, getMenu, 0, 0));
        const int count = GetMenuItemCount(menu);
        for (int item = 0; item < count; ++item) {
            wchar_t caption[256] = L"";
            GetMenuStringW(menu, static_cast<UINT>(item), caption, 256, MF_BYPOSITION);
            if ((GetMenuState(menu, static_cast<UINT>(item), MF_BYPOSITION) & MF_SEPARATOR) == 0)
                strike(VK_DOWN);
            if (caption == wanted_) {
                wanted_.clear();
                strike(VK_RETURN);
                return;
            }
        }
        wanted_.clear();
        strike(VK_ESCAPE);
    }
    static inline std::wstring wanted_;
    UINT_PTR timer_ = 0;
};

struct UserEvents : Control {
    ComPtr<::iVKR_Company> company = library.create<::iVKR_Company>(__uuidof(::Company));
    ComPtr<EventSink> sink = makeCom<EventSink>();

    UserEvents() {
        EXPECT_EQ(company->put_Name(Bstr("Acme").get()), S_OK);
        open(company.get());
        DWORD cookie = 0;
        EXPECT_EQ(pointOf(control.get(), __uuidof(::__VKRDataEntry))
                      ->Advise(static_cast<IDispatch*>(sink.get()), &cookie),
                  S_OK);
    }
    // A button of the form, by the pointer.
    void click(const wchar_t* caption) {
        HWND window = nullptr;
        EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), S_OK);
        const HWND button = FindWindowExW(window, nullptr, nullptr, caption);
        ASSERT_NE(button, nullptr);
        SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        turn();
    }
    void letterWithAlt(wchar_t letter) {
        MSG message{site->window, WM_SYSCHAR, letter, 1 << 29, 0, {}};
        EXPECT_EQ(as<IOleControl>()->OnMnemonic(&message), S_OK);
        turn();
    }
};

TEST_F(UserEvents, OkAndCancelAskToUnload) {
    click(L"&OK");
    click(L"&Cancel");
    EXPECT_EQ(sink->log, (Log{"4 0", "4 -1"}));
    takeAway();
}

TEST_F(UserEvents, HelpTellsTheNumberOfThePage) {
    letterWithAlt(L'h');
    EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
    letterWithAlt(L'h');
    EXPECT_EQ(sink->log, (Log{"2 3064", "1 2", "2 3065"}));
    takeAway();
}

TEST_F(UserEvents, TheAssistantIsToldTheObjectAndItsText) {
    EXPECT_EQ(control->ShowField(Bstr("txtName").get()), S_OK);
    {
        const NextMenu next(L"Ask the Assistant...");
        press(VK_APPS);
        turn();
    }
    EXPECT_EQ(sink->log, (Log{"3 0 Acme"})); // doName
    takeAway();
}

// --- errors --------------------------------------------------------------------------------------

TEST_F(Control, TellsWhyACallThroughTheInterfaceFailed) {
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(control->put_DecimalMark(Bstr(";").get()), CTL_E_INVALIDPROPERTYVALUE);
    ComPtr<IErrorInfo> told;
    ASSERT_EQ(GetErrorInfo(0, told.receive()), S_OK);
    Bstr text;
    EXPECT_EQ(told->GetDescription(text.receive()), S_OK);
    EXPECT_EQ(textOf(text.get()), "The decimal mark is a point or a comma.");
    GUID id{};
    EXPECT_EQ(told->GetGUID(&id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, __uuidof(::_VKRDataEntry)));
}

} // namespace
} // namespace vkr::automation
