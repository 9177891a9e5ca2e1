// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry_events.hpp"
#include "platform/services.hpp"
#include "record/actions.hpp"
#include "record/datum_table.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// The line to the host and its container: the one way up. What they throw ends with the call.
class HostLine {
  public:
    // What the host sets at the public face, to which these belong.
    struct Asked {
        const std::function<void()>& stateChanged;
        const std::function<void()>& fractionDisplayChanged;
        const std::function<bool(HistoryStep)>& history;
        const std::function<std::optional<Origin>(Datum series, int element)>& originOf;
    };
    HostLine(Services& services, const Asked& asked) : services_(services), asked_(asked) {}

    void listen(VKRDataEntryEvents* events) { events_ = events == nullptr ? &silent_ : events; }

    void tabChange(TABObject tab);
    void moreHelp(int number);
    void assistant(DataEntryObject object, const std::string& text);
    void unloadRequest(UnloadModeType mode);
    void propertyChanged(std::string_view property);
    void fractionDisplayChanged();
    void stateChanged();
    [[nodiscard]] bool takesHistory() const { return asked_.history != nullptr; }
    bool history(HistoryStep step); // whether the host has taken the step
    // Whether a person has put a figure there, or may have; no where the host tells no origins.
    [[nodiscard]] bool isByHand(Datum series, int element);

  private:
    Services& services_;
    Asked asked_;
    VKRDataEntryEvents silent_;
    VKRDataEntryEvents* events_ = &silent_; // never null
};

} // namespace vkr
