// SPDX-License-Identifier: MIT
// Keys: which the control asks for, which it takes before its container, which it leaves to it.
#include "tests/automation/control_fixture.hpp"

#include <algorithm>
#include <set>
#include <vector>

namespace vkr::automation {
namespace {

struct Keys : Control {
    ComPtr<::iVKR_Company> company = library.create<::iVKR_Company>(__uuidof(::Company));

    [[nodiscard]] std::vector<ACCEL> offered() const {
        CONTROLINFO info{};
        info.cb = sizeof info;
        EXPECT_EQ(as<IOleControl>()->GetControlInfo(&info), S_OK);
        EXPECT_EQ(info.dwFlags, static_cast<DWORD>(CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE));
        std::vector<ACCEL> keys(info.cAccel);
        EXPECT_EQ(CopyAcceleratorTableW(info.hAccel, keys.data(), info.cAccel), info.cAccel);
        return keys;
    }
    [[nodiscard]] bool offers(wchar_t letter) const {
        const auto keys = offered();
        return std::ranges::any_of(
            keys, [&](const ACCEL& one) { return one.key == letter && one.fVirt == FALT; });
    }
    HRESULT mnemonic(wchar_t letter) {
        MSG message{site->window, WM_SYSCHAR, letter, 1 << 29, 0, {}};
        const HRESULT used = as<IOleControl>()->OnMnemonic(&message);
        turn();
        return used;
    }
    [[nodiscard]] std::int32_t tab() const { return getByName(dispatch(), "CurrentTab").toLong(); }
    [[nodiscard]] std::string name() const {
        Bstr text;
        EXPECT_EQ(company->get_Name(text.receive()), S_OK);
        return textOf(text.get());
    }
};

TEST_F(Keys, LettersOfCaptionsAndOfTabsAreOffered) {
    open(company.get());
    for (const wchar_t letter : {L'H', L'h', L'Y', L'y', L'Q'})
        EXPECT_TRUE(offers(letter)) << static_cast<int>(letter);
    EXPECT_FALSE(offers(L'7'));
    const auto keys = offered();
    for (const ACCEL& one : keys)
        EXPECT_EQ(
            std::ranges::count_if(keys, [&](const ACCEL& other) { return other.key == one.key; }),
            1)
            << one.key;
    takeAway();
}

TEST_F(Keys, AnOfferedLetterLeadsWhereItsCaptionSays) {
    place();
    EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    site->log.clear();
    EXPECT_EQ(mnemonic(L'y'), S_OK); // the keys were the container's until now
    EXPECT_EQ(tab(), 2);
    EXPECT_EQ(site->log,
              (Log{"OnUIActivate", "SetActiveObject", "SetBorderSpace(null)", "OnFocus(true)"}));
    EXPECT_EQ(mnemonic(L'Q'), S_OK);
    EXPECT_EQ(tab(), 3);
    EXPECT_EQ(mnemonic(L'7'), S_FALSE);
    takeAway();
}

TEST_F(Keys, ReachTheControlBeforeTheContainer) {
    open(company.get());
    type("txtName", "ACME");
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_EQ(name(), "acme");
    EXPECT_EQ(control->ShowField(Bstr("txtName").get()), S_OK);
    press('X');
    EXPECT_EQ(press(VK_ESCAPE), S_OK); // takes the edit back, and closes no dialog of the container
    EXPECT_EQ(control->LeaveField(), S_OK);
    EXPECT_EQ(name(), "acme");
    EXPECT_EQ(press(VK_F1), S_OK);
    EXPECT_EQ(press(VK_RETURN), S_OK);
    EXPECT_EQ(press(VK_F12), S_FALSE); // no use for it
    takeAway();
}

// Behind the last button comes the first field of the page; before the first control the container.
TEST_F(Keys, ShiftTabAtTheFirstControlIsTheContainers) {
    open(company.get());
    std::set<HWND> passed;
    site->log.clear();
    while (passed.insert(GetFocus()).second && passed.size() < 200)
        EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_GT(passed.size(), 10U);
    EXPECT_LT(passed.size(), 200U);
    EXPECT_TRUE(site->log.empty());
    BYTE keys[256] = {};
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    for (int back = 0; site->log.empty() && back < 200; ++back)
        EXPECT_EQ(press(VK_TAB), S_OK);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(site->log, Log{"TranslateAccelerator"});
    takeAway();
}

TEST_F(Keys, AreTheContainersWhileTheControlIsNotActive) {
    MSG message{site->window, WM_KEYDOWN, VK_TAB, 1, 0, {}};
    const auto active = as<IOleInPlaceActiveObject>();
    EXPECT_EQ(active->TranslateAccelerator(&message), S_FALSE);
    open(company.get());
    EXPECT_EQ(active->TranslateAccelerator(&message), S_FALSE); // of another window
    MSG painting{GetFocus(), WM_PAINT, 0, 0, 0, {}};
    EXPECT_EQ(active->TranslateAccelerator(&painting), S_FALSE);
    takeAway();
    EXPECT_EQ(active->TranslateAccelerator(&message), S_FALSE);
}

} // namespace
} // namespace vkr::automation
