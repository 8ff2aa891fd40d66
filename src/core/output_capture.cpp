#include "core/output_capture.h"

#include <windows.h>

#include "core/pseudo_devices.h"
#include "engine/command_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "platform/standard_handles.h"

namespace {

// Standard output leads elsewhere for as long as this lives, however the command ends.
class OutputElsewhere {
public:
    explicit OutputElsewhere(OwnedHandle target) : handle(std::move(target)), saved(StandardHandle(1))
    {
        SetStandardHandle(1, handle.Get());
        ForgetHandleKinds();
    }
    ~OutputElsewhere()
    {
        SetStandardHandle(1, saved);
        ForgetHandleKinds();
    }
    OutputElsewhere(const OutputElsewhere&) = delete;
    OutputElsewhere& operator=(const OutputElsewhere&) = delete;

private:
    OwnedHandle handle;
    HANDLE saved;
};

} // namespace

OutputCapture::~OutputCapture()
{
    if (!file.empty())
        DeleteFileW(file.w());
}

int OutputCapture::Run(const CString& line, bool& ran)
{
    SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const CString name = TemporaryFileName(u"Exec");
    OwnedHandle target(CreateFileW(name.w(), GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                                   CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY, nullptr));
    ran = static_cast<bool>(target);
    if (!ran)
        return result::error;
    file = name;
    const OutputElsewhere elsewhere(std::move(target));
    return Command_S(line, 0);
}
