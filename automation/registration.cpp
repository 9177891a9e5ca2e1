// SPDX-License-Identifier: MIT
#include "automation/registration.hpp"

#include "automation/ole_status.hpp"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <string>
#include <vector>

namespace vkr::automation {

namespace {

constexpr const wchar_t* classesKey = L"Software\\Classes\\";
constexpr bool is64 = sizeof(void*) == 8;
constexpr const wchar_t* ownPlatform = is64 ? L"win64" : L"win32";
constexpr const wchar_t* otherPlatform = is64 ? L"win32" : L"win64";

// One value below Software\Classes; a name of null is the default value.
struct Entry {
    std::wstring key;
    const wchar_t* name;
    std::wstring text;
};

std::wstring textOf(REFGUID id) {
    wchar_t text[40] = {};
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return text;
}

std::wstring modulePath() {
    std::wstring path = pathOf(Library::enumerations);
    return path.substr(0, path.rfind(L'\\'));
}

// A type library as the registry knows it.
struct Described {
    std::wstring id;
    std::wstring version; // both numbers with the digits of 16
};

Described describedBy(ITypeLib* library) {
    TLIBATTR* attributes = nullptr;
    check(library->GetLibAttr(&attributes));
    wchar_t version[20] = {};
    std::swprintf(version, std::size(version), L"%x.%x", attributes->wMajorVerNum,
                  attributes->wMinorVerNum);
    const Described described{textOf(attributes->guid), version};
    library->ReleaseTLibAttr(attributes);
    return described;
}

// A key that is ours as a whole; that of an identifier as long as it leads to our class. Programs
// of 32 and of 64 bit have some in common, which stay while the library for the others is
// registered.
struct Root {
    std::wstring key;
    std::wstring ownerId; // empty: always ours
    bool common = false;
};

// What is registered, and the keys to take away with it.
struct Keys {
    std::vector<Entry> entries;
    std::vector<Root> roots;
    std::vector<std::wstring> others; // one is there while the library for the others is registered

    void set(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
        entries.push_back({key, name, text});
    }
};

void addClass(Keys& keys, const CreatableClass& one) {
    const std::wstring path = modulePath();
    const std::wstring id = textOf(one.id);
    const std::wstring root = L"CLSID\\" + id;
    const std::wstring versioned = std::wstring(one.programmaticId) + L".1";
    keys.roots.push_back({root, L""});
    keys.roots.push_back({one.programmaticId, id, true});
    keys.roots.push_back({versioned, id, true});
    keys.set(root, one.name);
    keys.set(root + L"\\InprocServer32", path);
    keys.set(root + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    keys.set(root + L"\\ProgID", versioned);
    keys.set(root + L"\\VersionIndependentProgID", one.programmaticId);
    const Described library = describedBy(typeLibrary(one.library).get());
    keys.set(root + L"\\TypeLib", library.id);
    keys.set(root + L"\\Version", library.version);
    keys.set(root + L"\\Programmable", L"");
    if (one.control) {
        keys.set(root + L"\\Control", L"");
        keys.set(root + L"\\MiscStatus", L"0");
        keys.set(root + L"\\MiscStatus\\1", std::to_wstring(miscStatus));
        keys.set(root + L"\\ToolboxBitmap32", path + L", 1");
        // Safe for initialization and for scripting, as IObjectSafety says too.
        for (const wchar_t* const category :
             {L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}", L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}",
              L"{40FC6ED4-2438-11CF-A3DB-080036F12502}"})
            keys.set(root + L"\\Implemented Categories\\" + category, L"");
    }
    for (const std::wstring& name : {std::wstring(one.programmaticId), versioned}) {
        keys.set(name, one.name);
        keys.set(name + L"\\CLSID", id);
    }
    keys.set(std::wstring(one.programmaticId) + L"\\CurVer", versioned);
}

// Interfaces of the model's own marshaller, which goes by the type library.
void addInterfaces(Keys& keys, ITypeLib* library, const Described& described) {
    constexpr const wchar_t* marshaller = L"{00020424-0000-0000-C000-000000000046}";
    constexpr const wchar_t* dispatchMarshaller = L"{00020420-0000-0000-C000-000000000046}";
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> info;
        check(library->GetTypeInfo(i, info.receive()));
        TYPEATTR* attributes = nullptr;
        check(info->GetTypeAttr(&attributes));
        const GUID id = attributes->guid;
        const bool dual = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
        const bool isInterface =
            attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE;
        info->ReleaseTypeAttr(attributes);
        if (!isInterface)
            continue;
        BSTR name = nullptr;
        check(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
        const std::wstring root = L"Interface\\" + textOf(id);
        keys.roots.push_back({root, L""});
        keys.set(root, std::wstring(name, SysStringLen(name)));
        SysFreeString(name);
        keys.set(root + L"\\ProxyStubClsid32", dual ? marshaller : dispatchMarshaller);
        keys.set(root + L"\\TypeLib", described.id);
        keys.set(root + L"\\TypeLib", described.version, L"Version");
    }
}

void addLibrary(Keys& keys, Library library) {
    const ComPtr<ITypeLib> types = typeLibrary(library);
    const Described described = describedBy(types.get());
    const std::wstring root = L"TypeLib\\" + described.id;
    const std::wstring versioned = root + L"\\" + described.version;
    BSTR help = nullptr;
    check(types->GetDocumentation(-1, nullptr, &help, nullptr, nullptr));
    const std::wstring name(help, SysStringLen(help));
    SysFreeString(help);
    const std::wstring platforms = versioned + L"\\0\\";
    keys.roots.push_back({platforms + ownPlatform, L""});
    keys.roots.push_back({root, L"", true});
    keys.others.push_back(platforms + otherPlatform);
    keys.set(versioned, name);
    keys.set(platforms + ownPlatform, pathOf(library));
    keys.set(versioned + L"\\FLAGS", L"0");
    addInterfaces(keys, types.get(), described);
}

Keys allKeys(std::span<const CreatableClass> classes) {
    Keys keys;
    for (const CreatableClass& one : classes)
        addClass(keys, one);
    for (const Library library : {Library::enumerations, Library::company, Library::entry})
        addLibrary(keys, library);
    return keys;
}

HKEY rootOf(Scope scope) {
    return scope == Scope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

LSTATUS write(Scope scope, const Entry& entry) {
    HKEY key = nullptr;
    const LSTATUS opened = RegCreateKeyExW(rootOf(scope), (classesKey + entry.key).c_str(), 0,
                                           nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (opened != ERROR_SUCCESS)
        return opened;
    const LSTATUS written = RegSetValueExW(
        key, entry.name, 0, REG_SZ, reinterpret_cast<const BYTE*>(entry.text.c_str()),
        static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    return written;
}

// Somebody else may have registered a class of their own under the same identifier.
bool isOurs(Scope scope, const Root& root) {
    if (root.ownerId.empty())
        return true;
    wchar_t id[64] = {};
    DWORD size = sizeof id;
    const std::wstring key = classesKey + root.key + L"\\CLSID";
    const LSTATUS read =
        RegGetValueW(rootOf(scope), key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, id, &size);
    return read != ERROR_SUCCESS || root.ownerId == id;
}

bool isThere(Scope scope, const std::wstring& key) {
    return RegGetValueW(rootOf(scope), (classesKey + key).c_str(), nullptr, RRF_RT_ANY, nullptr,
                        nullptr, nullptr) == ERROR_SUCCESS;
}

LSTATUS remove(Scope scope, const Keys& keys) {
    LSTATUS failed = ERROR_SUCCESS;
    const bool othersNeed = std::ranges::any_of(
        keys.others, [&](const std::wstring& one) { return isThere(scope, one); });
    for (const Root& root : keys.roots) {
        if ((root.common && othersNeed) || !isOurs(scope, root))
            continue;
        const LSTATUS removed = RegDeleteTreeW(rootOf(scope), (classesKey + root.key).c_str());
        if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND)
            failed = removed;
    }
    return failed;
}

} // namespace

HRESULT registerAll(std::span<const CreatableClass> classes, Scope scope) {
    const Keys keys = allKeys(classes);
    for (const Entry& entry : keys.entries)
        if (const LSTATUS failed = write(scope, entry); failed != ERROR_SUCCESS) {
            static_cast<void>(remove(scope, keys));
            return HRESULT_FROM_WIN32(static_cast<DWORD>(failed));
        }
    return S_OK;
}

HRESULT unregisterAll(std::span<const CreatableClass> classes, Scope scope) {
    const LSTATUS failed = remove(scope, allKeys(classes));
    return failed == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(failed));
}

} // namespace vkr::automation
