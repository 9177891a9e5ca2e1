// SPDX-License-Identifier: MIT
#pragma once

#include "input/frmCalendar.hpp"

#include <optional>

namespace vkr {

// What the user of a desktop picks in the calendar that opens on a date.
inline std::optional<Date> pickDate(Services& services, Date start) {
    frmCalendar calendar("Pick");
    calendar.put_SelectedDate(start);
    calendar.Show(services);
    return calendar.Tag().empty() ? std::nullopt : std::optional(calendar.get_SelectedDate());
}

} // namespace vkr
