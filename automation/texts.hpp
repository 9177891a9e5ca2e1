// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"

#include <string>
#include <string_view>

namespace vkr::automation {

// Texts are UTF-8 inside and UTF-16 outside.

// What is no valid UTF-8 becomes U+FFFD.
[[nodiscard]] std::wstring wideOf(std::string_view text);
// Half of a surrogate pair is no text: throws DISP_E_TYPEMISMATCH.
[[nodiscard]] std::string textOf(std::wstring_view wide);
// A null BSTR is the empty text.
[[nodiscard]] std::string textOf(BSTR text);
// The caller's to free. Throws std::bad_alloc.
[[nodiscard]] BSTR newBstr(std::string_view text);

// A BSTR that is freed at the end.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::string_view text) : text_(newBstr(text)) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }
    [[nodiscard]] BSTR get() const { return text_; }
    [[nodiscard]] BSTR* receive() { return &text_; }

  private:
    BSTR text_ = nullptr;
};

} // namespace vkr::automation
