#include "core/output_capture.h"

#include <windows.h>

#include "core/pseudo_devices.h"
#include "engine/command_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/standard_handles.h"

// A standard handle leads elsewhere for as long as this lives, however the command ends.
class OutputElsewhere {
public:
    OutputElsewhere(int handleNumber, OwnedHandle target)
        : number(handleNumber), handle(std::move(target)), saved(StandardHandle(handleNumber))
    {
        SetStandardHandle(number, handle.Get());
        ForgetHandleKinds();
    }
    ~OutputElsewhere()
    {
        SetStandardHandle(number, saved);
        ForgetHandleKinds();
    }
    OutputElsewhere(const OutputElsewhere&) = delete;
    OutputElsewhere& operator=(const OutputElsewhere&) = delete;

private:
    int number;
    OwnedHandle handle;
    HANDLE saved;
};

OutputCapture::OutputCapture(int handleNumber) : number(handleNumber) {}

OutputCapture::~OutputCapture()
{
    End();
    if (!file.empty())
        DeleteFileW(file.w());
}

bool OutputCapture::Begin()
{
    SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const CString name = TemporaryFileName(u"Exec");
    OwnedHandle target(CreateFileW(name.w(), GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                                   CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY, nullptr));
    if (!target)
        return false;
    file = name;
    elsewhere = std::make_unique<OutputElsewhere>(number, std::move(target));
    return true;
}

void OutputCapture::End() { elsewhere.reset(); }

int OutputCapture::Run(const CString& line, bool& ran)
{
    ran = Begin();
    if (!ran)
        return result::error;
    const int code = Command_S(line, 0);
    End();
    return code;
}
