// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_flow.hpp"

namespace vkr {

// The notes of the company and the footnotes below one another, in what is left of the page: in the
// largest type and the fewest columns in which all of them fit. What has no room in the smallest
// one is counted in a last line.
void addNotes(SheetFlow& flow, const QString& notes, const QStringList& footnotes);

} // namespace vkr
