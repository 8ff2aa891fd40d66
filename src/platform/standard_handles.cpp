#include "platform/standard_handles.h"

namespace {

DWORD SystemNumber(int number)
{
    return number == 0 ? STD_INPUT_HANDLE : number == 1 ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
}

} // namespace

HANDLE StandardHandle(int number) { return GetStdHandle(SystemNumber(number)); }

void SetStandardHandle(int number, HANDLE handle) { SetStdHandle(SystemNumber(number), handle); }

OwnedHandle DuplicateHandle(HANDLE handle, bool inheritable)
{
    HANDLE copy = nullptr;
    const HANDLE process = GetCurrentProcess();
    if (!::DuplicateHandle(process, handle, process, &copy, 0, inheritable, DUPLICATE_SAME_ACCESS))
        return OwnedHandle();
    return OwnedHandle(copy);
}

HandleKind KindOfHandle(HANDLE handle)
{
    if (!handle || handle == INVALID_HANDLE_VALUE)
        return HandleKind::None;
    switch (GetFileType(handle)) {
    case FILE_TYPE_DISK: return HandleKind::File;
    case FILE_TYPE_PIPE: return HandleKind::Pipe;
    case FILE_TYPE_CHAR: {
        DWORD mode = 0;
        return GetConsoleMode(handle, &mode) ? HandleKind::Console : HandleKind::Device;
    }
    default: return HandleKind::None;
    }
}
