// SPDX-License-Identifier: MIT
// The control within a window of its container: who has the keys, what size it has, and that window
// gone.
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/imported_function.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace vkr::automation {
namespace {

const Log activated{"OnUIActivate", "SetActiveObject", "SetBorderSpace(null)", "OnFocus(true)"};

struct InPlace : Control {
    ComPtr<::iVKR_Company> company = library.create<::iVKR_Company>(__uuidof(::Company));

    // On show with a record, and the keys elsewhere.
    void openInPlace() {
        EXPECT_EQ(company->put_Symbol(Bstr("ACM").get()), S_OK);
        place();
        EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
        SetForegroundWindow(site->window);
        SetFocus(site->window);
        EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        turn();
        site->log.clear();
    }
    HWND window() {
        HWND found = nullptr;
        as<IOleInPlaceObject>()->GetWindow(&found);
        return found;
    }
    // The window of the field that shows the symbol.
    HWND symbolField() {
        HWND found = nullptr;
        EnumChildWindows(
            window(),
            [](HWND child, LPARAM into) -> BOOL {
                wchar_t text[10] = {};
                GetWindowTextW(child, text, 10);
                if (std::wstring_view(text) != L"ACM")
                    return TRUE;
                *reinterpret_cast<HWND*>(into) = child;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        EXPECT_NE(found, nullptr);
        return found;
    }
    std::string symbol() {
        Bstr text;
        EXPECT_EQ(company->get_Symbol(text.receive()), S_OK);
        return textOf(text.get());
    }
    auto told(const char* what) { return std::ranges::count(site->log, what); }
};

// --- keys ----------------------------------------------------------------------------------------

TEST_F(InPlace, KeysThatTheContainerGivesToAFieldActivateTheUserInterface) {
    openInPlace();
    const HWND field = symbolField();
    SetFocus(field);
    EXPECT_EQ(site->log, Log{}) << "called within the message";
    turn();
    EXPECT_EQ(site->log, activated);
    EXPECT_EQ(GetFocus(), field);
    ASSERT_TRUE(site->frame->active);
    MSG key{field, WM_KEYDOWN, 'X', 1, 0, {}};
    EXPECT_EQ(site->frame->active->TranslateAccelerator(&key), S_OK);
    turn();
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_EQ(symbol(), "X");
    takeAway();
}

TEST_F(InPlace, AFieldThatAProgramBringsOnShowActivatesTheUserInterface) {
    openInPlace();
    EXPECT_EQ(control->ShowField(Bstr("txtSymbol").get()), S_OK);
    EXPECT_EQ(site->log, Log{});
    turn();
    EXPECT_EQ(site->log, activated);
    takeAway();
}

TEST_F(InPlace, KeysThatAreGoneAgainActivateNothing) {
    openInPlace();
    SetFocus(symbolField());
    SetFocus(site->window);
    turn();
    EXPECT_EQ(site->log, Log{});
    SetFocus(symbolField());
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(as<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    site->log.clear();
    turn();
    EXPECT_EQ(site->log, Log{}) << "activated against the container's will";
    takeAway();
}

TEST_F(InPlace, MayBeReleasedWhileTheUserInterfaceIsActivated) {
    for (const bool byPointer : {false, true}) {
        SCOPED_TRACE(byPointer);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        openInPlace();
        site->asked = [&](const std::string& what) {
            if (what != "OnUIActivate" || !std::exchange(site->asked, {}))
                return;
            site->control.reset();
            control.reset();
        };
        if (byPointer)
            SendMessageW(window(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(site->window),
                         MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
        else
            SetFocus(symbolField());
        turn();
        EXPECT_FALSE(site->asked) << "not asked at all";
        EXPECT_FALSE(control);
        site->frame->active.reset();
        turn();
        EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);
        EXPECT_EQ(library.alive(), before + 1) << "more than the record";
    }
}

// --- states --------------------------------------------------------------------------------------

TEST_F(InPlace, AVerbAnswersWhatTheSiteHasRefused) {
    openInPlace();
    site->failing = {"OnUIActivate"};
    site->refusal = E_ACCESSDENIED;
    for (const LONG verb : {OLEIVERB_UIACTIVATE, OLEIVERB_PRIMARY})
        EXPECT_EQ(doVerb(verb), E_ACCESSDENIED);
    EXPECT_NE(window(), nullptr);
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    site->failing.clear();
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    takeAway();
}

TEST_F(InPlace, EveryVerbThatActivatesShowsWhatWasHidden) {
    openInPlace();
    for (const LONG verb :
         {OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE, OLEIVERB_PRIMARY}) {
        EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
        EXPECT_FALSE(IsWindowVisible(window()));
        EXPECT_EQ(doVerb(verb), S_OK);
        EXPECT_TRUE(IsWindowVisible(window())) << verb;
    }
    takeAway();
}

// --- size ----------------------------------------------------------------------------------------

UINT WINAPI dotsOfAnotherMonitor(HWND /*window*/) {
    return 144;
}

TEST_F(InPlace, AnotherResolutionAsksForItsRoom) {
    for (const bool refused : {false, true}) {
        SCOPED_TRACE(refused);
        site->place = {10, 10, 548, 399};
        openInPlace();
        if (refused)
            site->failing = {"OnPosRectChange"};
        const ImportedFunction moved(library.module(), "GetDpiForWindow",
                                     reinterpret_cast<void*>(&dotsOfAnotherMonitor));
        SendMessageW(window(), WM_DPICHANGED_AFTERPARENT, 0, 0);
        EXPECT_EQ(site->log, Log{}) << "called within the message";
        turn();
        EXPECT_EQ(site->log, Log{"OnPosRectChange"});
        RECT now{};
        GetWindowRect(window(), &now);
        EXPECT_EQ(now.right - now.left, 807); // 8070 twips at 144 dots
        EXPECT_EQ(now.bottom - now.top, 584);
        turn();
        EXPECT_EQ(told("OnPosRectChange"), 1);
        site->failing.clear();
        takeAway();
    }
}

// --- a container whose window goes ---------------------------------------------------------------

TEST_F(InPlace, AContainersWindowMayGoWithTheControlsInIt) {
    openInPlace();
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    type("txtSymbol", "XYZ");
    site->log.clear();
    DestroyWindow(site->window);
    turn();
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(told("OnUIDeactivate"), 1);
    EXPECT_EQ(told("OnInPlaceDeactivate"), 1);
    EXPECT_FALSE(site->frame->active);
    EXPECT_EQ(symbol(), "XYZ") << "what was typed is lost";
    EXPECT_EQ(as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(told("OnInPlaceDeactivate"), 1);

    site->makeWindow();
    SetForegroundWindow(site->window);
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(GetParent(window()), site->window);
    EXPECT_EQ(shown("txtSymbol"), "XYZ");
    type("txtSymbol", "ACM");
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_EQ(symbol(), "ACM");
    takeAway();
}

TEST_F(InPlace, NothingIsLeftWhateverComesAfterTheContainersWindowHasGone) {
    for (int end = 0; end < 4; ++end) {
        SCOPED_TRACE(end);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        openInPlace();
        EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
        turn();
        site->log.clear();
        DestroyWindow(site->window);
        if (end == 0) {
            takeAway();
        } else if (end == 1) {
            EXPECT_EQ(as<IOleObject>()->SetClientSite(nullptr), S_OK);
        } else if (end == 2) {
            EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
        } else {
            site->frame->active.reset();
        }
        site->control.reset();
        control.reset();
        turn();
        EXPECT_EQ(told("OnInPlaceDeactivate"), 1);
        EXPECT_EQ(site->references(), 1U);
        EXPECT_EQ(site->frame->references(), 1U);
        EXPECT_EQ(library.alive(), before + 1) << "more than the record";
        site->makeWindow();
    }
}

} // namespace
} // namespace vkr::automation
