// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace vkr {

// Opens a sample company in the real windows, goes through the five tabs with keys and mouse,
// edits a field of each kind, presses OK and opens it again. Writes list.png, one PNG a tab and
// transcript.txt: every event, and every datum before and after. Says nothing where all goes well.
//
// 0 when everything was as expected; else 1, with what was not on the error output.
//
// The pictures that carry the name of a window or tab alone show a sample company as it is.
[[nodiscard]] int runTour(const QString& folder, const QString& samples);

// The same with what an analyst does on a day, as docs/analyst-guide.md tells it, from a new
// company on. `facts` is what AAPL has filed.
[[nodiscard]] int runDay(const QString& folder, const QString& facts);

} // namespace vkr
