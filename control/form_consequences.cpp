// SPDX-License-Identifier: MIT
#include "control/form_consequences.hpp"

#include "form/controls.hpp"
#include "platform/error_trap.hpp"

namespace vkr {

void FormConsequences::trailingEarningsDerived() {
    ifPossible([&] { fields_.show(*fields_.find(context_[controls::trailingEarnings])); });
}

void FormConsequences::fiscalYearMoved() {
    quarterly_.relabel();
    quarterly_.shade();
    quarterly_.trailing().followYear();
}

} // namespace vkr
