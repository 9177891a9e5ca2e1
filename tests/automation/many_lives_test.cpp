// SPDX-License-Identifier: MIT
// A control that is made, worked with and closed again and again: nothing is left of it.
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/held.hpp"

#include <commctrl.h>
#include <cstdlib>

namespace vkr::automation {
namespace {

// VKR_LONG_TESTS asks for a thousand.
int wantedLives() {
    return std::getenv("VKR_LONG_TESTS") == nullptr ? 20 : 1000;
}

struct ManyLives : Control {
    ComPtr<::iVKR_Company> company;
    std::size_t labels = 0; // of all lives

    // Created, activated, edited by keys, closed.
    void live() {
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        company = library.create<::iVKR_Company>(__uuidof(::Company));
        EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), S_OK);
        open(company.get());
        type("txtName", "ACME");
        press(VK_TAB);
        EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
        type("txtSales(3)", "125");
        press(VK_RETURN);
        turn();
        Bstr name;
        EXPECT_EQ(company->get_Name(name.receive()), S_OK);
        EXPECT_EQ(textOf(name.get()), "acme");
        HWND window = nullptr;
        EXPECT_EQ(site->control->GetWindow(&window), S_OK);
        labels += static_cast<std::size_t>(labelsIn(window));
        takeAway();
        control.reset();
        company.reset();
        site->frame->active.reset();
        site->log.clear();
    }
};

TEST_F(ManyLives, LeaveNothingBehind) {
    for (int i = 0; i < 5; ++i) // what is made once, and room in the heap
        live();
    labels = 0;
    const Held start;
    const int lives = wantedLives();
    for (int i = 0; i < lives; ++i)
        live();
    const Held end;
    std::printf("%d lives: objects %ld %ld, gdi %d %d, windows %d %d, tables %d %d, handles %d %d, "
                "blocks %zu %zu, bytes %zu %zu, memory %zu %zu, labels %zu\n",
                lives, start.objects, end.objects, start.gdi, end.gdi, start.windows, end.windows,
                start.tables, end.tables, start.handles, end.handles, start.blocks, end.blocks,
                start.bytes, end.bytes, start.memory, end.memory, labels);
    EXPECT_EQ(end.objects, start.objects);
    EXPECT_LE(end.gdi, start.gdi + 2);
    EXPECT_LE(end.windows, start.windows);
    EXPECT_LE(end.tables, start.tables);
    EXPECT_LE(end.handles, start.handles + 2);
    EXPECT_LE(end.blocks, start.blocks + labels + 20);
    EXPECT_LE(end.bytes, start.bytes + 24 * labels + 4 * 1024);
    EXPECT_LE(end.memory, start.memory + 4 * 1024 * 1024);
}

TEST(HeldByTheProcess, IsCounted) {
    const Held start;
    const HBRUSH brush = CreateSolidBrush(0x123456);
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 9, 9, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ACCEL key{FALT, 'A', 1};
    const HACCEL keys = CreateAcceleratorTableW(&key, 1);
    void* const block = HeapAlloc(GetProcessHeap(), 0, 100);
    const Held end;
    HeapFree(GetProcessHeap(), 0, block);
    DestroyAcceleratorTable(keys);
    DestroyWindow(window);
    CloseHandle(event);
    DeleteObject(brush);
    EXPECT_EQ(end.gdi, start.gdi + 1);
    EXPECT_EQ(end.handles, start.handles + 1);
    EXPECT_EQ(end.windows, start.windows + 1);
    EXPECT_EQ(end.tables, start.tables + 1);
    EXPECT_GT(end.blocks, start.blocks);
    EXPECT_GE(end.bytes, start.bytes + 100);
}

// With the styles that the library asks for, as its own have them.
TEST(HeldByTheProcess, ALabelOfTheSystemKeepsABlockOfItsFont) {
    ACTCTXW styles{};
    styles.cbSize = sizeof styles;
    styles.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    const std::wstring path = LoadedLibrary::get().path();
    styles.lpSource = path.c_str();
    styles.lpResourceName = MAKEINTRESOURCEW(2);
    const HANDLE context = CreateActCtxW(&styles);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    ASSERT_NE(ActivateActCtx(context, &cookie), FALSE);
    constexpr int labels = 50;
    const auto make = [] {
        for (int i = 0; i < labels; ++i) {
            const HWND label = CreateWindowExW(0, WC_STATICW, L"Name", WS_POPUP, 0, 0, 9, 9,
                                               nullptr, nullptr, nullptr, nullptr);
            const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
            SendMessageW(label, WM_SETFONT, font, FALSE);
            DestroyWindow(label);
        }
    };
    make(); // what is made once
    const Held start;
    make();
    const Held end;
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
    EXPECT_LE(end.blocks, start.blocks + labels);
    EXPECT_LE(end.bytes, start.bytes + 24 * labels);
    EXPECT_GE(end.blocks + 5, start.blocks + labels) << "labels keep less than they did";
}

} // namespace
} // namespace vkr::automation
