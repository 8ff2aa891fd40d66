// Child processes: starting them, waiting for them, their exit codes.
//
// A child inherits the three standard handles and nothing else, whatever handles happen to be inheritable at
// that moment: the file of a running batch file and the ends of pipes stay ours.
#pragma once

#include <cstdint>
#include <optional>

#include <windows.h>

#include "platform/handle.h"
#include "text/cstring.h"

// Place and size of a new window, in pixels, or in characters for a console's size.
struct WindowPlace {
    std::optional<POINT> position;
    std::optional<SIZE> size;
};

struct ProcessStart {
    CString program;              // full name; "" lets the system take the first word of the command line
    CString commandLine;          // the whole text that the child gets (process_line.h)
    CString directory;            // "" for ours
    CString title;                // of a new console window; "" for the system's choice
    unsigned creation = 0;        // CREATE_NEW_CONSOLE, priority classes and the like
    int showWindow = -1;          // SW_...; -1 leaves it to the program
    WindowPlace window;           // of a new console window
    CString environment;          // entries with a NUL behind each one; "" for ours
    std::uint64_t affinity = 0;   // processors it may use, a bit each; 0 for all
    std::optional<unsigned> node; // preferred memory node
    bool noInput = false;         // standard input is at its end from the start
    bool noHandles = false;       // all three standard handles lead nowhere
};

class ChildProcess {
public:
    ChildProcess() noexcept = default;
    // Takes over a process that somebody else started; the handle may be null.
    explicit ChildProcess(HANDLE taken) noexcept;
    ChildProcess(ChildProcess&&) noexcept = default;
    ChildProcess& operator=(ChildProcess&&) noexcept = default;

    // Starts a process and takes it over; 0, or the Windows error that prevented it.
    unsigned Start(const ProcessStart& start);

    explicit operator bool() const noexcept { return static_cast<bool>(process); }
    HANDLE Get() const noexcept { return process.Get(); }
    unsigned Id() const noexcept { return processId; }

    // Waits for the end in steps of 10 ms, letting queued calls run. `poll` is called after each step and may
    // throw to give up waiting. False when waiting is impossible, the reason in the last error.
    bool Wait(void (*poll)());
    bool HasEnded() const;
    // Nothing while it runs.
    std::optional<unsigned> ExitCode() const;
    bool Terminate(unsigned exitCode);

private:
    OwnedHandle process;
    unsigned processId = 0;
};
