#include "batch/window_tests.h"

#include <tlhelp32.h>

#include "files/wildcards.h"
#include "platform/desktop.h"
#include "platform/handle.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/path_names.h"

namespace {

bool Passes(HWND window, WindowTest test)
{
    switch (test) {
    case WindowTest::Visible: return IsVisible(window);
    case WindowTest::Hung: return IsHung(window);
    case WindowTest::Exists: break;
    }
    return true;
}

bool NamesProgram(std::u16string_view wanted, std::u16string_view program)
{
    const std::u16string_view file = FileNamePart(program);
    return EqualNoCase(wanted, program) || EqualNoCase(wanted, file) ||
           EqualNoCase(wanted, file.substr(0, ExtensionStart(file)));
}

} // namespace

bool TitleMatches(std::u16string_view wanted, std::u16string_view title)
{
    // Every title begins with nothing.
    return !wanted.empty() &&
           (WildcardComparison(wanted, title, false, true) == 0 || BeginsNoCase(title, wanted));
}

HWND FindTopWindow(std::u16string_view which)
{
    const auto number = ParseInteger(which);
    if (number && BeginsNoCase(which, u"0x"))
        return reinterpret_cast<HWND>(static_cast<std::intptr_t>(*number));
    for (const TopWindow& window : TopWindows())
        if (number ? ReadWindowFacts(window.handle).value_or(WindowFacts()).process == *number
                   : TitleMatches(which, window.title))
            return window.handle;
    return nullptr;
}

bool WindowIs(std::u16string_view title, WindowTest test)
{
    for (const TopWindow& window : TopWindows())
        if (TitleMatches(title, window.title) && Passes(window.handle, test))
            return true;
    return false;
}

bool ApplicationRuns(std::u16string_view name)
{
    const OwnedHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    const std::u16string_view wanted = FileNamePart(name);
    for (BOOL more = Process32FirstW(snapshot.Get(), &entry); more;
         more = Process32NextW(snapshot.Get(), &entry))
        if (NamesProgram(wanted, reinterpret_cast<const char16_t*>(entry.szExeFile)))
            return true;
    return false;
}
