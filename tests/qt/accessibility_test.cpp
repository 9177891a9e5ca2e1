// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "form/form_layout.hpp"
#include "platform/number_text.hpp"
#include "platform/object_factory.hpp"
#include "platform/text.hpp"
#include "tests/support/entry_scene.hpp"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vkr {
namespace {

// The component in a host's window, as other programs see it.
struct Heard {
    explicit Heard(const ObjectFactory* objects = nullptr)
        : before(new QLineEdit(&window)),
          entry(objects == nullptr ? new VKRDataEntryWidget(&window)
                                   : new VKRDataEntryWidget(*objects, &window)),
          after(new QLineEdit(&window)) {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(before);
        column->addWidget(entry);
        column->addWidget(after);
        entry->setShowVLs(true);
        entry->setShowReportingPeriod(true);
        entry->setCompany(fullCompany());
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] Form& form() const { return entry->component().form(); }
    [[nodiscard]] QWidget* widgetOf(const Control& control) const {
        return entry->formView().widgetOf(control);
    }
    [[nodiscard]] QAccessibleInterface& of(const Control& control) const {
        return *QAccessible::queryAccessibleInterface(widgetOf(control));
    }
    [[nodiscard]] QAccessibleInterface& of(std::string_view name, int index = -1) const {
        return of(*form().find(name, index));
    }
    [[nodiscard]] const Control* controlOf(const QWidget* widget) const {
        for (const auto& control : form().controls())
            if (control->kind() != ControlKind::menuItem && widgetOf(*control) == widget)
                return control.get();
        return nullptr;
    }
    // A list is called what it shows where the desktop takes its name from its label.
    [[nodiscard]] QString nameOf(const Control& control) const {
        if (control.kind() != ControlKind::comboBox)
            return of(control).text(QAccessible::Name);
        const auto related = of(control).relations(QAccessible::Label);
        return related.size() == 1 ? related[0].first->text(QAccessible::Name) : QString();
    }
    [[nodiscard]] Control& focused() const { return *form().activeControl(); }

    // Everything in the tree that can take the focus now.
    void collect(QAccessibleInterface& node, std::set<std::string>& found) const {
        for (int i = 0; i < node.childCount(); ++i) {
            auto* child = node.child(i);
            if (child == nullptr || child->state().invisible)
                continue;
            const auto* widget = qobject_cast<QWidget*>(child->object());
            const auto* control = widget == nullptr ? nullptr : controlOf(widget);
            if (control != nullptr && child->state().focusable && !child->state().disabled)
                found.insert(control->id());
            collect(*child, found);
        }
    }
    [[nodiscard]] std::set<std::string> focusable() const {
        std::set<std::string> found;
        collect(*QAccessible::queryAccessibleInterface(&entry->formView()), found);
        return found;
    }

    // The controls on which Tab stops from here on, up to the last one of the form.
    [[nodiscard]] std::vector<std::string> walk(bool backward) const {
        std::vector<std::string> met;
        for (;;) {
            EXPECT_EQ(QApplication::focusWidget(), widgetOf(focused())) << focused().id();
            met.push_back(focused().id());
            const auto count = met.size();
            if (met.back() == (backward ? "tbsDataEntry" : "cmdCancel") || count > 300)
                return met;
            QTest::keyClick(QApplication::focusWidget(), backward ? Qt::Key_Backtab : Qt::Key_Tab,
                            backward ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }

    QWidget window;
    QLineEdit* before;
    VKRDataEntryWidget* entry;
    QLineEdit* after;
};

const Control* pageOf(const Control& control) {
    const Control* page = &control;
    while (page->container() != nullptr)
        page = page->container();
    return page == &control ? nullptr : page;
}

struct Place {
    Twips left, top, right, bottom;
};

// A person reads on below in the same column, then in a column to the right, then in a new line
// under all that was read.
bool readsOn(const Place& last, const Place& next, Twips lowest) {
    const bool sameColumn = next.left < last.right && last.left < next.right;
    return (sameColumn && next.top >= last.bottom) || (!sameColumn && next.left >= last.right) ||
           next.top >= lowest;
}

class Accessibility : public testing::TestWithParam<int> {
  protected:
    Accessibility() { heard.entry->setCurrentTab(GetParam()); }
    [[nodiscard]] Form& form() const { return heard.form(); }
    void startOnPage() const {
        for (Control* control : form().tabOrder())
            if (control->kind() != ControlKind::tabStrip && control->canTakeFocus() &&
                (control->kind() != ControlKind::optionButton ||
                 static_cast<OptionButton*>(control)->value())) {
                control->setFocus();
                return;
            }
    }

    Heard heard;
};

TEST_P(Accessibility, TabGoesToEveryControlOnceInReadingOrderAndBack) {
    std::map<std::string, Place> places; // before the focus pans and scrolls a grid
    for (const auto& control : form().controls())
        places[control->id()] = {control->formLeft(), control->formTop(),
                                 control->formLeft() + control->width(),
                                 control->formTop() + control->height()};
    std::set<std::string> expected = heard.focusable();
    for (const auto& control : form().controls())
        if (const auto* option = dynamic_cast<OptionButton*>(control.get());
            option != nullptr && !option->value())
            expected.erase(option->id()); // within a group the arrows go on

    startOnPage();
    auto met = heard.walk(false);
    Twips lowest = 0;
    for (std::size_t i = 0; i < met.size(); ++i) {
        const Place& place = places.at(met[i]);
        if (i > 0) {
            EXPECT_TRUE(readsOn(places.at(met[i - 1]), place, lowest))
                << met[i - 1] << " to " << met[i];
        }
        lowest = std::max(lowest, place.bottom);
    }
    std::set<std::string> reached(met.begin(), met.end());
    EXPECT_EQ(reached.size(), met.size()) << "nothing twice";

    auto back = heard.walk(true);
    EXPECT_EQ(back.back(), "tbsDataEntry"); // the strip is in front of its page
    back.pop_back();
    std::reverse(back.begin(), back.end());
    EXPECT_EQ(back, met);
    reached.insert("tbsDataEntry");
    EXPECT_EQ(reached, expected);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), heard.before);
}

TEST_P(Accessibility, EveryControlHasItsOwnNameAndRole) {
    std::map<QString, std::string> names;
    for (const auto& id : heard.focusable()) {
        const Control* control = nullptr;
        for (const auto& any : form().controls())
            if (any->id() == id)
                control = any.get();
        ASSERT_NE(control, nullptr);
        auto& node = heard.of(*control);
        static const std::map<ControlKind, QAccessible::Role> roles = {
            {ControlKind::textBox, QAccessible::EditableText},
            {ControlKind::comboBox, QAccessible::ComboBox},
            {ControlKind::commandButton, QAccessible::Button},
            {ControlKind::optionButton, QAccessible::RadioButton},
            {ControlKind::checkBox, QAccessible::CheckBox},
            {ControlKind::tabStrip, QAccessible::PageTabList},
        };
        EXPECT_EQ(node.role(), roles.at(control->kind())) << id;
        const QString name = heard.nameOf(*control);
        EXPECT_FALSE(name.trimmed().isEmpty()) << id;
        const auto [other, fresh] = names.emplace(name, id);
        EXPECT_TRUE(fresh) << id << " is called " << name.toStdString() << " as " << other->second;
        EXPECT_EQ(node.text(QAccessible::Description), "") << id;
    }
    auto& strip = heard.of("tbsDataEntry");
    const QStringList pages{"Company Data", "Yearly Data", "Quarterly Data", "Company Other",
                            "Options"};
    const QStringList keys{"C", "Y", "Q", "O", "P"};
    for (int i = 0; i < pages.size(); ++i) {
        auto* tab = strip.child(i);
        EXPECT_EQ(tab->role(), QAccessible::PageTab);
        EXPECT_EQ(tab->text(QAccessible::Name), pages[i]);
        EXPECT_TRUE(
            tab->text(QAccessible::Accelerator).endsWith("+" + keys[i], Qt::CaseInsensitive))
            << tab->text(QAccessible::Accelerator).toStdString();
        EXPECT_EQ(bool(tab->state().focused), i == GetParam() - 1);
    }
}

TEST_P(Accessibility, FieldsAreCalledAsTheirLabelsRead) {
    int fields = 0;
    for (const auto& row : formLayout()) {
        if (!row.labelledBy)
            continue;
        const Control& field = *row.control.find(form());
        if (!field.isShown())
            continue;
        ++fields;
        const auto* caption = dynamic_cast<QLabel*>(heard.widgetOf(row.labelledBy->in(form())));
        ASSERT_NE(caption, nullptr);
        const QString line = field.name() == "txtAddress2" ? QStringLiteral(" 2") : QString();
        EXPECT_EQ(heard.nameOf(field), caption->text() + line);
        if (line.isEmpty()) {
            const auto related = heard.of(field).relations(QAccessible::Label);
            ASSERT_EQ(related.size(), 1) << field.id();
            EXPECT_EQ(related[0].first->object(), caption) << field.id();
        }
    }
    EXPECT_GE(fields, GetParam() == toQuarterly ? 1 : 3);
}

TEST_P(Accessibility, LockedFieldsSayThatTheyCanOnlyBeRead) {
    for (const bool locked : {false, true, false}) {
        if (form().get<CheckBox>("chkLockInfo").value() != locked)
            QTest::mouseClick(heard.widgetOf(*form().find("chkLockInfo")), Qt::LeftButton);
        for (const auto& control : form().controls()) {
            if (!control->isShown() || dynamic_cast<TextField*>(control.get()) == nullptr)
                continue;
            auto* node = &heard.of(*control);
            if (control->kind() == ControlKind::comboBox)
                node = QAccessible::queryAccessibleInterface(
                    heard.widgetOf(*control)->findChild<QLineEdit*>());
            EXPECT_EQ(bool(node->state().readOnly), locked) << control->id();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Tabs, Accessibility, testing::Range(int{toCompany}, toOptions + 1));

TEST(AccessibleCells, AreCalledAfterColumnUnitAndPeriod) {
    Heard heard;
    struct Column {
        int tab;
        const char* cells;
        const char* name;
        const char* rows;
    };
    const Column columns[] = {
        {toYearly, "txtSales", "Revenue (M)", "lblYear"},
        {toYearly, "txtYOption", "Pre-Tax Income (M)", "lblYear"},
        {toYearly, "txtYNetInc", "Net Inc. (M)", "lblYear"},
        {toYearly, "txtYOption2", "Common Equity (M)", "lblYear"},
        {toYearly, "txtYEPS", "Basic EPS", "lblYear"},
        {toYearly, "txtDiv", "Dividends Declared", "lblYear"},
        {toYearly, "txtHigh", "High", "lblYear"},
        {toYearly, "txtLow", "Low", "lblYear"},
        {toYearly, "txtCSO", "Shares Outstanding (M)", "lblYear"},
        {toQuarterly, "txtRevenue", "Revenue (M)", "lblQLabel"},
        {toQuarterly, "txtEPS", "Earnings Per Share", "lblQLabel"},
        {toQuarterly, "txtQOption", "Pre-Tax Income (M)", "lblQLabel"},
        {toQuarterly, "txtNetInc", "Net Income (M)", "lblQLabel"},
    };
    for (const auto& column : columns) {
        heard.entry->setCurrentTab(column.tab);
        for (int row = 0; row <= heard.form().upperBound(column.cells); ++row) {
            const auto& label = heard.form().get<Label>(column.rows, row).caption();
            EXPECT_FALSE(label.empty());
            EXPECT_EQ(heard.of(column.cells, row).text(QAccessible::Name),
                      QString(column.name) + " " + toQt(label));
        }
    }
    EXPECT_EQ(heard.of("txtSales", 8).text(QAccessible::Name), "Revenue (M) 2024");
    // Of the row that is shown instead, and in another unit.
    heard.entry->setCurrentTab(toOptions);
    heard.form().click(*heard.form().find("optPTI", 1));
    heard.form().click(*heard.form().find("optCurrency", 2));
    EXPECT_EQ(heard.of("txtYOption", 8).text(QAccessible::Name), "Tax Rate (%) 2024");
    EXPECT_EQ(heard.of("txtSales", 8).text(QAccessible::Name), "Revenue (B) 2024");
    EXPECT_EQ(heard.of("txtTotalDebt").text(QAccessible::Name), "Total Debt (B)");
}

TEST(AccessibleMark, IsTheDescriptionUntilTheTextIsMended) {
    Heard heard;
    struct Row {
        int tab;
        const char* field;
        int index;
        const char* typed;
        const char* reason;
        const char* mended;
    };
    for (const auto& row : {Row{toCompany, "txtLastUpdate", -1, "someday",
                                "This is not a date and was not stored.", "11/20/2026"},
                            Row{toYearly, "txtSales", 2, "1e400",
                                "This number is too large and was not stored.", "5"},
                            Row{toOther, "cmbReportingPeriod", -1, "5 weeks",
                                "This value could not be stored.", "6 months"}}) {
        heard.entry->setCurrentTab(row.tab);
        auto& field = heard.form().get<TextField>(row.field, row.index);
        for (const bool wrong : {true, false}) {
            field.setFocus();
            QApplication::clipboard()->setText(wrong ? row.typed : row.mended);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(heard.of(field).text(QAccessible::Description), wrong ? row.reason : "")
                << field.id();
        }
    }
}

// --- mnemonics of labels -------------------------------------------------------------------------

// Gives every label that names a field a letter of its own on its page, in front of its caption.
struct Lettered final : Localizer {
    StandardLocalizer texts;
    std::map<int, char> letters;

    Lettered() {
        // Letters of tabs and buttons stay theirs.
        const std::string free = "BDEFGIJKLMNSTUVWXZ1234567890";
        std::map<int, std::size_t> used; // by page
        for (const auto& row : formLayout()) {
            if (!row.labelledBy)
                continue;
            for (const auto& label : formLayout())
                if (label.control == ControlId(*row.labelledBy))
                    letters.emplace(label.caption, free.at(used[label.in < 10 ? 14 : label.in]++));
        }
        for (const int head : {521, 522, 523, 524, 525, 526, 527, 530, 531, 532})
            letters.emplace(head, free.at(10 + used[-1]++));
    }
    [[nodiscard]] std::string LoadString(int number) const override {
        const auto found = letters.find(number);
        const std::string text = texts.LoadString(number);
        return found == letters.end() ? text : std::string("&") + found->second + text;
    }
    [[nodiscard]] Picture LoadPicture(int number, int kind) const override {
        return texts.LoadPicture(number, kind);
    }
};

struct LetteredHeard : Heard {
    static ObjectFactory objects(const std::shared_ptr<Localizer>& localizer) {
        ObjectFactory objects;
        registerCompanyRecord(objects);
        objects.add(standardLocalizerId, [localizer] { return localizer; });
        return objects;
    }
    explicit LetteredHeard(const ObjectFactory& objects) : Heard(&objects) {}
};

TEST(LabelMnemonics, LeadToTheFieldThatTheLabelNamesAndAreHeardThere) {
    const auto localizer = std::make_shared<Lettered>();
    LetteredHeard heard(LetteredHeard::objects(localizer));
    auto& form = heard.form();
    int fields = 0;
    for (const auto& row : formLayout()) {
        if (!row.labelledBy || row.control.name == "txtAddress2")
            continue;
        Control& field = *row.control.find(form);
        const Control* page = pageOf(field);
        heard.entry->setCurrentTab(page->index() - 9);
        const auto& label = row.labelledBy->in(form);
        const char32_t letter = mnemonicOf(label.caption());
        ASSERT_NE(letter, 0U) << label.id();
        for (Control* from : {form.find("cmdHelp"), form.find("chkLockInfo")}) {
            from->setFocus();
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(letter),
                            Qt::AltModifier);
            EXPECT_EQ(form.activeControl(), &field) << label.id() << " " << label.caption();
            EXPECT_EQ(QApplication::focusWidget(), heard.widgetOf(field)) << field.id();
        }
        auto& node = heard.of(field);
        const QString key = QString("+") + QChar(static_cast<char16_t>(letter));
        const auto related = node.relations(QAccessible::Label);
        ASSERT_EQ(related.size(), 1) << field.id();
        EXPECT_EQ(related[0].first->object(), heard.widgetOf(label)) << field.id();
        // Lists and buttons report a key of their own kind.
        if (field.kind() == ControlKind::textBox) {
            EXPECT_TRUE(node.text(QAccessible::Accelerator).endsWith(key, Qt::CaseInsensitive))
                << field.id() << node.text(QAccessible::Accelerator).toStdString();
        }
        EXPECT_FALSE(heard.nameOf(field).contains(u'&')) << field.id();
        EXPECT_EQ(heard.nameOf(field), toQt(withoutMnemonic(label.caption())));
        ++fields;
    }
    EXPECT_GT(fields, 40);
}

TEST(LabelMnemonics, OfAColumnLeadToItsFirstCell) {
    const auto localizer = std::make_shared<Lettered>();
    LetteredHeard heard(LetteredHeard::objects(localizer));
    auto& form = heard.form();
    int columns = 0;
    for (const auto grid : {yearlyColumns(), quarterlyColumns()})
        for (const auto& column : grid) {
            const auto& label = column.head.in(form);
            const char32_t letter = mnemonicOf(label.caption());
            if (letter == 0)
                continue; // captions of the option rows, and the one that is never localized
            Control& first = column.cells[0].in(form);
            heard.entry->setCurrentTab(pageOf(first)->index() - 9);
            form.find("cmdHelp")->setFocus();
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(letter),
                            Qt::AltModifier);
            EXPECT_EQ(form.activeControl(), &first) << label.id();
            ++columns;
        }
    EXPECT_EQ(columns, 9);
}

TEST(LabelMnemonics, ComeFromTheHostsOwnFieldsToo) {
    const auto localizer = std::make_shared<Lettered>();
    LetteredHeard heard(LetteredHeard::objects(localizer));
    heard.before->setFocus();
    const char letter = localizer->letters.at(508);
    QTest::keyClick(heard.before, static_cast<Qt::Key>(letter), Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), heard.widgetOf(*heard.form().find("txtCurrentPrice")));
    EXPECT_EQ(heard.form().activeControl(), heard.form().find("txtCurrentPrice"));
    EXPECT_TRUE(heard.form().hasFocus());
}

// Chosen texts behind some numbers, the English ones behind all others.
struct Chosen final : Localizer {
    explicit Chosen(std::map<int, std::string> given) : chosen(std::move(given)) {}
    [[nodiscard]] std::string LoadString(int number) const override {
        const auto found = chosen.find(number);
        return found == chosen.end() ? texts.LoadString(number) : found->second;
    }
    [[nodiscard]] Picture LoadPicture(int number, int kind) const override {
        return texts.LoadPicture(number, kind);
    }
    StandardLocalizer texts;
    std::map<int, std::string> chosen;
};

TEST(LabelMnemonics, SharedLettersBelongToTheTabElseTheyGoAround) {
    const auto localizer =
        std::make_shared<Chosen>(std::map<int, std::string>{{500, "&Name"},
                                                            {503, "I&ndustry"},
                                                            {508, "&Current Price"},
                                                            {528, "&Date of Last FY"},
                                                            {570, "&Legend"},
                                                            {548, "Currency &Unit"},
                                                            {553, "Income or &Rate"}});
    LetteredHeard heard(LetteredHeard::objects(localizer));
    auto& form = heard.form();
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
        return form.activeControl()->id();
    };
    form.find("cmdHelp")->setFocus();
    EXPECT_EQ(press(Qt::Key_N), "txtName");
    EXPECT_EQ(press(Qt::Key_N), "cmbIndustry");
    EXPECT_EQ(press(Qt::Key_N), "txtName");
    form.find("txtName")->setFocus();
    press(Qt::Key_Y);
    EXPECT_EQ(heard.entry->currentTab(), int{toYearly});
    EXPECT_EQ(press(Qt::Key_D), "txtDateofLastFY");
    // A label that names nothing leads nowhere.
    EXPECT_FALSE(form.hasMnemonic('L'));
    EXPECT_EQ(press(Qt::Key_L), "txtDateofLastFY");
    press(Qt::Key_C);
    EXPECT_EQ(heard.entry->currentTab(), int{toCompany}) << "the tab's letter";
    press(Qt::Key_Q);
    EXPECT_EQ(press(Qt::Key_D), form.find("txtRevenue", 0)->id()) << "beside a date to read";
    // The letter of a group leads to its chosen option.
    press(Qt::Key_P);
    form.find("txtCurSymbol")->setFocus();
    EXPECT_EQ(press(Qt::Key_U), "optCurrency(1)");
    EXPECT_EQ(press(Qt::Key_R), "optPTI(0)");
}

TEST(LabelMnemonics, AreUnderlinedWhereTheyLeadSomewhere) {
    const auto plain = std::make_shared<Chosen>(std::map<int, std::string>{});
    const auto lettered = std::make_shared<Chosen>(
        std::map<int, std::string>{{500, "&Name"}, {528, "&Date of Last FY"}});
    LetteredHeard without(LetteredHeard::objects(plain));
    LetteredHeard with(LetteredHeard::objects(lettered));
    const auto look = [](const Heard& heard, std::string_view name, int index) {
        return heard.widgetOf(*heard.form().find(name, index))->grab().toImage();
    };
    EXPECT_NE(look(with, "lblLabel", 0), look(without, "lblLabel", 0));
    EXPECT_EQ(look(with, "lblLabel", 1), look(without, "lblLabel", 1));
    for (Heard* heard : {static_cast<Heard*>(&with), static_cast<Heard*>(&without)})
        heard->entry->setCurrentTab(toYearly);
    EXPECT_NE(look(with, "lblLabel", 21), look(without, "lblLabel", 21));
    for (Heard* heard : {static_cast<Heard*>(&with), static_cast<Heard*>(&without)})
        heard->entry->setCurrentTab(toQuarterly);
    EXPECT_EQ(look(with, "lblLabel", 31), look(without, "lblLabel", 31));
}

} // namespace
} // namespace vkr
