// SPDX-License-Identifier: MIT
#include "native/calendar_window.hpp"
#include "native/native_text.hpp"
#include "tests/native/answerer.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace vkr {
namespace {

// What the buttons of the open calendar say; then a letter with Alt is struck.
std::vector<std::string> captions;
WORD letter = 0;

void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
    const HWND calendar = FindWindowW(L"VKRDataEntryDialog", nullptr);
    if (calendar == nullptr || letter == 0)
        return;
    captions = {fromWide(windowText(GetDlgItem(calendar, IDOK))),
                fromWide(windowText(GetDlgItem(calendar, IDCANCEL)))};
    strikeKey(std::exchange(letter, WORD{0}), shifts::alt);
}

TEST(CalendarWindowTest, ItsButtonsSayWhatThoseOfTheFormDoAndHearTheirLetters) {
    NativeWindow host;
    auto& form = host.entry().form();
    host.entry().put_objCompany(fullCompany());
    form.get<CommandButton>("cmdOK").setCaption("&Gut");
    form.get<CommandButton>("cmdCancel").setCaption("&Abbruch");
    host.entry().showField("txtLastUpdate");
    host.pump();
    const std::string before = form.get<TextField>("txtLastUpdate").text();
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, look);
    for (const WORD pressed : {WORD{'A'}, WORD{'G'}}) {
        captions.clear();
        letter = pressed;
        strikeKey(VK_F4);
        host.pump();
        EXPECT_EQ(captions, (std::vector<std::string>{"&Gut", "&Abbruch"}));
        EXPECT_EQ(letter, 0);
        EXPECT_EQ(form.get<TextField>("txtLastUpdate").text(), before); // the same day
    }
    KillTimer(nullptr, timer);
}

} // namespace
} // namespace vkr
