// SPDX-License-Identifier: MIT
#include "tests/filings/filing_texts.hpp"

#include "source_folder.hpp"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vkr {

std::string textOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error(file + " cannot be read");
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

FilingsDocument documentOf(const std::string& symbol) {
    // The whole documents may be had elsewhere; the tests hold for them as well.
    const char* whole = std::getenv("VKR_FILINGS");
    const std::string file = whole != nullptr
                                 ? std::string(whole) + "/" + symbol + ".json"
                                 : VKR_SOURCE_DIR "/tests/filings/" + symbol + "-facts.json";
    auto reading = readFilingsFile(file);
    if (!reading.document)
        throw std::runtime_error(file + ": " + reading.error);
    return std::move(*reading.document);
}

FiledCompany companyOf(const std::string& symbol) {
    return filedFigures(documentOf(symbol));
}

} // namespace vkr
