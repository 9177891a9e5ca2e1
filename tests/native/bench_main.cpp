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

// Texts that a load changes, and nothing else, are set on the bare controls. Both are painted as
// far as the system finds that they have to be.
bool loaded(NativeWindow& host, const std::vector<Bare>& list) {
    const auto company = fullCompany();
    const auto other = std::make_shared<CompanyRecord>();
    host.entry().put_objCompany(other);
    host.pump();
    const auto before = windowsIn(host.form().window());
    const HWND stage = makeStage();
    const auto bare = makeBare(stage, list, host.form().fonts().plain());
    const auto set = [&](const std::vector<Bare>& texts) {
        for (std::size_t i = 0; i < bare.size(); ++i)
            if (before[i].text != list[i].text)
                SetWindowTextW(bare[i], texts[i].text.c_str());
        UpdateWindow(stage);
    };
    const auto load = [&](const std::shared_ptr<CompanyRecord>& one) {
        host.entry().put_objCompany(one);
        UpdateWindow(host.window());
    };
    const auto alternating = [](const auto& undo, const auto& work) {
        return [=] {
            undo();
            return timeOf(work);
        };
    };
    const auto loads = [&] { load(company); };
    const auto sets = [&] { set(list); };
    Ratio ratio(alternating([&] { load(other); }, loads), alternating([&] { set(before); }, sets),
                15);
    bool reached = ratio.reaches("a company loaded and painted", 1.15);
    load(other);
    set(before);
    const int subject = messagesOf(loads);
    const int reference = messagesOf(sets);
    std::printf("messages sent to windows by it: %d against %d\n", subject, reference);
    reached = reached && subject <= reference * 1.1;
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
    const bool both[] = {created(host, list), loaded(host, list)};
    return both[0] && both[1] ? 0 : 1;
}
