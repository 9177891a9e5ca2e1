// SPDX-License-Identifier: MIT
#include "control/closing.hpp"

#include "form/controls.hpp"

namespace vkr {

namespace {

constexpr Handle<TextBox> settledByOk[] = {controls::lastUpdate, controls::priceUpdate,
                                           controls::dateOfSource};

} // namespace

void OkButton::click(Control& /*control*/) {
    settleDates();
    if (settlesOnly_ || context_.dates.isPending())
        return;
    if (context_.company != nullptr && entry_.hasSkippedDate())
        entry_.leavePendingDates();
    else
        host_.unloadRequest(ulConfirm);
}

void OkButton::settleDates() {
    const EntryContext::UpdateScope updating(context_);
    for (const auto& handle : settledByOk) {
        auto& field = context_[handle];
        if (field.isTyped())
            fields_.leave(*fields_.find(field));
    }
}

// The field after the last button is the first one of the page, not the tab strip.
void CancelButton::key(Control& /*control*/, KeyCode& key, int shift) {
    if (key != keys::tab || shift != shifts::none)
        return;
    pages_.focusFirstField();
}

void CancelButton::click(Control& /*control*/) {
    context_.dates.setSkipped(false);
    host_.unloadRequest(ulCancel);
}

void CancelButton::pressEnded() {
    // Given up without a click: the date that was skipped has been left after all.
    if (!context_.dates.isSkipped())
        return;
    context_.dates.setSkipped(false);
    entry_.leavePendingDates();
}

} // namespace vkr
