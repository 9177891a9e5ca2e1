// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"

#include <map>
#include <string_view>

namespace vkr {

// The kind of control that a class stands for.
template <typename Kind>
inline constexpr ControlKind kindOf = ControlKind::menuItem;
template <>
inline constexpr ControlKind kindOf<TextBox> = ControlKind::textBox;
template <>
inline constexpr ControlKind kindOf<ComboBox> = ControlKind::comboBox;
template <>
inline constexpr ControlKind kindOf<Label> = ControlKind::label;
template <>
inline constexpr ControlKind kindOf<CommandButton> = ControlKind::commandButton;
template <>
inline constexpr ControlKind kindOf<OptionButton> = ControlKind::optionButton;
template <>
inline constexpr ControlKind kindOf<CheckBox> = ControlKind::checkBox;
template <>
inline constexpr ControlKind kindOf<ScrollBar> = ControlKind::scrollBar;
template <>
inline constexpr ControlKind kindOf<Spinner> = ControlKind::spinner;
template <>
inline constexpr ControlKind kindOf<Frame> = ControlKind::frame;
template <>
inline constexpr ControlKind kindOf<TabStrip> = ControlKind::tabStrip;
template <>
inline constexpr ControlKind kindOf<Shape> = ControlKind::shape;
template <>
inline constexpr ControlKind kindOf<PictureBox> = ControlKind::pictureBox;

// A control of the form by what it is called.
struct ControlId {
    ControlKind kind{};
    std::string_view name{};
    int index = Control::noIndex;

    [[nodiscard]] bool is(const Control& control) const {
        return control.index() == index && control.name() == name;
    }
    [[nodiscard]] Control* find(const Form& form) const { return form.find(name, index); }
    friend constexpr bool operator==(const ControlId&, const ControlId&) = default;
};

// The same with its class: what the component reaches a control by.
template <typename Kind>
struct Handle {
    std::string_view name;
    int index = Control::noIndex;

    // Throws std::out_of_range where the form has no such control.
    [[nodiscard]] Kind& in(const Form& form) const { return form.get<Kind>(name, index); }
    [[nodiscard]] bool is(const Control& control) const { return ControlId(*this).is(control); }
    // NOLINTNEXTLINE(google-explicit-constructor): a handle is an id that knows more
    constexpr operator ControlId() const { return {kindOf<Kind>, name, index}; }
};

// A control array.
template <typename Kind>
struct HandleArray {
    std::string_view name;

    [[nodiscard]] constexpr Handle<Kind> operator[](int index) const { return {name, index}; }
    [[nodiscard]] bool holds(const Control& control) const { return control.name() == name; }
    [[nodiscard]] const std::map<int, Control*>& all(const Form& form) const {
        return form.elements(name);
    }
    // Highest index of an element; -1 where there is none.
    [[nodiscard]] int last(const Form& form) const { return form.upperBound(name); }
};

} // namespace vkr
