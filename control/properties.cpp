// SPDX-License-Identifier: MIT
#include "control/properties.hpp"

#include "platform/error_trap.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace vkr {

namespace {

constexpr std::string_view shadeProperties[] = {"ShadeColorLocked", "ShadeColorYear",
                                                "ShadeColorQuarter"};

} // namespace

Properties::Properties(Session& session, YearlyGrid& yearly, QuarterlyGrid& quarterly,
                       DataLock& lock, FigureDisplay& display, Pages& pages, PlatformTexts& texts,
                       HostLine& host)
    : session_(session), yearly_(yearly), quarterly_(quarterly), lock_(lock), display_(display),
      pages_(pages), texts_(texts), host_(host) {
    session_.workDone = [this] { makeWantedQuarters(); };
}

void Properties::startUp() {
    showReportingPeriod(false);
    showVLs(false);
    yearly_.setUpBar();
    for (const Shade shade : {shadeLocked, shadeYear, shadeQuarter})
        setShade(shade, colors::paleCyan);
}

void Properties::startRows() {
    putVisibleQuarters(QuarterlyGrid::startRows);
}

void Properties::read(const PropertyBag& bag) {
    const During restoring = pages_.keepFocus();
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
    putPlatform(static_cast<PlatformType>(number("Platform", ptStandard)));
    putUserMode(static_cast<UserModeType>(number("UserMode", umDefault)));
    for (const Shade shade : {shadeLocked, shadeYear, shadeQuarter})
        putShade(shade, static_cast<Color>(number(shadeProperties[shade],
                                                  static_cast<std::int32_t>(colors::paleCyan))));
    putVisibleQuarters(std::clamp(number("VisibleQuarters", QuarterlyGrid::startRows), 1,
                                  int{QuarterlyGrid::mostRows}));
    putShowReportingPeriod(boolean("ShowReportingPeriod"));
    putShowVLs(boolean("ShowVLs"));
    putCurrentTab(static_cast<TABObject>(number("CurrentTab", toCompany)));
    session_.form.setBorderStyle(number("BorderStyle", 0) == 0 ? BorderStyle::none
                                                               : BorderStyle::fixedSingle);
    attempt([&] { display_.setFractions(boolean("FractionDisplay")); });
    bool running = false;
    attempt([&] { running = session_.services.ambientUserMode(); });
    if (running && session_.platform == ptZX)
        attempt([&] { texts_.showAlternatives(); });
    session_.form.settleFocus(); // on what the restored properties have on show
}

void Properties::write(PropertyBag& bag) {
    const auto color = [](Color value) { return Variant(static_cast<std::int32_t>(value)); };
    bag.write("Platform", static_cast<std::int32_t>(session_.platform), std::int32_t{ptStandard});
    bag.write("UserMode", static_cast<std::int32_t>(userMode_), std::int32_t{umDefault});
    bag.write("ShadeColorLocked", color(shade(shadeLocked)), color(colors::paleCyan));
    bag.write("VisibleQuarters", static_cast<std::int16_t>(visibleQuarters()),
              std::int16_t{QuarterlyGrid::startRows});
    bag.write("ShowReportingPeriod", reportingPeriodShown_, false);
    bag.write("ShowVLs", vlsShown_, false);
    bag.write("CurrentTab", static_cast<std::int32_t>(pages_.reported()), std::int32_t{toCompany});
    attempt([&] { pages_.show(pages_.reported()); });
    bag.write("CommEquityData", session_.equityRow == EquityRow::commonEquity, true);
    bag.write("TaxRateData", session_.incomeRow == IncomeRow::taxRate, false);
    bag.write("BorderStyle", static_cast<std::int32_t>(session_.form.borderStyle()),
              std::int32_t{0});
    bag.write("FractionDisplay", session_.fractionDisplay, false);
    bag.write("ShadeColorQuarter", color(shade(shadeQuarter)), color(colors::paleCyan));
    bag.write("ShadeColorYear", color(shade(shadeYear)), color(colors::paleCyan));
}

void Properties::putUserMode(UserModeType mode) {
    userMode_ = mode;
    if (mode == umDefault) {
        putShade(shadeYear, colors::paleCyan);
        putShade(shadeLocked, colors::paleCyan);
    }
    host_.propertyChanged("UserMode");
}

// --- shades --------------------------------------------------------------------------------------

Color Properties::shade(Shade shade) const {
    return shade == shadeLocked ? lock_.shadeColor()
           : shade == shadeYear ? yearly_.shadeColor()
                                : quarterly_.shadeColor();
}

void Properties::putShade(Shade shade, Color color) {
    if (color == this->shade(shade))
        return;
    attempt([&] { setShade(shade, color); });
    host_.propertyChanged(shadeProperties[shade]);
}

void Properties::setShade(Shade shade, Color color) {
    session_.form.get<Label>("lblSample", shade).setBackColor(color);
    switch (shade) {
    case shadeLocked:
        lock_.setShade(color);
        break;
    case shadeYear:
        yearly_.setShade(color);
        break;
    case shadeQuarter:
        quarterly_.setShade(color);
        break;
    }
}

// --- what is on show -----------------------------------------------------------------------------

void Properties::putShowReportingPeriod(bool shown) {
    attempt([&] { showReportingPeriod(shown); });
    host_.propertyChanged("ShowReportingPeriod");
}

void Properties::showReportingPeriod(bool shown) {
    reportingPeriodShown_ = shown;
    session_.form.get<Control>("cmbReportingPeriod").setVisible(shown);
    session_.form.get<Control>("lblLabel", 53).setVisible(shown);
    session_.form.settleFocus();
}

void Properties::putShowVLs(bool shown) {
    attempt([&] { showVLs(shown); });
    host_.propertyChanged("ShowVLs");
}

// The reporting period follows right below the last row that is shown.
void Properties::showVLs(bool shown) {
    vlsShown_ = shown;
    const Form& form = session_.form;
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
    session_.form.settleFocus();
}

void Properties::putVisibleQuarters(int rows) {
    rows = std::clamp(rows, 1, QuarterlyGrid::mostRows);
    if (rows == visibleQuarters())
        return;
    wantedQuarters_ = rows;
    if (!session_.isWorking()) // else the cell that is being stored might be gone under it
        attempt([&] { makeWantedQuarters(); });
}

void Properties::makeWantedQuarters() {
    const auto rows = std::exchange(wantedQuarters_, std::nullopt);
    if (!rows || *rows == quarterly_.visibleRows())
        return;
    const int before = quarterly_.visibleRows();
    {
        const Session::Work work(session_);
        if (!attempt([&] { quarterly_.setVisibleRows(*rows); })) // not all of them could be made
            attempt([&] { quarterly_.setVisibleRows(before); });
    }
    host_.propertyChanged("VisibleQuarters");
}

void Properties::putCurrentTab(TABObject tab) {
    attempt([&] { pages_.show(tab); });
    host_.propertyChanged("CurrentTab");
}

// --- patterns, lists, platform -------------------------------------------------------------------

void Properties::putPattern(std::string_view property, std::string& pattern,
                            std::string_view newPattern) {
    attempt([&] { pattern = newPattern; });
    host_.propertyChanged(property);
}

void Properties::putList(std::string_view control, const Variant& items) {
    if (items.varType() <= Variant::vtArray)
        return;
    std::vector<std::string> texts;
    const VariantArray& array = items.array();
    const std::int64_t last = array.upper(); // which may be the end of int
    for (std::int64_t i = array.lower(); i <= last; ++i)
        attempt([&] { texts.push_back(array.text(static_cast<int>(i))); });
    session_.form.get<ComboBox>(control).setList(std::move(texts));
}

void Properties::putPlatform(PlatformType platform) {
    session_.platform = platform;
    host_.propertyChanged("Platform");
    attempt([&] { texts_.load(); });
}

} // namespace vkr
