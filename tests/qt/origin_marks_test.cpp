// SPDX-License-Identifier: MIT
#include "tests/qt/host_fixture.hpp"

#include <QImage>

namespace vkr {
namespace {

class OriginMarksTest : public HostTest {
  protected:
    CompanyWindow& openImported() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toYearly);
        return window;
    }
    static const FieldOrigin& origin(CompanyWindow& window, std::string_view name, int index) {
        return window.entry().component().form().get<TextBox>(name, index).origin();
    }
    // Whether the corner where the text does not begin has another colour than the field.
    static bool hasCorner(CompanyWindow& window, const char* name) {
        const QImage image = control(window, name).grab().toImage();
        return image.pixelColor(3, 3) != image.pixelColor(3, image.height() / 2);
    }
};

TEST_F(OriginMarksTest, ShowWhatWasNotTypedWhereThatIsWanted) {
    CompanyWindow& window = openImported();
    settle();
    EXPECT_FALSE(action(window, "markOrigins").isChecked());
    EXPECT_FALSE(hasCorner(window, "txtSales(9)"));
    action(window, "markOrigins").trigger();
    EXPECT_EQ(origin(window, "txtSales", 9).text, "Imported from AAPL-yearly.csv.");
    EXPECT_TRUE(origin(window, "txtSales", 9).marked);
    EXPECT_TRUE(hasCorner(window, "txtSales(9)"));
    EXPECT_EQ(control(window, "txtSales(9)").accessibleDescription(),
              "Imported from AAPL-yearly.csv.");
    EXPECT_TRUE(control(window, "txtSales(9)").toolTip().contains("AAPL-yearly.csv"));

    type(window, "txtSales(9)", "416162");
    settle();
    EXPECT_EQ(origin(window, "txtSales", 9).text, "Typed.");
    EXPECT_FALSE(hasCorner(window, "txtSales(9)"));
    action(window, "markOrigins").trigger();
    EXPECT_EQ(control(window, "txtSales(8)").accessibleDescription(), "");
    EXPECT_FALSE(hasCorner(window, "txtSales(8)"));
}

TEST_F(OriginMarksTest, AreThereAgainInTheNextWindow) {
    CompanyWindow& window = openImported();
    action(window, "markOrigins").trigger();
    window.discard();
    settle();
    CompanyWindow& again = open(*host_, "AAPL");
    again.entry().setCurrentTab(toYearly);
    settle();
    EXPECT_TRUE(action(again, "markOrigins").isChecked());
    EXPECT_TRUE(hasCorner(again, "txtSales(9)"));
}

} // namespace
} // namespace vkr
