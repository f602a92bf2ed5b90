#pragma once

// The X server's keyboard extension. A field in the library's header is called like a keyword of C++, which has to be
// hidden while the header is read; compilers then warn of that, though not in headers of the system.
#pragma GCC system_header
#define explicit explicitFields
#include <xcb/xkb.h>
#undef explicit
