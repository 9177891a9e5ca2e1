// SPDX-License-Identifier: MIT
// What the library offers to the loader of the component model.
#include "automation/busy.hpp"
#include "automation/com.hpp"
#include "automation/company_object.hpp"
#include "automation/data_entry_control.hpp"
#include "automation/registration.hpp"
#include "automation/service_objects.hpp"
#include "automation/type_library.hpp"

#include <string_view>
#include <vkr_data_entry.h>

namespace vkr::automation {

namespace {

std::span<const CreatableClass> creatableClasses() {
    static const CreatableClass classes[] = {
        {__uuidof(::VKRDataEntry), L"VKR data entry", L"VKR_DataEntry.VKRDataEntry", 3, true,
         newDataEntryControl},
        {__uuidof(::Company), L"VKR company record", L"VKR_Company.Company", 2, false,
         newCompanyObject},
        {__uuidof(::TrailingEarnings), L"VKR trailing earnings", L"VKR_Company.TrailingEarnings", 2,
         false, newEarningsObject},
        {__uuidof(::StandardLocalizer), L"VKR data entry texts", L"iVKR_DataEntry.Localizer", 3,
         false, newStandardLocalizer},
        {__uuidof(::ZxLocalizer), L"VKR data entry texts, ZX", L"iVKR_ZX_DataEntry.Localizer", 3,
         false, newZxLocalizer},
    };
    return classes;
}

class Factory final : public ComObject<IClassFactory> {
  public:
    explicit Factory(const CreatableClass& made) : made_(made) {}

    // It has no state: what it makes belongs to the thread that asks.
    [[nodiscard]] bool isAtHome() const override { return true; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** made) override {
        return guarded(this, IID_IClassFactory, [&] {
            answer(made) = nullptr;
            if (outer != nullptr)
                return CLASS_E_NOAGGREGATION;
            return made_.create()->QueryInterface(id, made);
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        lockLibrary(lock != FALSE);
        return S_OK;
    }

  private:
    const CreatableClass& made_;
};

template <typename Call>
HRESULT entry(Call&& call) noexcept {
    try {
        return call();
    } catch (...) {
        return tellFailure(IID_NULL);
    }
}

} // namespace

} // namespace vkr::automation

using namespace vkr::automation;

STDAPI DllGetClassObject(REFCLSID id, REFIID wanted, void** found) {
    return entry([&] {
        answer(found) = nullptr;
        for (const CreatableClass& one : creatableClasses())
            if (IsEqualCLSID(id, one.id))
                return makeCom<Factory>(one)->QueryInterface(wanted, found);
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

STDAPI DllCanUnloadNow() {
    releaseWaiting();
    if (liveObjects() != 0)
        return S_FALSE;
    return entry([] {
        releaseTypeLibraries();
        return S_OK;
    });
}

STDAPI DllRegisterServer() {
    return entry([] { return registerAll(creatableClasses(), Scope::machine); });
}

STDAPI DllUnregisterServer() {
    return entry([] { return unregisterAll(creatableClasses(), Scope::machine); });
}

// regsvr32 /n /i:user registers for the user alone, /i for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR command) {
    return entry([&] {
        const std::wstring_view wanted = command == nullptr ? L"" : command;
        if (!wanted.empty() && wanted != L"user" && wanted != L"machine")
            return E_INVALIDARG;
        const Scope scope = wanted == L"user" ? Scope::user : Scope::machine;
        return install != FALSE ? registerAll(creatableClasses(), scope)
                                : unregisterAll(creatableClasses(), scope);
    });
}

// For tests: objects and locks that are alive.
extern "C" long STDAPICALLTYPE VkrLiveObjects() {
    return liveObjects();
}
