// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/property_names.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "platform/property_bag.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/qt/support/entry_window.hpp"
#include "tests/qt/support/property_samples.hpp"
#include "tests/qt/support/wheel.hpp"
#include "tests/support/entry_scene.hpp"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QLocale>
#include <QMetaProperty>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QWindow>

#include <functional>
#include <set>

namespace vkr {
namespace {

class DataEntryWidget : public EntryWindow {
  protected:
    DataEntryWidget() : EntryWindow(HostField::above) {}
    static void type(const QString& text) {
        for (const QChar character : text)
            if (character == u'\r')
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            else
                QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
    }
};

TEST_F(DataEntryWidget, IsReadyWithoutAnySetUp) {
    VKRDataEntryWidget alone;
    EXPECT_EQ(alone.sizeHint(), QSize(538, 389));
    EXPECT_EQ(alone.company(), nullptr);
    EXPECT_EQ(alone.currentTab(), 1);
    const auto& ok = alone.component().form().get<CommandButton>("cmdOK");
    EXPECT_FALSE(ok.caption().empty());
    alone.setCompany(nullptr);
    EXPECT_NE(alone.company(), nullptr) << "an empty record of this library";
    EXPECT_EQ(alone.formView().size(), QSize(538, 389));
}

TEST_F(DataEntryWidget, AcceptedAndRejectedComeRightAfterTheRequestToUnload) {
    open(std::make_shared<CompanyRecord>());
    QStringList heard;
    QObject::connect(entry, &VKRDataEntryWidget::unloadRequest,
                     [&](int mode) { heard.append(QString::number(mode)); });
    QObject::connect(entry, &VKRDataEntryWidget::accepted, [&] { heard.append("accepted"); });
    QObject::connect(entry, &VKRDataEntryWidget::rejected, [&] { heard.append("rejected"); });
    QTest::mouseClick(native<QWidget>("cmdOK"), Qt::LeftButton);
    QTest::mouseClick(native<QWidget>("cmdCancel"), Qt::LeftButton);
    EXPECT_EQ(heard.join(u' '), "0 accepted -1 rejected");
}

TEST_F(DataEntryWidget, TheTitleOfAWindowShowsItsChangesAndTheWholeName) {
    const auto record = std::make_shared<CompanyRecord>();
    record->put_Name("Star [*] Inc.");
    open(record);
    window.setWindowTitle(VKRDataEntryWidget::windowTitleFor(entry->title()));
    EXPECT_EQ(window.windowHandle()->title(), "Star [*] Inc.");
    window.setWindowModified(true);
    EXPECT_EQ(window.windowHandle()->title(), "Star [*] Inc.*");
    window.setWindowTitle(VKRDataEntryWidget::windowTitleFor(QString()));
    EXPECT_EQ(window.windowHandle()->title(), "*");
}

TEST_F(DataEntryWidget, SignalsATabOnceAndThePriceDisplayAlsoWhereTheUserChoosesIt) {
    open(std::make_shared<CompanyRecord>());
    QSignalSpy tabs(entry, &VKRDataEntryWidget::currentTabChanged);
    QSignalSpy fractions(entry, &VKRDataEntryWidget::fractionDisplayChanged);
    entry->setCurrentTab(toOptions);
    EXPECT_EQ(tabs.count(), 1);
    entry->setCurrentTab(toOptions);
    EXPECT_EQ(tabs.count(), 1);
    QTest::mouseClick(native<QWidget>("optDisplay", 1), Qt::LeftButton);
    EXPECT_TRUE(entry->fractionDisplay());
    EXPECT_EQ(fractions.count(), 1);
    entry->setFractionDisplay(false);
    EXPECT_EQ(fractions.count(), 2);
    entry->setFractionDisplay(false);
    EXPECT_EQ(fractions.count(), 2);
    entry->setNext();
    EXPECT_EQ(tabs.count(), 2);
}

TEST_F(DataEntryWidget, KeepsTheTextSelectedWhereARecordComesInUnderTheFocus) {
    const auto company = fullCompany();
    open(company);
    entry->component().showField("txtName");
    auto* box = native("txtName");
    ASSERT_TRUE(box->hasFocus());
    entry->setCompany(fullCompany());
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), box->text());
    EXPECT_FALSE(box->text().isEmpty());
}

TEST_F(DataEntryWidget, ADayIsNotPickedForARecordThatCameInMeanwhile) {
    const auto first = std::make_shared<CompanyRecord>();
    const auto second = std::make_shared<CompanyRecord>();
    open(first);
    const auto pick = [&](const std::shared_ptr<CompanyRecord>& loaded) {
        DialogAnswers answers;
        answers.next([&](QWidget& dialog) {
            if (loaded != nullptr)
                entry->setCompany(loaded);
            dialog.findChild<QCalendarWidget*>()->setSelectedDate(QDate(2024, 3, 1));
            DialogAnswers::clickButton(dialog, "OK");
        });
        QTest::mouseDClick(native("txtPriceUpdate"), Qt::LeftButton);
        entry->component().leaveField();
    };
    pick(nullptr);
    EXPECT_EQ(first->get_PriceUpdatedDate(), *makeDate(2024, 3, 1));
    const Date before = *makeDate(2020, 5, 17);
    second->put_PriceUpdatedDate(before);
    pick(second);
    EXPECT_EQ(second->get_PriceUpdatedDate(), before);
    EXPECT_EQ(entry->company(), second);
}

struct LocaleRow {
    const char* name;
    QString figure; // 1234567.5 with the pattern #,##0.00
    const char* typed;
};
const LocaleRow localeRows[] = {
    {"en_US", QStringLiteral("1,234,567.50"), "12.5"},
    {"de_DE", QStringLiteral("1.234.567,50"), "12,5"},
    {"fr_FR", QStringLiteral("1\u202F234\u202F567,50"), "12,5"},
    {"de_CH", QStringLiteral("1\u2019234\u2019567.50"), "12.5"},
};

TEST_F(DataEntryWidget, FiguresFollowTheLocale) {
    const auto company = fullCompany();
    company->put_TotalDebt(1234567.5);
    entry->setNumberFormat("#,##0.00");
    open(company);
    QSignalSpy told(entry, &VKRDataEntryWidget::numberMarksChanged);
    for (const auto& row : localeRows) {
        const QLocale locale(QString::fromLatin1(row.name));
        entry->setLocale(locale);
        EXPECT_EQ(native("txtTotalDebt")->text(), row.figure) << row.name;
        EXPECT_EQ(entry->decimalMark(), locale.decimalPoint()) << row.name;
        EXPECT_EQ(entry->groupingMark(), locale.groupSeparator()) << row.name;
        EXPECT_FALSE(entry->isDirty());
    }
    EXPECT_GE(told.count(), 3); // four where the tests run in another one than the first
}

TEST_F(DataEntryWidget, ANewOneHasTheMarksOfTheDefaultLocale) {
    for (const auto& row : localeRows) {
        QLocale::setDefault(QLocale(QString::fromLatin1(row.name)));
        VKRDataEntryWidget alone;
        EXPECT_EQ(alone.decimalMark(), QLocale().decimalPoint()) << row.name;
        const auto company = fullCompany();
        alone.setCompany(company);
        auto& field = alone.component().form().get<TextBox>("txtTotalDebt");
        auto* line = dynamic_cast<QLineEdit*>(alone.formView().widgetOf(field));
        alone.component().form().focus(field);
        QTest::keyClicks(line, row.typed);
        QTest::keyClick(line, Qt::Key_Tab);
        EXPECT_EQ(company->get_TotalDebt(), 12.5) << row.name;
    }
    QLocale::setDefault(QLocale::c());
}

TEST_F(DataEntryWidget, MarksThatTheHostHasSetStayWhenTheLocaleChanges) {
    entry->setDecimalMark(",");
    EXPECT_EQ(entry->groupingMark(), ".");
    entry->setLocale(QLocale("en_US"));
    EXPECT_EQ(entry->decimalMark(), ",");
    entry->resetNumberMarks();
    EXPECT_EQ(entry->decimalMark(), ".");
    EXPECT_EQ(entry->groupingMark(), ",");
    entry->setLocale(QLocale("de_DE"));
    EXPECT_EQ(entry->decimalMark(), ",");
}

TEST_F(DataEntryWidget, TheKeypadsDecimalKeyGivesTheMarkWhateverItTypes) {
    for (const auto* mark : {",", "."}) {
        entry->setDecimalMark(mark);
        open(fullCompany());
        for (const auto& [key, text] :
             {std::pair{Qt::Key_Comma, ","}, std::pair{Qt::Key_Period, "."}}) {
            auto& field = form().get<TextBox>("txtTotalDebt");
            form().get<TextBox>("txtName").setFocus();
            field.setFocus();
            QTest::keyClick(native("txtTotalDebt"), Qt::Key_7);
            QTest::sendKeyEvent(QTest::Click, native("txtTotalDebt"), key, QString(text),
                                Qt::KeypadModifier);
            QTest::keyClick(native("txtTotalDebt"), Qt::Key_5);
            EXPECT_EQ(native("txtTotalDebt")->text(), QString("7") + mark + "5") << text;
        }
    }
}

TEST_F(DataEntryWidget, EscapeClosesTheDialogOnceTheFieldShowsWhatItDid) {
    QDialog dialog;
    auto* inside = new VKRDataEntryWidget(&dialog);
    inside->setCompany(fullCompany());
    int reached = 0;
    QShortcut shortcut(QKeySequence(Qt::Key_Escape), &dialog, [&] {
        ++reached;
        dialog.reject();
    });
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto& field = inside->component().form().get<TextBox>("txtName");
    field.setFocus();
    auto* line = dynamic_cast<QLineEdit*>(inside->formView().widgetOf(field));
    QTest::keyClicks(line, "Acme");
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(line->text(), "Name text");
    EXPECT_EQ(line->selectedText(), "Name text");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(reached, 0);
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DataEntryWidget, EscapeClosesAnOpenListFirst) {
    entry->setExchanges({"NYSE", "NASDAQ"});
    open(fullCompany());
    auto& list = form().get<ComboBox>("cmbExchange");
    list.setFocus();
    auto* combo = native<QComboBox>("cmbExchange");
    QTest::keyClicks(combo, "N");
    ASSERT_EQ(list.text(), "N");
    QTest::keyClick(combo, Qt::Key_F4);
    ASSERT_TRUE(combo->view()->isVisible());
    QTest::keyClick(combo->view(), Qt::Key_Escape);
    EXPECT_FALSE(combo->view()->isVisible());
    EXPECT_EQ(list.text(), "N");
    QTest::keyClick(combo, Qt::Key_Escape);
    EXPECT_EQ(list.text(), "Exchange text");
}

TEST_F(DataEntryWidget, EveryPropertyIsWrittenReadAndTold) {
    const auto rows =
        propertySamplesWith({{"decimalMark", ","}, {"groupingMark", "'"}, {"dirty", true}});
    entry->setCompany(std::make_shared<CompanyRecord>());
    for (const auto& row : rows) {
        const auto* meta = entry->metaObject();
        const auto property = meta->property(meta->indexOfProperty(row.name));
        ASSERT_TRUE(property.isWritable()) << row.name;
        ASSERT_TRUE(property.hasNotifySignal()) << row.name;
        QSignalSpy told(entry, property.notifySignal());
        EXPECT_NE(property.read(entry), row.value) << row.name;
        EXPECT_TRUE(property.write(entry, row.value)) << row.name;
        EXPECT_EQ(property.read(entry), row.value) << row.name;
        EXPECT_GE(told.count(), 1) << row.name;
    }
    EXPECT_EQ(form().get<ComboBox>("cmbExchange").list(),
              (std::vector<std::string>{"NYSE", "Z\u00fcrich"}));
}

// What the widget has of a property of the component.
QVariant shownBy(const PropertyRow& row) {
    switch (row.type) {
    case PropertyType::boolean:
        return row.start.number != 0;
    case PropertyType::shortInteger:
    case PropertyType::enumeration:
        return row.start.number;
    case PropertyType::color:
        return toQt(static_cast<Color>(row.start.number));
    case PropertyType::text:
        return toQt(row.start.text);
    default:
        return QStringList();
    }
}

TEST_F(DataEntryWidget, ItsPropertiesAreThoseOfTheTable) {
    const auto* meta = entry->metaObject();
    std::set<QByteArray> known{"decimalMark", "groupingMark",     // together NumberMarks
                               "title",       "applicationTitle", // of the widget itself
                               "zoom",        "zoomsToFit",       "runMode"};
    for (const auto& row : propertyTable()) {
        const QByteArray name = widgetProperty(row);
        if (name.isEmpty())
            continue;
        const auto property = meta->property(meta->indexOfProperty(name.constData()));
        ASSERT_TRUE(property.isValid()) << row.name;
        known.insert(name);
        const QVariant start = shownBy(row);
        EXPECT_EQ(property.metaType(), start.metaType()) << row.name;
        EXPECT_EQ(property.read(entry), start) << row.name;
        EXPECT_NE(row.access, PropertyAccess::none) << row.name;
        EXPECT_EQ(property.isWritable(), row.access != PropertyAccess::read) << row.name;
        EXPECT_EQ(QByteArray(property.notifySignal().name()), name + "Changed");
        EXPECT_EQ(property.isDesignable(), row.property != EntryProperty::blnDirty) << row.name;
    }
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        EXPECT_TRUE(known.contains(meta->property(i).name())) << meta->property(i).name();
}

TEST_F(DataEntryWidget, TheKeptPropertiesComeBack) {
    entry->setShowVLs(true);
    entry->setVisibleQuarters(11);
    entry->setUserMode(1);
    entry->setShadeColorYear(QColor(9, 8, 7));
    entry->setCurrentTab(2);
    const auto bag = entry->saveProperties();
    VKRDataEntryWidget other;
    other.restoreProperties(bag);
    EXPECT_TRUE(other.showVLs());
    EXPECT_EQ(other.visibleQuarters(), 11);
    EXPECT_EQ(other.shadeColorYear(), QColor(9, 8, 7));
    EXPECT_EQ(other.currentTab(), 2);
}

TEST_F(DataEntryWidget, WhatIsStillBeingTypedIsInTheRecord) {
    auto record = std::make_shared<CompanyRecord>();
    open(record);
    auto& field = form().get<TextBox>("txtName");
    QTest::mouseClick(native("txtName"), Qt::LeftButton);
    type("Acme");
    EXPECT_EQ(record->get_Name(), "");
    EXPECT_EQ(entry->company(), record);
    EXPECT_EQ(record->get_Name(), "Acme");
    EXPECT_EQ(QApplication::focusWidget(), native("txtName")) << "the focus is where it was";
    EXPECT_EQ(form().activeControl(), &field);
}

TEST_F(DataEntryWidget, ChangesAreToldWithTheTitle) {
    auto record = std::make_shared<CompanyRecord>();
    record->put_Name("Acme");
    QSignalSpy titles(entry, &VKRDataEntryWidget::titleChanged);
    QSignalSpy dirty(entry, &VKRDataEntryWidget::dirtyChanged);
    open(record);
    EXPECT_EQ(entry->title(), "Acme");
    EXPECT_EQ(dirty.count(), 0) << "loading changes nothing";
    QTest::mouseClick(native("txtSymbol"), Qt::LeftButton);
    type("acm\r");
    EXPECT_EQ(entry->title(), "Acme (ACM)");
    EXPECT_EQ(titles.last()[0].toString(), "Acme (ACM)");
    EXPECT_EQ(dirty.count(), 1);
    EXPECT_TRUE(entry->isDirty());
    entry->setDirty(false);
    EXPECT_FALSE(entry->isDirty());
    EXPECT_EQ(dirty.count(), 2);
}

TEST_F(DataEntryWidget, EnterGoesOnWhileOneTypesFast) {
    auto record = std::make_shared<CompanyRecord>();
    open(record);
    QTest::mouseClick(native("txtName"), Qt::LeftButton);
    type("Acme\racm\r");
    EXPECT_EQ(form().activeControl()->name(), "cmbExchange");
    type("NYSE\r");
    EXPECT_EQ(record->get_Name(), "Acme");
    EXPECT_EQ(record->get_Symbol(), "ACM");
    EXPECT_EQ(record->get_Exchange(), "NYSE");
}

TEST_F(DataEntryWidget, EventsAreSignals) {
    open(fullCompany());
    QSignalSpy tabs(entry, &VKRDataEntryWidget::tabChange);
    QSignalSpy help(entry, &VKRDataEntryWidget::moreHelp);
    QSignalSpy unload(entry, &VKRDataEntryWidget::unloadRequest);
    auto* strip = native<QTabBar>("tbsDataEntry");
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(4).center());
    ASSERT_EQ(tabs.count(), 1);
    EXPECT_EQ(tabs[0][0].toInt(), 5);
    QTest::mouseClick(native<QWidget>("cmdHelp"), Qt::LeftButton);
    ASSERT_EQ(help.count(), 1);
    EXPECT_EQ(help[0][0].toInt(), 3068);
    QTest::mouseClick(native<QWidget>("cmdOK"), Qt::LeftButton);
    QTest::mouseClick(native<QWidget>("cmdCancel"), Qt::LeftButton);
    ASSERT_EQ(unload.count(), 2);
    EXPECT_EQ(unload[0][0].toInt(), 0);
    EXPECT_EQ(unload[1][0].toInt(), -1);
}

TEST_F(DataEntryWidget, TheHostMayTakeItAwayWhenAsked) {
    open(fullCompany());
    const QPointer<VKRDataEntryWidget> watched = entry;
    QObject::connect(entry, &VKRDataEntryWidget::unloadRequest, entry, &QObject::deleteLater);
    QTest::mouseClick(native<QWidget>("cmdCancel"), Qt::LeftButton);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(DataEntryWidget, TheHostMayTakeItAwayWhenItHearsOfAnything) {
    using Heard = std::function<void(const std::function<void()>& act)>;
    const std::pair<const char*, Heard> all[] = {
        {"title",
         [&](auto& act) {
             QObject::connect(entry, &VKRDataEntryWidget::titleChanged, &window, act);
         }},
        {"dirty",
         [&](auto& act) {
             QObject::connect(entry, &VKRDataEntryWidget::dirtyChanged, &window, act);
         }},
        {"edited",
         [&](auto& act) { QObject::connect(entry, &VKRDataEntryWidget::edited, &window, act); }}};
    for (const auto& [name, hear] : all) {
        SCOPED_TRACE(name);
        entry = new VKRDataEntryWidget(&window);
        open(fullCompany());
        const QPointer<VKRDataEntryWidget> watched = entry;
        hear([&] { delete watched; });
        QTest::mouseClick(native("txtName"), Qt::LeftButton);
        for (const char* letter = "Another\t"; watched && *letter != 0; ++letter)
            QTest::keyClick(QApplication::focusWidget(), *letter);
        EXPECT_TRUE(watched.isNull());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    entry = new VKRDataEntryWidget(&window);
    open(fullCompany());
    const QPointer<VKRDataEntryWidget> watched = entry;
    QObject::connect(entry, &VKRDataEntryWidget::fractionDisplayChanged, &window,
                     [&] { delete watched; });
    entry->setCurrentTab(toOptions);
    QTest::mouseClick(native<QWidget>("optDisplay", 1), Qt::LeftButton);
    EXPECT_TRUE(watched.isNull());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    entry = nullptr;
}

TEST_F(DataEntryWidget, GoesWhileAFieldHasTheFocus) {
    open(fullCompany());
    QTest::mouseClick(native("txtName"), Qt::LeftButton);
    type("x");
    delete entry;
    EXPECT_EQ(window.findChild<VKRDataEntryWidget*>(), nullptr);
}

TEST_F(DataEntryWidget, TheWheelScrollsTheGridsAndNothingElse) {
    open(fullCompany());
    entry->setVisibleQuarters(35);
    EXPECT_FALSE(turnWheel(*native("txtName"), -120)) << "the host may scroll instead";
    entry->setCurrentTab(toQuarterly);
    auto& bar = form().get<ScrollBar>("vscrQuarterly");
    ASSERT_GT(bar.maximum(), bar.minimum());
    const int before = bar.value();
    EXPECT_TRUE(turnWheel(*native("txtRevenue", 0), -120));
    EXPECT_EQ(bar.value(), before + bar.smallChange());
    EXPECT_EQ(native<QScrollBar>("vscrQuarterly")->value(), bar.value());
    EXPECT_TRUE(turnWheel(*native<QWidget>("vscrQuarterly"), -120));
    EXPECT_EQ(bar.value(), before + 2 * bar.smallChange());
}

TEST_F(DataEntryWidget, OnlyThePageOnShowIsThereForScreenReaders) {
    open(fullCompany());
    EXPECT_TRUE(native("txtName")->isVisible());
    EXPECT_FALSE(native("txtLastFY")->isVisible());
    entry->setCurrentTab(toYearly);
    EXPECT_FALSE(native("txtName")->isVisible());
    EXPECT_TRUE(native("txtLastFY")->isVisible());
}

TEST_F(DataEntryWidget, EveryFieldHasAName) {
    open(fullCompany());
    int fields = 0;
    for (const auto& control : form().controls()) {
        if (!control->isFocusable())
            continue;
        auto* widget = widgetOf(*control);
        auto* heard = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(heard, nullptr) << control->id();
        const bool named = !heard->text(QAccessible::Name).isEmpty();
        EXPECT_TRUE(named || control->kind() == ControlKind::tabStrip) << control->id();
        ++fields;
    }
    EXPECT_GT(fields, 100);
}

TEST_F(DataEntryWidget, AQuestionIsAskedInItsWindow) {
    open(fullCompany());
    entry->setCurrentTab(toYearly);
    DialogAnswers answers;
    answers.next([this](QWidget& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &window);
        EXPECT_EQ(dialog.windowTitle(), "Data Entry");
        DialogAnswers::clickButton(dialog, "No");
    });
    const auto year = form().get<TextBox>("txtLastFY").text();
    QTest::mouseClick(native<QWidget>("cmdAddYear"), Qt::LeftButton);
    EXPECT_EQ(form().get<TextBox>("txtLastFY").text(), year);
}

TEST_F(DataEntryWidget, TabReachesEveryFieldOfThePageAndThenTheHost) {
    open(fullCompany());
    hostField->setFocus();
    QTest::keyClick(hostField, Qt::Key_Tab);
    std::vector<std::string> met;
    while (QApplication::focusWidget() != hostField && met.size() < 100) {
        met.push_back(form().activeControl()->id());
        EXPECT_EQ(QApplication::focusWidget(), widgetOf(*form().activeControl()));
        if (met.back() == "cmdCancel")
            break; // Tab goes on to the page from here
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char* id : {"txtName", "cmbExchange", "txtCurrentPrice", "cmdOK", "cmdCancel"})
        EXPECT_EQ(std::count(met.begin(), met.end(), id), 1) << id;
}

} // namespace
} // namespace vkr
