#include "core/redirection.h"

#include "core/pipes.h"
#include "core/pseudo_devices.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "platform/standard_handles.h"
#include "platform/text_output.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};

// Opening a device costs far more than writing to it, and this one is everybody's: it is opened once.
HANDLE NulDevice()
{
    if (!aRooms.nul)
        aRooms.nul = std::make_shared<OwnedHandle>(
            CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                        &inheritable, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return aRooms.nul->Get();
}

int ReportOpen(const CString& name)
{
    const DWORD code = GetLastError();
    return MVError(code, name);
}

} // namespace

DWORD OutputDisposition(bool append, bool overrideNoClobber)
{
    const bool noClobber = aIniFile.NoClobber && !overrideNoClobber;
    if (append)
        return noClobber ? OPEN_EXISTING : OPEN_ALWAYS;
    return noClobber ? CREATE_NEW : CREATE_ALWAYS;
}

RedirectionRecord::RedirectionRecord() = default;

RedirectionRecord::~RedirectionRecord()
{
    int ignored = 0;
    Finish(ignored);
}

// Puts a handle in force that stays somebody else's.
void RedirectionRecord::Install(int number, HANDLE handle, HandleKind kind)
{
    StandardHandleKind& known = Tls().handleKinds[number];
    if (!saved[number].replaced) {
        saved[number] = {true, StandardHandle(number), known};
        Tls().inputRedirections += number == 0;
    }
    SetStandardHandle(number, handle);
    known =
        kind == HandleKind::None ? StandardHandleKind() : StandardHandleKind{handle, static_cast<int>(kind)};
}

void RedirectionRecord::Own(int number, OwnedHandle handle, HandleKind kind)
{
    Install(number, handle.Get(), kind);
    opened.push_back(std::move(handle));
}

void RedirectionRecord::Restore()
{
    for (int number = 0; number < 3; ++number) {
        if (!saved[number].replaced)
            continue;
        SetStandardHandle(number, saved[number].handle);
        Tls().handleKinds[number] = saved[number].kind;
        Tls().inputRedirections -= number == 0;
        saved[number].replaced = false;
    }
    opened.clear();
}

int RedirectionRecord::Apply(CString& command, bool parentheses, const Syntax& syntax)
{
    std::vector<RedirectionRequest> requests;
    const CString original(command);
    if (const unsigned code = ParseRedirections(command, parentheses, syntax, requests))
        return MVError(code, original);
    for (const RedirectionRequest& request : requests) {
        const int code = Perform(request);
        if (code != result::success) {
            Restore();
            return code;
        }
    }
    return result::success;
}

int RedirectionRecord::Perform(const RedirectionRequest& request)
{
    switch (request.kind) {
    case RedirectionKind::Input: return OpenInput(request.name);
    case RedirectionKind::HereText: return FeedText(request.name + u"\r\n");
    case RedirectionKind::HereLines: return FeedBatchLines(request);
    case RedirectionKind::Output:
    case RedirectionKind::Append: return OpenOutput(request);
    case RedirectionKind::Duplicate: {
        OwnedHandle copy = DuplicateHandle(StandardHandle(request.source), true);
        if (!copy)
            return MVError(GetLastError());
        Own(request.handle, std::move(copy), HandleKind::None);
        return result::success;
    }
    }
    return result::success;
}

int RedirectionRecord::OpenInput(const CString& name)
{
    CString path(name);
    auto device = PseudoDevice::Find(name);
    if (device && !device->PrepareInput(path))
        return ReportOpen(name);
    if (!device && !IsDeviceName(name))
        path = SystemPath(FullPathName(name));
    OwnedHandle file(CreateFileW(path.w(), GENERIC_READ,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return ReportOpen(name);
    if (device)
        devices.push_back(std::move(device));
    Own(0, std::move(file), HandleKind::None);
    return result::success;
}

int RedirectionRecord::OpenOutput(const RedirectionRequest& request)
{
    if (EqualNoCase(request.name, u"NUL")) {
        const HANDLE nul = NulDevice();
        Install(request.handle, nul, HandleKind::Device);
        if (request.errorToo)
            Install(2, nul, HandleKind::Device);
        return result::success;
    }
    const bool append = request.kind == RedirectionKind::Append;
    CString path(request.name);
    auto device = PseudoDevice::Find(request.name);
    if (device && !device->PrepareOutput(path, append))
        return ReportOpen(request.name);
    const bool plainFile = !device && !IsDeviceName(request.name);
    if (plainFile)
        path = SystemPath(FullPathName(request.name));
    const DWORD disposition = device      ? OPEN_ALWAYS
                              : plainFile ? OutputDisposition(append, request.overrideNoClobber)
                                          : OPEN_EXISTING;
    auto open = [&] {
        return OwnedHandle(CreateFileW(path.w(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       &inheritable, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    };
    OwnedHandle file = open();
    if (!file && GetLastError() == ERROR_SHARING_VIOLATION) {
        // The target may be a batch file that runs: while it is open nobody may write to it.
        CloseBatchFile();
        file = open();
    }
    if (!file)
        return ReportOpen(request.name);
    if (append)
        SetFilePointerEx(file.Get(), LARGE_INTEGER{}, nullptr, FILE_END);
    if (device)
        devices.push_back(std::move(device));
    const HANDLE handle = file.Get();
    const HandleKind kind = plainFile ? HandleKind::File : HandleKind::None;
    Own(request.handle, std::move(file), kind);
    if (request.errorToo)
        Own(2, DuplicateHandle(handle, true), kind);
    return result::success;
}

// Standard input from a temporary file that vanishes with its last handle.
int RedirectionRecord::FeedText(std::u16string_view text)
{
    const CString path = TemporaryFileName(u"Here");
    OwnedHandle file(CreateFileW(path.w(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                                 CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE,
                                 nullptr));
    if (!file || !WriteTextToFile(file.Get(), text, CurrentOutputEncoding()))
        return ReportOpen(path);
    SetFilePointerEx(file.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN);
    Own(0, std::move(file), HandleKind::File);
    return result::success;
}

int RedirectionRecord::FeedBatchLines(const RedirectionRequest& request)
{
    if (!Tls().Frame())
        return MVError(ERROR_INVALID_PARAMETER, request.name);
    CString text;
    CString line;
    while (ReadBatchLine(line)) {
        if (request.stripBlanks)
            line.TrimLeft();
        if (line == request.name)
            break;
        text.Append(line).Append(u"\r\n");
    }
    return FeedText(text);
}

int RedirectionRecord::StartPipe(const CString& text, bool errorsToo)
{
    CloseBatchFile();
    pipe = std::make_unique<PipeChild>();
    OwnedHandle writeEnd;
    const int code = pipe->Start(text, writeEnd);
    if (code != result::success) {
        pipe.reset();
        return code;
    }
    const HANDLE handle = writeEnd.Get();
    Own(1, std::move(writeEnd), HandleKind::Pipe);
    if (errorsToo)
        Own(2, DuplicateHandle(handle, true), HandleKind::Pipe);
    return result::success;
}

void RedirectionRecord::Finish(int& commandResult)
{
    Restore();
    if (pipe) {
        const int exitCode = pipe->Wait();
        pipe.reset();
        Tls().errorLevel = exitCode;
        if (!EndsLine(commandResult))
            commandResult = exitCode;
    }
    for (const auto& device : devices)
        device->Complete();
    devices.clear();
}
