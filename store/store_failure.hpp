// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_result.hpp"

#include <exception>
#include <utility>

namespace vkr {

// How an error travels inside of the store; no public operation lets it out.
class StoreFailure : public std::exception {
  public:
    explicit StoreFailure(StoreError error) : error_(std::move(error)) {}
    [[nodiscard]] const StoreError& error() const { return error_; }
    [[nodiscard]] const char* what() const noexcept override { return error_.message.c_str(); }

  private:
    StoreError error_;
};

} // namespace vkr
