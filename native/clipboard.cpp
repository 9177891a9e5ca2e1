// SPDX-License-Identifier: MIT
#include "native/clipboard.hpp"

#include "native/windows_api.hpp"

#include <cstring>

namespace vkr::clipboard {

namespace {

class Opened {
  public:
    Opened() : open_(OpenClipboard(nullptr) != FALSE) {}
    ~Opened() {
        if (open_)
            CloseClipboard();
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

} // namespace

std::wstring text() {
    const Opened opened;
    if (!opened)
        return {};
    const HANDLE held = GetClipboardData(CF_UNICODETEXT);
    if (held == nullptr)
        return {};
    const auto* units = static_cast<const wchar_t*>(GlobalLock(held));
    if (units == nullptr)
        return {};
    const std::size_t room = GlobalSize(held) / sizeof(wchar_t);
    std::size_t length = 0; // it may end without a 0
    while (length < room && units[length] != 0)
        ++length;
    std::wstring found(units, length);
    GlobalUnlock(held);
    return found;
}

bool hasText() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE && !text().empty();
}

void clear() {
    if (const Opened opened; opened)
        EmptyClipboard();
}

void setText(const std::wstring& text) {
    const Opened opened;
    if (!opened)
        return;
    EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL held = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (held == nullptr)
        return;
    if (void* place = GlobalLock(held); place != nullptr) {
        std::memcpy(place, text.c_str(), bytes);
        GlobalUnlock(held);
        if (SetClipboardData(CF_UNICODETEXT, held) != nullptr)
            return;
    }
    GlobalFree(held);
}

} // namespace vkr::clipboard
