#include "functions/file_answers.h"

#include <windows.h>

int SystemError()
{
    const DWORD code = GetLastError();
    return Refuse(code != 0 ? code : ERROR_READ_FAULT);
}
