// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// For what a program does without showing a window: it needs no display then. Before the toolkit
// starts.
void doWithoutDisplay();

// Name and version, as windows, settings and desktops have them.
void nameProgram();

} // namespace vkr
