// SPDX-License-Identifier: MIT
// The widget's properties: those of the component, in the types of Qt.
#include "control/vkr_data_entry.hpp"
#include "desktop/property_names.hpp"
#include "desktop/qt_services.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QMetaProperty>

#include <algorithm>

namespace vkr {

namespace {

Variant entriesOf(const QStringList& texts) {
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(texts.size()));
    for (const auto& text : texts)
        entries.push_back(fromQt(text));
    return textArray(std::move(entries));
}

} // namespace

int VKRDataEntryWidget::userMode() const {
    return entry_->get_UserMode();
}
void VKRDataEntryWidget::setUserMode(int mode) {
    entry_->put_UserMode(static_cast<UserModeType>(mode));
}
QColor VKRDataEntryWidget::shadeColorLocked() const {
    return vkr::toQt(entry_->get_ShadeColorLocked());
}
void VKRDataEntryWidget::setShadeColorLocked(const QColor& color) {
    entry_->put_ShadeColorLocked(fromQt(color));
}
QColor VKRDataEntryWidget::shadeColorYear() const {
    return vkr::toQt(entry_->get_ShadeColorYear());
}
void VKRDataEntryWidget::setShadeColorYear(const QColor& color) {
    entry_->put_ShadeColorYear(fromQt(color));
}
QColor VKRDataEntryWidget::shadeColorQuarter() const {
    return vkr::toQt(entry_->get_ShadeColorQuarter());
}
void VKRDataEntryWidget::setShadeColorQuarter(const QColor& color) {
    entry_->put_ShadeColorQuarter(fromQt(color));
}
int VKRDataEntryWidget::visibleQuarters() const {
    return entry_->get_VisibleQuarters();
}
void VKRDataEntryWidget::setVisibleQuarters(int quarters) {
    entry_->put_VisibleQuarters(static_cast<std::int16_t>(std::clamp(quarters, 1, 35)));
}
bool VKRDataEntryWidget::showReportingPeriod() const {
    return entry_->get_ShowReportingPeriod();
}
void VKRDataEntryWidget::setShowReportingPeriod(bool shown) {
    entry_->put_ShowReportingPeriod(shown);
}
bool VKRDataEntryWidget::showVLs() const {
    return entry_->get_ShowVLs();
}
void VKRDataEntryWidget::setShowVLs(bool shown) {
    entry_->put_ShowVLs(shown);
}
int VKRDataEntryWidget::currentTab() const {
    return entry_->get_CurrentTab();
}
void VKRDataEntryWidget::setCurrentTab(int tab) {
    entry_->put_CurrentTab(static_cast<TABObject>(tab));
}
QString VKRDataEntryWidget::percentFormat() const {
    return vkr::toQt(entry_->get_PercentFormat());
}
void VKRDataEntryWidget::setPercentFormat(const QString& pattern) {
    entry_->put_PercentFormat(fromQt(pattern));
}
QString VKRDataEntryWidget::dateFormat() const {
    return vkr::toQt(entry_->get_DateFormat());
}
void VKRDataEntryWidget::setDateFormat(const QString& pattern) {
    entry_->put_DateFormat(fromQt(pattern));
}
QString VKRDataEntryWidget::numberFormat() const {
    return vkr::toQt(entry_->get_NumberFormat());
}
void VKRDataEntryWidget::setNumberFormat(const QString& pattern) {
    entry_->put_NumberFormat(fromQt(pattern));
}
QString VKRDataEntryWidget::decimalMark() const {
    return QString(QLatin1Char(entry_->get_NumberMarks().decimal));
}
void VKRDataEntryWidget::setDecimalMark(const QString& mark) {
    NumberMarks marks = entry_->get_NumberMarks();
    marks.decimal = mark == QStringLiteral(",") ? ',' : '.';
    followsLocale_ = false;
    entry_->put_NumberMarks(marks);
}
QString VKRDataEntryWidget::groupingMark() const {
    return vkr::toQt(entry_->get_NumberMarks().grouping);
}
void VKRDataEntryWidget::setGroupingMark(const QString& mark) {
    followsLocale_ = false;
    entry_->put_NumberMarks({entry_->get_NumberMarks().decimal, fromQt(mark)});
}
void VKRDataEntryWidget::resetNumberMarks() {
    followsLocale_ = true;
    entry_->put_NumberMarks({locale().decimalPoint() == QStringLiteral(",") ? ',' : '.',
                             fromQt(locale().groupSeparator())});
}
bool VKRDataEntryWidget::fractionDisplay() const {
    return entry_->get_FractionDisplay();
}
void VKRDataEntryWidget::setFractionDisplay(bool fractions) {
    entry_->put_FractionDisplay(fractions);
}
int VKRDataEntryWidget::borderStyle() const {
    return static_cast<int>(entry_->get_BorderStyle());
}
void VKRDataEntryWidget::setBorderStyle(int style) {
    if (style == borderStyle())
        return;
    entry_->put_BorderStyle(style == 0 ? BorderStyle::none : BorderStyle::fixedSingle);
    emit borderStyleChanged();
}
int VKRDataEntryWidget::platform() const {
    return entry_->get_Platform();
}
void VKRDataEntryWidget::setPlatform(int platform) {
    entry_->put_Platform(static_cast<PlatformType>(platform));
}
void VKRDataEntryWidget::setSources(const QStringList& sources) {
    entry_->put_vntSource(entriesOf(sources));
    sources_ = sources;
    emit sourcesChanged();
}
void VKRDataEntryWidget::setExchanges(const QStringList& exchanges) {
    entry_->put_vntExchange(entriesOf(exchanges));
    exchanges_ = exchanges;
    emit exchangesChanged();
}
void VKRDataEntryWidget::setIndustries(const QStringList& industries) {
    entry_->put_vntIndustry(entriesOf(industries));
    industries_ = industries;
    emit industriesChanged();
}
bool VKRDataEntryWidget::isDirty() const {
    return entry_->get_blnDirty();
}
void VKRDataEntryWidget::setDirty(bool dirty) {
    const QPointer<VKRDataEntryWidget> stays(this);
    if (!dirty)
        entry_->leaveField(); // what is still being typed is committed too
    if (stays)
        entry_->put_blnDirty(dirty);
    if (stays)
        stateChanged();
}
QString VKRDataEntryWidget::applicationTitle() const {
    return services_->title();
}
void VKRDataEntryWidget::setApplicationTitle(const QString& title) {
    if (title == services_->title())
        return;
    services_->setTitle(title);
    emit applicationTitleChanged();
}
bool VKRDataEntryWidget::runMode() const {
    return services_->ambientUserMode();
}
void VKRDataEntryWidget::setRunMode(bool running) {
    services_->setUserMode(running);
}

void VKRDataEntryWidget::notify(std::string_view property) {
    const auto rows = propertyTable();
    const auto row = std::find_if(rows.begin(), rows.end(), [property](const PropertyRow& one) {
        return one.name == property;
    });
    if (row == rows.end() || row->property == EntryProperty::CurrentTab)
        return; // the tab's signal comes with the event, also where the user selects it
    if (row->property == EntryProperty::NumberMarks) {
        emit numberMarksChanged(); // of two properties
        return;
    }
    const QMetaObject& meta = staticMetaObject;
    if (const int index = meta.indexOfProperty(widgetProperty(*row).constData()); index >= 0)
        meta.property(index).notifySignal().invoke(this, Qt::DirectConnection);
}

} // namespace vkr
