// SPDX-License-Identifier: MIT
#include "native/module.hpp"

#include <mutex>
#include <vector>

namespace vkr {

HINSTANCE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ownModule), &module);
    return module;
}

namespace {

// The system keeps the classes of a library that it unloads, with procedures that are gone.
class Kinds {
  public:
    ~Kinds() {
        for (const wchar_t* const name : names_)
            UnregisterClassW(name, module_);
    }
    void ensure(const wchar_t* name, WNDPROC procedure, UINT style) {
        const std::scoped_lock lock(lock_);
        WNDCLASSEXW look{};
        look.cbSize = sizeof look;
        if (GetClassInfoExW(module_, name, &look) != FALSE)
            return;
        look.style = style;
        look.lpfnWndProc = procedure;
        look.hInstance = module_;
        look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        look.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        look.lpszClassName = name;
        names_.push_back(name);
        RegisterClassExW(&look);
    }

  private:
    const HINSTANCE module_ = ownModule();
    std::mutex lock_; // of each apartment's thread
    std::vector<const wchar_t*> names_;
};

} // namespace

const wchar_t* registeredKind(const wchar_t* name, WNDPROC procedure, UINT style) {
    static Kinds kinds; // until the library is unloaded
    kinds.ensure(name, procedure, style);
    return name;
}

} // namespace vkr
