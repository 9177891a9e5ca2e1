// SPDX-License-Identifier: MIT
#include "automation/container_site.hpp"

#include "automation/late_bound.hpp"
#include "automation/service_objects.hpp"
#include "platform/error_trap.hpp"

#include <stdexcept>

namespace vkr::automation {

void ContainerSite::set(IOleClientSite* site) {
    site_ = site; // the new one is held before the old one is let go
}

bool ContainerSite::ask(DISPID id, OwnedVariant& value) const {
    const auto ambients = as<IDispatch>();
    DISPPARAMS none{};
    return ambients &&
           SUCCEEDED(ambients->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                      &none, value.receive(), nullptr, nullptr));
}

std::optional<Variant> ContainerSite::ambient(DISPID id) const {
    OwnedVariant value;
    if (!ask(id, value))
        return std::nullopt;
    return attemptOr(std::optional<Variant>(), [&] { return fromVariant(value.get()); });
}

ComPtr<IUnknown> ContainerSite::ambientObject(DISPID id) const {
    OwnedVariant value;
    if (!ask(id, value) || (V_VT(&value.get()) != VT_DISPATCH && V_VT(&value.get()) != VT_UNKNOWN))
        return {};
    return V_UNKNOWN(&value.get());
}

MessageAnswer ContainerServices::messageBox(const std::string& text, int buttons,
                                            const std::string& title) {
    const auto modal = control_.stays(ControlOwner::Stay::modal);
    return desktop_.messageBox(text, buttons, title);
}

std::optional<Color> ContainerServices::chooseColor(Color current) {
    const auto modal = control_.stays(ControlOwner::Stay::modal);
    return desktop_.chooseColor(current);
}

void ContainerServices::showModal(CalendarForm& form) {
    const auto modal = control_.stays(ControlOwner::Stay::modal);
    desktop_.showModal(form);
}

void ContainerServices::showPaste(PasteForm& form) {
    const auto modal = control_.stays(ControlOwner::Stay::modal);
    desktop_.showPaste(form);
}

int ContainerServices::popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) {
    const auto modal = control_.stays(ControlOwner::Stay::modal);
    return desktop_.popUpMenu(items, left, top);
}

std::shared_ptr<Object> ContainerServices::createObject(std::string_view programmaticId) {
    return createdObject(programmaticId);
}

bool ContainerServices::ambientUserMode() {
    if (!site_.site())
        throw std::runtime_error("The control has no place yet.");
    const auto mode = site_.ambient(DISPID_AMBIENT_USERMODE);
    return mode ? mode->toBoolean() : true; // by the model, who does not tell it runs
}

} // namespace vkr::automation
