#include "commands/file_texts.h"

#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "files/dates.h"
#include "lang/file_messages.h"
#include "text/format.h"

namespace {

constexpr std::uint32_t junctionTag = 0xA0000003;
constexpr std::uint32_t symbolicLinkTag = 0xA000000C;
constexpr std::uint64_t ticksPerMillisecond = 10'000;

} // namespace

FileTexts::FileTexts(bool withThousands)
    : country(Country()), thousands(withThousands), directory(LoadMessage(message::directoryMark)),
      junction(LoadMessage(message::junctionMark)), directoryLink(LoadMessage(message::directoryLinkMark)),
      fileLink(LoadMessage(message::fileLinkMark))
{}

CString FileTexts::Date(std::uint64_t fileTime)
{
    const std::optional<calendar::Date> date = DateFromDays(MomentOfFileTime(Shown(fileTime)).day);
    return FormatDate(date.value_or(calendar::Date()), country.dateOrder, country.dateSeparator);
}

CString FileTexts::Time(std::uint64_t fileTime)
{
    const std::uint64_t shown = Shown(fileTime);
    const int second = MomentOfFileTime(shown).second;
    return FormatShortTime(
        {second / 3600, second / 60 % 60, second % 60, static_cast<int>(shown / ticksPerMillisecond % 1000)},
        country);
}

CString FileTexts::DateAndTime(std::uint64_t fileTime) { return FormatFileTime(Shown(fileTime), country); }

CString FileTexts::Number(std::uint64_t number) const
{
    CString text = Format(u"%u", number);
    if (thousands)
        AddCommas(text);
    return text;
}

const CString& FileTexts::Mark(const EntryFacts& facts) const
{
    const bool reparse = (facts.attributes & file_attribute::reparsePoint) != 0;
    const bool link = reparse && facts.reparseTag == symbolicLinkTag;
    if (!facts.IsDirectory())
        return link ? fileLink : none;
    return reparse && facts.reparseTag == junctionTag ? junction : link ? directoryLink : directory;
}

CString FileTexts::SizeColumn(const EntryFacts& facts, std::uint64_t size) const
{
    const CString& mark = Mark(facts);
    return mark.empty() ? Format(u"%17s ", Number(size)) : Format(u"   %-14s ", mark);
}
