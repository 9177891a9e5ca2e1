// SPDX-License-Identifier: MIT
// A host for scripts that hear events. The script finds the control as `entry` and writes with
// `host.Print`; a procedure `entry_TabChange` is called for the event TabChange, and so on.
//
//     vkr-example-script-host <script.vbs> [<argument>]     the argument is `host.Argument`
#include "automation/com.hpp"
#include "automation/late_bound.hpp"
#include "automation/texts.hpp"

#include <activscp.h>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <shellapi.h>
#include <string>

namespace {

using namespace vkr::automation;

// Without type information, as both objects here are.
class Named : public ComObject<IDispatch> {
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        return *info = nullptr, DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* found) override {
        return *found = idOf(names[0]), *found == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }

  protected:
    virtual DISPID idOf(const wchar_t* /*name*/) { return DISPID_UNKNOWN; }
};

// What the script calls `host`.
class Printer final : public Named {
  public:
    explicit Printer(std::string argument) : argument_(std::move(argument)) {}
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        return guarded(this, IID_IDispatch, [&] {
            if (member == argumentId) {
                if (result != nullptr)
                    *result = newVariant(argument_);
                return S_OK;
            }
            if (given->cArgs != 1)
                return DISP_E_BADPARAMCOUNT;
            std::printf("%s\n", fromVariant(given->rgvarg[0]).toText().c_str());
            std::fflush(stdout);
            return S_OK;
        });
    }

  private:
    static constexpr DISPID printId = 1;
    static constexpr DISPID argumentId = 2;
    DISPID idOf(const wchar_t* name) override {
        return lstrcmpiW(name, L"Print") == 0      ? printId
               : lstrcmpiW(name, L"Argument") == 0 ? argumentId
                                                   : DISPID_UNKNOWN;
    }
    std::string argument_;
};

// Hands each event on to the script's procedure of its name.
class EventNames final : public Named {
  public:
    EventNames(IActiveScript* script, ITypeInfo* events) : script_(script), events_(events) {}
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given,
                                     VARIANT* result, EXCEPINFO* error, UINT* wrong) override {
        return guarded(this, IID_IDispatch, [&] {
            Bstr name;
            check(events_->GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr));
            std::wstring procedure = std::wstring(L"entry_") + name.get();
            LPOLESTR wanted = procedure.data();
            DISPID id = DISPID_UNKNOWN;
            ComPtr<IDispatch> code;
            check(script_->GetScriptDispatch(nullptr, code.receive()));
            if (FAILED(code->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id)))
                return S_OK; // the script does not listen
            return code->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, given, result,
                                error, wrong);
        });
    }

  private:
    ComPtr<IActiveScript> script_;
    ComPtr<ITypeInfo> events_;
};

class Site final : public ComObject<IActiveScriptSite> {
  public:
    std::map<std::wstring, ComPtr<IUnknown>> items;
    bool failed = false;

    HRESULT STDMETHODCALLTYPE GetLCID(LCID* id) override { return *id = 0x0409, S_OK; }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item,
                                          ITypeInfo** info) override {
        const auto found = items.find(name);
        if (found == items.end() || (wanted & SCRIPTINFO_ITYPEINFO) != 0)
            return TYPE_E_ELEMENTNOTFOUND;
        if (info != nullptr)
            *info = nullptr;
        return *item = ComPtr(found->second).detach(), S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR* version) override {
        return *version = nullptr, E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO told{};
        DWORD context = 0;
        ULONG line = 0;
        LONG place = 0;
        error->GetExceptionInfo(&told);
        error->GetSourcePosition(&context, &line, &place);
        std::printf("line %lu: %ls\n", line + 1,
                    told.bstrDescription == nullptr ? L"" : told.bstrDescription);
        SysFreeString(told.bstrDescription);
        SysFreeString(told.bstrSource);
        SysFreeString(told.bstrHelpFile);
        failed = true;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
};

bool run(const std::wstring& path, const std::string& argument) {
    std::ifstream file(std::string(textOf(path)), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    CLSID engine{};
    CLSID control{};
    check(CLSIDFromProgID(L"VBScript", &engine));
    check(CLSIDFromProgID(L"VKR_DataEntry.VKRDataEntry", &control));
    ComPtr<IActiveScript> script;
    ComPtr<IDispatch> entry;
    check(CoCreateInstance(engine, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                           script.receiveAny()));
    check(CoCreateInstance(control, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                           entry.receiveAny()));

    const auto about = queryFor<IProvideClassInfo2>(entry.get());
    GUID eventsId{};
    check(about->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &eventsId));
    ComPtr<ITypeInfo> classInfo;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> events;
    UINT index = 0;
    check(about->GetClassInfo(classInfo.receive()));
    check(classInfo->GetContainingTypeLib(library.receive(), &index));
    check(library->GetTypeInfoOfGuid(eventsId, events.receive()));
    ComPtr<IConnectionPoint> point;
    check(queryFor<IConnectionPointContainer>(entry.get())
              ->FindConnectionPoint(eventsId, point.receive()));
    const auto sink = makeCom<EventNames>(script.get(), events.get());
    DWORD cookie = 0;
    check(point->Advise(static_cast<IDispatch*>(sink.get()), &cookie));

    const auto site = makeCom<Site>();
    site->items[L"entry"] = ComPtr<IUnknown>(entry.get());
    site->items[L"host"] =
        ComPtr<IUnknown>(static_cast<IDispatch*>(makeCom<Printer>(argument).get()));
    check(script->SetScriptSite(site.get()));
    for (const auto& [name, item] : site->items)
        check(script->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE));
    const auto parser = queryFor<IActiveScriptParse>(script.get());
    check(parser->InitNew());
    check(script->SetScriptState(SCRIPTSTATE_CONNECTED));
    check(parser->ParseScriptText(wideOf(text).c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr,
                                  nullptr));
    check(point->Unadvise(cookie));
    site->items.clear();
    script->Close();
    return !site->failed;
}

} // namespace

// What the classes here count themselves with stands in the kit.
int main() {
    int count = 0;
    LPWSTR* const given = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 2)
        return 2;
    OleInitialize(nullptr);
    int result = 1;
    try {
        result = run(given[1], count > 2 ? textOf(std::wstring_view(given[2])) : "") ? 0 : 1;
    } catch (const ComError& error) {
        std::printf("0x%lx %s\n", static_cast<unsigned long>(error.code()), error.what());
    }
    OleUninitialize();
    return result;
}
