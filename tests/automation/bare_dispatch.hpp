// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"

#include <vkr_data_entry.h>

namespace vkr::automation {

// The least that a dual interface takes: the model's own dispatch by the same type information, and
// one property that is a number.
class BareDispatch final : public ComObject<::_VKRDataEntry> {
  public:
    explicit BareDispatch(ComPtr<ITypeInfo> info) : info_(std::move(info)) {}

    HRESULT STDMETHODCALLTYPE get_VisibleQuarters(SHORT* value) override {
        return *value = 9, S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 1, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        return *info = ComPtr(info_).detach(), S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* found) override {
        return DispGetIDsOfNames(info_.get(), names, count, found);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* given,
                                     VARIANT* result, EXCEPINFO* error, UINT* wrong) override {
        return DispInvoke(this, info_.get(), member, kind, given, result, error, wrong);
    }

    HRESULT STDMETHODCALLTYPE blnExistsQuarterlyData(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_blnDirty(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_blnDirty(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_UserMode(::UserModeType*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_UserMode(::UserModeType) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ShadeColorLocked(OLE_COLOR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ShadeColorLocked(OLE_COLOR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ShadeColorYear(OLE_COLOR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ShadeColorYear(OLE_COLOR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ShadeColorQuarter(OLE_COLOR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ShadeColorQuarter(OLE_COLOR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_VisibleQuarters(SHORT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ShowReportingPeriod(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ShowReportingPeriod(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ShowVLs(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ShowVLs(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_CurrentTab(::TABObject*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_CurrentTab(::TABObject) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_PercentFormat(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_PercentFormat(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_DateFormat(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_DateFormat(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_NumberFormat(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_NumberFormat(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_FractionDisplay(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_FractionDisplay(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_vntSource(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_vntExchange(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_vntIndustry(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_BorderStyle(::BorderStyleConstants*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_BorderStyle(::BorderStyleConstants) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_objCompany(::iVKR_Company**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE putref_objCompany(::iVKR_Company*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Platform(::PlatformType*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Platform(::PlatformType) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetNext() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetPrevious() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clear() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ScrollMouse(SHORT*, SHORT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_DecimalMark(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_DecimalMark(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_GroupingMark(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_GroupingMark(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_ApplicationTitle(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_ApplicationTitle(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_UnstoredFields(VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_DoubtfulFields(VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ShowField(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE LeaveField() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Origins(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Remarks(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RecordChanged() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ShowFigure(BSTR, VARIANT, VARIANT_BOOL*) override {
        return E_NOTIMPL;
    }

  private:
    ComPtr<ITypeInfo> info_;
};

} // namespace vkr::automation
