// SPDX-License-Identifier: MIT
#pragma once

#include "tests/automation/loaded_library.hpp"

#include <psapi.h>
#include <winternl.h>

namespace vkr::automation {

// Each label of Wine's common controls keeps 24 bytes of a font that it is given. How many there
// are in a window.
inline int labelsIn(HWND window) {
    int count = 0;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM into) -> BOOL {
            wchar_t kind[20] = {};
            GetClassNameW(child, kind, 20);
            *reinterpret_cast<int*>(into) += lstrcmpiW(kind, L"Static") == 0 ? 1 : 0;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

// What the process has at the moment. Wine tells no counts, so everything is counted here.
struct Held {
    long objects = LoadedLibrary::get().alive();
    int gdi = gdiObjects();
    int windows = windowsOfThread();
    int tables = menusAndAccelerators();
    int handles = kernelHandles();
    SIZE_T blocks = 0; // of all heaps
    SIZE_T bytes = 0;  // in them
    SIZE_T memory = 0; // of the process

    Held() {
        HANDLE heaps[100];
        const DWORD count = GetProcessHeaps(100, heaps);
        for (DWORD i = 0; i < count && i < 100; ++i) {
            HeapLock(heaps[i]);
            PROCESS_HEAP_ENTRY entry{};
            while (HeapWalk(heaps[i], &entry) != FALSE)
                if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
                    ++blocks;
                    bytes += entry.cbData;
                }
            HeapUnlock(heaps[i]);
        }
        PROCESS_MEMORY_COUNTERS counters{};
        GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
        memory = counters.PagefileUsage;
    }

    // Of the process, by the table that every process has: an entry that is in use has a type.
    static int gdiObjects() {
        if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); told != 0)
            return static_cast<int>(told);
        constexpr std::size_t tableOffset = 0xF8; // in the block of the process, 64 bit
        constexpr std::size_t entrySize = 24;
        constexpr std::size_t typeOffset = 14;
        constexpr std::size_t entries = 0x4000;
        const auto* const block =
            reinterpret_cast<const std::byte*>(NtCurrentTeb()->ProcessEnvironmentBlock);
        const auto* const table = *reinterpret_cast<const std::byte* const*>(block + tableOffset);
        int used = 0;
        for (std::size_t i = 0; table != nullptr && i < entries; ++i)
            used += table[i * entrySize + typeOffset] != std::byte{0};
        return used;
    }
    // With those that only hear messages.
    static int windowsOfThread() {
        int count = 0;
        const auto add = [](HWND window, LPARAM into) -> BOOL {
            ++*reinterpret_cast<int*>(into);
            EnumChildWindows(
                window,
                [](HWND, LPARAM inner) -> BOOL {
                    ++*reinterpret_cast<int*>(inner);
                    return TRUE;
                },
                into);
            return TRUE;
        };
        EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&count));
        for (HWND one = nullptr;
             (one = FindWindowExW(HWND_MESSAGE, one, nullptr, nullptr)) != nullptr;)
            count += GetWindowThreadProcessId(one, nullptr) == GetCurrentThreadId();
        return count;
    }
    static int menusAndAccelerators() {
        int count = 0;
        for (std::uintptr_t number = 0x20; number < 0x10000; number += 2) {
            count += IsMenu(reinterpret_cast<HMENU>(number)) != FALSE;
            count += CopyAcceleratorTableW(reinterpret_cast<HACCEL>(number), nullptr, 0) > 0;
        }
        return count;
    }
    static int kernelHandles() {
        struct Entry {
            USHORT process;
            USHORT trace;
            UCHAR type;
            UCHAR flags;
            USHORT handle;
            void* object;
            ULONG access;
        };
        struct List {
            ULONG count;
            Entry entries[1];
        };
        constexpr auto systemHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
        std::vector<std::byte> room(1 << 22);
        if (NtQuerySystemInformation(systemHandles, room.data(), static_cast<ULONG>(room.size()),
                                     nullptr) != 0)
            return -1;
        const auto* const list = reinterpret_cast<const List*>(room.data());
        int count = 0;
        for (ULONG i = 0; i < list->count; ++i)
            count += list->entries[i].process == static_cast<USHORT>(GetCurrentProcessId());
        return count;
    }
};

} // namespace vkr::automation
