// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"

#include <exception>
#include <string>
#include <utility>

namespace vkr::automation {

// A call that fails by the rules of the component model.
class ComError : public std::exception {
  public:
    explicit ComError(HRESULT code, std::string text = {}) : code_(code), text_(std::move(text)) {}
    [[nodiscard]] HRESULT code() const { return code_; }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

  private:
    HRESULT code_;
    std::string text_;
};

inline void check(HRESULT result) {
    if (FAILED(result))
        throw ComError(result);
}
// Where a caller wants an answer.
template <typename Value>
Value& answer(Value* place) {
    if (place == nullptr)
        throw ComError(E_POINTER);
    return *place;
}

} // namespace vkr::automation
