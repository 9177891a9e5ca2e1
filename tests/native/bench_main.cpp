// SPDX-License-Identifier: MIT
// vkr-native-bench: what the form costs beside bare native controls that show the same, subject and
// reference in turns. Ends with 1 where a ratio is above its target.
#include "native/control_window.hpp"
#include "native/native_text.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace vkr;

double now() {
    LARGE_INTEGER count;
    LARGE_INTEGER perSecond;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(count.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

template <typename Work>
double timeOf(Work&& work) {
    const double start = now();
    work();
    return now() - start;
}

// A bare window like one of the form's, and what is in it.
struct Bare {
    std::wstring kind;
    std::wstring text;
    LONG_PTR style = 0;
    LONG_PTR extended = 0;
    RECT place{};
    int around = -1; // its place in the list
};

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

constexpr int rounds = 15;

bool created(NativeWindow& host, const std::vector<Bare>& list) {
    std::vector<double> subject;
    std::vector<double> reference;
    const RECT place{0, 0, 540, 390};
    HWND stage = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                                 560, 420, nullptr, nullptr, nullptr, nullptr);
    for (int round = 0; round < rounds; ++round) {
        NativeServices services;
        services.factory() = host.services().factory();
        VKRDataEntry entry(services);
        entry.InitProperties();
        entry.Resize(VKRDataEntry::workingWidth, VKRDataEntry::workingHeight);
        entry.put_objCompany(fullCompany());
        subject.push_back(timeOf([&] {
            NativeForm form(stage, place, entry.form());
            paintAll(stage);
        }));
        reference.push_back(timeOf([&] {
            const HWND around =
                CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                                540, 390, stage, nullptr, nullptr, nullptr);
            makeBare(around, list, host.form().fonts().plain());
            paintAll(stage);
            DestroyWindow(around);
        }));
    }
    DestroyWindow(stage);
    return report("created and painted, first page", subject, reference, 1.3);
}

bool loaded(NativeWindow& host, const std::vector<Bare>& list) {
    const auto company = fullCompany();
    const auto other = std::make_shared<CompanyRecord>();
    HWND stage = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                                 560, 420, nullptr, nullptr, nullptr, nullptr);
    const auto bare = makeBare(stage, list, host.form().fonts().plain());
    std::vector<double> subject;
    std::vector<double> reference;
    for (int round = 0; round < rounds; ++round) {
        host.entry().put_objCompany(other);
        paintAll(host.window());
        subject.push_back(timeOf([&] {
            host.entry().put_objCompany(company);
            UpdateWindow(host.window());
            paintAll(host.form().window());
        }));
        for (const HWND window : bare)
            SetWindowTextW(window, L"");
        paintAll(stage);
        reference.push_back(timeOf([&] {
            for (std::size_t i = 0; i < bare.size(); ++i)
                SetWindowTextW(bare[i], list[i].text.c_str());
            paintAll(stage);
        }));
    }
    DestroyWindow(stage);
    return report("a company loaded and painted", subject, reference, 1.15);
}

} // namespace

int main() {
    NativeWindow host;
    host.entry().put_objCompany(fullCompany());
    host.pump();
    std::vector<Bare> list;
    collect(host.form().window(), -1, list);
    std::printf("%zu windows\n", list.size());
    const bool both[] = {created(host, list), loaded(host, list)};
    return both[0] && both[1] ? 0 : 1;
}
