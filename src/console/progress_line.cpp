#include "console/progress_line.h"

#include <algorithm>

#include "text/format.h"

namespace {

constexpr std::u16string_view between = u"  ";
constexpr std::uint64_t second = 1000;

CString ClockText(std::uint64_t milliseconds)
{
    const std::uint64_t seconds = milliseconds / second;
    const std::uint64_t minutes = seconds / 60;
    if (minutes < 60)
        return Format(u"%I64u:%02I64u", minutes, seconds % 60);
    return Format(u"%I64u:%02I64u:%02I64u", minutes / 60, minutes % 60, seconds % 60);
}

// What is left at the pace so far; what has passed when the end is not known.
std::uint64_t TimeOf(const ProgressFacts& facts)
{
    if (facts.bytes == 0 || facts.allBytes <= facts.bytes)
        return facts.milliseconds;
    const double left = static_cast<double>(facts.allBytes - facts.bytes) / static_cast<double>(facts.bytes);
    return static_cast<std::uint64_t>(left * static_cast<double>(facts.milliseconds));
}

// "12/200", or "12" when the whole is not known.
CString OfWhole(const CString& done, std::uint64_t whole, const CString& wholeText)
{
    return whole == 0 ? done : done + u"/" + wholeText;
}

} // namespace

CString ShortAmount(std::uint64_t bytes)
{
    constexpr std::u16string_view units[] = {u"", u" KB", u" MB", u" GB", u" TB", u" PB", u" EB"};
    std::size_t unit = 0;
    double amount = static_cast<double>(bytes);
    for (; amount >= 1000; amount /= 1024)
        ++unit;
    const auto tenths = static_cast<unsigned>(amount * 10);
    return unit > 0 && tenths < 100 ? Format(u"%u.%u%s", tenths / 10, tenths % 10, units[unit])
                                    : Format(u"%u%s", tenths / 10, units[unit]);
}

CString ProgressLine(const ProgressFacts& facts, std::u16string_view name, std::size_t width)
{
    CString line;
    if (facts.allBytes > 0)
        line.Append(Format(u"%3u%%", static_cast<unsigned>(
                                         100.0 * static_cast<double>(std::min(facts.bytes, facts.allBytes)) /
                                         static_cast<double>(facts.allBytes))))
            .Append(between);
    line.Append(OfWhole(Format(u"%I64u", facts.files), facts.allFiles, Format(u"%I64u", facts.allFiles)))
        .Append(between)
        .Append(OfWhole(ShortAmount(facts.bytes), facts.allBytes, ShortAmount(facts.allBytes)));
    if (facts.milliseconds >= second)
        line.Append(between)
            .Append(ShortAmount(facts.bytes / std::max<std::uint64_t>(facts.milliseconds / second, 1)))
            .Append(u"/s")
            .Append(between)
            .Append(ClockText(TimeOf(facts)));
    const std::size_t room = width > line.size() + between.size() ? width - line.size() - between.size() : 0;
    if (room > 3 && !name.empty()) {
        line.Append(between);
        line.Append(name.size() <= room ? CString(name)
                                        : CString(u"...") + CString(name.substr(name.size() - room + 3)));
    }
    line.Truncate(std::min(line.size(), width));
    return line;
}
