// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

namespace vkr::test {

// A day that exists; throws where there is none.
inline Date day(int year, int month, int dayOfMonth) {
    return makeDate(year, month, dayOfMonth).value();
}

} // namespace vkr::test
