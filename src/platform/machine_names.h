// Names of machines in the network, their domains, and what they share. Machines are asked by the system;
// each question to another one may take seconds.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// By COMPUTER_NAME_FORMAT: 0 NetBIOS, 1 host, 2 domain, 3 host and domain.
CString ComputerName(unsigned format);

struct JoinedTo {
    CString name;
    bool domain = false; // else a workgroup
};
// What the machine ("" for this one) has joined; 0 or a Windows error number.
unsigned ReadJoinedTo(std::u16string_view machine, JoinedTo& joined);

struct ServerFacts {
    CString name;
    CString comment;
    unsigned major = 0;
    unsigned minor = 0;
    unsigned type = 0; // SV_TYPE_... bits
    unsigned platform = 0;
};
unsigned ReadServerFacts(std::u16string_view machine, ServerFacts& facts);
// The names of all machines of the domain ("" for ours) that are of one of the types, without "\\".
unsigned ListServers(std::u16string_view domain, unsigned types, std::vector<CString>& names);
// The names of the shares of a machine, those that end in "$" left out unless wanted.
unsigned ListShares(std::u16string_view machine, bool hidden, std::vector<CString>& names);
