// SPDX-License-Identifier: MIT
#include "native/clipboard.hpp"

#include "native/windows_api.hpp"

#include <cstring>
#include <stdexcept>

namespace vkr::clipboard {

namespace {

class Opened {
  public:
    // Without an owner, who empties it may not be able to put anything there.
    Opened() : open_(OpenClipboard(GetFocus()) != FALSE) {}
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

// The characters that lie there in a format.
template <typename Unit>
std::basic_string<Unit> held(UINT format) {
    const Opened opened;
    if (!opened)
        return {};
    const HANDLE data = GetClipboardData(format);
    if (data == nullptr)
        return {};
    const auto* units = static_cast<const Unit*>(GlobalLock(data));
    if (units == nullptr)
        return {};
    const std::size_t room = GlobalSize(data) / sizeof(Unit);
    std::size_t length = 0; // they may end without a 0
    while (length < room && units[length] != 0)
        ++length;
    std::basic_string<Unit> found(units, length);
    GlobalUnlock(data);
    return found;
}

} // namespace

std::wstring text() {
    return held<wchar_t>(CF_UNICODETEXT);
}

std::string html() {
    static const UINT format = RegisterClipboardFormatW(L"HTML Format");
    return held<char>(format);
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
    if (opened) {
        EmptyClipboard();
        const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
        const HGLOBAL held = GlobalAlloc(GMEM_MOVEABLE, bytes);
        if (void* place = held == nullptr ? nullptr : GlobalLock(held); place != nullptr) {
            std::memcpy(place, text.c_str(), bytes);
            GlobalUnlock(held);
            if (SetClipboardData(CF_UNICODETEXT, held) != nullptr)
                return;
        }
        if (held != nullptr)
            GlobalFree(held);
    }
    // What was to be cut must stay.
    throw std::runtime_error("The clipboard took nothing.");
}

} // namespace vkr::clipboard
