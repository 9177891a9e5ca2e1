// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "binding/typed_unit.hpp"
#include "form/form_layout.hpp"

#include <map>
#include <unordered_map>
#include <vector>

namespace vkr {

// The fields outside the grids that have a datum: filled from the record, written back when left.
class CompanyFields {
  public:
    explicit CompanyFields(EntryContext& context);

    [[nodiscard]] const FieldRow* find(const Control& control) const;
    void load(LoadStep step);
    void show(const FieldRow& field);
    void showScaled(); // all fields that follow the currency unit; marked texts stay
    // The currency unit was `before` until now: amounts that are not stored were typed in that one.
    void keepUnit(std::int32_t before);
    void clear(); // text and tag

    // Leaving: change check, conversion, record, display. Under the lock nothing is written.
    void leave(const FieldRow& field);

  private:
    [[nodiscard]] TextField& control(const FieldRow& field) const;
    void takeText(const FieldRow& field);
    void writeBack(const FieldRow& field);
    void storeDate(const FieldRow& field, TextField& control);
    void storeNumber(const FieldRow& field, TextField& control);
    void showNumber(const FieldRow& field, double stored);
    void store(const FieldRow& field, const Variant& value);
    void followPrice(double price);
    void followSource();

    // An end of the 52-week range that a price has moved.
    struct MovedEnd {
        double before;
        double after;
        Date typedOn;
        Date pricedOn;
    };

    EntryContext& context_;
    std::vector<TextField*> controls_; // in table order
    std::unordered_map<const Control*, const FieldRow*> byControl_;
    std::map<Datum, MovedEnd> movedEnds_; // as long as nobody touched them
    std::map<Datum, TypedUnit> typedIn_;  // of amounts that are not stored
};

} // namespace vkr
