// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "automation/late_bound.hpp"
#include "automation/texts.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vkr::automation {

// An object as a script would write it: named values, of any type, that can be read and written.
class ScriptedObject final : public ComObject<IDispatch> {
  public:
    std::map<std::string, Variant> values;
    std::map<std::string, HRESULT> failing;        // names that fail with a code
    std::vector<std::string> written;              // names, in the order of the writes
    std::set<std::string> unknown;                 // names that it does not answer to
    std::function<void(const std::string&)> asked; // for a name
    std::function<void(const std::string&, bool writes)> called;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** info) override {
        *info = nullptr;
        return DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/,
                                            LCID /*locale*/, DISPID* found) override {
        const std::string name = textOf(std::wstring_view(names[0]));
        if (const auto ask = asked) // which may replace it
            ask(name);
        if (unknown.contains(name))
            return DISP_E_UNKNOWNNAME;
        auto place = std::ranges::find(names_, name);
        if (place == names_.end())
            place = names_.insert(place, name);
        *found = static_cast<DISPID>(place - names_.begin()) + 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD kind,
                                     DISPPARAMS* given, VARIANT* result, EXCEPINFO* /*error*/,
                                     UINT* /*wrong*/) override {
        const std::string& name = names_.at(static_cast<std::size_t>(member) - 1);
        const bool writes = (kind & DISPATCH_PROPERTYPUT) != 0;
        if (called)
            called(name, writes);
        if (failing.contains(name))
            return failing[name];
        if (writes) {
            written.push_back(name);
            values[name] = fromVariant(given->rgvarg[0]);
        } else if (result != nullptr) {
            *result = newVariant(values[name]);
        }
        return S_OK;
    }

  private:
    std::vector<std::string> names_;
};

} // namespace vkr::automation
