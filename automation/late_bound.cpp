// SPDX-License-Identifier: MIT
#include "automation/late_bound.hpp"

#include "automation/names_alone.hpp"
#include "automation/texts.hpp"
#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <memory>

namespace vkr::automation {

// By which the library knows its own objects again. No proxy has it.
struct InsideObject : IUnknown {
    virtual const std::shared_ptr<Object>& inside() const = 0;
};

} // namespace vkr::automation

__CRT_UUID_DECL(vkr::automation::InsideObject, 0x7005a70f, 0xa2f6, 0x4740, 0xbd, 0x72, 0x57, 0xcd,
                0x6a, 0xf5, 0xd8, 0x08)

namespace vkr::automation {

namespace {

// A failure of the object, not of the call, as the caller of Invoke() hears of it: with its text.
HRESULT toldByException(HRESULT failure, EXCEPINFO* error) {
    if (SUCCEEDED(failure) || error == nullptr || HRESULT_FACILITY(failure) == FACILITY_DISPATCH)
        return failure;
    *error = {};
    error->scode = failure;
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.receive()) == S_OK) {
        info->GetDescription(&error->bstrDescription);
        info->GetSource(&error->bstrSource);
    }
    return DISP_E_EXCEPTION;
}

// An object of the component as it is seen outside. It answers to the names that the object does.
class DispatchedObject final : public NamesAlone<InsideObject> {
  public:
    explicit DispatchedObject(std::shared_ptr<Object> object) : object_(std::move(object)) {}

    const std::shared_ptr<Object>& inside() const override { return object_; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID /*locale*/, DISPID* found) override {
        return guarded(this, IID_IDispatch, [&] { return idsOf(reserved, names, count, found); });
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID /*locale*/, WORD kind,
                                     DISPPARAMS* given, VARIANT* result, EXCEPINFO* error,
                                     UINT* wrongArgument) override {
        if (result != nullptr)
            VariantInit(result);
        const HRESULT done = guarded(this, IID_IDispatch, [&] {
            if (!IsEqualIID(reserved, IID_NULL))
                return DISP_E_UNKNOWNINTERFACE;
            return invoke(member, kind, given, result, wrongArgument);
        });
        return toldByException(done, error);
    }

  private:
    HRESULT idsOf(REFIID reserved, LPOLESTR* names, UINT count, DISPID* found) {
        if (!IsEqualIID(reserved, IID_NULL))
            return DISP_E_UNKNOWNINTERFACE;
        if (count == 0 || names == nullptr || found == nullptr || names[0] == nullptr)
            return E_INVALIDARG;
        std::fill(found, found + count, DISPID_UNKNOWN);
        const std::string name = textOf(std::wstring_view(names[0]));
        const auto known = std::ranges::find_if(
            names_, [&](const std::string& one) { return equalsIgnoringCase(one, name); });
        if (known == names_.end()) {
            if (!attempt([&] { static_cast<void>(object_->get(name)); }))
                return DISP_E_UNKNOWNNAME;
            names_.push_back(name);
            found[0] = static_cast<DISPID>(names_.size());
        } else {
            found[0] = static_cast<DISPID>(known - names_.begin()) + 1;
        }
        return count == 1 ? S_OK : DISP_E_UNKNOWNNAME; // no member has named arguments
    }

    HRESULT invoke(DISPID member, WORD kind, const DISPPARAMS* given, VARIANT* result,
                   UINT* wrongArgument) {
        if (member < 1 || static_cast<std::size_t>(member) > names_.size())
            return DISP_E_MEMBERNOTFOUND;
        if (given == nullptr || (given->cArgs > 0 && given->rgvarg == nullptr))
            return E_INVALIDARG;
        const std::string& name = names_[static_cast<std::size_t>(member) - 1];
        if ((kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
            if (given->cArgs != 1)
                return DISP_E_BADPARAMCOUNT;
            if (wrongArgument != nullptr)
                *wrongArgument = 0;
            object_->put(name, fromVariant(given->rgvarg[0]));
            return S_OK;
        }
        if (given->cArgs != 0)
            return DISP_E_BADPARAMCOUNT;
        VARIANT value = newVariant(object_->get(name));
        if (result != nullptr)
            *result = value;
        else
            VariantClear(&value);
        return S_OK;
    }

    std::shared_ptr<Object> object_;
    std::vector<std::string> names_; // a member's number is its place here, from 1
};

} // namespace

Variant fromVariant(const VARIANT& value) {
    return readVariant(value, lateBound);
}

void toVariant(const Variant& value, OwnedVariant& into) {
    writeVariant(value, into, dispatchOf);
}

VARIANT newVariant(const Variant& value) {
    OwnedVariant made;
    toVariant(value, made);
    return made.detach();
}

// --- calling outside -----------------------------------------------------------------------------

DISPID LateBound::idOf(Held& held, std::string_view name) {
    if (const auto known = held.ids.find(name); known != held.ids.end())
        return known->second;
    std::wstring wide = wideOf(name);
    LPOLESTR wanted = wide.data();
    DISPID id = DISPID_UNKNOWN;
    check(held.object->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id));
    held.ids.emplace(name, id);
    return id;
}

void LateBound::invoke(std::string_view name, WORD kind, std::vector<VARIANT>& arguments,
                       VARIANT* answer) const {
    const auto held = held_; // the object may let go of us meanwhile
    const DISPID id = idOf(*held, name);
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS given{arguments.data(), puts ? &put : nullptr, static_cast<UINT>(arguments.size()),
                     puts ? 1U : 0U};
    EXCEPINFO error{};
    UINT wrong = 0;
    const HRESULT result = held->object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &given,
                                                answer, &error, &wrong);
    if (result == DISP_E_EXCEPTION && error.pfnDeferredFillIn != nullptr)
        error.pfnDeferredFillIn(&error);
    const std::string told =
        attemptOr(std::string(), [&] { return textOf(error.bstrDescription); });
    SysFreeString(error.bstrSource);
    SysFreeString(error.bstrDescription);
    SysFreeString(error.bstrHelpFile);
    if (FAILED(result))
        throw ComError(result, told);
}

void LateBound::get(std::string_view name, OwnedVariant& value) const {
    std::vector<VARIANT> none;
    invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, none, value.receive());
}

void LateBound::put(std::string_view name, const Variant& value) const {
    OwnedVariant held;
    toVariant(value, held);
    std::vector<VARIANT> arguments{held.get()};
    invoke(name, DISPATCH_PROPERTYPUT, arguments, nullptr);
}

void LateBound::call(std::string_view name, std::initializer_list<Variant> arguments,
                     OwnedVariant& answer) const {
    std::vector<OwnedVariant> held(arguments.size());
    std::vector<VARIANT> last; // first
    std::size_t place = arguments.size();
    last.resize(place);
    for (const Variant& one : arguments) {
        --place;
        toVariant(one, held[place]);
        last[place] = held[place].get();
    }
    invoke(name, DISPATCH_METHOD, last, answer.receive());
}

Variant OutsideObject::get(std::string_view name) const {
    OwnedVariant value;
    object_.get(name, value);
    return fromVariant(value.get());
}

void OutsideObject::put(std::string_view name, const Variant& value) {
    object_.put(name, value);
}

std::shared_ptr<Object> lateBound(IUnknown* object) {
    if (object == nullptr)
        return nullptr;
    if (const auto inside = queryFor<InsideObject>(object))
        return inside->inside();
    auto dispatch = queryFor<IDispatch>(object);
    if (!dispatch)
        throw ComError(DISP_E_TYPEMISMATCH);
    return std::make_shared<OutsideObject>(std::move(dispatch));
}

ComPtr<IDispatch> dispatchOf(const std::shared_ptr<Object>& object) {
    if (object == nullptr)
        return {};
    if (const auto* outside = dynamic_cast<const OutsideObject*>(object.get()))
        return outside->dispatch();
    return ComPtr<IDispatch>(makeCom<DispatchedObject>(object).get());
}

} // namespace vkr::automation
