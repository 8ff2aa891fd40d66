// A file that several processes, on one machine or many, add records to: each record comes as a whole behind
// all that the file holds by then. For logs.
//
// A handle that may only append is not enough: not every file system finds the end and writes there in one
// step. So a byte that no file reaches is locked for as long as a record is written.
#pragma once

#include <string_view>

#include "platform/handle.h"
#include "text/cstring.h"

class AppendFile {
public:
    // Creates the file when there is none. Others may read, write, rename and delete it meanwhile. False with
    // the reason in the last error.
    bool Open(const CString& name);
    bool IsOpen() const noexcept { return static_cast<bool>(file); }
    // False, with the reason in the last error, when not all could be written.
    bool Append(std::string_view record);
    void Close() noexcept { file.Reset(); }

private:
    OwnedHandle file;
};
