// SPDX-License-Identifier: MIT
#include "desktop/designer/designer_plugin.hpp"

#include "desktop/property_names.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QIcon>
#include <QMetaProperty>

namespace vkr {

namespace {

// Shown beside a property in the editor.
QString tooltip(const char* property, QLatin1String text) {
    return QStringLiteral("<tooltip name=\"%1\">%2</tooltip>")
        .arg(QLatin1String(property), QString(text).toHtmlEscaped());
}

// Neither translated nor of several lines.
QString singleLine(const char* property) {
    return QStringLiteral("<stringpropertyspecification name=\"%1\" notr=\"true\" "
                          "type=\"singleline\"/>")
        .arg(QLatin1String(property));
}

} // namespace

DesignerPlugin::DesignerPlugin(QObject* parent) : QObject(parent) {}

QString DesignerPlugin::name() const {
    return QString::fromLatin1(VKRDataEntryWidget::staticMetaObject.className());
}
QString DesignerPlugin::group() const {
    return QStringLiteral("VKR Data Entry");
}
QString DesignerPlugin::toolTip() const {
    return QStringLiteral("Data entry for a listed company's fundamentals");
}
QString DesignerPlugin::whatsThis() const {
    return QStringLiteral("Ten fiscal years, 35 quarters, prices, capital and notes of a company, "
                          "on five tabs. Has one size; the host hands in the record.");
}
QString DesignerPlugin::includeFile() const {
    return QStringLiteral("desktop/vkr_data_entry_widget.hpp");
}
QIcon DesignerPlugin::icon() const {
    QIcon icon(QStringLiteral(":/vkr/designer/widget-24.png"));
    icon.addFile(QStringLiteral(":/vkr/designer/widget-48.png"));
    return icon;
}

QString DesignerPlugin::domXml() const {
    QString specifications;
    const QMetaObject& widget = VKRDataEntryWidget::staticMetaObject;
    for (const auto& row : propertyTable()) {
        const int index = widget.indexOfProperty(widgetProperty(row).constData());
        if (index < 0 || !widget.property(index).isDesignable())
            continue;
        const char* property = widget.property(index).name();
        specifications += tooltip(
            property, QLatin1String(row.meaning.data(), static_cast<int>(row.meaning.size())));
        if (row.type == PropertyType::text)
            specifications += singleLine(property);
    }
    specifications += tooltip("applicationTitle", QLatin1String("Caption of the message boxes"));
    return QStringLiteral("<ui language=\"c++\" displayname=\"Company Data Entry\">"
                          "<widget class=\"%1\" name=\"dataEntry\"/>"
                          "<customwidgets><customwidget>"
                          "<class>%1</class><extends>QWidget</extends>"
                          "<header>%2</header>"
                          "<propertyspecifications>%3</propertyspecifications>"
                          "</customwidget></customwidgets></ui>")
        .arg(name(), includeFile(), specifications);
}

QWidget* DesignerPlugin::createWidget(QWidget* parent) {
    auto* widget = new VKRDataEntryWidget(parent);
    if (isInDesigner_) {
        widget->setRunMode(false);
        widget->setCompany(nullptr); // an empty one, so that there is a form to look at
    }
    return widget;
}

void DesignerPlugin::initialize(QDesignerFormEditorInterface* /*core*/) {
    isInDesigner_ = true;
}

} // namespace vkr
