// Running a command line for what it writes: @EXECSTR and its like.
//
// Standard output goes to a temporary file, so that neither side waits for the other however much is written;
// the file is deleted with this object.
#pragma once

#include "text/cstring.h"

class OutputCapture {
public:
    OutputCapture() = default;
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;
    ~OutputCapture();

    // Runs the line and answers its result. `ran` tells that the file could be made; otherwise the reason is
    // the thread's last error.
    int Run(const CString& line, bool& ran);
    // Where the output is, for files/text_reader.h.
    const CString& File() const { return file; }

private:
    CString file;
};
