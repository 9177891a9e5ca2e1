// SPDX-License-Identifier: MIT
#pragma once

// The headers of the system come through here, so that none of their macros meets a name of ours.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After it.
#include <commctrl.h>
#include <windowsx.h>

#undef LoadString
#undef small
#undef near
#undef far
