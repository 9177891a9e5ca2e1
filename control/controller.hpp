// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"
#include "record/datum_table.hpp"

#include <optional>
#include <string_view>
#include <unordered_map>

namespace vkr {

// What happens at a control when a person uses it. The elements of a control array share one
// controller; each verb names the control that is meant.
class Controller {
  public:
    Controller() = default;
    virtual ~Controller() = default;
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    // --- focus
    virtual void enter(Control& /*control*/) {}
    virtual void leave(Control& /*control*/) {} // stores what was typed

    // --- keys and edits
    virtual void key(Control& /*control*/, KeyCode& /*key*/, int /*shift*/) {}
    // Accepts, rewrites or swallows a character; true where it was refused.
    virtual bool press(TextField& /*field*/, char32_t& /*character*/) { return false; }
    // What a field for one figure takes, as a text of text_number; nothing for any other.
    [[nodiscard]] virtual std::optional<int> takes(const TextField& /*field*/) const {
        return std::nullopt;
    }
    virtual void change(TextField& /*field*/) {}
    virtual void choose(ComboBox& /*list*/) {}
    // The date that a field shows or decides.
    [[nodiscard]] virtual std::optional<Datum> date() const { return std::nullopt; }
    // The date can be picked in the calendar.
    [[nodiscard]] virtual bool hasCalendar() const { return false; }

    // --- pointer
    virtual void mouseDown() {}
    virtual void click(Control& /*control*/) {}
    virtual void pressEnded() {} // after the click, or when it was given up
    virtual void doubleClick(Control& /*control*/) {}
    virtual void scroll() {}
    virtual void spin(int /*steps*/) {}
};

// The controllers by the names of their controls.
class Controllers {
  public:
    // For what nothing happens at.
    explicit Controllers(Controller& silent) : silent_(silent) {}

    // `name` is that of a handle, which outlives this.
    void add(std::string_view name, Controller& controller) { byName_.emplace(name, &controller); }
    [[nodiscard]] Controller& of(const Control& control) const {
        const auto found = byName_.find(control.name());
        return found == byName_.end() ? silent_ : *found->second;
    }

  private:
    Controller& silent_;
    std::unordered_map<std::string_view, Controller*> byName_;
};

} // namespace vkr
