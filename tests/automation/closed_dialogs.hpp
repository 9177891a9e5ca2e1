// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"

#include <string_view>

namespace vkr::automation {

// While it lives whatever asks is answered with no.
class ClosedDialogs {
  public:
    ClosedDialogs() : timer_(SetTimer(nullptr, 0, 5, close)) {}
    ~ClosedDialogs() { KillTimer(nullptr, timer_); }
    ClosedDialogs(const ClosedDialogs&) = delete;
    ClosedDialogs& operator=(const ClosedDialogs&) = delete;

  private:
    static void CALLBACK close(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM) -> BOOL {
                wchar_t kind[40] = L"";
                GetClassNameW(window, kind, 40);
                if (std::wstring_view(kind) == L"#32770")
                    PostMessageW(window, WM_COMMAND,
                                 IsWindow(GetDlgItem(window, IDNO)) ? IDNO : IDCANCEL, 0);
                return TRUE;
            },
            0);
    }
    UINT_PTR timer_;
};

} // namespace vkr::automation
