// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_content.hpp"
#include "sheet/sheet_page.hpp"

#include <functional>

QT_BEGIN_NAMESPACE
class QPagedPaintDevice;
class QPainter;
QT_END_NAMESPACE

namespace vkr {

// Data sheets on paper. All of it needs a QGuiApplication, on the platform "offscreen" too.

// The pages of one company; the footer says that it was printed on that day.
[[nodiscard]] QList<SheetPage> companySheet(const SheetCompany& company, Paper paper, Date printed);

// As large as the page is in the units of the painter.
void paintPage(QPainter& painter, const SheetPage& page);

// The next company, nothing behind the last one. What it throws, as std::runtime_error with words
// for people, ends the printing.
using SheetSource = std::function<std::optional<SheetCompany>()>;

// One company after the other, each on new pages. Empty on success, else what went wrong.
[[nodiscard]] QString printSheets(QPagedPaintDevice& device, int resolution, Paper paper,
                                  Date printed, const SheetSource& next);

// Into a PDF file, which takes its name when it is whole. A file that is there is replaced; what
// else is there, such as a pipe, a device or a folder, is refused.
[[nodiscard]] QString writeSheetPdf(const QString& file, const QString& title, Paper paper,
                                    Date printed, const SheetSource& next);

// What is usual where the user is.
[[nodiscard]] Paper usualPaper();

} // namespace vkr
