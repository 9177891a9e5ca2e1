// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object.hpp"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace vkr {

// Creates objects by their programmatic identifier, such as "iVKR_DataEntry.Localizer".
class ObjectFactory {
  public:
    using Creator = std::function<std::shared_ptr<Object>()>;

    // A second creator for the same identifier replaces the first.
    void add(std::string_view programmaticId, Creator creator) {
        creators_.insert_or_assign(std::string(programmaticId), std::move(creator));
    }
    void remove(std::string_view programmaticId) { creators_.erase(std::string(programmaticId)); }

    // Nothing (a null pointer) for an identifier that nobody registered.
    [[nodiscard]] std::shared_ptr<Object> create(std::string_view programmaticId) const {
        const auto found = creators_.find(programmaticId);
        return found == creators_.end() ? nullptr : found->second();
    }

  private:
    std::map<std::string, Creator, std::less<>> creators_;
};

} // namespace vkr
