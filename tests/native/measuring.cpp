// SPDX-License-Identifier: MIT
#include "tests/native/measuring.hpp"

#include "native/native_text.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vkr {

double secondsNow() {
    LARGE_INTEGER count;
    LARGE_INTEGER perSecond;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(count.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

namespace {

void collect(HWND window, int around, std::vector<Bare>& list) {
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t kind[64] = L"";
        GetClassNameW(child, kind, static_cast<int>(std::size(kind)));
        Bare bare{kind,
                  windowText(child),
                  GetWindowLongPtrW(child, GWL_STYLE),
                  GetWindowLongPtrW(child, GWL_EXSTYLE),
                  {},
                  around};
        if (bare.kind.starts_with(L"VKR"))
            bare.kind = WC_STATICW;
        GetWindowRect(child, &bare.place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&bare.place), 2);
        list.push_back(bare);
        if (bare.kind != WC_COMBOBOXW)
            collect(child, static_cast<int>(list.size()) - 1, list);
    }
}

} // namespace

std::vector<Bare> windowsIn(HWND window) {
    std::vector<Bare> list;
    collect(window, -1, list);
    return list;
}

HWND makeStage() {
    return CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 560,
                           420, nullptr, nullptr, nullptr, nullptr);
}

std::vector<HWND> makeBare(HWND parent, const std::vector<Bare>& list, HFONT font) {
    std::vector<HWND> made;
    for (const auto& bare : list) {
        const HWND around = bare.around < 0 ? parent : made[static_cast<std::size_t>(bare.around)];
        made.push_back(
            CreateWindowExW(static_cast<DWORD>(bare.extended), bare.kind.c_str(), bare.text.c_str(),
                            static_cast<DWORD>(bare.style), bare.place.left, bare.place.top,
                            bare.place.right - bare.place.left, bare.place.bottom - bare.place.top,
                            around, nullptr, nullptr, nullptr));
        SendMessageW(made.back(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
    return made;
}

void paintAll(HWND window) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

namespace {

// The value below which `share` of all lie.
double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const auto above = std::min(below + 1, values.size() - 1);
    return std::lerp(values[below], values[above], place - static_cast<double>(below));
}

} // namespace

void Ratio::addPair() {
    std::vector<double> subject;
    std::vector<double> reference;
    for (int turn = 0; turn < turns_; ++turn) {
        const bool subjectFirst = (static_cast<std::size_t>(turn) + ratios_.size()) % 2 == 0;
        if (subjectFirst)
            subject.push_back(subject_());
        reference.push_back(reference_());
        if (!subjectFirst)
            subject.push_back(subject_());
    }
    ratios_.push_back(quantile(subject, 0.5) / quantile(reference, 0.5));
}

bool Ratio::reaches(const char* name, double target) {
    constexpr std::size_t fewest = 7;
    constexpr std::size_t most = 21;
    subject_(); // what is made once
    reference_();
    double low = 0;
    double high = 0;
    while (ratios_.size() < fewest || (low <= target && high > target && ratios_.size() < most)) {
        addPair();
        low = quantile(ratios_, 0.25);
        high = quantile(ratios_, 0.75);
    }
    const double median = quantile(ratios_, 0.5);
    const char* verdict = median > target ? "MISSED" : "met";
    std::printf("%-45s %5.2f (%4.2f-%4.2f, %2zu pairs), to reach %4.2f  %s\n", name, median, low,
                high, ratios_.size(), target, verdict);
    std::fflush(stdout);
    return median <= target;
}

namespace {

int messages = 0;

LRESULT CALLBACK countMessage(int code, WPARAM wParam, LPARAM lParam) {
    ++messages;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

int messagesOf(const std::function<void()>& work) {
    const HHOOK hook =
        SetWindowsHookExW(WH_CALLWNDPROC, countMessage, nullptr, GetCurrentThreadId());
    messages = 0;
    work();
    UnhookWindowsHookEx(hook);
    return messages;
}

} // namespace vkr
