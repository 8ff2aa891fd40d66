// Names that redirection treats as devices though Windows knows none of them:
//
//   CLIP0: to CLIP9: the texts of the clipboards (core/clipboards.h); CLIP: is CLIP0:
//   TMP0: to TMP2:   three temporary files of this shell, deleted when it ends; TMP: is TMP0:
//
// A device is a file while the command runs; the clipboard's is carried over when the command has ended.
#pragma once

#include <memory>
#include <string_view>

#include "text/cstring.h"

constexpr int temporaryDevices = 3;

class PseudoDevice {
public:
    // Null for any other name, and for clipboards when the setting Clipboards is off.
    static std::unique_ptr<PseudoDevice> Find(std::u16string_view name);

    ~PseudoDevice();
    // Make the file that stands for the device; `path` receives its name. With `append` it holds the old
    // contents. False with the reason in the last error.
    bool PrepareInput(CString& path);
    bool PrepareOutput(CString& path, bool append);
    // After the command: what was written to the clipboard's file becomes its text.
    void Complete();

private:
    bool WriteClipboardFile();

    int clipboard = -1; // -1: a temporary file
    bool forOutput = false;
    CString file;
};

// The folder for temporary files, with a separator at its end.
CString TemporaryFolder();
// A name for a new file in the folder for temporary files, beginning with `prefix` and unique to this
// process.
CString TemporaryFileName(std::u16string_view prefix);
// The file behind TMPn:, and the end of all of them.
CString TemporaryDeviceFile(int index);
void DeleteTemporaryDevices();
