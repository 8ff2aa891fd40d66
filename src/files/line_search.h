// What a person looks for in the lines of texts: words, a pattern with wildcards, or a regular expression.
// Pure.
#pragma once

#include <optional>
#include <string_view>

#include "files/byte_search.h"
#include "files/regex.h"
#include "text/cstring.h"

enum class LineSearchKind { Plain, Wildcards, Expression };

class LineSearch {
public:
    // "*" and "?" of a text with wildcards stand for any run of characters and for any one of them.
    LineSearch(std::u16string_view text, LineSearchKind kind, RegexCase letterCase, RegexSyntax syntax);

    // Only matches that neither begin nor end within a word count from now on.
    void TakeWholeWords() { wholeWords = true; }

    // A malformed expression is found nowhere.
    bool IsValid() const { return !regex || regex->IsValid(); }
    // Where the first match of the line stands; nothing without one.
    std::optional<Regex::Span> Find(std::u16string_view line) const;

    // The bytes without which no file in this width of characters (1 or 2 bytes) can hold a match; nothing
    // when only decoding tells.
    std::optional<ByteSearch> Prefilter(std::size_t width) const;
    // Whether these bytes are a match, and not only needed for one.
    bool IsPlain() const { return !regex && !wholeWords; }
    // Whether it depends on the code page of a text what is found in it.
    bool NeedsCodePage() const { return beyondAscii; }

private:
    std::optional<Regex::Span> FindFrom(std::u16string_view line, std::size_t from) const;

    CString plain;
    CString needed; // ASCII that every match holds, or ""
    bool beyondAscii;
    bool wholeWords = false;
    RegexCase letterCase;
    std::optional<Regex> regex;
};
