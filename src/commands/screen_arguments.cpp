#include "commands/screen_arguments.h"

#include <algorithm>

#include "config/colors.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "lang/console_messages.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/words.h"

namespace {

constexpr int centered = 999;
constexpr std::size_t shortestWord = 3;

bool IsParting(char16_t unit) { return IsBlank(unit) || unit == u','; }

// As it was typed.
CString Spelled(const PlaceArgument& place)
{
    const bool plus = place.kind == PlaceArgument::Kind::FromCursor && place.value >= 0;
    return Format(plus ? u"+%d" : u"%d", place.value);
}

int Resolve(const PlaceArgument& place, int cursor, int first, int size, int length, int& at)
{
    switch (place.kind) {
    case PlaceArgument::Kind::FromEdge: at = first + place.value; break;
    case PlaceArgument::Kind::FromCursor: at = cursor + place.value; break;
    case PlaceArgument::Kind::Centered: at = first + std::max(0, (size - length) / 2); break;
    }
    if (at >= first && at < first + size)
        return result::success;
    return MVError(errors::offScreen, Spelled(place));
}

} // namespace

std::u16string_view ScreenArguments::NextOne(std::size_t& end) const
{
    std::size_t start = 0;
    while (start < text.size() && IsParting(text[start]))
        ++start;
    end = start;
    while (end < text.size() && !IsParting(text[end]))
        ++end;
    return text.substr(start, end - start);
}

int ScreenArguments::TakePlace(PlaceArgument& place)
{
    constexpr int farthest = 32767; // what a console counts to
    std::size_t end = 0;
    const std::u16string_view word = NextOne(end);
    if (word.empty())
        return UsageError();
    const bool isSigned = word.front() == u'+' || word.front() == u'-';
    if (const int code = TakeNumber(place.value, isSigned ? -farthest : 0, farthest))
        return code;
    place.kind = isSigned                  ? PlaceArgument::Kind::FromCursor
                 : place.value == centered ? PlaceArgument::Kind::Centered
                                           : PlaceArgument::Kind::FromEdge;
    return result::success;
}

int ScreenArguments::TakeNumber(int& number, int lowest, int highest)
{
    std::size_t end = 0;
    std::size_t used = 0;
    const std::u16string_view word = NextOne(end);
    if (word.empty())
        return UsageError();
    const auto value = ReadDecimal(word, &used);
    if (!value || used != word.size() || *value < lowest || *value > highest)
        return MVError(errors::invalidNumber, word);
    number = static_cast<int>(*value);
    text.remove_prefix(end);
    return result::success;
}

int ScreenArguments::TakeColors(std::optional<unsigned>& attributes)
{
    std::size_t at = 0;
    if (const auto pair = ReadColorPair(text, at)) {
        attributes = *pair;
        text.remove_prefix(at);
        return result::success;
    }
    // Two colours that are the same would otherwise be shown as text.
    std::size_t behind = 0;
    if (ReadColor(text, behind)) {
        ScreenArguments rest(text.substr(behind));
        std::size_t end = 0;
        if (EqualNoCase(rest.NextOne(end), u"on") && ReadColor(rest.text, end))
            return MVError(errors::invalidColor, CString(text.substr(0, behind + end)).Trim());
    }
    return result::success;
}

int ScreenArguments::TakeColor(std::optional<unsigned>& color)
{
    std::size_t at = 0;
    color = ReadColor(text, at);
    if (!color)
        return AtEnd() ? UsageError() : MVError(errors::invalidColor, Text());
    text.remove_prefix(at);
    return result::success;
}

bool ScreenArguments::TakeWord(std::u16string_view word)
{
    std::size_t end = 0;
    const std::u16string_view given = NextOne(end);
    if (given.size() < shortestWord || !BeginsNoCase(word, given))
        return false;
    text.remove_prefix(end);
    return true;
}

CString ScreenArguments::Text() const
{
    // "1,2,text": a comma right behind a number parts it from the text.
    return WithoutOuterQuotes(CString(text.substr(text.starts_with(u',') ? 1 : 0)).TrimLeft());
}

bool ScreenArguments::AtEnd() const
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return IsParting(unit); });
}

int ResolveRow(const ScreenFacts& screen, const PlaceArgument& place, int length, int& row)
{
    return Resolve(place, screen.cursorRow, screen.windowTop, screen.windowRows, length, row);
}

int ResolveColumn(const ScreenFacts& screen, const PlaceArgument& place, int length, int& column)
{
    return Resolve(place, screen.cursorColumn, screen.windowLeft, screen.windowColumns, length, column);
}
