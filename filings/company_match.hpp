// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vkr {

// Whether a document, which has no symbol, is of the company of a record.
enum class CompanyMatch {
    same,   // by its name, apart from marks and words such as "Inc."
    unsure, // the record has no name, or the names begin alike: to be asked
    other,
};

[[nodiscard]] CompanyMatch matchCompany(std::string_view entityName, std::string_view recordName);

} // namespace vkr
