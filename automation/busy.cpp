// SPDX-License-Identifier: MIT
#include "automation/busy.hpp"

#include "automation/com.hpp"
#include "native/module.hpp"

#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace vkr::automation {

namespace {

constexpr const wchar_t* className = L"VKRDataEntryLater";
constexpr UINT releaseMessage = WM_APP;

struct Waiting {
    std::vector<IUnknown*> objects;
    HWND window = nullptr;
};
thread_local Waiting waiting;

std::mutex strayLock;
std::multimap<DWORD, std::function<void()>> strays; // by the thread that they belong to

void destroyStrays() {
    std::vector<std::function<void()>> mine;
    {
        const std::scoped_lock lock(strayLock);
        const auto [first, last] = strays.equal_range(GetCurrentThreadId());
        for (auto one = first; one != last; ++one)
            mine.push_back(std::move(one->second));
        strays.erase(first, last);
    }
    for (const auto& destroy : mine)
        destroy();
}

LRESULT CALLBACK hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != releaseMessage)
        return DefWindowProcW(window, message, wParam, lParam);
    releaseWaiting();
    return 0;
}

HWND ensureWindow() {
    if (waiting.window != nullptr)
        return waiting.window;
    WNDCLASSW described{};
    described.lpfnWndProc = hear;
    described.hInstance = ownModule();
    described.lpszClassName = className;
    RegisterClassW(&described); // again: it is there
    waiting.window = CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                     ownModule(), nullptr);
    return waiting.window;
}

} // namespace

void releaseLater(IUnknown* object) {
    waiting.objects.push_back(object);
    PostMessageW(ensureWindow(), releaseMessage, 0, 0);
}

void destroyAtHome(DWORD thread, std::function<void()> destroy) {
    const std::scoped_lock lock(strayLock);
    strays.emplace(thread, std::move(destroy));
}

void releaseWaiting() {
    destroyStrays();
    for (IUnknown* const object : std::exchange(waiting.objects, {}))
        object->Release();
    if (waiting.window != nullptr && waiting.objects.empty()) {
        const HWND closed = std::exchange(waiting.window, nullptr);
        DestroyWindow(closed);
    }
}

} // namespace vkr::automation
