// Taking apart what COPY is given besides switches: sources, those joined with "+", the target, and which of
// them are text. Pure.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "text/cstring.h"
#include "text/syntax.h"

// What a Ctrl+Z means. As it stands: nothing. Text: the end of a source, and one is written behind a target.
enum class Contents { AsTheyStand, Text };

struct CopySource {
    CString text; // as given, with its quotes
    Contents contents = Contents::AsTheyStand;
};

struct CopyArguments {
    std::vector<CopySource> sources;
    CString target; // "" when none is given
    Contents targetContents = Contents::AsTheyStand;
    bool joins = false;   // there was a "+"
    bool touches = false; // a "+" with nothing behind it: only the time is set
};

// `original` is the argument text with, `cleaned` the one without switches: /A and /B count for the name
// before them and those behind. A name that holds a "+" is a name when `exists` says so.
CopyArguments ReadCopyArguments(std::u16string_view original, std::u16string_view cleaned,
                                const Syntax& syntax, const std::function<bool(const CString&)>& exists);
