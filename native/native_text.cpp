// SPDX-License-Identifier: MIT
#include "native/native_text.hpp"

#include <algorithm>

namespace vkr {

std::wstring toWide(std::string_view text) {
    std::wstring wide;
    if (std::all_of(text.begin(), text.end(),
                    [](char unit) { return static_cast<unsigned char>(unit) < 0x80; })) {
        wide.assign(text.begin(), text.end());
        return wide;
    }
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    wide.resize(static_cast<std::size_t>(needed));
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
    return wide;
}

std::string fromWide(std::wstring_view text) {
    std::string narrow;
    if (text.empty())
        return narrow;
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(needed));
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

std::wstring withNativeBreaks(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
        if (text[i] == L'\r' || text[i] == L'\n')
            result += L"\r\n";
        else
            result += text[i];
        i += isPair ? 1 : 0;
    }
    return result;
}

namespace {

std::size_t stepAt(std::wstring_view text, std::size_t unit) {
    if (unit + 1 >= text.size())
        return 1;
    const bool isPair = IS_SURROGATE_PAIR(text[unit], text[unit + 1]);
    const bool isBreak = text[unit] == L'\r' && text[unit + 1] == L'\n';
    return isPair || isBreak ? 2 : 1;
}

} // namespace

int unitsOf(std::wstring_view text, int characters) {
    std::size_t unit = 0;
    for (; characters > 0 && unit < text.size(); --characters)
        unit += stepAt(text, unit);
    return static_cast<int>(unit);
}

int charactersOf(std::wstring_view text, int units) {
    int characters = 0;
    const auto end = std::min(text.size(), static_cast<std::size_t>(std::max(0, units)));
    for (std::size_t unit = 0; unit < end; ++characters)
        unit += stepAt(text, unit);
    return characters;
}

std::wstring windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(std::max(0, length)));
    return text;
}

} // namespace vkr
