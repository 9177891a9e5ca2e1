// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <QDate>

namespace vkr {

// Where the user is.
[[nodiscard]] inline Date today() {
    const QDate day = QDate::currentDate();
    return makeDate(day.year(), day.month(), day.day()).value_or(Date{});
}

} // namespace vkr
