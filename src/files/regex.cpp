#include "files/regex.h"

#include <algorithm>
#include <memory>
#include <string>

#include <oniguruma.h>

namespace {

// Steps back that one match may take before it is given up: about half a second.
constexpr unsigned long retryLimit = 10'000'000;
// Entries of the stack that a match may fill: some 50 MB.
constexpr unsigned stackLimit = 1'000'000;

bool StartLibrary()
{
    OnigEncoding encodings[] = {ONIG_ENCODING_UTF16_LE};
    if (onig_initialize(encodings, 1) != ONIG_NORMAL)
        return false;
    onig_set_retry_limit_in_match(retryLimit);
    onig_set_retry_limit_in_search(retryLimit);
    onig_set_match_stack_limit_size(stackLimit);
    return true;
}

bool IsLibraryReady()
{
    static const bool ready = StartLibrary();
    return ready;
}

// A dialect of the library, and how it groups an expression and ties it to the end of the text.
struct Dialect {
    OnigSyntaxType* syntax;
    std::u16string_view before;
    std::u16string_view behind;
    int groups; // that the tie itself adds
};

Dialect DialectOf(RegexSyntax syntax)
{
    switch (syntax) {
    case RegexSyntax::Perl: return {ONIG_SYNTAX_PERL_NG, u"(?:", u")\\z", 0};
    case RegexSyntax::Ruby: return {ONIG_SYNTAX_RUBY, u"(?:", u")\\z", 0};
    case RegexSyntax::Java: return {ONIG_SYNTAX_JAVA, u"(?:", u")\\z", 0};
    case RegexSyntax::Grep: return {ONIG_SYNTAX_GREP, u"\\(", u"\\)$", 1};
    case RegexSyntax::Posix: return {ONIG_SYNTAX_POSIX_EXTENDED, u"(", u")$", 1};
    case RegexSyntax::Gnu: return {ONIG_SYNTAX_GNU_REGEX, u"(", u")$", 1};
    case RegexSyntax::Python: return {ONIG_SYNTAX_PYTHON, u"(?:", u")\\Z", 0};
    case RegexSyntax::Emacs: return {ONIG_SYNTAX_EMACS, u"\\(", u"\\)$", 1};
    }
    return {ONIG_SYNTAX_PERL_NG, u"(?:", u")\\z", 0};
}

constexpr bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// The text itself when it is well formed, which the library relies on; else a copy in `room` that has U+FFFD
// in place of lone surrogates, and the same length.
std::u16string_view WellFormed(std::u16string_view text, std::u16string& room)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool pair = IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
        if (pair) {
            ++at;
        } else if (IsHighSurrogate(text[at]) || IsLowSurrogate(text[at])) {
            if (room.empty())
                room.assign(text);
            room[at] = u'\uFFFD';
        }
    }
    if (!room.empty())
        return room;
    return text.empty() ? std::u16string_view(u"") : text; // the library takes no null pointers
}

const OnigUChar* Bytes(const char16_t* units) { return reinterpret_cast<const OnigUChar*>(units); }

struct FreeRegion {
    void operator()(OnigRegion* region) const { onig_region_free(region, 1); }
};

OnigRegex CompileIn(std::u16string_view expression, OnigOptionType options, OnigSyntaxType* syntax)
{
    OnigRegex regex = nullptr;
    OnigErrorInfo error;
    const int status =
        onig_new(&regex, Bytes(expression.data()), Bytes(expression.data() + expression.size()), options,
                 ONIG_ENCODING_UTF16_LE, syntax, &error);
    return status == ONIG_NORMAL ? regex : nullptr;
}

OnigRegex Compile(std::u16string_view expression, OnigOptionType options, OnigSyntaxType* syntax)
{
    OnigRegex regex = CompileIn(expression, options, syntax);
    // The syntax with named groups takes "(?-i)" for a call of a group.
    const bool plainer = !regex && syntax == ONIG_SYNTAX_PERL_NG;
    return plainer ? CompileIn(expression, options, ONIG_SYNTAX_PERL) : regex;
}

// The whole match and each group of the expression; `skip` groups behind the whole match are not its own.
void CopyGroups(const OnigRegion& region, int skip, std::vector<Regex::Span>& groups)
{
    groups.clear();
    for (int i = 0; i < region.num_regs; i += i == 0 ? 1 + skip : 1) {
        Regex::Span span;
        if (region.beg[i] != ONIG_REGION_NOTPOS) {
            span.start = static_cast<std::size_t>(region.beg[i]) / sizeof(char16_t);
            span.length = static_cast<std::size_t>(region.end[i] - region.beg[i]) / sizeof(char16_t);
        }
        groups.push_back(span);
    }
}

} // namespace

Regex::Regex(std::u16string_view expression, RegexSyntax syntax, RegexMatch kind, RegexCase letterCase)
    : match(kind)
{
    if (!IsLibraryReady())
        return;
    const Dialect dialect = DialectOf(syntax);
    const OnigOptionType options =
        letterCase == RegexCase::Ignore ? ONIG_OPTION_IGNORECASE : ONIG_OPTION_NONE;
    std::u16string room;
    expression = WellFormed(expression, room);
    OnigRegex regex = Compile(expression, options, dialect.syntax);
    if (regex && kind == RegexMatch::Whole) {
        // The library takes the first alternative that matches: without a tie to the end of the text it
        // would miss a whole match by a later one.
        onig_free(regex);
        std::u16string tied(dialect.before);
        tied.append(expression).append(dialect.behind);
        regex = Compile(tied, options, dialect.syntax);
        addedGroups = dialect.groups;
    }
    compiled = regex;
}

Regex::~Regex()
{
    if (compiled)
        onig_free(static_cast<OnigRegex>(compiled));
}

bool Regex::Search(std::u16string_view text, std::size_t from, std::vector<Span>* groups) const
{
    if (!compiled)
        return false;
    std::u16string room;
    return SearchWellFormed(WellFormed(text, room), from, groups);
}

bool Regex::SearchWellFormed(std::u16string_view text, std::size_t from, std::vector<Span>* groups) const
{
    const std::unique_ptr<OnigRegion, FreeRegion> region(groups ? onig_region_new() : nullptr);
    const auto regex = static_cast<OnigRegex>(compiled);
    const OnigUChar* start = Bytes(text.data());
    const OnigUChar* end = Bytes(text.data() + text.size());
    bool found = false;
    if (match == RegexMatch::Whole) {
        found = onig_match(regex, start, end, start, region.get(), ONIG_OPTION_NONE) == end - start;
    } else {
        const OnigUChar* at = Bytes(text.data() + std::min(from, text.size()));
        found = onig_search(regex, start, end, at, end, region.get(), ONIG_OPTION_NONE) >= 0;
    }
    if (found && groups)
        CopyGroups(*region, addedGroups, *groups);
    return found;
}

void Regex::ForEach(std::u16string_view text, const std::function<bool(const std::vector<Span>&)>& each) const
{
    if (!compiled)
        return;
    std::u16string room;
    text = WellFormed(text, room);
    std::vector<Span> groups;
    for (std::size_t from = 0;
         from <= text.size() && SearchWellFormed(text, from, &groups) && each(groups);) {
        from = groups[0].start + groups[0].length;
        // A match of nothing would be found for ever.
        if (groups[0].length == 0)
            from += from + 1 < text.size() && IsHighSurrogate(text[from]) ? 2 : 1;
    }
}
