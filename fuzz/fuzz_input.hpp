// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string_view>

namespace vkr {

// The bytes of one input, taken off the front; what is missing is 0.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    template <typename Number>
    Number take() {
        Number number{};
        const std::size_t count = std::min(size_, sizeof number);
        if (count > 0)
            std::memcpy(&number, data_, count);
        data_ += count;
        size_ -= count;
        return number;
    }
    int below(int count) { return take<std::uint8_t>() % count; }
    [[nodiscard]] std::string_view rest() const {
        return {reinterpret_cast<const char*>(data_), size_};
    }
    [[nodiscard]] bool empty() const { return size_ == 0; }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

// Ends the run, with the input as the finding, where something does not hold.
template <typename... Parts>
void require(bool holds, const Parts&... particulars) {
    if (holds)
        return;
    (std::cerr << ... << particulars) << std::endl;
    std::abort();
}

} // namespace vkr
