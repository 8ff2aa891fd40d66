#include "commands/ffind_options.h"

#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_search.h"
#include "lang/function_messages.h"
#include "platform/directory.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

// "4D 5A90": pairs of digits, with blanks where anybody wants them.
int ReadHexBytes(std::u16string_view text, std::optional<ByteSearch>& search)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsBlank(text[i]))
            continue;
        const int high = HexDigit(text[i]);
        const int low = i + 1 < text.size() ? HexDigit(text[i + 1]) : -1;
        if (high < 0 || low < 0)
            return MVError(errors::invalidNumber, text);
        bytes.push_back(static_cast<char>(high * 16 + low));
        ++i;
    }
    if (bytes.empty())
        return MVError(errors::invalidNumber, text);
    search.emplace(bytes, ByteCase::Exact);
    return result::success;
}

// The texts come first: whatever they hold is no switch.
struct WantedTexts {
    CString text;
    CString expression;
    CString hex;
    int given = 0; // switches
    bool plain = false;
    bool exact = false;
    bool wholeWords = false;
};

int MakeSearch(const WantedTexts& wanted, FfindOptions& options)
{
    const int kinds = !wanted.text.empty() + !wanted.expression.empty() + !wanted.hex.empty();
    if (kinds > 1 || kinds != wanted.given)
        return UsageError(); // an empty text, too: it would be found everywhere
    if (!wanted.hex.empty())
        return ReadHexBytes(wanted.hex, options.bytes);
    const RegexCase letterCase = wanted.exact ? RegexCase::Exact : RegexCase::Ignore;
    const auto syntax = static_cast<RegexSyntax>(aIniFile.RegularExpressions);
    if (!wanted.expression.empty())
        options.lines.emplace(wanted.expression, LineSearchKind::Expression, letterCase, syntax);
    else if (!wanted.text.empty())
        options.lines.emplace(wanted.text, wanted.plain ? LineSearchKind::Plain : LineSearchKind::Wildcards,
                              letterCase, syntax);
    if (options.lines && !options.lines->IsValid())
        return MVError(errors::invalidRegex, wanted.expression);
    if (options.lines && wanted.wholeWords)
        options.lines->TakeWholeWords();
    return result::success;
}

int ReadDrives(std::u16string_view text, CString& drives)
{
    if (text.empty())
        for (const char16_t letter : AllDrives())
            drives.Append(letter);
    for (const char16_t unit : text) {
        if (IsAsciiLetter(unit))
            drives.Append(UpperCase(unit));
        else if (unit != u':' && unit != u'\\')
            return MVError(errors::invalidSwitch, Format(u"%cD%s", CurrentSyntax().switchChar, text));
    }
    return result::success;
}

int ReadContext(std::u16string_view text, std::size_t& context)
{
    constexpr std::int64_t most = 1000;
    std::size_t used = 0;
    const std::optional<std::int64_t> lines =
        text.empty() ? std::optional<std::int64_t>(2) : ReadDecimal(text, &used);
    if (!lines || used != text.size() || *lines < 0 || *lines > most)
        return MVError(errors::invalidSwitch, Format(u"%cW%s", CurrentSyntax().switchChar, text));
    context = static_cast<std::size_t>(*lines);
    return result::success;
}

int ReadLetters(CString& arguments, FfindOptions& options)
{
    CString text;
    int code = TakeAttributeSwitches(arguments, options.attributes);
    while (code == 0 && TakeSwitchLetters(arguments, u"O", text))
        code =
            ReadFileOrder(text.view().starts_with(u':') ? text.view().substr(1) : text.view(), options.order);
    while (code == 0 && TakeSwitchText(arguments, u"D", text)) {
        code = ReadDrives(text, options.drives);
        options.deepest = allLevels;
    }
    while (code == 0 && TakeSwitchText(arguments, u"W", text))
        code = ReadContext(text, options.context);
    return code ? code : TakeDepthSwitch(arguments, options.deepest);
}

} // namespace

std::vector<CString> NamesOnDrives(const FfindOptions& options, std::vector<CString> names)
{
    if (options.drives.empty())
        return names;
    std::vector<CString> all;
    for (const CString& name : names)
        for (const char16_t letter : options.drives.view())
            all.push_back(
                CString(name).Insert(name.view().starts_with(u'"') ? 1 : 0, Format(u"%c:\\", letter)));
    return all;
}

int ReadFfindOptions(CString& arguments, FfindOptions& options)
{
    WantedTexts wanted;
    wanted.given += TakeSwitchText(arguments, u"T", wanted.text);
    wanted.given += TakeSwitchText(arguments, u"E", wanted.expression);
    wanted.given += TakeSwitchText(arguments, u"X", wanted.hex);
    if (const int code = GetRange(arguments, &options.ranges, 0))
        return code;
    if (const int code = ReadLetters(arguments, options))
        return code;
    constexpr std::u16string_view letters = u"BCFHIKLMNPUVY";
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, letters, flags))
        return code;
    auto on = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    options.bare = on(u'B');
    wanted.exact = on(u'C');
    options.firstFileOnly = on(u'F');
    wanted.wholeWords = on(u'H');
    wanted.plain = on(u'I');
    options.header = !on(u'K');
    options.lineNumbers = on(u'L');
    options.totals = !on(u'M') && !on(u'B');
    options.inverse = on(u'N');
    options.pauses = on(u'P');
    options.summaryOnly = on(u'U');
    options.allMatches = on(u'V');
    options.asks = on(u'Y');
    options.attributes.forbidden |= wanted.text.empty() && wanted.expression.empty() && wanted.hex.empty()
                                        ? 0
                                        : file_attribute::directory;
    return MakeSearch(wanted, options);
}
