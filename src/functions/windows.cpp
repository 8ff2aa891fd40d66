// The windows of other programs, and what the system says about its desktop.
//
// A window is given by its title, wildcards allowed, else its beginning; by its handle as a hexadecimal
// number; or by the number of a process, whose foremost window counts. About one that is not there the answer
// is empty.
#include "functions/families.h"

#include <windows.h>

#include "batch/window_tests.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/desktop.h"
#include "platform/file_facts.h"
#include "platform/process_list.h"
#include "platform/screen_picture.h"
#include "text/path_names.h"

namespace {

struct FoundWindow {
    HWND handle = nullptr;
    WindowFacts facts;
};

// `found.handle` stays null when there is none; an error is answered for a missing name only.
int FindWindowOf(const FunctionCall& call, FoundWindow& found)
{
    const CString text = FileArgument(call.arguments);
    if (text.empty())
        return Refuse(errors::missingArgument);
    found.handle = FindTopWindow(text);
    const auto facts = ReadWindowFacts(found.handle);
    if (!facts)
        found.handle = nullptr;
    else
        found.facts = *facts;
    return 0;
}

template <typename Text> int AnswerAbout(FunctionCall& call, Text text)
{
    FoundWindow window;
    if (const int error = FindWindowOf(call, window))
        return error;
    if (!window.handle)
        return answer::Text(call, {});
    return answer::ForeignText(call, text(window));
}

} // namespace

// @wintitle[window], @winclass[window], @winpid[window]: its title, its class, and its process.
int Wintitle_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) { return window.facts.title; });
}

int Winclass_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) { return window.facts.className; });
}

int Winpid_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) { return Format(u"%u", window.facts.process); });
}

// @winexename[window], @winpath[window]: the file name of its program, and the program's folder.
int Winexename_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        return CString(FileNamePart(ProgramPathOf(window.facts.process)));
    });
}

int Winpath_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        const CString path = ProgramPathOf(window.facts.process);
        return path.Substr(0, path.size() - FileNamePart(path).size());
    });
}

// @winpos[window]: "left,top,right,bottom". @winsize[window], @winclientsize[window]: "width,height", with
// borders and without.
int Winpos_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        const RECT& place = window.facts.place;
        return Format(u"%d,%d,%d,%d", place.left, place.top, place.right, place.bottom);
    });
}

int Winsize_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        const RECT& place = window.facts.place;
        return Format(u"%d,%d", place.right - place.left, place.bottom - place.top);
    });
}

int Winclientsize_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        return Format(u"%d,%d", window.facts.client.cx, window.facts.client.cy);
    });
}

// @winstate[window]: 0 hidden, 1 as usual, 2 minimized, 3 maximized.
int Winstate_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        if (!window.facts.visible)
            return CString(u"0");
        return CString(window.facts.minimized ? u"2" : window.facts.maximized ? u"3" : u"1");
    });
}

// @wininfo[window]: its handle, process, thread, style and extended style.
int Wininfo_Function(FunctionCall& call)
{
    return AnswerAbout(call, [](const FoundWindow& window) {
        return Format(u"0x%I64X %u %u 0x%08X 0x%08X",
                      static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(window.handle)),
                      window.facts.process, window.facts.thread, window.facts.style,
                      window.facts.extendedStyle);
    });
}

// @winmetrics[n]: a measure of the desktop by the number that the Windows interface gives it (SM_...).
int Winmetrics_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t n = arguments.Number(0);
    if (n < 0 || n > 0xFFFF)
        return Refuse(errors::invalidNumber);
    return answer::Number(call, ReadSystemMetric(static_cast<int>(n)));
}

// @winsystem[n]: a setting of the desktop by its number (SPI_GET...), for those that are one number.
int Winsystem_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t n = arguments.Number(0);
    const auto value = n < 0 || n > 0xFFFF ? std::nullopt : ReadDesktopParameter(static_cast<unsigned>(n));
    return value ? answer::Number(call, *value) : Refuse(errors::invalidNumber);
}

// @mouse[button]: 1 while the button (0 left, 1 right, 2 middle) is held down.
int Mouse_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    constexpr int buttons[] = {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON};
    const std::int64_t n = arguments.Number(0);
    if (n < 0 || n >= static_cast<std::int64_t>(std::size(buttons)))
        return Refuse(errors::invalidNumber);
    return answer::Flag(call, IsKeyDown(buttons[n]));
}

// @snapshot[file[,window]]: a picture of the window, or of all monitors, as a bitmap file; gives its full
// name.
int Snapshot_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"t|t");
    if (arguments.Error())
        return arguments.Error();
    const CString file = FileArgument(arguments.Text(0));
    if (file.empty())
        return Refuse(errors::missingArgument);
    const HWND window = arguments.Has(1) ? FindTopWindow(arguments.Text(1)) : nullptr;
    if (arguments.Has(1) && !window)
        return answer::Text(call, u"");
    const unsigned failed = SavePicture(file, window);
    if (failed == ERROR_INVALID_HANDLE)
        return answer::Text(call, u"");
    return failed ? Refuse(failed) : answer::ForeignText(call, FullPathName(file));
}
