// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"

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
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"
#include "quarterly/last_quarter.hpp"
#include "yearly/yearly_grid.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr std::string_view startPriceFormat = "#0.000";
constexpr std::string_view startCurrencySymbol = "$";

// "YPTISeries(3)": in place of the field's name, where no field shows the figure.
std::string idOf(const FigurePlace& place) {
    return std::string(rowOf(place.datum).name) + "(" + std::to_string(*place.element) + ")";
}

} // namespace

// The parts of one component, each with its own task and state, in the order in which they know of
// each other.
class VKRDataEntry::Impl final {
  public:
    Impl(Services& services, const VKRDataEntry& face);

    void initialize();
    [[nodiscard]] std::vector<MarkedField> markedFields(MarkKind kind);
    void listMarked(MarkKind kind, std::vector<MarkedField>& result) const;
    void showField(std::string_view id);

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
    CellCommands cells;
    MenuActions menuActions{context, controllers, yearly, host, cells};
    RightClickMenu menu{context, objects, helpFrame, menuActions};
    OkButton ok{context, fields, entry, host};
    CancelButton cancel{context, entry, pages, host};
    ClickControllers clicks{context, yearly, quarterly, lastQuarter,
                            options, lock,   help,      controllers};
    EntryInput input{context, controllers, quarterly, pages, helpFrame, help, menu, host, cells};

  private:
    // The form's controls must be there before the parts that look them up.
    static Form& built(Form& form) {
        buildForm(form);
        return form;
    }
    void applyColorScheme();

    // Of one field without words, for want of memory.
    std::vector<MarkedField> lastResort = std::vector<MarkedField>(1);
};

VKRDataEntry::Impl::Impl(Services& services, const VKRDataEntry& face)
    : host(services, {face.stateChanged, face.fractionDisplayChanged, face.historyAsked}),
      context(built(form), services, &consequences),
      cells(context, yearly, quarterly, face.originOf) {
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
    controls::quarterlyPanel.in(form).move(0, 0);
    controls::yearlyIncomeHead.in(form).setAutoSize(true);
    context[controls::currencySymbol].showStored(startCurrencySymbol);
    for (const auto& list : {controls::industry, controls::exchange, controls::source})
        context[list].clearList();
    controls::reportingPeriod.in(form).clearList();
    pages.startOver();
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

// All of them, also where memory runs out over their words: none that is missing is asked about.
std::vector<MarkedField> VKRDataEntry::Impl::markedFields(MarkKind kind) {
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
    ifPossible([&] { lastResort.resize(1); });
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

// A text that waits has no field: its row comes back, and the cell as near as there is one.
void VKRDataEntry::Impl::showField(std::string_view id) {
    for (SeriesGrid* grid :
         {static_cast<SeriesGrid*>(&yearly), static_cast<SeriesGrid*>(&quarterly)})
        for (const auto* waiting : grid->waitingTexts()) {
            if (idOf(waiting->place) != id)
                continue;
            const FigurePlace place = waiting->place;
            const auto way = grid->wayBackTo(place);
            if (!way)
                return;
            if (way->choice != ColumnChoice::none)
                options.showRow(way->choice, way->second);
            pages.showField(way->cell->id());
            return;
        }
    pages.showField(id);
}

// --- the public face -----------------------------------------------------------------------------

VKRDataEntry::VKRDataEntry(Services& services) : impl_(std::make_unique<Impl>(services, *this)) {
    impl_->initialize();
}

VKRDataEntry::~VKRDataEntry() = default;

void VKRDataEntry::setEvents(VKRDataEntryEvents* events) {
    impl_->host.listen(events);
}

Form& VKRDataEntry::form() {
    return impl_->form;
}
const Form& VKRDataEntry::form() const {
    return impl_->form;
}

bool VKRDataEntry::blnExistsQuarterlyData() const {
    return impl_->context.company != nullptr && impl_->quarterly.existsData();
}

bool VKRDataEntry::get_blnDirty() const {
    return impl_->context.isDirty();
}

void VKRDataEntry::put_blnDirty(bool blnNewValue) {
    const EntryContext::UpdateScope updating(impl_->context);
    impl_->context.setDirty(blnNewValue);
    if (!blnNewValue && impl_->company.commit() != nullptr)
        impl_->company.holdCommitted();
}

UserModeType VKRDataEntry::get_UserMode() const {
    return impl_->properties.userMode();
}

void VKRDataEntry::put_UserMode(UserModeType enumNewValue) {
    impl_->properties.putUserMode(enumNewValue);
}

Color VKRDataEntry::get_ShadeColorLocked() const {
    return impl_->properties.shade(shadeLocked);
}
Color VKRDataEntry::get_ShadeColorYear() const {
    return impl_->properties.shade(shadeYear);
}
Color VKRDataEntry::get_ShadeColorQuarter() const {
    return impl_->properties.shade(shadeQuarter);
}

void VKRDataEntry::put_ShadeColorLocked(Color newValue) {
    impl_->properties.putShade(shadeLocked, newValue);
}

void VKRDataEntry::put_ShadeColorYear(Color newValue) {
    impl_->properties.putShade(shadeYear, newValue);
}

void VKRDataEntry::put_ShadeColorQuarter(Color newValue) {
    impl_->properties.putShade(shadeQuarter, newValue);
}

std::int16_t VKRDataEntry::get_VisibleQuarters() const {
    return static_cast<std::int16_t>(impl_->properties.visibleQuarters());
}

void VKRDataEntry::put_VisibleQuarters(std::int16_t intNewValue) {
    impl_->cells.endSelection(); // its rows may go
    impl_->properties.putVisibleQuarters(intNewValue);
}

bool VKRDataEntry::get_ShowReportingPeriod() const {
    return impl_->properties.showsReportingPeriod();
}

void VKRDataEntry::put_ShowReportingPeriod(bool blnNewValue) {
    impl_->properties.putShowReportingPeriod(blnNewValue);
}

bool VKRDataEntry::get_ShowVLs() const {
    return impl_->properties.showsVLs();
}

void VKRDataEntry::put_ShowVLs(bool blnNewValue) {
    impl_->properties.putShowVLs(blnNewValue);
}

TABObject VKRDataEntry::get_CurrentTab() const {
    return impl_->pages.shown();
}

void VKRDataEntry::put_CurrentTab(TABObject enumNewValue) {
    impl_->properties.putCurrentTab(enumNewValue);
}

const std::string& VKRDataEntry::get_PercentFormat() const {
    return impl_->context.percentFormat;
}
const std::string& VKRDataEntry::get_DateFormat() const {
    return impl_->context.dateFormat;
}
const std::string& VKRDataEntry::get_NumberFormat() const {
    return impl_->context.numberFormat;
}

void VKRDataEntry::put_PercentFormat(std::string_view strNewValue) {
    impl_->properties.putPattern(EntryProperty::PercentFormat, strNewValue);
}

void VKRDataEntry::put_DateFormat(std::string_view strNewValue) {
    impl_->properties.putPattern(EntryProperty::DateFormat, strNewValue);
}

void VKRDataEntry::put_NumberFormat(std::string_view strNewValue) {
    impl_->properties.putPattern(EntryProperty::NumberFormat, strNewValue);
}

const NumberMarks& VKRDataEntry::get_NumberMarks() const {
    return impl_->form.numberMarks();
}
void VKRDataEntry::put_NumberMarks(const NumberMarks& newValue) {
    ifPossible([&] { impl_->display.setNumberMarks(newValue); });
}

bool VKRDataEntry::get_FractionDisplay() const {
    return impl_->context.fractionDisplay;
}
void VKRDataEntry::put_FractionDisplay(bool blnNewValue) {
    impl_->properties.putFractionDisplay(blnNewValue);
}

void VKRDataEntry::put_vntSource(const Variant& vntNewValue) {
    impl_->properties.putList(EntryProperty::vntSource, vntNewValue);
}
void VKRDataEntry::put_vntExchange(const Variant& vntNewValue) {
    impl_->properties.putList(EntryProperty::vntExchange, vntNewValue);
}
void VKRDataEntry::put_vntIndustry(const Variant& vntNewValue) {
    impl_->properties.putList(EntryProperty::vntIndustry, vntNewValue);
}

BorderStyle VKRDataEntry::get_BorderStyle() const {
    return impl_->form.borderStyle();
}
void VKRDataEntry::put_BorderStyle(BorderStyle newValue) {
    impl_->properties.putBorderStyle(newValue);
}

std::shared_ptr<iVKR_Company> VKRDataEntry::get_objCompany() {
    return impl_->company.commit();
}
void VKRDataEntry::put_objCompany(std::shared_ptr<iVKR_Company> objNewValue) {
    setRemarks({});
    setOrigins({});
    ifPossible([&] {
        impl_->cells.endSelection();
        impl_->company.load(std::move(objNewValue));
    });
}

PlatformType VKRDataEntry::get_Platform() const {
    return impl_->context.platform;
}
void VKRDataEntry::put_Platform(PlatformType enumNewValue) {
    impl_->properties.putPlatform(enumNewValue);
}

void VKRDataEntry::SetNext() {
    ifPossible([&] { impl_->pages.step(1); });
}
void VKRDataEntry::SetPrevious() {
    ifPossible([&] { impl_->pages.step(-1); });
}
void VKRDataEntry::Clear() {
    setRemarks({});
    setOrigins({});
    ifPossible([&] { impl_->company.clear(); });
}
void VKRDataEntry::ScrollMouse(std::int16_t& intKeyCode, std::int16_t& /*intShift*/) {
    ifPossible([&] { impl_->pages.scrollMouse(intKeyCode); });
}

void VKRDataEntry::leaveField() {
    ifPossible([&] { impl_->input.leaveActive(); });
}
void VKRDataEntry::commitInto(std::shared_ptr<iVKR_Company> copy) {
    ifPossible([&] { impl_->company.commitInto(std::move(copy)); });
}
void VKRDataEntry::recordChanged() {
    ifPossible([&] { impl_->company.showAnew(); });
}
std::optional<std::string> VKRDataEntry::changeRecord(std::span<const DatumChange> changes,
                                                      const Action& action) {
    return attemptOr(std::optional(std::string()), [&] {
        impl_->input.leaveActive();
        return impl_->company.change(changes, action);
    });
}
void VKRDataEntry::step(HistoryStep step) {
    ifPossible([&] { impl_->input.step(step); });
    ifPossible([&] { impl_->form.keyDone(); });
}
std::vector<Datum> VKRDataEntry::suggestedDates() const {
    return impl_->context.dates.suggested();
}
std::vector<MarkedField> VKRDataEntry::unstoredFields() const {
    return impl_->markedFields(MarkKind::unstored);
}
std::vector<MarkedField> VKRDataEntry::doubtfulFields() const {
    return impl_->markedFields(MarkKind::doubtful);
}
void VKRDataEntry::setRemarks(std::map<FigurePlace, std::string> remarks) {
    ifPossible([&] { impl_->places.setRemarks(std::move(remarks)); });
}
void VKRDataEntry::setOrigins(std::map<FigurePlace, FieldOrigin> origins) {
    ifPossible([&] { impl_->places.setOrigins(std::move(origins)); });
}
bool VKRDataEntry::showFigure(const FigurePlace& place) {
    return attemptOr(false, [&] {
        TextField* field = impl_->places.fieldOf(place);
        if (field == nullptr)
            return false;
        impl_->pages.showField(field->id());
        field->select(0, textLength(field->text())); // also where it had the focus before
        return true;
    });
}
std::string VKRDataEntry::fieldOf(const FigurePlace& place) const {
    const TextField* field = impl_->places.fieldOf(place);
    return field == nullptr ? std::string() : field->id();
}
bool VKRDataEntry::copyCells(bool withHeadings) {
    return attemptOr(false, [&] { return impl_->cells.copy(withHeadings); });
}
void VKRDataEntry::showField(std::string_view control) {
    ifPossible([&] { impl_->showField(control); });
}

void VKRDataEntry::InitProperties() {
    impl_->properties.startRows();
}
void VKRDataEntry::ReadProperties(const PropertyBag& bag) {
    ifPossible([&] { impl_->properties.read(bag); });
}
void VKRDataEntry::WriteProperties(PropertyBag& bag) {
    ifPossible([&] { impl_->properties.write(bag); });
}
void VKRDataEntry::Resize(Twips /*width*/, Twips /*height*/) {
    impl_->company.resize();
}

} // namespace vkr
