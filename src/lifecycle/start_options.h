// Reading the host's command line. Pure.
//
//   ORV [@INIFILE] [/switches] [//Directive=value ...] [/C commands | /K commands | commands]
#pragma once

#include <vector>

#include "text/cstring.h"

struct StartOptions {
    enum class Mode { Interactive, RunAndExit, RunAndStay, KeepLists };
    Mode mode = Mode::Interactive;
    CString commands; // as written behind /C, /K or the switches
    CString iniFile;
    std::vector<CString> directives; // "//Name=value"
    CString refused;                 // the first switch that does not exist; else empty
    unsigned localLists = 0;         // bit 0 aliases, 1 functions, 2 history, 3 directory history
    bool noInheritance = false;
    bool noAutoRun = false;
    bool unicodeOutput = false;
    bool echoOff = false;
    bool stripsQuotes = false; // /S: the outer quotes of the commands go, whatever stands between them
};

// `commandLine` includes the program's name.
StartOptions ParseStartOptions(std::u16string_view commandLine);

// What is meant by the text behind /C: one argument quoted for a program ("echo \"x\" & ver") is unquoted,
// and so is text with quotes put around it ("echo "a b""), as programs do that run a command line in a shell.
// The quoted name of a program with arguments behind it ("my program" "a b") stands as it is; /S always
// removes the first quote and the last.
CString UnquoteCommands(std::u16string_view text, bool stripsQuotes);
