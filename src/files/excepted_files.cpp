#include "files/excepted_files.h"

#include <algorithm>

#include "engine/state.h"
#include "platform/file_facts.h"
#include "text/path_names.h"

void ExceptedFiles::Add(std::u16string_view fullName)
{
    names.insert(ExceptedDirectory(DirectoryPart(fullName)) + FileNamePart(fullName));
}

CString ExceptedDirectory(std::u16string_view directory)
{
    const CString real = RealPathName(directory);
    return JoinPath(real.empty() ? directory : real.view(), u"");
}

bool IsExcepted(std::u16string_view fullName)
{
    const ExceptedFiles* excepted = Tls().exceptedFiles.get();
    if (!excepted)
        return false;
    const CString name = LongPathName(fullName);
    return excepted->names.contains(ExceptedDirectory(DirectoryPart(name)) + FileNamePart(name));
}

bool IsExceptedBelow(std::u16string_view fullName)
{
    const ExceptedFiles* excepted = Tls().exceptedFiles.get();
    if (!excepted)
        return false;
    const CString directory = ExceptedDirectory(fullName);
    return std::any_of(excepted->names.begin(), excepted->names.end(),
                       [&](const CString& name) { return BeginsNoCase(name, directory); });
}
