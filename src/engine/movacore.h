// The interface of Movacore.dll for hosts and plug-ins.
//
// Text is NUL-terminated UTF-16; no C++ object, exception or memory ownership crosses this edge. Texts that a
// function answers belong to the engine and stand until the next call of the same function. All calls are
// made on the thread that called InitializeDLL.
#pragma once

#include "engine/export.h"

// How the host was started.
struct START_OPTIONS {
    enum Mode { Interactive, RunAndExit, RunAndStay, KeepLists };
    int mode;                 // Mode
    const char16_t* commands; // what /C, /K or the bare command line asks to run, or null
    const char16_t* iniFile;  // named with "@", or null
};

// Reads the host's own command line (program name included) and remembers its switches and directives for
// InitializeDLL. 0, or 2 after reporting a switch that does not exist.
MOVA_EXPORT int ReadStartOptions(const char16_t* commandLine, START_OPTIONS* options);

// What the mode KeepLists asks for, in place of everything below: holds the global lists open until SHRALIAS
// /U. Answers the exit code.
MOVA_EXPORT int KeepGlobalLists();

// Brings the engine up. 0, 2 when the INI file named (null for none) fails, 3 when a step broke down.
MOVA_EXPORT int InitializeDLL(const char16_t* iniName);
// Ends the engine: batch files, exit file, histories, temporary files. Safe to call once at exit.
MOVA_EXPORT void ShutdownCommandProcessor();

// Runs one line; `flags` as in engine/command_entry.h (1: typed at the prompt). Answers the line's result; a
// break answers 3.
MOVA_EXPORT int Command(const char16_t* line, int flags);

// Shows the prompt and reads a typed line into the buffer of `capacity` units. The length, or -1 at the end
// of the input. A broken-off line is empty.
MOVA_EXPORT int ReadPromptLine(char16_t* buffer, int capacity);
// Whether EXIT was run; the host's loop then ends.
MOVA_EXPORT int QueryExitRequested();
// Whether the shell is to end when the commands that run have (/C, TRANSIENT).
MOVA_EXPORT int QueryTransient();
// The code the host is to exit with: EXIT's argument, else the error level.
MOVA_EXPORT int QueryExitCode();
// Runs the user's start-up ("MVSTART") or exit file ("MVEXIT"), if there is one; the AutoRun commands of the
// registry come before the start-up file.
MOVA_EXPORT void RunStartupFile(const char16_t* name, const char16_t* arguments);

// Internal commands by name.
MOVA_EXPORT int QueryIsCommandEnabled(const char16_t* name);
MOVA_EXPORT unsigned QueryInternalCommandFlags(const char16_t* name);
MOVA_EXPORT int SetInternalCommandFlags(const char16_t* name, unsigned flags);
MOVA_EXPORT int DisableInternalCommand(const char16_t* name);
MOVA_EXPORT void SetInternalCommands(int all);

// Text functions work in the caller's buffer of `capacity` units, NUL included, and answer 0, a reported
// error's code, or `bufferTooSmall` when the result does not fit, the buffer then being as it was.
constexpr int bufferTooSmall = 122;
// Replaces the references of a line; `nested` tells that it is a piece of one.
MOVA_EXPORT int ExpandVariables(char16_t* buffer, int capacity, int nested);
// Puts an expression's result in its place.
MOVA_EXPORT int Evaluate(char16_t* buffer, int capacity);
// The value of an alias or user function; 2 when there is none.
MOVA_EXPORT int GetAliasValue(const char16_t* name, char16_t* buffer, int capacity);
MOVA_EXPORT int GetFunctionBody(const char16_t* name, char16_t* buffer, int capacity);
// A setting as text; 87 for an unknown name.
MOVA_EXPORT int GetSetting(const char16_t* name, char16_t* buffer, int capacity);
// Sets an environment variable from "name=value", an empty value deletes it. 0 or an error's result.
MOVA_EXPORT int SetEnvironmentEntry(const char16_t* entry);

// Internal variables that only the host can answer, such as "mvtabs" or "selected": the host writes the value
// of the variable `name` (without "_") and its NUL into the buffer of `capacity` units and answers its
// length, or -1 when it has none. ORV has no tabs and no windows and sets nothing; the variables are then
// empty, and counts and states are 0.
typedef int (*HOST_VARIABLE)(const char16_t* name, char16_t* buffer, int capacity);
MOVA_EXPORT void SetHostVariables(HOST_VARIABLE answer);
