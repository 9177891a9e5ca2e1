// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"
#include "company/company_record.hpp"
#include "record/actions.hpp"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace vkr {
namespace {

class ListeningRecord final : public CompanyBase, public ActionListener {
  public:
    void beginAction(const Action& action) override {
        if (refuses)
            throw std::runtime_error("not now");
        heard.push_back("begin " + action.name);
    }
    void endAction() noexcept override { heard.emplace_back("end"); }

    std::vector<std::string> heard;
    bool refuses = false;
};

TEST(Actions, AreToldToARecordThatListens) {
    const auto record = std::make_shared<ListeningRecord>();
    {
        const ActionScope paste(record, {Origin::pasted, "Paste", {}});
        const ActionScope sum(record, {Origin::derived, "Sum", {}});
    }
    EXPECT_EQ(record->heard, (std::vector<std::string>{"begin Paste", "begin Sum", "end", "end"}));
}

TEST(Actions, MeanNothingToARecordThatDoesNot) {
    const ActionScope paste(std::make_shared<CompanyRecord>(), {Origin::pasted, "Paste", {}});
    const ActionScope none(nullptr, {Origin::pasted, "Paste", {}});
}

TEST(Actions, ThatDidNotBeginDoNotEnd) {
    const auto record = std::make_shared<ListeningRecord>();
    record->refuses = true;
    { const ActionScope paste(record, {Origin::pasted, "Paste", {}}); }
    EXPECT_TRUE(record->heard.empty());
}

} // namespace
} // namespace vkr
