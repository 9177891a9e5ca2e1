// SPDX-License-Identifier: MIT
#pragma once

#include "binding/session.hpp"
#include "input/mdlKMTMisc.hpp"
#include "record/datum_table.hpp"
#include "record/enumerations.hpp"

#include <functional>
#include <map>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vkr {

enum class FieldKind {
    text,
    number,
    price,   // shown in decimals or eighths
    percent, // "12.5%"
    date,
    list, // editable drop-down list
};

// The groups in which loading fills the fields.
enum class LoadStep {
    otherNumbers,
    otherTexts,
    choices,
    companyNumbers,
    dates,
    prices,
    identity,
};

// One single-valued field: everything that loading, leaving, clearing, key filtering and the unit
// redraw need to know of it.
struct CompanyField {
    std::string_view control;
    DataEntryObject object;
    FieldKind kind;
    Datum datum;
    LoadStep step;
    TABObject page;
    KeyFilter filter;
    bool filtered = true; // false: free text, the keys are not looked at
    bool scaled = false;  // shown in the company's currency unit
};

[[nodiscard]] std::span<const CompanyField> companyFieldTable();

// The fields of the Company and Other tabs: filled from the record, written back when left.
class CompanyFields {
  public:
    explicit CompanyFields(Session& session);

    [[nodiscard]] const CompanyField* find(const Control& control) const;
    void load(LoadStep step);
    void show(const CompanyField& field);
    void showScaled();          // all fields that follow the currency unit
    void clear(TABObject page); // text and tag

    // Leaving: change check, conversion, record, display. Under the lock nothing is written.
    void leave(const CompanyField& field);

    // Called after the source was changed to one that states tax rate and book value.
    std::function<void()> sourceStatesRates;
    std::function<void()> trailingEarningsTyped; // and stored

  private:
    [[nodiscard]] TextField& control(const CompanyField& field) const;
    void takeText(const CompanyField& field);
    void writeBack(const CompanyField& field);
    void storeDate(const CompanyField& field, TextField& control);
    void storeNumber(const CompanyField& field, TextField& control);
    void showNumber(const CompanyField& field, double stored);
    void store(const CompanyField& field, const Variant& value);
    void followPrice(double price);
    void followSource();

    // An end of the 52-week range that a price has moved.
    struct MovedEnd {
        double before;
        double after;
        Date day;
    };

    Session& session_;
    std::vector<TextField*> controls_; // in table order
    std::unordered_map<const Control*, const CompanyField*> byControl_;
    std::map<Datum, MovedEnd> movedEnds_; // as long as nobody touched them
};

} // namespace vkr
