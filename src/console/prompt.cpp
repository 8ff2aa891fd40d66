#include "console/prompt.h"

#include <algorithm>
#include <string>

#include <windows.h>
#include <winnetwk.h>

#include "console/prompt_codes.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "engine/version.h"
#include "platform/directory.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/lazy_library.h"
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
    PresentFacts() { GetLocalTime(&now); }

    CString Date() override
    {
        CString date;
        constexpr int longest = 80;
        const int length = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr,
                                          reinterpret_cast<wchar_t*>(date.Edit(longest)), longest);
        date.SetLength(length > 0 ? static_cast<std::size_t>(length) - 1 : 0);
        return date;
    }
    CString IsoDate() override { return Format(u"%04u-%02u-%02u", now.wYear, now.wMonth, now.wDay); }
    CString Time() override
    {
        return Format(u"%02u:%02u:%02u.%02u", now.wHour, now.wMinute, now.wSecond, now.wMilliseconds / 10);
    }
    CString ShortTime() override { return Format(u"%02u:%02u", now.wHour, now.wMinute); }
    CString Directory() override { return CurrentDirectory(); }
    CString DirectoryOf(char16_t drive) override { return DirectoryOfDrive(drive); }
    CString RemoteName() override;
    CString ErrorLevel() override { return Format(u"%d", Tls().errorLevel); }
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
    SYSTEMTIME now;
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
        VariableExpansion(prompt);
    return prompt;
}

void CountNestedShell() { WriteEnvironment(nestingVariable, Format(u"%d", NestingLevel() + 1)); }
