#include "engine/output.h"

#include "engine/inifile.h"
#include "engine/logs.h"
#include "engine/state.h"
#include "platform/standard_handles.h"
#include "platform/text_output.h"

namespace {

// Asking the console costs more than writing a line, so the answer is kept while the handle stands.
HandleKind KindOf(int number, HANDLE handle)
{
    StandardHandleKind& known = Tls().handleKinds[number];
    if (known.handle != handle) {
        known.handle = handle;
        known.kind = static_cast<int>(KindOfHandle(handle));
    }
    return static_cast<HandleKind>(known.kind);
}

bool Write(int number, std::u16string_view text)
{
    if (aIniFile.LogAll)
        LogOutput(text);
    const HANDLE handle = StandardHandle(number);
    const HandleKind kind = KindOf(number, handle);
    if (kind == HandleKind::Console)
        return WriteTextToConsole(handle, text);
    const bool done = WriteTextToFile(handle, text, CurrentOutputEncoding());
    if (!done && number == 1 && kind == HandleKind::File) {
        const DWORD reason = GetLastError();
        Tls().outputError = reason;
        SetLastError(reason);
    }
    return done;
}

} // namespace

OutputEncoding CurrentOutputEncoding()
{
    if (aIniFile.UnicodeOutput || aGlobals.unicodeOutput)
        return OutputEncoding::Utf16;
    return aIniFile.UTF8Output ? OutputEncoding::Utf8 : OutputEncoding::CodePage;
}

bool Print(std::u16string_view text) { return Write(1, text); }

bool PrintError(std::u16string_view text) { return Write(2, text); }

bool PrintLine(std::u16string_view text) { return Print(Format(u"%s\r\n", text)); }

bool IsConsole(int number) { return KindOf(number, StandardHandle(number)) == HandleKind::Console; }

void ForgetHandleKinds()
{
    for (StandardHandleKind& known : Tls().handleKinds)
        known = {};
}
