// SPDX-License-Identifier: MIT
// vkr-native-bench: what the form costs beside bare native controls that show the same, subject and
// reference in turns. Ends with 1 where a ratio is above its target.
#include "native/control_window.hpp"
#include "tests/native/measuring.hpp"
#include "tests/native/native_window.hpp"
#include "tests/support/entry_scene.hpp"

#include <cstdio>
#include <memory>
#include <vector>

namespace {

using namespace vkr;

bool created(NativeWindow& host, const std::vector<Bare>& list) {
    const RECT place{0, 0, 540, 390};
    const HWND stage = makeStage();
    Ratio ratio(
        [&] {
            NativeServices services;
            services.factory() = host.services().factory();
            VKRDataEntry entry(services);
            entry.InitProperties();
            entry.Resize(VKRDataEntry::workingWidth, VKRDataEntry::workingHeight);
            entry.put_objCompany(fullCompany());
            return timeOf([&] {
                NativeForm form(stage, place, entry.form());
                paintAll(stage);
            });
        },
        [&] {
            return timeOf([&] {
                const HWND around =
                    CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                                    0, 540, 390, stage, nullptr, nullptr, nullptr);
                makeBare(around, list, host.form().fonts().plain());
                paintAll(stage);
                DestroyWindow(around);
            });
        },
        3);
    const bool reached = ratio.reaches("the form created and painted, first page", 1.3);
    DestroyWindow(stage);
    return reached;
}

} // namespace

int main() {
    NativeWindow host;
    host.entry().put_objCompany(fullCompany());
    host.pump();
    const auto list = windowsIn(host.form().window());
    std::printf("%zu windows\n", list.size());
    return created(host, list) ? 0 : 1;
}
