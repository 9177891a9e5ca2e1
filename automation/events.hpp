// SPDX-License-Identifier: MIT
#pragma once

#include "automation/connection_points.hpp"
#include "automation/control_owner.hpp"
#include "control/vkr_data_entry_events.hpp"

#include <deque>
#include <functional>
#include <string_view>
#include <vector>

namespace vkr::automation {

// The control's events and property notices on their way to who listens. While the container has
// them frozen they wait; then they come in their order.
//
// What may be true together: one waits only while they are frozen, or behind another one that is on
// its way.
class Events final : public VKRDataEntryEvents {
  public:
    explicit Events(ControlOwner& control); // which stays around every call outside

    [[nodiscard]] Listeners& events() { return events_; }
    [[nodiscard]] Listeners& notices() { return notices_; }

    void freeze(bool frozen);
    [[nodiscard]] bool frozen() const { return frozen_ > 0; }
    void propertyChanged(std::string_view name);

    void TabChange(TABObject intTab) override;
    void MoreHelp(std::int16_t intObject) override;
    void Assistant(std::int16_t enumObject, const Variant& vntValue) override;
    void UnloadRequest(UnloadModeType enumMode) override;

  private:
    void fire(DISPID event, std::vector<Variant> arguments);
    void fireNow(DISPID event, const std::vector<Variant>& arguments);
    void noticeNow(DISPID property);
    void deliver(std::function<void()> call);

    ControlOwner& control_;
    Listeners events_;
    Listeners notices_;
    int frozen_ = 0;
    bool thawing_ = false; // those that waited are on their way
    std::deque<std::function<void()>> waiting_;
};

// The numbers of the members that a change of the property concerns; none for one that is not in
// the interface.
[[nodiscard]] std::vector<DISPID> membersOf(std::string_view property);

} // namespace vkr::automation
