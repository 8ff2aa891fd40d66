#include "batch/window_tests.h"

#include <windows.h>

#include <tlhelp32.h>

#include "files/wildcards.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/cstring.h"
#include "text/path_names.h"

namespace {

LazyFunction<decltype(EnumWindows)> enumWindows(libraries::user32, "EnumWindows");
LazyFunction<decltype(GetWindowTextW)> getWindowText(libraries::user32, "GetWindowTextW");
LazyFunction<decltype(IsWindowVisible)> isWindowVisible(libraries::user32, "IsWindowVisible");
LazyFunction<decltype(IsHungAppWindow)> isHungAppWindow(libraries::user32, "IsHungAppWindow");

struct WindowSearch {
    std::u16string_view title;
    WindowTest test;
    bool found = false;
};

bool TitleMatches(std::u16string_view wanted, std::u16string_view title)
{
    return WildcardComparison(wanted, title, false, true) == 0 || BeginsNoCase(title, wanted);
}

bool Passes(HWND window, WindowTest test)
{
    switch (test) {
    case WindowTest::Visible: return isWindowVisible(window) != 0;
    case WindowTest::Hung: return isHungAppWindow(window) != 0;
    case WindowTest::Exists: break;
    }
    return true;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM parameter)
{
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    wchar_t title[512];
    const int length = getWindowText(window, title, static_cast<int>(std::size(title)));
    const std::u16string_view text(reinterpret_cast<const char16_t*>(title),
                                   static_cast<std::size_t>(length));
    search.found = length > 0 && TitleMatches(search.title, text) && Passes(window, search.test);
    return !search.found;
}

bool NamesProgram(std::u16string_view wanted, std::u16string_view program)
{
    const std::u16string_view file = FileNamePart(program);
    return EqualNoCase(wanted, program) || EqualNoCase(wanted, file) ||
           EqualNoCase(wanted, file.substr(0, ExtensionStart(file)));
}

} // namespace

bool WindowIs(std::u16string_view title, WindowTest test)
{
    WindowSearch search{title, test};
    enumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
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
