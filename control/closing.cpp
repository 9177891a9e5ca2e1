// SPDX-License-Identifier: MIT
#include "control/closing.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

void Closing::okClicked() {
    settleDates();
    if (okSettles_ || session_.dateFieldPending)
        return;
    if (hasSkippedDate()) {
        leavePendingDates();
        return;
    }
    host_.unloadRequest(ulConfirm);
}

void Closing::cancelClicked() {
    session_.cancelPressed = false;
    host_.unloadRequest(ulCancel);
}

void Closing::cancelEnded() {
    // Given up without a click: the date that was skipped has been left after all.
    if (std::exchange(session_.cancelPressed, false))
        leavePendingDates();
}

void Closing::settleDates() {
    const Session::Work work(session_);
    for (const auto name : settledByOk) {
        auto& field = session_.textBox(name);
        if (field.text() != field.tag())
            fields_.leave(*fields_.find(field));
    }
}

void Closing::leavePendingDates() {
    const Session::Work work(session_);
    for (const auto name : pendingDates)
        entry_.leave(session_.textBox(name));
}

bool Closing::hasSkippedDate() const {
    return session_.company != nullptr &&
           std::ranges::any_of(pendingDates, [&](std::string_view name) {
               const auto& field = session_.textBox(name);
               return field.text() != field.tag() && !field.locked();
           });
}

} // namespace vkr
