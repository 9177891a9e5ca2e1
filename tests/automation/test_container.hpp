// SPDX-License-Identifier: MIT
#pragma once

#include "tests/automation/loaded_library.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vkr::automation {

template <>
struct BasesOf<IOleInPlaceSite> : OneBase<IOleInPlaceSite, IOleWindow> {};
template <>
struct BasesOf<IOleInPlaceFrame> : OneBase<IOleInPlaceFrame, IOleInPlaceUIWindow> {};
template <>
struct BasesOf<IOleInPlaceUIWindow> : OneBase<IOleInPlaceUIWindow, IOleWindow> {};

using Log = std::vector<std::string>;

// What a container was asked, what it does before it answers, and what it refuses.
struct Asked {
    Log log;
    std::function<void(const std::string&)> asked;
    std::set<std::string> failing;
    HRESULT refusal = E_FAIL; // how

    HRESULT told(const std::string& what) {
        log.push_back(what);
        if (const auto act = asked) // which may replace it
            act(what);
        return failing.contains(what) ? refusal : S_OK;
    }
};

class TestFrame final : public ComObject<IOleInPlaceFrame> {
  public:
    TestFrame(Asked& asked, HWND window) : asked_(asked), window_(window) {}

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override { return *window = window_, S_OK; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) override {
        return told(widths == nullptr ? "SetBorderSpace(null)" : "SetBorderSpace");
    }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object,
                                              LPCOLESTR /*name*/) override {
        active = object;
        return told(object == nullptr ? "SetActiveObject(null)" : "SetActiveObject");
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override {
        return told(enable != FALSE ? "EnableModeless(true)" : "EnableModeless(false)");
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    ComPtr<IOleInPlaceActiveObject> active;

  private:
    HRESULT told(const char* what) { return asked_.told(what); }
    Asked& asked_;
    HWND window_;
};

// A container's place for one control. It writes down what it is asked.
class TestSite final
    : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, IDispatch>,
      public Asked {
  public:
    TestSite() {
        makeWindow();
        frame = makeCom<TestFrame>(*this, window);
    }
    void makeWindow() {
        window =
            CreateWindowExW(0, L"STATIC", L"container", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                            0, 900, 700, nullptr, nullptr, nullptr, nullptr);
    }
    ~TestSite() override { DestroyWindow(window); }

    // --- IOleClientSite ------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE SaveObject() override { return told("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override {
        return *container = nullptr, E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return told("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return told("OnShowWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    // --- IOleInPlaceSite -----------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* out) override {
        *out = window;
        return told("GetWindow");
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override {
        told("CanInPlaceActivate");
        return canActivate;
    }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return told("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return told("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** outFrame,
                                               IOleInPlaceUIWindow** document, LPRECT outPlace,
                                               LPRECT clip,
                                               LPOLEINPLACEFRAMEINFO /*about*/) override {
        *outFrame = nullptr;
        *document = nullptr;
        if (FAILED(told("GetWindowContext")))
            return E_FAIL;
        *outFrame = ComPtr<IOleInPlaceFrame>(frame.get()).detach();
        *outPlace = place;
        *clip = {0, 0, 2000, 2000};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return told("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return told("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT wanted) override {
        if (FAILED(told("OnPosRectChange")))
            return E_FAIL;
        place = *wanted;
        if (control)
            control->SetObjectRects(&place, &place);
        return S_OK;
    }

    // --- IOleControlSite -----------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** object) override {
        return *object = nullptr, E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override {
        return told("TranslateAccelerator");
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL got) override {
        return told(got != FALSE ? "OnFocus(true)" : "OnFocus(false)");
    }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

    // --- IDispatch: ambients -------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        return *info = nullptr, DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        const auto found = ambients.find(member);
        if (found == ambients.end())
            return DISP_E_MEMBERNOTFOUND;
        *result = newVariant(found->second);
        return S_OK;
    }

    HRESULT canActivate = S_OK;
    RECT place{10, 10, 548, 399};
    HWND window = nullptr;
    ComPtr<TestFrame> frame;
    ComPtr<IOleInPlaceObject> control; // told of its new place, as containers do
    std::map<DISPID, Variant> ambients{{DISPID_AMBIENT_USERMODE, true}};
};

// Hears the events, as "TabChange 2".
class EventSink final : public ComObject<IDispatch> {
  public:
    Log log;
    std::function<void(DISPID)> heard;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        return *info = nullptr, DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        std::string line = std::to_string(member);
        for (UINT i = given->cArgs; i-- > 0;)
            line += " " + fromVariant(given->rgvarg[i]).toText();
        log.push_back(line);
        if (heard)
            heard(member);
        return S_OK;
    }
};

class NoticeSink final : public ComObject<IPropertyNotifySink> {
  public:
    std::vector<DISPID> changed;
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID member) override {
        return changed.push_back(member), S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
};

inline ComPtr<IConnectionPoint> pointOf(IUnknown* control, REFIID id) {
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(
        queryFor<IConnectionPointContainer>(control)->FindConnectionPoint(id, point.receive()),
        S_OK);
    return point;
}

} // namespace vkr::automation
