// SPDX-License-Identifier: MIT
#include "store/checksum.hpp"

#include <array>

namespace vkr {

namespace {

// By eight bytes at a time: table k is the effect of a byte that k others follow.
constexpr auto tables = [] {
    constexpr std::uint64_t polynomial = 0x42f0e1eba9ea3693;
    std::array<std::array<std::uint64_t, 256>, 8> made{};
    for (std::uint64_t byte = 0; byte < 256; ++byte) {
        std::uint64_t rest = byte << 56;
        for (int bit = 0; bit < 8; ++bit)
            rest = (rest << 1) ^ ((rest >> 63) != 0 ? polynomial : 0);
        made[0][byte] = rest;
    }
    for (std::size_t k = 1; k < made.size(); ++k)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint64_t before = made[k - 1][byte];
            made[k][byte] = (before << 8) ^ made[0][before >> 56];
        }
    return made;
}();

} // namespace

void Checksum::add(std::string_view bytes) {
    for (; bytes.size() >= sizeof(std::uint64_t); bytes.remove_prefix(sizeof(std::uint64_t))) {
        std::uint64_t block = 0; // the first byte is the highest
        for (std::size_t i = 0; i < sizeof block; ++i)
            block = (block << 8) | static_cast<unsigned char>(bytes[i]);
        addNumber(block);
    }
    for (const char byte : bytes)
        state_ = (state_ << 8) ^ tables[0][(state_ >> 56) ^ static_cast<unsigned char>(byte)];
}

void Checksum::addNumber(std::uint64_t number) {
    const std::uint64_t block = state_ ^ number;
    state_ = 0;
    for (std::size_t k = 0; k < tables.size(); ++k)
        state_ ^= tables[k][(block >> (8 * k)) & 0xff];
}

} // namespace vkr
