// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/companies.hpp"
#include "control/vkr_data_entry.hpp"
#include "host/company_window.hpp"
#include "store/company_store.hpp"

#include <QTemporaryDir>

#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace vkr {

// The window of a new company in which somebody has worked for some hours: every figure of its
// series was imported, and some hundred were typed after that.
class WorkedWindow {
  public:
    explicit WorkedWindow(const std::shared_ptr<CompanyRecord>& record)
        : store_(CompanyStore::open(folder_.filePath(QStringLiteral("companies.vkr")).toStdString(),
                                    OpenMode::create)) {
        if (!store_)
            std::abort();
        window_ = std::make_unique<CompanyWindow>(*store_.value(), std::nullopt,
                                                  LoadedCompany{record, 0, {}}, OfferedLists());
        work();
    }

    CompanyWindow& operator*() { return *window_; }

  private:
    void work() {
        std::vector<DatumChange> figures;
        for (const DatumRow& row : datumTable()) {
            if (!isSeries(row))
                continue;
            const Variant series = readDatum(*window_->record(), row.datum);
            for (int i = series.array().lower(); i <= series.array().upper(); ++i)
                figures.push_back(
                    {row.datum, i, series.array().at(i), series.array().number(i) + 1});
        }
        change(figures, {Origin::imported, "Import", "0001"});
        for (DatumChange& figure : figures) {
            figure = {figure.datum, figure.element, figure.after, figure.after.toDouble() + 1};
            change({&figure, 1}, {Origin::typed, "", ""});
        }
    }
    void change(std::span<const DatumChange> changes, const Action& action) {
        if (window_->entry().component().changeRecord(changes, action))
            std::abort();
    }

    QTemporaryDir folder_;
    StoreResult<std::unique_ptr<CompanyStore>> store_;
    std::unique_ptr<CompanyWindow> window_;
};

} // namespace vkr
