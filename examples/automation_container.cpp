// SPDX-License-Identifier: MIT
// A container of one file: it places the control in a window, hands it a record, prints its events,
// and stores its properties when the window is closed.
//
//     vkr-example-container [<folder> <symbol>]      a company's CSV files; else an empty record
//     vkr-example-container --once ...               closes by itself, to try it out
#include <cstdio>
#include <cstring>
#include <string>
#include <windows.h>
// After it.
#include <ole2.h>
// After that.
#include <ocidl.h>
#include <olectl.h>
#include <shellapi.h>

namespace {

constexpr UINT closeMessage = WM_APP;
constexpr const wchar_t* savedFile = L"vkr-example-container.dat";

// The place of the one control: site, ambient properties, events, frame.
class Place final : public IOleClientSite,
                    public IOleInPlaceSite,
                    public IOleInPlaceFrame,
                    public IOleControlSite,
                    public IDispatch {
  public:
    explicit Place(HWND window) : window_(window) {}
    virtual ~Place() = default;

    bool fill(const std::wstring& folder, const std::wstring& symbol);
    void empty();
    [[nodiscard]] bool offer(MSG& message) {
        return active_ != nullptr && active_->TranslateAccelerator(&message) == S_OK;
    }

    // --- IUnknown: the place lives as long as the program ----------------------------------------
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
        if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IOleClientSite))
            *found = static_cast<IOleClientSite*>(this);
        else if (IsEqualIID(id, IID_IOleWindow) || IsEqualIID(id, IID_IOleInPlaceSite))
            *found = static_cast<IOleInPlaceSite*>(this);
        else if (IsEqualIID(id, IID_IOleControlSite))
            *found = static_cast<IOleControlSite*>(this);
        else if (IsEqualIID(id, IID_IDispatch))
            *found = static_cast<IDispatch*>(this);
        else
            return *found = nullptr, E_NOINTERFACE;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // --- IOleClientSite --------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override {
        return *container = nullptr, E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    // --- IOleInPlaceSite and IOleInPlaceFrame
    // ------------------------------------------------------
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override { return *window = window_, S_OK; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                               IOleInPlaceUIWindow** document, LPRECT place,
                                               LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
        *frame = this;
        *document = nullptr;
        GetClientRect(window_, clip);
        *place = *clip;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    // The control knows its size: the window goes around it.
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT wanted) override {
        RECT around{0, 0, wanted->right - wanted->left, wanted->bottom - wanted->top};
        const RECT inside = around;
        AdjustWindowRect(&around, WS_OVERLAPPEDWINDOW, FALSE);
        SetWindowPos(window_, nullptr, 0, 0, around.right - around.left, around.bottom - around.top,
                     SWP_NOMOVE | SWP_NOZORDER);
        return inPlace_ == nullptr ? S_OK : inPlace_->SetObjectRects(&inside, &inside);
    }
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
        return INPLACE_E_NOTOOLSPACE;
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        if (object != nullptr)
            object->AddRef();
        if (active_ != nullptr)
            active_->Release();
        active_ = object;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    // --- IOleControlSite -------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** object) override {
        return *object = nullptr, E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

    // --- IDispatch: ambient properties, and the events -----------------------------------------
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        return *info = nullptr, DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given,
                                     VARIANT* result, EXCEPINFO*, UINT*) override;

  private:
    void connect(bool wanted);
    void restore();
    void save();
    [[nodiscard]] IDispatch* dispatch();

    HWND window_;
    IOleObject* control_ = nullptr;
    IOleInPlaceObject* inPlace_ = nullptr;
    IOleInPlaceActiveObject* active_ = nullptr;
    DWORD cookie_ = 0;
};

// Calls a member by name with up to two arguments, last to first.
HRESULT call(IDispatch* object, const wchar_t* name, WORD kind, VARIANT* arguments, UINT count,
             VARIANT* result = nullptr) {
    LPOLESTR wanted = const_cast<LPOLESTR>(name);
    DISPID id = 0;
    HRESULT found = object->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found))
        return found;
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = kind == DISPATCH_PROPERTYPUT || kind == DISPATCH_PROPERTYPUTREF;
    DISPPARAMS given{arguments, puts ? &put : nullptr, count, puts ? 1U : 0U};
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &given, result, nullptr,
                          nullptr);
}

HRESULT Place::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO*, UINT*) {
    if (member == DISPID_AMBIENT_USERMODE && result != nullptr) {
        V_VT(result) = VT_BOOL;
        V_BOOL(result) = VARIANT_TRUE;
        return S_OK;
    }
    const char* const events[] = {"TabChange", "MoreHelp", "Assistant", "UnloadRequest"};
    if (member < 1 || member > 4 || given->cArgs == 0)
        return DISP_E_MEMBERNOTFOUND;
    VARIANT first;
    VariantInit(&first);
    VariantChangeType(&first, &given->rgvarg[given->cArgs - 1], 0, VT_I4);
    std::printf("%s %ld\n", events[member - 1], V_I4(&first));
    std::fflush(stdout);
    if (member == 4) // OK or Cancel
        PostMessageW(window_, WM_CLOSE, 0, 0);
    return S_OK;
}

// The caller's to release.
IDispatch* Place::dispatch() {
    IDispatch* found = nullptr;
    control_->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&found));
    return found;
}

bool Place::fill(const std::wstring& folder, const std::wstring& symbol) {
    CLSID controlId{};
    CLSID companyId{};
    IDispatch* company = nullptr;
    if (FAILED(CLSIDFromProgID(L"VKR_DataEntry.VKRDataEntry", &controlId)) ||
        FAILED(CLSIDFromProgID(L"VKR_Company.Company", &companyId)) ||
        FAILED(CoCreateInstance(controlId, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                reinterpret_cast<void**>(&control_))) ||
        FAILED(CoCreateInstance(companyId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(&company))))
        return false;
    control_->SetClientSite(this);
    restore();
    connect(true);
    control_->QueryInterface(IID_IOleInPlaceObject, reinterpret_cast<void**>(&inPlace_));
    RECT all{};
    GetClientRect(window_, &all);
    control_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, window_, &all);

    VARIANT arguments[2];
    V_VT(&arguments[1]) = VT_BSTR;
    V_BSTR(&arguments[1]) = SysAllocString(folder.c_str());
    V_VT(&arguments[0]) = VT_BSTR;
    V_BSTR(&arguments[0]) = SysAllocString(symbol.c_str());
    if (!folder.empty() && FAILED(call(company, L"ReadCsv", DISPATCH_METHOD, arguments, 2)))
        std::printf("There is no such company.\n");
    VariantClear(&arguments[0]);
    VariantClear(&arguments[1]);

    IDispatch* const entry = dispatch();
    VARIANT record;
    V_VT(&record) = VT_DISPATCH;
    V_DISPATCH(&record) = company;
    call(entry, L"objCompany", DISPATCH_PROPERTYPUTREF, &record, 1);
    VARIANT name;
    VariantInit(&name);
    if (SUCCEEDED(call(company, L"Name", DISPATCH_PROPERTYGET, nullptr, 0, &name)))
        std::printf("%ls is on show\n", V_BSTR(&name));
    VariantClear(&name);
    company->Release(); // the control holds it
    call(entry, L"SetNext", DISPATCH_METHOD, nullptr, 0);
    entry->Release();
    control_->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, window_, &all);
    return true;
}

void Place::connect(bool wanted) {
    IProvideClassInfo2* about = nullptr;
    IConnectionPointContainer* points = nullptr;
    IConnectionPoint* point = nullptr;
    GUID events{};
    if (SUCCEEDED(
            control_->QueryInterface(IID_IProvideClassInfo2, reinterpret_cast<void**>(&about))) &&
        SUCCEEDED(about->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events)) &&
        SUCCEEDED(control_->QueryInterface(IID_IConnectionPointContainer,
                                           reinterpret_cast<void**>(&points))) &&
        SUCCEEDED(points->FindConnectionPoint(events, &point))) {
        if (wanted)
            point->Advise(static_cast<IDispatch*>(this), &cookie_);
        else
            point->Unadvise(cookie_);
    }
    if (point != nullptr)
        point->Release();
    if (points != nullptr)
        points->Release();
    if (about != nullptr)
        about->Release();
}

void Place::restore() {
    IPersistStreamInit* kept = nullptr;
    IStream* stream = nullptr;
    control_->QueryInterface(IID_IPersistStreamInit, reinterpret_cast<void**>(&kept));
    char bytes[4096];
    DWORD count = 0;
    const HANDLE file =
        CreateFileW(savedFile, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        ReadFile(file, bytes, sizeof bytes, &count, nullptr);
        CloseHandle(file);
    }
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    stream->Write(bytes, count, nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    if (count == 0 || FAILED(kept->Load(stream)))
        kept->InitNew();
    std::printf(count == 0 ? "new\n" : "as it was saved\n");
    stream->Release();
    kept->Release();
}

void Place::save() {
    IPersistStreamInit* kept = nullptr;
    IStream* stream = nullptr;
    HGLOBAL memory = nullptr;
    control_->QueryInterface(IID_IPersistStreamInit, reinterpret_cast<void**>(&kept));
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    STATSTG about{};
    if (SUCCEEDED(kept->Save(stream, TRUE)) && SUCCEEDED(stream->Stat(&about, STATFLAG_NONAME)) &&
        SUCCEEDED(GetHGlobalFromStream(stream, &memory))) {
        const HANDLE file =
            CreateFileW(savedFile, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, GlobalLock(memory), about.cbSize.LowPart, &written, nullptr);
        GlobalUnlock(memory);
        CloseHandle(file);
        std::printf("saved\n");
    }
    stream->Release();
    kept->Release();
}

void Place::empty() {
    if (control_ == nullptr)
        return;
    save();
    connect(false);
    inPlace_->InPlaceDeactivate();
    inPlace_->Release();
    control_->Close(OLECLOSE_NOSAVE);
    control_->SetClientSite(nullptr);
    std::printf("references left: %lu\n", control_->Release());
    control_ = nullptr;
}

LRESULT CALLBACK hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) { // when what is under way is through
        PostMessageW(window, closeMessage, 0, 0);
        return 0;
    }
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

int main() {
    int count = 0;
    LPWSTR* const given = CommandLineToArgvW(GetCommandLineW(), &count);
    int next = 1;
    const bool once = count > 1 && std::wstring(given[1]) == L"--once";
    next += once ? 1 : 0;
    const std::wstring folder = count > next + 1 ? given[next] : L"";
    const std::wstring symbol = count > next + 1 ? given[next + 1] : L"";

    OleInitialize(nullptr);
    WNDCLASSW described{};
    described.lpfnWndProc = hear;
    described.lpszClassName = L"container";
    described.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    RegisterClassW(&described);
    const HWND window =
        CreateWindowW(L"container", L"Company", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                      CW_USEDEFAULT, 600, 450, nullptr, nullptr, nullptr, nullptr);
    int result = 0;
    {
        Place place(window);
        if (!place.fill(folder, symbol)) {
            std::printf("VKRDataEntry.ocx is not registered.\n");
            result = 1;
            DestroyWindow(window);
        }
        if (once)
            PostMessageW(window, WM_CLOSE, 0, 0);
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (message.message == closeMessage && message.hwnd == window) {
                place.empty();
                DestroyWindow(window);
                continue;
            }
            if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST &&
                place.offer(message))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    OleUninitialize();
    return result;
}
