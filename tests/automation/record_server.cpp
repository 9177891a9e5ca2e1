// SPDX-License-Identifier: MIT
#include "tests/automation/record_server.hpp"

#include "platform/object.hpp"
#include "tests/automation/loaded_library.hpp"
#include "tests/automation/scripted_objects.hpp"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace vkr::automation::record_server {

namespace {

// With the identifier of the class and its kind; the model adds an option of its own.
constexpr std::string_view option = "--record-server";
constexpr DWORD longest = 300'000; // milliseconds, whatever happens

std::wstring textOf(const CLSID& id) {
    wchar_t text[40] = {};
    StringFromGUID2(id, text, 40);
    return text;
}

void end() {
    TerminateProcess(GetCurrentProcess(), 3);
}

void listenAndCount(ScriptedObject& record, const std::string& name, bool writes) {
    if (name == callsLeft || name == listener || name == processId)
        return;
    if (Variant& left = record.values[callsLeft]; !left.isEmpty()) {
        if (left.toLong() == 0)
            end();
        left = left.toLong() - 1;
    }
    if (!writes)
        return;
    if (const auto heard = record.values[listener]; heard.isObject() && heard.toObject() != nullptr)
        heard.toObject()->put("Written", name);
}

// Like the one that a script would write, with settings and a reporting period.
ComPtr<ScriptedObject> newScripted() {
    auto record = makeCom<ScriptedObject>();
    auto settings = makeCom<ScriptedObject>();
    settings->values = {{"intUnit", std::int16_t{6}}, {"intLeadPeriod", std::int16_t{0}},
                        {"strCurSymbol", "$"},        {"blnBookVal", false},
                        {"blnTaxRate", false},        {"blnLockBasicInfo", false}};
    record->values["Settings"] = Variant(lateBound(static_cast<IDispatch*>(settings.get())));
    record->values[processId] = static_cast<std::int32_t>(GetCurrentProcessId());
    record->called = [self = record.get()](const std::string& name, bool writes) {
        listenAndCount(*self, name, writes);
    };
    return record;
}

class Factory final : public ComObject<IClassFactory> {
  public:
    explicit Factory(Kind kind) : kind_(kind) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* /*outer*/, REFIID id, void** made) override {
        asked = true;
        if (kind_ == Kind::scripted)
            return newScripted()->QueryInterface(id, made);
        return LoadedLibrary::get()
            .create<IDispatch>(__uuidof(::Company))
            ->QueryInterface(id, made);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }

    bool asked = false;

  private:
    Kind kind_;
};

int serve(REFCLSID id, Kind kind) {
    LoadedLibrary& library = LoadedLibrary::get(); // this thread's apartment
    const auto factory = makeCom<Factory>(kind);
    const long before = liveObjects();
    const long libraryBefore = library.alive();
    DWORD cookie = 0;
    if (FAILED(CoRegisterClassObject(id, factory.get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                     &cookie)))
        return 1;
    SetTimer(nullptr, 0, 20, nullptr); // the last release comes on a thread of the model's
    const DWORD start = GetTickCount();
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
        const bool held = liveObjects() > before || library.alive() > libraryBefore;
        if ((factory->asked && !held) || GetTickCount() - start > longest)
            break;
    }
    CoRevokeClassObject(cookie);
    return 0;
}

std::wstring keyOf(const CLSID& id) {
    return L"Software\\Classes\\CLSID\\" + textOf(id);
}

} // namespace

std::optional<int> served(int argc, char** argv) {
    const auto* const found =
        std::find_if(argv, argv + argc, [](const char* one) { return one == option; });
    if (argv + argc - found < 3)
        return std::nullopt;
    CLSID id{};
    if (FAILED(CLSIDFromString(wideOf(found[1]).c_str(), &id)))
        return 2;
    return serve(id, static_cast<Kind>(std::atoi(found[2])));
}

RegisteredClass::RegisteredClass(Kind kind) {
    EXPECT_EQ(CoCreateGuid(&id_), S_OK);
    wchar_t path[1000] = {};
    GetModuleFileNameW(nullptr, path, 1000);
    const std::wstring command = L"\"" + std::wstring(path) + L"\" " + wideOf(option) + L" " +
                                 textOf(id_) + L" " + std::to_wstring(static_cast<int>(kind));
    EXPECT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (keyOf(id_) + L"\\LocalServer32").c_str(),
                              nullptr, REG_SZ, command.c_str(),
                              static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

RegisteredClass::~RegisteredClass() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, keyOf(id_).c_str());
}

} // namespace vkr::automation::record_server
