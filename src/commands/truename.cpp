#include "commands/truename.h"

#include <algorithm>

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp truenameHelp = {
    u"Shows where names really lead to.",
    u"TRUENAME [name ...]",
    u"Links and junctions are followed, substituted drives replaced by what they stand for, and names "
    u"spelled as they are on the disk, short ones made long. What does not exist, or holds wildcards, is "
    u"shown behind the directory that does. Without a name the current directory is meant. The result is 2 "
    u"when a name has no directory that exists.",
    u"truename x:\\project\n"
    u"truename \"C:\\Documents and Settings\"",
};

namespace {

// "\\server\share": nothing above it could be asked for.
bool IsShare(std::u16string_view name)
{
    name = WithoutEndSeparators(name);
    return name.starts_with(u"\\\\") && std::count(name.begin() + 2, name.end(), u'\\') <= 1;
}

// "" when not even the root exists.
CString RealName(const CString& fullName)
{
    CString real = RealPathName(fullName);
    if (!real.empty())
        return real;
    if (fullName.view().starts_with(u"\\\\.\\"))
        return fullName; // a device
    if (IsShare(fullName))
        return {};
    const std::u16string_view above = WithoutEndSeparators(DirectoryPart(WithoutEndSeparators(fullName)));
    if (above.empty() || above.size() >= WithoutEndSeparators(fullName).size())
        return {};
    real = RealName(CString(above));
    return real.empty() ? CString() : JoinPath(real, FileNamePart(WithoutEndSeparators(fullName)));
}

} // namespace

int Truename_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"", flags))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        names.emplace_back(u".");
    int code = result::success;
    for (const CString& name : names) {
        const CString real = RealName(FullPathName(WithoutQuotes(name)));
        if (real.empty())
            code = MVError(0, WithoutQuotes(name));
        else if (!PrintLine(real))
            return MVError(0);
    }
    return code;
}
