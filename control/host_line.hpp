// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry_events.hpp"
#include "platform/services.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace vkr {

// The line to the host and its container. What they throw ends with the call.
class HostLine {
  public:
    // The two functions belong to the public face, where the host sets them.
    HostLine(Services& services, const std::function<void()>& stateChanged,
             const std::function<void()>& fractionDisplayChanged)
        : services_(services), stateChanged_(stateChanged),
          fractionDisplayChanged_(fractionDisplayChanged) {}

    void listen(VKRDataEntryEvents* events) { events_ = events == nullptr ? &silent_ : events; }

    void tabChange(TABObject tab);
    void moreHelp(int number);
    void assistant(DataEntryObject object, const std::string& text);
    void unloadRequest(UnloadModeType mode);
    void propertyChanged(std::string_view property);
    void fractionDisplayChanged();
    void stateChanged();

  private:
    Services& services_;
    const std::function<void()>& stateChanged_;
    const std::function<void()>& fractionDisplayChanged_;
    VKRDataEntryEvents silent_;
    VKRDataEntryEvents* events_ = &silent_; // never null
};

} // namespace vkr
