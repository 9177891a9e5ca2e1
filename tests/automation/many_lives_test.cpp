// SPDX-License-Identifier: MIT
// A control that is made, worked with and closed again and again: nothing is left of it.
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/held.hpp"

#include <cstdlib>

namespace vkr::automation {
namespace {

// VKR_LONG_TESTS asks for a thousand.
int wantedLives() {
    return std::getenv("VKR_LONG_TESTS") == nullptr ? 20 : 1000;
}

struct ManyLives : Control {
    ComPtr<::iVKR_Company> company;

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
    const Held start;
    const int lives = wantedLives();
    for (int i = 0; i < lives; ++i)
        live();
    const Held end;
    std::printf("%d lives: objects %ld %ld, gdi %d %d, windows %d %d, tables %d %d, handles %d %d, "
                "blocks %zu %zu, bytes %zu %zu, memory %zu %zu\n",
                lives, start.objects, end.objects, start.gdi, end.gdi, start.windows, end.windows,
                start.tables, end.tables, start.handles, end.handles, start.blocks, end.blocks,
                start.bytes, end.bytes, start.memory, end.memory);
    EXPECT_EQ(end.objects, start.objects);
    EXPECT_LE(end.gdi, start.gdi + 2);
    EXPECT_LE(end.windows, start.windows);
    EXPECT_LE(end.tables, start.tables);
    EXPECT_LE(end.handles, start.handles + 2);
    // Each label of Wine's common controls keeps 24 bytes of the font that it is given, as a bare
    // one does. A life shows 56 of them.
    constexpr std::size_t labels = 58;
    const auto kept = static_cast<std::size_t>(lives) * labels;
    EXPECT_LE(end.blocks, start.blocks + kept + 100);
    EXPECT_LE(end.bytes, start.bytes + 24 * kept + 32 * 1024);
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

} // namespace
} // namespace vkr::automation
