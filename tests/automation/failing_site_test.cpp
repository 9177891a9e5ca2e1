// SPDX-License-Identifier: MIT
// A container that refuses what it is asked, at any step: the control is active or it is not, and
// nothing is left of it.
#include "tests/automation/control_fixture.hpp"

#include <algorithm>
#include <utility>

namespace vkr::automation {
namespace {

struct FailingSite : Control {
    ComPtr<::iVKR_Company> company = library.create<::iVKR_Company>(__uuidof(::Company));

    bool isActive() {
        HWND window = nullptr;
        return as<IOleInPlaceObject>()->GetWindow(&window) == S_OK;
    }
    // Created, activated, edited, closed.
    HRESULT live(bool inPlace = true) {
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        place();
        const HRESULT activated = doVerb(OLEIVERB_UIACTIVATE);
        EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
        EXPECT_EQ(isActive(), inPlace);
        if (isActive()) {
            type("txtSymbol", "ACM");
            press(VK_TAB);
        }
        turn();
        EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
        takeAway();
        control.reset();
        site->frame->active.reset();
        turn();
        return activated;
    }
};

TEST_F(FailingSite, LeavesNothingOfTheControl) {
    struct Step {
        const char* refused;
        HRESULT told; // by the verb
        bool inPlace = true;
    };
    const Step steps[] = {{"OnInPlaceActivate", E_ACCESSDENIED, false},
                          {"GetWindow", E_FAIL, false},
                          {"GetWindowContext", E_FAIL, false},
                          {"ShowObject", S_OK},
                          {"OnUIActivate", E_ACCESSDENIED},
                          {"SetActiveObject", S_OK},
                          {"SetBorderSpace(null)", S_OK},
                          {"OnFocus(true)", S_OK},
                          {"OnPosRectChange", S_OK},
                          {"SetActiveObject(null)", S_OK},
                          {"OnFocus(false)", S_OK},
                          {"OnUIDeactivate", S_OK},
                          {"OnInPlaceDeactivate", S_OK}};
    site->refusal = E_ACCESSDENIED;
    for (const Step& step : steps) {
        SCOPED_TRACE(step.refused);
        site->log.clear();
        site->failing = {step.refused};
        EXPECT_EQ(live(step.inPlace), step.told);
        EXPECT_EQ(std::ranges::count(site->log, step.refused) > 0, true) << "not asked at all";
        EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);
        EXPECT_EQ(site->references(), 1U);
        EXPECT_EQ(site->frame->references(), 1U);
        EXPECT_EQ(library.alive(), before + 1) << "more than the record"; // which is of the test
    }
    site->failing.clear();
    EXPECT_EQ(live(), S_OK);
}

// Where the container has no room to give, the control takes it.
TEST_F(FailingSite, ThatGivesNoRoomLetsTheControlTakeIt) {
    place();
    site->failing = {"OnPosRectChange"};
    site->place = {10, 10, 36, 36};
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
    HWND window = nullptr;
    EXPECT_EQ(as<IOleInPlaceObject>()->GetWindow(&window), S_OK);
    RECT size{};
    GetClientRect(window, &size);
    EXPECT_GT(size.right, 500);
    takeAway();
}

// A container that takes the control out of its place at any step of being activated, and activates
// it once more.
TEST_F(FailingSite, ThatTakesTheControlAwayWhileItIsActivatedFindsItAsItWasBefore) {
    for (const char* const step :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "ShowObject",
          "OnUIActivate", "SetActiveObject", "SetBorderSpace(null)", "OnFocus(true)"}) {
        SCOPED_TRACE(step);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        place();
        site->asked = [&, inPlace = as<IOleInPlaceObject>()](const std::string& what) {
            if (what == step && std::exchange(site->asked, {})) {
                EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
            }
        };
        doVerb(OLEIVERB_UIACTIVATE);
        EXPECT_FALSE(site->asked) << "not asked at all";
        if (!isActive()) {
            EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);
        }
        EXPECT_EQ(as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
        EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);

        site->log.clear();
        EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
        EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_TRUE(isActive());
        for (const char* const once : {"OnInPlaceActivate", "OnUIActivate", "OnFocus(true)"})
            EXPECT_EQ(std::ranges::count(site->log, once), 1) << once;
        type("txtSymbol", "ACM");
        press(VK_TAB);
        Bstr symbol;
        EXPECT_EQ(company->get_Symbol(symbol.receive()), S_OK);
        EXPECT_EQ(textOf(symbol.get()), "ACM");
        EXPECT_EQ(company->put_Symbol(Bstr("").get()), S_OK);
        takeAway();
        site->frame->active.reset();
    }
}

// One that activates it anew while it is being activated has one window, not two.
TEST_F(FailingSite, ThatActivatesTheControlWithinBeingAskedHasItActiveOnce) {
    for (const char* const step : {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                   "GetWindowContext", "ShowObject", "OnUIActivate"}) {
        SCOPED_TRACE(step);
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        place();
        site->asked = [&, object = as<IOleObject>(),
                       inPlace = as<IOleInPlaceObject>()](const std::string& what) {
            if (what != step || !std::exchange(site->asked, {}))
                return;
            inPlace->InPlaceDeactivate();
            object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        };
        doVerb(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(isActive());
        const HWND window = GetWindow(site->window, GW_CHILD);
        EXPECT_NE(window, nullptr);
        EXPECT_EQ(GetWindow(window, GW_HWNDNEXT), nullptr) << "a second one";
        EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
        type("txtSymbol", "ACM");
        press(VK_TAB);
        EXPECT_EQ(shown("txtSymbol"), "ACM");
        EXPECT_EQ(company->put_Symbol(Bstr("").get()), S_OK);
        takeAway();
        EXPECT_EQ(GetWindow(site->window, GW_CHILD), nullptr);
        site->frame->active.reset();
    }
}

} // namespace
} // namespace vkr::automation
