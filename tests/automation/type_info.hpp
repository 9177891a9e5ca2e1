// SPDX-License-Identifier: MIT
#pragma once

#include "tests/automation/loaded_library.hpp"

#include <string>

// The compiled type libraries, read back.
namespace vkr::automation {

inline ComPtr<ITypeLib> libraryAt(int number) {
    ComPtr<ITypeLib> found;
    const std::wstring path = LoadedLibrary::get().path() + L"\\" + std::to_wstring(number);
    EXPECT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, found.receive()), S_OK);
    return found;
}

inline std::string nameOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
    Bstr name;
    EXPECT_EQ(info->GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr), S_OK);
    return textOf(name.get());
}

inline ComPtr<ITypeInfo> infoOf(ITypeLib* library, REFGUID id) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(library->GetTypeInfoOfGuid(id, info.receive()), S_OK);
    return info;
}

// The interface with slots, of a dual one.
inline ComPtr<ITypeInfo> slotsOf(const ComPtr<ITypeInfo>& info) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const bool dispatch = attributes->typekind == TKIND_DISPATCH;
    EXPECT_TRUE((attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0);
    info->ReleaseTypeAttr(attributes);
    if (!dispatch)
        return info;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> slots;
    EXPECT_EQ(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(info->GetRefTypeInfo(reference, slots.receive()), S_OK);
    return slots;
}

template <typename Act>
void forEachFunction(ITypeInfo* info, Act act) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* one = nullptr;
        EXPECT_EQ(info->GetFuncDesc(i, &one), S_OK);
        act(*one);
        info->ReleaseFuncDesc(one);
    }
}

} // namespace vkr::automation
