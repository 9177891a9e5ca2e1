// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/type_library.hpp"

#include <span>

namespace vkr::automation {

// A class that can be created.
struct CreatableClass {
    CLSID id;
    const wchar_t* name;           // of the class
    const wchar_t* programmaticId; // without a version
    Library library;               // that describes it
    bool control;                  // is placed in containers
    ComPtr<IUnknown> (*create)();
};

// For whom a registration is.
enum class Scope { machine, user };

// Writes every key of the classes, type libraries and interfaces, or takes all of them away again;
// each may be repeated. The error of the system where a key can't be written, with what was written
// so far taken away again.
[[nodiscard]] HRESULT registerAll(std::span<const CreatableClass> classes, Scope scope);
[[nodiscard]] HRESULT unregisterAll(std::span<const CreatableClass> classes, Scope scope);

} // namespace vkr::automation
