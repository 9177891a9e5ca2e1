// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "tests/qt/host_fixture.hpp"

#include <QAction>
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
    static QAction& action(CompanyWindow& window) {
        return *window.findChild<QAction*>("markOrigins");
    }
    static const FieldOrigin& origin(CompanyWindow& window, std::string_view name, int index) {
        return window.entry().component().form().get<TextBox>(name, index).origin();
    }
    // Whether the corner where the text does not begin has another colour than the field.
    static bool hasCorner(CompanyWindow& window, const char* name) {
        const QWidget& field = control(window, name);
        const QImage image = const_cast<QWidget&>(field).grab().toImage();
        return image.pixelColor(3, 3) != image.pixelColor(3, image.height() / 2);
    }
    static void settle() { QApplication::processEvents(); }
};

TEST_F(OriginMarksTest, ShowWhatWasNotTypedWhereThatIsWanted) {
    CompanyWindow& window = openImported();
    settle();
    EXPECT_FALSE(action(window).isChecked());
    EXPECT_FALSE(hasCorner(window, "txtSales(9)"));
    action(window).trigger();
    EXPECT_EQ(origin(window, "txtSales", 9).text, "Imported from AAPL-company.csv.");
    EXPECT_TRUE(origin(window, "txtSales", 9).marked);
    EXPECT_TRUE(hasCorner(window, "txtSales(9)"));
    EXPECT_EQ(control(window, "txtSales(9)").accessibleDescription(),
              "Imported from AAPL-company.csv.");
    EXPECT_TRUE(control(window, "txtSales(9)").toolTip().contains("AAPL-company.csv"));

    type(window, "txtSales(9)", "416162");
    settle();
    EXPECT_EQ(origin(window, "txtSales", 9).text, "Typed.");
    EXPECT_FALSE(hasCorner(window, "txtSales(9)"));
    action(window).trigger();
    EXPECT_EQ(control(window, "txtSales(8)").accessibleDescription(), "");
    EXPECT_FALSE(hasCorner(window, "txtSales(8)"));
}

TEST_F(OriginMarksTest, AreThereAgainInTheNextWindow) {
    CompanyWindow& window = openImported();
    action(window).trigger();
    window.discard();
    settle();
    CompanyWindow& again = open(*host_, "AAPL");
    again.entry().setCurrentTab(toYearly);
    settle();
    EXPECT_TRUE(action(again).isChecked());
    EXPECT_TRUE(hasCorner(again, "txtSales(9)"));
}

} // namespace
} // namespace vkr
