// SPDX-License-Identifier: MIT
#include "binding/trailing_earnings.hpp"

#include "input/number_text.hpp"

namespace vkr {

namespace {

constexpr int quartersOfYear = 4;

class FourQuarters final : public TrailingEarnings {
  public:
    [[nodiscard]] std::optional<double> lastFour(const EarningsInput& input) override {
        if (isAbsent(input.lastQuarter) || isAbsent(input.newestQuarter))
            return std::nullopt;
        const VariantArray& figures = input.quarterly.array();
        const int last = nearestQuarters(input.lastQuarter, input.newestQuarter);
        double sum = 0;
        for (int element = last; element < last + quartersOfYear; ++element) {
            if (!figures.contains(element) || figures.number(element) == 0)
                return ofYear(input);
            sum = withoutStrayDigits(sum + figures.number(element));
        }
        return sum;
    }

  private:
    static std::optional<double> ofYear(const EarningsInput& input) {
        const bool ofFiscalYear = !isAbsent(input.fiscalYearEnd) &&
                                  nearestQuarters(input.fiscalYearEnd, input.lastQuarter) == 0;
        return ofFiscalYear && input.yearly != 0 ? std::optional(input.yearly) : std::nullopt;
    }
};

} // namespace

std::shared_ptr<TrailingEarnings> newTrailingEarnings() {
    return std::make_shared<FourQuarters>();
}

void registerTrailingEarnings(ObjectFactory& factory) {
    factory.add(trailingEarningsId, newTrailingEarnings);
}

} // namespace vkr
