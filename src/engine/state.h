// The state of the engine: one record per thread that runs commands, one for the whole process.
//
// Everything that outlives a call lives in TLS_VARIABLES (per thread, no locks needed), in aGlobals, or in
// the settings (inifile.h); there are no other mutable statics. Fetch Tls() once per line, not per
// character. Frames are reached by index only: the array moves when a batch file starts.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "engine/export.h"
#include "platform/national.h"
#include "text/cstring.h"
#include "text/syntax.h"

// ON handler commands of a frame, in the order in which they are kept.
enum class OnEvent {
    Break,
    Close,
    Logoff,
    Shutdown,
    LButton,
    MButton,
    RButton,
    DblClick,
    Error,
    ErrorMsg,
    ErrorLevel,
    Condition,
    Resume,
    Suspend,
    Count
};

constexpr unsigned OnBit(OnEvent event) { return 1u << static_cast<unsigned>(event); }

namespace frame_flags {
constexpr unsigned noFile = 1; // the frame has no file of its own
constexpr unsigned packed = 2; // the text came from a packed or zipped file and stays in memory
constexpr unsigned keyed = 4;  // the packed file was of the keyed form
constexpr unsigned utf16 = 8;
constexpr unsigned utf8 = 16;
constexpr unsigned callsAlways = 32; // starting another batch file from here does not end this frame
constexpr unsigned pipeErrors = 64;  // "&| ": the pipe of this line carries standard error too
constexpr unsigned nestedChain = 0x100;
} // namespace frame_flags

// Start mode of the next batch file, set by the command that starts it.
namespace batch_start {
constexpr unsigned call = 1;
constexpr unsigned otherEngine = 0x200;
constexpr unsigned callLabel = 0x800;
} // namespace batch_start

constexpr std::intptr_t batchFileClosed = -1;
constexpr std::intptr_t batchFileInMemory = 0x7FFF;
constexpr int maximumBatchFrames = 100;

// A running batch file.
struct BATCH_FRAME {
    CString fileName;                     // full name, given by SetFileName
    CString argumentText;                 // the command tail the file was started with
    std::vector<CString> arguments;       // entry 0 is %0 as invoked
    std::intptr_t file = batchFileClosed; // handle, batchFileClosed or batchFileInMemory
    unsigned shiftCount = 0;
    std::int64_t readOffset = 0;  // byte offset of the next line; negative: ends before its next line
    std::int64_t firstOffset = 0; // of the first line, behind a byte-order mark
    bool encodingKnown = false;   // the flags utf16 and utf8 have been decided
    unsigned serial = 0;          // tells frames apart that follow each other at one index
    unsigned lineNumber = 0;      // lines read so far
    CString tracedLine;
    int subroutineDepth = 0;
    CString parameterNames;
    std::vector<CString> labels;       // at most 32, innermost last
    std::vector<unsigned> callerLines; // beside labels
    bool echo = true;
    CString onCommands[static_cast<int>(OnEvent::Count)];
    unsigned onSet = 0;     // OnBit of each event that has a command
    unsigned onWaiting = 0; // events that have happened and whose commands are yet to run
    unsigned onRunning = 0; // events whose commands run now; they do not interrupt themselves
    bool closing = false;   // the shell ends as soon as this frame has
    unsigned savedErrorMode = 0;
    CString savedTitle;
    std::shared_ptr<std::vector<char>> memoryText; // whole file, ended by one Ctrl-Z unit
    unsigned flags = 0;
    unsigned exitCode = 0;
    unsigned returnValue = 0;
    std::vector<struct LocalEnvironment> localEnvironments; // one per open SETLOCAL, innermost last
    std::vector<CString> savedVariables;                    // "name=value" kept by LOCAL
    CString deferred;                                       // commands parted by line feeds
    std::vector<char> readAhead;                            // block of the file from readAheadOffset on
    std::int64_t readAheadOffset = -1;
    bool readAheadEnds = false; // the file ends with the block

    BATCH_FRAME();
    BATCH_FRAME(BATCH_FRAME&&) noexcept;
    BATCH_FRAME& operator=(BATCH_FRAME&&) noexcept;
    ~BATCH_FRAME();

    void SetFileName(const CString& name);
    bool EndsInCmd() const { return endsInCmd; } // .BAT or .CMD: everyday batch syntax applies

private:
    bool endsInCmd = false; // asked several times for every command
};

// What SETLOCAL keeps and ENDLOCAL puts back.
struct LocalEnvironment {
    std::vector<CString> variables; // "name=value"
    CString directory;
    CString aliases; // packed local alias list, when aliases were kept
    bool keepsAliases = false;
    bool delayedExpansion = false;
    bool extensions = true;
    Syntax syntax;
};

// Bits of the expansion-disable mask (SETDOS /X).
namespace expansion_mask {
constexpr unsigned noAliases = 1;
constexpr unsigned noNestedAliases = 2;
constexpr unsigned noPseudoVariables = 4; // "%=" is left alone
constexpr unsigned valuesNotRescanned = 8;
constexpr unsigned endLocal = 16;      // set while ENDLOCAL is expanded
constexpr unsigned noRedirection = 32; // redirection and pipes
constexpr unsigned noBracketRule = 64; // of the regular-expression functions
constexpr unsigned noEscapes = 128;
constexpr unsigned resultsNotRescanned = 512; // of variable functions
} // namespace expansion_mask

// The variable of a FOR loop that runs, "%%x".
struct LoopVariable {
    char16_t name;
    CString value;
};

// What a word inside a loop's body tells the loop.
enum class LoopSignal : std::uint8_t { None, EndPass, Iterate, Leave, LeaveFor };

// The block state word: how deep the open IFF blocks are, which are skipped, and the loops that run.
struct BlockState {
    std::uint16_t iffNesting = 0;
    std::uint16_t iffSkipped = 0; // levels, from the innermost outward, whose branch is skipped
    std::uint32_t iffTaken = 0;   // bit per level (level & 31): a branch of it has already run
    std::uint16_t doRunning = 0;
    std::uint16_t forRunning = 0;
};

// What a standard handle was last seen to lead to.
struct StandardHandleKind {
    void* handle = nullptr;
    int kind = 0;
};

// How the lines of redirected standard input are encoded, once they have been looked at.
struct StandardInputEncoding {
    void* handle = nullptr;
    int flags = 0; // of GetNextLine
};

// %? and ERRORLEVEL. It notes that it was set, if only to what it was before: that is what ON ERRORLEVEL
// asks.
class ErrorLevel {
public:
    ErrorLevel& operator=(int newLevel)
    {
        level = newLevel;
        touched = true;
        return *this;
    }
    operator int() const { return level; }
    bool TakeTouched() { return std::exchange(touched, false); }

private:
    int level = 0;
    bool touched = false;
};

// How far the expansion of variables has got.
struct ExpansionProgress {
    int depth = 0;      // expansions inside expansions
    unsigned steps = 0; // references replaced inside values and function bodies since the line began
};

// Per-thread state.
struct TLS_VARIABLES {
    ErrorLevel errorLevel;
    int lastInternalResult = 0;   // %_?
    unsigned lastSystemError = 0; // %_syserr
    CString commandName;          // the internal command that runs
    bool aliasBypass = false;     // "*name": no alias, no library function
    bool typedLine = false;       // the line came from the prompt
    bool lineNotSaved = false;    // the line typed next stays out of the histories
    bool lineRecalled = false;    // it stands in the command history already
    bool pipeChild = false;       // this shell is the right side of a pipe
    int inputRedirections = 0;    // of the commands that run, one inside the other
    BlockState blocks;
    std::vector<LoopVariable> loopVariables; // innermost last
    LoopSignal loopSignal = LoopSignal::None;
    int loopsToLeave = 0;  // LEAVE n
    CString loopCondition; // what followed ENDDO
    CString loopBody;      // of the DO that is about to run, when its lines stood on its own line
    std::vector<BATCH_FRAME> frames;
    int batchIndex = -1;                              // current frame, -1 outside batch files
    int batchFloor = -1;                              // frames at or below belong to an outer invocation
    unsigned batchStartMode = 0;                      // batch_start bits for the next batch file
    unsigned batchSerial = 0;                         // of the frame started last
    std::vector<LocalEnvironment> promptEnvironments; // SETLOCAL outside batch files
    bool labelMissing = false;
    int subroutineResult = 0;
    unsigned debuggerCommand = 0;
    ExpansionProgress expansion;
    std::uint64_t randomState = 0;            // engine/random.h
    std::vector<std::int64_t> resultCounters; // what the file commands counted, by the rows of their table
    int unknownCommandDepth = 0;
    int associationDepth = 0;
    int lineDepth = 0;                                // nesting of Command_S
    std::shared_ptr<class CommandPlans> commandPlans; // core/command_plans.h
    bool signalsHeld = false;
    bool breakPending = false;
    bool breakHappened = false;
    const bool* workerMustEnd = nullptr; // of a thread that THREAD has made: whether it is told to end
    unsigned breakEvent = 0;             // the event taken last, of break_event
    bool listUpdating = false;           // an alias or function list is being changed
    bool protectedOperation = false;     // an operation that a break must not cut
    StandardHandleKind handleKinds[3];
    StandardInputEncoding inputEncoding;
    unsigned outputError = 0;        // why the file of standard output took no more from the present command
    std::uint64_t nextYield = 0;     // Ticks() when queued calls get their next turn
    void* runningProcesses[2] = {};  // handles of the children started for the current command
    bool titleHeld = false;          // commands leave the window title alone
    unsigned startedProcess = 0;     // process id of the last START, 0 before the first
    unsigned detachedProcess = 0;    // the same of DETACH
    unsigned childProcess = 0;       // process id of the last program that was run or started
    int execStrResult = 0;           // exit code of the last @execstr
    std::int64_t execArrayCount = 0; // elements that the last @execarray filled
    std::int64_t fileArrayCount = 0; // the same of @filearray
    std::shared_ptr<const struct ExceptedFiles> exceptedFiles; // that EXCEPT keeps from the command it runs

    BATCH_FRAME* Frame() { return batchIndex < 0 ? nullptr : &frames[static_cast<std::size_t>(batchIndex)]; }
};

MOVA_EXPORT TLS_VARIABLES* GetTLSVariables();
inline TLS_VARIABLES& Tls() { return *GetTLSVariables(); }

// Engine-wide state. Copied as bytes to the child of a pipe; owners of memory stay outside.
struct GLOBAL_VARIABLES {
    unsigned expansionMask = 0;        // expansion_mask bits
    std::int32_t echo = 1;             // interactive echo state
    std::int32_t delayedExpansion = 0; // working switch; SETLOCAL and SETDOS change it
    std::int32_t cmdExtensions = 1;
    std::int32_t transient = 0;  // started with /C
    std::int32_t showsName = 0;  // started without commands
    std::int32_t noAutoRun = 0;  // /D
    std::int32_t localLists = 0; // start options: bit 0 alias, 1 function, 2 history, 3 directory history
    std::int32_t noInheritance = 0;
    std::int32_t secondary = 0;     // settings were inherited from a parent shell
    std::int32_t alwaysWait = 0;    // wait for windowed programs too
    std::int32_t unicodeOutput = 0; // /U: pipes and files get UTF-16
    std::int32_t exitRequested = 0; // EXIT: the host's loop ends
    std::int32_t exitCode = 0;
    std::int32_t exitFileRun = 0;    // the exit file runs once at most
    std::uint32_t ansiSequences = 0; // the console understands escape sequences
    std::int32_t startColors = -1;   // the console's attributes when the shell first looked; -1 before
    std::int32_t countryKnown = 0;
    NationalSettings country; // the system's own, while countryKnown; ask Country() of engine/country.h
    std::uint32_t startTicks = 0;
    std::int32_t breakOff = 0;     // BREAK OFF: Ctrl+C is not looked at
    std::int32_t verifyCopies = 0; // VERIFY ON: commands that copy files read back what they have written
    std::uint64_t timers[10] = {}; // when TIMER 1 to 10 began, by PreciseTicks(); 0 when it does not run
};
extern GLOBAL_VARIABLES aGlobals;

// Engine-wide texts, never shared between processes.
struct GlobalTexts {
    CString executable; // full long name of the host program
    CString startDirectory;
    CString iniFile;                      // the INI file in use
    CString previousDirectory;            // for "CD -"
    CString substitutionLine;             // the line quick substitution edits: the previous typed one
    CString newestLine;                   // typed last; it may be running
    CString lastArgument;                 // %!
    std::vector<CString> startDirectives; // "//Name=value"
    CString startIniFile;
    CString startupFile; // MVSTART and MVEXIT as they were last run
    CString exitFile;
    CString startCommand;                // the host's command line
    std::vector<CString> directoryStack; // PUSHD, innermost last
    std::vector<char16_t> pushedDrives;  // beside it: the drive that this PUSHD has connected, or 0
    CString standingTitle;               // of the window between commands; "" until it is first looked at
};
extern GlobalTexts aTexts;

// What higher rooms keep for the whole process; each makes its own on first use.
struct GlobalRooms {
    std::shared_ptr<struct VariableLists> lists;       // expand/lists.cpp
    std::shared_ptr<class ArrayTable> arrays;          // expand/arrays.h
    std::shared_ptr<struct LogFiles> logs;             // engine/logs.cpp
    std::shared_ptr<struct JobList> jobs;              // core/jobs.h
    std::shared_ptr<struct ThreadList> threads;        // core/threads.h
    std::shared_ptr<class OwnedHandle> nul;            // the device NUL, kept open for redirections
    std::shared_ptr<struct OpenTextFiles> files;       // functions/file_handles.cpp
    std::shared_ptr<struct OpenSearches> searches;     // functions/file_searches.cpp
    std::shared_ptr<struct OwnClipboards> clipboards;  // core/clipboards.cpp
    std::shared_ptr<struct SharedPieces> sharedPieces; // functions/shared_memory.cpp
};
extern GlobalRooms aRooms;

// The syntax in force now: settings, SETDOS mask and the kind of the current batch file.
Syntax CurrentSyntax();
// Whether the exported interface may go on: the echo state that applies to the next line.
bool QueryEcho();
