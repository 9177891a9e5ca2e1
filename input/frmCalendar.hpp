// SPDX-License-Identifier: MIT
#pragma once

#include "platform/services.hpp"

#include <string>
#include <utility>

namespace vkr {

// What the two buttons of the date picker say.
struct CalendarButtons {
    std::string ok = "OK";
    std::string cancel = "Cancel";
};

// The date picker: the calendar Calendar1 over the buttons cmdOK and cmdCancel. It is visible only
// while it is shown, once at a time; then it is confirmed, and has a date that can be stored, or
// not.
class frmCalendar final : public CalendarForm {
  public:
    explicit frmCalendar(std::string caption, const Control* owner = nullptr,
                         CalendarButtons buttons = {})
        : caption_(std::move(caption)), owner_(owner), buttons_(std::move(buttons)) {}

    // The date that was last set, or confirmed with OK.
    [[nodiscard]] Date get_SelectedDate() const { return selectedDate_; }
    // Shows it in the calendar as well. The same date to the second does nothing.
    void put_SelectedDate(Date datNewValue);
    // "True" once the user has confirmed a date, empty after Cancel.
    [[nodiscard]] const std::string& Tag() const { return tag_; }
    // Modal: comes back with the form hidden again.
    void Show(Services& services);

    void cmdOK_Click(); // stays open while the calendar holds no valid date
    void cmdCancel_Click();
    void Calendar1_DblClick() { cmdOK_Click(); }

    // --- CalendarForm
    [[nodiscard]] const std::string& caption() const override { return caption_; }
    [[nodiscard]] const std::string& okCaption() const override { return buttons_.ok; }
    [[nodiscard]] const std::string& cancelCaption() const override { return buttons_.cancel; }
    [[nodiscard]] const Control* owner() const override { return owner_; }
    [[nodiscard]] Date firstDate() const override;
    [[nodiscard]] Date lastDate() const override;
    [[nodiscard]] Date calendarDate() const override { return calendar1_; }
    void setCalendarDate(Date date) override { calendar1_ = date; }
    void pressOk() override { cmdOK_Click(); }
    void pressCancel() override { cmdCancel_Click(); }
    [[nodiscard]] bool visible() const override { return visible_; }

  private:
    std::string caption_;
    const Control* owner_;
    CalendarButtons buttons_;
    Date selectedDate_{};
    Date calendar1_{};
    std::string tag_;
    bool visible_ = false;
};

} // namespace vkr
