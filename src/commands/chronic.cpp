#include "commands/chronic.h"

#include <windows.h>

#include "core/command_switches.h"
#include "core/output_capture.h"
#include "engine/command_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_reader.h"
#include "platform/standard_handles.h"

const CommandHelp chronicHelp = {
    u"Runs a command and shows what it wrote only when it failed.",
    u"CHRONIC [/E] command",
    u"/E  shows it also when anything went to standard error\n"
    u"What went to standard output and to standard error goes there again once the command has ended, first "
    u"the one, then the other. The command may be a group in parentheses over several lines; what it asks "
    u"is not seen. The result and the error level are those of the command.",
    u"chronic copy c:\\data\\* d:\\backup\n"
    u"chronic /e (make clean & make all)",
};

namespace {

// As bytes, but for the console, which gets text.
bool Replay(const CString& file, int number)
{
    TextReader reader;
    if (file.empty() || !reader.Open(file))
        return false;
    CString piece;
    if (IsConsole(number)) {
        while (reader.Read(piece) && !piece.empty())
            if (!(number == 1 ? Print(piece) : PrintError(piece)))
                return false;
        return true;
    }
    std::string bytes;
    DWORD written = 0;
    while (reader.ReadBytes(bytes) && !bytes.empty())
        if (!WriteFile(StandardHandle(number), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                       nullptr))
            return false;
    return true;
}

bool HoldsAnything(const CString& file)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    return GetFileAttributesExW(file.w(), GetFileExInfoStandard, &data) &&
           (data.nFileSizeLow != 0 || data.nFileSizeHigh != 0);
}

} // namespace

int Chronic_Command(CString& arguments)
{
    std::uint64_t alsoErrors = 0;
    if (const int code = ReadSwitches(arguments, u"E", alsoErrors, SwitchPlace::Leading))
        return code;
    if (arguments.Trim().empty())
        return UsageError();
    OutputCapture output(1);
    OutputCapture errors(2);
    if (!output.Begin() || !errors.Begin())
        return MVError(0);
    const int code = Command_S(arguments, 0);
    errors.End();
    output.End();
    const bool failed = code != result::success && !EndsLine(code);
    if (failed || (alsoErrors != 0 && HoldsAnything(errors.File()))) {
        Replay(output.File(), 1);
        Replay(errors.File(), 2);
    }
    return code;
}
