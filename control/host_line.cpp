// SPDX-License-Identifier: MIT
#include "control/host_line.hpp"

#include "platform/error_trap.hpp"

namespace vkr {

void HostLine::tabChange(TABObject tab) {
    attempt([&] { events_->TabChange(tab); });
}

void HostLine::moreHelp(int number) {
    attempt([&] { events_->MoreHelp(static_cast<std::int16_t>(number)); });
}

void HostLine::assistant(DataEntryObject object, const std::string& text) {
    attempt([&] { events_->Assistant(static_cast<std::int16_t>(object), text); });
}

void HostLine::unloadRequest(UnloadModeType mode) {
    attempt([&] { events_->UnloadRequest(mode); });
}

void HostLine::propertyChanged(std::string_view property) {
    attempt([&] { services_.propertyChanged(property); });
}

void HostLine::fractionDisplayChanged() {
    if (fractionDisplayChanged_)
        attempt([&] { fractionDisplayChanged_(); });
}

void HostLine::stateChanged() {
    if (stateChanged_)
        attempt([&] { stateChanged_(); });
}

} // namespace vkr
