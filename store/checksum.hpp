// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <string_view>

namespace vkr {

// CRC-64 of ECMA-182: finds every change of one bit, and of any within 64 bits of one another.
class Checksum {
  public:
    void add(std::string_view bytes);
    // A text and where it ends, so that "ab" and "c" is another thing than "a" and "bc".
    void addText(std::string_view text) {
        add(text.size());
        add(text);
    }
    template <std::integral Number>
    void add(Number number) {
        addNumber(static_cast<std::uint64_t>(number));
    }
    void add(double number) { addNumber(std::bit_cast<std::uint64_t>(number)); }

    // Never 0, which stands for "none".
    [[nodiscard]] std::int64_t value() const {
        return state_ == 0 ? 1 : std::bit_cast<std::int64_t>(state_);
    }

  private:
    void addNumber(std::uint64_t number);

    std::uint64_t state_ = 0;
};

} // namespace vkr
