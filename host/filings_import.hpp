// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filings_review.hpp"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace vkr {

// Figures from a document of filings into a record, with everything that has to be asked and told
// on the way.
class FilingsImport {
  public:
    explicit FilingsImport(QWidget* window) : window_(window) {}

    // Where stored figures come from; nobody knows without it.
    OriginQuery originOf;
    std::int64_t cik = 0; // as in ReviewOptions
    std::function<void()> helpAsked;

    // The file that the user chooses; empty where they gave up.
    [[nodiscard]] QString chosenFile();
    // How many figures were imported; nothing where the user gave up, or there was an error, which
    // has been told.
    std::optional<int> import(const QString& path, const std::shared_ptr<iVKR_Company>& company);

  private:
    [[nodiscard]] bool isOfCompany(const FilingsReview& review);
    void tellNothing(const QString& path, const QString& why);

    QWidget* window_;
};

} // namespace vkr
