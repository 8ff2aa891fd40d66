// Regular expressions over the shell's texts.
//
// One compiled expression is one Regex: compile once and match often. Malformed UTF-16 is matched as U+FFFD.
// An expression that would take forever gives up after a bounded number of steps and then does not match.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

// Dialects, in the order of the RegularExpressions setting.
enum class RegexSyntax { Perl, Ruby, Java, Grep, Posix, Gnu, Python, Emacs };

enum class RegexCase { Ignore, Exact };

// Whether the expression must match the text from its first to its last unit, or some part of it.
enum class RegexMatch { Whole, Anywhere };

class Regex {
public:
    struct Span {
        std::size_t start = std::u16string_view::npos; // npos: the group took no part
        std::size_t length = 0;
    };

    // A malformed expression leaves an object that IsValid denies and that matches nothing.
    Regex(std::u16string_view expression, RegexSyntax syntax, RegexMatch match,
          RegexCase letterCase = RegexCase::Ignore);
    Regex(Regex&& other) noexcept
        : compiled(std::exchange(other.compiled, nullptr)), match(other.match), addedGroups(other.addedGroups)
    {}
    Regex& operator=(Regex&& other) noexcept
    {
        std::swap(compiled, other.compiled);
        std::swap(match, other.match);
        std::swap(addedGroups, other.addedGroups);
        return *this;
    }
    ~Regex();

    bool IsValid() const noexcept { return compiled != nullptr; }

    // Whether it matches the text, the first match at or after `from` (RegexMatch::Whole always starts at 0).
    // `groups`, if given, receives the place of the whole match and then of each group.
    bool Search(std::u16string_view text, std::size_t from = 0, std::vector<Span>* groups = nullptr) const;

    // Hands every match in turn to `each`, none overlapping, until it answers false.
    void ForEach(std::u16string_view text, const std::function<bool(const std::vector<Span>&)>& each) const;

private:
    bool SearchWellFormed(std::u16string_view text, std::size_t from, std::vector<Span>* groups) const;

    void* compiled = nullptr; // the library's own type
    RegexMatch match;
    int addedGroups = 0; // by the tie of a whole match
};
