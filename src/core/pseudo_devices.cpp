#include "core/pseudo_devices.h"

#include <atomic>

#include <windows.h>

#include "core/clipboards.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "files/text_reader.h"
#include "platform/handle.h"
#include "platform/text_output.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

// The number in "TMP2:"; "TMP:" is number 0. -1 for any other name, and for numbers from `count` on.
int DeviceNumber(std::u16string_view name, std::u16string_view stem, int count)
{
    if (!BeginsNoCase(name, stem) || name.back() != u':' || name.size() > stem.size() + 2)
        return -1;
    if (name.size() == stem.size() + 1)
        return 0;
    const int number = name[stem.size()] - u'0';
    return number >= 0 && number < count ? number : -1;
}

} // namespace

CString TemporaryFolder()
{
    CString path;
    constexpr DWORD longest = 32767;
    path.SetLength(GetTempPathW(longest, reinterpret_cast<wchar_t*>(path.Edit(longest))));
    return path;
}

CString TemporaryFileName(std::u16string_view prefix)
{
    static std::atomic<unsigned> counter{0};
    return TemporaryFolder() + Format(u"%s%x_%x.tmp", prefix, GetCurrentProcessId(), counter++);
}

CString TemporaryDeviceFile(int index)
{
    return TemporaryFolder() + Format(u"Mova%x_tmp%d.tmp", GetCurrentProcessId(), index);
}

void DeleteTemporaryDevices()
{
    for (int index = 0; index < temporaryDevices; ++index)
        DeleteFileW(TemporaryDeviceFile(index).w());
}

std::unique_ptr<PseudoDevice> PseudoDevice::Find(std::u16string_view name)
{
    const int clipboard = aIniFile.Clipboards ? DeviceNumber(name, u"CLIP", clipboardCount) : -1;
    const int temporary = DeviceNumber(name, u"TMP", temporaryDevices);
    if (clipboard < 0 && temporary < 0)
        return nullptr;
    auto device = std::make_unique<PseudoDevice>();
    device->clipboard = clipboard;
    device->file = clipboard >= 0 ? TemporaryFileName(u"Clip") : TemporaryDeviceFile(temporary);
    return device;
}

PseudoDevice::~PseudoDevice()
{
    if (clipboard >= 0)
        DeleteFileW(file.w());
}

bool PseudoDevice::WriteClipboardFile()
{
    CString text;
    if (!ReadClipboard(clipboard, text) && GetLastError() != ERROR_NOT_FOUND)
        return false;
    const OwnedHandle target(
        CreateFileW(file.w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY, nullptr));
    return target && WriteTextToFile(target.Get(), text, CurrentOutputEncoding());
}

bool PseudoDevice::PrepareInput(CString& path)
{
    path = file;
    return clipboard < 0 || WriteClipboardFile();
}

bool PseudoDevice::PrepareOutput(CString& path, bool append)
{
    path = file;
    forOutput = true;
    if (clipboard >= 0 && append)
        return WriteClipboardFile();
    if (!append)
        DeleteFileW(file.w());
    return true;
}

void PseudoDevice::Complete()
{
    if (clipboard < 0 || !forOutput)
        return;
    CString text;
    CString piece;
    TextReader reader;
    if (!reader.Open(file))
        return;
    while (reader.Read(piece) && !piece.empty())
        text.Append(piece);
    WriteClipboard(clipboard, text);
}
