// SPDX-License-Identifier: MIT
// The plugin as form designers and form loaders meet it: as a file, without knowing its classes.
#include "source_folder.hpp"
#include "tests/qt/support/property_samples.hpp"

#include <QBuffer>
#include <QCoreApplication>
#include <QDesignerComponents>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerObjectInspectorInterface>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDesignerWidgetBoxInterface>
#include <QDomDocument>
#include <QExtensionManager>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QUiLoader>
#include <QVBoxLayout>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace vkr {
namespace {

const QString pluginFile = QStringLiteral(VKR_DESIGNER_PLUGIN);
const QString className = QStringLiteral("vkr::VKRDataEntryWidget");

// Every property that the property editor offers, beside those of any widget.
const std::vector<PropertySample> rows = propertySamplesWith({{"zoom", 150}, {"zoomsToFit", true}});

class DesignerPlugin : public testing::Test {
  protected:
    DesignerPlugin() : loader(pluginFile) {}
    void SetUp() override {
        plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
        ASSERT_NE(plugin, nullptr) << qPrintable(loader.errorString());
    }
    static void expectRows(const QWidget& widget) {
        for (const auto& row : rows)
            EXPECT_EQ(widget.property(row.name), row.value) << row.name;
    }
    static QString pluginFolder() { return QFileInfo(pluginFile).absolutePath(); }

    QPluginLoader loader;
    QDesignerCustomWidgetInterface* plugin = nullptr;
};

TEST_F(DesignerPlugin, TellsTheMinorVersionOfQtThatItFits) {
    const QString version = QStringLiteral("qt%1.%2.").arg(QT_VERSION_MAJOR).arg(QT_VERSION_MINOR);
    EXPECT_TRUE(pluginFile.contains(version)) << qPrintable(pluginFile);
}

TEST_F(DesignerPlugin, LiesInTheWidgetBoxWithAnIcon) {
    EXPECT_EQ(plugin->name(), className);
    EXPECT_FALSE(plugin->group().isEmpty());
    EXPECT_FALSE(plugin->toolTip().isEmpty());
    EXPECT_FALSE(plugin->isContainer());
    EXPECT_EQ(plugin->includeFile(), QStringLiteral("desktop/vkr_data_entry_widget.hpp"));
    const QImage picture = plugin->icon().pixmap(24, 24).toImage();
    ASSERT_EQ(picture.size(), QSize(24, 24));
    std::set<QRgb> colors;
    for (int x = 0; x != picture.width(); ++x)
        colors.insert(picture.pixel(x, picture.height() / 2));
    EXPECT_GT(colors.size(), 2U) << "a drawing, no blank";
}

TEST_F(DesignerPlugin, DescribesItsWidgetForTheFormFile) {
    QDomDocument document;
    QString error;
    ASSERT_TRUE(document.setContent(plugin->domXml(), &error)) << qPrintable(error);
    const auto ui = document.documentElement();
    EXPECT_EQ(ui.firstChildElement("widget").attribute("class"), className);

    const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
    const auto specifications = ui.elementsByTagName("propertyspecifications").at(0).childNodes();
    ASSERT_GT(specifications.size(), 0);
    for (int i = 0; i != specifications.size(); ++i) {
        const QString property = specifications.at(i).toElement().attribute("name");
        EXPECT_GE(widget->metaObject()->indexOfProperty(property.toLatin1()), 0)
            << qPrintable(property);
    }
}

TEST_F(DesignerPlugin, MakesWidgetsWithoutAnySetUp) {
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    auto* column = new QVBoxLayout(window.get());
    for (int i = 0; i != 3; ++i) {
        QWidget* widget = plugin->createWidget(window.get());
        ASSERT_NE(widget, nullptr);
        EXPECT_EQ(QString::fromLatin1(widget->metaObject()->className()), className);
        EXPECT_TRUE(widget->property("runMode").toBool());
        column->addWidget(widget);
    }
    window->show();
    EXPECT_FALSE(window->grab().isNull());
    window.reset();
}

TEST_F(DesignerPlugin, OffersEveryPropertyThatIsStored) {
    const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
    std::set<std::string> offered;
    const QMetaObject* meta = widget->metaObject();
    for (int i = meta->propertyOffset(); i != meta->propertyCount(); ++i)
        if (const QMetaProperty property = meta->property(i); property.isDesignable()) {
            EXPECT_TRUE(property.isWritable()) << property.name();
            EXPECT_TRUE(property.isStored()) << property.name();
            offered.insert(property.name());
        }
    std::set<std::string> expected;
    for (const auto& row : rows)
        expected.insert(row.name);
    EXPECT_EQ(offered, expected);
}

TEST_F(DesignerPlugin, AFormLoaderFindsThePropertiesOfAStoredForm) {
    QUiLoader forms;
    forms.clearPluginPaths();
    forms.addPluginPath(pluginFolder());
    ASSERT_TRUE(forms.availableWidgets().contains(className));
    QFile file(QStringLiteral(VKR_SOURCE_DIR "/examples/designed/company_window.ui"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> window(forms.load(&file));
    ASSERT_NE(window, nullptr) << qPrintable(forms.errorString());
    const auto* entry = window->findChild<QWidget*>(QStringLiteral("entry"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(QString::fromLatin1(entry->metaObject()->className()), className);
    const PropertySample stored[] = {
        {"shadeColorYear", QColor(226, 240, 217)},
        {"visibleQuarters", 12},
        {"showVLs", true},
        {"currentTab", 2},
        {"dateFormat", QStringLiteral("DD.MM.YYYY")},
        {"exchanges", QStringList{QStringLiteral("Nasdaq"), QStringLiteral("NYSE")}},
        {"applicationTitle", QStringLiteral("Companies")},
    };
    for (const auto& row : stored)
        EXPECT_EQ(entry->property(row.name), row.value) << row.name;
    EXPECT_TRUE(entry->property("runMode").toBool());
}

// Qt Designer itself, without its windows.
class Designer : public DesignerPlugin {
  protected:
    void SetUp() override {
        DesignerPlugin::SetUp();
        QCoreApplication::addLibraryPath(QFileInfo(pluginFolder()).absolutePath());
        core = QDesignerComponents::createFormEditor(&owner);
        core->setWidgetBox(QDesignerComponents::createWidgetBox(core, nullptr));
        core->setPropertyEditor(QDesignerComponents::createPropertyEditor(core, nullptr));
        core->setObjectInspector(QDesignerComponents::createObjectInspector(core, nullptr));
        new QDesignerIntegration(core, &owner);
        QDesignerComponents::initializePlugins(core);
    }
    void TearDown() override {
        delete core->objectInspector();
        delete core->propertyEditor();
        delete core->widgetBox();
    }

    QObject owner;
    QDesignerFormEditorInterface* core = nullptr;
};

TEST_F(Designer, HasTheComponentInItsWidgetBox) {
    const auto* box = core->widgetBox();
    QStringList found;
    for (int i = 0; i != box->categoryCount(); ++i) {
        const auto category = box->category(i);
        for (int j = 0; j != category.widgetCount(); ++j)
            if (category.widget(j).domXml().contains(className))
                found += category.name();
    }
    EXPECT_EQ(found.join(u';').toStdString(), plugin->group().toStdString());
}

TEST_F(Designer, StoresWhatThePropertyEditorSets) {
    const std::unique_ptr<QDesignerFormWindowInterface> form(
        core->formWindowManager()->createFormWindow());
    ASSERT_TRUE(form->setContents(QStringLiteral(
        "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">"
        "<widget class=\"vkr::VKRDataEntryWidget\" name=\"entry\"/></widget></ui>")));
    auto* widget = form->mainContainer()->findChild<QWidget*>(QStringLiteral("entry"));
    ASSERT_NE(widget, nullptr);
    ASSERT_EQ(QString::fromLatin1(widget->metaObject()->className()), className);
    EXPECT_FALSE(widget->property("runMode").toBool());
    EXPECT_FALSE(widget->property("dirty").toBool());

    auto* sheet = qt_extension<QDesignerPropertySheetExtension*>(core->extensionManager(), widget);
    ASSERT_NE(sheet, nullptr);
    for (const auto& row : rows) {
        const int index = sheet->indexOf(QString::fromLatin1(row.name));
        ASSERT_GE(index, 0) << row.name;
        EXPECT_TRUE(sheet->isVisible(index)) << row.name;
        EXPECT_TRUE(sheet->isEnabled(index)) << row.name;
        sheet->setProperty(index, row.value);
        sheet->setChanged(index, true);
    }
    for (const char* hidden : {"dirty", "runMode", "title"})
        EXPECT_FALSE(sheet->isVisible(sheet->indexOf(QString::fromLatin1(hidden)))) << hidden;

    QByteArray stored = form->contents().toUtf8();
    for (int again = 0; again != 2; ++again) {
        QBuffer file(&stored);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QUiLoader forms;
        forms.clearPluginPaths();
        forms.addPluginPath(pluginFolder());
        const std::unique_ptr<QWidget> window(forms.load(&file));
        ASSERT_NE(window, nullptr) << qPrintable(forms.errorString()) << stored.constData();
        const auto* loaded = window->findChild<QWidget*>(QStringLiteral("entry"));
        ASSERT_NE(loaded, nullptr) << stored.constData();
        expectRows(*loaded);
        // Once more through the designer.
        ASSERT_TRUE(form->setContents(QString::fromUtf8(stored)));
        stored = form->contents().toUtf8();
    }
}

} // namespace
} // namespace vkr
