// Taking the redirections out of a command's text. Pure: what is to be done with them stands in
// redirection.h.
#pragma once

#include <vector>

#include "lang/errors.h"
#include "text/cstring.h"
#include "text/syntax.h"

enum class RedirectionKind {
    Input,     // < name
    HereText,  // <<< text
    HereLines, // << word: the following lines of the batch file
    Output,    // > name, n> name, >& name
    Append,    // >> name, >>& name
    Duplicate, // >&n, n>&m
};

struct RedirectionRequest {
    RedirectionKind kind = RedirectionKind::Output;
    int handle = 1;        // 0 to 2: the standard handle that is redirected
    bool errorToo = false; // standard error goes with standard output
    int source = 1;        // Duplicate: the handle that is copied
    bool overrideNoClobber = false;
    bool stripBlanks = false; // "<<-": leading white space of the lines goes
    CString name;             // file name (escapes resolved), end word or text
};

constexpr std::size_t longestRedirectionName = 32767; // units

// Cuts every redirection outside quotes (and outside parentheses of a command that begins with "(") out of
// the command. 0, or errors::syntax for an operator without a name or with one that is too long; the command
// is then left as it was.
unsigned ParseRedirections(CString& command, bool parentheses, const Syntax& syntax,
                           std::vector<RedirectionRequest>& requests);
