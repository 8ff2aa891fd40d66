// Copying a file's data or one of its named streams ("file:stream") as bytes. FileStream and NamedStreams of
// file_details.h tell which there are; EraseFile of file_changes.h deletes one.
#pragma once

#include <string_view>

struct StreamCopy {
    bool replace = false;     // a target that exists is replaced, else it is an error
    bool verify = false;      // what was written is read back and compared
    void (*poll)() = nullptr; // called between blocks; may throw to give up
};

// 0, or a Windows error number; ERROR_CRC when the copy differs. A target that is not complete is taken away
// again. One that is replaced stays as it was until the new contents are complete; only where the file system
// cannot rename streams the stream is written over then. `*sourceOpened` tells whether it could be read at
// all: then it is most likely the target that failed.
unsigned CopyStream(std::u16string_view from, std::u16string_view to, const StreamCopy& how,
                    bool* sourceOpened = nullptr);
