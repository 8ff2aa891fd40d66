// Comparing one name with one pattern, the way every command that takes wildcards does it.
//
// "*" stands for any run of characters, "?" for one character or for nothing at the end of the name, "[...]"
// for one character of a set; letters mind no case. A pattern that begins with "::" is a regular expression
// that must match the whole name. The time is bounded by the product of both lengths.
#pragma once

#include <string_view>

#include "files/regex.h"

// 0 when the name matches, 1 when it does not, -1 for a regular expression that is malformed.
//
// With `dotRules` a name is a base name and an extension: "*.txt" looks at the last period only, a pattern
// that ends in a period takes names without extension, "*.*" takes every name, and "." and ".." count as
// empty. With `allowSets` "[" opens a set, otherwise it is a character like any other.
int WildcardComparison(std::u16string_view pattern, std::u16string_view name, bool dotRules, bool allowSets,
                       RegexSyntax regexSyntax = RegexSyntax::Perl);

// The same for a list of patterns parted by ";" outside quotes and sets: 0 when one of them matches. A list
// that begins with "::" is one regular expression, semicolons included.
int WildcardComparisonEx(std::u16string_view patterns, std::u16string_view name, bool dotRules,
                         bool allowSets, RegexSyntax regexSyntax = RegexSyntax::Perl);
