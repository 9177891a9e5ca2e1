// SPDX-License-Identifier: MIT
// A host's own record, as hosts write them.
#include "record/data_list.hpp"
#include "tests/automation/control_fixture.hpp"

#include <utility>

namespace vkr::automation {

template <>
struct BasesOf<::iVKR_Company> : OneBase<::iVKR_Company, IDispatch> {};

namespace {

template <typename Kind>
struct Slot {
    using Type = VARIANT;
};
template <>
struct Slot<datum_kind::Text> {
    using Type = BSTR;
};
template <>
struct Slot<datum_kind::Number> {
    using Type = double;
};
template <>
struct Slot<datum_kind::Year> {
    using Type = SHORT;
};
template <>
struct Slot<datum_kind::Day> {
    using Type = DATE;
};

// With the interface, and nothing behind its names: what it holds is another record's.
class NamelessRecord final : public ComObject<::iVKR_Company> {
  public:
    explicit NamelessRecord(ComPtr<::iVKR_Company> held) : held_(std::move(held)) {}

    bool hasDispatch = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
        if (!hasDispatch && IsEqualIID(id, IID_IDispatch))
            return *found = nullptr, E_NOINTERFACE;
        return ComObject::QueryInterface(id, found);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

#define VKR_SLOTS(kind, name, title, unit, key, place)                                             \
    HRESULT STDMETHODCALLTYPE get_##name(Slot<datum_kind::kind>::Type* value) override {           \
        return held_->get_##name(value);                                                           \
    }                                                                                              \
    HRESULT STDMETHODCALLTYPE put_##name(Slot<datum_kind::kind>::Type value) override {            \
        return held_->put_##name(value);                                                           \
    }
    VKR_DATA(VKR_SLOTS)
#undef VKR_SLOTS

#define VKR_SLOT(name)                                                                             \
    HRESULT STDMETHODCALLTYPE get_##name(VARIANT* value) override {                                \
        return held_->get_##name(value);                                                           \
    }
    VKR_SLOT(YearShiftFirst)
    VKR_SLOT(YearShiftLast)
    VKR_SLOT(YearShiftCount)
    VKR_SLOT(ReportingPeriodEnd)
    VKR_SLOT(YearShiftPrices)
    VKR_SLOT(YearShiftEarnings)
    VKR_SLOT(YearShiftDividends)
    VKR_SLOT(YearShiftShares)
    VKR_SLOT(SettingsApply)
#undef VKR_SLOT

    HRESULT STDMETHODCALLTYPE BeginYearShift(SHORT, VARIANT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE YearShiftState(SHORT, VARIANT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EndYearShift(SHORT, VARIANT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE YearShiftUnit(SHORT, VARIANT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE put_QuarterlyFlag(VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_ReportingPeriod(IDispatch** value) override {
        return held_->get_ReportingPeriod(value);
    }
    HRESULT STDMETHODCALLTYPE get_Settings(IDispatch** value) override {
        return held_->get_Settings(value);
    }

  private:
    ComPtr<::iVKR_Company> held_;
};

struct ForeignCompany : Control {};

// A host in C++ may have written the interface's own functions alone.
TEST_F(ForeignCompany, IsCalledByItsSlotsWhereItAnswersToNoNames) {
    for (const bool hasDispatch : {true, false}) {
        SCOPED_TRACE(hasDispatch);
        const auto held = library.create<::iVKR_Company>(__uuidof(::Company));
        EXPECT_EQ(held->put_Name(Bstr("Acme").get()), S_OK);
        const auto record = makeCom<NamelessRecord>(held);
        record->hasDispatch = hasDispatch;
        control = library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
        open(record.get());
        EXPECT_EQ(shown("txtName"), "Acme");
        type("txtSymbol", "ACM");
        press(VK_TAB);
        EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
        type("txtSales(3)", "125");
        press(VK_RETURN);
        EXPECT_TRUE(unstored().empty());
        ComPtr<::iVKR_Company> back;
        EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
        EXPECT_EQ(back.get(), static_cast<::iVKR_Company*>(record.get()));
        EXPECT_EQ(getByName(held.get(), "Symbol"), Variant("ACM"));
        EXPECT_EQ(getByName(held.get(), "YRevenueSeries").array().number(7), 125);
        takeAway();
        site->frame->active.reset();
    }
}

} // namespace
} // namespace vkr::automation
