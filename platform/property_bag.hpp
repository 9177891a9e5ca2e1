// SPDX-License-Identifier: MIT
#pragma once

#include "platform/variant.hpp"

#include <map>
#include <string>
#include <string_view>

namespace vkr {

// The named values that a container saves for one placed instance.
class PropertyBag {
  public:
    // The stored value, or the default where the key is missing.
    [[nodiscard]] Variant read(std::string_view key, const Variant& defaultValue) const {
        const auto found = values_.find(key);
        return found == values_.end() ? defaultValue : found->second;
    }
    // A value equal to the default is not stored, and takes an older one away.
    void write(std::string_view key, const Variant& value, const Variant& defaultValue) {
        if (value == defaultValue)
            values_.erase(std::string(key));
        else
            values_.insert_or_assign(std::string(key), value);
    }
    [[nodiscard]] bool contains(std::string_view key) const { return values_.contains(key); }
    [[nodiscard]] const std::map<std::string, Variant, std::less<>>& values() const {
        return values_;
    }

  private:
    std::map<std::string, Variant, std::less<>> values_;
};

} // namespace vkr
