// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <string_view>
#include <vector>

namespace vkr {

class FormView;
class iVKR_Company;
class ObjectFactory;
class PropertyBag;
class QtServices;
class VKRDataEntry;
struct MarkedField;

// The data-entry component as a Qt widget.
//
//     auto* entry = new VKRDataEntryWidget(this);
//     entry->setExchanges({"NYSE", "NASDAQ"});
//     entry->setCompany(std::make_shared<CompanyRecord>());
//     connect(entry, &VKRDataEntryWidget::accepted, this, &Window::saveAndClose);
//     connect(entry, &VKRDataEntryWidget::rejected, this, &Window::close);
//
// It is ready without any set-up, knows both localizers and the record class of this library, and
// has one size. Until a record is handed in it shows an empty square.
//
// Signals come from within the component: a slot that destroys the widget does so by deleteLater().
//
// What may be true together: component, view and services are there from the constructor to the
// destructor; the title and whether it is dirty are as the signals last told them, so they trail
// the component only within its own calls; the wheel zooms only where the widget zooms to fit.
class VKRDataEntryWidget : public QWidget {
    Q_OBJECT
    // 0 resets the shades of locked and yearly cells, 1 leaves them to the host.
    Q_PROPERTY(int userMode READ userMode WRITE setUserMode NOTIFY userModeChanged)
    Q_PROPERTY(QColor shadeColorLocked READ shadeColorLocked WRITE setShadeColorLocked NOTIFY
                   shadeColorLockedChanged)
    Q_PROPERTY(QColor shadeColorYear READ shadeColorYear WRITE setShadeColorYear NOTIFY
                   shadeColorYearChanged)
    Q_PROPERTY(QColor shadeColorQuarter READ shadeColorQuarter WRITE setShadeColorQuarter NOTIFY
                   shadeColorQuarterChanged)
    // Rows of the quarterly grid, 1 to 35.
    Q_PROPERTY(int visibleQuarters READ visibleQuarters WRITE setVisibleQuarters NOTIFY
                   visibleQuartersChanged)
    Q_PROPERTY(bool showReportingPeriod READ showReportingPeriod WRITE setShowReportingPeriod NOTIFY
                   showReportingPeriodChanged)
    Q_PROPERTY(bool showVLs READ showVLs WRITE setShowVLs NOTIFY showVLsChanged)
    // 1 to 5; another number is ignored.
    Q_PROPERTY(int currentTab READ currentTab WRITE setCurrentTab NOTIFY currentTabChanged)
    Q_PROPERTY(
        QString percentFormat READ percentFormat WRITE setPercentFormat NOTIFY percentFormatChanged)
    Q_PROPERTY(QString dateFormat READ dateFormat WRITE setDateFormat NOTIFY dateFormatChanged)
    Q_PROPERTY(
        QString numberFormat READ numberFormat WRITE setNumberFormat NOTIFY numberFormatChanged)
    // Of figures on the form: the decimal mark, "." or ",", and what groups thousands where a
    // pattern does. As the widget's locale has them, until they are set.
    Q_PROPERTY(QString decimalMark READ decimalMark WRITE setDecimalMark RESET resetNumberMarks
                   NOTIFY numberMarksChanged STORED false DESIGNABLE false)
    Q_PROPERTY(QString groupingMark READ groupingMark WRITE setGroupingMark RESET resetNumberMarks
                   NOTIFY numberMarksChanged STORED false DESIGNABLE false)
    Q_PROPERTY(bool fractionDisplay READ fractionDisplay WRITE setFractionDisplay NOTIFY
                   fractionDisplayChanged)
    Q_PROPERTY(int borderStyle READ borderStyle WRITE setBorderStyle NOTIFY borderStyleChanged)
    // 0 standard, 1 ZX; any other leaves the widget without texts.
    Q_PROPERTY(int platform READ platform WRITE setPlatform NOTIFY platformChanged)
    // Entries of the drop-down fields.
    Q_PROPERTY(QStringList sources READ sources WRITE setSources NOTIFY sourcesChanged)
    Q_PROPERTY(QStringList exchanges READ exchanges WRITE setExchanges NOTIFY exchangesChanged)
    Q_PROPERTY(QStringList industries READ industries WRITE setIndustries NOTIFY industriesChanged)
    // Writing false commits the form into the record.
    Q_PROPERTY(
        bool dirty READ isDirty WRITE setDirty NOTIFY dirtyChanged STORED false DESIGNABLE false)
    // The name of the company that is being edited, with its symbol: "Acme Inc. (ACM)".
    Q_PROPERTY(QString title READ title NOTIFY titleChanged STORED false DESIGNABLE false)
    // The form and its fonts in percent of their own size, 80 to 300; another number is cut to
    // that.
    Q_PROPERTY(int zoom READ zoom WRITE setZoom NOTIFY zoomChanged)
    // The widget takes whatever room it is given, from the smallest zoom on, and zooms to fill it.
    // Off, it has the one size that its zoom needs.
    Q_PROPERTY(bool zoomsToFit READ zoomsToFit WRITE setZoomsToFit)
    // Caption of the message boxes.
    Q_PROPERTY(QString applicationTitle READ applicationTitle WRITE setApplicationTitle NOTIFY
                   applicationTitleChanged)
    // False within a form designer.
    Q_PROPERTY(bool runMode READ runMode WRITE setRunMode STORED false DESIGNABLE false)

  public:
    explicit VKRDataEntryWidget(QWidget* parent = nullptr);
    // With a host's own localizer or record class: captions are taken once, while the widget is
    // made. The factory has to know all that the widget needs.
    explicit VKRDataEntryWidget(const ObjectFactory& objects, QWidget* parent = nullptr);
    ~VKRDataEntryWidget() override;

    // The record is edited in place: hosts that let Cancel discard changes hand in a copy.
    // Null makes an empty record.
    void setCompany(std::shared_ptr<iVKR_Company> company);
    // The record with everything that was typed, also in the field that still has the focus.
    // Null until the first assignment.
    [[nodiscard]] std::shared_ptr<iVKR_Company> company();
    // Fields whose text is not in the record, for hosts that ask before they close.
    [[nodiscard]] std::vector<MarkedField> unstoredFields() const;
    // Fields of whose text something was left out when it was stored.
    [[nodiscard]] std::vector<MarkedField> doubtfulFields() const;

    // Shows the data of the record anew, which somebody else than the widget has changed: see
    // VKRDataEntry::recordChanged.
    void recordChanged();

    // The values that a container keeps for one instance. Saving shows the remembered tab.
    [[nodiscard]] PropertyBag saveProperties();
    void restoreProperties(const PropertyBag& bag);

    // The component itself, for everything else.
    [[nodiscard]] VKRDataEntry& component() { return *entry_; }
    [[nodiscard]] const VKRDataEntry& component() const { return *entry_; }
    // Objects it creates by identifier: localizers, records.
    [[nodiscard]] ObjectFactory& factory();
    [[nodiscard]] FormView& formView() { return *view_; }

    [[nodiscard]] int userMode() const;
    void setUserMode(int mode);
    [[nodiscard]] QColor shadeColorLocked() const;
    void setShadeColorLocked(const QColor& color);
    [[nodiscard]] QColor shadeColorYear() const;
    void setShadeColorYear(const QColor& color);
    [[nodiscard]] QColor shadeColorQuarter() const;
    void setShadeColorQuarter(const QColor& color);
    [[nodiscard]] int visibleQuarters() const;
    void setVisibleQuarters(int quarters);
    [[nodiscard]] bool showReportingPeriod() const;
    void setShowReportingPeriod(bool shown);
    [[nodiscard]] bool showVLs() const;
    void setShowVLs(bool shown);
    [[nodiscard]] int currentTab() const;
    void setCurrentTab(int tab);
    [[nodiscard]] QString percentFormat() const;
    void setPercentFormat(const QString& pattern);
    [[nodiscard]] QString dateFormat() const;
    void setDateFormat(const QString& pattern);
    [[nodiscard]] QString numberFormat() const;
    void setNumberFormat(const QString& pattern);
    [[nodiscard]] QString decimalMark() const;
    void setDecimalMark(const QString& mark);
    [[nodiscard]] QString groupingMark() const;
    void setGroupingMark(const QString& mark);
    void resetNumberMarks();
    [[nodiscard]] bool fractionDisplay() const;
    void setFractionDisplay(bool fractions);
    [[nodiscard]] int borderStyle() const;
    void setBorderStyle(int style);
    [[nodiscard]] int platform() const;
    void setPlatform(int platform);
    [[nodiscard]] QStringList sources() const { return sources_; }
    void setSources(const QStringList& sources);
    [[nodiscard]] QStringList exchanges() const { return exchanges_; }
    void setExchanges(const QStringList& exchanges);
    [[nodiscard]] QStringList industries() const { return industries_; }
    void setIndustries(const QStringList& industries);
    [[nodiscard]] bool isDirty() const;
    void setDirty(bool dirty);
    [[nodiscard]] QString title() const { return title_; }
    // A title for QWidget::setWindowTitle() of a window that shows by setWindowModified() whether
    // there are changes. A "[*]" in a company's name stands for itself.
    [[nodiscard]] static QString windowTitleFor(QString title);
    static constexpr int smallestZoom = 80;
    static constexpr int largestZoom = 300;
    [[nodiscard]] int zoom() const;
    void setZoom(int percent);
    [[nodiscard]] bool zoomsToFit() const { return zoomsToFit_; }
    void setZoomsToFit(bool fits);
    [[nodiscard]] QString applicationTitle() const;
    void setApplicationTitle(const QString& title);
    [[nodiscard]] bool runMode() const;
    void setRunMode(bool running);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  public slots:
    void setNext();
    void setPrevious();
    void clear();
    // The cells that are selected in a grid, with years or quarters and the heads of the columns.
    void copyWithHeadings();

  signals:
    // The seven events of the component.
    void tabChange(int tab);
    // 3000 + object, or 3063 + tab.
    void moreHelp(int object);
    void assistant(int object, const QVariant& value);
    // 0: OK, -1: Cancel. The host closes the widget, or not.
    void unloadRequest(int mode);
    // The same by their names, right after it: connect to the one or to these.
    void accepted();
    void rejected();
    // Declared for hosts that bind to them; never emitted.
    void updatePrice();
    void updateData();
    void updateQDataOnly();

    void dirtyChanged(bool dirty);
    // After every change that the user makes, also one that takes another back; and after a record
    // was handed in or `dirty` assigned.
    void edited();
    void titleChanged(const QString& title);

    void userModeChanged();
    void shadeColorLockedChanged();
    void shadeColorYearChanged();
    void shadeColorQuarterChanged();
    void visibleQuartersChanged();
    void showReportingPeriodChanged();
    void showVLsChanged();
    void currentTabChanged();
    void percentFormatChanged();
    void dateFormatChanged();
    void numberFormatChanged();
    void numberMarksChanged();
    void fractionDisplayChanged();
    void borderStyleChanged();
    void platformChanged();
    void sourcesChanged();
    void exchangesChanged();
    void industriesChanged();
    void applicationTitleChanged();
    void zoomChanged(int percent);
    // The user turned the wheel with Ctrl: a host that agrees sets this zoom and gives the room.
    void zoomRequested(int percent);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    class Desktop;
    class Events;
    class Remains;

    void notify(std::string_view property);
    [[nodiscard]] QSize sizeAt(int zoom) const;
    void fit();
    void stateChanged();
    [[nodiscard]] QString recordTitle() const;
    void checkInvariants() const;

    std::unique_ptr<QtServices> services_;
    std::unique_ptr<Events> events_;
    std::unique_ptr<VKRDataEntry> entry_;
    FormView* view_ = nullptr;
    std::shared_ptr<iVKR_Company> record_; // as handed in, for the title
    QStringList sources_;
    QStringList exchanges_;
    QStringList industries_;
    QString title_;
    bool dirty_ = false;
    bool followsLocale_ = true; // of the marks of figures
    bool zoomsToFit_ = false;
};

} // namespace vkr
