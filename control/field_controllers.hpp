// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "control/captions.hpp"
#include "control/controller.hpp"
#include "form/controls.hpp"
#include "quarterly/last_quarter.hpp"
#include "yearly/yearly_grid.hpp"

#include <deque>
#include <optional>
#include <vector>

namespace vkr {

// A field: selected as a whole when it is entered, its keys filtered, stored when it is left.
class FieldController : public Controller {
  public:
    // `filter` is null where the keys are not looked at.
    FieldController(EntryContext& context, const KeyFilter* filter)
        : context_(context), filter_(filter) {}

    void enter(Control& control) override;
    void leave(Control& control) final;
    bool press(TextField& field, char32_t& character) override;
    void change(TextField& field) final;
    void choose(ComboBox& list) final;

    virtual void startOver() { suggestionTyped_ = false; } // another company is held

  protected:
    virtual void store(TextField& field) = 0;
    virtual void typed() {}

    EntryContext& context_;

  private:
    void settle(TextField& field);

    const KeyFilter* filter_;
    bool suggestionTyped_ = false; // over a date that was but suggested, until it is left
};

// A field of the company table.
class CompanyFieldController final : public FieldController {
  public:
    CompanyFieldController(EntryContext& context, CompanyFields& fields, const FieldRow& row);

    [[nodiscard]] std::optional<int> takes(const TextField& field) const override;
    [[nodiscard]] std::optional<Datum> date() const override;
    [[nodiscard]] bool hasCalendar() const override { return row_.kind == FieldKind::date; }

  private:
    void store(TextField& /*field*/) override { fields_.leave(row_); }

    CompanyFields& fields_;
    const FieldRow& row_;
};

// All cells of a grid.
class CellController final : public FieldController {
  public:
    CellController(EntryContext& context, SeriesGrid& grid);

    void enter(Control& control) override { grid_.enter(cellOf(control)); }
    void key(Control& control, KeyCode& key, int shift) override;
    bool press(TextField& field, char32_t& character) override;
    [[nodiscard]] std::optional<int> takes(const TextField& field) const override;

  private:
    [[nodiscard]] SeriesGrid::Cell cellOf(const Control& control) const {
        return grid_.find(control).value();
    }
    void store(TextField& field) override { grid_.leave(cellOf(field)); }

    SeriesGrid& grid_;
};

class LastFiscalYearController final : public FieldController {
  public:
    LastFiscalYearController(EntryContext& context, YearlyGrid& yearly);

    [[nodiscard]] std::optional<int> takes(const TextField& field) const override;
    [[nodiscard]] std::optional<Datum> date() const override { return Datum::LastFYDate; }

  private:
    void store(TextField& /*field*/) override { yearly_.leaveLastFiscalYear(); }
    void typed() override { yearly_.typeLastFiscalYear(); }

    YearlyGrid& yearly_;
};

// A date that rebuilds a grid: it is pending while it is edited.
class PendingDateController : public FieldController {
  public:
    PendingDateController(EntryContext& context, const Handle<TextBox>& handle);

    void enter(Control& control) override;
    [[nodiscard]] bool hasCalendar() const override { return true; }

    [[nodiscard]] TextBox& field() const { return context_[handle_]; }
    // Cancel skips a date that is being typed: it is still to be left.
    [[nodiscard]] bool isSkipped() const;

  private:
    Handle<TextBox> handle_;
};

class LastFiscalYearDateController final : public PendingDateController {
  public:
    LastFiscalYearDateController(EntryContext& context, YearlyGrid& yearly);
    [[nodiscard]] std::optional<Datum> date() const override { return Datum::LastFYDate; }

  private:
    void store(TextField& /*field*/) override { yearly_.leaveLastFiscalYearDate(); }

    YearlyGrid& yearly_;
};

class LastQuarterDateController final : public PendingDateController {
  public:
    LastQuarterDateController(EntryContext& context, LastQuarter& quarter);
    void startOver() override;
    [[nodiscard]] std::optional<Datum> date() const override { return Datum::LastQDate; }

  private:
    void store(TextField& /*field*/) override { quarter_.leave(); }

    LastQuarter& quarter_;
};

// The symbol of the currency, which a commit stores.
class CurrencySymbolController final : public FieldController {
  public:
    CurrencySymbolController(EntryContext& context, Captions& captions);

  private:
    void store(TextField& field) override;
    void typed() override { captions_.showCurrency(); }

    Captions& captions_;
};

// The reporting period: a commit stores the chosen entry.
class ReportingPeriodController final : public FieldController {
  public:
    explicit ReportingPeriodController(EntryContext& context);
    void enter(Control& /*control*/) override {}

  private:
    void store(TextField& field) override;
};

// The controllers of all fields of the form.
class FieldControllers {
  public:
    FieldControllers(EntryContext& context, CompanyFields& fields, YearlyGrid& yearly,
                     QuarterlyGrid& quarterly, LastQuarter& lastQuarter, Captions& captions,
                     Controllers& controllers);

    void startOver(); // another company is held
    [[nodiscard]] bool hasSkippedDate() const;
    void leavePendingDates();

  private:
    EntryContext& context_;
    std::deque<CompanyFieldController> companyFields_;
    CellController yearlyCells_;
    CellController quarterlyCells_;
    LastFiscalYearController lastFiscalYear_;
    LastFiscalYearDateController lastFiscalYearDate_;
    LastQuarterDateController lastQuarterDate_;
    CurrencySymbolController currencySymbol_;
    ReportingPeriodController reportingPeriod_;
    std::vector<FieldController*> dates_;
};

} // namespace vkr
