// SPDX-License-Identifier: MIT
#include "native/accessible.hpp"

#include "native/guard.hpp"

#include <atomic>
#include <oleacc.h>
#include <string>

namespace vkr {

namespace {

// What it does not know itself, the system's own object answers. Libraries of some compilers have a
// wrong IID_IAccessible; __uuidof has the right one.
class NamedAccessible final : public IAccessible {
  public:
    NamedAccessible(IAccessible& standard, std::weak_ptr<const Heard> heard)
        : standard_(standard), heard_(std::move(heard)) {}
    NamedAccessible(const NamedAccessible&) = delete;
    NamedAccessible& operator=(const NamedAccessible&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (object == nullptr)
            return E_POINTER;
        if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IAccessible)) {
            *object = static_cast<IAccessible*>(this);
            AddRef();
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return standard_.GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT number, LCID locale, ITypeInfo** info) override {
        return standard_.GetTypeInfo(number, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        return standard_.GetIDsOfNames(id, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* error,
                                     UINT* argument) override {
        return standard_.Invoke(id, iid, locale, flags, parameters, result, error, argument);
    }

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return answer(child, name, &Heard::heardName,
                      [&] { return standard_.get_accName(child, name); });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
        return answer(child, description, &Heard::heardDescription,
                      [&] { return standard_.get_accDescription(child, description); });
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        return standard_.get_accParent(parent);
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        return standard_.get_accChildCount(count);
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
        return standard_.get_accChild(child, object);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return standard_.get_accValue(child, value);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return standard_.get_accRole(child, role);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return standard_.get_accState(child, state);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
        return standard_.get_accHelp(child, help);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return standard_.get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        return standard_.get_accKeyboardShortcut(child, shortcut);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        return standard_.get_accFocus(child);
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        return standard_.get_accSelection(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return standard_.get_accDefaultAction(child, action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        return standard_.accSelect(flags, child);
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        return standard_.accLocation(left, top, width, height, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return standard_.accNavigate(direction, start, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        return standard_.accHitTest(left, top, child);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return standard_.accDoDefaultAction(child);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
        return standard_.put_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
        return standard_.put_accValue(child, value);
    }

  private:
    ~NamedAccessible() { standard_.Release(); }

    template <typename Standard>
    HRESULT answer(const VARIANT& child, BSTR* text, std::wstring (Heard::*told)() const,
                   Standard&& standard) {
        if (text == nullptr)
            return E_POINTER;
        *text = nullptr;
        return guarded<HRESULT>(E_OUTOFMEMORY, [&]() -> HRESULT {
            const auto heard = heard_.lock();
            if (heard == nullptr || child.vt != VT_I4 || child.lVal != CHILDID_SELF)
                return standard();
            const std::wstring own = (heard.get()->*told)();
            if (own.empty())
                return standard();
            *text = SysAllocStringLen(own.data(), static_cast<UINT>(own.size()));
            return *text == nullptr ? E_OUTOFMEMORY : S_OK;
        });
    }

    IAccessible& standard_;
    std::weak_ptr<const Heard> heard_;
    std::atomic<ULONG> references_ = 1;
};

} // namespace

LRESULT accessibleOf(HWND window, const std::weak_ptr<const Heard>& heard, WPARAM wParam) {
    void* standard = nullptr;
    const HRESULT made =
        CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), &standard);
    if (FAILED(made))
        return 0;
    auto* named = new NamedAccessible(*static_cast<IAccessible*>(standard), heard);
    const LRESULT answer = LresultFromObject(__uuidof(IAccessible), wParam, named);
    named->Release();
    return answer;
}

} // namespace vkr
