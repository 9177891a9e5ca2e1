// SPDX-License-Identifier: MIT
#include "desktop/designer/designer_plugin.hpp"

#include "desktop/vkr_data_entry_widget.hpp"

#include <QIcon>

namespace vkr {

namespace {

struct PropertyNote {
    const char* property;
    const char* text;
};

// Shown beside the property in the editor.
constexpr PropertyNote notes[] = {
    {"userMode", "0 resets the shades of locked and yearly cells, 1 leaves them as set here"},
    {"shadeColorLocked", "Background of cells that cannot be edited"},
    {"shadeColorYear", "Background of the yearly cells"},
    {"shadeColorQuarter", "Background of the quarterly cells"},
    {"visibleQuarters", "Rows of the quarterly grid, 1 to 35"},
    {"currentTab", "The tab that is shown first, 1 to 5"},
    {"percentFormat", "Pattern of percentages, such as 0.0%"},
    {"dateFormat", "Pattern of dates, such as MM/DD/YYYY"},
    {"numberFormat", "Pattern of figures, such as #,##0.00"},
    {"fractionDisplay", "Prices in eighths instead of decimals"},
    {"borderStyle", "0 none, 1 a single line"},
    {"platform", "0 standard, 1 ZX"},
    {"sources", "Entries of the field Source"},
    {"exchanges", "Entries of the field Exchange"},
    {"industries", "Entries of the field Industry"},
    {"applicationTitle", "Caption of the message boxes"},
};

// Neither translated nor of several lines.
constexpr const char* patterns[] = {"percentFormat", "dateFormat", "numberFormat"};

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
    for (const auto& note : notes)
        specifications +=
            QStringLiteral("<tooltip name=\"%1\">%2</tooltip>")
                .arg(QLatin1String(note.property), QString::fromLatin1(note.text).toHtmlEscaped());
    for (const auto* pattern : patterns)
        specifications += QStringLiteral("<stringpropertyspecification name=\"%1\" notr=\"true\" "
                                         "type=\"singleline\"/>")
                              .arg(QLatin1String(pattern));
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
