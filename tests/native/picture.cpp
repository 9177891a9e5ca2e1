// SPDX-License-Identifier: MIT
#include "tests/native/picture.hpp"

#include "native/drawing.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace vkr {

namespace {

using Bytes = std::vector<unsigned char>;

void append32(Bytes& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<unsigned char>(value >> static_cast<unsigned>(shift)));
}

std::uint32_t checksum(const Bytes& bytes, std::size_t from) {
    std::uint32_t sum = 0xFFFFFFFFU;
    for (std::size_t i = from; i < bytes.size(); ++i) {
        sum ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

void appendChunk(Bytes& picture, std::string_view kind, const Bytes& data) {
    append32(picture, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = picture.size();
    picture.insert(picture.end(), kind.begin(), kind.end());
    picture.insert(picture.end(), data.begin(), data.end());
    append32(picture, checksum(picture, start));
}

// The stream of a compressed picture, with nothing compressed.
Bytes stored(const Bytes& data) {
    constexpr std::size_t largest = 65535;
    Bytes stream{0x78, 0x01};
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (std::size_t start = 0; start < data.size(); start += largest) {
        const std::size_t size = std::min(largest, data.size() - start);
        const auto length = static_cast<unsigned>(size);
        stream.push_back(start + size == data.size() ? 1 : 0);
        for (const unsigned half : {length, ~length}) {
            stream.push_back(static_cast<unsigned char>(half & 0xFFU));
            stream.push_back(static_cast<unsigned char>((half >> 8U) & 0xFFU));
        }
        const auto from = data.begin() + static_cast<std::ptrdiff_t>(start);
        stream.insert(stream.end(), from, from + static_cast<std::ptrdiff_t>(size));
    }
    for (const unsigned char byte : data) {
        low = (low + byte) % 65521U;
        high = (high + low) % 65521U;
    }
    append32(stream, (high << 16U) | low);
    return stream;
}

// Rows of red, green and blue, a byte 0 before each.
Bytes rowsOf(HWND window, int width, int height) {
    const WindowContext shown(window);
    const HDC copy = CreateCompatibleDC(shown);
    const Gdi<HBITMAP> bitmap(CreateCompatibleBitmap(shown, width, height));
    const HGDIOBJ before = SelectObject(copy, bitmap.get());
    BitBlt(copy, 0, 0, width, height, shown, 0, 0, SRCCOPY);
    SelectObject(copy, before);
    BITMAPINFO look{};
    look.bmiHeader.biSize = sizeof look.bmiHeader;
    look.bmiHeader.biWidth = width;
    look.bmiHeader.biHeight = -height; // from the top
    look.bmiHeader.biPlanes = 1;
    look.bmiHeader.biBitCount = 32;
    look.bmiHeader.biCompression = BI_RGB;
    Bytes pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    GetDIBits(shown, bitmap.get(), 0, static_cast<UINT>(height), pixels.data(), &look,
              DIB_RGB_COLORS);
    DeleteDC(copy);
    Bytes rows;
    rows.reserve(pixels.size());
    for (std::size_t pixel = 0; pixel < pixels.size(); pixel += 4) {
        if (pixel % (static_cast<std::size_t>(width) * 4) == 0)
            rows.push_back(0);
        rows.insert(rows.end(), {pixels[pixel + 2], pixels[pixel + 1], pixels[pixel]});
    }
    return rows;
}

} // namespace

void writePicture(HWND window, const std::string& file) {
    RECT area;
    GetClientRect(window == nullptr ? GetDesktopWindow() : window, &area);
    const int width = static_cast<int>(area.right);
    const int height = static_cast<int>(area.bottom);
    if (width <= 0 || height <= 0)
        throw std::runtime_error(file + ": the window has no size");
    Bytes picture{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    Bytes head;
    append32(head, static_cast<std::uint32_t>(width));
    append32(head, static_cast<std::uint32_t>(height));
    for (const int part : {8, 2, 0, 0, 0}) // 8 bits of each colour, no palette
        head.push_back(static_cast<unsigned char>(part));
    appendChunk(picture, "IHDR", head);
    appendChunk(picture, "IDAT", stored(rowsOf(window, width, height)));
    appendChunk(picture, "IEND", {});
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(picture.data()),
                 static_cast<std::streamsize>(picture.size()));
    if (!stream)
        throw std::runtime_error(file + ": cannot be written");
}

} // namespace vkr
