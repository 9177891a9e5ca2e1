// SPDX-License-Identifier: MIT
#include "record/actions.hpp"

#include "platform/error_trap.hpp"

namespace vkr {

ActionScope::ActionScope(const std::shared_ptr<iVKR_Company>& company, const Action& action)
    : listener_(std::dynamic_pointer_cast<ActionListener>(company)) {
    if (listener_ != nullptr && !attempt([&] { listener_->beginAction(action); }))
        listener_ = nullptr;
}

ActionScope::~ActionScope() {
    if (listener_ != nullptr)
        listener_->endAction();
}

} // namespace vkr
