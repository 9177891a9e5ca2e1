// SPDX-License-Identifier: MIT
// vkr-native-bench: what the form costs beside bare native controls that show the same, subject and
// reference in turns. Ends with 1 where a ratio is above its target.
#include "native/control_window.hpp"
#include "tests/native/measuring.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdio>
#include <vector>

namespace {

using namespace vkr;

constexpr int rounds = 15;

bool created(NativeWindow& host, const std::vector<Bare>& list) {
    std::vector<double> subject;
    std::vector<double> reference;
    const RECT place{0, 0, 540, 390};
    const HWND stage = makeStage();
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
    return report("the form created and painted, first page", subject, reference, 1.3);
}

bool loaded(NativeWindow& host, const std::vector<Bare>& list) {
    const auto company = fullCompany();
    const auto other = std::make_shared<CompanyRecord>();
    const HWND stage = makeStage();
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
    const auto list = windowsIn(host.form().window());
    std::printf("%zu windows\n", list.size());
    const bool both[] = {created(host, list), loaded(host, list)};
    return both[0] && both[1] ? 0 : 1;
}
