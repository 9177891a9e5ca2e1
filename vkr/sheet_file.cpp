// SPDX-License-Identifier: MIT
#include "vkr/sheet_file.hpp"

#include "sheet/sheet_print.hpp"
#include "sheet/today.hpp"

namespace vkr {

namespace {

Paper paperOf(const CommandLine& line) {
    const auto named = line.value(Option::paper);
    if (!named)
        return usualPaper();
    return *named == "letter" ? Paper::letter : Paper::a4;
}

} // namespace

void writePdf(const Call& call, const std::vector<SheetCompany>& companies,
              const std::string& title, const std::string& file) {
    auto next = companies.begin();
    const SheetSource source = [&]() -> std::optional<SheetCompany> {
        return next == companies.end() ? std::nullopt : std::optional(*next++);
    };
    const QString error = writeSheetPdf(QString::fromStdString(file), QString::fromStdString(title),
                                        paperOf(call.line), today(), source);
    if (!error.isEmpty())
        throw CommandFailure(ExitCode::refused, error.toStdString());
}

} // namespace vkr
