// SPDX-License-Identifier: MIT
#include "form/controls.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

class NativeWheel : public testing::Test {
  protected:
    NativeWheel() {
        host_.entry().put_objCompany(fullCompany());
        host_.activate();
    }
    void turn(HWND window, int steps) {
        SendMessageW(window, WM_MOUSEWHEEL,
                     MAKEWPARAM(0, static_cast<WORD>(static_cast<short>(-steps * WHEEL_DELTA))), 0);
        host_.pump();
    }
    Form& form() { return host_.entry().form(); }

    NativeWindow host_;
};

TEST_F(NativeWheel, ScrollsTheGridOnShowAndChangesNoFigure) {
    host_.entry().put_VisibleQuarters(35);
    host_.entry().put_CurrentTab(toQuarterly);
    host_.pump();
    const auto& bar = controls::quarterlyBar.in(form());
    const int before = bar.value();
    turn(host_.form().window(), 1);
    EXPECT_EQ(bar.value(), before + bar.smallChange());
    turn(host_.form().windowOf(form().get<TextBox>("txtEPS", 1)), 1);
    EXPECT_EQ(bar.value(), before + 2 * bar.smallChange());
    turn(host_.form().window(), -2);
    EXPECT_EQ(bar.value(), before);
    EXPECT_FALSE(host_.entry().get_blnDirty());
}

TEST_F(NativeWheel, IsTheHostsWhereNoGridIsOnShow) {
    host_.entry().put_CurrentTab(toCompany);
    host_.pump();
    const auto& list = form().get<ComboBox>("cmbExchange");
    const std::string chosen = list.text();
    turn(host_.form().windowOf(list), 1);
    EXPECT_EQ(list.text(), chosen) << "it has not the focus";
    EXPECT_FALSE(host_.entry().get_blnDirty());
}

} // namespace
} // namespace vkr
