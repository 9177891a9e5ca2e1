// SPDX-License-Identifier: MIT
#include "platform/object.hpp"

#include "platform/variant.hpp"

#include <stdexcept>
#include <string>

namespace vkr {

Variant Object::get(std::string_view name) const {
    throw std::invalid_argument("no property named " + std::string(name));
}

void Object::put(std::string_view name, const Variant& /*value*/) {
    throw std::invalid_argument("no property named " + std::string(name));
}

} // namespace vkr
