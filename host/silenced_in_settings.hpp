// SPDX-License-Identifier: MIT
#pragma once

#include "plausibility/silenced_findings.hpp"

#include <QString>

#include <cstdint>

namespace vkr {

// The findings of a company that this user has called right, kept with the program's settings from
// one start to the next; other people who share the database do not see them.
class SilencedInSettings final : public SilencedFindings {
  public:
    // A company by its database, as the store names it, and its id there.
    SilencedInSettings(std::string_view database, std::int64_t company);

    void silence(const Finding& finding) override;
    void speakAgain(const Finding& finding) override;
    [[nodiscard]] bool isSilenced(const Finding& finding) const override {
        return known_.isSilenced(finding);
    }

  private:
    [[nodiscard]] QString entry(const Finding& finding) const;

    QString group_;
    SilencedInMemory known_;
};

} // namespace vkr
