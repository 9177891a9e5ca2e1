// SPDX-License-Identifier: MIT
#include "automation/company_object.hpp"

#include "automation/called_by_slots.hpp"
#include "automation/foreign_company.hpp"
#include "automation/late_bound.hpp"
#include "automation/texts.hpp"
#include "automation/type_library.hpp"
#include "automation/variants.hpp"
#include "company/company_base.hpp"
#include "company/company_csv.hpp"
#include "company/new_company_record.hpp"
#include "record/datum_changes.hpp"
#include "record/notice_list.hpp"

#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vkr::automation {

// By which the library knows its own records again. No proxy has it.
struct InsideRecord : IUnknown {
    virtual const std::shared_ptr<vkr::iVKR_Company>& inside() const = 0;
    [[nodiscard]] virtual bool isAtHome() const = 0;
};

} // namespace vkr::automation

__CRT_UUID_DECL(vkr::automation::InsideRecord, 0x4c9c9d97, 0x6c91, 0x4bdd, 0xa0, 0xb5, 0x5c, 0xe2,
                0x6e, 0xaa, 0x65, 0x9b)

namespace vkr::automation {

namespace {

// What a datum is outside, and how it comes in and goes out.
template <typename Kind>
struct Outside;
template <>
struct Outside<datum_kind::Text> {
    using Type = BSTR;
    static std::string in(BSTR value) { return textOf(value); }
    static BSTR out(const std::string& value) { return newBstr(value); }
};
template <>
struct Outside<datum_kind::Number> {
    using Type = double;
    static double in(double value) { return value; }
    static double out(double value) { return value; }
};
template <>
struct Outside<datum_kind::Year> {
    using Type = SHORT;
    static std::int16_t in(SHORT value) { return value; }
    static SHORT out(std::int16_t value) { return value; }
};
template <>
struct Outside<datum_kind::Day> {
    using Type = DATE;
    static Date in(DATE value) { return Date{value}; }
    static DATE out(Date value) { return value.serial; }
};
template <>
struct Outside<datum_kind::Series> {
    using Type = VARIANT;
    static Variant in(const VARIANT& value) { return seriesIn(value); }
    static VARIANT out(const Variant& value) { return newVariant(value); }
};
template <>
struct Outside<datum_kind::Yearly> : Outside<datum_kind::Series> {};
template <>
struct Outside<datum_kind::Quarterly> : Outside<datum_kind::Series> {};

std::filesystem::path pathOf(BSTR text) {
    if (text == nullptr || SysStringLen(text) == 0)
        throw ComError(E_INVALIDARG, "There is no folder of no name.");
    return {std::wstring(text, SysStringLen(text))};
}

bool hasNamesOfARecord(IDispatch& object) {
    wchar_t name[] = L"Symbol";
    LPOLESTR wanted = name;
    DISPID member = DISPID_UNKNOWN;
    return SUCCEEDED(object.GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &member));
}

std::string lines(const std::vector<CsvProblem>& problems) {
    std::string all;
    for (const CsvProblem& one : problems)
        all += (all.empty() ? "" : "\n") + describe(one);
    return all;
}

// The data by the numbers of their members, but for series, which are variants.
const std::map<DISPID, Datum>& dataByMember(ITypeInfo& info) {
    static const auto all = [&] {
        std::map<DISPID, Datum> found;
        for (const DatumRow& row : datumTable()) {
            std::wstring name = wideOf(row.name);
            LPOLESTR wanted = name.data();
            DISPID member = DISPID_UNKNOWN;
            check(info.GetIDsOfNames(&wanted, 1, &member));
            if (!isSeries(row))
                found.emplace(member, row.datum);
        }
        return found;
    }();
    return all;
}

// A value that comes late bound, as what the datum is. The model would make a figure of a text, by
// the marks of the user, a number of a truth value and a whole year of any number.
struct Exactly {
    const VARIANT& given;
    OwnedVariant& into;

    template <typename Type>
    void put(VARTYPE type, Type VARIANT::*member, Type value) const {
        into.get().*member = value;
        V_VT(&into.get()) = type;
    }
    void operator()(const TextAccess& /*access*/) const {
        put(VT_BSTR, &VARIANT::bstrVal, newBstr(textIn(given)));
    }
    void operator()(const NumberAccess& /*access*/) const {
        put(VT_R8, &VARIANT::dblVal, numberIn(given));
    }
    void operator()(const YearAccess& /*access*/) const {
        if (std::abs(numberIn(given)) > std::numeric_limits<SHORT>::max())
            throw ComError(DISP_E_OVERFLOW, "No year has so many digits.");
        put(VT_I2, &VARIANT::iVal, SHORT{yearIn(given)});
    }
    void operator()(const DateAccess& /*access*/) const {
        put(VT_DATE, &VARIANT::date, dateIn(given).serial);
    }
    void operator()(const SeriesAccess& /*access*/) const {}
};

class CompanyObject final : public Dual<::iVKR_CompanyRecord, Library::company, InsideRecord> {
  public:
    CompanyObject(std::shared_ptr<vkr::iVKR_Company> record, Files files)
        : record_(std::move(record)), files_(files) {}

    // Also where it is called as the interface that it derives from.
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
        return IsEqualIID(id, __uuidof(::iVKR_Company)) ? S_OK
                                                        : Dual::InterfaceSupportsErrorInfo(id);
    }

    const std::shared_ptr<vkr::iVKR_Company>& inside() const override { return record_; }

#define VKR_AUTOMATED(kind, name, title, unit, key, place)                                         \
    HRESULT STDMETHODCALLTYPE get_##name(Outside<datum_kind::kind>::Type* value) override {        \
        return reading(value,                                                                      \
                       [&] { return Outside<datum_kind::kind>::out(record_->get_##name()); });     \
    }                                                                                              \
    HRESULT STDMETHODCALLTYPE put_##name(Outside<datum_kind::kind>::Type value) override {         \
        return entered([&] { record_->put_##name(Outside<datum_kind::kind>::in(value)); });        \
    }
    VKR_DATA(VKR_AUTOMATED)
#undef VKR_AUTOMATED

#define VKR_AUTOMATED_READ(name)                                                                   \
    HRESULT STDMETHODCALLTYPE get_##name(VARIANT* value) override {                                \
        return reading(value, [&] { return newVariant(record_->get_##name()); });                  \
    }
#define VKR_AUTOMATED_CALL(name)                                                                   \
    HRESULT STDMETHODCALLTYPE name(SHORT value, VARIANT* result) override {                        \
        return reading(result, [&] { return newVariant(record_->name(value)); });                  \
    }
    VKR_NOTICES(VKR_AUTOMATED_CALL, VKR_AUTOMATED_READ)
    VKR_AUTOMATED_READ(SettingsApply)
#undef VKR_AUTOMATED_READ
#undef VKR_AUTOMATED_CALL

    HRESULT STDMETHODCALLTYPE put_QuarterlyFlag(VARIANT value) override {
        return entered([&] { record_->put_QuarterlyFlag(fromVariant(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_ReportingPeriod(IDispatch** value) override {
        return reading(value, [&] { return dispatchOf(record_->get_ReportingPeriod()).detach(); });
    }
    HRESULT STDMETHODCALLTYPE get_Settings(IDispatch** value) override {
        return reading(value, [&] { return dispatchOf(record_->get_Settings()).detach(); });
    }

    // --- files -----------------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE ReadCsv(BSTR folder, BSTR prefix) override {
        return entered([&] {
            checkFiles();
            CompanyRecord& record = own();
            const CsvImport read = importCompany(pathOf(folder), textOf(prefix));
            if (read.company == nullptr)
                throw ComError(E_FAIL, lines(read.errors));
            std::vector<DatumChange> changes;
            for (const DatumRow& row : datumTable())
                changes.push_back({row.datum, {}, {}, read.company->stored(row.datum)});
            if (const auto refused = applyChanges(record, changes))
                throw ComError(E_FAIL, *refused);
            notices_ = lines(read.notes);
            for (const std::string_view name : settingNames())
                record.get_Settings()->put(name, read.company->get_Settings()->get(name));
        });
    }
    HRESULT STDMETHODCALLTYPE WriteCsv(BSTR folder) override {
        return entered([&] {
            checkFiles();
            const CsvExport written = exportCompany(own(), pathOf(folder));
            if (!written.error.empty())
                throw ComError(E_FAIL, written.error);
        });
    }
    HRESULT STDMETHODCALLTYPE Clone(::iVKR_Company** copy) override {
        return reading(copy, [&]() -> ::iVKR_Company* {
            return outsideRecord(own().clone(), files_).detach();
        });
    }
    HRESULT STDMETHODCALLTYPE get_Notices(VARIANT* value) override {
        return reading(value, [&] {
            std::vector<std::string> all;
            for (std::size_t start = 0; start < notices_.size();) {
                const std::size_t end = std::min(notices_.find('\n', start), notices_.size());
                all.push_back(notices_.substr(start, end - start));
                start = end + 1;
            }
            return newVariant(textArray(std::move(all)));
        });
    }

  protected:
    [[nodiscard]] void* find(REFIID id) override {
        if (IsEqualIID(id, __uuidof(::iVKR_Company)))
            return static_cast<::iVKR_Company*>(this);
        return Dual::find(id);
    }
    HRESULT invoke(DISPID member, WORD kind, DISPPARAMS& given, VARIANT* result, EXCEPINFO* error,
                   UINT* wrongArgument) override {
        const auto& data = dataByMember(*ownInfo().get());
        const bool puts = (kind & DISPATCH_PROPERTYPUT) != 0 && given.cArgs == 1;
        const auto datum = puts ? data.find(member) : data.end();
        if (datum == data.end())
            return Dual::invoke(member, kind, given, result, error, wrongArgument);
        *wrongArgument = 0;
        OwnedVariant exact;
        std::visit(Exactly{given.rgvarg[0], exact}, rowOf(datum->second).access);
        DISPPARAMS changed = given;
        changed.rgvarg = &exact.get();
        return Dual::invoke(member, kind, changed, result, error, wrongArgument);
    }

  private:
    template <typename Call>
    HRESULT entered(Call&& call) {
        return guarded(this, __uuidof(::iVKR_Company), std::forward<Call>(call));
    }
    template <typename Value, typename Call>
    HRESULT reading(Value* value, Call&& call) {
        if (value != nullptr)
            *value = Value(); // also where the call is refused
        return entered([&] {
            answer(value) = Value();
            *value = call();
        });
    }
    // The record where it is of this library: one of a host's has no files.
    [[nodiscard]] CompanyRecord& own() const {
        auto* const record = dynamic_cast<CompanyRecord*>(record_.get());
        if (record == nullptr)
            throw ComError(E_NOTIMPL, "The record is not of this library.");
        return *record;
    }

    void checkFiles() const {
        if (files_ == Files::none)
            throw ComError(E_ACCESSDENIED, "The record of a control reads and writes no files.");
    }

    std::shared_ptr<vkr::iVKR_Company> record_;
    const Files files_;
    std::string notices_; // a line each
};

} // namespace

ComPtr<::iVKR_CompanyRecord> outsideRecord(std::shared_ptr<vkr::iVKR_Company> record, Files files) {
    return ComPtr<::iVKR_CompanyRecord>(makeCom<CompanyObject>(std::move(record), files).get());
}

ComPtr<IUnknown> newCompanyObject() {
    return ComPtr<IUnknown>(outsideRecord(newCompanyRecord(), Files::allowed).get());
}

std::shared_ptr<vkr::iVKR_Company> insideRecord(IUnknown* object) {
    if (object == nullptr)
        return nullptr;
    if (const auto own = queryFor<InsideRecord>(object)) {
        if (!own->isAtHome())
            throw ComError(RPC_E_WRONG_THREAD, "The record lives in another apartment.");
        return own->inside();
    }
    auto itself = queryFor<IDispatch>(object);
    auto called = itself;
    // It may have an interface of its own beside that of a record, whose names are others, or none
    // behind its names.
    if (!called || !hasNamesOfARecord(*called.get()))
        if (const auto record = queryFor<::iVKR_Company>(object)) {
            called = ComPtr<IDispatch>(record.get());
            if (!itself)
                itself = called;
            if (!hasNamesOfARecord(*record.get()))
                called = calledBySlots(record);
        }
    if (!called)
        throw ComError(DISP_E_TYPEMISMATCH, "The record can't be called by name.");
    return std::make_shared<ForeignCompany>(std::move(called), std::move(itself));
}

IDispatch* outsideOf(const vkr::iVKR_Company& record) {
    const auto* const foreign = dynamic_cast<const ForeignCompany*>(&record);
    return foreign == nullptr ? nullptr : foreign->itself();
}

} // namespace vkr::automation
