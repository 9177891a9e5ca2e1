// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace vkr {

// Groups of changes as bytes, the same on every computer: numbers with their lowest byte first,
// figures by their bits, data by their names.
class ByteWriter {
  public:
    void number(std::uint64_t value, int bytes);
    void text(std::string_view text);
    void value(const Variant& value); // an object is nothing
    void group(const ChangeGroup& group);
    [[nodiscard]] const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

// Throws std::invalid_argument for what no ByteWriter has written.
class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes) : rest_(bytes) {}
    [[nodiscard]] std::uint64_t number(int bytes);
    [[nodiscard]] std::string text();
    [[nodiscard]] Variant value(int depth = 0);
    [[nodiscard]] ChangeGroup group();
    [[nodiscard]] std::string_view rest() const { return rest_; }
    [[nodiscard]] std::string_view take(std::size_t count);

  private:
    std::string_view rest_;
};

// CRC-32C, as its polynomial is used by disks and networks.
[[nodiscard]] std::uint32_t checksum(std::string_view bytes);
// The same byte by byte.
class RunningChecksum {
  public:
    void add(std::string_view bytes);
    [[nodiscard]] std::uint32_t value() const { return ~sum_; }

  private:
    std::uint32_t sum_ = ~0U;
};

} // namespace vkr
