// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace vkr::automation {

// The type libraries that lie in this library, in the order of their resources.
// Who asks the library for a type library without a number gets the first.
enum class Library { entry = 1, company = 2, enumerations = 3 };
inline constexpr int libraryCount = 3;

// Read once and kept until the library can be unloaded.
[[nodiscard]] ComPtr<ITypeLib> typeLibrary(Library library);
[[nodiscard]] ComPtr<ITypeInfo> typeInfo(Library library, REFGUID id);
void releaseTypeLibraries();
// The path under which a type library is found: that of this library, and the resource's number.
[[nodiscard]] std::wstring pathOf(Library library);

// How many arguments a member takes; those at the end may be optional.
struct ArgumentCount {
    UINT least = 0;
    UINT most = 0;
};
// By number and kind of call.
using ArgumentCounts = std::map<std::pair<DISPID, WORD>, ArgumentCount>;
[[nodiscard]] const ArgumentCounts& argumentCounts(Library library, REFGUID id);
// Whether a call has as many as its member takes; a member that there is not is no matter here.
[[nodiscard]] bool fits(const ArgumentCounts& counts, DISPID member, WORD kind, UINT given);

// What DISPPARAMS has to be before anything looks into it.
[[nodiscard]] HRESULT refusalOf(REFIID reserved, const DISPPARAMS* given);

// IDispatch of a dual interface, by its type information: late bound calls go through the same
// functions as early bound ones.
template <typename Interface, Library library, typename... Others>
class Dual : public ComObject<Interface, ISupportErrorInfo, Others...> {
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return guarded(this, IID_IDispatch, [&] { answer(count) = 1; });
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
        return guarded(this, IID_IDispatch, [&] {
            answer(info) = nullptr;
            if (index != 0)
                return DISP_E_BADINDEX;
            *info = ownInfo().detach();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID /*locale*/, DISPID* found) override {
        return guarded(this, IID_IDispatch, [&] {
            if (!IsEqualIID(reserved, IID_NULL))
                return DISP_E_UNKNOWNINTERFACE;
            if (names == nullptr || found == nullptr || count == 0 ||
                std::find(names, names + count, nullptr) != names + count)
                return E_INVALIDARG;
            return ownInfo()->GetIDsOfNames(names, count, found);
        });
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID /*locale*/, WORD kind,
                                     DISPPARAMS* given, VARIANT* result, EXCEPINFO* error,
                                     UINT* wrongArgument) override {
        if (result != nullptr)
            VariantInit(result);
        return guarded(this, IID_IDispatch, [&] {
            if (const HRESULT refused = refusalOf(reserved, given); FAILED(refused))
                return refused;
            if (counts_ == nullptr)
                counts_ = &argumentCounts(library, __uuidof(Interface));
            if (!fits(*counts_, member, kind, given->cArgs))
                return DISP_E_BADPARAMCOUNT;
            SetErrorInfo(0, nullptr);
            UINT place = 0;
            return invoke(member, kind, *given, result, error,
                          wrongArgument == nullptr ? &place : wrongArgument);
        });
    }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
        return IsEqualIID(id, __uuidof(Interface)) ? S_OK : S_FALSE;
    }

  protected:
    [[nodiscard]] void* find(REFIID id) override {
        if (IsEqualIID(id, IID_IDispatch))
            return static_cast<IDispatch*>(static_cast<Interface*>(this));
        return ComObject<Interface, ISupportErrorInfo, Others...>::find(id);
    }
    [[nodiscard]] ComPtr<ITypeInfo> ownInfo() {
        if (!info_)
            info_ = typeInfo(library, __uuidof(Interface));
        return info_;
    }
    virtual HRESULT invoke(DISPID member, WORD kind, DISPPARAMS& given, VARIANT* result,
                           EXCEPINFO* error, UINT* wrongArgument) {
        return ownInfo()->Invoke(static_cast<Interface*>(this), member, kind, &given, result, error,
                                 wrongArgument);
    }

  private:
    ComPtr<ITypeInfo> info_;
    const ArgumentCounts* counts_ = nullptr;
};

} // namespace vkr::automation
