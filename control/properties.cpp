// SPDX-License-Identifier: MIT
#include "control/properties.hpp"

#include "control/property_rows.hpp"
#include "form/controls.hpp"

#include <algorithm>
#include <cassert>
#include <string>
#include <utility>
#include <vector>

namespace vkr {

namespace {

constexpr EntryProperty shadeProperties[] = {EntryProperty::ShadeColorLocked,
                                             EntryProperty::ShadeColorYear,
                                             EntryProperty::ShadeColorQuarter};

Color startOf(Shade shade) {
    return static_cast<Color>(propertyRow(shadeProperties[shade]).start.number);
}

template <Shade which>
std::int32_t getShade(const Properties& from) {
    return static_cast<std::int32_t>(from.shade(which));
}

template <Shade which>
void setShadeTo(Properties& into, std::int32_t value) {
    into.putShade(which, static_cast<Color>(value));
}

// A value in a property bag, as its type has it.
Variant bagValue(PropertyType type, std::int32_t value) {
    switch (type) {
    case PropertyType::boolean:
        return value != 0;
    case PropertyType::shortInteger:
        return static_cast<std::int16_t>(value);
    default:
        return value;
    }
}

// The default where the bag holds none that can be read.
std::int32_t valueIn(const PropertyBag& bag, const PropertyRow& row) {
    return attemptOr(row.start.number, [&] {
        const Variant held = bag.read(row.name, bagValue(row.type, row.start.number));
        return row.type == PropertyType::boolean ? std::int32_t{held.toBoolean()} : held.toLong();
    });
}

} // namespace

Properties::Properties(EntryContext& context, YearlyGrid& yearly, QuarterlyGrid& quarterly,
                       DataLock& lock, FigureDisplay& display, Pages& pages, PlatformTexts& texts,
                       HostLine& host)
    : context_(context), yearly_(yearly), quarterly_(quarterly), lock_(lock), display_(display),
      pages_(pages), texts_(texts), host_(host) {}

void Properties::startUp() {
    for (const EntryProperty pattern :
         {EntryProperty::PercentFormat, EntryProperty::DateFormat, EntryProperty::NumberFormat})
        patternOf(pattern) = propertyRow(pattern).start.text;
    showReportingPeriod(false);
    showVLs(false);
    yearly_.setUpBar();
    for (const Shade shade : {shadeLocked, shadeYear, shadeQuarter})
        setShade(shade, startOf(shade));
}

void Properties::startRows() {
    putVisibleQuarters(propertyRow(EntryProperty::VisibleQuarters).start.number);
}

// --- the property bag ----------------------------------------------------------------------------

// How the value of a property that is kept is got and put.
struct Properties::Kept {
    EntryProperty property;
    std::int32_t (*get)(const Properties& from);
    void (*put)(Properties& into, std::int32_t value); // null: never restored

    // One for each property that the table keeps, in its order.
    template <std::size_t count>
    static constexpr bool areThoseOfTheTable(const Kept (&rows)[count]) {
        std::size_t next = 0;
        for (const PropertyRow& row : property_rows::table) {
            if (row.bag.saved == 0)
                continue;
            if (next == count || rows[next].property != row.property)
                return false;
            ++next;
        }
        return next == count;
    }
};

std::span<const Properties::Kept> Properties::kept() {
    static constexpr Kept rows[] = {
        {EntryProperty::UserMode, [](const Properties& p) -> std::int32_t { return p.userMode_; },
         [](Properties& p, std::int32_t value) {
             p.putUserMode(static_cast<UserModeType>(value));
         }},
        {EntryProperty::ShadeColorLocked, getShade<shadeLocked>, setShadeTo<shadeLocked>},
        {EntryProperty::ShadeColorYear, getShade<shadeYear>, setShadeTo<shadeYear>},
        {EntryProperty::ShadeColorQuarter, getShade<shadeQuarter>, setShadeTo<shadeQuarter>},
        {EntryProperty::VisibleQuarters,
         [](const Properties& p) -> std::int32_t { return p.visibleQuarters(); },
         [](Properties& p, std::int32_t value) { p.putVisibleQuarters(value); }},
        {EntryProperty::ShowReportingPeriod,
         [](const Properties& p) -> std::int32_t { return p.reportingPeriodShown_; },
         [](Properties& p, std::int32_t value) { p.putShowReportingPeriod(value != 0); }},
        {EntryProperty::ShowVLs, [](const Properties& p) -> std::int32_t { return p.vlsShown_; },
         [](Properties& p, std::int32_t value) { p.putShowVLs(value != 0); }},
        {EntryProperty::CurrentTab,
         [](const Properties& p) -> std::int32_t { return p.pages_.reported(); },
         [](Properties& p, std::int32_t value) { p.putCurrentTab(static_cast<TABObject>(value)); }},
        {EntryProperty::FractionDisplay,
         [](const Properties& p) -> std::int32_t { return p.context_.fractionDisplay; },
         [](Properties& p, std::int32_t value) { p.putFractionDisplay(value != 0); }},
        {EntryProperty::BorderStyle,
         [](const Properties& p) {
             return static_cast<std::int32_t>(p.context_.form.borderStyle());
         },
         [](Properties& p, std::int32_t value) {
             p.putBorderStyle(value == 0 ? BorderStyle::none : BorderStyle::fixedSingle);
         }},
        {EntryProperty::Platform,
         [](const Properties& p) -> std::int32_t { return p.context_.platform; },
         [](Properties& p, std::int32_t value) {
             p.putPlatform(static_cast<PlatformType>(value));
         }},
        {EntryProperty::CommEquityData,
         [](const Properties& p) -> std::int32_t {
             return p.context_.equityRow == EquityRow::commonEquity;
         },
         nullptr},
        {EntryProperty::TaxRateData,
         [](const Properties& p) -> std::int32_t {
             return p.context_.incomeRow == IncomeRow::taxRate;
         },
         nullptr},
    };
    static_assert(Kept::areThoseOfTheTable(rows));
    return rows;
}

// Goes over what is kept in one of its orders.
template <typename Act>
void Properties::inOrder(int BagPlaces::*place, Act&& act) {
    for (int next = 1;; ++next) {
        const auto rows = kept();
        const auto found = std::ranges::find_if(
            rows, [&](const Kept& one) { return propertyRow(one.property).bag.*place == next; });
        if (found == rows.end())
            return;
        act(*found, propertyRow(found->property));
    }
}

void Properties::read(const PropertyBag& bag) {
    const During restoring = pages_.keepFocus();
    inOrder(&BagPlaces::restored, [&](const Kept& one, const PropertyRow& row) {
        assert(one.put != nullptr);
        one.put(*this, valueIn(bag, row));
    });
    const bool running = attemptOr(false, [&] { return context_.services.ambientUserMode(); });
    if (running && context_.platform == ptZX)
        ifPossible([&] { texts_.showAlternatives(); });
    context_.form.settleFocus(); // on what the restored properties have on show
}

void Properties::write(PropertyBag& bag) {
    inOrder(&BagPlaces::saved, [&](const Kept& one, const PropertyRow& row) {
        bag.write(row.name, bagValue(row.type, one.get(*this)),
                  bagValue(row.type, row.start.number));
    });
    ifPossible([&] { pages_.show(pages_.reported()); });
}

// --- assignments ---------------------------------------------------------------------------------

void Properties::putUserMode(UserModeType mode) {
    assign(EntryProperty::UserMode, [&] {
        userMode_ = mode;
        if (mode != umDefault)
            return;
        putShade(shadeYear, startOf(shadeYear));
        putShade(shadeLocked, startOf(shadeLocked));
    });
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
    assign(shadeProperties[shade], [&] { setShade(shade, color); });
}

void Properties::setShade(Shade shade, Color color) {
    context_[controls::colorSample[shade]].setBackColor(color);
    if (shade == shadeLocked)
        lock_.setShade(color);
    else if (shade == shadeYear)
        yearly_.setShade(color);
    else
        quarterly_.setShade(color);
}

// --- what is on show -----------------------------------------------------------------------------

void Properties::putShowReportingPeriod(bool shown) {
    assign(EntryProperty::ShowReportingPeriod, [&] { showReportingPeriod(shown); });
}

void Properties::showReportingPeriod(bool shown) {
    reportingPeriodShown_ = shown;
    context_[controls::reportingPeriod].setVisible(shown);
    context_[controls::reportingPeriodLabel].setVisible(shown);
    context_.form.settleFocus();
}

void Properties::putShowVLs(bool shown) {
    assign(EntryProperty::ShowVLs, [&] { showVLs(shown); });
}

// The reporting period follows right below the last row that is shown.
void Properties::showVLs(bool shown) {
    vlsShown_ = shown;
    const Form& form = context_.form;
    Control& timeliness = controls::vlTimeliness.in(form);
    Control& safety = controls::vlSafety.in(form);
    Control& timelinessLabel = controls::vlTimelinessLabel.in(form);
    Control& safetyLabel = controls::vlSafetyLabel.in(form);
    for (Control* control : {&timeliness, &safety, &timelinessLabel, &safetyLabel})
        control->setVisible(shown);
    Control& period = controls::reportingPeriod.in(form);
    Control& periodLabel = controls::reportingPeriodLabel.in(form);
    period.move(period.left(), shown ? 2 * safety.top() - timeliness.top() : timeliness.top());
    periodLabel.move(periodLabel.left(),
                     shown ? 2 * safetyLabel.top() - timelinessLabel.top() : timelinessLabel.top());
    context_.form.settleFocus();
}

void Properties::putVisibleQuarters(int rows) {
    rows = std::clamp(rows, 1, QuarterlyGrid::mostRows);
    wantedQuarters_ = rows;
    if (!context_.isUpdating()) // else the cell that is being stored might be gone under it
        ifPossible([&] { makeWantedQuarters(); });
    assert(!wantedQuarters_ || context_.isUpdating());
}

void Properties::makeWantedQuarters() {
    const auto rows = std::exchange(wantedQuarters_, std::nullopt);
    if (!rows || *rows == quarterly_.visibleRows())
        return;
    const int before = quarterly_.visibleRows();
    assign(EntryProperty::VisibleQuarters, [&] {
        const EntryContext::UpdateScope updating(context_);
        if (!attempt([&] { quarterly_.setVisibleRows(*rows); })) // not all of them could be made
            quarterly_.setVisibleRows(before);
    });
}

void Properties::putCurrentTab(TABObject tab) {
    assign(EntryProperty::CurrentTab, [&] { pages_.show(tab); });
}

// --- patterns, lists, platform -------------------------------------------------------------------

std::string& Properties::patternOf(EntryProperty property) {
    return property == EntryProperty::PercentFormat ? context_.percentFormat
           : property == EntryProperty::DateFormat  ? context_.dateFormat
                                                    : context_.numberFormat;
}

void Properties::putPattern(EntryProperty property, std::string_view pattern) {
    assign(property, [&] { patternOf(property) = pattern; });
}

void Properties::putFractionDisplay(bool fractions) {
    assign(EntryProperty::FractionDisplay, [&] { display_.setFractions(fractions); });
}

void Properties::putList(EntryProperty property, const Variant& items) {
    const auto& list = property == EntryProperty::vntSource     ? controls::source
                       : property == EntryProperty::vntExchange ? controls::exchange
                                                                : controls::industry;
    assign(property, [&] {
        std::vector<std::string> texts;
        const VariantArray& array = items.array();
        const std::int64_t last = array.upper(); // which may be the end of int
        for (std::int64_t i = array.lower(); i <= last; ++i)
            ifPossible([&] { texts.push_back(array.text(static_cast<int>(i))); });
        context_[list].setList(std::move(texts));
    });
}

void Properties::putPlatform(PlatformType platform) {
    context_.platform = platform;
    assign(EntryProperty::Platform, [&] { texts_.load(); });
}

} // namespace vkr
