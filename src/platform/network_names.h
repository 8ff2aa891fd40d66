// Names and addresses of machines and services, and whether a machine answers.
//
// The system's own look-ups may take many seconds. Here they are given up after a second; the system goes on
// with them, and knows the answer when it is asked again. Each answers false with the reason in the thread's
// last error; texts that cannot be names or addresses are refused without asking anybody.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct HostFacts {
    CString name;
    std::vector<CString> aliases;
    std::vector<CString> addresses4;
    std::vector<CString> addresses6;
};
// By name or address.
bool FindHost(std::u16string_view host, HostFacts& facts);
bool IsAddress4(std::u16string_view text, std::uint32_t& address); // in network order
bool IsHostName(std::u16string_view text);

// The mail exchangers of a domain, the preferred first.
bool FindMailExchangers(std::u16string_view domain, std::vector<CString>& names);

struct ServiceFacts {
    unsigned port = 0;
    CString name;
    std::vector<CString> aliases;
};
// By name or port number; `protocol` is "tcp" or "udp".
bool FindServicePort(std::u16string_view service, std::u16string_view protocol, ServiceFacts& facts);

struct EchoRequest {
    std::uint32_t address = 0; // IPv4 in network order
    unsigned timeout = 1000;   // milliseconds
    unsigned size = 32;        // bytes of data
    unsigned timeToLive = 128;
};
struct EchoAnswer {
    std::uint32_t address = 0; // who answered
    unsigned milliseconds = 0;
    unsigned timeToLive = 0;
    unsigned status = 0; // 0, or one of the system's numbers for why not (11010: nobody answered in time)
};
bool SendEcho(const EchoRequest& request, EchoAnswer& answer);
