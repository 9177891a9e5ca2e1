// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vkr {

class Variant;

// An object that travels through variants and can be asked for its properties by name at run
// time. A name that the object does not know is an error: both operations throw.
class Object {
  public:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
    virtual ~Object() = default;

    [[nodiscard]] virtual Variant get(std::string_view name) const;
    virtual void put(std::string_view name, const Variant& value);
};

} // namespace vkr
