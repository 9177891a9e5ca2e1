// SPDX-License-Identifier: MIT
// A record that lives in another process, and may end with it at any moment.
#include "tests/automation/control_fixture.hpp"
#include "tests/automation/record_server.hpp"
#include "tests/automation/scripted_objects.hpp"

#include <algorithm>
#include <memory>
#include <vector>

namespace vkr::automation {
namespace {

constexpr DWORD patience = 60'000; // milliseconds; far above what anything here takes

struct OtherProcess : Control {
    std::unique_ptr<record_server::RegisteredClass> registered;
    ComPtr<IDispatch> record;
    HANDLE process = nullptr;

    ~OtherProcess() override { closeProcess(); }

    template <typename Interface>
    ComPtr<Interface> create(record_server::Kind kind) {
        registered = std::make_unique<record_server::RegisteredClass>(kind);
        ComPtr<Interface> made;
        EXPECT_EQ(CoCreateInstance(registered->id(), nullptr, CLSCTX_LOCAL_SERVER,
                                   __uuidof(Interface), made.receiveAny()),
                  S_OK);
        return made;
    }
    void start() {
        closeProcess();
        record = create<IDispatch>(record_server::Kind::scripted);
        ASSERT_TRUE(record);
        const auto number =
            static_cast<DWORD>(getByName(record.get(), record_server::processId).toLong());
        ASSERT_NE(number, GetCurrentProcessId());
        process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, number);
        ASSERT_NE(process, nullptr);
        for (const auto& [name, value] : values())
            EXPECT_EQ(putByName(record.get(), name, value).result, S_OK) << name;
    }
    // Whether the process has ended.
    [[nodiscard]] bool isGone() const {
        return WaitForSingleObject(process, patience) == WAIT_OBJECT_0;
    }
    void kill() {
        EXPECT_NE(TerminateProcess(process, 4), FALSE);
        EXPECT_TRUE(isGone());
    }
    void endAfter(int calls) {
        EXPECT_EQ(putByName(record.get(), record_server::callsLeft, calls).result, S_OK);
    }
    void openRecord() {
        place();
        EXPECT_EQ(give(record.get()), S_OK);
        SetForegroundWindow(site->window);
        EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
        turn();
    }
    // Nothing of the record is held any more.
    void letGo() {
        takeAway();
        site->frame->active.reset();
        control.reset();
        record.reset();
    }
    // The control is as good as new with a record that is there.
    void expectWorking() {
        const auto other = library.create<::iVKR_Company>(__uuidof(::Company));
        EXPECT_EQ(other->put_Name(Bstr("Other").get()), S_OK);
        EXPECT_EQ(control->putref_objCompany(other.get()), S_OK);
        EXPECT_EQ(control->put_CurrentTab(::toCompany), S_OK);
        EXPECT_EQ(shown("txtName"), "Other");
        type("txtSymbol", "OTH");
        press(VK_TAB);
        Bstr symbol;
        EXPECT_EQ(other->get_Symbol(symbol.receive()), S_OK);
        EXPECT_EQ(textOf(symbol.get()), "OTH");
        EXPECT_TRUE(unstored().empty());
    }

    static std::vector<std::pair<const char*, Variant>> values() {
        std::vector<double> years(11);
        std::vector<double> quarters(35);
        for (int i = 1; i <= 10; ++i)
            years[static_cast<std::size_t>(i)] = 100 * i;
        for (int i = 0; i < 35; ++i)
            quarters[static_cast<std::size_t>(i)] = 2 + i / 8.0;
        return {{"Name", "Acme ä€"},
                {"Symbol", "ACM"},
                {"CurrentPrice", 12.5},
                {"TotalDebt", 1234.5},
                {"LastFY", std::int16_t{2025}},
                {"LastFYDate", Date{45930}},
                {"LastQDate", Date{45930}},
                {"LastQDateForGrid", Date{45930}},
                {"YRevenueSeries", numberArray(years)},
                {"QEPSSeries", numberArray(quarters)}};
    }

  private:
    void closeProcess() {
        if (process == nullptr)
            return;
        TerminateProcess(process, 5); // where a test has left it
        EXPECT_TRUE(isGone());
        CloseHandle(process);
        process = nullptr;
    }
};

TEST_F(OtherProcess, ItsRecordIsShownEditedAndCommitted) {
    ASSERT_NO_FATAL_FAILURE(start());
    openRecord();
    EXPECT_EQ(shown("txtName"), "Acme ä€");
    EXPECT_EQ(shown("txtTotalDebt"), "1234.50");
    type("txtCurrentPrice", "15");
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_EQ(getByName(record.get(), "CurrentPrice"), Variant(15.0));
    EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
    EXPECT_EQ(shown("txtSales(9)"), "100.00");
    type("txtSales(3)", "125");
    EXPECT_EQ(press(VK_RETURN), S_OK);
    const Variant years = getByName(record.get(), "YRevenueSeries");
    ASSERT_TRUE(years.isArray());
    EXPECT_EQ(years.array().lower(), 0);
    EXPECT_EQ(years.array().upper(), 10);
    EXPECT_EQ(years.array().number(7), 125);
    EXPECT_EQ(years.array().number(1), 100);
    EXPECT_TRUE(getByName(dispatch(), "blnDirty").toBoolean());

    const Called back =
        invoke(dispatch(), idOf(dispatch(), "objCompany"), DISPATCH_PROPERTYGET, {});
    EXPECT_EQ(back.result, S_OK);
    EXPECT_EQ(queryFor<IUnknown>(dispatchOf(back.value.toObject()).get()).get(),
              queryFor<IUnknown>(record.get()).get());
    EXPECT_EQ(putByName(dispatch(), "blnDirty", false).result, S_OK);
    EXPECT_TRUE(unstored().empty());
    EXPECT_EQ(getByName(record.get(), "TotalDebt"), Variant(1234.5));
    EXPECT_EQ(getByName(record.get(), "Name"), Variant("Acme ä€"));
    takeAway();
}

TEST_F(OtherProcess, NothingOfItsRecordIsHeldInTheEnd) {
    ASSERT_NO_FATAL_FAILURE(start());
    openRecord();
    type("txtCurrentPrice", "15");
    press(VK_TAB);
    letGo();
    EXPECT_TRUE(isGone()) << "a reference is left";
}

TEST_F(OtherProcess, ItsSettingsAreThoseOfTheForm) {
    ASSERT_NO_FATAL_FAILURE(start());
    const auto settings = dispatchOf(getByName(record.get(), "Settings").toObject());
    EXPECT_EQ(putByName(settings.get(), "intUnit", std::int16_t{3}).result, S_OK);
    openRecord();
    EXPECT_EQ(shown("txtTotalDebt"), "1234500.00"); // thousands
    type("txtTotalDebt", "2000");
    press(VK_TAB);
    EXPECT_EQ(getByName(record.get(), "TotalDebt"), Variant(2.0));
    takeAway();
}

// While it is read, at any call.
TEST_F(OtherProcess, ThatEndsWhileItsRecordIsReadLeavesTheControlAtWork) {
    constexpr int many = 1'000'000;
    ASSERT_NO_FATAL_FAILURE(start());
    endAfter(many);
    openRecord();
    const int calls = many - getByName(record.get(), record_server::callsLeft).toLong();
    EXPECT_GT(calls, 50);
    EXPECT_LT(calls, 300);
    for (const int left : {0, 1, calls / 4, calls / 2, calls - 1}) {
        SCOPED_TRACE(left);
        record.reset();
        ASSERT_NO_FATAL_FAILURE(start());
        endAfter(left);
        EXPECT_EQ(give(record.get()), S_OK);
        EXPECT_TRUE(isGone());
        turn();
        EXPECT_EQ(control->put_CurrentTab(::toCompany), S_OK);
        if (left == 0) { // nothing of the record before
            EXPECT_EQ(shown("txtName"), "");
            EXPECT_EQ(shown("txtTotalDebt"), "");
        }
        for (int tab = 0; tab < 5; ++tab) {
            EXPECT_EQ(control->SetNext(), S_OK);
            turn();
        }
        EXPECT_EQ(putByName(dispatch(), "blnDirty", false).result, S_OK); // commits
        expectWorking();
    }
    takeAway();
}

TEST_F(OtherProcess, ThatIsKilledLeavesWhatIsTypedMarkedAndOnTheForm) {
    ASSERT_NO_FATAL_FAILURE(start());
    openRecord();
    type("txtCurrentPrice", "15");
    press(VK_TAB);
    EXPECT_TRUE(unstored().empty());
    kill();
    type("txtTotalDebt", "77");
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_EQ(unstored(), std::vector<std::string>{"txtTotalDebt"});
    const Variant marked = getByName(dispatch(), "UnstoredFields");
    EXPECT_EQ(marked.array().at(0).array().text(3), "This value could not be stored.");
    EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
    type("txtSales(3)", "125");
    EXPECT_EQ(press(VK_RETURN), S_OK);
    const auto fields = unstored();
    EXPECT_TRUE(std::ranges::count(fields, "txtSales(3)") == 1);
    // Nothing of it is said to be stored, be it asked for twice.
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(putByName(dispatch(), "blnDirty", false).result, S_OK);
        EXPECT_EQ(unstored(), fields);
        EXPECT_EQ(
            invoke(dispatch(), idOf(dispatch(), "objCompany"), DISPATCH_PROPERTYGET, {}).result,
            S_OK);
    }
    EXPECT_EQ(control->put_CurrentTab(::toCompany), S_OK);
    EXPECT_EQ(shown("txtTotalDebt"), "77"); // as it was typed
    EXPECT_EQ(shown("txtCurrentPrice"), "15.000");
    expectWorking();
    letGo();
}

// While it is written and committed, at any call.
TEST_F(OtherProcess, ThatEndsWhileItsRecordIsWrittenLeavesTheControlAtWork) {
    constexpr int many = 1'000'000;
    const auto commit = [&] {
        type("txtTotalDebt", "77");
        EXPECT_EQ(putByName(dispatch(), "blnDirty", false).result, S_OK);
        EXPECT_EQ(
            invoke(dispatch(), idOf(dispatch(), "objCompany"), DISPATCH_PROPERTYGET, {}).result,
            S_OK);
    };
    ASSERT_NO_FATAL_FAILURE(start());
    openRecord();
    endAfter(many);
    commit();
    const int calls = many - getByName(record.get(), record_server::callsLeft).toLong();
    EXPECT_GT(calls, 2);
    for (const int left : {0, 1, calls / 2, calls - 1}) {
        SCOPED_TRACE(left);
        record.reset();
        ASSERT_NO_FATAL_FAILURE(start());
        EXPECT_EQ(give(record.get()), S_OK);
        EXPECT_EQ(control->put_CurrentTab(::toCompany), S_OK);
        endAfter(left);
        commit();
        EXPECT_TRUE(isGone());
        const std::string text = shown("txtTotalDebt");
        EXPECT_EQ(std::ranges::count(unstored(), "txtTotalDebt"), text == "77" ? 1 : 0) << text;
        EXPECT_TRUE(text == "77" || text == "77.00") << text; // refused, or stored and shown anew
        expectWorking();
    }
    takeAway();
}

// Its process calls this one before it has answered.
TEST_F(OtherProcess, MayCallTheControlWhileItIsWritten) {
    ASSERT_NO_FATAL_FAILURE(start());
    openRecord();
    const auto listener = makeCom<ScriptedObject>();
    const auto listen = [&](IDispatch* to) {
        const Variant object = to == nullptr ? Variant() : Variant(lateBound(to));
        EXPECT_EQ(putByName(record.get(), record_server::listener, object).result, S_OK);
    };
    type("txtTotalDebt", "77");
    listen(listener.get());
    listener->called = [&](const std::string&, bool) {
        EXPECT_EQ(control->SetNext(), S_OK);
        EXPECT_FALSE(getByName(dispatch(), "VisibleQuarters").isEmpty());
    };
    press(VK_TAB);
    listen(nullptr);
    EXPECT_EQ(listener->values["Written"], Variant("TotalDebt"));
    EXPECT_EQ(getByName(record.get(), "TotalDebt"), Variant(77.0));
    EXPECT_GT(getByName(dispatch(), "CurrentTab").toLong(), 1);
    EXPECT_TRUE(unstored().empty());

    // Another record, in the middle of a write.
    type("txtCurrentPrice", "15");
    listen(listener.get());
    listener->called = [&](const std::string&, bool) {
        EXPECT_EQ(control->putref_objCompany(nullptr), S_OK);
    };
    press(VK_TAB);
    listener->called = {};
    listen(nullptr);
    EXPECT_EQ(getByName(record.get(), "CurrentPrice"), Variant(15.0));
    expectWorking();
    letGo();
}

// A call waits for the other process, and messages wait meanwhile: a key goes to the field that has
// the focus when the keys before it are done.
TEST_F(OtherProcess, KeysThatAreTypedMeanwhileGoWhereTheyBelong) {
    ASSERT_NO_FATAL_FAILURE(start());
    openRecord();
    EXPECT_EQ(control->ShowField(Bstr("txtCurrentPrice").get()), S_OK);
    turn();
    for (const WORD key : {WORD{'1'}, WORD{'7'}, WORD{VK_TAB}, WORD{'3'}, WORD{'4'}}) {
        INPUT inputs[2] = {};
        inputs[0].type = inputs[1].type = INPUT_KEYBOARD;
        inputs[0].ki.wVk = inputs[1].ki.wVk = key;
        inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
        SendInput(2, inputs, sizeof(INPUT));
    }
    const auto active = as<IOleInPlaceActiveObject>();
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        if (active->TranslateAccelerator(&message) != S_OK) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    wchar_t text[100] = {};
    GetWindowTextW(GetFocus(), text, 100);
    EXPECT_EQ(textOf(std::wstring_view(text)), "34");
    EXPECT_EQ(control->LeaveField(), S_OK);
    EXPECT_EQ(getByName(record.get(), "CurrentPrice"), Variant(17.0));
    takeAway();
}

// A record of the library in another process is one of a host's here: the interface is called by
// the model's own marshaller, which goes by the type libraries that are registered.
TEST_F(OtherProcess, ARecordOfTheLibraryIsTakenByItsInterface) {
    using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);
    const auto install =
        reinterpret_cast<Install>(reinterpret_cast<void*>(library.function("DllInstall")));
    ASSERT_EQ(install(TRUE, L"machine"), S_OK);
    {
        ComPtr<::iVKR_Company> company;
        company = create<::iVKR_Company>(record_server::Kind::ofTheLibrary);
        ASSERT_TRUE(company);
        EXPECT_EQ(company->put_Name(Bstr("Acme").get()), S_OK);
        EXPECT_EQ(company->put_CurrentPrice(12.5), S_OK);
        open(company.get());
        EXPECT_EQ(shown("txtName"), "Acme");
        type("txtTotalDebt", "77");
        press(VK_TAB);
        double debt = 0;
        EXPECT_EQ(company->get_TotalDebt(&debt), S_OK);
        EXPECT_EQ(debt, 77);
        EXPECT_EQ(control->put_CurrentTab(::toYearly), S_OK);
        type("txtSales(3)", "125");
        press(VK_RETURN);
        OwnedVariant years;
        EXPECT_EQ(company->get_YRevenueSeries(years.receive()), S_OK);
        EXPECT_EQ(fromVariant(years.get()).array().number(7), 125);
        ComPtr<::iVKR_Company> back;
        EXPECT_EQ(control->get_objCompany(back.receive()), S_OK);
        EXPECT_EQ(queryFor<IUnknown>(back.get()).get(), queryFor<IUnknown>(company.get()).get());
        EXPECT_TRUE(unstored().empty());
        letGo();
    }
    EXPECT_EQ(install(FALSE, L"machine"), S_OK);
}

} // namespace
} // namespace vkr::automation
