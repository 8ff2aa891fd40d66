#include "platform/shell_open.h"

#include <shellapi.h>

#include "platform/com.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(ShellExecuteExW)> shellExecute(libraries::shell32, "ShellExecuteExW");

const wchar_t* OrNull(const CString& text) { return text.empty() ? nullptr : text.w(); }

} // namespace

unsigned OpenThroughShell(const ShellOpen& open, OwnedHandle* process)
{
    StartCom(); // handlers of file types may be COM objects
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask =
        SEE_MASK_NOASYNC | (open.mayAsk ? 0 : SEE_MASK_FLAG_NO_UI) | (process ? SEE_MASK_NOCLOSEPROCESS : 0);
    info.lpVerb = OrNull(open.verb);
    info.lpFile = open.file.w();
    info.lpParameters = OrNull(open.arguments);
    info.lpDirectory = OrNull(open.directory);
    info.nShow = open.showWindow;
    if (!shellExecute(&info))
        return GetLastError();
    if (process)
        *process = OwnedHandle(info.hProcess);
    return 0;
}
