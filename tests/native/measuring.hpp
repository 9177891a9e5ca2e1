// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <functional>
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

// How often the time of the reference the subject takes. Both run in turns, each in turn the first;
// the medians of some turns make a pair. As the other ratios it is measured more often while the
// middle half of the pairs lies on both sides of the target.
class Ratio {
  public:
    using Work = std::function<double()>; // says how long it took

    Ratio(Work subject, Work reference, int turns)
        : subject_(std::move(subject)), reference_(std::move(reference)), turns_(turns) {}

    // Prints the median; false where it is above the target.
    bool reaches(const char* name, double target);

  private:
    void addPair();

    Work subject_;
    Work reference_;
    int turns_;
    std::vector<double> ratios_;
};

// How many messages were sent to windows, which does not depend on the machine.
[[nodiscard]] int messagesOf(const std::function<void()>& work);

} // namespace vkr
