// SPDX-License-Identifier: MIT
// The interface descriptions of automation/, the page that lists them for people, and the manifest
// for use without registration: what the headers and tables of the component say.
//
//     vkr_interface_description <root of the sources>     1 where a file is not what they say
//     vkr_interface_description --write <root of the sources>
#include "control/property_table.hpp"
#include "record/datum_table.hpp"
#include "record/datum_titles.hpp"
#include "tests/checks/declared_interfaces.hpp"
#include "tests/checks/written_page.hpp"

#include <algorithm>
#include <map>
#include <sstream>

namespace {

using vkr::declared::Enumeration;
using vkr::declared::Operation;

// A number once given is never given again: it is how people's programs know a thing.
namespace ids {
constexpr std::string_view enumLibrary = "b883f713-b752-4352-b63b-fd19917ef104";
constexpr std::string_view companyLibrary = "45973ecd-9a2b-4a96-8087-81badbe7663b";
constexpr std::string_view entryLibrary = "8494ab76-1138-4a6f-918c-cb1eacaeab17";
constexpr std::string_view record = "e42c619d-4e04-4152-af92-16dd4aecad0b";
constexpr std::string_view ownRecord = "27911415-6ab3-499a-8f11-caadab0876e6";
constexpr std::string_view earnings = "fcf688ba-76b9-47f0-9100-795652ae7225";
constexpr std::string_view company = "186e56d1-5dcf-4c11-a269-f83e7fbdfeb4";
constexpr std::string_view ownEarnings = "e4902108-ad8b-444a-96b2-79ebd180d041";
constexpr std::string_view entry = "43cfc324-3e3a-458b-b959-079d0b985caf";
constexpr std::string_view events = "a719aca2-029f-44f5-bb64-9c99b0e59e8e";
constexpr std::string_view control = "358231bd-fa35-414b-9478-5ea1e1c90999";
constexpr std::string_view localizer = "f06960bb-b364-463a-b177-aa98a045c97e";
constexpr std::string_view standardTexts = "d7398a7a-207e-4d96-87b2-f3c352f53c62";
constexpr std::string_view zxTexts = "19359b06-ff9c-4cf1-ba9c-5e9d2e4b3a63";
const std::map<std::string, std::string_view> enumerations = {
    {"UserModeType", "d0314c14-dbd1-4833-b3be-d30ea6c6c615"},
    {"PlatformType", "bebcfeab-db78-496f-9844-f37fcd7616df"},
    {"UnloadModeType", "92bf0fbd-0604-4474-935c-6c074251c1e8"},
    {"BorderStyleConstants", "c5a13942-08cc-4c13-80bc-c88314760695"},
    {"TABObject", "6f80548a-8fa2-4605-abeb-60452843a005"},
    {"DataEntryObject", "c76e2707-4ea3-45ad-b910-e547a14361f9"},
};
} // namespace ids

// Of all three libraries, and of the assembly that stands for them without registration.
constexpr std::string_view version = "1.0";

constexpr std::string_view head =
    "// SPDX-License-Identifier: MIT\n"
    "// Written by vkr_interface_description of the headers and tables of the component.\n";

// One operation of an interface as it is described.
struct Member {
    int number;
    std::string kind; // "propget", "propput", "propputref", "" of a method
    std::string name;
    std::string arguments; // "[in] short value"
    std::string help;
    bool bindable = false;
};

// --- types ---------------------------------------------------------------------------------------

std::string automationType(const std::string& type) {
    static const std::map<std::string, std::string> types = {
        {"std::string", "BSTR"},
        {"std::string&", "BSTR"},
        {"double", "double"},
        {"std::int16_t", "short"},
        {"Date", "DATE"},
        {"Variant", "VARIANT"},
        {"Variant&", "VARIANT"},
        {"std::shared_ptr<Object>", "IDispatch*"},
        {"std::shared_ptr<iVKR_Company>&", "iVKR_Company*"},
        {"TABObject", "TABObject"},
        {"UnloadModeType", "UnloadModeType"},
    };
    const auto found = types.find(type);
    if (found == types.end())
        throw std::runtime_error("no automation type stands for " + type);
    return found->second;
}

std::string automationType(const vkr::PropertyRow& row) {
    using vkr::PropertyType;
    static const std::map<std::string_view, std::string> enumerationOf = {
        {"UserMode", "UserModeType"},
        {"CurrentTab", "TABObject"},
        {"BorderStyle", "BorderStyleConstants"},
        {"Platform", "PlatformType"},
    };
    switch (row.type) {
    case PropertyType::boolean:
        return "VARIANT_BOOL";
    case PropertyType::shortInteger:
        return "short";
    case PropertyType::enumeration:
        return enumerationOf.at(row.name);
    case PropertyType::color:
        return "OLE_COLOR";
    case PropertyType::text:
        return "BSTR";
    case PropertyType::list:
        return "VARIANT";
    case PropertyType::company:
        return "iVKR_Company*";
    case PropertyType::marks:
        break;
    }
    throw std::runtime_error("no automation type for " + std::string(row.name));
}

std::string answered(const std::string& type) {
    return "[out, retval] " + type + "* value";
}

// What a datum is written as in C++, as headers have it.
std::string declaredType(const vkr::DatumRow& row) {
    if (std::holds_alternative<vkr::TextAccess>(row.access))
        return "std::string";
    if (std::holds_alternative<vkr::NumberAccess>(row.access))
        return "double";
    if (std::holds_alternative<vkr::YearAccess>(row.access))
        return "std::int16_t";
    if (std::holds_alternative<vkr::DateAccess>(row.access))
        return "Date";
    return "Variant";
}

// --- members -------------------------------------------------------------------------------------

// Of what is no datum: operations of the record, and events.
constexpr std::pair<std::string_view, std::string_view> ownHelp[] = {
    {"QuarterlyFlag", "told when quarterly figures have been derived anew"},
    {"BeginYearShift", "called around a shift of the fiscal years, with 0; may be ignored"},
    {"YearShiftState", "called around a shift of the fiscal years, with 0; may be ignored"},
    {"EndYearShift", "called around a shift of the fiscal years, with 0; may be ignored"},
    {"YearShiftUnit", "called around a shift of the fiscal years, with 0; may be ignored"},
    {"YearShiftFirst", "read around a shift of the fiscal years; may be empty"},
    {"YearShiftLast", "read around a shift of the fiscal years; may be empty"},
    {"ReportingPeriod", "an object with intLeadPeriod, the chosen reporting period; -1 for none"},
    {"YearShiftCount", "read around a shift of the fiscal years; may be empty"},
    {"ReportingPeriodEnd", "read after the reporting period was written"},
    {"YearShiftPrices", "read around a shift of the fiscal years; may be empty"},
    {"YearShiftEarnings", "read around a shift of the fiscal years; may be empty"},
    {"YearShiftDividends", "read around a shift of the fiscal years; may be empty"},
    {"YearShiftShares", "read around a shift of the fiscal years; may be empty"},
    {"Settings", "an object with intUnit, strCurSymbol, blnBookVal, blnTaxRate, blnLockBasicInfo"},
    {"SettingsApply", "read after settings were written"},
    {"TabChange", "another tab is on show"},
    {"MoreHelp", "the user wants help: 3000 + DataEntryObject, or 3063 + tab"},
    {"Assistant", "the user asks about an object; with its text, or its caption"},
    {"UnloadRequest", "OK or Cancel: the container is asked to close the control"},
    {"UpdatePrice", "never raised"},
    {"UpdateData", "never raised"},
    {"UpdateQDataOnly", "never raised"},
};

std::string helpOf(const std::string& name) {
    for (const auto& [own, help] : ownHelp)
        if (own == name)
            return std::string(help);
    for (const vkr::DatumRow& row : vkr::datumTable()) {
        if (row.name != name)
            continue;
        std::string text = vkr::wordsOf(row.datum);
        if (row.period != vkr::DatumPeriod::none)
            text += row.period == vkr::DatumPeriod::year ? " by fiscal year" : " by quarter";
        switch (row.unit) {
        case vkr::DatumUnit::money:
            return text + ", millions of the currency";
        case vkr::DatumUnit::perShare:
            return text + ", per share";
        case vkr::DatumUnit::percent:
            return text + ", percent";
        case vkr::DatumUnit::shares:
            return text + ", millions of shares";
        case vkr::DatumUnit::none:
            return text;
        }
    }
    throw std::runtime_error("nothing says what " + name + " is");
}

// The record's operations in the order of their slots; both of a property have one number.
std::vector<Member> recordMembers(const std::vector<Operation>& operations) {
    std::vector<Member> members;
    std::map<std::string, int> numbers;
    for (const Operation& one : operations) {
        const bool reads = one.name.starts_with("get_");
        const bool writes = one.name.starts_with("put_");
        const std::string name = reads || writes ? one.name.substr(4) : one.name;
        const int number =
            numbers.try_emplace(name, static_cast<int>(numbers.size()) + 1).first->second;
        std::string arguments;
        if (reads)
            arguments = answered(automationType(one.result));
        else if (writes)
            arguments = "[in] " + automationType(one.arguments.at(0).first) + " value";
        else
            arguments = "[in] " + automationType(one.arguments.at(0).first) + " value, " +
                        "[out, retval] VARIANT* answer";
        members.push_back({number,
                           reads    ? "propget"
                           : writes ? "propput"
                                    : "",
                           name, arguments, helpOf(name)});
    }
    return members;
}

std::vector<Member> ownRecordMembers() {
    return {
        {201, "", "ReadCsv", "[in] BSTR folder, [in] BSTR prefix",
         "takes everything from <prefix>-company.csv, -yearly.csv and -quarterly.csv; fails with "
         "what is wrong in them, the record unchanged"},
        {202, "", "WriteCsv", "[in] BSTR folder",
         "writes the three files, named by the symbol, replacing those of the same names"},
        {203, "", "Clone", "[out, retval] iVKR_Company** copy",
         "a record of its own with the same data"},
        {204, "propget", "Notices", answered("VARIANT"),
         "what the last ReadCsv left out, an array of texts"},
    };
}

std::vector<Member> earningsMembers() {
    return {{1, "", "LastFour",
             "[in] DATE lastQuarter, [in] DATE newestQuarter, [in] VARIANT quarterly, "
             "[in] double yearly, [in] DATE fiscalYearEnd, [out, retval] VARIANT* sum",
             "earnings per share of the four quarters that end at the last one; empty where they "
             "can't be told"}};
}

std::vector<Member> localizerMembers() {
    return {{1, "", "LoadString", "[in] long number, [out, retval] BSTR* text",
             "the text behind a number; empty where there is none"},
            {2, "", "LoadPicture",
             "[in] long number, [in] short kind, [out, retval] IPictureDisp** picture",
             "the picture behind a number; nothing where there is none"}};
}

std::vector<Member> entryMembers() {
    using vkr::PropertyAccess;
    std::vector<Member> members;
    int number = 0;
    for (const vkr::PropertyRow& row : vkr::propertyTable().first(vkr::interfaceProperties)) {
        ++number;
        const std::string type = automationType(row);
        const std::string name(row.name);
        const std::string help(row.meaning);
        const bool bindable = row.notice != vkr::PropertyNotice::never;
        // It is a function without arguments.
        const bool function = row.property == vkr::EntryProperty::blnExistsQuarterlyData;
        if (row.access != PropertyAccess::write)
            members.push_back(
                {number, function ? "" : "propget", name, answered(type), help, bindable});
        if (row.access == PropertyAccess::read)
            continue;
        const bool object = row.type == vkr::PropertyType::company;
        members.push_back({number, object ? "propputref" : "propput", name,
                           "[in] " + type + " value", help, bindable});
    }
    const std::vector<Member> methods = {
        {++number, "", "SetNext", "", "selects the next tab, after the last one the first"},
        {++number, "", "SetPrevious", "", "selects the tab before, before the first one the last"},
        {++number, "", "Clear", "", "empties the form; the record stays as it is"},
        {++number, "", "ScrollMouse", "[in, out] short* KeyCode, [in, out] short* Shift",
         "mouse-wheel motion as arrow keys, 38 up and 40 down"},
        // What the component offers beyond the interface laid down.
        {101, "propget", "DecimalMark", answered("BSTR"), "point or comma, of figures on the form"},
        {101, "propput", "DecimalMark", "[in] BSTR value",
         "point or comma, of figures on the form"},
        {102, "propget", "GroupingMark", answered("BSTR"), "what groups thousands on the form"},
        {102, "propput", "GroupingMark", "[in] BSTR value", "what groups thousands on the form"},
        {103, "propget", "ApplicationTitle", answered("BSTR"), "caption of message boxes"},
        {103, "propput", "ApplicationTitle", "[in] BSTR value", "caption of message boxes"},
        {104, "propget", "UnstoredFields", answered("VARIANT"),
         "fields whose text is not in the record: an array of control, label, text, reason each"},
        {105, "propget", "DoubtfulFields", answered("VARIANT"),
         "fields of whose text something was left out when it was stored, in the same form"},
        {106, "", "ShowField", "[in] BSTR control", "brings a field on show and the focus there"},
        {107, "", "LeaveField", "",
         "leaves the field that has the focus as if the user had moved on, and comes back"},
        {108, "propput", "Origins", "[in] VARIANT value",
         "where figures come from: an array of datum, element, text, whether the corner of the "
         "field is marked, each; in place of those before"},
        {109, "propput", "Remarks", "[in] VARIANT value",
         "what there is to say of figures: an array of datum, element, text, each; in place of "
         "those before"},
        {110, "", "RecordChanged", "",
         "shows the record anew, which somebody else has changed; nothing is written"},
        {111, "", "ShowFigure",
         "[in] BSTR datum, [in, optional] VARIANT element, [out, retval] VARIANT_BOOL* shown",
         "brings the field of a figure on show and the focus there; false where the form shows "
         "none"},
    };
    members.insert(members.end(), methods.begin(), methods.end());
    return members;
}

std::vector<Member> eventMembers(const std::vector<Operation>& events) {
    std::vector<Member> members;
    int number = 0;
    for (const Operation& one : events) {
        std::string arguments;
        for (const auto& [type, name] : one.arguments)
            arguments +=
                (arguments.empty() ? "[in] " : ", [in] ") + automationType(type) + " " + name;
        members.push_back({++number, "", one.name, arguments, helpOf(one.name)});
    }
    return members;
}

// --- writing -------------------------------------------------------------------------------------

std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

void write(std::ostream& out, const Member& member, std::string_view result) {
    out << "    [id(" << member.number << ")";
    if (!member.kind.empty())
        out << ", " << member.kind;
    if (member.bindable)
        out << ", bindable";
    if (!member.help.empty())
        out << ", helpstring(" << inQuotes(member.help) << ")";
    out << "]\n    " << result << " " << member.name << "(" << member.arguments << ");\n";
}

void writeInterface(std::ostream& out, std::string_view name, std::string_view id,
                    std::string_view base, const std::string& help,
                    const std::vector<Member>& members) {
    out << "\n[object, dual, oleautomation, uuid(" << id
        << "), pointer_default(unique),\n helpstring(" << inQuotes(help) << ")]\ninterface " << name
        << " : " << base << " {\n";
    for (const Member& member : members)
        write(out, member, "HRESULT");
    out << "};\n";
}

void writeEnumeration(std::ostream& out, const Enumeration& one) {
    out << "    typedef [uuid(" << ids::enumerations.at(one.name) << ")] enum " << one.name << " {";
    const char* separator = "\n";
    for (const auto& [name, value] : one.members) {
        out << separator << "        " << name << " = " << value;
        separator = ",\n";
    }
    out << "\n    } " << one.name << ";\n";
}

void beginLibrary(std::ostream& out, std::string_view name, std::string_view id,
                  const std::string& help, const std::vector<std::string>& imported) {
    out << "\n[uuid(" << id << "), version(" << version << "), helpstring(" << inQuotes(help)
        << ")]\nlibrary " << name << " {\n    importlib(\"stdole2.tlb\");\n";
    for (const std::string& library : imported)
        out << "    importlib(" << inQuotes(library) << ");\n";
}

void writeClass(std::ostream& out, std::string_view name, std::string_view id,
                const std::string& help, std::string_view attributes,
                const std::string& interfaces) {
    out << "\n    [uuid(" << id << "), helpstring(" << inQuotes(help) << ")" << attributes
        << "]\n    coclass " << name << " {\n"
        << interfaces << "    };\n";
}

struct Sources {
    std::vector<Enumeration> enumerations;
    std::vector<Member> record;
    std::vector<Member> events;

    [[nodiscard]] const Enumeration& enumeration(std::string_view name) const {
        return *std::ranges::find(enumerations, name, &Enumeration::name);
    }
};

Sources readSources(const std::filesystem::path& root) {
    Sources read;
    read.enumerations = vkr::declared::enumerations(root / "record/enumerations.hpp");
    read.enumerations.push_back({"BorderStyleConstants", {{"bsNone", 0}, {"bsFixedSingle", 1}}});
    auto operations = vkr::declared::operations(root / "record/ivkr_company.hpp", "iVKR_Company");
    // Behind those that the header spells out: the data that the list has beyond them.
    for (const vkr::DatumRow& row : vkr::datumTable()) {
        const std::string name(row.name);
        if (std::ranges::find(operations, "get_" + name, &Operation::name) != operations.end())
            continue;
        operations.push_back({declaredType(row), "get_" + name, {}});
        operations.push_back({"void", "put_" + name, {{declaredType(row), "value"}}});
    }
    read.record = recordMembers(operations);
    auto events =
        vkr::declared::operations(root / "control/vkr_data_entry_events.hpp", "VKRDataEntryEvents");
    std::erase_if(events, [](const Operation& one) { return one.result.empty(); });
    std::erase_if(events, [](const Operation& one) { return one.name == "VKRDataEntryEvents"; });
    read.events = eventMembers(events);
    return read;
}

std::string enumLibrary(const Sources& read) {
    std::ostringstream out;
    out << head << "import \"oaidl.idl\";\n";
    beginLibrary(out, "VKR_Enum", ids::enumLibrary, "VKR enumerations", {});
    for (const std::string_view name :
         {"UserModeType", "PlatformType", "UnloadModeType", "BorderStyleConstants"})
        writeEnumeration(out, read.enumeration(name));
    out << "};\n";
    return out.str();
}

std::string companyLibrary(const Sources& read) {
    std::ostringstream out;
    out << head << "import \"oaidl.idl\";\n";
    beginLibrary(out, "VKR_Company", ids::companyLibrary, "VKR company record", {});
    writeInterface(out, "iVKR_Company", ids::record, "IDispatch", "The record of a company",
                   read.record);
    writeInterface(out, "iVKR_CompanyRecord", ids::ownRecord, "iVKR_Company",
                   "The record of this library, which has files", ownRecordMembers());
    writeInterface(out, "iVKR_TrailingEarnings", ids::earnings, "IDispatch",
                   "The rule of trailing earnings", earningsMembers());
    writeClass(
        out, "Company", ids::company, "A company record", "",
        "        [default] interface iVKR_CompanyRecord;\n        interface iVKR_Company;\n");
    writeClass(out, "TrailingEarnings", ids::ownEarnings, "The sum of four quarters", "",
               "        [default] interface iVKR_TrailingEarnings;\n");
    out << "};\n";
    return out.str();
}

std::string entryLibrary(const Sources& read) {
    std::ostringstream out;
    out << head
        << "import \"oaidl.idl\";\nimport \"ocidl.idl\";\nimport \"vkr_enum.idl\";\n"
           "import \"vkr_company.idl\";\ntypedef [public] DWORD OLE_COLOR;\n"; // of stdole
    beginLibrary(out, "VKR_DataEntry", ids::entryLibrary, "VKR data entry",
                 {"vkr_enum.tlb", "vkr_company.tlb"});
    for (const std::string_view name : {"TABObject", "DataEntryObject"})
        writeEnumeration(out, read.enumeration(name));
    writeInterface(out, "_VKRDataEntry", ids::entry, "IDispatch",
                   "Data entry for a listed company's fundamentals", entryMembers());
    writeInterface(out, "iVKR_Localizer", ids::localizer, "IDispatch",
                   "Captions, messages, help texts and pictures by number", localizerMembers());
    out << "\n    [uuid(" << ids::events
        << "), helpstring(\"Events of the data entry\")]\n    dispinterface __VKRDataEntry {\n"
           "    properties:\n    methods:\n";
    for (const Member& member : read.events)
        write(out, member, "void");
    out << "    };\n";
    writeClass(out, "VKRDataEntry", ids::control, "VKR data entry", ", control",
               "        [default] interface _VKRDataEntry;\n"
               "        [default, source] dispinterface __VKRDataEntry;\n");
    writeClass(out, "StandardLocalizer", ids::standardTexts, "Texts of the standard platform", "",
               "        [default] interface iVKR_Localizer;\n");
    writeClass(out, "ZxLocalizer", ids::zxTexts, "Texts of the ZX platform", "",
               "        [default] interface iVKR_Localizer;\n");
    out << "};\n";
    return out.str();
}

// --- the page for people -------------------------------------------------------------------------

void listMembers(std::ostream& out, const std::string& title, const std::vector<Member>& members) {
    out << "\n## " << title
        << "\n\n| no. | member | kind | arguments | meaning |\n|---|---|---|---|---|\n";
    for (const Member& one : members)
        out << "| " << one.number << " | `" << one.name << "` | "
            << (one.kind == "propget"      ? "read"
                : one.kind == "propput"    ? "write"
                : one.kind == "propputref" ? "write, object"
                                           : "method")
            << " | " << vkr::cell(one.arguments) << " | " << vkr::cell(one.help) << " |\n";
}

std::string page(const Sources& read) {
    std::ostringstream out;
    out << "<!-- SPDX-License-Identifier: MIT -->\n"
           "<!-- Written by vkr_interface_description of the headers and tables. -->\n"
           "# Members of the automation interfaces\n\n"
           "How they are used is told in the [automation guide](automation-guide.md), what the\n"
           "properties are in [properties.md](properties.md). Slots stand in the order of the "
           "lists.\n";
    listMembers(out, "`_VKRDataEntry`, of `VKR_DataEntry.VKRDataEntry`", entryMembers());
    listMembers(out, "`__VKRDataEntry`, its events", read.events);
    listMembers(out, "`iVKR_Company`, a record", read.record);
    listMembers(out, "`iVKR_CompanyRecord`, of `VKR_Company.Company`: besides", ownRecordMembers());
    listMembers(out, "`iVKR_TrailingEarnings`, of `VKR_Company.TrailingEarnings`",
                earningsMembers());
    listMembers(out, "`iVKR_Localizer`, of both localizers", localizerMembers());
    for (const Enumeration& one : read.enumerations) {
        out << "\n## Enumeration `" << one.name << "`\n\n| value | name |\n|---|---|\n";
        for (const auto& [name, value] : one.members)
            out << "| " << value << " | `" << name << "` |\n";
    }
    return out.str();
}

// --- the manifest --------------------------------------------------------------------------------

std::string assemblyIdentity(const std::string& processor) {
    return "<assemblyIdentity type=\"win32\" name=\"VKRDataEntry\" version=\"" +
           std::string(version) + ".0.0\" processorArchitecture=\"" + processor + "\"/>";
}

std::string manifest() {
    struct Class {
        std::string_view id, library, programmaticId, description;
        bool isControl = false;
    };
    constexpr Class classes[] = {
        {ids::control, ids::entryLibrary, "VKR_DataEntry.VKRDataEntry", "VKR data entry", true},
        {ids::company, ids::companyLibrary, "VKR_Company.Company", "VKR company record"},
        {ids::ownEarnings, ids::companyLibrary, "VKR_Company.TrailingEarnings",
         "VKR trailing earnings"},
        {ids::standardTexts, ids::entryLibrary, "iVKR_DataEntry.Localizer", "VKR data entry texts"},
        {ids::zxTexts, ids::entryLibrary, "iVKR_ZX_DataEntry.Localizer",
         "VKR data entry texts, ZX"},
    };
    constexpr std::pair<std::string_view, std::pair<std::string_view, std::string_view>>
        interfaces[] = {
            {"_VKRDataEntry", {ids::entry, ids::entryLibrary}},
            {"iVKR_Localizer", {ids::localizer, ids::entryLibrary}},
            {"iVKR_Company", {ids::record, ids::companyLibrary}},
            {"iVKR_CompanyRecord", {ids::ownRecord, ids::companyLibrary}},
            {"iVKR_TrailingEarnings", {ids::earnings, ids::companyLibrary}},
        };
    constexpr std::string_view inResources[] = {ids::entryLibrary, ids::companyLibrary,
                                                ids::enumLibrary};
    std::ostringstream out;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
           "<!-- SPDX-License-Identifier: MIT -->\n"
           "<!-- Written by vkr_interface_description. For use without registration: beside\n"
           "     VKRDataEntry.ocx and the program, whose own manifest names this assembly as one\n"
           "     that it depends on. -->\n"
           "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n  "
        << assemblyIdentity("@processor@") << "\n  <file name=\"VKRDataEntry.ocx\">\n";
    for (const Class& one : classes)
        out << "    <comClass clsid=\"{" << one.id << "}\" threadingModel=\"Apartment\" tlbid=\"{"
            << one.library << "}\"\n              progid=\"" << one.programmaticId
            << "\" description=\"" << one.description << '"'
            << (one.isControl ? "\n              miscStatusContent=\"recomposeonresize,"
                                "cantlinkinside,insideout,activatewhenvisible,setclientsitefirst\""
                              : "")
            << ">\n      <progid>" << one.programmaticId << ".1</progid>\n    </comClass>\n";
    int resource = 0;
    for (const std::string_view library : inResources)
        out << "    <typelib tlbid=\"{" << library << "}\" version=\"" << version
            << "\" helpdir=\"\" resourceid=\"" << ++resource << "\"/>\n";
    out << "  </file>\n";
    for (const auto& [name, known] : interfaces)
        out << "  <comInterfaceExternalProxyStub name=\"" << name << "\" iid=\"{" << known.first
            << "}\" tlbid=\"{" << known.second << "}\"\n"
            << std::string(33, ' ')
            << "proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\"/>\n";
    out << "</assembly>\n";
    return out.str();
}

// --- what is written by hand ---------------------------------------------------------------------

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The guide says what a program's own manifest names: 1 where that is something else.
int missingByHand(const std::filesystem::path& root) {
    const std::filesystem::path guide = root / "docs/automation-guide.md";
    if (contentsOf(guide).find(assemblyIdentity("amd64")) != std::string::npos)
        return 0;
    std::cerr << guide.string() << " lacks " << assemblyIdentity("amd64") << '\n';
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const bool writes = argc == 3 && std::string_view(argv[1]) == "--write";
    if (argc != (writes ? 3 : 2))
        return 2;
    const std::filesystem::path root = argv[argc - 1];
    const Sources read = readSources(root);
    int result = missingByHand(root);
    const auto hold = [&](const char* file, const std::string& text) {
        std::string path = (root / file).string();
        std::string option = "--write";
        char* arguments[] = {argv[0], writes ? option.data() : path.data(), path.data()};
        result |= vkr::checkOrWrite(writes ? 3 : 2, arguments, text);
    };
    hold("automation/vkr_enum.idl", enumLibrary(read));
    hold("automation/vkr_company.idl", companyLibrary(read));
    hold("automation/vkr_data_entry.idl", entryLibrary(read));
    hold("docs/automation-interface.md", page(read));
    hold("packaging/windows/VKRDataEntry.manifest.in", manifest());
    return result;
}
