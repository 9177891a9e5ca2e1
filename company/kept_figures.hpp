// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "record/actions.hpp"
#include "record/data_list.hpp"
#include "record/ivkr_company.hpp"

#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace vkr {

// A record that stands between the component and another one, passes everything on, and keeps what
// came from a person or a document from being worked out: a write of an action of Origin::derived
// leaves each figure as it is that FigureOrigins::mayDerive() says no to, unless what it follows
// from was written in the same action. What is absent may always be worked out.
//
//     const auto journal = std::make_shared<ChangeJournal>(record);
//     entry.put_objCompany(std::make_shared<KeptFigures>(journal, [&] { return origins; }));
//
// Taking back and doing again are no writes of it: the figure comes back that was there before.
// Throws what the other record throws.
class KeptFigures final : public iVKR_Company, public ActionListener {
  public:
    // Where the figures come from is asked for whenever it counts.
    using Origins = std::function<FigureOrigins()>;
    KeptFigures(std::shared_ptr<iVKR_Company> record, Origins origins);

    void beginAction(const Action& action) override;
    void endAction() noexcept override;

#define VKR_PASSED_ON(kind, name, unit, key, place)                                                \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        return record_->get_##name();                                                              \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override {                                   \
        write(Datum::name, value);                                                                 \
    }
    VKR_DATA(VKR_PASSED_ON)
#undef VKR_PASSED_ON
    [[nodiscard]] std::shared_ptr<Object> get_Settings() const override {
        return record_->get_Settings();
    }
    [[nodiscard]] std::shared_ptr<Object> get_ReportingPeriod() const override {
        return record_->get_ReportingPeriod();
    }
    void put_QuarterlyFlag(const Variant& value) override {
        record_->put_QuarterlyFlag(value);
    }
    Variant BeginYearShift(std::int16_t value) override {
        return record_->BeginYearShift(value);
    }
    Variant YearShiftState(std::int16_t value) override {
        return record_->YearShiftState(value);
    }
    Variant EndYearShift(std::int16_t value) override {
        return record_->EndYearShift(value);
    }
    Variant YearShiftUnit(std::int16_t value) override {
        return record_->YearShiftUnit(value);
    }
    [[nodiscard]] Variant get_YearShiftFirst() const override {
        return record_->get_YearShiftFirst();
    }
    [[nodiscard]] Variant get_YearShiftLast() const override {
        return record_->get_YearShiftLast();
    }
    [[nodiscard]] Variant get_YearShiftCount() const override {
        return record_->get_YearShiftCount();
    }
    [[nodiscard]] Variant get_ReportingPeriodEnd() const override {
        return record_->get_ReportingPeriodEnd();
    }
    [[nodiscard]] Variant get_YearShiftPrices() const override {
        return record_->get_YearShiftPrices();
    }
    [[nodiscard]] Variant get_YearShiftEarnings() const override {
        return record_->get_YearShiftEarnings();
    }
    [[nodiscard]] Variant get_YearShiftDividends() const override {
        return record_->get_YearShiftDividends();
    }
    [[nodiscard]] Variant get_YearShiftShares() const override {
        return record_->get_YearShiftShares();
    }
    [[nodiscard]] Variant get_SettingsApply() const override {
        return record_->get_SettingsApply();
    }

  private:
    void write(Datum datum, const Variant& value);
    [[nodiscard]] Variant withoutWhatIsKept(Datum datum, const Variant& value) const;
    [[nodiscard]] bool hasNewInput(Datum derived, std::optional<int> element) const;
    void noteInput(Datum datum, const Variant& before, const Variant& after);

    std::shared_ptr<iVKR_Company> record_;
    ActionListener* listener_; // the same record, where it listens
    Origins origins_;
    std::vector<Origin> actions_;
    std::set<std::pair<Datum, int>> inputs_; // that were written in the outermost action
};

} // namespace vkr
