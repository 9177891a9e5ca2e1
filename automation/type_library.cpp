// SPDX-License-Identifier: MIT
#include "automation/type_library.hpp"

#include "native/module.hpp"

#include <array>
#include <mutex>

namespace vkr::automation {

namespace {

std::mutex reading;
std::array<ComPtr<ITypeLib>, libraryCount> libraries;

// Those that a library refers to are read before it, so that they are found without having been
// registered.
void readAll() {
    for (int i = 0; i < libraryCount; ++i)
        if (auto& one = libraries[static_cast<std::size_t>(i)]; !one)
            check(LoadTypeLibEx(pathOf(static_cast<Library>(i + 1)).c_str(), REGKIND_NONE,
                                one.receive()));
}

} // namespace

std::wstring pathOf(Library library) {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(ownModule(), path.data(),
                                        static_cast<DWORD>(path.size()))) == path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    return path + L'\\' + std::to_wstring(static_cast<int>(library));
}

ComPtr<ITypeLib> typeLibrary(Library library) {
    const std::scoped_lock lock(reading);
    readAll();
    return libraries[static_cast<std::size_t>(library) - 1];
}

ComPtr<ITypeInfo> typeInfo(Library library, REFGUID id) {
    ComPtr<ITypeInfo> info;
    check(typeLibrary(library)->GetTypeInfoOfGuid(id, info.receive()));
    return info;
}

namespace {

// Those of one interface; the answer, where there is one, is no argument.
void addCounts(ITypeInfo* info, ArgumentCounts& counts) {
    TYPEATTR* attributes = nullptr;
    check(info->GetTypeAttr(&attributes));
    const UINT functions = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < functions; ++i) {
        FUNCDESC* one = nullptr;
        check(info->GetFuncDesc(i, &one));
        ArgumentCount count;
        for (SHORT j = 0; j < one->cParams; ++j) {
            const USHORT flags = one->lprgelemdescParam[j].paramdesc.wParamFlags;
            count.most += (flags & PARAMFLAG_FRETVAL) == 0;
            count.least += (flags & (PARAMFLAG_FRETVAL | PARAMFLAG_FOPT)) == 0;
        }
        counts.try_emplace({one->memid, static_cast<WORD>(one->invkind)}, count);
        info->ReleaseFuncDesc(one);
    }
}

// The interface with slots behind a dual one, or the one that it derives from; nothing where that
// is the model's own.
ComPtr<ITypeInfo> behind(const ComPtr<ITypeInfo>& info, UINT which) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> found;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetRefTypeOfImplType(which, &reference)) ||
        FAILED(info->GetRefTypeInfo(reference, found.receive())) ||
        FAILED(found->GetTypeAttr(&attributes)))
        return {};
    const bool model = IsEqualGUID(attributes->guid, IID_IDispatch) != FALSE;
    found->ReleaseTypeAttr(attributes);
    return model ? ComPtr<ITypeInfo>() : found;
}

} // namespace

const ArgumentCounts& argumentCounts(Library library, REFGUID id) {
    static std::mutex counting;
    static std::map<std::wstring, ArgumentCounts> all;
    wchar_t key[40] = {};
    StringFromGUID2(id, key, 40);
    const ComPtr<ITypeInfo> info = typeInfo(library, id);
    const std::scoped_lock lock(counting);
    ArgumentCounts& counts = all[key];
    if (counts.empty())
        for (auto one = behind(info, static_cast<UINT>(-1)); one; one = behind(one, 0))
            addCounts(one.get(), counts);
    return counts;
}

bool fits(const ArgumentCounts& counts, DISPID member, WORD kind, UINT given) {
    bool known = false;
    for (const int one :
         {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF})
        if ((kind & one) != 0)
            if (const auto found = counts.find({member, static_cast<WORD>(one)});
                found != counts.end()) {
                if (given >= found->second.least && given <= found->second.most)
                    return true;
                known = true;
            }
    return !known;
}

void releaseTypeLibraries() {
    const std::scoped_lock lock(reading);
    for (auto& one : libraries)
        one.reset();
}

HRESULT refusalOf(REFIID reserved, const DISPPARAMS* given) {
    if (!IsEqualIID(reserved, IID_NULL))
        return DISP_E_UNKNOWNINTERFACE;
    if (given == nullptr || (given->cArgs > 0 && given->rgvarg == nullptr) ||
        (given->cNamedArgs > 0 && given->rgdispidNamedArgs == nullptr) ||
        given->cNamedArgs > given->cArgs)
        return E_INVALIDARG;
    constexpr UINT most = 64; // no member takes as many
    return given->cArgs > most ? DISP_E_BADPARAMCOUNT : S_OK;
}

} // namespace vkr::automation
