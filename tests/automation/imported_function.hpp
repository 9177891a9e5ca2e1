// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <windows.h>

namespace vkr::automation {

// While it lives a library calls another function than the one of the system that it imports by
// that name.
class ImportedFunction {
  public:
    ImportedFunction(HMODULE module, std::string_view name, void* instead)
        : place_(placeOf(reinterpret_cast<std::byte*>(module), name)), before_(*place_) {
        put(instead);
    }
    ~ImportedFunction() { put(before_); }
    ImportedFunction(const ImportedFunction&) = delete;
    ImportedFunction& operator=(const ImportedFunction&) = delete;

  private:
    static void** placeOf(std::byte* base, std::string_view name) {
        const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* const head = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        const auto& imports = head->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        const auto* one =
            reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
        for (; one->Name != 0; ++one) {
            const auto* names =
                reinterpret_cast<const IMAGE_THUNK_DATA*>(base + one->OriginalFirstThunk);
            auto* functions = reinterpret_cast<IMAGE_THUNK_DATA*>(base + one->FirstThunk);
            for (; names->u1.AddressOfData != 0; ++names, ++functions) {
                if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                    continue;
                const auto* const found =
                    reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
                if (name == reinterpret_cast<const char*>(found->Name))
                    return reinterpret_cast<void**>(&functions->u1.Function);
            }
        }
        std::abort();
    }
    void put(void* function) {
        DWORD protection = 0;
        VirtualProtect(place_, sizeof(void*), PAGE_READWRITE, &protection);
        *place_ = function;
        VirtualProtect(place_, sizeof(void*), protection, &protection);
    }

    void** place_;
    void* before_;
};

} // namespace vkr::automation
