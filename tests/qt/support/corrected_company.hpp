// SPDX-License-Identifier: MIT
#pragma once

#include "tests/qt/host_fixture.hpp"

namespace vkr {

// A company in the files of in/, in which a person has typed another name and another revenue
// since.
class CorrectedCompanyTest : public HostTest {
  protected:
    void exportAndCorrect() {
        QDir(home_.path()).mkdir("in");
        host_->exportCompanies({idOf(*host_, "AAPL")}, home_.filePath("in"));
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtName", "Corrected Inc.");
        window.entry().setCurrentTab(toYearly);
        type(window, "txtSales(8)", "391000");
        ASSERT_TRUE(window.save());
        window.discard();
    }
    [[nodiscard]] QString companyFile() const { return home_.filePath("in/AAPL-company.csv"); }
};

} // namespace vkr
