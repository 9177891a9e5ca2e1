// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "source_folder.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vkr::test {

// A company of samples/.
inline std::shared_ptr<CompanyRecord> sample(std::string_view symbol) {
    auto read = importCompany(VKR_SOURCE_DIR "/samples", symbol);
    if (read.company == nullptr)
        throw std::runtime_error("no sample " + std::string(symbol));
    return read.company;
}

} // namespace vkr::test
