// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"

namespace vkr::automation {

// An object that answers to names and has no description of them.
template <typename... Others>
class NamesAlone : public ComObject<IDispatch, Others...> {
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return guarded(this, IID_IDispatch, [&] { answer(count) = 0; });
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                          ITypeInfo** info) override {
        if (info != nullptr)
            *info = nullptr;
        return DISP_E_BADINDEX;
    }
};

} // namespace vkr::automation
