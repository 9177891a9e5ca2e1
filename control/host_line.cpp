// SPDX-License-Identifier: MIT
#include "control/host_line.hpp"

#include "platform/error_trap.hpp"

namespace vkr {

void HostLine::tabChange(TABObject tab) {
    ifPossible([&] { events_->TabChange(tab); });
}

void HostLine::moreHelp(int number) {
    ifPossible([&] { events_->MoreHelp(static_cast<std::int16_t>(number)); });
}

void HostLine::assistant(DataEntryObject object, const std::string& text) {
    ifPossible([&] { events_->Assistant(static_cast<std::int16_t>(object), text); });
}

void HostLine::unloadRequest(UnloadModeType mode) {
    ifPossible([&] { events_->UnloadRequest(mode); });
}

void HostLine::propertyChanged(std::string_view property) {
    ifPossible([&] { services_.propertyChanged(property); });
}

void HostLine::fractionDisplayChanged() {
    if (fractionDisplayChanged_)
        ifPossible([&] { fractionDisplayChanged_(); });
}

void HostLine::stateChanged() {
    if (stateChanged_)
        ifPossible([&] { stateChanged_(); });
}

} // namespace vkr
