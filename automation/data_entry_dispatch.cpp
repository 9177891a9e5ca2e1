// SPDX-License-Identifier: MIT
// The dual interface called by name: what the model's own dispatch would not do with arguments of
// scripts.
#include "automation/data_entry_control.hpp"
#include "automation/member_numbers.hpp"
#include "automation/variants.hpp"
#include "control/property_table.hpp"

namespace vkr::automation {

namespace {

// What an argument is, by reference or not.
VARIANT& meant(VARIANT& value) {
    return V_VT(&value) == (VT_VARIANT | VT_BYREF) && V_VARIANTREF(&value) != nullptr
               ? *V_VARIANTREF(&value)
               : value;
}

bool isColor(DISPID memberId) {
    const auto rows = propertyTable().first(interfaceProperties);
    return memberId >= 1 && static_cast<std::size_t>(memberId) <= rows.size() &&
           rows[static_cast<std::size_t>(memberId) - 1].type == PropertyType::color;
}

IUnknown* objectIn(const VARIANT& value) {
    switch (V_VT(&value)) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return V_UNKNOWN(&value);
    case VT_DISPATCH | VT_BYREF:
    case VT_UNKNOWN | VT_BYREF:
        return answer(V_UNKNOWNREF(&value));
    default:
        throw ComError(DISP_E_TYPEMISMATCH, "objCompany is a record, or nothing.");
    }
}

// A 16-bit number that is passed by reference, however a script holds it; written back as it came.
class ShortByReference {
  public:
    explicit ShortByReference(VARIANT& given) : place_(meant(given)) {
        OwnedVariant number;
        check(VariantChangeType(number.receive(), &place_, 0, VT_I2));
        value = V_I2(&number.get());
    }
    void writeBack() const {
        if (V_VT(&place_) == (VT_I2 | VT_BYREF))
            *V_I2REF(&place_) = value;
        else if (V_VT(&place_) == VT_I2)
            V_I2(&place_) = value;
    }
    SHORT value = 0;

  private:
    VARIANT& place_;
};

} // namespace

HRESULT DataEntryControl::invoke(DISPID memberId, WORD kind, DISPPARAMS& given, VARIANT* result,
                                 EXCEPINFO* error, UINT* wrongArgument) {
    if (memberId == member::of(EntryProperty::objCompany))
        return invokeCompany(kind, given, result);
    if (given.cArgs <= 1 && isColor(memberId))
        return invokeColor(memberId, kind, given, result, error, wrongArgument);
    if (memberId == member::scrollMouse && given.cArgs == 2 && (kind & DISPATCH_METHOD) != 0)
        return invokeScroll(given);
    return DataEntryBase::invoke(memberId, kind, given, result, error, wrongArgument);
}

// Scripts know no numbers without a sign: a system color is negative there.
HRESULT DataEntryControl::invokeColor(DISPID memberId, WORD kind, DISPPARAMS& given,
                                      VARIANT* result, EXCEPINFO* error, UINT* wrongArgument) {
    OwnedVariant color;
    DISPPARAMS parameters = given;
    if (given.cArgs == 1 &&
        SUCCEEDED(VariantChangeType(color.receive(), &meant(given.rgvarg[0]), 0, VT_I4))) {
        V_VT(&color.get()) = VT_UI4;
        parameters.rgvarg = &color.get();
    }
    const HRESULT called =
        DataEntryBase::invoke(memberId, kind, parameters, result, error, wrongArgument);
    if (SUCCEEDED(called) && result != nullptr && V_VT(result) == VT_UI4)
        V_VT(result) = VT_I4;
    return called;
}

// By its name a record may be any object that answers to the names of the interface: a script's own
// class has no interface beside.
HRESULT DataEntryControl::invokeCompany(WORD kind, DISPPARAMS& given, VARIANT* result) {
    HRESULT done = S_OK;
    const HRESULT called = writing([&] {
        if ((kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
            if (given.cArgs != 1)
                done = DISP_E_BADPARAMCOUNT;
            else
                setCompany(objectIn(meant(given.rgvarg[0])));
            return;
        }
        if (given.cArgs != 0) {
            done = DISP_E_BADPARAMCOUNT;
            return;
        }
        auto record = company();
        if (result != nullptr) {
            V_DISPATCH(result) = record.detach();
            V_VT(result) = VT_DISPATCH;
        }
    });
    return FAILED(called) ? called : done;
}

HRESULT DataEntryControl::invokeScroll(DISPPARAMS& given) {
    ShortByReference keyCode(given.rgvarg[1]);
    ShortByReference shift(given.rgvarg[0]);
    const HRESULT result = ScrollMouse(&keyCode.value, &shift.value);
    keyCode.writeBack();
    shift.writeBack();
    return result;
}

} // namespace vkr::automation
