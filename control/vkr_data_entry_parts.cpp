// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry_parts.hpp"

#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "platform/error_trap.hpp"

#include <string>
#include <string_view>

namespace vkr {

namespace {

constexpr std::string_view startPriceFormat = "#0.000";
constexpr std::string_view startCurrencySymbol = "$";

// "YPTISeries(3)": in place of the field's name, where no field shows the figure.
std::string idOf(const FigurePlace& place) {
    return std::string(rowOf(place.datum).name) + "(" + std::to_string(*place.element) + ")";
}

// The form's controls must be there before the parts that look them up.
Form& built(Form& form) {
    buildForm(form);
    return form;
}

} // namespace

VKRDataEntry::Impl::Impl(Services& services, const VKRDataEntry& face)
    : host(services,
           {face.stateChanged, face.fractionDisplayChanged, face.historyAsked, face.originOf}),
      context(built(form), services, &consequences) {
    controllers.add(controls::ok.name, ok);
    controllers.add(controls::cancel.name, cancel);
}

void VKRDataEntry::Impl::initialize() {
    const During startingUp = pages.keepFocus();
    bool running = false;
    ifPossible([&] { running = context.services.ambientUserMode(); });
    if (!running)
        texts.startUp();
    company.clear();
    context.priceFormat = startPriceFormat;
    controls::yearlyIncomeHead.in(form).setAutoSize(true);
    context[controls::currencySymbol].showStored(startCurrencySymbol);
    for (const auto& list : {controls::industry, controls::exchange, controls::source})
        context[list].clearList();
    controls::reportingPeriod.in(form).clearList();
    applyColorScheme();

    controls::addYear.in(form).setVisible(false);
    controls::removeYear.in(form).setVisible(false);
    properties.startUp();
    quarterly.layOut();
    nameFields(form);
    company.resize();
}

void VKRDataEntry::Impl::applyColorScheme() {
    form.setBackColor(colors::buttonFace);
    const Frame* const designed = &controls::helpFrame.in(form); // what it holds keeps its colours
    for (const auto& control : form.controls()) {
        if (control->container() == designed)
            continue;
        const bool field =
            control->kind() == ControlKind::textBox || control->kind() == ControlKind::comboBox;
        ifPossible([&] {
            control->setBackColor(field ? colors::white : colors::buttonFace);
            control->setForeColor(field ? colors::blue : colors::black);
        });
    }
}

// Never leaves one out: where memory runs out it has no words.
std::vector<MarkedField> VKRDataEntry::Impl::markedFields(MarkKind kind) {
    ifPossible([&] { lastResort.resize(1); });
    std::vector<MarkedField> result;
    if (attempt([&] { listMarked(kind, result); }))
        return result;
    if (attempt([&] {
            result.clear();
            listMarked(kind, result);
        }))
        return result;
    if (result.empty())
        result.swap(lastResort);
    return result;
}

void VKRDataEntry::Impl::listMarked(MarkKind kind, std::vector<MarkedField>& result) const {
    for (const auto& control : form.controls())
        if (const auto* field = dynamic_cast<const TextField*>(control.get());
            field != nullptr && field->mark().kind == kind)
            result.push_back(
                {field->id(), field->accessibleName(), field->text(), field->mark().reason});
    for (const SeriesGrid* grid :
         {static_cast<const SeriesGrid*>(&yearly), static_cast<const SeriesGrid*>(&quarterly)})
        for (const auto* waiting : grid->waitingTexts())
            if (waiting->mark.kind == kind)
                result.push_back({idOf(waiting->place), grid->nameOf(waiting->place), waiting->text,
                                  waiting->mark.reason});
}

bool VKRDataEntry::Impl::copyCells(CellCommands::Headings headings) {
    using enum CellCommands::Copied;
    return attemptOr(noCells, [&] { return cells.copy(headings); }) == done;
}

// A text that waits has no field: its row comes back, and the cell as near as there is one.
void VKRDataEntry::Impl::showField(std::string_view id) {
    SeriesGrid* waitsIn = nullptr;
    FigurePlace place{};
    for (SeriesGrid* grid :
         {static_cast<SeriesGrid*>(&yearly), static_cast<SeriesGrid*>(&quarterly)})
        for (const auto* waiting : grid->waitingTexts())
            if (idOf(waiting->place) == id) {
                waitsIn = grid;
                place = waiting->place;
            }
    if (waitsIn == nullptr) {
        pages.showField(id);
        return;
    }
    const auto way = waitsIn->wayBackTo(place);
    if (way.choice != ColumnChoice::none)
        options.showRow(way.choice, way.row);
    pages.showField(way.cell->id());
}

} // namespace vkr
