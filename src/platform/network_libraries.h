// The libraries of the network, bound on first use, and what their callers share.
#pragma once

#include <winsock2.h>

#include "platform/lazy_library.h"
#include "text/cstring.h"

namespace libraries {
extern LazyLibrary iphlpapi;
extern LazyLibrary sockets;
} // namespace libraries

// An IPv4 or IPv6 address as it is written, without its port and zone; empty for any other kind.
CString AddressText(const sockaddr* address);
