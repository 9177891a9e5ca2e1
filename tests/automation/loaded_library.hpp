// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/late_bound.hpp"
#include "automation/texts.hpp"
#include "automation/variants.hpp"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>
#include <vkr_data_entry.h>

namespace vkr::automation {

// VKRDataEntry.ocx, loaded as the component model would load it.
class LoadedLibrary {
  public:
    // The one beside the tests. It stays to the end.
    static LoadedLibrary& get() {
        static const WithModel model;
        static LoadedLibrary one(beside());
        return one;
    }
    explicit LoadedLibrary(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
        if (module_ == nullptr)
            std::abort();
    }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    [[nodiscard]] HMODULE module() const { return module_; }
    [[nodiscard]] std::wstring path() const {
        std::wstring path(1000, L'\0');
        path.resize(GetModuleFileNameW(module_, path.data(), 1000));
        return path;
    }
    [[nodiscard]] FARPROC function(const char* name) const { return GetProcAddress(module_, name); }
    [[nodiscard]] HRESULT classObject(REFCLSID id, REFIID wanted, void** found) const {
        return reinterpret_cast<decltype(&DllGetClassObject)>(
            reinterpret_cast<void*>(function("DllGetClassObject")))(id, wanted, found);
    }
    [[nodiscard]] long alive() const {
        using Count = long(STDAPICALLTYPE*)();
        return reinterpret_cast<Count>(reinterpret_cast<void*>(function("VkrLiveObjects")))();
    }
    [[nodiscard]] HRESULT canUnload() const {
        using CanUnload = HRESULT(STDAPICALLTYPE*)();
        return reinterpret_cast<CanUnload>(reinterpret_cast<void*>(function("DllCanUnloadNow")))();
    }

    template <typename Interface>
    [[nodiscard]] ComPtr<Interface> create(REFCLSID id) const {
        ComPtr<IClassFactory> factory;
        ComPtr<Interface> made;
        EXPECT_EQ(classObject(id, IID_IClassFactory, factory.receiveAny()), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface), made.receiveAny()), S_OK);
        return made;
    }

  private:
    // Under Wine a program that ends without it may wait for its own calls to other processes.
    struct WithModel {
        WithModel() { OleInitialize(nullptr); }
        ~WithModel() { OleUninitialize(); }
    };
    static std::wstring beside() {
        std::wstring path(1000, L'\0');
        path.resize(GetModuleFileNameW(nullptr, path.data(), 1000));
        path.resize(path.rfind(L'\\'));
        return path + L"\\VKRDataEntry.ocx";
    }
    HMODULE module_;
};

// Nothing is left of what a test has made.
struct WithLibrary : testing::Test {
    LoadedLibrary& library = LoadedLibrary::get();
    long before = library.alive();
    ~WithLibrary() override {
        turn();
        EXPECT_EQ(library.alive(), before) << "objects that are left";
    }
    // What waits in the message queue.
    static void turn() {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
};

// A call by name, as scripts make it. Arguments first to last.
struct Called {
    HRESULT result = S_OK;
    Variant value;
    std::string told; // by the exception
};

inline Called invoke(IDispatch* object, DISPID member, WORD kind, std::vector<VARIANT> arguments) {
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS given{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                     puts ? 1U : 0U};
    OwnedVariant value;
    EXCEPINFO error{};
    UINT wrong = 0;
    Called called;
    called.result = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &given,
                                   puts ? nullptr : value.receive(), &error, &wrong);
    if (SUCCEEDED(called.result))
        called.value = fromVariant(value.get());
    if (error.bstrDescription != nullptr)
        called.told = textOf(error.bstrDescription);
    SysFreeString(error.bstrDescription);
    SysFreeString(error.bstrSource);
    SysFreeString(error.bstrHelpFile);
    return called;
}

inline DISPID idOf(IDispatch* object, std::string_view name) {
    std::wstring wide = wideOf(name);
    LPOLESTR names = wide.data();
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK) << name;
    return id;
}

inline Variant getByName(IDispatch* object, std::string_view name) {
    const Called called =
        invoke(object, idOf(object, name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
    EXPECT_EQ(called.result, S_OK) << name << ": " << called.told;
    return called.value;
}

inline Called putByName(IDispatch* object, std::string_view name, const Variant& value) {
    OwnedVariant held;
    toVariant(value, held);
    return invoke(object, idOf(object, name), DISPATCH_PROPERTYPUT, {held.get()});
}

inline Called callByName(IDispatch* object, std::string_view name,
                         const std::vector<Variant>& values) {
    std::vector<OwnedVariant> held(values.size());
    std::vector<VARIANT> arguments;
    for (std::size_t i = 0; i < values.size(); ++i) {
        toVariant(values[i], held[i]);
        arguments.push_back(held[i].get());
    }
    return invoke(object, idOf(object, name), DISPATCH_METHOD, arguments);
}

} // namespace vkr::automation
