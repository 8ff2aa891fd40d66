// Putting a command's redirections and its pipe in force, and taking them back.
//
// One record serves one line: Apply and StartPipe before a command, Finish after it, however it ended. The
// destructor finishes too, so that a break leaves the standard handles as they were.
#pragma once

#include <memory>
#include <vector>

#include "core/redirection_parser.h"
#include "engine/state.h"
#include "platform/handle.h"
#include "platform/standard_handles.h"
#include "text/cstring.h"
#include "text/syntax.h"

class PipeChild;
class PseudoDevice;

// How CreateFile is to open a file for output, as the setting NoClobber says.
DWORD OutputDisposition(bool append, bool overrideNoClobber);

class RedirectionRecord {
public:
    RedirectionRecord();
    RedirectionRecord(const RedirectionRecord&) = delete;
    RedirectionRecord& operator=(const RedirectionRecord&) = delete;
    ~RedirectionRecord();

    // Cuts the redirections out of the command and puts them in force. 0, or the result of the error that was
    // reported; everything is then as it was before.
    int Apply(CString& command, bool parentheses, const Syntax& syntax);

    // Starts a copy of the shell that runs `text` and reads what the current command writes.
    int StartPipe(const CString& text, bool errorsToo);

    // Gives the standard handles back and waits for the pipe's child, whose exit code then becomes the result
    // and the error level.
    void Finish(int& commandResult);

private:
    int Perform(const RedirectionRequest& request);
    int OpenInput(const CString& name);
    int OpenOutput(const RedirectionRequest& request);
    int FeedText(std::u16string_view text);
    int FeedBatchLines(const RedirectionRequest& request);
    void Install(int number, HANDLE handle, HandleKind kind);
    void Own(int number, OwnedHandle handle, HandleKind kind);
    void Restore();

    // What was in force, where it was replaced.
    struct Saved {
        bool replaced = false;
        HANDLE handle = nullptr;
        StandardHandleKind kind;
    };
    Saved saved[3];
    std::vector<OwnedHandle> opened; // what stands in their place
    std::vector<std::unique_ptr<PseudoDevice>> devices;
    std::unique_ptr<PipeChild> pipe;
};
