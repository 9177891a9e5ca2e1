// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"
#include "store/company_store.hpp"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace vkr {

// An import that is to take the place of a company that is stored.
struct ReplacingImport {
    SaveRequest request;
    const CsvImport* import;
};

// What was stored, and is not any more once they are saved, for people.
struct GoneFigures {
    QStringList words; // how many, and the first of them
    QStringList lines; // each of them
};

struct PreparedImports {
    std::vector<ReplacingImport> imports;
    GoneFigures gone;
};

// Gives each of them what its files do not speak of, and what was typed, but for what the user
// ticks; leaves those out that are locked or damaged, and says so. Nothing when the user gave up,
// or where there was an error, which has been told.
[[nodiscard]] std::optional<PreparedImports> replacing(CompanyStore& store, QWidget* window,
                                                       std::vector<ReplacingImport> imports);

void tellLeft(QWidget* window, const QStringList& titles, const QString& why);

} // namespace vkr
