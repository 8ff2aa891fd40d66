// Sets times and attributes of a file, for cases that select files by them:
//
//     setfile NAME [w=YYYY-MM-DDTHH:MM:SS] [a=...] [c=...] [+rhsa] [-rhsa]
//
// w, a and c are last write, last access and creation, in local time; letters behind "+" are set, behind "-"
// cleared. Exit code 1 when an argument is wrong or the system refuses.
#include <windows.h>

#include <cwchar>
#include <string_view>

namespace {

bool ParseLocalTime(const wchar_t* text, FILETIME& result)
{
    SYSTEMTIME local = {};
    SYSTEMTIME universal;
    if (std::swscanf(text, L"%4hu-%2hu-%2huT%2hu:%2hu:%2hu", &local.wYear, &local.wMonth, &local.wDay,
                     &local.wHour, &local.wMinute, &local.wSecond) != 6)
        return false;
    return TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal) &&
           SystemTimeToFileTime(&universal, &result);
}

bool SetTime(const wchar_t* name, wchar_t which, const wchar_t* text)
{
    FILETIME time;
    if (!ParseLocalTime(text, time))
        return false;
    const HANDLE file = CreateFileW(name, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const bool done = SetFileTime(file, which == L'c' ? &time : nullptr, which == L'a' ? &time : nullptr,
                                  which == L'w' ? &time : nullptr);
    CloseHandle(file);
    return done;
}

bool SetAttributes(const wchar_t* name, wchar_t sign, std::wstring_view letters)
{
    DWORD attributes = GetFileAttributesW(name);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    for (const wchar_t letter : letters) {
        const DWORD bit = letter == L'r'   ? FILE_ATTRIBUTE_READONLY
                          : letter == L'h' ? FILE_ATTRIBUTE_HIDDEN
                          : letter == L's' ? FILE_ATTRIBUTE_SYSTEM
                          : letter == L'a' ? FILE_ATTRIBUTE_ARCHIVE
                                           : 0;
        if (bit == 0)
            return false;
        attributes = sign == L'+' ? attributes | bit : attributes & ~bit;
    }
    return SetFileAttributesW(name, attributes) != 0;
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count < 3)
        return 1;
    for (int i = 2; i < count; ++i) {
        const wchar_t* change = arguments[i];
        bool done = false;
        if (change[0] == L'+' || change[0] == L'-')
            done = SetAttributes(arguments[1], change[0], change + 1);
        else if (std::wcschr(L"wac", change[0]) && change[0] != 0 && change[1] == L'=')
            done = SetTime(arguments[1], change[0], change + 2);
        if (!done)
            return 1;
    }
    return 0;
}
