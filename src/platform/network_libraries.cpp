#include "platform/network_libraries.h"

#include <ws2tcpip.h>

#include "text/format.h"

namespace libraries {
constinit LazyLibrary iphlpapi(L"iphlpapi.dll");
constinit LazyLibrary sockets(L"ws2_32.dll");
} // namespace libraries

namespace {

LazyLibrary systemLayer(L"ntdll.dll");
LazyFunction<PWSTR WINAPI(const in6_addr*, PWSTR)> address6Text(systemLayer, "RtlIpv6AddressToStringW");

} // namespace

CString AddressText(const sockaddr* address)
{
    if (address->sa_family == AF_INET) {
        const auto& parts = reinterpret_cast<const sockaddr_in*>(address)->sin_addr.S_un.S_un_b;
        return Format(u"%u.%u.%u.%u", unsigned{parts.s_b1}, unsigned{parts.s_b2}, unsigned{parts.s_b3},
                      unsigned{parts.s_b4});
    }
    if (address->sa_family != AF_INET6)
        return {};
    wchar_t text[64] = L"";
    address6Text(&reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr, text);
    return reinterpret_cast<const char16_t*>(text);
}
