// SPDX-License-Identifier: MIT
// What a container keeps of a control, in each of the three ways.
#include "control/property_table.hpp"
#include "localizer/localizer.hpp"
#include "record/enumerations.hpp"
#include "tests/automation/memory_storage.hpp"
#include "tests/automation/test_container.hpp"

#include <algorithm>
#include <commctrl.h>
#include <random>

namespace vkr::automation {
namespace {

// A property bag that writes down in which order it is used.
class TestBag final : public ComObject<IPropertyBag> {
  public:
    std::map<std::string, Variant> values;
    Log reads;
    Log writes;

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* /*log*/) override {
        const std::string key = textOf(std::wstring_view(name));
        reads.push_back(key);
        const auto found = values.find(key);
        if (found == values.end())
            return E_INVALIDARG;
        *value = newVariant(found->second);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override {
        const std::string key = textOf(std::wstring_view(name));
        writes.push_back(key);
        values[key] = fromVariant(*value);
        return S_OK;
    }
};

Log keysBy(int BagPlaces::*place) {
    std::map<int, std::string> ordered;
    for (const PropertyRow& row : propertyTable())
        if (row.bag.*place > 0)
            ordered[row.bag.*place] = row.name;
    Log keys;
    for (const auto& [number, name] : ordered)
        keys.push_back(name);
    return keys;
}

struct Persistence : WithLibrary {
    using Entry = ComPtr<::_VKRDataEntry>;
    [[nodiscard]] Entry create() const {
        return library.create<::_VKRDataEntry>(__uuidof(::VKRDataEntry));
    }
    static void change(const Entry& entry) {
        entry->put_UserMode(::umCustom);
        entry->put_ShadeColorYear(0x102030);
        entry->put_VisibleQuarters(14);
        entry->put_ShowVLs(VARIANT_TRUE);
        entry->put_CurrentTab(::toOther);
        entry->put_BorderStyle(::bsFixedSingle);
        entry->put_FractionDisplay(VARIANT_TRUE);
    }
    static void expectChanged(const Entry& entry) {
        const auto isTrue = [&](const char* name) {
            return getByName(entry.get(), name) == Variant(true);
        };
        const auto read = [&](const char* name) { return getByName(entry.get(), name).toLong(); };
        EXPECT_EQ(read("UserMode"), 1);
        EXPECT_EQ(read("ShadeColorYear"), 0x102030);
        EXPECT_EQ(read("VisibleQuarters"), 14);
        EXPECT_TRUE(isTrue("ShowVLs"));
        EXPECT_EQ(read("CurrentTab"), 4);
        EXPECT_EQ(read("BorderStyle"), 1);
        EXPECT_TRUE(isTrue("FractionDisplay"));
        EXPECT_EQ(read("ShadeColorLocked"), 0xFFFFC0);
    }
    static ComPtr<IStream> newStream() {
        ComPtr<IStream> stream;
        EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()), S_OK);
        return stream;
    }
    static void rewind(IStream* stream) {
        EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    }
    template <typename Interface>
    static ComPtr<Interface> as(const Entry& entry) {
        return queryFor<Interface>(entry.get());
    }
};

TEST_F(Persistence, APropertyBagIsWrittenAndReadInItsTwoOrders) {
    const Entry entry = create();
    const auto bag = makeCom<TestBag>();
    EXPECT_EQ(as<IPersistPropertyBag>(entry)->Save(bag.get(), TRUE, TRUE), S_OK);
    EXPECT_EQ(bag->writes, keysBy(&BagPlaces::saved));
    EXPECT_EQ(bag->writes.size(), 13U);
    EXPECT_EQ(bag->values["VisibleQuarters"], Variant(std::int16_t{9}));
    EXPECT_EQ(bag->values["CommEquityData"], Variant(true));
    const auto empty = makeCom<TestBag>(); // what is the default is not kept
    EXPECT_EQ(as<IPersistPropertyBag>(entry)->Save(empty.get(), TRUE, FALSE), S_OK);
    EXPECT_TRUE(empty->writes.empty());
    const Entry restored = create();
    EXPECT_EQ(as<IPersistPropertyBag>(restored)->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(bag->reads, keysBy(&BagPlaces::restored));
    EXPECT_EQ(as<IPersistPropertyBag>(restored)->Load(bag.get(), nullptr), E_UNEXPECTED);
    EXPECT_EQ(as<IPersistPropertyBag>(restored)->Save(nullptr, TRUE, TRUE), E_POINTER);
}

TEST_F(Persistence, ComesBackFromAPropertyBag) {
    const Entry entry = create();
    change(entry);
    EXPECT_EQ(as<IPersistStreamInit>(entry)->IsDirty(), S_OK);
    const auto bag = makeCom<TestBag>();
    EXPECT_EQ(as<IPersistPropertyBag>(entry)->Save(bag.get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(as<IPersistStreamInit>(entry)->IsDirty(), S_FALSE);
    const Entry restored = create();
    EXPECT_EQ(as<IPersistPropertyBag>(restored)->Load(bag.get(), nullptr), S_OK);
    expectChanged(restored);
}

TEST_F(Persistence, ValuesThatCanNotBeAreTheDefaults) {
    const auto bag = makeCom<TestBag>();
    bag->values = {{"VisibleQuarters", "many"}, {"ShowVLs", numberArray({1})}, {"CurrentTab", 3}};
    const Entry entry = create();
    EXPECT_EQ(as<IPersistPropertyBag>(entry)->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(getByName(entry.get(), "VisibleQuarters").toLong(), 9);
    EXPECT_EQ(getByName(entry.get(), "ShowVLs"), Variant(false));
    EXPECT_EQ(getByName(entry.get(), "CurrentTab").toLong(), 3);
}

TEST_F(Persistence, ComesBackFromAStream) {
    const Entry entry = create();
    change(entry);
    const auto stream = newStream();
    EXPECT_EQ(as<IPersistStreamInit>(entry)->Save(stream.get(), TRUE), S_OK);
    ULARGE_INTEGER most{};
    EXPECT_EQ(as<IPersistStreamInit>(entry)->GetSizeMax(&most), S_OK);
    STATSTG status{};
    stream->Stat(&status, STATFLAG_NONAME);
    EXPECT_LE(status.cbSize.QuadPart, most.QuadPart);
    rewind(stream.get());
    const Entry restored = create();
    EXPECT_EQ(as<IPersistStreamInit>(restored)->Load(stream.get()), S_OK);
    expectChanged(restored);
    EXPECT_EQ(as<IPersistStreamInit>(restored)->Load(stream.get()), E_UNEXPECTED);
}

TEST_F(Persistence, ComesBackFromAStorage) {
    const Entry entry = create();
    EXPECT_EQ(as<IPersistStorage>(entry)->HandsOffStorage(), E_UNEXPECTED);
    const auto storage = newStorage();
    EXPECT_EQ(as<IPersistStorage>(entry)->InitNew(storage.get()), S_OK);
    change(entry);
    EXPECT_EQ(as<IPersistStorage>(entry)->Save(storage.get(), TRUE), S_OK);
    EXPECT_EQ(as<IPersistStorage>(entry)->Save(storage.get(), TRUE), E_UNEXPECTED);
    EXPECT_EQ(as<IPersistStorage>(entry)->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(as<IPersistStorage>(entry)->IsDirty(), S_FALSE);
    EXPECT_EQ(as<IPersistStorage>(entry)->HandsOffStorage(), S_OK);
    EXPECT_EQ(as<IPersistStorage>(entry)->SaveCompleted(nullptr), E_INVALIDARG);
    EXPECT_EQ(as<IPersistStorage>(entry)->SaveCompleted(storage.get()), S_OK);
    CLSID id{};
    EXPECT_EQ(ReadClassStg(storage.get(), &id), S_OK);
    EXPECT_TRUE(IsEqualCLSID(id, __uuidof(::VKRDataEntry)));
    const Entry restored = create();
    EXPECT_EQ(as<IPersistStorage>(restored)->Load(storage.get()), S_OK);
    expectChanged(restored);
}

// As a container saves a copy, or under another name.
TEST_F(Persistence, OnlyWhatIsTheControlsOwnStorageCountsAsSaved) {
    struct Row {
        BOOL sameAsLoad;
        bool handsOff;
        bool givesStorage;
        bool saved;
    };
    for (const Row& row : {Row{TRUE, false, false, true}, Row{TRUE, false, true, true},
                           Row{FALSE, false, false, false}, Row{FALSE, false, true, true},
                           Row{TRUE, true, true, true}, Row{FALSE, true, true, true}}) {
        const Entry entry = create();
        const auto storage = newStorage();
        ASSERT_EQ(as<IPersistStorage>(entry)->InitNew(storage.get()), S_OK);
        change(entry);
        ASSERT_EQ(as<IPersistStorage>(entry)->IsDirty(), S_OK);
        ASSERT_EQ(as<IPersistStorage>(entry)->Save(storage.get(), row.sameAsLoad), S_OK);
        if (row.handsOff) {
            ASSERT_EQ(as<IPersistStorage>(entry)->HandsOffStorage(), S_OK);
        }
        EXPECT_EQ(
            as<IPersistStorage>(entry)->SaveCompleted(row.givesStorage ? storage.get() : nullptr),
            S_OK);
        EXPECT_EQ(as<IPersistStorage>(entry)->IsDirty(), row.saved ? S_FALSE : S_OK)
            << row.sameAsLoad << row.handsOff << row.givesStorage;
    }
}

// The caption of the tab with further data.
std::string otherTab(HWND form) {
    const HWND strip = FindWindowExW(form, nullptr, WC_TABCONTROLW, nullptr);
    wchar_t caption[100] = {};
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = caption;
    tab.cchTextMax = 100;
    EXPECT_NE(SendMessageW(strip, TCM_GETITEMW, toOther - 1, reinterpret_cast<LPARAM>(&tab)), 0);
    return textOf(std::wstring_view(caption));
}

// What a platform has otherwise is for users; who designs a form sees everything.
TEST_F(Persistence, APlatformThatWasSavedShowsItsOwnWhereTheContainerRuns) {
    const Entry entry = create();
    EXPECT_EQ(entry->put_Platform(::ptZX), S_OK);
    const auto stream = newStream();
    EXPECT_EQ(as<IPersistStreamInit>(entry)->Save(stream.get(), TRUE), S_OK);
    const auto company = library.create<::iVKR_Company>(__uuidof(::Company));
    const auto captionWhere = [&](bool running, bool placedFirst) {
        const auto site = makeCom<TestSite>();
        site->ambients[DISPID_AMBIENT_USERMODE] = running;
        const Entry restored = create();
        const auto object = as<IOleObject>(restored);
        if (placedFirst) {
            EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
        }
        rewind(stream.get());
        EXPECT_EQ(as<IPersistStreamInit>(restored)->Load(stream.get()), S_OK);
        EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
        EXPECT_EQ(getByName(restored.get(), "Platform").toLong(), 1);
        EXPECT_EQ(as<IPersistStreamInit>(restored)->IsDirty(), S_FALSE);
        EXPECT_EQ(restored->putref_objCompany(company.get()), S_OK);
        EXPECT_EQ(object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
        HWND window = nullptr;
        EXPECT_EQ(as<IOleInPlaceObject>(restored)->GetWindow(&window), S_OK);
        const std::string caption = otherTab(window);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        return caption;
    };
    const std::string own = ZxLocalizer().LoadString(614);
    for (const bool placedFirst : {true, false}) {
        EXPECT_EQ(captionWhere(true, placedFirst), own) << placedFirst;
        EXPECT_NE(captionWhere(false, placedFirst), own) << placedFirst;
    }
}

TEST_F(Persistence, ADamagedStreamIsRefusedAndNothingOfItTaken) {
    const Entry entry = create();
    change(entry);
    const auto stream = newStream();
    ASSERT_EQ(as<IPersistStreamInit>(entry)->Save(stream.get(), TRUE), S_OK);
    STATSTG status{};
    stream->Stat(&status, STATFLAG_NONAME);
    std::string whole(static_cast<std::size_t>(status.cbSize.QuadPart), '\0');
    rewind(stream.get());
    stream->Read(whole.data(), static_cast<ULONG>(whole.size()), nullptr);
    const auto load = [&](const std::string& bytes) {
        const auto place = newStream();
        place->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
        rewind(place.get());
        const Entry into = create();
        const HRESULT result = as<IPersistStreamInit>(into)->Load(place.get());
        if (FAILED(result)) {
            EXPECT_EQ(getByName(into.get(), "VisibleQuarters").toLong(), 9);
            EXPECT_EQ(as<IPersistStreamInit>(into)->InitNew(), S_OK); // as if nothing had been
        }
        return result;
    };
    EXPECT_EQ(load(whole), S_OK);
    for (std::size_t length = 0; length < whole.size(); length += 7)
        EXPECT_TRUE(FAILED(load(whole.substr(0, length)))) << length;
    std::mt19937 random(5);
    for (int i = 0; i < 100; ++i) {
        std::string bytes = whole;
        bytes[random() % bytes.size()] = static_cast<char>(random());
        static_cast<void>(load(bytes)); // whatever comes of it
    }
    EXPECT_EQ(as<IPersistStreamInit>(entry)->Load(static_cast<IStream*>(nullptr)), E_POINTER);
}

} // namespace
} // namespace vkr::automation
