// SPDX-License-Identifier: MIT
#pragma once

#include "plausibility/finding.hpp"

#include <set>
#include <string>
#include <vector>

namespace vkr {

// The findings of one company that a person has looked at and called right, by their keys. What
// was silenced stays so until one of its figures changes, which gives the finding another key.
class SilencedFindings {
  public:
    virtual ~SilencedFindings() = default;
    virtual void silence(const Finding& finding) = 0; // may throw where it can't be kept
    virtual void speakAgain(const Finding& finding) = 0;
    [[nodiscard]] virtual bool isSilenced(const Finding& finding) const = 0;
};

// Kept as long as this lives.
class SilencedInMemory final : public SilencedFindings {
  public:
    void silence(const Finding& finding) override { keys_.insert(finding.key); }
    void speakAgain(const Finding& finding) override { keys_.erase(finding.key); }
    [[nodiscard]] bool isSilenced(const Finding& finding) const override {
        return keys_.contains(finding.key);
    }

  private:
    std::set<std::string> keys_;
};

} // namespace vkr
