#include "commands/uuid.h"

#include <windows.h>

#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "functions/new_uuid.h"
#include "lang/function_messages.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp uuidHelp = {
    u"Prints new UUIDs.",
    u"UUID [/Nn] [/Vversion] [/B] [/P] [/U] [space name]",
    u"/N  how many\n"
    u"/V  4 random (if not told), 1 or 7 beginning with the time, 3 or 5 made of a name by MD5 or SHA-1\n"
    u"/B  in braces\n"
    u"/P  plain, without hyphens\n"
    u"/U  in upper case\n"
    u"The space of a name is DNS, URL, OID, X500 or a UUID. One name always has the same UUID.",
    u"uuid\n"
    u"uuid /n:10 /v:7\n"
    u"uuid /v:5 dns www.example.com",
};

namespace {

struct UuidOptions {
    std::int64_t count = 1;
    std::int64_t version = 4;
    bool braces = false;
    bool plain = false;
    bool upperCase = false;
};

// The number behind a switch, if it is there; 0, or the result of a reported error.
int ReadNumber(CString& arguments, std::u16string_view letter, std::int64_t most, std::int64_t& number)
{
    CString text;
    if (!TakeSwitchText(arguments, letter, text))
        return 0;
    const auto value = ParseInteger(text);
    if (!value || *value < 1 || *value > most)
        return MVError(errors::invalidNumber, text);
    number = *value;
    return 0;
}

int ReadOptions(CString& arguments, UuidOptions& options)
{
    constexpr std::int64_t mostUuids = 1'000'000;
    constexpr std::int64_t lastVersion = 7;
    if (const int code = ReadNumber(arguments, u"N", mostUuids, options.count))
        return code;
    if (const int code = ReadNumber(arguments, u"V", lastVersion, options.version))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"BPU", flags))
        return code;
    options.braces = (flags & 1) != 0;
    options.plain = (flags & 2) != 0;
    options.upperCase = (flags & 4) != 0;
    return 0;
}

// The name spaces that RFC 9562 lists differ in one byte.
std::optional<Uuid> NameSpace(std::u16string_view name)
{
    constexpr struct {
        std::u16string_view name;
        std::uint8_t byte;
    } spaces[] = {{u"DNS", 0x10}, {u"URL", 0x11}, {u"OID", 0x12}, {u"X500", 0x14}};
    for (const auto& space : spaces) {
        if (EqualNoCase(name, space.name)) {
            Uuid uuid = *ParseUuid(u"6ba7b810-9dad-11d1-80b4-00c04fd430c8");
            uuid[3] = space.byte;
            return uuid;
        }
    }
    return ParseUuid(name);
}

CString Shown(const Uuid& uuid, const UuidOptions& options)
{
    CString text = FormatUuid(uuid, !options.plain);
    if (options.upperCase)
        MakeUpper(text);
    return options.braces ? Format(u"{%s}", text) : text;
}

int PrintNamed(std::u16string_view arguments, const UuidOptions& options)
{
    const Word first = NextBlankWord(arguments, 0);
    const CString spaceName = WithoutQuotes(arguments.substr(first.start, first.length));
    CString name(arguments.substr(first.end()));
    name = WithoutOuterQuotes(name.Trim());
    if (name.empty())
        return UsageError();
    const std::optional<Uuid> space = NameSpace(spaceName);
    if (!space)
        return MVError(errors::invalidUuid, spaceName);
    const Uuid uuid = NamedUuid(static_cast<int>(options.version), *space, name);
    return PrintLine(Shown(uuid, options)) ? result::success : MVError(0);
}

} // namespace

int Uuid_Command(CString& arguments)
{
    UuidOptions options;
    if (const int code = ReadOptions(arguments, options))
        return code;
    arguments.Trim();
    if (options.version == 3 || options.version == 5)
        return PrintNamed(arguments, options);
    if (!arguments.empty())
        return UsageError();
    if (options.version != 1 && options.version != 4 && options.version != 7)
        return MVError(errors::invalidNumber, Format(u"%d", options.version));
    for (std::int64_t i = 0; i < options.count; ++i) {
        ThrowIfBroken();
        const std::optional<Uuid> uuid = NewUuid(options.version);
        if (!uuid || !PrintLine(Shown(*uuid, options)))
            return MVError(0);
    }
    return result::success;
}
