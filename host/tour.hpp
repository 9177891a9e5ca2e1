// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace vkr {

// Opens a sample company in the real windows, goes through the five tabs with keys and mouse,
// edits a field of each kind, presses OK and opens it again. Writes list.png, one PNG a tab and
// transcript.txt: every event, and every datum before and after.
//
// 0 when everything was as expected; else 1, with what was not on the error output.
[[nodiscard]] int runTour(const QString& folder, const QString& samples);

} // namespace vkr
