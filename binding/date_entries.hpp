// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_field.hpp"
#include "record/datum_table.hpp"

#include <algorithm>
#include <cassert>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vkr {

// What is known of the dates on the form beyond their texts:
//
//   picked     the day that was picked, until it is stored; the text may show less of it
//   suggested  written by loading where the record had none, until somebody types or picks one
//   pending    a date that rebuilds a grid is being edited
//   skipped    Cancel was pressed, and a pending date is not looked at
//
// They are free of each other. What was picked counts while its field shows the same text. Only a
// date that loading has written is called suggested.
class DateEntries {
  public:
    void startOver() { *this = {}; }

    // `text` is what the field is about to show for the date.
    void pick(const TextField& field, std::string text, Date date) {
        picked_[&field] = {std::move(text), date};
    }
    void forgetPick(const TextField& field) { picked_.erase(&field); }
    [[nodiscard]] std::optional<Date> pickedIn(const TextField& field) const {
        const auto found = picked_.find(&field);
        return found != picked_.end() && found->second.text == field.text()
                   ? std::optional(found->second.date)
                   : std::nullopt;
    }

    void suggest(Datum date, Date value) {
        suggested_.insert(date);
        offered_[date] = value;
        checkInvariants();
    }
    void settle(Datum date) { suggested_.erase(date); } // it is somebody's by now
    [[nodiscard]] bool isSuggested(Datum date) const { return suggested_.contains(date); }
    [[nodiscard]] std::vector<Datum> suggested() const {
        return {suggested_.begin(), suggested_.end()};
    }

    // Another date stands in the record. If it is the one that loading has suggested, it counts as
    // suggested again.
    void follow(Datum date, Date value) {
        const auto offered = offered_.find(date);
        if (offered != offered_.end() && offered->second == value)
            suggested_.insert(date);
        else
            suggested_.erase(date);
        checkInvariants();
    }

    void setPending(bool pending) { pending_ = pending; }
    [[nodiscard]] bool isPending() const { return pending_; }
    void setSkipped(bool skipped) { skipped_ = skipped; }
    [[nodiscard]] bool isSkipped() const { return skipped_; }

  private:
    void checkInvariants() const {
        assert(std::ranges::all_of(suggested_,
                                   [this](Datum date) { return offered_.contains(date); }));
    }

    struct Picked {
        std::string text;
        Date date;
    };
    std::map<const TextField*, Picked> picked_;
    std::set<Datum> suggested_;
    std::map<Datum, Date> offered_; // by loading, whatever became of it
    bool pending_ = false;
    bool skipped_ = false;
};

} // namespace vkr
