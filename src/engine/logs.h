// The logs that the settings switch on: commands as they run, lines as they were typed, errors, and
// everything that the shell writes. Several shells may write to one file. Logs are in UTF-8.
//
// A log whose file cannot be opened or written is reported once and switched off.
#pragma once

#include <string_view>

#include "text/cstring.h"

enum class Log {
    Commands,   // LogOn
    TypedLines, // HistLogOn
    Errors,     // LogErrors
    Everything, // LogAll: output and commands
    Count
};

bool IsLogOn(Log log);
// The file that the settings name, else one in the folder of the user's local data; always a full name.
CString LogFileName(Log log);

// Whether the log's file can be written; if not, that is reported and the log switched off.
bool OpenLog(Log log);
// Adds a line, when the log is on: with date and time in front, or the typed line as it stands. False when
// the log had to be switched off.
bool WriteLogLine(Log log, std::u16string_view text);
// A command that is about to run, for the logs that want to know.
void LogCommand(std::u16string_view command);
// Adds text to the log of everything, as it goes to standard output or error. Call when LogAll is on.
void LogOutput(std::u16string_view text);
// Lets go of the files; the next record opens them again.
void CloseLogs();
