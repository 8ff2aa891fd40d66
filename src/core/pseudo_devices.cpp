#include "core/pseudo_devices.h"

#include <atomic>

#include <windows.h>

#include "engine/inifile.h"
#include "engine/output.h"
#include "files/text_reader.h"
#include "platform/clipboard.h"
#include "platform/handle.h"
#include "platform/text_output.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

// -1 when the name is no temporary device.
int TemporaryIndex(std::u16string_view name)
{
    if (!BeginsNoCase(name, u"TMP") || name.back() != u':' || name.size() > 5)
        return -1;
    if (name.size() == 4)
        return 0;
    const int index = name[3] - u'0';
    return index >= 0 && index < temporaryDevices ? index : -1;
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
    const bool isClipboard =
        aIniFile.Clipboards && (EqualNoCase(name, u"CLIP:") || EqualNoCase(name, u"CLIP0:"));
    const int index = name.empty() ? -1 : TemporaryIndex(name);
    if (!isClipboard && index < 0)
        return nullptr;
    auto device = std::make_unique<PseudoDevice>();
    device->clipboard = isClipboard;
    device->temporaryIndex = index;
    device->file = isClipboard ? TemporaryFileName(u"Clip") : TemporaryDeviceFile(index);
    return device;
}

PseudoDevice::~PseudoDevice()
{
    if (clipboard)
        DeleteFileW(file.w());
}

bool PseudoDevice::WriteClipboardFile()
{
    CString text;
    if (!ReadClipboardText(text) && GetLastError() != ERROR_NOT_FOUND)
        return false;
    const OwnedHandle target(
        CreateFileW(file.w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY, nullptr));
    return target && WriteTextToFile(target.Get(), text, CurrentOutputEncoding());
}

bool PseudoDevice::PrepareInput(CString& path)
{
    path = file;
    return !clipboard || WriteClipboardFile();
}

bool PseudoDevice::PrepareOutput(CString& path, bool append)
{
    path = file;
    forOutput = true;
    if (clipboard && append)
        return WriteClipboardFile();
    if (!append)
        DeleteFileW(file.w());
    return true;
}

void PseudoDevice::Complete()
{
    if (!clipboard || !forOutput)
        return;
    CString text;
    CString piece;
    TextReader reader;
    if (!reader.Open(file))
        return;
    while (reader.Read(piece) && !piece.empty())
        text.Append(piece);
    WriteClipboardText(text);
}
