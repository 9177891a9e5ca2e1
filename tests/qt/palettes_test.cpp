// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/readable_colors.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "form/form_layout.hpp"
#include "platform/text.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/qt/support/drawn_texts.hpp"
#include "tests/support/entry_scene.hpp"
#include "tools/themes.hpp"

#include <QCalendarWidget>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTableView>
#include <QTextCharFormat>

#include <algorithm>

namespace vkr {
namespace {

// The component in a window of a theme, with a full company.
class Palettes : public testing::TestWithParam<const Theme*> {
  protected:
    Palettes() : before_(QApplication::palette()) {
        QApplication::setPalette(paletteOf(*GetParam()));
        entry = std::make_unique<VKRDataEntryWidget>();
        entry->setShowVLs(true);
        entry->setShowReportingPeriod(true);
        entry->setCompany(fullCompany());
        entry->show();
        entry->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(entry.get()));
    }
    ~Palettes() override {
        entry.reset();
        QApplication::setPalette(before_);
    }

    [[nodiscard]] Form& form() const { return entry->component().form(); }
    [[nodiscard]] QWidget& native(const Control& control) const {
        return *entry->formView().widgetOf(control);
    }
    [[nodiscard]] QWidget& native(std::string_view name, int index = Control::noIndex) const {
        return native(*form().find(name, index));
    }
    [[nodiscard]] QRect placeOf(const QWidget& widget, const QRect& part) const {
        return {widget.mapTo(entry.get(), part.topLeft()), part.size()};
    }

    // Where in its widget a control has its text; nothing for one that shows none.
    [[nodiscard]] std::vector<QRect> texts(const Control& control) const {
        QWidget& widget = native(control);
        const QRect whole = widget.rect();
        const auto* field = dynamic_cast<const TextField*>(&control);
        if (field != nullptr && field->text().empty())
            return {};
        const auto caption = toQt(withoutMnemonic(control.hasCaption() ? control.caption() : ""));
        switch (control.kind()) {
        case ControlKind::textBox:
            return {whole.adjusted(4, 4, -4, -4)};
        case ControlKind::comboBox:
            return {whole.adjusted(4, 4, -whole.height(), -4)};
        case ControlKind::tabStrip: {
            const auto& bar = dynamic_cast<const QTabBar&>(widget);
            std::vector<QRect> tabs;
            for (int tab = 0; tab < bar.count(); ++tab)
                tabs.push_back(bar.tabRect(tab).adjusted(6, 5, -6, -5));
            return tabs;
        }
        case ControlKind::frame: {
            if (dynamic_cast<const Frame&>(control).border() != FrameBorder::group)
                return {};
            const QSize size = widget.fontMetrics().size(Qt::TextSingleLine, caption);
            return {QRect(QPoint(2, 1), size - QSize(2, 2))};
        }
        case ControlKind::label:
            return caption.trimmed().isEmpty() ? std::vector<QRect>() : std::vector{whole};
        case ControlKind::commandButton:
            return {whole.adjusted(6, 4, -6, -4)};
        case ControlKind::optionButton:
        case ControlKind::checkBox: {
            QStyleOptionButton option;
            option.initFrom(&widget);
            return {widget.style()->subElementRect(control.kind() == ControlKind::checkBox
                                                       ? QStyle::SE_CheckBoxContents
                                                       : QStyle::SE_RadioButtonContents,
                                                   &option, &widget)};
        }
        default:
            return {};
        }
    }

    // Everything on show that carries a text can be read.
    int expectReadable(const std::string& when) {
        int read = 0;
        const QImage image = drawn(*entry);
        for (const auto& control : form().controls()) {
            if (control->kind() == ControlKind::menuItem || !native(*control).isVisible())
                continue;
            const double least = native(*control).isEnabled() ? textContrast : signContrast;
            for (const QRect& text : texts(*control)) {
                if (!native(*control).visibleRegion().contains(text.center()))
                    continue; // the yearly panel is wider than its view
                const Seen seen = look(image, placeOf(native(*control), text));
                EXPECT_GE(seen.contrast, least)
                    << when << ": " << control->id() << " on " << seen.ground.name().toStdString();
                ++read;
            }
        }
        return read;
    }
    [[nodiscard]] Seen seen(std::string_view name, int index = Control::noIndex) const {
        QWidget& widget = native(name, index);
        return look(drawn(*entry), placeOf(widget, widget.rect().adjusted(4, 4, -4, -4)));
    }

    std::unique_ptr<VKRDataEntryWidget> entry;

  private:
    QPalette before_;
};

const QColor shades[] = {QColor(0xC0, 0xFF, 0xFF), // the start value
                         Qt::white,
                         QColor(0, 0, 128),
                         Qt::black,
                         QColor(128, 128, 128),
                         QColor(200, 30, 30)};

TEST_P(Palettes, EveryTextOnTheFiveTabsIsReadableOnAnyShade) {
    for (const QColor& shade : shades) {
        entry->setShadeColorLocked(shade);
        entry->setShadeColorYear(shade);
        entry->setShadeColorQuarter(shade);
        for (int tab = toCompany; tab <= toOptions; ++tab) {
            const bool hasShades = tab == toYearly || tab == toQuarterly;
            if (!hasShades && shade != shades[0])
                continue; // looks as it did
            entry->setCurrentTab(tab);
            EXPECT_GT(expectReadable(shade.name().toStdString() + " on tab " + std::to_string(tab)),
                      20);
        }
    }
}

TEST_P(Palettes, TheLabelsOfLockedDataAreReadableOnAnyShade) {
    form().get<CheckBox>("chkLockInfo").setFocus();
    QTest::keyClick(&native("chkLockInfo"), Qt::Key_Space);
    for (const QColor& shade : shades) {
        entry->setShadeColorLocked(shade);
        EXPECT_EQ(seen("lblLabel", 0).ground, shade);
        expectReadable("locked, " + shade.name().toStdString());
    }
}

TEST_P(Palettes, ColoursAreShownAsTheyWereChosen) {
    for (const QColor& shade : shades) {
        entry->setShadeColorYear(shade);
        entry->setShadeColorQuarter(shade);
        entry->setCurrentTab(toYearly);
        EXPECT_EQ(seen("txtYEPS", 5).ground, shade);
        if (shade != QColor(Qt::white)) { // no shade, and no legend
            EXPECT_EQ(seen("lblLegend").ground, shade);
        }
        entry->setCurrentTab(toOptions);
        EXPECT_EQ(seen("lblSample", 1).ground, shade);
        EXPECT_EQ(seen("lblSample", 2).ground, shade);
    }
}

TEST_P(Palettes, TheLegendAndTheSamplesCanBeToldFromThePage) {
    const QColor page = GetParam()->window;
    entry->setShadeColorYear(page);
    for (const int tab : {toYearly, toOptions}) {
        entry->setCurrentTab(tab);
        QWidget& patch = tab == toYearly ? native("lblLegend") : native("lblSample", 1);
        EXPECT_GE(look(drawn(*entry), placeOf(patch, patch.rect())).contrast, signContrast)
            << "an edge shows where it is";
    }
}

TEST_P(Palettes, AMarkIsSeenOnAnyShade) {
    entry->setCurrentTab(toYearly);
    auto& cell = form().get<TextBox>("txtYEPS", 5);
    for (const QColor& shade : shades)
        for (const auto kind : {MarkKind::unstored, MarkKind::doubtful}) {
            entry->setShadeColorYear(shade);
            cell.setMark({kind, "Look at this."});
            QWidget& widget = native(cell);
            const QImage image = drawn(*entry);
            const QRect place = placeOf(widget, widget.rect());
            // The frame is two wide, between the edge of the field and its text.
            const QPoint onFrame(place.left() + place.width() / 2, place.top() + 1);
            const QColor frame(image.pixel(enlarged({onFrame, QSize(1, 1)}, image).center()));
            EXPECT_GE(contrast(frame, shade), signContrast) << shade.name().toStdString();
            EXPECT_GT(frame.red(), frame.blue()) << "and is of a warm colour";
            cell.setMark({});
        }
}

TEST_P(Palettes, TheHelpFrameIsReadable) {
    DialogAnswers answers;
    answers.nextEntry("What's This?");
    QTest::mouseClick(&native("txtDilutedShares"), Qt::RightButton);
    ASSERT_TRUE(native("fraDE", frame::help).isVisible());
    for (const char* label : {"lblToolTip", "lblMoreHelp"})
        EXPECT_GE(seen(label).contrast, textContrast) << label;
}

TEST_P(Palettes, EveryDayOfTheCalendarIsReadable) {
    DialogAnswers answers;
    int days = 0;
    answers.next([&](QWidget& dialog) {
        auto* calendar = dialog.findChild<QCalendarWidget*>();
        auto* table = calendar->findChild<QTableView*>();
        const QImage image = drawn(*table->viewport());
        for (int row = 0; row < table->model()->rowCount(); ++row)
            for (int column = 0; column < table->model()->columnCount(); ++column) {
                const auto index = table->model()->index(row, column);
                const QRect place = table->visualRect(index).adjusted(2, 2, -2, -2);
                if (place.isEmpty())
                    continue;
                // Days of the months beside are fainter.
                EXPECT_GE(look(image, place).contrast, signContrast) << row << ' ' << column;
                days += look(image, place).contrast >= textContrast ? 1 : 0;
            }
        dialog.close();
    });
    QTest::mouseDClick(&native("txtLastUpdate"), Qt::LeftButton);
    EXPECT_GE(days, 7 + 28);
}

TEST_P(Palettes, AnotherThemeIsFollowedWhileTheCalendarIsOpen) {
    DialogAnswers answers;
    answers.next([&](QWidget& dialog) {
        const auto* calendar = dialog.findChild<QCalendarWidget*>();
        for (const Theme* theme : {&dark, &light, &dark}) {
            QApplication::setPalette(paletteOf(*theme));
            QApplication::processEvents();
            const QColor weekend = calendar->weekdayTextFormat(Qt::Sunday).foreground().color();
            EXPECT_GE(contrast(weekend, theme->base), textContrast) << theme->name;
        }
        dialog.close();
    });
    QTest::mouseDClick(&native("txtLastUpdate"), Qt::LeftButton);
}

TEST_P(Palettes, AnotherThemeIsFollowedWhileTheFormIsShown) {
    QApplication::setPalette(paletteOf(GetParam() == &light ? dark : light));
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry->setCurrentTab(tab);
        expectReadable("after the change, tab " + std::to_string(tab));
    }
}

INSTANTIATE_TEST_SUITE_P(Themes, Palettes, testing::Values(&light, &dark),
                         [](const auto& made) { return std::string(made.param->name); });

} // namespace
} // namespace vkr
