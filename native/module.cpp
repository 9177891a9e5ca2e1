// SPDX-License-Identifier: MIT
#include "native/module.hpp"

namespace vkr {

HINSTANCE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ownModule), &module);
    return module;
}

const wchar_t* registeredKind(const wchar_t* name, WNDPROC procedure, UINT style) {
    WNDCLASSEXW look{};
    look.cbSize = sizeof look;
    if (GetClassInfoExW(ownModule(), name, &look) != FALSE)
        return name;
    look.style = style;
    look.lpfnWndProc = procedure;
    look.hInstance = ownModule();
    look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    look.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    look.lpszClassName = name;
    RegisterClassExW(&look);
    return name;
}

} // namespace vkr
