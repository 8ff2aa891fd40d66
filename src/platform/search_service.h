// Asking a running Everything service for files by name, over the messages that it documents.
//
// The service keeps the names of all files of the machine's volumes. It is asked through its window with
// WM_COPYDATA and answers to a window of ours in the same way.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct ServiceQuery {
    CString text; // in the syntax of the service
    bool matchesCase = false;
    bool wholeWords = false;
    bool matchesPath = false; // the text may stand anywhere in the full name
    bool isRegex = false;
    std::uint32_t most = 0xFFFFFFFF; // files that are wanted
};

enum class ServiceAnswer {
    NoService,
    NoAnswer, // it is there, but does not answer in time
    Answered
};

// The full names, in the service's order. `poll` is called while we wait, and may throw.
ServiceAnswer AskSearchService(const ServiceQuery& query, std::vector<CString>& names, void (*poll)());
