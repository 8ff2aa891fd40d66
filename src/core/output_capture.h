// Running a command line for what it writes: @EXECSTR and its like.
//
// Standard output, or another of the standard handles, goes to a temporary file, so that neither side waits
// for the other however much is written; the file is deleted with this object.
#pragma once

#include <memory>

#include "text/cstring.h"

class OutputElsewhere;

class OutputCapture {
public:
    explicit OutputCapture(int handleNumber = 1);
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;
    ~OutputCapture();

    // Runs the line and answers its result. `ran` tells that the file could be made; otherwise the reason is
    // the thread's last error.
    int Run(const CString& line, bool& ran);
    // The same in two steps: from Begin to End the output goes to the file. False when it could not be made.
    bool Begin();
    void End();
    // Where the output is, for files/text_reader.h.
    const CString& File() const { return file; }

private:
    int number;
    CString file;
    std::unique_ptr<OutputElsewhere> elsewhere;
};
