// SPDX-License-Identifier: MIT
#pragma once

#include "control/data_lock.hpp"
#include "control/figure_display.hpp"
#include "control/pages.hpp"
#include "control/platform_texts.hpp"
#include "control/property_table.hpp"
#include "platform/error_trap.hpp"
#include "platform/property_bag.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace vkr {

// The sample label of each colour button shows its colour.
enum Shade { shadeLocked, shadeYear, shadeQuarter };

// The properties that a host sets and a container keeps, by the table of properties. A value
// belongs to the part that it works on; those of nobody else stand here.
//
// What may be true together: a number of quarters waits only while work is under way.
class Properties {
  public:
    Properties(EntryContext& context, YearlyGrid& yearly, QuarterlyGrid& quarterly, DataLock& lock,
               FigureDisplay& display, Pages& pages, PlatformTexts& texts, HostLine& host);

    void startUp();
    void read(const PropertyBag& bag);
    void write(PropertyBag& bag); // comes back to the page that the host was told of
    void startRows();             // placed for the first time

    [[nodiscard]] UserModeType userMode() const { return userMode_; }
    void putUserMode(UserModeType mode);
    [[nodiscard]] Color shade(Shade shade) const;
    void putShade(Shade shade, Color color);
    [[nodiscard]] int visibleQuarters() const {
        return wantedQuarters_.value_or(quarterly_.visibleRows());
    }
    void putVisibleQuarters(int rows);
    void makeWantedQuarters(); // the work is done that they had to wait for
    [[nodiscard]] bool showsReportingPeriod() const { return reportingPeriodShown_; }
    void putShowReportingPeriod(bool shown);
    [[nodiscard]] bool showsVLs() const { return vlsShown_; }
    void putShowVLs(bool shown);
    void putCurrentTab(TABObject tab);
    void putPattern(EntryProperty property, std::string_view pattern);
    void putFractionDisplay(bool fractions);
    void putList(EntryProperty property, const Variant& items);
    void putBorderStyle(BorderStyle style) { context_.form.setBorderStyle(style); }
    void putPlatform(PlatformType platform);

  private:
    struct Kept;
    [[nodiscard]] static std::span<const Kept> kept();
    template <typename Act>
    void inOrder(int BagPlaces::*place, Act&& act);

    // An assignment: what fails of it is skipped, and the container hears of it.
    template <typename Statement>
    void assign(EntryProperty property, Statement&& put) {
        const PropertyRow& row = propertyRow(property);
        if (row.notice == PropertyNotice::beforeEffect)
            host_.propertyChanged(row.name);
        ifPossible(std::forward<Statement>(put));
        if (row.notice == PropertyNotice::assigned || row.notice == PropertyNotice::changed)
            host_.propertyChanged(row.name);
    }
    [[nodiscard]] std::string& patternOf(EntryProperty property);
    void setShade(Shade shade, Color color);
    void showReportingPeriod(bool shown);
    void showVLs(bool shown);

    EntryContext& context_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    DataLock& lock_;
    FigureDisplay& display_;
    Pages& pages_;
    PlatformTexts& texts_;
    HostLine& host_;
    UserModeType userMode_ = umDefault;
    bool reportingPeriodShown_ = false;
    bool vlsShown_ = false;
    std::optional<int> wantedQuarters_; // rows to be made at the end of the work under way
};

} // namespace vkr
