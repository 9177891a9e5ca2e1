// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "record/actions.hpp"
#include "record/data_list.hpp"
#include "record/ivkr_company.hpp"
#include "record/notice_list.hpp"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace vkr {

// A record that stands between the component and another one. It passes everything on, but keeps
// worked-out values from replacing what came from a person or a document:
//
//   A write of an action of Origin::derived leaves a figure as it is where
//   FigureOrigins::mayDerive() says no.
//   It replaces the figure all the same where one of its inputs was written in the same action.
//   Figures that an action of Origin::shifted has moved to other periods do not count as written.
//   What is absent may always be worked out.
//
// What was written and moved is known only while an action is open.
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

#define VKR_PASSED_ON(kind, name, title, unit, key, place)                                         \
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
#define VKR_PASSED_CALL(name)                                                                      \
    Variant name(std::int16_t value) override {                                                    \
        return record_->name(value);                                                               \
    }
#define VKR_PASSED_READ(name)                                                                      \
    [[nodiscard]] Variant get_##name() const override {                                            \
        return record_->get_##name();                                                              \
    }
    VKR_NOTICES(VKR_PASSED_CALL, VKR_PASSED_READ)
    VKR_PASSED_READ(SettingsApply)
#undef VKR_PASSED_CALL
#undef VKR_PASSED_READ

  private:
    void write(Datum datum, const Variant& value);
    [[nodiscard]] Variant withoutWhatIsKept(Datum datum, const Variant& value) const;
    [[nodiscard]] bool hasNewInput(Datum derived, std::optional<int> element) const;
    void noteInput(Datum datum, const Variant& before, const Variant& after);
    void noteMove(Datum datum, int periods);
    [[nodiscard]] int movedBy(Datum datum) const;

    std::shared_ptr<iVKR_Company> record_;
    ActionListener* listener_; // the same record, where it listens
    Origins origins_;
    std::vector<Origin> actions_;
    // In the outermost action: what was written, as the series count now, and by how many elements
    // series were moved.
    std::set<std::pair<Datum, int>> inputs_;
    std::map<Datum, int> moves_;
};

} // namespace vkr
