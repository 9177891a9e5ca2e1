// SPDX-License-Identifier: MIT
#include "automation/called_by_slots.hpp"

#include "automation/names_alone.hpp"
#include "automation/type_library.hpp"

#include <utility>

namespace vkr::automation {

namespace {

class BySlots final : public NamesAlone<> {
  public:
    explicit BySlots(ComPtr<::iVKR_Company> record) : record_(std::move(record)) {}

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count,
                                            LCID /*locale*/, DISPID* found) override {
        return guarded(this, IID_IDispatch,
                       [&] { return info_->GetIDsOfNames(names, count, found); });
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD kind,
                                     DISPPARAMS* given, VARIANT* result, EXCEPINFO* error,
                                     UINT* wrongArgument) override {
        return guarded(this, IID_IDispatch, [&] {
            return info_->Invoke(record_.get(), member, kind, given, result, error, wrongArgument);
        });
    }

  private:
    ComPtr<::iVKR_Company> record_;
    ComPtr<ITypeInfo> info_ = typeInfo(Library::company, __uuidof(::iVKR_Company));
};

} // namespace

ComPtr<IDispatch> calledBySlots(ComPtr<::iVKR_Company> record) {
    return ComPtr<IDispatch>(makeCom<BySlots>(std::move(record)).get());
}

} // namespace vkr::automation
