// SPDX-License-Identifier: MIT
// A container that refuses what it is asked, at any step: the control is active or it is not, and
// nothing is left of it.
#include "tests/automation/control_fixture.hpp"

#include <algorithm>

namespace vkr::automation {
namespace {

struct FailingSite : Control {
    ComPtr<::iVKR_Company> company = library.create<::iVKR_Company>(__uuidof(::Company));

    bool isActive() {
        HWND window = nullptr;
        return as<IOleInPlaceObject>()->GetWindow(&window) == S_OK;
    }
    // Created, activated, edited, closed.
    HRESULT live() {
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        place();
        const HRESULT activated = doVerb(OLEIVERB_UIACTIVATE);
        EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
        EXPECT_EQ(SUCCEEDED(activated), isActive());
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
        bool prevents; // being activated
    };
    const Step steps[] = {{"OnInPlaceActivate", true},     {"GetWindow", true},
                          {"GetWindowContext", true},      {"ShowObject", false},
                          {"OnUIActivate", false},         {"SetActiveObject", false},
                          {"SetBorderSpace(null)", false}, {"OnFocus(true)", false},
                          {"OnPosRectChange", false},      {"SetActiveObject(null)", false},
                          {"OnFocus(false)", false},       {"OnUIDeactivate", false},
                          {"OnInPlaceDeactivate", false}};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.refused);
        site->log.clear();
        site->failing = {step.refused};
        EXPECT_EQ(FAILED(live()), step.prevents);
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

} // namespace
} // namespace vkr::automation
