// SPDX-License-Identifier: MIT
// The dual interface: each member is one of the component's, and no rule stands here.
#include "automation/company_object.hpp"
#include "automation/data_entry_control.hpp"
#include "automation/figure_notes.hpp"
#include "automation/late_bound.hpp"
#include "automation/texts.hpp"
#include "platform/error_trap.hpp"

#include <utility>
#include <vector>

namespace vkr::automation {

namespace {

VARIANT_BOOL toBool(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

// Each as control, label, text and reason.
VARIANT listOf(const std::vector<MarkedField>& fields) {
    std::vector<Variant> all;
    for (const MarkedField& one : fields)
        all.emplace_back(textArray({one.control, one.label, one.text, one.reason}));
    return newVariant(VariantArray(0, std::move(all)));
}

} // namespace

// --- properties ----------------------------------------------------------------------------------

HRESULT DataEntryControl::blnExistsQuarterlyData(VARIANT_BOOL* value) {
    return reading(value, [&] { return toBool(entry_->blnExistsQuarterlyData()); });
}

HRESULT DataEntryControl::get_blnDirty(VARIANT_BOOL* value) {
    return reading(value, [&] { return toBool(entry_->get_blnDirty()); });
}
HRESULT DataEntryControl::put_blnDirty(VARIANT_BOOL value) {
    return writing([&] {
        if (value == VARIANT_FALSE)
            entry_->leaveField(); // what is still being typed is committed too
        entry_->put_blnDirty(value != VARIANT_FALSE);
    });
}

HRESULT DataEntryControl::get_UserMode(::UserModeType* value) {
    return reading(value, [&] { return static_cast<::UserModeType>(entry_->get_UserMode()); });
}
HRESULT DataEntryControl::put_UserMode(::UserModeType value) {
    return writing([&] { entry_->put_UserMode(static_cast<vkr::UserModeType>(value)); });
}

HRESULT DataEntryControl::get_ShadeColorLocked(OLE_COLOR* value) {
    return reading(value, [&] { return OLE_COLOR{entry_->get_ShadeColorLocked()}; });
}
HRESULT DataEntryControl::put_ShadeColorLocked(OLE_COLOR value) {
    return writing([&] { entry_->put_ShadeColorLocked(value); });
}
HRESULT DataEntryControl::get_ShadeColorYear(OLE_COLOR* value) {
    return reading(value, [&] { return OLE_COLOR{entry_->get_ShadeColorYear()}; });
}
HRESULT DataEntryControl::put_ShadeColorYear(OLE_COLOR value) {
    return writing([&] { entry_->put_ShadeColorYear(value); });
}
HRESULT DataEntryControl::get_ShadeColorQuarter(OLE_COLOR* value) {
    return reading(value, [&] { return OLE_COLOR{entry_->get_ShadeColorQuarter()}; });
}
HRESULT DataEntryControl::put_ShadeColorQuarter(OLE_COLOR value) {
    return writing([&] { entry_->put_ShadeColorQuarter(value); });
}

HRESULT DataEntryControl::get_VisibleQuarters(SHORT* value) {
    return reading(value, [&] { return SHORT{entry_->get_VisibleQuarters()}; });
}
HRESULT DataEntryControl::put_VisibleQuarters(SHORT value) {
    return writing([&] { entry_->put_VisibleQuarters(value); });
}

HRESULT DataEntryControl::get_ShowReportingPeriod(VARIANT_BOOL* value) {
    return reading(value, [&] { return toBool(entry_->get_ShowReportingPeriod()); });
}
HRESULT DataEntryControl::put_ShowReportingPeriod(VARIANT_BOOL value) {
    return writing([&] { entry_->put_ShowReportingPeriod(value != VARIANT_FALSE); });
}
HRESULT DataEntryControl::get_ShowVLs(VARIANT_BOOL* value) {
    return reading(value, [&] { return toBool(entry_->get_ShowVLs()); });
}
HRESULT DataEntryControl::put_ShowVLs(VARIANT_BOOL value) {
    return writing([&] { entry_->put_ShowVLs(value != VARIANT_FALSE); });
}

HRESULT DataEntryControl::get_CurrentTab(::TABObject* value) {
    return reading(value, [&] { return static_cast<::TABObject>(entry_->get_CurrentTab()); });
}
HRESULT DataEntryControl::put_CurrentTab(::TABObject value) {
    return writing([&] { entry_->put_CurrentTab(static_cast<vkr::TABObject>(value)); });
}

HRESULT DataEntryControl::get_PercentFormat(BSTR* value) {
    return reading(value, [&] { return newBstr(entry_->get_PercentFormat()); });
}
HRESULT DataEntryControl::put_PercentFormat(BSTR value) {
    return writing([&] { entry_->put_PercentFormat(textOf(value)); });
}
HRESULT DataEntryControl::get_DateFormat(BSTR* value) {
    return reading(value, [&] { return newBstr(entry_->get_DateFormat()); });
}
HRESULT DataEntryControl::put_DateFormat(BSTR value) {
    return writing([&] { entry_->put_DateFormat(textOf(value)); });
}
HRESULT DataEntryControl::get_NumberFormat(BSTR* value) {
    return reading(value, [&] { return newBstr(entry_->get_NumberFormat()); });
}
HRESULT DataEntryControl::put_NumberFormat(BSTR value) {
    return writing([&] { entry_->put_NumberFormat(textOf(value)); });
}

HRESULT DataEntryControl::get_FractionDisplay(VARIANT_BOOL* value) {
    return reading(value, [&] { return toBool(entry_->get_FractionDisplay()); });
}
HRESULT DataEntryControl::put_FractionDisplay(VARIANT_BOOL value) {
    return writing([&] { entry_->put_FractionDisplay(value != VARIANT_FALSE); });
}

// What is no list, or can't be read, leaves the list as it is.
void DataEntryControl::putList(void (VKRDataEntry::*put)(const Variant&), const VARIANT& value) {
    ifPossible([&] { (entry_.get()->*put)(fromVariant(value)); });
}
HRESULT DataEntryControl::put_vntSource(VARIANT value) {
    return writing([&] { putList(&vkr::VKRDataEntry::put_vntSource, value); });
}
HRESULT DataEntryControl::put_vntExchange(VARIANT value) {
    return writing([&] { putList(&vkr::VKRDataEntry::put_vntExchange, value); });
}
HRESULT DataEntryControl::put_vntIndustry(VARIANT value) {
    return writing([&] { putList(&vkr::VKRDataEntry::put_vntIndustry, value); });
}

HRESULT DataEntryControl::get_BorderStyle(::BorderStyleConstants* value) {
    return reading(value,
                   [&] { return static_cast<::BorderStyleConstants>(entry_->get_BorderStyle()); });
}
HRESULT DataEntryControl::put_BorderStyle(::BorderStyleConstants value) {
    return writing([&] {
        if (value != ::bsNone && value != ::bsFixedSingle)
            throw ComError(CTL_E_INVALIDPROPERTYVALUE, "BorderStyle is 0 or 1.");
        entry_->put_BorderStyle(static_cast<vkr::BorderStyle>(value));
        unsaved_ = true;
    });
}

HRESULT DataEntryControl::get_Platform(::PlatformType* value) {
    return reading(value, [&] { return static_cast<::PlatformType>(entry_->get_Platform()); });
}
HRESULT DataEntryControl::put_Platform(::PlatformType value) {
    return writing([&] {
        entry_->put_Platform(static_cast<vkr::PlatformType>(value));
        if (const auto site = site_.as<IOleControlSite>())
            site->OnControlInfoChanged(); // other captions have other letters
    });
}

// --- the record ----------------------------------------------------------------------------------

void DataEntryControl::setCompany(IUnknown* company) {
    auto record = insideRecord(company);
    IDispatch* const foreign = record == nullptr ? nullptr : outsideOf(*record);
    auto outside = foreign == nullptr ? queryFor<IDispatch>(company) : ComPtr<IDispatch>(foreign);
    entry_->put_objCompany(record);
    inside_.swap(record); // what goes may call back
    std::swap(outside_, outside);
}

// With everything that was typed, also in the field that still has the focus.
ComPtr<IDispatch> DataEntryControl::company() {
    entry_->leaveField();
    auto record = entry_->get_objCompany();
    if (record == nullptr)
        return {};
    if (record != inside_ || !outside_) {
        IDispatch* const foreign = outsideOf(*record);
        ComPtr<IDispatch> outside =
            foreign != nullptr ? ComPtr<IDispatch>(foreign)
                               : ComPtr<IDispatch>(outsideRecord(record, Files::none).get());
        inside_.swap(record);
        std::swap(outside_, outside);
    }
    return outside_;
}

HRESULT DataEntryControl::get_objCompany(::iVKR_Company** value) {
    return reading(value, [&]() -> ::iVKR_Company* {
        const auto outside = company();
        if (!outside)
            return nullptr;
        if (auto record = queryFor<::iVKR_Company>(outside.get()))
            return record.detach();
        return outsideRecord(inside_, Files::none).detach(); // one that can be called by name alone
    });
}
HRESULT DataEntryControl::putref_objCompany(::iVKR_Company* value) {
    return writing([&] { setCompany(value); });
}

// --- methods -------------------------------------------------------------------------------------

HRESULT DataEntryControl::SetNext() {
    return writing([&] { entry_->SetNext(); });
}
HRESULT DataEntryControl::SetPrevious() {
    return writing([&] { entry_->SetPrevious(); });
}
HRESULT DataEntryControl::Clear() {
    return writing([&] { entry_->Clear(); });
}
HRESULT DataEntryControl::ScrollMouse(SHORT* keyCode, SHORT* shift) {
    return writing([&] { entry_->ScrollMouse(answer(keyCode), answer(shift)); });
}

// --- besides -------------------------------------------------------------------------------------

HRESULT DataEntryControl::get_DecimalMark(BSTR* value) {
    return reading(value, [&] { return newBstr({&entry_->get_NumberMarks().decimal, 1}); });
}
HRESULT DataEntryControl::put_DecimalMark(BSTR value) {
    return writing([&] {
        const std::string text = textOf(value);
        if (text != "." && text != ",")
            throw ComError(CTL_E_INVALIDPROPERTYVALUE, "The decimal mark is a point or a comma.");
        NumberMarks marks = entry_->get_NumberMarks();
        marks.decimal = text[0];
        ownMarks_ = true;
        entry_->put_NumberMarks(marks);
    });
}
HRESULT DataEntryControl::get_GroupingMark(BSTR* value) {
    return reading(value, [&] { return newBstr(entry_->get_NumberMarks().grouping); });
}
HRESULT DataEntryControl::put_GroupingMark(BSTR value) {
    return writing([&] {
        NumberMarks marks = entry_->get_NumberMarks();
        marks.grouping = textOf(value);
        ownMarks_ = true;
        entry_->put_NumberMarks(marks);
    });
}
HRESULT DataEntryControl::get_ApplicationTitle(BSTR* value) {
    return reading(value, [&] { return newBstr(services_.title()); });
}
HRESULT DataEntryControl::put_ApplicationTitle(BSTR value) {
    return writing([&] { services_.setTitle(textOf(value)); });
}
HRESULT DataEntryControl::get_UnstoredFields(VARIANT* value) {
    return reading(value, [&] { return listOf(entry_->unstoredFields()); });
}
HRESULT DataEntryControl::get_DoubtfulFields(VARIANT* value) {
    return reading(value, [&] { return listOf(entry_->doubtfulFields()); });
}
HRESULT DataEntryControl::ShowField(BSTR control) {
    return writing([&] { entry_->showField(textOf(control)); });
}
HRESULT DataEntryControl::LeaveField() {
    return writing([&] { entry_->leaveField(); });
}
HRESULT DataEntryControl::put_Origins(VARIANT value) {
    return writing([&] { entry_->setOrigins(originsIn(value)); });
}
HRESULT DataEntryControl::put_Remarks(VARIANT value) {
    return writing([&] { entry_->setRemarks(remarksIn(value)); });
}
HRESULT DataEntryControl::RecordChanged() {
    return writing([&] { entry_->recordChanged(); });
}
HRESULT DataEntryControl::ShowFigure(BSTR datum, VARIANT element, VARIANT_BOOL* shown) {
    return reading(
        shown, [&] { return toBool(entry_->showFigure(figurePlaceIn(textOf(datum), element))); });
}

} // namespace vkr::automation
