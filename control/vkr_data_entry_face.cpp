// SPDX-License-Identifier: MIT
// The public face of the component: each operation goes to the part whose it is.
#include "control/vkr_data_entry_parts.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <utility>

namespace vkr {

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
bool VKRDataEntry::copyCells() {
    return impl_->copyCells(CellCommands::Headings::without);
}

bool VKRDataEntry::copyCellsWithHeadings() {
    return impl_->copyCells(CellCommands::Headings::with);
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
