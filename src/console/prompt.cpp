#include "console/prompt.h"

#include <algorithm>
#include <string>

#include <windows.h>
#include <winnetwk.h>

#include "console/prompt_codes.h"
#include "engine/console_entry.h"
#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "engine/version.h"
#include "lang/messages.h"
#include "platform/clock.h"
#include "platform/directory.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/lazy_library.h"
#include "platform/national.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

// A name that begins with "=" is shown by no listing, and children inherit it all the same.
constexpr std::u16string_view nestingVariable = u"=ORVLEVEL";

std::int64_t NestingLevel()
{
    CString level;
    return ReadEnvironment(nestingVariable, level) ? ReadDecimal(level).value_or(-1) : -1;
}

class PresentFacts : public PromptFacts {
public:
    CString Date() override { return ShortDate(now); }
    CString IsoDate() override { return Format(u"%04d-%02d-%02d", now.year, now.month, now.day); }
    CString Time() override
    {
        return Format(u"%s%c%02d%c%02d", ShortTime(), country.timeSeparator, now.second, country.decimal,
                      now.millisecond / 10);
    }
    CString ShortTime() override
    {
        return Format(u"%02d%c%02d", now.hour, country.timeSeparator, now.minute);
    }
    CString Directory() override { return CurrentDirectory(); }
    CString DirectoryOf(char16_t drive) override { return DirectoryOfDrive(drive); }
    CString RemoteName() override;
    CString ErrorLevel() override { return Format(u"%d", int{Tls().errorLevel}); }
    CString UserName() override
    {
        CString name;
        ReadEnvironment(u"USERNAME", name);
        return name;
    }
    CString Version() override { return LoadMessage(message::version, shell_version::text); }
    CString Nesting() override { return Format(u"%d", std::max<std::int64_t>(0, NestingLevel())); }
    std::size_t StackDepth() override { return aTexts.directoryStack.size(); }

private:
    const ClockTime now = LocalTime();
    const NationalSettings country = Country();
};

CString PresentFacts::RemoteName()
{
    static LazyLibrary networks(L"mpr.dll");
    static LazyFunction<decltype(WNetGetConnectionW)> getConnection(networks, "WNetGetConnectionW",
                                                                    ERROR_NOT_SUPPORTED);
    const CString directory = CurrentDirectory();
    if (directory[1] != u':' || GetDriveTypeW((directory.Substr(0, 2) + u"\\").w()) != DRIVE_REMOTE)
        return {};
    CString name;
    DWORD size = 1024;
    auto* buffer = reinterpret_cast<wchar_t*>(name.Edit(size));
    if (getConnection(directory.Substr(0, 2).w(), buffer, &size) != NO_ERROR)
        return {};
    name.SetLength(std::char_traits<wchar_t>::length(buffer));
    return name += u" ";
}

} // namespace

CString ExpandPrompt(std::u16string_view pattern)
{
    PresentFacts facts;
    const bool variables = pattern.find(u'%') != std::u16string_view::npos;
    CString prompt = ExpandPromptCodes(pattern, facts, variables);
    if (variables)
        VariableExpansion(prompt, true);
    return prompt;
}

void CountNestedShell() { WriteEnvironment(nestingVariable, Format(u"%d", NestingLevel() + 1)); }
