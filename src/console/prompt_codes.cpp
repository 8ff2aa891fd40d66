#include "console/prompt_codes.h"

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

CString DriveOf(PromptFacts& facts)
{
    const CString directory = facts.Directory();
    return directory[1] == u':' ? directory.Substr(0, 1) : CString();
}

struct FactCode {
    char16_t code;
    CString (*value)(PromptFacts& facts);
};

constexpr FactCode factCodes[] = {
    {u'D', [](PromptFacts& facts) { return facts.Date(); }},
    {u'I', [](PromptFacts& facts) { return facts.IsoDate(); }},
    {u'K', [](PromptFacts& facts) { return facts.ShortTime(); }},
    {u'M', [](PromptFacts& facts) { return facts.RemoteName(); }},
    {u'N', DriveOf},
    {u'P', [](PromptFacts& facts) { return facts.Directory(); }},
    {u'R', [](PromptFacts& facts) { return facts.ErrorLevel(); }},
    {u'T', [](PromptFacts& facts) { return facts.Time(); }},
    {u'U', [](PromptFacts& facts) { return facts.UserName(); }},
    {u'V', [](PromptFacts& facts) { return facts.Version(); }},
    {u'W', [](PromptFacts& facts) { return ShortenPath(facts.Directory()); }},
    {u'Z', [](PromptFacts& facts) { return facts.Nesting(); }},
    {u'+', [](PromptFacts& facts) { return CString(facts.StackDepth(), u'+'); }},
};

struct TextCode {
    char16_t code;
    const char16_t* text;
};

constexpr TextCode textCodes[] = {
    {u'A', u"&"}, {u'B', u"|"}, {u'C', u"("}, {u'E', u"\x1b"}, {u'F', u")"},    {u'G', u">"},
    {u'L', u"<"}, {u'Q', u"="}, {u'S', u" "}, {u'$', u"$"},    {u'_', u"\r\n"},
};

// A surrogate pair is one character, and so is a doubled percent sign.
void TakeBackCharacter(CString& text, bool doublePercents)
{
    const std::u16string_view last = text.view().substr(text.size() < 2 ? 0 : text.size() - 2);
    const bool pair = last.size() == 2 && last[1] >= 0xDC00 && last[1] <= 0xDFFF;
    const bool doubled = doublePercents && last == u"%%";
    if (!text.empty())
        text.Truncate(text.size() - (pair || doubled ? 2 : 1));
}

CString ValueOf(char16_t code, PromptFacts& facts)
{
    for (const TextCode& row : textCodes)
        if (row.code == code)
            return row.text;
    for (const FactCode& row : factCodes)
        if (row.code == code)
            return row.value(facts);
    return {};
}

// "$X" with the drive behind it, which is consumed; without one the current directory.
CString ValueOfDriveCode(std::u16string_view pattern, std::size_t& at, PromptFacts& facts)
{
    if (at + 1 >= pattern.size() || !IsAsciiLetter(pattern[at]) || pattern[at + 1] != u':')
        return facts.Directory();
    const char16_t drive = pattern[at];
    at += 2;
    return facts.DirectoryOf(drive);
}

void AppendValue(CString& text, const CString& value, bool doublePercents)
{
    for (const char16_t unit : value.view()) {
        text += unit;
        if (doublePercents && unit == u'%')
            text += unit;
    }
}

} // namespace

CString ExpandPromptCodes(std::u16string_view pattern, PromptFacts& facts, bool doublePercents)
{
    CString text;
    std::size_t at = 0;
    while (at < pattern.size()) {
        const char16_t unit = pattern[at++];
        if (unit != u'$') {
            text += unit;
            continue;
        }
        if (at == pattern.size())
            break;
        const char16_t code = UpperCase(pattern[at++]);
        if (code == u'H')
            TakeBackCharacter(text, doublePercents);
        else if (code == u'X')
            AppendValue(text, ValueOfDriveCode(pattern, at, facts), doublePercents);
        else
            AppendValue(text, ValueOf(code, facts), doublePercents);
    }
    return text;
}

CString ShortenPath(std::u16string_view path)
{
    const std::size_t last = path.rfind(u'\\');
    const bool network = path.substr(0, 2) == u"\\\\";
    // The root ends behind "C:\", or behind the share of "\\server\share\".
    std::size_t root = network ? path.find(u'\\', 2) : 0;
    root = root == npos ? npos : path.find(u'\\', network ? root + 1 : root);
    if (root == npos || last == npos || last <= root)
        return CString(path);
    const std::size_t second = path.find(u'\\', root + 1);
    if (second == last)
        return CString(path);
    CString shortened(path.substr(0, root + 1));
    return shortened.Append(u"...").Append(path.substr(last));
}
