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
    if (asked_.fractionDisplayChanged)
        ifPossible([&] { asked_.fractionDisplayChanged(); });
}

void HostLine::stateChanged() {
    if (asked_.stateChanged)
        ifPossible([&] { asked_.stateChanged(); });
}

bool HostLine::history(HistoryStep step) {
    return takesHistory() && attemptOr(false, [&] { return asked_.history(step); });
}

bool HostLine::isByHand(Datum series, int element) {
    if (!asked_.originOf)
        return false;
    return mayBeByHand(
        attemptOr(std::optional<Origin>(), [&] { return asked_.originOf(series, element); }));
}

} // namespace vkr
