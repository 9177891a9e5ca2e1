// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "form/sizes.hpp"

#include <string_view>

namespace vkr {

// The rows of the quarterly grid as controls: made and removed while running, and scrolled below
// their view. `count` rows are there, 1 to most; the bar says which is the first in view.
class QuarterRows {
  public:
    explicit QuarterRows(EntryContext& context) : context_(context) {}

    static constexpr int most = 35;
    static constexpr int atStart = sizes::quarterRows;

    [[nodiscard]] int count() const { return count_; }
    // The cells of rows that are removed must not have the focus.
    void make(int count);
    void layOut(); // bar and scroll position
    void scroll(); // the bar was moved
    void bringIntoView(int row);
    [[nodiscard]] int page() const; // rows in view

  private:
    void add(std::string_view array, int row);

    EntryContext& context_;
    int count_ = atStart;
};

} // namespace vkr
