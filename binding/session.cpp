// SPDX-License-Identifier: MIT
#include "binding/session.hpp"

#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"

namespace vkr {

Session::Session(Form& ownForm, Services& hostServices) : form(ownForm), services(hostServices) {}

void Session::hideHelpFrame() {
    if (Control* frame = form.find("fraDE", 0))
        frame->setVisible(false);
}

void Session::markChanged() {
    setDirty(true);
}

void Session::setDirty(bool value) {
    const bool changed = dirty != value;
    dirty = value;
    if (changed && stateChanged)
        stateChanged();
}

bool Session::isLocked() const {
    return form.get<CheckBox>("chkLockInfo").value();
}

void Session::ComputeUnitFactor() {
    std::int32_t stored = 0;
    attempt([&] {
        const auto settings = company->get_Settings();
        stored = settings->get(setting::unit).toLong();
        if (stored == 0) {
            stored = defaultUnit;
            settings->put(setting::unit, defaultUnit);
        }
    });
    unit = stored == 3 || stored == 9 ? stored : defaultUnit;
    unitFactor = unit == 3 ? 1000 : unit == 9 ? 0.001 : 1;
}

bool Session::isValidDate(Date date) {
    return !isAbsent(date) && IsDateInRange(date);
}

std::optional<Date> Session::typedDate(std::string_view text) const {
    const auto read = vkr::readDate(text, services.today(), dateFormat);
    return read && isValidDate(*read) ? read : std::nullopt;
}

std::string Session::dateText(Date date) const {
    return isValidDate(date) ? formatDate(date, dateFormat) : std::string();
}

std::string Session::text(int number, std::string_view fallback) const {
    std::string found;
    if (localizer != nullptr)
        attempt([&] { found = localizer->LoadString(number); });
    return found.empty() ? std::string(fallback) : found;
}

MessageAnswer Session::message(const std::string& text, int buttons) {
    return services.messageBox(text, buttons, services.applicationTitle());
}

} // namespace vkr
