// SPDX-License-Identifier: MIT
// Every datum on its whole way: from a record onto the form, typed over with keys, into the record,
// into a file, and back out of it.
#include "store/company_store.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/form_fields.hpp"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <unistd.h>

namespace vkr {

namespace {

using namespace test;

std::vector<FormField> typedFields(Choice choice) {
    std::vector<FormField> fields;
    for (const FormField& field : formFields)
        if (!field.datum.empty() && field.object != doLastQDate &&
            (field.choice == Choice::none) == (choice == Choice::none))
            fields.push_back(field);
    // The ends of its range come first: it would move them.
    std::ranges::stable_partition(
        fields, [](const FormField& field) { return field.object != doCurrentPrice; });
    return fields;
}
// What a person types where, and which datum it has to become.
const std::vector<FormField> entries = typedFields(Choice::none);
// Typed where the option rows show the other member of their pair.
const std::vector<FormField> optionEntries = typedFields(Choice::taxRate);

// Have no field of their own: written along with another one, if at all.
const std::set<std::string> writtenAlong = {"CommDivAlternate", "LastQDate", "LastQDateForGrid"};

const DatumRow& rowNamed(std::string_view name) {
    for (const auto& row : datumTable())
        if (row.name == name)
            return row;
    throw std::out_of_range(std::string(name));
}

std::string textOf(const iVKR_Company& company, const FormField& entry) {
    const DatumRow& row = rowNamed(entry.datum);
    const Variant value = readDatum(company, row.datum);
    if (isSeries(row)) {
        const int element = std::stoi(std::string(entry.stored));
        return std::to_string(element) + "=" + Variant(value.array().number(element)).toText();
    }
    if (std::holds_alternative<DateAccess>(row.access)) {
        const auto day = civil(value.toDate());
        char text[16];
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
        return text;
    }
    return value.toText();
}

class FieldWalk : public testing::Test {
  protected:
    void SetUp() override {
        scene_.entry->put_ShowVLs(true);
        company_ = fullCompany();
        scene_.load(company_);
    }

    void play(const FormField& entry) {
        SCOPED_TRACE(entry.id() + " -> " + std::string(entry.datum));
        scene_.entry->put_CurrentTab(entry.tab);
        auto& field =
            entry.isCell() ? scene_.field(entry.control, entry.row) : scene_.field(entry.control);
        if (!entry.shown.empty()) {
            EXPECT_EQ(field.text(), entry.shown);
        }
        field.setFocus();
        scene_.desktop.type("^a" + keysOf(entry.typed));
        scene_.desktop.type("{TAB}");
        EXPECT_EQ(textOf(*company_, entry), entry.stored);
    }

    [[nodiscard]] std::shared_ptr<CompanyRecord> throughAFile() {
        const auto path = std::filesystem::temp_directory_path() /
                          ("field_walk_" + std::to_string(::getpid()) + ".vkr");
        std::filesystem::remove(path);
        std::shared_ptr<CompanyRecord> loaded;
        {
            auto store = CompanyStore::open(path.string(), OpenMode::create);
            EXPECT_TRUE(store);
            const auto key = store.value()->save(std::nullopt, *company_);
            EXPECT_TRUE(key);
            auto read = store.value()->load(key.value().id);
            EXPECT_TRUE(read);
            loaded = read.value().record;
        }
        for (const char* suffix : {"", "-wal", "-shm"})
            std::filesystem::remove(path.string() + suffix);
        return loaded;
    }

    EntryScene scene_;
    std::shared_ptr<CompanyRecord> company_;
};

TEST_F(FieldWalk, EveryDatumThatIsTypedComesBackFromTheFile) {
    for (const auto& entry : entries)
        play(entry);
    const auto committed = scene_.entry->get_objCompany();
    const auto loaded = throughAFile();
    for (const auto& entry : entries)
        EXPECT_EQ(textOf(*loaded, entry), entry.stored) << entry.datum;
    EXPECT_EQ(loaded->get_CommDivAlternate(), 1.11);
    EXPECT_TRUE(differences(*loaded, *company_).empty());
    EXPECT_TRUE(scene_.entry->unstoredFields().empty());

    scene_.load(loaded);
    for (const auto& entry : entries) {
        if (entry.isCell())
            continue;
        EXPECT_NE(scene_.text(entry.control), entry.shown) << entry.control;
        EXPECT_FALSE(scene_.text(entry.control).empty()) << entry.control;
    }
}

TEST_F(FieldWalk, TheOtherMemberOfEachPairComesBackFromTheFile) {
    scene_.entry->put_CurrentTab(toOptions);
    scene_.desktop.click("optPTI(1)");
    scene_.desktop.click("optCommEq(1)");
    for (const auto& entry : optionEntries)
        play(entry);
    const auto loaded = throughAFile();
    for (const auto& entry : optionEntries)
        EXPECT_EQ(textOf(*loaded, entry), entry.stored) << entry.datum;
}

TEST(FieldWalkTable, NamesEveryDatum) {
    std::set<std::string> named = writtenAlong;
    for (const auto& entry : entries)
        named.emplace(entry.datum);
    for (const auto& entry : optionEntries)
        named.emplace(entry.datum);
    for (const auto& row : datumTable())
        EXPECT_TRUE(named.contains(std::string(row.name)))
            << row.name << " is typed nowhere. Add its field to tests/support/form_fields.hpp. "
            << "Where it has no field, add its name to `writtenAlong`.";
}

} // namespace

} // namespace vkr
