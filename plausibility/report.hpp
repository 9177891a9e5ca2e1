// SPDX-License-Identifier: MIT
#pragma once

#include "platform/number_marks.hpp"
#include "plausibility/company_figures.hpp"
#include "plausibility/finding.hpp"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// Takes down what the rules find, in words.
class Report {
  public:
    Report(const CompanyFigures& figures, const NumberMarks& marks, Date today)
        : figures_(figures), marks_(marks), today_(today) {}

    [[nodiscard]] Date today() const { return today_; } // absent where it does not count
    // Both of the table of rules; in the sentence %1, %2, ... stand for words.
    void beginRule(std::string_view name, std::string_view sentence) {
        rule_ = name;
        sentence_ = sentence;
    }

    // A finding of the rule under way. `places` are all the figures that it goes by; any of the
    // first `suspects` of them may be the wrong one.
    void speak(Sureness sureness, std::vector<FigurePlace> places, std::size_t suspects,
               std::initializer_list<std::string> words);

    // How people are told of figures.
    [[nodiscard]] std::string text(const FigurePlace& place) const; // "1,234.5 million"
    [[nodiscard]] std::string text(double value, DatumUnit unit) const;
    [[nodiscard]] std::string period(const FigurePlace& place) const; // "fiscal year 2025"
    [[nodiscard]] std::string times(double ratio) const; // "about 1,000 times", "about 1/10 of"
    [[nodiscard]] static std::string day(Date date);     // "2025-09-27"

    // The findings, those of one figure together. Of the suspects of a finding the one that most
    // others suspect, too, is in front.
    [[nodiscard]] std::vector<Finding> findings() &&;

  private:
    struct Suspicion {
        Finding finding;
        std::size_t suspects;
    };
    [[nodiscard]] std::string number(double value) const;
    [[nodiscard]] std::string keyOf(const std::vector<FigurePlace>& places) const;

    const CompanyFigures& figures_;
    NumberMarks marks_;
    Date today_;
    std::string_view rule_;
    std::string_view sentence_;
    std::vector<Suspicion> spoken_;
};

} // namespace vkr
