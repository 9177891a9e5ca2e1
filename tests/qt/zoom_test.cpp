// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/support/entry_scene.hpp"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <map>

namespace vkr {
namespace {

class Zoom : public testing::Test {
  protected:
    Zoom() : entry(new VKRDataEntryWidget(&window)) {
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins({});
        column->addWidget(entry);
        entry->setCompany(fullCompany());
        window.show();
    }
    template <typename Widget = QLineEdit>
    [[nodiscard]] Widget* native(std::string_view id, int index = Control::noIndex) const {
        const auto* control = form().find(id, index);
        return control == nullptr ? nullptr
                                  : dynamic_cast<Widget*>(entry->formView().widgetOf(*control));
    }
    [[nodiscard]] Form& form() const { return entry->component().form(); }
    // Places and letters of all that is on show.
    [[nodiscard]] std::map<QString, std::pair<QRect, int>> geometry() const {
        std::map<QString, std::pair<QRect, int>> places;
        for (const auto& control : form().controls())
            if (control->isShown())
                if (const QWidget* widget = entry->formView().widgetOf(*control))
                    places[widget->objectName()] = {widget->geometry(), widget->font().pixelSize()};
        return places;
    }
    static bool turn(QWidget& widget, Qt::KeyboardModifiers modifiers, int steps) {
        const QPointF place = widget.rect().center();
        QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120 * steps}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    }

    QWidget window;
    VKRDataEntryWidget* entry;
};

TEST_F(Zoom, ScalesPlacesAndLettersAlike) {
    const QSize whole = entry->sizeHint();
    QSignalSpy told(entry, &VKRDataEntryWidget::zoomChanged);
    entry->setZoom(200);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(entry->sizeHint(), whole * 2);
    EXPECT_EQ(native("txtName")->font().pixelSize(), 22);
    entry->setZoom(1000);
    EXPECT_EQ(entry->zoom(), VKRDataEntryWidget::largestZoom);
    entry->setZoom(1);
    EXPECT_EQ(entry->zoom(), VKRDataEntryWidget::smallestZoom);
}

TEST_F(Zoom, ToAndFroEndsWhereItBegan) {
    entry->setCurrentTab(toYearly);
    const auto before = geometry();
    ASSERT_GT(before.size(), 100U);
    for (const int zoom : {300, 80, 137, 251, 93, 211, 100})
        entry->setZoom(zoom);
    EXPECT_EQ(geometry(), before);
}

TEST_F(Zoom, ReachesPagesThatComeOnShowLater) {
    entry->setZoom(200);
    entry->setCurrentTab(toYearly);
    EXPECT_EQ(native("txtSales", 9)->font().pixelSize(), 22);
    entry->setZoom(100);
    entry->setCurrentTab(toCompany);
    entry->setZoom(150);
    entry->setCurrentTab(toYearly);
    const auto zoomed = geometry();
    entry->setZoom(80);
    entry->setZoom(150);
    EXPECT_EQ(geometry(), zoomed);
}

TEST_F(Zoom, CutsNoCaptionOff) {
    constexpr double unevenness = 1.06; // letters are whole pixels
    constexpr double narrowest = 0.55;  // what a label is condensed to at most
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry->setCurrentTab(tab);
        std::map<const QWidget*, double> own; // part of the width that the caption takes at 100 %
        const auto parts = [&](auto&& visit) {
            for (const auto& control : form().controls()) {
                if (!control->isShown() || !control->hasCaption() || control->caption().empty())
                    continue;
                const QWidget* widget = entry->formView().widgetOf(*control);
                const auto* label = dynamic_cast<const QLabel*>(widget);
                if (widget == nullptr || widget->width() == 0 ||
                    (label != nullptr && label->wordWrap()))
                    continue;
                const QString caption = label != nullptr ? label->text() : QString();
                const auto* button = dynamic_cast<const QAbstractButton*>(widget);
                const QString text = button != nullptr ? button->text() : caption;
                visit(*widget,
                      1.0 * widget->fontMetrics().horizontalAdvance(text) / widget->width());
            }
        };
        entry->setZoom(100);
        parts([&](const QWidget& widget, double part) { own[&widget] = part; });
        ASSERT_FALSE(own.empty()) << tab;
        for (int zoom = 80; zoom <= 300; ++zoom) {
            entry->setZoom(zoom);
            parts([&](const QWidget& widget, double part) {
                EXPECT_LE(part, std::max(1 / narrowest, 1.0)) << zoom;
                EXPECT_LE(part, std::max(1.0, own[&widget] * unevenness))
                    << widget.objectName().toStdString() << " at " << zoom;
            });
        }
    }
}

TEST_F(Zoom, ScalesTheMarksOfOptionsAndCheckBoxes) {
    entry->setCurrentTab(toOptions);
    const auto mark = [&] {
    EXPECT_EQ(cell->font().stretch(), entry->formView().font().stretch());
        const auto* option = native<QWidget>("optCurrency", 0);
        return option->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, option);
    };
    const int own = mark();
    entry->setZoom(200);
    EXPECT_EQ(mark(), 2 * own);
    entry->setZoom(100);
    EXPECT_EQ(mark(), own);
}

TEST_F(Zoom, KeepsWhatIsBeingTyped) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* field = native("txtName");
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClicks(QApplication::focusWidget(), "Acme");
    field->setSelection(1, 2);
    entry->setZoom(180);
    EXPECT_EQ(field->text(), "Acme");
    EXPECT_EQ(field->selectedText(), "cm");
    EXPECT_EQ(QApplication::focusWidget(), field);
}

TEST_F(Zoom, AFigureThatWasCondensedIsNoLongerWhereThereIsRoom) {
    entry->setCurrentTab(toYearly);
    auto* cell = native("txtSales", 9);
    auto& figure = form().get<TextField>("txtSales", 9);
    figure.setText("123456789012.34");
    EXPECT_GT(cell->font().stretch(), 0);
    EXPECT_LT(cell->font().stretch(), 100);
    figure.setText("1.00");
    entry->setZoom(200);
    EXPECT_EQ(cell->font().pixelSize(), 22);
}

TEST_F(Zoom, FillsTheRoomItIsGiven) {
    entry->setZoomsToFit(true);
    const QSize whole = entry->sizeHint();
    window.resize(whole * 2);
    QApplication::sendPostedEvents();
    EXPECT_EQ(entry->zoom(), 200);
    window.resize(whole.width() * 2, whole.height());
    QApplication::sendPostedEvents();
    EXPECT_EQ(entry->zoom(), 100);
    EXPECT_EQ(entry->formView().x(), (entry->width() - entry->formView().width()) / 2);
    window.resize(1, 1);
    QApplication::sendPostedEvents();
    EXPECT_EQ(entry->zoom(), VKRDataEntryWidget::smallestZoom);
    for (int zoom = 80; zoom <= 300; zoom += 7) {
        entry->setZoom(zoom);
        window.resize(entry->sizeHint());
        QApplication::sendPostedEvents();
        EXPECT_EQ(entry->zoom(), zoom);
    }
}

TEST_F(Zoom, TheWheelWithCtrlAsksForAnotherSizeAndChangesNoValue) {
    entry->setZoomsToFit(true);
    entry->setExchanges({"NYSE", "NASDAQ"});
    QSignalSpy asked(entry, &VKRDataEntryWidget::zoomRequested);
    auto* list = native<QComboBox>("cmbExchange");
    const QString before = list->currentText();
    QTest::mouseClick(list->lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(turn(*list, Qt::ControlModifier, 1));
    EXPECT_TRUE(turn(*native("txtName"), Qt::ControlModifier, -1));
    EXPECT_EQ(list->currentText(), before);
    ASSERT_EQ(asked.count(), 2);
    EXPECT_EQ(asked.at(0).first().toInt(), 90);
    EXPECT_EQ(asked.at(1).first().toInt(), 110);
    entry->setZoom(109);
    turn(*list, Qt::ControlModifier, 1);
    EXPECT_EQ(asked.last().first().toInt(), 100);
}

TEST_F(Zoom, WithoutRoomToFitTheWheelWithCtrlIsAnyTurn) {
    QSignalSpy asked(entry, &VKRDataEntryWidget::zoomRequested);
    EXPECT_FALSE(turn(*native("txtName"), Qt::ControlModifier, 1));
    EXPECT_EQ(asked.count(), 0);
}

// --- the host ------------------------------------------------------------------------------------

TEST_F(HostTest, KeysZoomTheFormAndItsWindowAndTheSizeIsKept) {
    CompanyWindow& window = open(*host_, "AAPL");
    const QSize border = window.size() - window.entry().size();
    user_.press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(window.entry().zoom(), 100);
    user_.press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(window.entry().zoom(), 110);
    QApplication::processEvents();
    EXPECT_EQ(window.entry().zoom(), 110);
    EXPECT_EQ(window.size() - window.entry().sizeHint(), border);
    user_.press(Qt::Key_Minus, Qt::ControlModifier);
    user_.press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(window.entry().zoom(), 90);
    EXPECT_EQ(open(*host_, "NVDA").entry().zoom(), 90);
}

TEST_F(HostTest, DigitsAreGroupedOnRequest) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    const auto& cell =
        static_cast<const TextField&>(*window.entry().component().form().find("txtSales", 9));
    const std::string plain = cell.text();
    EXPECT_EQ(plain.find(','), std::string::npos);
    window.findChild<QAction*>("groupDigits")->trigger();
    EXPECT_NE(cell.text().find(','), std::string::npos);
    EXPECT_FALSE(window.isWindowModified());
    const auto& other = static_cast<const TextField&>(
        *open(*host_, "NVDA").entry().component().form().find("txtSales", 9));
    EXPECT_NE(other.text().find(','), std::string::npos);
    window.findChild<QAction*>("groupDigits")->trigger();
    EXPECT_EQ(cell.text(), plain);
}

TEST_F(HostTest, CtrlReturnSavesAndClosesAsTheMenuSays) {
    CompanyWindow& window = open(*host_, "AAPL");
    EXPECT_EQ(window.findChild<QAction*>("saveAndClose")->shortcut().toString(), "Ctrl+Return");
    type(window, "txtName", "Zebra Inc.", false);
    user_.press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
}

TEST_F(HostTest, DropDownFieldsOfferWhatGoesOnAsItWasTyped) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setExchanges({"NYSE", "NASDAQ", "Tokyo"});
    auto& list = dynamic_cast<QComboBox&>(control(window, "cmbExchange"));
    type(window, "cmbExchange", "tok", false);
    auto* offered = list.findChild<QCompleter*>();
    ASSERT_NE(offered, nullptr);
    EXPECT_EQ(offered->completionCount(), 1);
    EXPECT_TRUE(offered->popup()->isVisible());
    user_.press(Qt::Key_Down);
    user_.press(Qt::Key_Return);
    EXPECT_EQ(list.currentText(), "Tokyo");
    user_.press(Qt::Key_Tab);
    EXPECT_EQ(window.record()->get_Exchange(), "Tokyo");
}

} // namespace
} // namespace vkr
