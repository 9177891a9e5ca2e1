// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"
#include "store/store_list.hpp"

#include <string>
#include <vector>

namespace vkr {

// The texts that combo boxes offer, in the table `list_entry`. Everything here is done within a
// transaction of the caller.
class EntryLists {
  public:
    explicit EntryLists(StoreConnection& connection) : connection_(connection) {}

    // In their order.
    [[nodiscard]] std::vector<std::string> entries(StoreList list);
    // The texts that companies have, each once, in no order.
    [[nodiscard]] std::vector<std::string> used(StoreList list);
    // Behind the last one; a blank text, and one that is there already, changes nothing.
    void append(StoreList list, const std::string& text);
    void remove(StoreList list, const std::string& text);
    void clear(StoreList list);

  private:
    StoreConnection& connection_;
};

} // namespace vkr
