// Taking file names apart. Nothing here asks whether the file exists. Pure.
#include "functions/families.h"

#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "text/path_names.h"
#include "text/wsl_names.h"

CString FileArgument(std::u16string_view piece) { return CString(BareArgument(piece)).Trim(); }

// @path[name]: the folder, with its separator, so that name and extension can follow.
int Path_Function(FunctionCall& call)
{
    return answer::ForeignText(call, DirectoryPart(FileArgument(call.arguments)));
}

// @filename[name]: name and extension. @name[name]: without the extension. @ext[name]: the extension without
// its period.
int Filename_Function(FunctionCall& call)
{
    return answer::ForeignText(call, FileNamePart(FileArgument(call.arguments)));
}

int Name_Function(FunctionCall& call)
{
    const CString path = FileArgument(call.arguments);
    const std::size_t start = FileNameStart(path);
    return answer::ForeignText(call, path.view().substr(start, ExtensionStart(path) - start));
}

int Ext_Function(FunctionCall& call)
{
    const CString path = FileArgument(call.arguments);
    const std::u16string_view extension = ExtensionPart(path);
    return answer::ForeignText(call, extension.substr(extension.empty() ? 0 : 1));
}

// @device[name]: whether the system takes the name for a device.
int Device_Function(FunctionCall& call)
{
    const CString name = FileArgument(call.arguments);
    return answer::Flag(call, !name.empty() && IsDeviceName(name));
}
