// SPDX-License-Identifier: MIT
#include "tests/native/measuring.hpp"

#include "native/native_text.hpp"

#include <algorithm>
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

bool report(const char* name, std::vector<double> subject, std::vector<double> reference,
            double target) {
    const auto median = [](std::vector<double>& times) {
        std::ranges::sort(times);
        return times[times.size() / 2];
    };
    const double one = median(subject);
    const double other = median(reference);
    const bool reached = one / other <= target;
    std::printf("%-40s %8.2f ms against %8.2f ms: %5.2f, to reach %4.2f%s\n", name, one * 1000,
                other * 1000, one / other, target, reached ? "" : "  ABOVE");
    return reached;
}

} // namespace vkr
