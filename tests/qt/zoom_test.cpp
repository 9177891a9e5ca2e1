// SPDX-License-Identifier: MIT
#include "tests/qt/support/entry_window.hpp"
#include "tests/qt/support/wheel.hpp"
#include "tests/support/entry_scene.hpp"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QStyle>

#include <map>

namespace vkr {
namespace {

class Zoom : public EntryWindow {
  protected:
    void SetUp() override { open(fullCompany()); }

    // Places and letters of all that is on show.
    [[nodiscard]] std::map<QString, std::pair<QRect, int>> geometry() const {
        std::map<QString, std::pair<QRect, int>> places;
        for (const auto& control : form().controls())
            if (control->isShown())
                if (const QWidget* widget = widgetOf(*control))
                    places[widget->objectName()] = {widget->geometry(), widget->font().pixelSize()};
        return places;
    }
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
                const QWidget* widget = widgetOf(*control);
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
    EXPECT_EQ(cell->font().stretch(), entry->formView().font().stretch());
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
    EXPECT_TRUE(turnWheel(*list, -120, Qt::ControlModifier));
    EXPECT_TRUE(turnWheel(*native("txtName"), 120, Qt::ControlModifier));
    EXPECT_EQ(list->currentText(), before);
    ASSERT_EQ(asked.count(), 2);
    EXPECT_EQ(asked.at(0).first().toInt(), 90);
    EXPECT_EQ(asked.at(1).first().toInt(), 110);
    entry->setZoom(109);
    turnWheel(*list, -120, Qt::ControlModifier);
    EXPECT_EQ(asked.last().first().toInt(), 100);
}

TEST_F(Zoom, WithoutRoomToFitTheWheelWithCtrlIsAnyTurn) {
    QSignalSpy asked(entry, &VKRDataEntryWidget::zoomRequested);
    EXPECT_FALSE(turnWheel(*native("txtName"), -120, Qt::ControlModifier));
    EXPECT_EQ(asked.count(), 0);
}

} // namespace
} // namespace vkr
