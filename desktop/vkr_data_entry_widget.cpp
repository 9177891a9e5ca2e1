// SPDX-License-Identifier: MIT
#include "desktop/vkr_data_entry_widget.hpp"

#include "binding/trailing_earnings.hpp"
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/qt_services.hpp"
#include "desktop/qt_values.hpp"
#include "localizer/localizer.hpp"
#include "platform/error_trap.hpp"

#include <QPointer>

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

ObjectFactory ownObjects() {
    ObjectFactory objects;
    registerLocalizers(objects);
    registerCompanyRecord(objects);
    registerTrailingEarnings(objects);
    return objects;
}

QVariant variantOf(const Variant& value) {
    return value.isNumeric() && value.varType() != Variant::vtString
               ? QVariant(value.toDouble())
               : QVariant(toQt(value.toText()));
}

} // namespace

// Turns notices of properties, and the wheel that zooms, into signals.
class VKRDataEntryWidget::Desktop final : public QtServices, public WheelZoom {
  public:
    explicit Desktop(VKRDataEntryWidget& widget) : QtServices(widget), widget_(&widget) {}

    void forgetWidget() { widget_ = nullptr; }
    void propertyChanged(std::string_view name) override {
        const Call call(*this);
        if (widget_ != nullptr)
            widget_->notify(name);
    }
    void zoomTurned(int steps) override {
        constexpr int step = 10;
        const int zoom = widget_->zoom();
        const int wanted =
            steps < 0 ? (zoom / step - steps) * step : ((zoom + step - 1) / step - steps) * step;
        emit widget_->zoomRequested(std::clamp(wanted, smallestZoom, largestZoom));
    }

  private:
    VKRDataEntryWidget* widget_; // null once it goes
};

// Turns the component's events into signals.
class VKRDataEntryWidget::Events final : public VKRDataEntryEvents {
  public:
    explicit Events(VKRDataEntryWidget& widget) : widget_(widget) {}

    void TabChange(TABObject intTab) override {
        const QtServices::Call call(*widget_.services_);
        const QPointer<VKRDataEntryWidget> stays(&widget_);
        emit widget_.tabChange(intTab);
        if (stays)
            emit widget_.currentTabChanged();
    }
    void MoreHelp(std::int16_t intObject) override {
        tell(&VKRDataEntryWidget::moreHelp, intObject);
    }
    void Assistant(std::int16_t enumObject, const Variant& vntValue) override {
        tell(&VKRDataEntryWidget::assistant, enumObject, variantOf(vntValue));
    }
    void UnloadRequest(UnloadModeType enumMode) override {
        const QPointer<VKRDataEntryWidget> stays(&widget_);
        tell(&VKRDataEntryWidget::unloadRequest, enumMode);
        if (stays)
            tell(enumMode == ulConfirm ? &VKRDataEntryWidget::accepted
                                       : &VKRDataEntryWidget::rejected);
    }
    void UpdatePrice(const std::shared_ptr<iVKR_Company>& /*objCompany*/) override {
        tell(&VKRDataEntryWidget::updatePrice);
    }
    void UpdateData(const std::shared_ptr<iVKR_Company>& /*objCompany*/) override {
        tell(&VKRDataEntryWidget::updateData);
    }
    void UpdateQDataOnly(const std::shared_ptr<iVKR_Company>& /*objCompany*/) override {
        tell(&VKRDataEntryWidget::updateQDataOnly);
    }

  private:
    // A handler may delete the widget.
    template <typename Signal, typename... Values>
    void tell(Signal signal, Values... values) {
        const QtServices::Call call(*widget_.services_);
        emit(widget_.*signal)(values...);
    }

    VKRDataEntryWidget& widget_;
};

// What a widget leaves behind that is destroyed while calls of its component have not returned.
class VKRDataEntryWidget::Remains final : public QObject {
  public:
    explicit Remains(VKRDataEntryWidget& widget)
        : view_(widget.view_), services_(std::move(widget.services_)),
          events_(std::move(widget.events_)), entry_(std::move(widget.entry_)) {
        view_->setParent(nullptr);
        services_->leave(*this);
    }
    ~Remains() override { delete view_; } // before the form it shows

  private:
    QPointer<FormView> view_;
    std::unique_ptr<QtServices> services_;
    std::unique_ptr<Events> events_;
    std::unique_ptr<VKRDataEntry> entry_;
};

VKRDataEntryWidget::VKRDataEntryWidget(QWidget* parent)
    : VKRDataEntryWidget(ownObjects(), parent) {}

VKRDataEntryWidget::VKRDataEntryWidget(const ObjectFactory& objects, QWidget* parent)
    : QWidget(parent), services_(std::make_unique<Desktop>(*this)),
      events_(std::make_unique<Events>(*this)) {
    services_->factory() = objects;
    entry_ = std::make_unique<VKRDataEntry>(*services_);
    entry_->InitProperties();
    entry_->ReadProperties(PropertyBag()); // chooses the platform, and with it the texts
    entry_->setEvents(events_.get());
    entry_->stateChanged = [this] { stateChanged(); };
    entry_->fractionDisplayChanged = [this] {
        const QtServices::Call call(*services_);
        emit fractionDisplayChanged();
    };

    view_ = new FormView(entry_->form(), this);
    services_->setView(view_);
    setFocusProxy(view_);
    resetNumberMarks();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    checkInvariants();
}

void VKRDataEntryWidget::checkInvariants() const {
    assert(services_ != nullptr && events_ != nullptr && entry_ != nullptr && view_ != nullptr);
    assert(title_.isEmpty() || record_ != nullptr);
    assert(zoomsToFit_ == view_->wheelZooms());
}

VKRDataEntryWidget::~VKRDataEntryWidget() {
    view_->setWheelZoom(nullptr);
    static_cast<Desktop&>(*services_).forgetWidget();
    entry_->setEvents(nullptr);
    entry_->stateChanged = nullptr;
    entry_->fractionDisplayChanged = nullptr;
    entry_->historyAsked = nullptr;
    entry_->originOf = nullptr;
    if (services_->isCalling())
        static_cast<void>(std::make_unique<Remains>(*this).release()); // deletes itself
    else
        delete view_; // before the form it shows
}

// --- the record ----------------------------------------------------------------------------------

void VKRDataEntryWidget::setCompany(std::shared_ptr<iVKR_Company> company) {
    const QPointer<VKRDataEntryWidget> stays(this);
    entry_->put_objCompany(company);
    if (!stays)
        return;
    record_ = company != nullptr ? std::move(company) : entry_->get_objCompany();
    stateChanged();
}

void VKRDataEntryWidget::recordChanged() {
    entry_->recordChanged();
}

std::shared_ptr<iVKR_Company> VKRDataEntryWidget::company() {
    const QPointer<VKRDataEntryWidget> stays(this);
    entry_->leaveField();
    return stays ? entry_->get_objCompany() : nullptr;
}

std::vector<MarkedField> VKRDataEntryWidget::unstoredFields() const {
    return entry_->unstoredFields();
}

std::vector<MarkedField> VKRDataEntryWidget::doubtfulFields() const {
    return entry_->doubtfulFields();
}

QString VKRDataEntryWidget::recordTitle() const {
    if (record_ == nullptr)
        return {};
    return attemptOr(QString(), [&] { // a record that can't be read has no title
        const QString name = vkr::toQt(record_->get_Name());
        const QString symbol = vkr::toQt(record_->get_Symbol());
        if (name.isEmpty() || symbol.isEmpty())
            return name + symbol;
        return QString(name + QStringLiteral(" (") + symbol + QStringLiteral(")"));
    });
}

QString VKRDataEntryWidget::windowTitleFor(QString title) {
    constexpr auto mark = QLatin1String("[*]");
    return title.replace(mark, QStringLiteral("[*][*]")) + mark;
}

void VKRDataEntryWidget::stateChanged() {
    const QtServices::Call call(*services_);
    const QPointer<VKRDataEntryWidget> stays(this);
    if (const bool dirty = entry_->get_blnDirty(); dirty != dirty_) {
        dirty_ = dirty;
        emit dirtyChanged(dirty);
        if (!stays)
            return;
    }
    if (const QString title = recordTitle(); title != title_) {
        title_ = title;
        checkInvariants();
        emit titleChanged(title);
        if (!stays)
            return;
    }
    emit edited();
}

PropertyBag VKRDataEntryWidget::saveProperties() {
    PropertyBag bag;
    entry_->WriteProperties(bag);
    return bag;
}

void VKRDataEntryWidget::restoreProperties(const PropertyBag& bag) {
    entry_->ReadProperties(bag);
}

ObjectFactory& VKRDataEntryWidget::factory() {
    return services_->factory();
}

void VKRDataEntryWidget::copyWithHeadings() {
    entry_->copyCellsWithHeadings();
}
void VKRDataEntryWidget::setNext() {
    entry_->SetNext();
}
void VKRDataEntryWidget::setPrevious() {
    entry_->SetPrevious();
}
void VKRDataEntryWidget::clear() {
    entry_->Clear();
}

// --- size ----------------------------------------------------------------------------------------

QSize VKRDataEntryWidget::sizeHint() const {
    return sizeAt(zoom());
}

QSize VKRDataEntryWidget::minimumSizeHint() const {
    return sizeAt(zoomsToFit_ ? smallestZoom : zoom());
}

QSize VKRDataEntryWidget::sizeAt(int zoom) const {
    return view_->sizeOf(VKRDataEntry::workingWidth, VKRDataEntry::workingHeight, zoom);
}

int VKRDataEntryWidget::zoom() const {
    return view_->zoom();
}

void VKRDataEntryWidget::setZoom(int percent) {
    percent = std::clamp(percent, smallestZoom, largestZoom);
    if (percent == zoom())
        return;
    view_->setZoom(percent);
    updateGeometry();
    emit zoomChanged(percent);
}

void VKRDataEntryWidget::setZoomsToFit(bool fits) {
    zoomsToFit_ = fits;
    const auto policy = fits ? QSizePolicy::Preferred : QSizePolicy::Fixed;
    setSizePolicy(policy, policy);
    view_->setWheelZoom(fits ? &static_cast<Desktop&>(*services_) : nullptr);
    checkInvariants();
    updateGeometry();
}

// The largest zoom that there is room for, in the middle of it.
void VKRDataEntryWidget::fit() {
    const QSize whole = sizeAt(100);
    const auto fits = [this](int zoom) { return sizeAt(zoom).boundedTo(size()) == sizeAt(zoom); };
    int largest = std::min(100 * width() / whole.width(), 100 * height() / whole.height()) + 1;
    if (!fits(largest)) // pixels are whole
        --largest;
    setZoom(largest);
    const QSize form = sizeAt(zoom());
    view_->move(std::max(0, (width() - form.width()) / 2),
                std::max(0, (height() - form.height()) / 2));
}

void VKRDataEntryWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LocaleChange && followsLocale_)
        resetNumberMarks();
    QWidget::changeEvent(event);
}

void VKRDataEntryWidget::resizeEvent(QResizeEvent* /*event*/) {
    if (zoomsToFit_)
        fit();
    const auto scale = view_->scale();
    entry_->Resize(scale.twips(width()), scale.twips(height()));
}

} // namespace vkr
