// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "control/entry_objects.hpp"
#include "form/build_form.hpp"
#include "platform/virtual_desktop.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

namespace vkr::test {

// The parts of the component by themselves: nobody hears of what is done to the form.
struct ComponentParts {
    VirtualDesktop desktop = VirtualDesktop();
    Form form;
    struct Built {
        explicit Built(Form& form) { buildForm(form); }
    } built{form};
    EntryContext context{form, desktop};
    CompanyFields fields{context};
    YearlyGrid yearly{context};
    QuarterlyGrid quarterly{context};
    EntryObjects objects{form, yearly, quarterly};
};

} // namespace vkr::test
