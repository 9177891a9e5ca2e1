// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "binding/entry_context.hpp"
#include "control/captions.hpp"
#include "control/cell_commands.hpp"
#include "control/click_controllers.hpp"
#include "control/closing.hpp"
#include "control/data_lock.hpp"
#include "control/entry_input.hpp"
#include "control/entry_objects.hpp"
#include "control/field_controllers.hpp"
#include "control/figure_display.hpp"
#include "control/figure_places.hpp"
#include "control/form_consequences.hpp"
#include "control/held_company.hpp"
#include "control/help_frame.hpp"
#include "control/host_line.hpp"
#include "control/menu_actions.hpp"
#include "control/more_help.hpp"
#include "control/options.hpp"
#include "control/pages.hpp"
#include "control/platform_texts.hpp"
#include "control/properties.hpp"
#include "control/right_click_menu.hpp"
#include "control/vkr_data_entry.hpp"
#include "quarterly/last_quarter.hpp"
#include "yearly/yearly_grid.hpp"

#include <string_view>
#include <vector>

namespace vkr {

// The parts of one component, each with its own task and state, in the order in which they know of
// each other.
class VKRDataEntry::Impl final {
  public:
    Impl(Services& services, const VKRDataEntry& face);

    void initialize();
    [[nodiscard]] std::vector<MarkedField> markedFields(MarkKind kind);
    void listMarked(MarkKind kind, std::vector<MarkedField>& result) const;
    void showField(std::string_view id);
    bool copyCells(CellCommands::Headings headings);

    HostLine host;
    FormConsequences consequences{host, context, fields, quarterly, options, properties, company};
    Form form;
    EntryContext context;
    CompanyFields fields{context};
    YearlyGrid yearly{context};
    QuarterlyGrid quarterly{context};
    LastQuarter lastQuarter{context, quarterly};
    Captions captions{context};
    EntryObjects objects{form, yearly, quarterly};
    SilentController silent{context};
    Controllers controllers{silent};
    FieldControllers entry{context, fields, yearly, quarterly, lastQuarter, captions, controllers};
    Pages pages{context, quarterly, host};
    DataLock lock{context};
    FigureDisplay display{context, fields, yearly, quarterly, host};
    PlatformTexts texts{context, captions, yearly};
    Properties properties{context, yearly, quarterly, lock, display, pages, texts, host};
    Options options{context, display, yearly, quarterly, captions, properties};
    HeldCompany company{context, fields, yearly,  quarterly, lastQuarter, captions,
                        options, lock,   display, entry,     controllers};
    FigurePlaces places{context, yearly, quarterly};
    HelpFrame helpFrame{context};
    MoreHelp help{context, helpFrame, pages, host};
    CellCommands cells{context, yearly, quarterly, host};
    MenuActions menuActions{context, controllers, yearly, host, cells};
    RightClickMenu menu{context, objects, helpFrame, menuActions};
    OkButton ok{context, fields, entry, host};
    CancelButton cancel{context, entry, pages, host};
    ClickControllers clicks{context, yearly, quarterly, lastQuarter,
                            options, lock,   help,      controllers};
    EntryInput input{context, controllers, quarterly, pages, helpFrame, help, menu, host, cells};

  private:
    void applyColorScheme();

    // Of one field without words, for want of memory.
    std::vector<MarkedField> lastResort = std::vector<MarkedField>(1);
};

} // namespace vkr
