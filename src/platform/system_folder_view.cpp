#include "platform/system_folder_view.h"

#include <windows.h>

void RedirectSystemFolder(bool redirected)
{
    static void* before = nullptr; // what Windows wants to be told to take the redirection up again
    static bool off = false;
    BOOL emulated = FALSE;
    if (off == !redirected || !IsWow64Process(GetCurrentProcess(), &emulated) || !emulated)
        return;
    if (redirected ? Wow64RevertWow64FsRedirection(before) : Wow64DisableWow64FsRedirection(&before))
        off = !redirected;
}
