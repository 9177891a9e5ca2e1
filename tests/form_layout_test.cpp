// SPDX-License-Identifier: MIT
#include "form/build_form.hpp"
#include "form/form_layout.hpp"
#include "platform/text.hpp"
#include "tests/support/company_on_form.hpp"
#include "tests/support/form_fields.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace vkr {
namespace {

struct FormLayout : test::CompanyOnFullForm {
    Form& form = scene.form();

    FormLayout() : CompanyOnFullForm(fullCompany()) { load(); }
    [[nodiscard]] const Control& control(std::string_view id) const { return desktop.control(id); }
    [[nodiscard]] int pageOf(const Control& control) const {
        const Control* outermost = &control;
        while (outermost->container() != nullptr)
            outermost = outermost->container();
        return outermost->name() == "fraDE" ? outermost->index() : -1;
    }
};

bool overlap(const Control& a, const Control& b) {
    return a.left() < b.left() + b.width() && b.left() < a.left() + a.width() &&
           a.top() < b.top() + b.height() && b.top() < a.top() + a.height();
}

TEST_F(FormLayout, EveryControlIsThere) {
    const struct {
        const char* name;
        ControlKind kind;
        int count; // 0: a single control
    } others[] = {
        {"tbsDataEntry", ControlKind::tabStrip, 0},
        {"lblYear", ControlKind::label, 11},
        {"lblQLabel", ControlKind::label, 9},
        {"hscrYearly", ControlKind::scrollBar, 0},
        {"vscrQuarterly", ControlKind::scrollBar, 0},
        {"spnQuarter", ControlKind::spinner, 0},
        {"lblDatOfLastFY", ControlKind::label, 0},
        {"lblYOption", ControlKind::label, 0},
        {"lblToolTip", ControlKind::label, 0},
        {"lblMoreHelp", ControlKind::label, 0},
        {"shaBackground", ControlKind::shape, 0},
        {"shaBorder", ControlKind::shape, 0},
        {"picToolTip", ControlKind::pictureBox, 0},
        {"chkLockInfo", ControlKind::checkBox, 0},
        {"optCurrency", ControlKind::optionButton, 3},
        {"optDisplay", ControlKind::optionButton, 2},
        {"optPTI", ControlKind::optionButton, 2},
        {"optCommEq", ControlKind::optionButton, 2},
        {"cmdColor", ControlKind::commandButton, 3},
        {"cmdAddYear", ControlKind::commandButton, 0},
        {"cmdRemoveYear", ControlKind::commandButton, 0},
        {"cmdAddQuarter", ControlKind::commandButton, 0},
        {"cmdOK", ControlKind::commandButton, 0},
        {"cmdCancel", ControlKind::commandButton, 0},
        {"cmdHelp", ControlKind::commandButton, 0},
    };
    const auto expectThere = [&](std::string_view name, ControlKind kind, int count) {
        EXPECT_EQ(form.upperBound(name), count == 0 ? -1 : count - 1) << name;
        for (int i = 0; i < std::max(count, 1); ++i) {
            const auto* found = form.find(name, count == 0 ? Control::noIndex : i);
            ASSERT_NE(found, nullptr) << name << " " << i;
            EXPECT_EQ(found->kind(), kind) << name;
        }
    };
    for (const auto& row : others)
        expectThere(row.name, row.kind, row.count);
    for (const test::FormField& field : test::formFields)
        expectThere(field.control,
                    field.kind == test::FieldContent::list ? ControlKind::comboBox
                                                           : ControlKind::textBox,
                    field.rows);
    for (const int frame : {0, 2, 3, 10, 11, 12, 13, 14})
        EXPECT_NE(form.find("fraDE", frame), nullptr) << frame;
    for (const int label : {11, 15, 18, 51, 52, 53})
        EXPECT_NE(form.find("lblLabel", label), nullptr) << label;
    for (const int label : {0, 1, 2, 3, 10})
        EXPECT_NE(form.find("lblUnit", label), nullptr) << label;
    for (const int label : {3, 6, 16})
        EXPECT_NE(form.find("lblCurrency", label), nullptr) << label;
    EXPECT_EQ(form.find("tbsDataEntry")->container(), nullptr);
    EXPECT_TRUE(form.get<TextBox>("txtNotes").multiLine());
    EXPECT_EQ(form.get<TextField>("txtLastFY").maxLength(), 4);
}

TEST_F(FormLayout, EveryPlaceIsOnTheGridOfFifteenTwips) {
    for (const auto& any : form.controls())
        for (const Twips length : {any->left(), any->top(), any->width(), any->height()})
            EXPECT_EQ(std::remainder(any->left() == Control::parkedLeft ? 0 : length, 15.0), 0)
                << any->id() << " " << length;
}

TEST_F(FormLayout, EveryControlHasASize) {
    for (const auto& any : form.controls()) {
        if (any->kind() == ControlKind::menuItem)
            continue;
        EXPECT_GT(any->width(), 0) << any->id();
        EXPECT_GT(any->height(), 0) << any->id();
    }
}

TEST_F(FormLayout, NothingOverlapsWithinItsContainer) {
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        const auto& all = form.controls();
        for (std::size_t i = 0; i < all.size(); ++i)
            for (std::size_t j = i + 1; j < all.size(); ++j) {
                const Control& a = *all[i];
                const Control& b = *all[j];
                const bool helpFrame = pageOf(a) == 0 || pageOf(b) == 0;
                if (a.container() != b.container() || !a.isShown() || !b.isShown() || helpFrame)
                    continue;
                EXPECT_FALSE(overlap(a, b)) << a.id() << " " << b.id();
            }
    }
}

TEST_F(FormLayout, NothingIsCutOffButThePannedPanels) {
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        for (const auto& any : form.controls()) {
            const Control& one = *any;
            const bool panned = one.id() == "fraDE(2)" || one.id() == "fraDE(3)";
            if (!one.isShown() || panned)
                continue;
            const Twips width =
                one.container() == nullptr ? form.width() : one.container()->width();
            const Twips height =
                one.container() == nullptr ? form.height() : one.container()->height();
            EXPECT_GE(one.left(), 0) << one.id();
            EXPECT_GE(one.top(), 0) << one.id();
            EXPECT_LE(one.left() + one.width(), width) << one.id();
            EXPECT_LE(one.top() + one.height(), height) << one.id();
        }
    }
}

TEST_F(FormLayout, ThirtyFiveQuartersFitTheirPanelAndOverlapNothing) {
    entry.put_VisibleQuarters(35);
    const auto& panel = control("fraDE(3)");
    for (const auto* name : {"lblQLabel", "txtRevenue", "txtEPS", "txtQOption", "txtNetInc"})
        for (int row = 0; row < 35; ++row) {
            const auto& cell = *form.find(name, row);
            EXPECT_LE(cell.top() + cell.height(), panel.height()) << cell.id();
            if (row > 0) {
                EXPECT_FALSE(overlap(cell, *form.find(name, row - 1))) << cell.id();
            }
        }
}

TEST_F(FormLayout, PanningShowsEveryColumnOfTheYears) {
    entry.put_CurrentTab(toYearly);
    EXPECT_TRUE(desktop.canReach("txtSales(9)"));
    desktop.scroll("hscrYearly", form.get<ScrollBar>("hscrYearly").maximum());
    const auto& panel = control("fraDE(2)");
    const auto& view = control("fraDE(1)");
    const auto& last = control("txtCSO(9)");
    EXPECT_LE(panel.left() + last.left() + last.width(), view.width());
    EXPECT_GE(panel.left() + last.left(), 0);
}

TEST_F(FormLayout, YearLabelsStandBesideTheirRows) {
    for (int row = 0; row < 11; ++row) {
        const auto& label = *form.find("lblYear", row);
        const auto& cell = *form.find("txtSales", row);
        EXPECT_GE(label.formTop(), cell.formTop()) << row;
        EXPECT_LE(label.formTop() + label.height(), cell.formTop() + cell.height()) << row;
    }
}

TEST_F(FormLayout, LabelsStandBesideOrAboveTheirFields) {
    for (const auto& row : formLayout()) {
        if (!row.labelledBy)
            continue;
        const auto& field = *row.control.find(form);
        const auto& label = row.labelledBy->in(form);
        EXPECT_EQ(label.container(), field.container()) << field.id();
        EXPECT_LE(label.left() + label.width(), field.left()) << field.id();
        const bool sameLine = label.top() < field.top() + field.height() &&
                              label.top() + label.height() > field.top();
        EXPECT_TRUE(sameLine || field.name() == "txtAddress2") << field.id();
    }
}

TEST_F(FormLayout, CaptionsFitTheirControls) {
    const Twips perCharacter = 84; // a usual letter of the design font
    for (const auto* name : {"cmdOK", "cmdCancel", "cmdHelp", "cmdAddYear", "cmdRemoveYear",
                             "cmdAddQuarter", "chkLockInfo"}) {
        const auto& button = control(name);
        EXPECT_LE(textLength(withoutMnemonic(button.caption())) * perCharacter, button.width())
            << name;
    }
}

// --- tab order -----------------------------------------------------------------------------------

// Rows are read from the top, within a row from the left; the columns of a page one after the
// other, and the grids by row or by column as they are declared.
TEST_F(FormLayout, TheTabOrderRunsAsAPersonReads) {
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        form.find("tbsDataEntry")->setFocus();
        const auto walk = desktop.tabWalk();
        std::vector<std::string> columns; // in the order in which they are met
        const Control* before = nullptr;
        for (const auto& id : walk) {
            const auto& now = control(id);
            if (pageOf(now) != 9 + tab) {
                before = nullptr;
                continue;
            }
            const bool cell = now.container()->index() == 2 || now.container()->index() == 3;
            if (before != nullptr && before->container() == now.container() && !cell) {
                const bool below = now.formTop() > before->formTop();
                const bool right = now.formLeft() > before->formLeft();
                EXPECT_TRUE(below || right) << before->id() << " -> " << id;
            } else if (before != nullptr && cell && before->container() == now.container()) {
                EXPECT_TRUE(now.formTop() > before->formTop() ||
                            now.formLeft() > before->formLeft())
                    << before->id() << " -> " << id;
            }
            before = &now;
        }
    }
}

TEST_F(FormLayout, TabReachesEveryFieldOfThePageAndTheButtonsBelow) {
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        form.find("tbsDataEntry")->setFocus();
        const auto walk = desktop.tabWalk();
        const std::set<std::string> met(walk.begin(), walk.end());
        EXPECT_EQ(walk.size(), met.size());
        for (const auto& any : form.controls()) {
            const auto* option = dynamic_cast<const OptionButton*>(any.get());
            const bool wanted = any->canTakeFocus() && (option == nullptr || option->value());
            EXPECT_EQ(met.contains(any->id()), wanted) << any->id() << " on tab " << tab;
        }
        ASSERT_GE(walk.size(), 4U);
        EXPECT_EQ(walk.back(), "cmdCancel") << tab;
    }
}

// --- names ---------------------------------------------------------------------------------------

TEST_F(FormLayout, EveryFieldHasANameToReadOut) {
    for (const auto& any : form.controls()) {
        if (!any->isFocusable() || any->kind() == ControlKind::tabStrip)
            continue;
        EXPECT_FALSE(any->accessibleName().empty() && any->caption().empty()) << any->id();
        EXPECT_NE(any->accessibleName(), "...") << any->id();
    }
    EXPECT_EQ(control("cmdColor(0)").accessibleName(), "Locked Company Data");
    EXPECT_EQ(control("txtTel").accessibleName(), "Telephone");
    EXPECT_EQ(control("txtNotes").accessibleName(), "Notes");
    EXPECT_EQ(control("txtAddress1").accessibleName(), "Address");
    EXPECT_EQ(control("txtAddress2").accessibleName(), "Address 2");
}

TEST_F(FormLayout, ACellIsNamedAfterItsColumnAndItsRow) {
    EXPECT_EQ(control("txtSales(9)").accessibleName(), "Revenue (M) 2025");
    EXPECT_EQ(control("txtYOption(0)").accessibleName(), "Pre-Tax Income (M) 2016");
    EXPECT_EQ(control("txtEPS(0)").accessibleName(), "Earnings Per Share 9/30/2026");
    entry.put_CurrentTab(toOptions);
    desktop.click("optPTI(1)");
    desktop.click("optCurrency(2)");
    EXPECT_EQ(control("txtSales(9)").accessibleName(), "Revenue (B) 2025");
    EXPECT_EQ(control("txtQOption(0)").accessibleName(), "Tax Rate (%) 9/30/2026");
    entry.put_CurrentTab(toYearly);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddYear");
    EXPECT_EQ(control("txtSales(9)").accessibleName(), "Revenue (B) 2026");
    entry.put_VisibleQuarters(12);
    EXPECT_EQ(control("txtNetInc(11)").accessibleName(), "Net Income (B) 12/31/2023");
    entry.Clear();
    EXPECT_EQ(control("txtSales(9)").accessibleName(), "Revenue (B)");
}

TEST_F(FormLayout, FieldsThatHoldFiguresAreAlignedRight) {
    for (const auto* name :
         {"txtCurrentPrice", "txt52WHigh", "txt52WLow", "txtTotalDebt", "txtTotalCap",
          "txtCommonShares", "txtPrefDiv", "txtTaxRate", "txtLastFY", "txtLast4QEPS", "txtSales(0)",
          "txtLow(10)", "txtRevenue(0)", "txtNetInc(8)"})
        EXPECT_EQ(dynamic_cast<const TextBox&>(control(name)).alignment(), Alignment::right)
            << name;
    for (const auto* name : {"txtName", "txtNotes", "txtLastUpdate", "txtZip"})
        EXPECT_EQ(dynamic_cast<const TextBox&>(control(name)).alignment(), Alignment::left) << name;
}

TEST_F(FormLayout, OnlyHeadsWithRoomForTwoLinesBreak) {
    const Twips oneLine = form.get<Label>("lblUnit", 0).height();
    for (const auto& control : form.controls())
        if (const auto* label = dynamic_cast<const Label*>(control.get());
            label != nullptr && label->height() == oneLine) {
            EXPECT_FALSE(label->wordWrap()) << label->id();
        }
    for (const auto& column : quarterlyColumns()) {
        const Label& head = column.head.in(form);
        EXPECT_EQ(head.wordWrap(), head.height() > oneLine) << head.id();
    }
}

TEST_F(FormLayout, AHeadLeadsToTheFirstCellOfItsColumn) {
    for (const auto columns : {yearlyColumns(), quarterlyColumns()})
        for (const auto& column : columns)
            EXPECT_EQ(column.head.in(form).buddy(), &column.cells[0].in(form));
}

TEST(BuiltForm, HasTheLooksThatNoPlaceTells) {
    Form form;
    buildForm(form);
    for (const auto& declared : formLayout()) {
        const int first = declared.control.index;
        for (int i = 0; i < declared.count; ++i) {
            const int index = first == Control::noIndex ? first : first + i;
            const auto* field = dynamic_cast<TextField*>(form.find(declared.control.name, index));
            if (field != nullptr) {
                EXPECT_EQ(field->maxLength(), declared.length) << field->id();
            }
        }
    }
    for (const auto& [index, control] : form.elements("fraDE")) {
        const auto& frame = dynamic_cast<Frame&>(*control);
        EXPECT_EQ(frame.border() == FrameBorder::group,
                  index >= frame::unitGroup && index <= frame::colorGroup)
            << index;
        EXPECT_EQ(frame.enabled(), index <= frame::firstPage) << index;
    }
    EXPECT_EQ(controls::quarterlyBar.in(form).orientation(), Orientation::vertical);
    EXPECT_EQ(controls::yearlyBar.in(form).orientation(), Orientation::horizontal);
    for (const int chosen : {0, 1}) {
        EXPECT_EQ(controls::unitOption[chosen].in(form).value(), chosen == 1);
        EXPECT_EQ(controls::displayOption[chosen].in(form).value(), chosen == 0);
        EXPECT_EQ(controls::incomeOption[chosen].in(form).value(), chosen == 0);
        EXPECT_EQ(controls::equityOption[chosen].in(form).value(), chosen == 0);
    }
    EXPECT_FALSE(controls::helpBorder.in(form).filled());
    EXPECT_TRUE(controls::helpBackground.in(form).filled());
    const auto& link = controls::moreHelp.in(form);
    EXPECT_TRUE(link.isLink());
    EXPECT_EQ(link.foreColor(), colors::blue);
    const Color ground = controls::helpBackground.in(form).backColor();
    EXPECT_NE(ground, form.add<Shape>("shaPlain").backColor());
    EXPECT_EQ(controls::helpPicture.in(form).backColor(), ground);
    EXPECT_EQ(controls::helpText.in(form).backColor(), ground);
    EXPECT_EQ(link.backColor(), ground);
}

TEST(BuiltForm, HeadsOfGroupsAndTheLabelOfADateLeadToFields) {
    Form form;
    buildForm(form);
    EXPECT_EQ(controls::fiscalYearDateLabel.in(form).buddy(),
              &controls::fiscalYearDateShown.in(form));
    for (const auto columns : {yearlyColumns(), quarterlyColumns()})
        for (const auto& column : columns)
            if (column.group && column.group->head.in(form).buddy() != nullptr) {
                EXPECT_EQ(column.group->head.in(form).buddy()->index(), 0);
            }
}

} // namespace
} // namespace vkr
