// SPDX-License-Identifier: MIT
#include "automation/texts.hpp"

#include "automation/com_error.hpp"

#include <new>

namespace vkr::automation {

namespace {

int lengthOf(std::size_t length) {
    if (length > 0x3FFFFFFF)
        throw ComError(E_OUTOFMEMORY);
    return static_cast<int>(length);
}

} // namespace

std::wstring wideOf(std::string_view text) {
    if (text.empty())
        return {};
    const int length = lengthOf(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length)));
    return wide;
}

std::string textOf(std::wstring_view wide) {
    if (wide.empty())
        return {};
    const int length = lengthOf(wide.size());
    std::string text(wide.size() * 3, '\0');
    const int written =
        WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, wide.data(), length, text.data(),
                            static_cast<int>(text.size()), nullptr, nullptr);
    if (written == 0)
        throw ComError(DISP_E_TYPEMISMATCH, "The text is no valid UTF-16.");
    text.resize(static_cast<std::size_t>(written));
    return text;
}

std::string textOf(BSTR text) {
    return text == nullptr ? std::string() : textOf(std::wstring_view(text, SysStringLen(text)));
}

BSTR newBstr(std::string_view text) {
    const std::wstring wide = wideOf(text);
    BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (made == nullptr)
        throw std::bad_alloc();
    return made;
}

} // namespace vkr::automation
