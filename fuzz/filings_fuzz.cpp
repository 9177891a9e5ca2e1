// SPDX-License-Identifier: MIT
// Whatever stands in a document of filings, it is read as a whole or not at all, and what is
// imported from it is the same when it is compared again.
#include "company/company_record.hpp"
#include "filings/filings_review.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    const FilingsReading read = readFilings({reinterpret_cast<const char*>(data), size});
    if (read.document.has_value() != read.error.empty())
        std::abort();
    if (!read.document)
        return 0;
    const FiledCompany filed = filedFigures(*read.document);
    for (const FiledFigure& figure : filed.figures)
        if (!std::isfinite(figure.value))
            std::abort();
    const auto company = std::make_shared<CompanyRecord>();
    FilingsReview review = reviewFilings(filed, *company);
    tick(review, ReviewTicks::all);
    if (review.ticked() == 0)
        return 0;
    if (importFilings(company, review))
        return 0; // such as a name that is no text
    for (const ReviewRow& row : reviewFilings(filed, *company).rows)
        if (row.state != ReviewState::same)
            std::abort();
    return 0;
}
