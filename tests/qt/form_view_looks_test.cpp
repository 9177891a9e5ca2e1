// SPDX-License-Identifier: MIT
#include "desktop/readable_colors.hpp"
#include "tests/qt/support/form_scene.hpp"

#include <QAbstractButton>
#include <QAccessible>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>

#include <cmath>

namespace vkr {
namespace {

class FormViewLooks : public FormScene {
  protected:
    static QColor color(const QWidget& widget, QPalette::ColorRole role,
                        QPalette::ColorGroup group = QPalette::Active) {
        return widget.palette().color(group, role);
    }
    [[nodiscard]] bool anyPixel(QWidget& widget, const QColor& wanted) {
        const QImage image = widget.grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == wanted)
                    return true;
        return false;
    }
};

TEST_F(FormViewLooks, ColoursOfFieldsAreBlueGreenRed) {
    name->setBackColor(0xFFFFC0);
    name->setForeColor(colors::blue);
    EXPECT_EQ(color(*native(*name), QPalette::Base), QColor(0xC0, 0xFF, 0xFF));
    EXPECT_EQ(color(*native(*name), QPalette::Text), QColor(0, 0, 0xFF));
    exchange->setBackColor(colors::yellow);
    EXPECT_EQ(color(*line(*exchange), QPalette::Base), QColor(0xFF, 0xFF, 0));
}

TEST_F(FormViewLooks, SystemColoursAreThoseOfTheDesktop) {
    name->setBackColor(colors::buttonFace);
    EXPECT_EQ(color(*native(*name), QPalette::Base), color(*view, QPalette::Window));
    label->setBackColor(colors::yellow);
    EXPECT_TRUE(native(*label)->autoFillBackground());
    EXPECT_EQ(color(*native(*label), QPalette::Window), QColor(0xFF, 0xFF, 0));
    EXPECT_EQ(color(*native(*label), QPalette::WindowText), QColor(Qt::black));
    label->setBackColor(colors::buttonFace);
    EXPECT_FALSE(native(*label)->autoFillBackground());
    EXPECT_EQ(color(*native(*label), QPalette::WindowText), color(*view, QPalette::WindowText));
}

TEST_F(FormViewLooks, DisabledFieldsStayReadable) {
    for (const auto back : {colors::white, colors::paleCyan, colors::yellow}) {
        name->setBackColor(back);
        name->setForeColor(colors::blue);
        EXPECT_GE(contrast(color(*native(*name), QPalette::Text, QPalette::Disabled),
                           color(*native(*name), QPalette::Base, QPalette::Disabled)),
                  3.0);
    }
}

TEST_F(FormViewLooks, AMarkIsAFrameATipAndADescription) {
    open();
    const QColor red(200, 0, 0);
    name->setToolTip("Tip");
    EXPECT_FALSE(anyPixel(*native(*name), red));
    for (TextField* field : {static_cast<TextField*>(name), static_cast<TextField*>(exchange),
                             static_cast<TextField*>(notes)}) {
        field->setMark({MarkKind::unstored, "This is no date."});
        EXPECT_TRUE(anyPixel(*native(*field), red)) << field->id();
        EXPECT_EQ(native(*field)->toolTip(), "This is no date.");
        EXPECT_EQ(native(*field)->accessibleDescription(), "This is no date.");
    }
    name->setMark({});
    EXPECT_FALSE(anyPixel(*native(*name), red));
    EXPECT_EQ(native(*name)->toolTip(), "Tip");
    EXPECT_EQ(native(*name)->accessibleDescription(), "");
}

TEST_F(FormViewLooks, ADoubtIsAnAmberFrameWithTheSameTipAndDescription) {
    open();
    name->setMark({MarkKind::doubtful, "M was left out."});
    EXPECT_TRUE(anyPixel(*native(*name), QColor(200, 115, 0)));
    EXPECT_FALSE(anyPixel(*native(*name), QColor(200, 0, 0)));
    EXPECT_EQ(native(*name)->toolTip(), "M was left out.");
    EXPECT_EQ(native(*name)->accessibleDescription(), "M was left out.");
}

TEST_F(FormViewLooks, ARemarkIsAWaveUnlessThereIsAMark) {
    open();
    const QColor violet(125, 60, 190);
    EXPECT_FALSE(anyPixel(*native(*name), violet));
    name->setRemark("Is below the low.");
    EXPECT_TRUE(anyPixel(*native(*name), violet));
    EXPECT_EQ(native(*name)->toolTip(), "Is below the low.");
    EXPECT_EQ(native(*name)->accessibleDescription(), "Is below the low.");
    name->setMark({MarkKind::doubtful, "M was left out."});
    EXPECT_FALSE(anyPixel(*native(*name), violet));
    EXPECT_EQ(native(*name)->toolTip(), "M was left out.");
    name->setMark({});
    EXPECT_TRUE(anyPixel(*native(*name), violet));
    name->setRemark("");
    EXPECT_FALSE(anyPixel(*native(*name), violet));
    EXPECT_EQ(native(*name)->toolTip(), "");
}

TEST_F(FormViewLooks, ScreenReadersHearNamesAndStates) {
    name->setAccessibleName("Company name");
    name->setMark({MarkKind::unstored, "not stored"});
    exchange->setAccessibleName("Exchange");
    open();
    struct Row {
        QWidget* widget;
        const char* name;
        QAccessible::Role role;
        bool focusable;
    };
    for (const auto& row : {Row{native(*name), "Company name", QAccessible::EditableText, true},
                            Row{native(*exchange), "Exchange", QAccessible::ComboBox, true},
                            Row{line(*exchange), "Exchange", QAccessible::EditableText, false},
                            Row{native(*ok), "OK", QAccessible::Button, true},
                            Row{native(*options[1]), "Two", QAccessible::RadioButton, true},
                            Row{native(*check), "Lock", QAccessible::CheckBox, true},
                            Row{native(*label), "Label", QAccessible::StaticText, false}}) {
        auto* heard = QAccessible::queryAccessibleInterface(row.widget);
        ASSERT_NE(heard, nullptr) << row.name;
        EXPECT_EQ(heard->text(QAccessible::Name), row.name);
        EXPECT_EQ(heard->role(), row.role) << row.name;
        EXPECT_EQ(bool(heard->state().focusable), row.focusable) << row.name;
    }
    EXPECT_EQ(QAccessible::queryAccessibleInterface(native(*name))->text(QAccessible::Description),
              "not stored");
    ok->setCaption("&Close");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(native(*ok))->text(QAccessible::Name), "Close");
    name->setAccessibleName("Firm");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(native(*name))->text(QAccessible::Name),
              "Firm");
}

TEST_F(FormViewLooks, TipsAreNeverMarkup) {
    name->setToolTip("<b>bold</b>");
    open();
    EXPECT_TRUE(native(*name)->toolTip().contains("&lt;b&gt;"));
    name->setToolTip("<i>slanted</i>");
    EXPECT_TRUE(native(*name)->toolTip().contains("&lt;i&gt;"));
}

TEST_F(FormViewLooks, MnemonicsAreNoShortcutsOfTheWidget) {
    EXPECT_TRUE(native<QAbstractButton>(*ok)->shortcut().isEmpty());
    ok->setCaption("&Other");
    EXPECT_TRUE(native<QAbstractButton>(*ok)->shortcut().isEmpty());
    EXPECT_EQ(native<QAbstractButton>(*ok)->text(), "&Other");
}

TEST_F(FormViewLooks, ALinkIsUnderlinedWithAHandAsPointer) {
    label->setLink(true);
    EXPECT_TRUE(native(*label)->font().underline());
    EXPECT_EQ(native(*label)->cursor().shape(), Qt::PointingHandCursor);
    label->setLink(false);
    EXPECT_FALSE(native(*label)->font().underline());
    EXPECT_NE(native(*label)->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(FormViewLooks, FiguresStandOnTheRight) {
    price->setAlignment(Alignment::right);
    EXPECT_TRUE(line(*price)->alignment().testFlag(Qt::AlignRight));
    EXPECT_TRUE(line(*name)->alignment().testFlag(Qt::AlignLeft));
}

TEST_F(FormViewLooks, LongTextsShowTheirBeginning) {
    open();
    name->setText(std::string(200, 'x'));
    EXPECT_EQ(line(*name)->cursorPosition(), 0);
}

TEST_F(FormViewLooks, VisibleAndEnabledFollowTheModel) {
    open();
    name->setVisible(false);
    EXPECT_FALSE(native(*name)->isVisible());
    name->setVisible(true);
    EXPECT_TRUE(native(*name)->isVisible());
    ok->setEnabled(false);
    EXPECT_FALSE(native(*ok)->isEnabled());
}

TEST_F(FormViewLooks, NeighboursStayNeighboursAtEveryScale) {
    std::vector<TextBox*> cells;
    for (int i = 0; i < 12; ++i) { // each begins where the one before ends
        auto& cell = form.add<TextBox>("txtCell", i);
        cell.move(100 + i * 305, 200 + i * 295);
        cell.resize(305, 295);
        cells.push_back(&cell);
    }
    for (const double dots : {96.0, 120.0, 144.0, 168.0, 192.0, 288.0}) {
        view->setDotsPerInch(dots);
        const double pixel = dots / 1440;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const QRect place = native(*cells[i])->geometry();
            EXPECT_NEAR(place.left(), cells[i]->left() * pixel, 0.5);
            EXPECT_NEAR(place.top(), cells[i]->top() * pixel, 0.5);
            EXPECT_NEAR(place.width(), cells[i]->width() * pixel, 1.0);
            if (i > 0) {
                const QRect previous = native(*cells[i - 1])->geometry();
                EXPECT_EQ(place.left(), previous.right() + 1) << dots;
                EXPECT_EQ(place.top(), previous.bottom() + 1) << dots;
            }
        }
        EXPECT_EQ(view->size(), QSize(static_cast<int>(std::lround(6000 * pixel)),
                                      static_cast<int>(std::lround(4500 * pixel))));
        EXPECT_EQ(native(*name)->font().pixelSize(), std::lround(11 * dots / 96));
    }
}

TEST_F(FormViewLooks, ControlsInAFrameStandWithinIt) {
    auto& page = form.add<Frame>("fraPage");
    page.move(3000, 1000);
    page.resize(2500, 2000);
    auto& inside = form.add<Label>("lblInside", Control::noIndex, &page);
    inside.move(150, 300);
    inside.resize(600, 195);
    EXPECT_EQ(native(inside)->parentWidget(), native(page));
    EXPECT_EQ(native(inside)->geometry(), QRect(10, 20, 40, 13));
    page.move(0, 0);
    EXPECT_EQ(native(inside)->mapTo(view, QPoint(0, 0)), QPoint(10, 20));
}

TEST_F(FormViewLooks, WhatIsBroughtToTheFrontCoversTheOthers) {
    auto& cover = form.add<Frame>("fraHelp");
    cover.move(name->left(), name->top());
    cover.resize(name->width(), name->height());
    open();
    EXPECT_EQ(view->childAt(native(*name)->geometry().center()), native(cover));
    name->bringToFront();
    EXPECT_EQ(view->childAt(native(*name)->geometry().center()), native(*name));
    cover.bringToFront();
    EXPECT_EQ(view->childAt(native(*name)->geometry().center()), native(cover));
}

TEST_F(FormViewLooks, ANarrowPlaceDoesNotCutItsCaption) {
    auto& narrow = form.add<Label>("lblNarrow");
    auto& wide = form.add<Label>("lblWide");
    narrow.setCaption("MMMMMMM|");
    wide.setCaption("MMMMMMM ");
    open();
    for (const double part : {0.85, 0.6}) {
        const int needed = native(narrow)->fontMetrics().horizontalAdvance("MMMMMMM|");
        for (Label* made : {&narrow, &wide})
            made->resize(PixelScale(96).twips(needed * part), 195);
        // The bar at the end makes the difference, so it is there.
        EXPECT_NE(native(narrow)->grab().toImage(), native(wide)->grab().toImage()) << part;
    }
}

TEST_F(FormViewLooks, WhereTheKeyboardIsCanBeSeenOnEveryControl) {
    open();
    enter(*notes);
    for (Control* control : {static_cast<Control*>(ok), static_cast<Control*>(options[0]),
                             static_cast<Control*>(check), static_cast<Control*>(strip)}) {
        ASSERT_NE(form.activeControl(), control);
        const QImage without = native(*control)->grab().toImage();
        for (int tabs = 0; form.activeControl() != control && tabs < 20; ++tabs)
            press(Qt::Key_Tab);
        ASSERT_EQ(form.activeControl(), control);
        EXPECT_NE(native(*control)->grab().toImage(), without) << control->id();
    }
}

TEST_F(FormViewLooks, TheBorderOfTheFormIsDrawn) {
    open();
    const auto corner = [this] { return view->grab().toImage().pixelColor(0, 0); };
    const QColor plain = corner();
    form.setBorderStyle(BorderStyle::fixedSingle);
    EXPECT_NE(corner(), plain);
}

TEST_F(FormViewLooks, ShapesAreFilledOrAnOutline) {
    auto& shape = form.add<Shape>("shaBox");
    shape.move(3000, 1000);
    shape.resize(600, 600);
    shape.setBackColor(colors::yellow);
    open();
    const auto pixel = [&](int x, int y) {
        return native(shape)->grab().toImage().pixelColor(x, y);
    };
    EXPECT_EQ(pixel(20, 20), QColor(Qt::yellow));
    shape.setFilled(false);
    EXPECT_EQ(pixel(0, 0), QColor(Qt::black));
    EXPECT_NE(pixel(20, 20), QColor(Qt::yellow));
}

} // namespace
} // namespace vkr
