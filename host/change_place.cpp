// SPDX-License-Identifier: MIT
#include "host/change_place.hpp"

#include "binding/form_settings.hpp"
#include "control/vkr_data_entry.hpp"
#include "form/controls.hpp"
#include "host/texts.hpp"

#include <utility>

namespace vkr {

namespace {

// The chosen one of the options, the control itself for anything else.
std::string chosenOf(const Form& form, std::string_view name) {
    for (const auto& [index, control] : form.elements(name))
        if (const auto* option = dynamic_cast<const OptionButton*>(control);
            option == nullptr || option->value())
            return control->id();
    return {};
}

} // namespace

std::string controlOf(const VKRDataEntry& entry, const Change& change) {
    const Form& form = entry.form();
    if (!change.setting.empty())
        return chosenOf(form, formSetting(change.setting).control);
    const DatumRow& row = rowOf(change.datum);
    FigurePlace place{change.datum, change.element};
    if (isSeries(row) && !place.element)
        place.element =
            row.period == DatumPeriod::year ? 1 : -controls::quarterSpinner.in(form).value();
    return entry.fieldOf(place);
}

QString changeTitle(const Change& change) {
    return datumTitle(change.setting.empty() ? rowOf(change.datum).name
                                             : std::string_view(change.setting));
}

QString groupTitle(const ChangeGroup& group) {
    if (!group.name.empty() || group.changes.empty())
        return fromUtf8(group.name);
    return changeTitle(group.changes.front());
}

} // namespace vkr
