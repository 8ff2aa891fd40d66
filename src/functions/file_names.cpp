// Names of files as the system has them: full, long, short and real ones, names found along a path, and names
// for new files.
#include "functions/families.h"

#include <windows.h>

#include "core/path_search.h"
#include "core/pseudo_devices.h"
#include "engine/inifile.h"
#include "engine/random.h"
#include "engine/state.h"
#include "expand/path_modifiers.h"
#include "files/wildcards.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/directory.h"
#include "platform/file_facts.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/whole_file.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/wsl_names.h"

namespace {

using View = std::u16string_view;

// The current directory of the drive named by the argument, or of the process.
int CurrentDirectoryOf(FunctionCall& call, CString& directory)
{
    const CString name = FileArgument(call.arguments);
    directory = name.empty() ? CurrentDirectory() : DirectoryOfDrive(name[0]);
    const bool drive = name.empty() || ((name.size() == 1 || name[1] == u':') && DriveExists(name[0]));
    return drive ? 0 : Refuse(ERROR_INVALID_DRIVE);
}

// A new empty file in the folder; "" with the reason in the last error.
CString CreateUniqueFile(const CString& folder, View prefix, View extension)
{
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        const CString name =
            JoinPath(folder, CString(prefix) + Format(u"%08x", NextRandom())) + u"." + extension;
        const CString full = FullPathName(name);
        if (CreateNewFile(SystemPath(full)))
            return full;
        if (GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    return {};
}

int AnswerUniqueFile(FunctionCall& call, View folder, View prefix, View extension)
{
    const CString wanted = FileArgument(folder);
    const CString name = CreateUniqueFile(wanted.empty() ? TemporaryFolder() : wanted, prefix, extension);
    return name.empty() ? Refuse(GetLastError()) : answer::ForeignText(call, name);
}

// The distribution that "wsl" starts, by the registry.
CString DefaultDistribution()
{
    constexpr View root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Lxss";
    const auto id = ReadRegistryText(RegistryRoot::CurrentUser, root, u"DefaultDistribution");
    return id ? ReadRegistryText(RegistryRoot::CurrentUser, CString(root) + u"\\" + *id, u"DistributionName")
                    .value_or(CString())
              : CString();
}

} // namespace

// @full[name]: the full name by the current directory. @lfn and @sfn: with long and with short components.
int Full_Function(FunctionCall& call)
{
    return answer::ForeignText(call, FullPathName(FileArgument(call.arguments)));
}

int Lfn_Function(FunctionCall& call)
{
    return answer::ForeignText(call, LongPathName(FullPathName(FileArgument(call.arguments))));
}

int Sfn_Function(FunctionCall& call)
{
    return answer::ForeignText(call, ShortPathName(FullPathName(FileArgument(call.arguments))));
}

// @altname[name]: the short name of the file alone, "" when it does not exist.
int Altname_Function(FunctionCall& call)
{
    const CString full = FullPathName(FileArgument(call.arguments));
    return answer::ForeignText(call, ReadFileAttributes(full) ? FileNamePart(ShortPathName(full)) : View());
}

// @truename[name]: where the name leads to, links and substituted drives resolved; "" when it does not exist.
int Truename_Function(FunctionCall& call)
{
    return answer::ForeignText(call, RealPathName(FileArgument(call.arguments)));
}

// @drive[name]: "C:" or "\\server\share".
int Drive_Function(FunctionCall& call)
{
    const CString full = FullPathName(FileArgument(call.arguments));
    return answer::ForeignText(call, SplitPath(full).drive);
}

// @search[name[,"folders"]]: the full name of the file that would run, or of the first one in the folders,
// which are parted by ";"; "" for none.
int Search_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|t");
    const CString name = FileArgument(arguments.Text(0));
    if (name.empty())
        return Refuse(errors::missingArgument);
    return answer::ForeignText(call,
                               arguments.Has(1) ? SearchAlong(name, arguments.Text(1)) : SearchPaths(name));
}

// @unique[[folder]]: makes an empty file of a new name in the folder (else in that for temporary files).
// @uniquex[folder[,prefix[,extension]]]: with a choice of what the name begins and ends with.
int Unique_Function(FunctionCall& call) { return AnswerUniqueFile(call, call.arguments, u"", u"tmp"); }

int Uniquex_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"t|tt");
    if (arguments.Error())
        return arguments.Error();
    View extension = arguments.Has(2) ? arguments.Text(2) : u"tmp";
    extension.remove_prefix(extension.starts_with(u'.') ? 1 : 0);
    return AnswerUniqueFile(call, arguments.Text(0), arguments.Text(1), extension);
}

// @wild[name,pattern]: whether the name matches, as file names are matched.
int Wild_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    const int compared = WildcardComparisonEx(arguments.Text(1), FileArgument(arguments.Text(0)), true, true,
                                              static_cast<RegexSyntax>(aIniFile.RegularExpressions));
    return compared < 0 ? Refuse(ERROR_INVALID_PARAMETER) : answer::Flag(call, compared == 0);
}

// @cwd[[drive]]: the current directory, of that drive. @cwds: with a backslash at the end.
int Cwd_Function(FunctionCall& call)
{
    CString directory;
    const int code = CurrentDirectoryOf(call, directory);
    return code ? code : answer::ForeignText(call, directory);
}

int Cwds_Function(FunctionCall& call)
{
    CString directory;
    const int code = CurrentDirectoryOf(call, directory);
    if (code)
        return code;
    if (!IsPathSeparator(directory.back()))
        directory.Append(u'\\');
    return answer::ForeignText(call, directory);
}

// @dirstack[[n]]: entry n of the stack of PUSHD; 0, and no number, is the one that POPD would go to.
int Dirstack_Function(FunctionCall& call)
{
    const std::vector<CString>& stack = aTexts.directoryStack;
    std::int64_t n = 0;
    if (!FileArgument(call.arguments).empty() && !ReadNumberArgument(call.arguments, n))
        return Refuse(errors::invalidNumber);
    const std::int64_t count = static_cast<std::int64_t>(stack.size());
    n = n < 0 ? n + count : n;
    return answer::ForeignText(
        call, n >= 0 && n < count ? stack[static_cast<std::size_t>(count - 1 - n)].view() : View());
}

// @shfolder[name or number]: where Windows keeps the folder.
int Shfolder_Function(FunctionCall& call)
{
    std::int64_t number = 0;
    const bool numbered = ReadNumberArgument(call.arguments, number);
    return answer::ForeignText(call, numbered ? ShellFolder(static_cast<int>(number))
                                              : ShellFolder(FileArgument(call.arguments)));
}

// @wslpath[name]: the file's name inside the Linux subsystem. @wslname[name]: the other way.
int Wslpath_Function(FunctionCall& call)
{
    return answer::ForeignText(call, LinuxName(FullPathName(FileArgument(call.arguments))));
}

int Wslname_Function(FunctionCall& call)
{
    return answer::ForeignText(call, WindowsName(FileArgument(call.arguments), DefaultDistribution()));
}
