// SPDX-License-Identifier: MIT
#include "sheet/company_notes.hpp"

#include "sheet/finding_notes.hpp"
#include "sheet/origin_notes.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

SheetCompany sheetOf(std::shared_ptr<const CompanyRecord> company, const FigureOrigins& origins,
                     const std::function<bool(const Finding&)>& isSilenced, Date today) {
    std::vector<SheetNote> notes = findingNotes(*company, isSilenced, today);
    std::ranges::move(originNotes(*company, origins), std::back_inserter(notes));
    return {std::move(company), std::move(notes)};
}

} // namespace vkr
