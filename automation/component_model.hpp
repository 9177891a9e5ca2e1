// SPDX-License-Identifier: MIT
#pragma once

// The headers of the system come through here, so that none of their macros meets a name of ours.
#include <windows.h>
// After it.
#include <ole2.h>
// After that.
#include <objsafe.h>
#include <ocidl.h>
#include <olectl.h>

#undef GetObject
#undef LoadString
#undef far
#undef near
#undef small

// The compiler's header leaves it out.
__CRT_UUID_DECL(IObjectSafety, 0xcb5bdc81, 0x93c1, 0x11cf, 0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0,
                0x64)
