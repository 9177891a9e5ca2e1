// SPDX-License-Identifier: MIT
// New colours of the system, as somebody has them who turns high contrast on.
#include "native/drawing.hpp"
#include "native/field_window.hpp"
#include "platform/readable_color.hpp"
#include "tests/native/answerer.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <utility>
#include <vector>

namespace vkr {
namespace {

constexpr COLORREF face = RGB(16, 48, 32);
constexpr COLORREF label = RGB(255, 250, 200);
constexpr COLORREF field = RGB(8, 8, 8);
constexpr COLORREF text = RGB(250, 255, 250);
constexpr COLORREF gray = RGB(63, 242, 63);

// Light on dark while it lives.
class DarkColors {
  public:
    DarkColors() {
        for (const int name : names_)
            before_.push_back(GetSysColor(name));
        const std::vector<COLORREF> dark{face, label, field, text, gray};
        SetSysColors(static_cast<int>(names_.size()), names_.data(), dark.data());
    }
    ~DarkColors() { SetSysColors(static_cast<int>(names_.size()), names_.data(), before_.data()); }
    DarkColors(const DarkColors&) = delete;
    DarkColors& operator=(const DarkColors&) = delete;

  private:
    std::vector<int> names_{COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_WINDOW, COLOR_WINDOWTEXT,
                            COLOR_GRAYTEXT};
    std::vector<COLORREF> before_;
};

class SystemColors : public testing::Test {
  protected:
    SystemColors() {
        host_.entry().put_objCompany(fullCompany());
        host_.pump();
    }
    HWND window(std::string_view id) {
        for (const auto& control : host_.entry().form().controls())
            if (control->id() == id)
                return host_.form().windowOf(*control);
        return nullptr;
    }
    TextField& fieldOf(std::string_view name) { return host_.entry().form().get<TextField>(name); }
    // What is on the screen of a window, row by row. Frames are the visual style's.
    static std::vector<COLORREF> pixels(HWND window,
                                        WindowContext::Part part = WindowContext::Part::client) {
        RECT area;
        GetClientRect(window, &area);
        if (part == WindowContext::Part::all) {
            GetWindowRect(window, &area);
            OffsetRect(&area, -area.left, -area.top);
        }
        const WindowContext context(window, part);
        std::vector<COLORREF> all;
        for (int top = 0; top < area.bottom; ++top)
            for (int left = 0; left < area.right; ++left)
                all.push_back(GetPixel(context, left, top));
        return all;
    }
    static auto share(const std::vector<COLORREF>& pixels, COLORREF color) {
        return 100 * std::ranges::count(pixels, color) / static_cast<std::ptrdiff_t>(pixels.size());
    }
    // The surface hears of them from its container; the painting comes by the message loop.
    void tell() {
        SendMessageW(host_.form().window(), WM_SYSCOLORCHANGE, 0, 0);
        host_.pump();
    }

    NativeWindow host_;
};

TEST_F(SystemColors, ThePageAndItsLabelsArePaintedWithTheNewOnes) {
    const HWND caption = window("lblLabel(0)");
    ASSERT_NE(caption, nullptr);
    EXPECT_EQ(share(pixels(caption), face), 0);
    const DarkColors dark;
    tell();
    const auto after = pixels(caption);
    EXPECT_GT(share(after, face), 50);
    EXPECT_GT(std::ranges::count(after, label), 3);
    EXPECT_GT(share(pixels(host_.form().window()), face), 20);
}

// Wine has no way to turn it on: the palette is told.
TEST_F(SystemColors, InHighContrastFieldsAndMarksHaveThemToo) {
    host_.entry().showField("txtTotalDebt");
    host_.services().setClipboardText("1.5M"); // taken in part
    strikeKey('V', shifts::control);
    strikeKey(VK_TAB);
    host_.pump();
    ASSERT_NE(fieldOf("txtTotalDebt").shownMark(), MarkKind::none);
    const DarkColors dark;
    host_.form().palette().follow(true);
    RedrawWindow(host_.form().window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    host_.pump();
    const auto name = pixels(window("txtName"));
    EXPECT_GT(share(name, field), 50);
    EXPECT_GT(std::ranges::count(name, text), 3);
    EXPECT_EQ(share(name, colors::white), 0);
    const auto debt = pixels(window("txtTotalDebt"), WindowContext::Part::all);
    const auto mark = readable(markColor(fieldOf("txtTotalDebt").shownMark()), field, signContrast);
    EXPECT_GT(std::ranges::count(debt, static_cast<COLORREF>(mark)), 20);
    const auto list = pixels(window("cmbExchange"));
    EXPECT_GT(share(list, field), 30);
    fieldOf("txtName").setEnabled(false);
    host_.pump();
    EXPECT_GT(std::ranges::count(pixels(window("txtName")), gray), 3);
}

// The legend would promise a shade that no cell has.
TEST_F(SystemColors, InHighContrastAShadeThatSaysSomethingStays) {
    host_.entry().put_CurrentTab(toYearly);
    host_.pump();
    const DarkColors dark;
    host_.form().palette().follow(true);
    RedrawWindow(host_.form().window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    host_.pump();
    int shaded = 0;
    int plain = 0;
    for (int row = 0; row < 10; ++row) {
        const std::string name = "txtSales(" + std::to_string(row) + ")";
        const Color ground = host_.entry().form().get<TextField>("txtSales", row).backColor();
        const auto seen = pixels(window(name));
        const bool isShaded = ground != colors::white;
        (isShaded ? shaded : plain) += 1;
        EXPECT_GT(share(seen, isShaded ? static_cast<COLORREF>(ground) : field), 50) << name;
        EXPECT_GT(std::ranges::count(seen, isShaded ? static_cast<COLORREF>(colors::black) : text),
                  3)
            << name;
    }
    EXPECT_GT(shaded, 0);
    EXPECT_GT(plain, 0);
    host_.entry().put_CurrentTab(toQuarterly);
    host_.pump();
    int labels = 0;
    for (const auto& control : host_.entry().form().controls()) {
        if (control->kind() != ControlKind::label || control->caption().empty() ||
            isSystemColor(control->backColor()))
            continue;
        const HWND shown = host_.form().windowOf(*control);
        if (shown == nullptr || IsWindowVisible(shown) == FALSE)
            continue;
        ++labels;
        EXPECT_GT(share(pixels(shown), static_cast<COLORREF>(control->backColor())), 50)
            << control->id();
    }
    EXPECT_EQ(labels, 1); // of the quarter that ends the fiscal year
}

std::set<HWND> told;

LRESULT CALLBACK note(int code, WPARAM wParam, LPARAM lParam) {
    const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (call.message == WM_SYSCOLORCHANGE)
        told.insert(call.hwnd);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Tab strips, arrows and calendars keep colours of their own until they hear of it, which is
// what parents are for.
TEST_F(SystemColors, EveryWindowHearsOfNewOnes) {
    std::set<HWND> wanted{host_.form().window()};
    EnumChildWindows(
        host_.form().window(),
        [](HWND child, LPARAM into) -> BOOL {
            reinterpret_cast<std::set<HWND>*>(into)->insert(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&wanted));
    told.clear();
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, note, nullptr, GetCurrentThreadId());
    SendMessageW(host_.form().window(), WM_SYSCOLORCHANGE, 0, 0);
    UnhookWindowsHookEx(hook);
    EXPECT_GT(wanted.size(), 50U);
    EXPECT_EQ(told, wanted);
}

} // namespace
} // namespace vkr
