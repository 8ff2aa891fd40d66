// Reading the command line of START: title, switches, and the command that is left. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

enum class StartPriority { Inherited, Low, BelowNormal, Normal, AboveNormal, High, Realtime };
enum class StartWindow { Normal, Minimized, Maximized, Invisible };
// What becomes of the shell that runs an internal command or a batch file.
enum class StartShell { Automatic, Ends, Stays };

struct StartRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

struct StartSwitches {
    CString title;
    bool hasTitle = false;
    CString directory; // "" for ours
    StartPriority priority = StartPriority::Inherited;
    StartWindow window = StartWindow::Normal;
    StartShell shell = StartShell::Automatic;
    bool sameConsole = false;
    bool wait = false;
    bool originalEnvironment = false;
    bool elevated = false;
    std::uint64_t affinity = 0;          // processors, a bit each; 0 for all
    std::optional<unsigned> node;        // preferred memory node
    std::optional<StartRectangle> place; // position, and size unless it is 0
    std::optional<StartRectangle> size;  // width and height only
    CString shellSwitches;               // for a new shell: " /LA /LH"
    CString program;                     // of /PGM, without quotes; the command is its arguments then
    CString command;                     // program and arguments, as written; "" for a new shell
};

// 0; else the code of the error, with the text it is about in `place`.
unsigned ReadStartSwitches(std::u16string_view text, const Syntax& syntax, StartSwitches& read,
                           CString& place);
