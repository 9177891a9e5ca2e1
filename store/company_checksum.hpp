// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <cstdint>
#include <string_view>

namespace vkr {

// Everything that is stored of a company but its history, which has checksums of its own. What is
// absent does not count: a datum that a later version has makes no difference before it is used.
struct SealedCompany {
    std::int64_t id;
    std::int64_t revision;
    std::string_view savedBy;
    std::string_view savedAt;
    std::string_view figures;
    std::string_view origins;
    const CompanyRecord& record;
};
[[nodiscard]] std::int64_t checksumOf(const SealedCompany& company);

} // namespace vkr
