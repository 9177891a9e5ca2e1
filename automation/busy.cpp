// SPDX-License-Identifier: MIT
#include "automation/busy.hpp"

#include "automation/com.hpp"
#include "native/module.hpp"

#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace vkr::automation {

namespace {

constexpr UINT releaseMessage = WM_APP;

struct Waiting {
    std::vector<IUnknown*> objects;
    HWND window = nullptr;
};
// A plain pointer: the runtime would hold the library until the end of every thread on which it has
// something to destroy.
thread_local Waiting* waiting = nullptr;

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
    if (waiting->window == nullptr)
        waiting->window = CreateWindowExW(0, registeredKind(L"VKRDataEntryLater", hear), L"", 0, 0,
                                          0, 0, 0, HWND_MESSAGE, nullptr, ownModule(), nullptr);
    return waiting->window;
}

} // namespace

void releaseLater(IUnknown* object) {
    if (waiting == nullptr)
        waiting = new Waiting;
    waiting->objects.push_back(object);
    PostMessageW(ensureWindow(), releaseMessage, 0, 0);
}

void destroyAtHome(DWORD thread, std::function<void()> destroy) {
    const std::scoped_lock lock(strayLock);
    strays.emplace(thread, std::move(destroy));
}

void releaseWaiting() {
    destroyStrays();
    if (waiting == nullptr)
        return;
    for (IUnknown* const object : std::exchange(waiting->objects, {}))
        object->Release(); // others may be told to wait within, or all be released
    if (waiting == nullptr || !waiting->objects.empty())
        return;
    const std::unique_ptr<Waiting> done(std::exchange(waiting, nullptr));
    if (done->window != nullptr)
        DestroyWindow(done->window);
}

} // namespace vkr::automation
