// The network adapters of this machine and its settings for IP. Nothing is sent.
#pragma once

#include <cstdint>
#include <vector>

#include "text/cstring.h"

// Addresses are texts: "192.168.0.10", "fe80::1".
struct NetworkAdapter {
    CString name; // as the user sees it
    CString description;
    CString physicalAddress; // "00-15-5D-01-02-03", empty when it has none
    std::vector<CString> addresses4;
    std::vector<CString> masks4;     // beside addresses4
    std::vector<CString> addresses6; // but those of the link
    std::vector<CString> linkLocal6;
    std::vector<CString> gateways;
    std::vector<CString> dnsServers;
    std::vector<CString> winsServers;
    CString dhcpServer;
    std::int64_t leaseObtained = 0; // seconds since 1970 in UTC, 0 without a lease
    std::int64_t leaseExpires = 0;
    unsigned index = 0;  // the system's number of it
    unsigned index6 = 0; // the zone of its link-local addresses
    unsigned type = 0;   // IF_TYPE_...: 6 Ethernet, 71 wireless
    bool up = false;
    bool dhcp = false;
};

// All adapters but the loopback, in the system's order. Empty when the system cannot tell.
std::vector<NetworkAdapter> NetworkAdapters();
// The place in that list of the adapter that the way to the internet goes through; -1 without one.
int BestAdapter(const std::vector<NetworkAdapter>& adapters);

struct NetworkSettings {
    std::vector<CString> dnsServers;
    CString domain;
    bool routing = false;
    bool arpProxy = false;
    bool dns = false;
};
NetworkSettings ReadNetworkSettings();

// The physical address of a machine on the same net by its IPv4 address in network order; the system asks
// the net when it does not know it. Empty when nobody answers.
CString PhysicalAddressOf(std::uint32_t address);
// "00-15-5D-01-02-03"
CString PhysicalAddressText(const unsigned char* bytes, std::size_t length);
