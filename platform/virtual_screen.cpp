// SPDX-License-Identifier: MIT
// What can be seen of a form on the desktop without a display.
#include "platform/virtual_desktop.hpp"
#include "platform/virtual_reach.hpp"

#include <locale>
#include <sstream>

namespace vkr {

using namespace virtual_desktop;

namespace {

// What a control shows beside its place.
std::string contentOf(const Control& control) {
    if (const auto* field = textFieldOf(&control))
        return quoted(field->text());
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return (option->value() ? "(x) " : "( ) ") + quoted(option->caption());
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return (box->value() ? "[x] " : "[ ] ") + quoted(box->caption());
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control))
        return std::to_string(bar->value()) + " of " + std::to_string(bar->minimum()) + " to " +
               std::to_string(bar->maximum());
    if (const auto* strip = dynamic_cast<const TabStrip*>(&control)) {
        std::string tabs;
        for (int i = 1; i <= strip->count(); ++i)
            tabs += (i == 1 ? "" : " ") + std::string(i == strip->selected() ? ">" : "") +
                    quoted(strip->tab(i).caption);
        return tabs;
    }
    return control.hasCaption() ? quoted(control.caption()) : "";
}

} // namespace

Control& VirtualDesktop::control(std::string_view id, int index) const {
    const auto [name, element] = splitId(id, index);
    auto* found = form().find(name, element);
    if (found == nullptr)
        refuse("there is no control " + std::string(id) +
               (index == Control::noIndex ? "" : "(" + std::to_string(index) + ")"));
    return *found;
}

bool VirtualDesktop::canReach(std::string_view id, int index) const {
    return reasonOutOfReach(control(id, index)).empty();
}

std::string VirtualDesktop::snapshot() const {
    std::ostringstream heading;
    heading.imbue(std::locale::classic());
    heading << "form " << form().width() << " x " << form().height();
    auto lines = heading.str() + "\n";
    describe(lines, nullptr, 1);
    return lines;
}

void VirtualDesktop::describe(std::string& lines, const Frame* container, int depth) const {
    for (const auto& control : form_->controls()) {
        if (control->container() != container || !reasonOutOfReach(*control).empty())
            continue;
        std::ostringstream line;
        line.imbue(std::locale::classic());
        line << std::string(static_cast<std::size_t>(depth) * 2, ' ') << control->id() << " ("
             << control->left() << ", " << control->top() << ", " << control->width() << " x "
             << control->height() << ")";
        if (const auto content = contentOf(*control); !content.empty())
            line << ' ' << content;
        if (!control->isEnabled())
            line << " disabled";
        if (const auto* field = textFieldOf(control.get())) {
            if (field->locked())
                line << " locked";
            if (const MarkKind mark = field->shownMark(); mark != MarkKind::none)
                line << (mark == MarkKind::quiet      ? " remarked "
                         : mark == MarkKind::doubtful ? " doubtful "
                                                      : " marked ")
                     << quoted(field->shownReason());
            if (!field->origin().text.empty())
                line << (field->origin().marked ? " corner " : " from ")
                     << quoted(field->origin().text);
            if (note_ && note_->field == field->id())
                line << " note " << quoted(note_->note);
        }
        if (form_->hasFocus() && form_->activeControl() == control.get())
            line << " focus";
        lines += line.str() + "\n";
        if (const auto* frame = dynamic_cast<const Frame*>(control.get()))
            describe(lines, frame, depth + 1);
    }
}

} // namespace vkr
