// SPDX-License-Identifier: MIT
#include "platform/virtual_reach.hpp"

#include "platform/form.hpp"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace vkr::virtual_desktop {

namespace {

struct Area {
    Twips left;
    Twips top;
    Twips right;
    Twips bottom;

    [[nodiscard]] bool empty() const { return left >= right || top >= bottom; }
    void cutTo(const Area& other) {
        left = std::max(left, other.left);
        top = std::max(top, other.top);
        right = std::min(right, other.right);
        bottom = std::min(bottom, other.bottom);
    }
};

// Controls that nobody has given a size yet count as a dot.
Area areaOf(const Control& control) {
    const Twips left = control.formLeft();
    const Twips top = control.formTop();
    return {left, top, left + std::max<Twips>(1, control.width()),
            top + std::max<Twips>(1, control.height())};
}

} // namespace

void refuse(const std::string& why) {
    throw std::logic_error(why);
}

ControlName splitId(std::string_view id, int index) {
    const auto open = id.rfind('(');
    if (index != Control::noIndex || open == std::string_view::npos || id.back() != ')')
        return {id, index};
    const auto digits = id.substr(open + 1, id.size() - open - 2);
    int parsed = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, parsed);
    if (error != std::errc() || stop != end || parsed < 0)
        return {id, index};
    return {id.substr(0, open), parsed};
}

std::string reasonOutOfReach(const Control& control) {
    if (control.kind() == ControlKind::menuItem)
        return "is an entry of the menu";
    auto area = areaOf(control);
    for (const Control* part = &control; part != nullptr; part = part->container()) {
        if (!part->visible())
            return part == &control ? "is invisible" : "is invisible with " + part->id();
        if (part->left() <= Control::parkedLeft)
            return "is on a page that is not on show";
        if (part != &control && part->width() > 0 && part->height() > 0)
            area.cutTo(areaOf(*part));
    }
    const auto& form = control.form();
    if (form.width() > 0 && form.height() > 0)
        area.cutTo({0, 0, form.width(), form.height()});
    return area.empty() ? "is scrolled out of view" : "";
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text)
        if (c == '\n')
            result += "\\n";
        else if (c == '\r')
            result += "\\r";
        else
            result += c;
    return result + '"';
}

} // namespace vkr::virtual_desktop
