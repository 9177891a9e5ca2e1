// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"

#include "binding/company_fields.hpp"
#include "binding/company_loader.hpp"
#include "binding/session.hpp"
#include "control/captions.hpp"
#include "control/entry_objects.hpp"
#include "control/help_frame.hpp"
#include "control/right_click_menu.hpp"
#include "form/form_layout.hpp"
#include "input/date_pattern.hpp"
#include "input/mdlDataEntry.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/options_tab.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

constexpr std::string_view startPriceFormat = "#0.000";
constexpr std::string_view startPercentFormat = "#0.00%";
constexpr std::string_view startCurrencySymbol = "$";
constexpr int linkPicture = 101;
constexpr int zxProjectionCaption = 613;
constexpr int zxOtherCaption = 614;

// Keep their design colours.
constexpr std::string_view ownColors[] = {"lblMoreHelp", "lblToolTip", "shaBackground", "shaBorder",
                                          "picToolTip"};

struct ControlName {
    std::string_view name;
    int index = Control::noIndex;
};

// Out of sight on the ZX platform.
constexpr ControlName hiddenOnZx[] = {
    {"lblUnit", 0},        {"lblUnit", 10},      {"lblLabel", 18},       {"lblLabel", 11},
    {"lblCurrency", 3},    {"lblCurrency", 16},  {"txtTotalDebt"},       {"txtTotalCap"},
    {"txtInsiderHolding"}, {"txtInstitutional"}, {"lblUnit", 1},         {"lblUnit", 2},
    {"lblUnit", 3},        {"lblCurrency", 6},   {"txtPreferredShares"}, {"txtCommonShares"},
    {"txtDilutedShares"},
};

// Fields outside the company table and the grids whose keys are filtered.
struct FilteredField {
    std::string_view name;
    KeyFilter filter;
};
constexpr FilteredField otherFilters[] = {
    {"txtLastFY", {.allowNegative = true}},
    {"txtDateofLastFY", {.freeText = true, .allowNegative = true}},
    {"cmbReportingPeriod", {.freeText = true, .allowNegative = true}},
    {"txtLastQDate", {.freeText = true, .allowNegative = true}},
    {"txtCurSymbol", {.freeText = true, .allowNegative = true}},
};

constexpr std::string_view reportingPeriods[] = {"3 months", "6 months", "12 months"};

// Dates that OK settles before it closes.
constexpr std::string_view settledByOk[] = {"txtLastUpdate", "txtPriceUpdate", "txtDateOfSource"};
// Dates that rebuild a grid: the first OK settles them, the second one closes.
constexpr std::string_view pendingDates[] = {"txtDateofLastFY", "txtLastQDate"};

bool isPendingDate(const Control& control) {
    return std::ranges::find(pendingDates, control.name()) != std::end(pendingDates);
}

bool isDateField(const Control& control) {
    return isPendingDate(control) ||
           std::ranges::find(settledByOk, control.name()) != std::end(settledByOk);
}

// The sample label of each colour button shows its colour.
enum Shade { shadeLocked, shadeYear, shadeQuarter };

} // namespace

class VKRDataEntry::Impl final : public FormHandler, public OptionsHost {
  public:
    Impl(VKRDataEntry& owner, Services& services);

    void initialize();
    void readProperties(const PropertyBag& bag);
    void writeProperties(PropertyBag& bag);
    void resize();

    void load(std::shared_ptr<iVKR_Company> company);
    std::shared_ptr<iVKR_Company> commit();
    void commitInto(std::shared_ptr<iVKR_Company> copy);
    void holdCommitted();
    void clear();
    void stepTab(int step);
    void scrollMouse(KeyCode key);
    void leaveField();
    [[nodiscard]] std::vector<MarkedField> markedFields(MarkKind kind) const;
    void showField(std::string_view id);

    void setPlatform(PlatformType platform);
    void setShade(Shade shade, Color color);
    [[nodiscard]] Color shadeOf(Shade shade) const;
    void setFractions(bool fractions);
    void setNumberMarks(const NumberMarks& marks);
    void showReportingPeriod(bool shown);
    void showVLs(bool shown);
    void fillList(std::string_view name, const Variant& items);
    void notify(std::string_view property) {
        attempt([&] { services.propertyChanged(property); });
    }
    void showQuarters(int rows);
    [[nodiscard]] int visibleQuarters() const {
        return wantedQuarters_.value_or(quarterly.visibleRows());
    }

    // --- FormHandler
    void onGotFocus(Control& control) override;
    void onLostFocus(Control& control) override;
    void onKeyDown(Control& control, KeyCode& key, int shift) override;
    void onKeyPress(Control& control, char32_t& character) override;
    void onKeyUp(Control& control, KeyCode key, int shift) override;
    bool onPaste(TextField& field, std::string_view text) override;
    void onPasteCut(TextField& field, std::string_view leftOut) override;
    void onChange(TextField& field) override;
    void onMouseDown(Control& control, MouseButton button, int tab) override;
    void onPressEnded(Control& control) override;
    void onClick(Control& control) override;
    void onDoubleClick(Control& control) override;
    void onListChoice(ComboBox& list) override;
    void onScroll(ScrollBar& bar) override;
    void onSpin(Spinner& spinner, int steps) override;
    void onTabSelected(TabStrip& strip) override;
    void onFormClick() override { session.hideHelpFrame(); }
    void onFocusLeft() override { session.hideHelpFrame(); }

    // --- OptionsHost
    void chooseUnit(std::int32_t unit) override;
    void chooseFractions(bool fractions) override;
    void chooseCommonEquity(bool commonEquity) override;
    void chooseTaxRate(bool taxRate) override;
    void chooseShade(int button) override;

    VKRDataEntry& self;
    Services& services;
    Form form;
    Session session;
    CompanyFields fields;
    YearlyGrid yearly;
    QuarterlyGrid quarterly;
    Captions captions;
    EntryObjects objects;
    HelpFrame help;
    RightClickMenu menu;
    VKRDataEntryEvents silent;
    VKRDataEntryEvents* events = &silent;

    UserModeType userMode = umDefault;
    Color lockedShade = colors::paleCyan;
    bool reportingPeriodShown = false;
    bool vlsShown = false;
    TABObject currentTab = toCompany; // last one reported

  private:
    // The form's controls must be there before the parts that look them up.
    static Form& built(Form& form) {
        buildForm(form);
        return form;
    }
    [[nodiscard]] TabStrip& strip() const { return form.get<TabStrip>("tbsDataEntry"); }
    void applyColorScheme();
    void applyLock();
    void listReportingPeriods();
    void makeWantedQuarters();
    void leaveControl(Control& control);
    void showUnit();
    void showOptions();
    void showAlternativeCaptions();
    void createLocalizer();
    void focusFirstField();
    void pressOk();
    void pressCancel();
    void pressHelp();
    void pressLock();
    void settleDates();
    void leavePendingDates();
    [[nodiscard]] bool hasSkippedDate() const;
    void leaveOtherField(TextField& field);
    [[nodiscard]] const KeyFilter* filterOf(const Control& control) const;
    [[nodiscard]] std::optional<int> noteOf(const Control& control) const;
    [[nodiscard]] std::optional<Date> dateOf(const TextField& field) const;
    [[nodiscard]] std::optional<Datum> dateIn(const Control& control) const;
    [[nodiscard]] bool opensCalendar(const Control& control, KeyCode key, int shift) const;
    void askForMoreHelp();

    std::optional<int> wantedQuarters_; // rows to be made at the end of the work under way
    std::vector<Label*> lockedLabels_;  // of the fields that the lock protects
    bool okSettles_ = false;            // OK went down while a pending date was edited
    bool helpKeyDown_ = false;
    bool keyWentDown_ = false; // since the help frame was shown
    bool toldOfKey_ = false;   // that it was refused
    bool quiet_ = true;        // start-up and restoring: the focus stays where it is
    bool resizing_ = false;
    bool loading_ = false;
    const TextField* typedDate_ = nullptr; // with a date that was but suggested until it is left
};

VKRDataEntry::Impl::Impl(VKRDataEntry& owner, Services& hostServices)
    : self(owner), services(hostServices), session(built(form), hostServices), fields(session),
      yearly(session), quarterly(session), captions(session),
      objects(form, fields, yearly, quarterly), help(session), menu(session, objects, help) {
    form.setHandler(this);
    session.rowsLabelled = [this] {
        if (!loading_)
            nameCells(form);
    };
    session.workDone = [this] { makeWantedQuarters(); };
    fields.sourceStatesRates = [this] {
        for (const std::string_view name : {"optPTI", "optCommEq"}) {
            auto& option = form.get<OptionButton>(name, 1);
            option.setValue(true);
            clickOption(option, *this);
        }
    };
    fields.trailingEarningsTyped = [this] { quarterly.doubtTypedEarnings(); };
    yearly.commit = [this] { commit(); };
    yearly.fiscalYearMoved = [this] {
        quarterly.relabel();
        quarterly.shade();
        quarterly.followYearlyEarnings();
    };
    yearly.earningsStored = [this] { quarterly.followYearlyEarnings(); };
    quarterly.showTrailing = [this] {
        attempt([&] { fields.show(*fields.find(form.get<TextBox>("txtLast4QEPS"))); });
    };
    menu.addYear = [this] { yearly.addYear(); };
    menu.removeYear = [this] { yearly.removeYear(); };
    menu.dateOf = [this](const TextField& field) { return dateOf(field); };
    menu.fieldChanged = [this](TextField& field) { onChange(field); };
    menu.leave = [this](TextField& field) { onLostFocus(field); };
    menu.assistant = [this](DataEntryObject object, const std::string& text) {
        attempt([&] { events->Assistant(static_cast<std::int16_t>(object), text); });
    };
    for (const auto& declared : formLayout())
        if ((declared.container == frame::firstPage + toCompany - 1 ||
             declared.container == frame::firstPage + toOther - 1) &&
            !declared.labelledBy.empty())
            lockedLabels_.push_back(&labelNamed(form, declared.labelledBy));
}

// --- lifecycle -----------------------------------------------------------------------------------

void VKRDataEntry::Impl::initialize() {
    bool running = false;
    attempt([&] { running = services.ambientUserMode(); });
    if (!running) {
        const bool zx = attemptOr(false, [&] {
            return services.applicationTitle().find("VKR ZX ") != std::string::npos;
        });
        session.platform = zx ? ptZX : ptStandard;
        createLocalizer();
        if (session.localizer == nullptr)
            session.message("Bad or missing value object\rData Entry",
                            message_box::exclamationIcon);
        else
            attempt([&] { form.setMouseIcon(session.localizer->LoadPicture(linkPicture, 0)); });
    }
    clear();
    session.dateFormat = fallbackDatePattern;
    session.numberFormat = fallbackNumberPattern;
    session.priceFormat = startPriceFormat;
    session.percentFormat = startPercentFormat;
    form.get<Frame>("fraDE", frame::quarterlyPanel).move(0, 0);
    form.get<Label>("lblYOption").setAutoSize(true);
    putFieldText(session.textBox("txtCurSymbol"), startCurrencySymbol);
    for (const std::string_view name : {"cmbIndustry", "cmbExchange", "cmbSource"})
        form.get<ComboBox>(name).clearList();
    form.get<ComboBox>("cmbReportingPeriod").clearList();
    currentTab = toCompany;
    applyColorScheme();

    form.get<Control>("cmdAddYear").setVisible(false);
    form.get<Control>("cmdRemoveYear").setVisible(false);
    showReportingPeriod(false);
    showVLs(false);
    yearly.setUpBar();
    for (const Shade shade : {shadeLocked, shadeYear, shadeQuarter})
        setShade(shade, colors::paleCyan);
    quarterly.layOut();
    nameFields(form);
    resize();
    quiet_ = false;
}

void VKRDataEntry::Impl::applyColorScheme() {
    form.setBackColor(colors::buttonFace);
    for (const auto& control : form.controls()) {
        if (std::ranges::find(ownColors, control->name()) != std::end(ownColors))
            continue;
        const bool field =
            control->kind() == ControlKind::textBox || control->kind() == ControlKind::comboBox;
        attempt([&] {
            control->setBackColor(field ? colors::white : colors::buttonFace);
            control->setForeColor(field ? colors::blue : colors::black);
        });
    }
}

void VKRDataEntry::Impl::readProperties(const PropertyBag& bag) {
    quiet_ = true;
    const auto number = [&](std::string_view key, std::int32_t defaultValue) {
        std::int32_t value = defaultValue;
        attempt([&] { value = bag.read(key, defaultValue).toLong(); });
        return value;
    };
    const auto boolean = [&](std::string_view key) {
        bool value = false;
        attempt([&] { value = bag.read(key, false).toBoolean(); });
        return value;
    };
    const auto color = [&](std::string_view key) {
        return static_cast<Color>(number(key, static_cast<std::int32_t>(colors::paleCyan)));
    };
    self.put_Platform(static_cast<PlatformType>(number("Platform", ptStandard)));
    self.put_UserMode(static_cast<UserModeType>(number("UserMode", umDefault)));
    self.put_ShadeColorLocked(color("ShadeColorLocked"));
    self.put_ShadeColorYear(color("ShadeColorYear"));
    self.put_ShadeColorQuarter(color("ShadeColorQuarter"));
    self.put_VisibleQuarters(static_cast<std::int16_t>(
        std::clamp(number("VisibleQuarters", QuarterlyGrid::startRows), 1, 35)));
    self.put_ShowReportingPeriod(boolean("ShowReportingPeriod"));
    self.put_ShowVLs(boolean("ShowVLs"));
    self.put_CurrentTab(static_cast<TABObject>(number("CurrentTab", toCompany)));
    self.put_BorderStyle(number("BorderStyle", 0) == 0 ? BorderStyle::none
                                                       : BorderStyle::fixedSingle);
    self.put_FractionDisplay(boolean("FractionDisplay"));
    bool running = false;
    attempt([&] { running = services.ambientUserMode(); });
    if (running && session.platform == ptZX)
        attempt([&] { showAlternativeCaptions(); });
    form.settleFocus(); // on what the restored properties have on show
    quiet_ = false;
}

void VKRDataEntry::Impl::showAlternativeCaptions() {
    for (const auto& hidden : hiddenOnZx)
        form.get<Control>(hidden.name, hidden.index).setVisible(false);
    auto& projection = form.get<Label>("lblLabel", 15);
    projection.setCaption(session.text(zxProjectionCaption, projection.caption()));
    strip().setTabCaption(toOther, session.text(zxOtherCaption, strip().tab(toOther).caption));
}

void VKRDataEntry::Impl::writeProperties(PropertyBag& bag) {
    const auto color = [](Color value) { return Variant(static_cast<std::int32_t>(value)); };
    bag.write("Platform", static_cast<std::int32_t>(session.platform), std::int32_t{ptStandard});
    bag.write("UserMode", static_cast<std::int32_t>(userMode), std::int32_t{umDefault});
    bag.write("ShadeColorLocked", color(lockedShade), color(colors::paleCyan));
    bag.write("VisibleQuarters", static_cast<std::int16_t>(visibleQuarters()),
              std::int16_t{QuarterlyGrid::startRows});
    bag.write("ShowReportingPeriod", reportingPeriodShown, false);
    bag.write("ShowVLs", vlsShown, false);
    bag.write("CurrentTab", static_cast<std::int32_t>(currentTab), std::int32_t{toCompany});
    attempt([&] { strip().selectTab(currentTab); });
    bag.write("CommEquityData", session.equityRow == EquityRow::commonEquity, true);
    bag.write("TaxRateData", session.incomeRow == IncomeRow::taxRate, false);
    bag.write("BorderStyle", static_cast<std::int32_t>(form.borderStyle()), std::int32_t{0});
    bag.write("FractionDisplay", session.fractionDisplay, false);
    bag.write("ShadeColorQuarter", color(quarterly.shadeColor()), color(colors::paleCyan));
    bag.write("ShadeColorYear", color(yearly.shadeColor()), color(colors::paleCyan));
}

void VKRDataEntry::Impl::resize() {
    if (session.company != nullptr) {
        strip().move(0, 0);
        form.setSize(workingWidth, workingHeight);
        return;
    }
    if (resizing_)
        return;
    resizing_ = true; // the container answers a new size with another resize
    form.setSize(placeholderSize, placeholderSize);
    strip().move(placeholderSize, placeholderSize);
    resizing_ = false;
}

void VKRDataEntry::Impl::createLocalizer() {
    session.localizer = nullptr;
    const std::string_view id = session.platform == ptStandard ? standardLocalizerId
                                : session.platform == ptZX     ? zxLocalizerId
                                                               : std::string_view();
    if (!id.empty())
        attempt([&] {
            session.localizer = std::dynamic_pointer_cast<Localizer>(services.createObject(id));
        });
}

void VKRDataEntry::Impl::setPlatform(PlatformType platform) {
    session.platform = platform;
    notify("Platform");
    createLocalizer();
    if (session.localizer == nullptr) {
        session.message("Bad or missing Localizer object\rData Entry",
                        message_box::exclamationIcon);
        return;
    }
    attempt([&] {
        form.get<Label>("lblMoreHelp").setMouseIcon(session.localizer->LoadPicture(linkPicture, 0));
    });
    captions.pass();
    yearly.shade();
}

// --- the record ----------------------------------------------------------------------------------

void VKRDataEntry::Impl::load(std::shared_ptr<iVKR_Company> company) {
    if (company == nullptr)
        attempt([&] {
            company =
                std::dynamic_pointer_cast<iVKR_Company>(services.createObject(companyRecordId));
        });
    if (company == nullptr)
        company = newCompanyRecord();
    const Session::Work work(session);
    const Form::Update update(form);
    session.hideHelpFrame();
    loading_ = true; // cells get their names once, with the captions of the unit
    session.company = std::move(company);
    const Control* active = form.activeControl();
    session.dateFieldPending = active != nullptr && form.hasFocus() && isPendingDate(*active);
    session.cancelPressed = false;
    session.picked.clear();
    session.suggestedDates.clear();
    typedDate_ = nullptr;

    attempt([&] { clear(); });
    attempt([&] { listReportingPeriods(); });
    session.ComputeUnitFactor();
    attempt([&] { quarterly.deriveTrailingEarnings(); });
    loadCompany(session, fields, yearly, quarterly);
    attempt([&] { quarterly.relabel(); }); // names the last fiscal year beside its quarters
    quarterly.shade();
    showOptions();
    attempt([&] { showUnit(); });
    attempt([&] { captions.showCurrency(); });
    form.get<CheckBox>("chkLockInfo").setValue(attemptOr(false, [&] {
        return session.settings()->get(setting::lockBasicInfo).toBoolean();
    }));
    applyLock();
    loading_ = false;
    resize();
    form.settleFocus(); // a smaller record disables cells
    if (Control* focused = form.activeControl(); focused != nullptr && form.hasFocus())
        attempt([&] { onGotFocus(*focused); }); // what it shows now is entered anew
    session.tellState();
}

void VKRDataEntry::Impl::listReportingPeriods() {
    std::vector<std::string> entries;
    for (std::size_t i = 0; i < std::size(reportingPeriods); ++i)
        entries.push_back(session.text(text_number::firstReportingPeriod + static_cast<int>(i),
                                       reportingPeriods[i]));
    form.get<ComboBox>("cmbReportingPeriod").setList(std::move(entries));
}

std::shared_ptr<iVKR_Company> VKRDataEntry::Impl::commit() {
    const Session::Work work(session);
    if (session.company != nullptr) {
        attempt([&] { commitCompany(session, quarterly.lastQuarter()); });
        attempt([&] { quarterly.followCommit(); });
    }
    return session.company;
}

void VKRDataEntry::Impl::commitInto(std::shared_ptr<iVKR_Company> copy) {
    if (session.company == nullptr || copy == nullptr)
        return;
    std::swap(session.company, copy);
    commitCompany(session, quarterly.lastQuarter()); // whatever fails is skipped in there
    std::swap(session.company, copy);
}

// What a commit has stored while it was being typed is there by now: taking it back is a change.
void VKRDataEntry::Impl::holdCommitted() {
    auto& symbol = session.textBox("txtCurSymbol");
    auto& period = form.get<ComboBox>("cmbReportingPeriod");
    attempt([&] {
        if (symbol.text() != symbol.tag() &&
            session.settings()->get(setting::currencySymbol).toText() == symbol.text())
            symbol.setTag(symbol.text());
    });
    attempt([&] {
        if (period.text() != period.tag() &&
            session.reportingPeriod()->get(setting::leadPeriod).toLong() == period.listIndex())
            period.setTag(period.text());
    });
}

void VKRDataEntry::Impl::clear() {
    session.hideHelpFrame();
    fields.clear(toCompany);
    quarterly.clear();
    quarterly.clearLabels();
    putFieldText(session.textBox("txtLastQDate"), "");
    yearly.clear();
    yearly.clearLabels();
    fields.clear(toYearly);
    putFieldText(session.textBox("txtLastFY"), "");
    putFieldText(session.textBox("txtDateofLastFY"), "");
    fields.clear(toOther);
    putFieldText(form.get<ComboBox>("cmbReportingPeriod"), "");
    form.get<CheckBox>("chkLockInfo").setValue(false);
    applyLock();
}

void VKRDataEntry::Impl::applyLock() {
    const Form::Update update(form);
    const bool locked = session.isLocked();
    for (const auto& control : form.controls())
        if (auto* field = dynamic_cast<TextField*>(control.get()))
            field->setLocked(locked);
    for (Label* label : lockedLabels_)
        label->setBackColor(locked ? lockedShade : colors::buttonFace);
}

void VKRDataEntry::Impl::showOptions() {
    form.get<OptionButton>("optPTI", session.incomeRow == IncomeRow::taxRate ? 1 : 0)
        .setValue(true);
    form.get<OptionButton>("optCommEq", session.equityRow == EquityRow::bookValue ? 1 : 0)
        .setValue(true);
}

void VKRDataEntry::Impl::showUnit() {
    form.get<OptionButton>("optCurrency", optionOfUnit(session.unit)).setValue(true);
    captions.followUnit();
}

std::vector<MarkedField> VKRDataEntry::Impl::markedFields(MarkKind kind) const {
    std::vector<MarkedField> result;
    for (const auto& control : form.controls())
        if (const auto* field = dynamic_cast<const TextField*>(control.get());
            field != nullptr && field->mark().kind == kind)
            result.push_back(
                {field->id(), field->accessibleName(), field->text(), field->mark().reason});
    return result;
}

void VKRDataEntry::Impl::showField(std::string_view id) {
    const auto found =
        std::ranges::find(form.controls(), id, [](const auto& control) { return control->id(); });
    if (found == form.controls().end())
        return;
    const std::string name((*found)->name());
    const int index = (*found)->index();
    const Control* page = found->get();
    while (page->container() != nullptr)
        page = page->container();
    if (page->index() >= frame::firstPage)
        strip().selectTab(page->index() - frame::firstPage + 1);
    if (auto* field = form.find(name, index)) // the host has heard of the tab
        field->setFocus();
}

void VKRDataEntry::Impl::leaveField() {
    Control* active = form.activeControl();
    if (active == nullptr || !form.hasFocus())
        return;
    onLostFocus(*active);
    if (form.activeControl() != active)
        return;
    if (auto* field = dynamic_cast<TextField*>(active))
        field->beginEntry();
    onGotFocus(*active);
}

// --- display properties --------------------------------------------------------------------------

Color VKRDataEntry::Impl::shadeOf(Shade shade) const {
    return shade == shadeLocked ? lockedShade
           : shade == shadeYear ? yearly.shadeColor()
                                : quarterly.shadeColor();
}

void VKRDataEntry::Impl::setShade(Shade shade, Color color) {
    form.get<Label>("lblSample", shade).setBackColor(color);
    switch (shade) {
    case shadeLocked:
        lockedShade = color;
        applyLock();
        break;
    case shadeYear:
        yearly.setShade(color);
        break;
    case shadeQuarter:
        quarterly.setShade(color);
        break;
    }
}

void VKRDataEntry::Impl::showReportingPeriod(bool shown) {
    reportingPeriodShown = shown;
    form.get<Control>("cmbReportingPeriod").setVisible(shown);
    form.get<Control>("lblLabel", 53).setVisible(shown);
    form.settleFocus();
}

void VKRDataEntry::Impl::showQuarters(int rows) {
    rows = std::clamp(rows, 1, QuarterlyGrid::mostRows);
    if (rows == visibleQuarters())
        return;
    wantedQuarters_ = rows;
    if (!session.isWorking()) // else the cell that is being stored might be gone under it
        makeWantedQuarters();
}

void VKRDataEntry::Impl::makeWantedQuarters() {
    const auto rows = std::exchange(wantedQuarters_, std::nullopt);
    if (!rows || *rows == quarterly.visibleRows())
        return;
    const int before = quarterly.visibleRows();
    {
        const Session::Work work(session);
        if (!attempt([&] { quarterly.setVisibleRows(*rows); })) // not all of them could be made
            attempt([&] { quarterly.setVisibleRows(before); });
    }
    notify("VisibleQuarters");
}

// The reporting period follows right below the last row that is shown.
void VKRDataEntry::Impl::showVLs(bool shown) {
    vlsShown = shown;
    Control& timeliness = form.get<Control>("txtVLTimelines");
    Control& safety = form.get<Control>("txtVLSafety");
    Control& timelinessLabel = form.get<Control>("lblLabel", 51);
    Control& safetyLabel = form.get<Control>("lblLabel", 52);
    for (Control* control : {&timeliness, &safety, &timelinessLabel, &safetyLabel})
        control->setVisible(shown);
    Control& period = form.get<Control>("cmbReportingPeriod");
    Control& periodLabel = form.get<Control>("lblLabel", 53);
    period.move(period.left(), shown ? 2 * safety.top() - timeliness.top() : timeliness.top());
    periodLabel.move(periodLabel.left(),
                     shown ? 2 * safetyLabel.top() - timelinessLabel.top() : timelinessLabel.top());
    form.settleFocus();
}

void VKRDataEntry::Impl::setFractions(bool fractions) {
    if (fractions == session.fractionDisplay)
        return;
    const Session::Work work(session);
    session.fractionDisplay = fractions;
    auto& option = form.get<OptionButton>("optDisplay", fractions ? 1 : 0);
    if (!option.value())
        option.setValue(true);
    auto& price = form.get<TextField>("txtCurrentPrice");
    const std::string kept = price.text();
    const int caret = price.selStart();
    const int selected = price.selLength();
    price.setText(price.tag());
    price.rewriteText(kept);
    price.select(caret, selected);
    for (const auto& field : companyFieldTable()) {
        if (field.kind != FieldKind::price)
            continue;
        followPriceDisplay(!fractions, form.get<TextField>(field.control), [&] {
            return session.company != nullptr && attempt([&] { fields.show(field); });
        });
    }
    yearly.followPriceDisplay();
    if (self.fractionDisplayChanged)
        attempt([&] { self.fractionDisplayChanged(); });
}

void VKRDataEntry::Impl::setNumberMarks(const NumberMarks& marks) {
    const NumberMarks before = form.numberMarks();
    form.setNumberMarks(marks);
    if (form.numberMarks() == before)
        return;
    const Form::Update update(form);
    for (const auto& field : companyFieldTable()) {
        if (field.kind != FieldKind::number && field.kind != FieldKind::price &&
            field.kind != FieldKind::percent)
            continue;
        followNumberMarks(before, form.get<TextField>(field.control), [&] {
            return session.company != nullptr && attempt([&] { fields.show(field); });
        });
    }
    yearly.followNumberMarks(before);
    quarterly.followNumberMarks(before);
    notify("NumberMarks");
}

void VKRDataEntry::Impl::fillList(std::string_view name, const Variant& items) {
    if (items.varType() <= Variant::vtArray)
        return;
    std::vector<std::string> texts;
    const VariantArray& array = items.array();
    const std::int64_t last = array.upper(); // which may be the end of int
    for (std::int64_t i = array.lower(); i <= last; ++i)
        attempt([&] { texts.push_back(array.text(static_cast<int>(i))); });
    form.get<ComboBox>(name).setList(std::move(texts));
}

// --- options -------------------------------------------------------------------------------------

void VKRDataEntry::Impl::chooseUnit(std::int32_t unit) {
    const Session::Work work(session);
    if (session.company == nullptr)
        return;
    bool changed = false;
    attempt([&] {
        const auto settings = session.settings();
        if (settings->get(setting::unit).toLong() == unit)
            return;
        settings->put(setting::unit, unit);
        changed = true;
    });
    if (!changed) {
        showUnit(); // the record refused: the choice goes back to what is in force
        return;
    }
    attempt([&] { static_cast<void>(session.company->get_SettingsApply()); });
    const Form::Update update(form);
    session.ComputeUnitFactor();
    fields.showScaled();
    yearly.showScaled();
    quarterly.followUnit();
    showUnit();
    session.markChanged();
}

void VKRDataEntry::Impl::chooseFractions(bool fractions) {
    if (fractions == session.fractionDisplay)
        return;
    setFractions(fractions);
    session.markChanged();
}

void VKRDataEntry::Impl::chooseCommonEquity(bool commonEquity) {
    const Session::Work work(session);
    const EquityRow row = commonEquity ? EquityRow::commonEquity : EquityRow::bookValue;
    if (row == session.equityRow)
        return;
    session.equityRow = row;
    captions.followOptions();
    if (session.company != nullptr)
        yearly.showChoice(ColumnChoice::equity);
    session.markChanged();
}

void VKRDataEntry::Impl::chooseTaxRate(bool taxRate) {
    const Session::Work work(session);
    const IncomeRow row = taxRate ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
    if (row == session.incomeRow)
        return;
    session.incomeRow = row;
    captions.followOptions();
    if (session.company != nullptr) {
        yearly.showChoice(ColumnChoice::income);
        quarterly.showChoice(ColumnChoice::income);
    }
    session.markChanged();
}

void VKRDataEntry::Impl::chooseShade(int button) {
    const auto shade = static_cast<Shade>(button);
    const auto chosen =
        attemptOr(std::optional<Color>(), [&] { return services.chooseColor(shadeOf(shade)); });
    if (!chosen || *chosen == shadeOf(shade))
        return;
    switch (shade) {
    case shadeLocked:
        self.put_ShadeColorLocked(*chosen);
        break;
    case shadeYear:
        self.put_ShadeColorYear(*chosen);
        break;
    case shadeQuarter:
        self.put_ShadeColorQuarter(*chosen);
        break;
    }
    session.markChanged();
}

// --- tabs ----------------------------------------------------------------------------------------

void VKRDataEntry::Impl::stepTab(int step) {
    session.hideHelpFrame();
    const int count = strip().count();
    int target = strip().selected() + step;
    target = target > count ? 1 : target < 1 ? count : target;
    strip().selectTab(target);
}

void VKRDataEntry::Impl::onTabSelected(TabStrip& tabs) {
    session.hideHelpFrame();
    for (int page = 0; page < tabs.count(); ++page) {
        auto& shown = form.get<Frame>("fraDE", frame::firstPage + page);
        const bool selected = page == tabs.selected() - 1;
        shown.move(selected ? sizes::pageLeft : Control::parkedLeft, shown.top());
        shown.setEnabled(selected);
    }
    const bool onYearly = tabs.selected() == toYearly;
    form.get<Control>("cmdAddYear").setVisible(onYearly);
    form.get<Control>("cmdRemoveYear").setVisible(onYearly);
    attempt([&] { focusFirstField(); });
    form.settleFocus(); // where the first field can't take it
    if (currentTab != tabs.selected()) {
        currentTab = static_cast<TABObject>(tabs.selected());
        attempt([&] { events->TabChange(currentTab); });
    }
}

void VKRDataEntry::Impl::focusFirstField() {
    if (strip().selected() == toQuarterly)
        quarterly.layOut();
    if (quiet_)
        return;
    switch (strip().selected()) {
    case toCompany:
        form.get<Control>(session.textBox("txtName").text().empty() ? "txtName" : "txtCurrentPrice")
            .setFocus();
        break;
    case toYearly:
        form.get<Control>("txtLastFY").setFocus();
        break;
    case toQuarterly:
        form.get<Control>("txtRevenue", 0).setFocus();
        break;
    case toOther:
        form.get<Control>("txtAddress1").setFocus();
        break;
    default:
        for (int i = 0; i <= form.upperBound("optCurrency"); ++i)
            if (form.get<OptionButton>("optCurrency", i).value())
                form.get<Control>("optCurrency", i).setFocus();
    }
}

void VKRDataEntry::Impl::scrollMouse(KeyCode key) {
    const bool onQuarters = strip().selected() == toQuarterly;
    if (!onQuarters && strip().selected() != toYearly)
        return;
    auto& bar = form.get<ScrollBar>(onQuarters ? "vscrQuarterly" : "hscrYearly");
    if (key == keys::down)
        bar.setValue(bar.value() + bar.smallChange());
    else if (key == keys::up)
        bar.setValue(bar.value() - bar.smallChange());
}

// --- what the user does --------------------------------------------------------------------------

void VKRDataEntry::Impl::onGotFocus(Control& control) {
    if (const auto cell = yearly.find(control)) {
        yearly.enter(*cell);
    } else if (const auto quarter = quarterly.find(control)) {
        quarterly.enter(*quarter);
    } else if (auto* box = dynamic_cast<TextBox*>(&control)) {
        SelectAllText(*box);
        if (isPendingDate(control))
            session.dateFieldPending = true;
    } else if (auto* list = dynamic_cast<ComboBox*>(&control)) {
        if (control.name() != "cmbReportingPeriod")
            SelectAllCombo(*list);
    }
}

void VKRDataEntry::Impl::onLostFocus(Control& control) {
    const Session::Work work(session);
    if (auto* field = dynamic_cast<TextField*>(&control))
        session.guarded(*field, [&] { leaveControl(control); });
}

void VKRDataEntry::Impl::leaveControl(Control& control) {
    if (const auto* field = fields.find(control))
        fields.leave(*field);
    else if (const auto cell = yearly.find(control))
        yearly.leave(*cell);
    else if (const auto quarter = quarterly.find(control))
        quarterly.leave(*quarter);
    else if (control.name() == "txtLastFY")
        yearly.leaveLastFiscalYear();
    else if (control.name() == "txtDateofLastFY")
        yearly.leaveLastFiscalYearDate();
    else if (control.name() == "txtLastQDate")
        quarterly.leaveLastQuarterDate();
    else if (auto* other = dynamic_cast<TextField*>(&control)) // symbol, reporting period
        leaveOtherField(*other);
    if (auto* field = dynamic_cast<TextField*>(&control); field != nullptr && isUntouched(*field))
        session.picked.erase(field);
    if (dateIn(control) && dynamic_cast<TextField&>(control).text() == control.tag())
        session.takePickBack(); // unless the date was taken
    if (typedDate_ == &control && !typedDate_->isUnstored() &&
        typedDate_->text() == typedDate_->tag()) {
        session.suggestedDates.erase(dateIn(*typedDate_).value());
        typedDate_ = nullptr;
        session.tellState(); // typed as it stood there: nothing else tells of it
    }
}

void VKRDataEntry::Impl::leaveOtherField(TextField& field) {
    checkFieldChange(field, session);
    const auto* periods = dynamic_cast<const ComboBox*>(&field);
    if (periods == nullptr || session.company == nullptr || field.locked())
        return;
    // The commit stores the chosen entry: any other text would get lost without a word.
    const bool lost = periods->listIndex() < 0 && !field.text().empty();
    field.setMark(lost ? session.unstored(text_number::reasonRefused) : FieldMark());
}

// The page on the object that the help frame is about.
void VKRDataEntry::Impl::askForMoreHelp() {
    session.hideHelpFrame();
    attempt([&] { events->MoreHelp(static_cast<std::int16_t>(helpObjectBase + help.object())); });
}

std::optional<Date> VKRDataEntry::Impl::dateOf(const TextField& field) const {
    return session.dateOf(field, dateIn(field).value_or(Datum::LastFYDate));
}

// The date that a field shows or decides.
std::optional<Datum> VKRDataEntry::Impl::dateIn(const Control& control) const {
    if (const auto* row = fields.find(control))
        return row->kind == FieldKind::date ? std::optional(row->datum) : std::nullopt;
    if (control.name() == "txtLastQDate")
        return Datum::LastQDate;
    if (control.name() == "txtDateofLastFY" || control.name() == "txtLastFY")
        return Datum::LastFYDate;
    return std::nullopt;
}

bool VKRDataEntry::Impl::opensCalendar(const Control& control, KeyCode key, int shift) const {
    return isDateField(control) && ((key == keys::f4 && shift == shifts::none) ||
                                    (key == keys::down && shift == shifts::alt));
}

void VKRDataEntry::Impl::onKeyDown(Control& control, KeyCode& key, int shift) {
    keyWentDown_ = true;
    // Enter on a figure that is left as it is agrees with it.
    if (auto* field = dynamic_cast<TextField*>(&control);
        field != nullptr && key == keys::enter && !form.isKeyHeld() && isUntouched(*field))
        field->settleDoubt();
    if (key == keys::f1) {
        helpKeyDown_ = help.visible();
        if (helpKeyDown_)
            askForMoreHelp();
        return;
    }
    const bool opensMenu = (key == keys::menu && shift == shifts::none) ||
                           (key == keys::f10 && shift == shifts::shift);
    if (opensMenu || opensCalendar(control, key, shift)) {
        keyWentDown_ = false;
        key = keys::none;
        if (opensMenu)
            menu.openFromKeyboard(control);
        else
            menu.ShowDatePicker(static_cast<TextBox&>(control), false);
        return;
    }
    if ((shift & shifts::control) != 0 && (key == keys::pageDown || key == keys::pageUp)) {
        stepTab(key == keys::pageDown ? 1 : -1);
        key = keys::none;
        return;
    }
    if ((key == keys::pageDown || key == keys::pageUp) && shift == shifts::none &&
        strip().selected() == toQuarterly) {
        quarterly.turnPage(control, key == keys::pageDown ? 1 : -1);
        key = keys::none;
        return;
    }
    if (control.name() == "cmdCancel" && key == keys::tab && shift == shifts::none) {
        focusFirstField();
        key = keys::none;
    } else if (const auto cell = yearly.find(control)) {
        yearly.keyDown(*cell, key, shift);
    } else if (const auto quarter = quarterly.find(control)) {
        quarterly.keyDown(*quarter, key, shift);
    }
}

const KeyFilter* VKRDataEntry::Impl::filterOf(const Control& control) const {
    if (const auto* field = fields.find(control))
        return field->filtered ? &field->filter : nullptr;
    const auto* other = std::ranges::find(otherFilters, control.name(), &FilteredField::name);
    return other == std::end(otherFilters) ? nullptr : &other->filter;
}

void VKRDataEntry::Impl::onKeyPress(Control& control, char32_t& character) {
    auto* field = dynamic_cast<TextField*>(&control);
    if (field == nullptr)
        return;
    const char32_t pressed = character;
    bool refused = false;
    if (const auto cell = yearly.find(control))
        refused = yearly.keyPress(*cell, character);
    else if (const auto quarter = quarterly.find(control))
        refused = quarterly.keyPress(*quarter, character);
    else if (const auto* filter = filterOf(control))
        refused = FilterNumericKey(character, filter->numeric, filter->freeText, *field,
                                   filter->allowNegative, filter->upperCase);
    const bool noRoom = character >= U' ' && character != 0x7F && field->isFull();
    if (!form.isKeyHeld())
        toldOfKey_ = false;
    if (!(refused || noRoom) || toldOfKey_ || field->locked())
        return;
    toldOfKey_ = true;
    const int takes = noteOf(control).value_or(text_number::noteFull);
    const bool mark =
        refused && takes != text_number::noteYear && (pressed == U'.' || pressed == U',');
    session.tellRefused(*field, mark ? text_number::noteDecimalMark : takes);
}

// What a field for one figure takes, as a text of text_number; nothing for any other.
std::optional<int> VKRDataEntry::Impl::noteOf(const Control& control) const {
    using namespace text_number;
    const auto note = [](bool price, bool minus) {
        return price ? notePrice : minus ? noteFigure : notePositive;
    };
    for (const SeriesGrid* grid :
         {static_cast<const SeriesGrid*>(&yearly), static_cast<const SeriesGrid*>(&quarterly)})
        if (const auto cell = grid->find(control)) {
            const auto& column = grid->columns()[static_cast<std::size_t>(cell->column)];
            return note(column.price, column.minusTyped);
        }
    if (control.name() == "txtLastFY")
        return noteYear;
    const auto* field = fields.find(control);
    if (field == nullptr || field->filter.freeText)
        return std::nullopt;
    return note(field->kind == FieldKind::price, field->filter.allowNegative);
}

// A block would be squeezed into one figure: its cells are figures of their own.
bool VKRDataEntry::Impl::onPaste(TextField& field, std::string_view text) {
    if (!noteOf(field) || !isBlockOfCells(text))
        return true;
    session.tellRefused(field, text_number::noteOneFigure);
    return false;
}

void VKRDataEntry::Impl::onPasteCut(TextField& field, std::string_view leftOut) {
    session.markDoubtful(field, leftOut);
}

void VKRDataEntry::Impl::onKeyUp(Control& /*control*/, KeyCode key, int /*shift*/) {
    // The key that has chosen the frame in the menu comes up afterwards.
    if (keyWentDown_)
        session.hideHelpFrame();
    if (key != keys::f1)
        return;
    if (!helpKeyDown_)
        pressHelp();
    helpKeyDown_ = false;
}

void VKRDataEntry::Impl::onChange(TextField& field) {
    const Session::Work work(session);
    if (const auto picked = session.picked.find(&field);
        picked != session.picked.end() && picked->second.text != field.text())
        session.picked.erase(picked);
    if (const auto date = dateIn(field); date && session.suggestedDates.contains(*date))
        typedDate_ = &field;
    if (field.name() == "txtLastFY")
        yearly.typeLastFiscalYear();
    else if (field.name() == "txtCurSymbol")
        captions.showCurrency();
}

void VKRDataEntry::Impl::onMouseDown(Control& control, MouseButton button, int tab) {
    // Its own link and text act on the click, which a hidden control would not get.
    if (control.container() != form.find("fraDE", frame::help))
        session.hideHelpFrame();
    if (control.name() == "cmdCancel")
        session.cancelPressed = true;
    else if (control.name() == "cmdOK")
        okSettles_ = session.dateFieldPending;
    keyWentDown_ = false;
    menu.MouseDown(button, control, tab);
}

void VKRDataEntry::Impl::onPressEnded(Control& control) {
    if (control.name() == "cmdOK") {
        okSettles_ = false;
    } else if (control.name() == "cmdCancel" && std::exchange(session.cancelPressed, false)) {
        // Given up without a click: the date that was skipped has been left after all.
        leavePendingDates();
    }
}

void VKRDataEntry::Impl::onClick(Control& control) {
    struct Click {
        std::string_view name;
        void (*act)(Impl& impl);
    };
    static constexpr Click clicks[] = {
        {"cmdOK", [](Impl& impl) { impl.pressOk(); }},
        {"cmdCancel", [](Impl& impl) { impl.pressCancel(); }},
        {"cmdHelp", [](Impl& impl) { impl.pressHelp(); }},
        {"chkLockInfo", [](Impl& impl) { impl.pressLock(); }},
        {"cmdAddYear", [](Impl& impl) { impl.yearly.addYear(); }},
        {"cmdRemoveYear", [](Impl& impl) { impl.yearly.removeYear(); }},
        {"cmdAddQuarter", [](Impl& impl) { impl.quarterly.addQuarter(); }},
        {"lblToolTip", [](Impl& impl) { impl.session.hideHelpFrame(); }},
        {"lblMoreHelp", [](Impl& impl) { impl.askForMoreHelp(); }},
    };
    if (const auto* click = std::ranges::find(clicks, control.name(), &Click::name);
        click != std::end(clicks)) {
        click->act(*this);
        return;
    }
    session.hideHelpFrame();
    clickOption(control, *this);
}

void VKRDataEntry::Impl::onDoubleClick(Control& control) {
    if (control.name() == "lblQLabel")
        quarterly.moveLastQuarter(-control.index());
    else if (isDateField(control))
        menu.ShowDatePicker(static_cast<TextBox&>(control), false);
}

void VKRDataEntry::Impl::onListChoice(ComboBox& list) {
    const Session::Work work(session);
    if (const auto* field = fields.find(list))
        fields.leave(*field); // a choice is stored at once
    else
        leaveOtherField(list);
}

void VKRDataEntry::Impl::onScroll(ScrollBar& bar) {
    session.hideHelpFrame(); // its control is elsewhere now
    if (bar.name() == "hscrYearly")
        yearly.pan();
    else
        quarterly.scroll();
}

void VKRDataEntry::Impl::onSpin(Spinner& /*spinner*/, int steps) {
    quarterly.moveLastQuarter(steps);
}

void VKRDataEntry::Impl::settleDates() {
    const Session::Work work(session);
    for (const auto name : settledByOk) {
        auto& field = session.textBox(name);
        if (field.text() != field.tag())
            fields.leave(*fields.find(field));
    }
}

void VKRDataEntry::Impl::leavePendingDates() {
    const Session::Work work(session);
    for (const auto name : pendingDates) {
        auto& field = session.textBox(name);
        session.guarded(field, [&] { leaveControl(field); });
    }
}

// Cancel skips a date that is being typed; where the host then stays open it is still to be left.
bool VKRDataEntry::Impl::hasSkippedDate() const {
    return session.company != nullptr &&
           std::ranges::any_of(pendingDates, [&](std::string_view name) {
               const auto& field = session.textBox(name);
               return field.text() != field.tag() && !field.locked();
           });
}

void VKRDataEntry::Impl::pressOk() {
    settleDates();
    if (okSettles_ || session.dateFieldPending)
        return;
    if (hasSkippedDate()) {
        leavePendingDates();
        return;
    }
    attempt([&] { events->UnloadRequest(ulConfirm); });
}

void VKRDataEntry::Impl::pressCancel() {
    session.cancelPressed = false;
    attempt([&] { events->UnloadRequest(ulCancel); });
}

void VKRDataEntry::Impl::pressHelp() {
    attempt([&] { events->MoreHelp(static_cast<std::int16_t>(helpTabBase + strip().selected())); });
}

void VKRDataEntry::Impl::pressLock() {
    session.hideHelpFrame();
    applyLock();
    yearly.shade();
    quarterly.shade();
    session.markChanged();
}

// --- the public face -----------------------------------------------------------------------------

VKRDataEntry::VKRDataEntry(Services& services) : impl_(std::make_unique<Impl>(*this, services)) {
    impl_->session.stateChanged = [this] {
        if (stateChanged)
            stateChanged();
    };
    impl_->initialize();
}

VKRDataEntry::~VKRDataEntry() = default;

void VKRDataEntry::setEvents(VKRDataEntryEvents* events) {
    impl_->events = events == nullptr ? &impl_->silent : events;
}

Form& VKRDataEntry::form() {
    return impl_->form;
}
const Form& VKRDataEntry::form() const {
    return impl_->form;
}

bool VKRDataEntry::blnExistsQuarterlyData() const {
    return impl_->session.company != nullptr && impl_->quarterly.existsData();
}

bool VKRDataEntry::get_blnDirty() const {
    return impl_->session.dirty;
}

void VKRDataEntry::put_blnDirty(bool blnNewValue) {
    const Session::Work work(impl_->session);
    impl_->session.setDirty(blnNewValue);
    if (!blnNewValue && impl_->commit() != nullptr)
        impl_->holdCommitted();
}

UserModeType VKRDataEntry::get_UserMode() const {
    return impl_->userMode;
}

void VKRDataEntry::put_UserMode(UserModeType enumNewValue) {
    impl_->userMode = enumNewValue;
    if (enumNewValue == umDefault) {
        put_ShadeColorYear(colors::paleCyan);
        put_ShadeColorLocked(colors::paleCyan);
    }
    impl_->notify("UserMode");
}

Color VKRDataEntry::get_ShadeColorLocked() const {
    return impl_->shadeOf(shadeLocked);
}
Color VKRDataEntry::get_ShadeColorYear() const {
    return impl_->shadeOf(shadeYear);
}
Color VKRDataEntry::get_ShadeColorQuarter() const {
    return impl_->shadeOf(shadeQuarter);
}

void VKRDataEntry::put_ShadeColorLocked(Color newValue) {
    if (newValue == get_ShadeColorLocked())
        return;
    attempt([&] { impl_->setShade(shadeLocked, newValue); });
    impl_->notify("ShadeColorLocked");
}

void VKRDataEntry::put_ShadeColorYear(Color newValue) {
    if (newValue == get_ShadeColorYear())
        return;
    attempt([&] { impl_->setShade(shadeYear, newValue); });
    impl_->notify("ShadeColorYear");
}

void VKRDataEntry::put_ShadeColorQuarter(Color newValue) {
    if (newValue == get_ShadeColorQuarter())
        return;
    attempt([&] { impl_->setShade(shadeQuarter, newValue); });
    impl_->notify("ShadeColorQuarter");
}

std::int16_t VKRDataEntry::get_VisibleQuarters() const {
    return static_cast<std::int16_t>(impl_->visibleQuarters());
}

void VKRDataEntry::put_VisibleQuarters(std::int16_t intNewValue) {
    attempt([&] { impl_->showQuarters(intNewValue); });
}

bool VKRDataEntry::get_ShowReportingPeriod() const {
    return impl_->reportingPeriodShown;
}

void VKRDataEntry::put_ShowReportingPeriod(bool blnNewValue) {
    attempt([&] { impl_->showReportingPeriod(blnNewValue); });
    impl_->notify("ShowReportingPeriod");
}

bool VKRDataEntry::get_ShowVLs() const {
    return impl_->vlsShown;
}

void VKRDataEntry::put_ShowVLs(bool blnNewValue) {
    attempt([&] { impl_->showVLs(blnNewValue); });
    impl_->notify("ShowVLs");
}

TABObject VKRDataEntry::get_CurrentTab() const {
    return static_cast<TABObject>(impl_->form.get<TabStrip>("tbsDataEntry").selected());
}

void VKRDataEntry::put_CurrentTab(TABObject enumNewValue) {
    attempt([&] { impl_->form.get<TabStrip>("tbsDataEntry").selectTab(enumNewValue); });
    impl_->notify("CurrentTab");
}

const std::string& VKRDataEntry::get_PercentFormat() const {
    return impl_->session.percentFormat;
}
const std::string& VKRDataEntry::get_DateFormat() const {
    return impl_->session.dateFormat;
}
const std::string& VKRDataEntry::get_NumberFormat() const {
    return impl_->session.numberFormat;
}

void VKRDataEntry::put_PercentFormat(std::string_view strNewValue) {
    attempt([&] { impl_->session.percentFormat = strNewValue; });
    impl_->notify("PercentFormat");
}

void VKRDataEntry::put_DateFormat(std::string_view strNewValue) {
    attempt([&] { impl_->session.dateFormat = strNewValue; });
    impl_->notify("DateFormat");
}

void VKRDataEntry::put_NumberFormat(std::string_view strNewValue) {
    attempt([&] { impl_->session.numberFormat = strNewValue; });
    impl_->notify("NumberFormat");
}

const NumberMarks& VKRDataEntry::get_NumberMarks() const {
    return impl_->form.numberMarks();
}
void VKRDataEntry::put_NumberMarks(const NumberMarks& newValue) {
    impl_->setNumberMarks(newValue);
}

bool VKRDataEntry::get_FractionDisplay() const {
    return impl_->session.fractionDisplay;
}
void VKRDataEntry::put_FractionDisplay(bool blnNewValue) {
    attempt([&] { impl_->setFractions(blnNewValue); });
}

void VKRDataEntry::put_vntSource(const Variant& vntNewValue) {
    attempt([&] { impl_->fillList("cmbSource", vntNewValue); });
}
void VKRDataEntry::put_vntExchange(const Variant& vntNewValue) {
    attempt([&] { impl_->fillList("cmbExchange", vntNewValue); });
}
void VKRDataEntry::put_vntIndustry(const Variant& vntNewValue) {
    attempt([&] { impl_->fillList("cmbIndustry", vntNewValue); });
}

BorderStyle VKRDataEntry::get_BorderStyle() const {
    return impl_->form.borderStyle();
}
void VKRDataEntry::put_BorderStyle(BorderStyle newValue) {
    impl_->form.setBorderStyle(newValue);
}

std::shared_ptr<iVKR_Company> VKRDataEntry::get_objCompany() {
    return impl_->commit();
}
void VKRDataEntry::put_objCompany(std::shared_ptr<iVKR_Company> objNewValue) {
    attempt([&] { impl_->load(std::move(objNewValue)); });
}

PlatformType VKRDataEntry::get_Platform() const {
    return impl_->session.platform;
}
void VKRDataEntry::put_Platform(PlatformType enumNewValue) {
    attempt([&] { impl_->setPlatform(enumNewValue); });
}

void VKRDataEntry::SetNext() {
    attempt([&] { impl_->stepTab(1); });
}
void VKRDataEntry::SetPrevious() {
    attempt([&] { impl_->stepTab(-1); });
}
void VKRDataEntry::Clear() {
    attempt([&] { impl_->clear(); });
}
void VKRDataEntry::ScrollMouse(std::int16_t& intKeyCode, std::int16_t& /*intShift*/) {
    attempt([&] { impl_->scrollMouse(intKeyCode); });
}

void VKRDataEntry::leaveField() {
    attempt([&] { impl_->leaveField(); });
}
void VKRDataEntry::commitInto(std::shared_ptr<iVKR_Company> copy) {
    attempt([&] { impl_->commitInto(std::move(copy)); });
}
std::vector<Datum> VKRDataEntry::suggestedDates() const {
    return {impl_->session.suggestedDates.begin(), impl_->session.suggestedDates.end()};
}
std::vector<MarkedField> VKRDataEntry::unstoredFields() const {
    return impl_->markedFields(MarkKind::unstored);
}
std::vector<MarkedField> VKRDataEntry::doubtfulFields() const {
    return impl_->markedFields(MarkKind::doubtful);
}
void VKRDataEntry::showField(std::string_view control) {
    attempt([&] { impl_->showField(control); });
}

void VKRDataEntry::InitProperties() {
    attempt([&] { impl_->showQuarters(QuarterlyGrid::startRows); });
}
void VKRDataEntry::ReadProperties(const PropertyBag& bag) {
    attempt([&] { impl_->readProperties(bag); });
}
void VKRDataEntry::WriteProperties(PropertyBag& bag) {
    attempt([&] { impl_->writeProperties(bag); });
}
void VKRDataEntry::Resize(Twips /*width*/, Twips /*height*/) {
    impl_->resize();
}

} // namespace vkr
