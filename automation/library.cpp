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
        {.id = __uuidof(::VKRDataEntry),
         .name = L"VKR data entry",
         .programmaticId = L"VKR_DataEntry.VKRDataEntry",
         .library = Library::entry,
         .control = true,
         .create = newDataEntryControl},
        {.id = __uuidof(::Company),
         .name = L"VKR company record",
         .programmaticId = L"VKR_Company.Company",
         .library = Library::company,
         .control = false,
         .create = newCompanyObject},
        {.id = __uuidof(::TrailingEarnings),
         .name = L"VKR trailing earnings",
         .programmaticId = L"VKR_Company.TrailingEarnings",
         .library = Library::company,
         .control = false,
         .create = newEarningsObject},
        {.id = __uuidof(::StandardLocalizer),
         .name = L"VKR data entry texts",
         .programmaticId = L"iVKR_DataEntry.Localizer",
         .library = Library::entry,
         .control = false,
         .create = newStandardLocalizer},
        {.id = __uuidof(::ZxLocalizer),
         .name = L"VKR data entry texts, ZX",
         .programmaticId = L"iVKR_ZX_DataEntry.Localizer",
         .library = Library::entry,
         .control = false,
         .create = newZxLocalizer},
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
