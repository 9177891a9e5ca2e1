// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "binding/trailing_earnings.hpp"

#include <memory>
#include <optional>
#include <string>

namespace vkr {

// The earnings of the last four quarters in txtLast4QEPS. The rule works them out of the form and
// the record. Its answer replaces what is there. A figure that a person typed stays until the rule
// has another one. At any time
//
//   derived  the rule's last answer, a finite figure: there is a rule then
//   typed    a figure that was typed and stored
//
// Both may be there. Where they differ, the field has a mark that says so, once the rule was asked
// after the figure was typed.
class TrailingSum {
  public:
    // `lastQuarter` is the one on show.
    TrailingSum(EntryContext& context, const std::optional<Date>& lastQuarter)
        : context_(context), lastQuarter_(lastQuarter) {}

    void derive();    // and stores it, where the rule can tell
    void lookAgain(); // what is stored stays
    // Whether it could at the last time.
    [[nodiscard]] bool isDerived() const { return derived_.has_value(); }
    // A sum that was typed and refused gives way to this one. Throws where the record does.
    void store(double sum);
    // A figure was typed and stored. It is marked where the rule's will replace it. Nobody agrees
    // with that for good: the mark is back when the field is left with the figure in it.
    void typed();
    void left();
    void forgetTyped() { typed_.reset(); } // another company is held
    void show();                           // with the change check; not over a refused text
    // The latest yearly figure or the date of the last fiscal year has changed.
    void followYear();

  private:
    [[nodiscard]] std::optional<double> worked();
    [[nodiscard]] EarningsInput asked() const;
    [[nodiscard]] std::string figureText(double figure) const;
    void doubtTyped();
    void checkInvariants() const;

    struct Typed {
        double figure;
        bool told; // that it will be replaced
    };

    EntryContext& context_;
    const std::optional<Date>& lastQuarter_;
    std::shared_ptr<TrailingEarnings> rule_; // made when it is first asked
    std::optional<double> derived_;          // what it answered last
    std::optional<Typed> typed_;             // in place of what the rule has said
};

} // namespace vkr
