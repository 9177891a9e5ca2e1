// SPDX-License-Identifier: MIT
#pragma once

#include "localizer/string_table.hpp"
#include "platform/localizer.hpp"
#include "platform/object_factory.hpp"

#include <string>
#include <vector>

namespace vkr {

// A localizer on string tables. A number is looked up in one table after the other; the first
// that has it gives the text. The only picture is the hand of a link, number 101 of kind 0,
// 32 by 32 units with the finger tip at (13, 2).
class TableLocalizer : public Localizer {
  public:
    // The rows must outlive the localizer.
    explicit TableLocalizer(std::vector<StringTable> tables);

    [[nodiscard]] std::string LoadString(int number) const override;
    [[nodiscard]] Picture LoadPicture(int number, int kind) const override;

  private:
    std::vector<StringTable> tables_;
};

// The English texts of the standard platform.
class StandardLocalizer final : public TableLocalizer {
  public:
    StandardLocalizer();
};

// The English texts of the ZX platform: its own, then those of the standard platform.
class ZxLocalizer final : public TableLocalizer {
  public:
    ZxLocalizer();
};

// Makes both localizers known by their programmatic identifiers.
void registerLocalizers(ObjectFactory& factory);

} // namespace vkr
