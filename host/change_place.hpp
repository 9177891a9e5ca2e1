// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"

#include <QString>

#include <string>

namespace vkr {

class VKRDataEntry;

// The control that shows a datum, an element or a setting, as VKRDataEntry::showField takes it; ""
// where none does at the moment. Of a whole series the last period.
[[nodiscard]] std::string controlOf(const VKRDataEntry& entry, const Change& change);

// What people call the datum or setting.
[[nodiscard]] QString changeTitle(const Change& change);

// What a group is called in a menu: by its own name, else by the first datum that was changed.
[[nodiscard]] QString groupTitle(const ChangeGroup& group);

} // namespace vkr
