// SPDX-License-Identifier: MIT
#include "filings/filings_document.hpp"
#include "filings/json_bounds.hpp"
#include "source_folder.hpp"
#include "tests/filings/filing_texts.hpp"
#include "tests/filings/made_document.hpp"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vkr {

namespace {

std::string smallDocument() {
    return MadeDocument()
        .income("2023-01-01", "2023-12-31", "1500000", {})
        .fact("us-gaap:EarningsPerShareDiluted", "USD/shares", "2023-01-01", "2023-12-31", "1.25",
              {})
        .json();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

std::string errorOf(const std::string& json) {
    const auto reading = readFilings(json);
    EXPECT_FALSE(reading.document.has_value());
    return reading.error;
}

} // namespace

TEST(FilingsDocument, HoldsTheFactsOfTheConceptsInUse) {
    const auto reading = readFilings(MadeDocument()
                                         .income("2023-01-01", "2023-12-31", "1500000", {})
                                         .fact("us-gaap:Goodwill", "USD", "", "2023-12-31", "7", {})
                                         .json());
    ASSERT_TRUE(reading.document.has_value()) << reading.error;
    EXPECT_EQ(reading.document->cik, 1);
    EXPECT_EQ(reading.document->entityName, "Made Up Inc.");
    ASSERT_EQ(reading.document->concepts.size(), 1u);
    const FiledConcept& read = reading.document->concepts.front();
    EXPECT_EQ(read.name, "us-gaap:NetIncomeLoss");
    EXPECT_EQ(read.unit, "USD");
    ASSERT_EQ(read.facts.size(), 1u);
    EXPECT_EQ(read.facts[0].value, 1500000);
    EXPECT_EQ(read.facts[0].start, makeDate(2023, 1, 1));
    EXPECT_EQ(read.facts[0].end, makeDate(2023, 12, 31));
    EXPECT_EQ(read.facts[0].filed, makeDate(2024, 2, 20));
    EXPECT_EQ(read.facts[0].form, "10-K");
    EXPECT_EQ(read.facts[0].accession, "0000000001-24-000001");
}

TEST(FilingsDocument, TakesAByteOrderMarkAndANumberOfTheCompanyAsText) {
    const auto reading = readFilings(
        "\xef\xbb\xbf" + replaced(smallDocument(), "\"cik\":1", "\"cik\":\"0000320193\""));
    ASSERT_TRUE(reading.document.has_value()) << reading.error;
    EXPECT_EQ(reading.document->cik, 320193);
}

TEST(FilingsDocument, IsRefusedWhereverItIsCutOff) {
    const std::string whole = smallDocument();
    ASSERT_TRUE(readFilings(whole).document.has_value());
    for (std::size_t length = 0; length < whole.size(); ++length)
        ASSERT_NE(errorOf(whole.substr(0, length)), "") << length;
    EXPECT_EQ(errorOf(whole.substr(0, whole.size() / 2)),
              "The document is cut off: it ends in the middle.");
}

TEST(FilingsDocument, IsRefusedWhereItIsNone) {
    EXPECT_EQ(errorOf(""), "The document is empty.");
    EXPECT_EQ(errorOf(" \n"), "The document is empty.");
    EXPECT_NE(errorOf("symbol,name\nAAPL,Apple\n").find("no JSON"), std::string::npos);
    EXPECT_NE(errorOf(smallDocument() + "x").find("no JSON"), std::string::npos);
    EXPECT_NE(errorOf("}").find("no JSON"), std::string::npos);
    const std::string none = "This is no document of a company's filings (\"companyfacts\").";
    EXPECT_EQ(errorOf("[1,2]"), none);
    EXPECT_EQ(errorOf("{\"cik\":1,\"facts\":{}}"), none);
    EXPECT_EQ(errorOf("{\"cik\":1,\"entityName\":\"A\",\"facts\":[]}"), none);
}

TEST(FilingsDocument, IsRefusedWhereANameStandsTwice) {
    EXPECT_EQ(errorOf(replaced(smallDocument(), "\"val\":1500000", "\"val\":1500000,\"val\":2")),
              "The document has the name \"val\" twice in one place.");
    EXPECT_NE(errorOf(replaced(smallDocument(), "\"cik\":1", "\"cik\":1,\"c\\u0069k\":2")), "");
    // The slash of a unit may be escaped.
    EXPECT_TRUE(
        readFilings(replaced(smallDocument(), "USD/shares", "USD\\/shares")).document.has_value());
}

TEST(FilingsDocument, SaysWhichFactIsOfAnOddType) {
    const auto with = [](const std::string& from, const std::string& to) {
        return errorOf(replaced(smallDocument(), from, to));
    };
    const std::string place = "us-gaap:NetIncomeLoss in USD, entry 1: ";
    EXPECT_EQ(with("1500000", "\"1500000\""), place + "the value is no number.");
    EXPECT_EQ(with("1500000", "[1]"), place + "the value is no number.");
    EXPECT_EQ(with("1500000", "1e300"), place + "the value is too large.");
    EXPECT_EQ(with("1500000", "9007199254740993"), place + "the value is too large.");
    const std::string eps = "us-gaap:EarningsPerShareDiluted in USD/shares, entry 1: ";
    EXPECT_EQ(with("\"2023-12-31\"", "\"2023-13-31\""), eps + "\"end\" is no date: 2023-13-31");
    EXPECT_EQ(with("\"2023-12-31\"", "20231231"), eps + "\"end\" is no text.");
    EXPECT_EQ(with("\"10-K\"", "\"" + std::string(65, 'K') + "\""), eps + "\"form\" is too long.");
    EXPECT_EQ(with("{\"USD\":[", "{\"USD\":{},\"EUR\":["),
              "us-gaap:NetIncomeLoss in USD: not as such documents have it.");
    EXPECT_EQ(with("\"cik\":1", "\"cik\":1.5"), "The number of the company is none.");
}

TEST(FilingsDocument, LeavesOutFactsThatLackWhatIsNeededAndCountsThem) {
    for (const char* field : {"\"val\":1500000", "\"accn\":\"0000000001-24-000001\""}) {
        const std::string key = std::string(field).substr(0, std::string(field).find(':'));
        const std::string without = replaced(smallDocument(), field, key + ":null");
        const auto reading = readFilings(without);
        ASSERT_TRUE(reading.document.has_value()) << reading.error;
        EXPECT_EQ(reading.document->unusable, 1);
        EXPECT_EQ(reading.document->concepts.size(), 2u);
    }
}

TEST(FilingsDocument, IsRefusedWhereItHasBytesThatAreNoText) {
    std::string inName = smallDocument();
    inName[inName.find("Made")] = '\0';
    EXPECT_EQ(errorOf(inName), "The document holds bytes that are no text.");
    EXPECT_EQ(errorOf(std::string(100, '\0')), "The document holds bytes that are no text.");
}

TEST(FilingsDocument, IsRefusedBeforeItsSizeCostsMemory) {
    EXPECT_NE(errorOf(std::string(5'000'000, '[')).find("nested too deeply"), std::string::npos);
    std::string facts = "[";
    while (facts.size() < 8'000'000)
        facts += "{},";
    EXPECT_EQ(errorOf(facts + "0]"), "The document holds too many facts to be read.");
    EXPECT_EQ(jsonOutOfBounds("[1,2,3]", {.values = 1}),
              "The document holds too many values to be read.");
    EXPECT_EQ(jsonOutOfBounds("[1,2,3]", {.values = 2}), std::nullopt);
}

// Each name of an object that is open is kept until it is closed.
TEST(FilingsDocument, IsRefusedWhereAnObjectGoesOnAndOn) {
    std::string facts = "{\"cik\":1,\"entityName\":\"Made Up\",\"facts\":{\"us-gaap\":{";
    for (int name = 0; name < 200'000; ++name)
        facts += "\"Concept" + std::to_string(name) + "\":0,";
    const std::string tooMany =
        "The document has an object with too many names to be one of filings.";
    EXPECT_EQ(errorOf(facts), tooMany);
    EXPECT_EQ(errorOf(facts + "\"Last\":0}}}"), tooMany);
    EXPECT_EQ(jsonOutOfBounds(R"({"a":{"b":1},"c":{"d":1}})", {.names = 3}), std::nullopt);
    EXPECT_EQ(jsonOutOfBounds(R"({"a":{"b":1},"c":{"d":1}})", {.names = 2}), tooMany);
}

TEST(FilingsDocument, OfTooLargeAFileNothingIsRead) {
    const auto file = std::filesystem::temp_directory_path() / "vkr-too-large-facts.json";
    std::ofstream(file) << smallDocument();
    EXPECT_TRUE(readFilingsFile(file).document.has_value());
    std::filesystem::resize_file(file, filingsSizeLimit + 1);
    EXPECT_EQ(readFilingsFile(file).error, "The file is too large to be a document of filings.");
    std::filesystem::remove(file);
    EXPECT_NE(readFilingsFile(file).error.find("cannot be read"), std::string::npos);
}

TEST(FilingsDocument, SurvivesRandomDamage) {
    const std::string whole = textOf(VKR_SOURCE_DIR "/tests/filings/NVDA-facts.json");
    const std::string small = smallDocument();
    std::mt19937 random(20261122);
    const auto below = [&](std::size_t end) { return random() % end; };
    int taken = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string damaged = small;
        for (std::size_t change = below(3) + 1; change-- > 0;) {
            const std::size_t at = below(damaged.size());
            switch (below(3)) {
            case 0:
                damaged[at] = static_cast<char>(below(256));
                break;
            case 1:
                damaged.erase(at, below(40));
                break;
            default:
                damaged.insert(at, damaged.substr(below(damaged.size()), below(40)));
            }
        }
        const auto reading = readFilings(damaged);
        ASSERT_EQ(reading.document.has_value(), reading.error.empty()) << damaged;
        if (reading.document) {
            ++taken;
            static_cast<void>(filedFigures(*reading.document));
        }
    }
    EXPECT_GT(taken, 10); // damage within a name or a figure
    for (std::size_t i = 0; i < 20; ++i)
        ASSERT_NE(errorOf(whole.substr(0, below(whole.size()))), "");
}

} // namespace vkr
