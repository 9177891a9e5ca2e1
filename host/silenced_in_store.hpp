// SPDX-License-Identifier: MIT
#pragma once

#include "host/shown_company.hpp"
#include "plausibility/silenced_findings.hpp"
#include "store/company_store.hpp"

#include <cstdint>
#include <vector>

namespace vkr {

// The findings of a stored company that somebody has called right, kept beside it for everybody
// who uses the database, with who and when. What others say meanwhile counts when the company is
// loaded again.
class SilencedInStore final : public SilencedFindings {
  public:
    // What was called right is that of the company as it was loaded; `shown` is the company as
    // it is looked at.
    SilencedInStore(CompanyStore& store, std::int64_t company,
                    const std::vector<FindingVerdict>& calledRight, const ShownCompany& shown);

    // Throw what the store says where it can't be kept.
    void silence(const Finding& finding) override;
    void speakAgain(const Finding& finding) override;
    [[nodiscard]] bool isSilenced(const Finding& finding) const override {
        return known_.isSilenced(finding);
    }

  private:
    enum class Verdict { right, withdrawn };
    void judge(const Finding& finding, Verdict verdict);

    CompanyStore& store_;
    const std::int64_t company_;
    const ShownCompany& shown_;
    SilencedInMemory known_;
};

} // namespace vkr
