// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"
#include "platform/date.hpp"
#include "platform/services.hpp"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vkr {

// What is turned in the preview of a paste, by the places of the switches, and how it ends.
struct PasteAnswer {
    std::vector<std::pair<int, int>> switches;
    bool ok = false;
};

// Works every message box, menu, calendar and preview that opens on this thread as a person does,
// by keys and clicks: what is in front of its script, else the default button or no choice. A timer
// tells it to look, which dialogs and menus let through.
class Answerer {
  public:
    Answerer();
    ~Answerer();
    Answerer(const Answerer&) = delete;
    Answerer& operator=(const Answerer&) = delete;

    std::deque<MessageAnswer> script;
    std::vector<std::string> seen;
    std::deque<std::string> menuScript;
    std::vector<std::string> lastMenu;
    std::deque<std::optional<Date>> dateScript;
    std::vector<Date> calendars;
    std::deque<PasteAnswer> pasteScript;
    std::vector<std::string> lastPaste; // its lines, texts parted by "|"; then the caption of OK

  private:
    static void CALLBACK look(HWND window, UINT message, UINT_PTR timer, DWORD now);
    void work(HWND window);
    void answer(HWND box);
    void choose(HWND window);
    void pick(HWND calendar);
    void paste(HWND dialog, HWND lines);

    UINT_PTR timer_ = 0;
    HWND worked_ = nullptr; // it takes a while until it has closed
};

// Keys as the keyboard sends them, to whatever has the focus; one that repeats is held down.
void strikeKey(WORD key, int shift = 0, int times = 1);
// A character by the key that types it, or as such where no key does.
void strikeCharacter(char32_t character, int times = 1);

} // namespace vkr
