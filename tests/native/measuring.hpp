// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <string>
#include <utility>
#include <vector>

namespace vkr {

[[nodiscard]] double secondsNow();

template <typename Work>
double timeOf(Work&& work) {
    const double start = secondsNow();
    std::forward<Work>(work)();
    return secondsNow() - start;
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
// Those inside a window, outer ones first.
[[nodiscard]] std::vector<Bare> windowsIn(HWND window);
std::vector<HWND> makeBare(HWND parent, const std::vector<Bare>& list, HFONT font);
// A window as a stage for them.
[[nodiscard]] HWND makeStage();

void paintAll(HWND window);

// Prints the medians and their ratio; false where that is above its target.
bool report(const char* name, std::vector<double> subject, std::vector<double> reference,
            double target);

} // namespace vkr
