// The user's start-up and exit files.
#include "lifecycle/startup_files.h"

#include <optional>
#include <utility>

#include "core/path_search.h"
#include "engine/batch_entry.h"
#include "engine/command_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

CString FolderOfShell()
{
    CString shell;
    if (!ReadEnvironment(u"COMSPEC", shell) || shell.empty())
        shell = aTexts.executable;
    return CString(DirectoryPart(shell));
}

CString BootDrive()
{
    CString root;
    return ReadEnvironment(u"SystemDrive", root) && !root.empty() ? root + u"\\" : CString(u"C:\\");
}

// "" when there is no such batch file.
CString FindStartupFile(std::u16string_view name)
{
    const CString own(aIniFile.MVStartPath ? aIniFile.MVStartPath : aIniFile.qStartPath);
    if (!own.empty())
        return SearchPaths(JoinPath(own, name), SearchKind::Batch);
    const CString beside = SearchPaths(JoinPath(FolderOfShell(), name), SearchKind::Batch);
    return beside.empty() ? SearchPaths(JoinPath(BootDrive(), name), SearchKind::Batch) : beside;
}

// Under the name, or the older one.
CString FindStartupFile(std::u16string_view name, std::u16string_view olderName)
{
    const CString file = FindStartupFile(name);
    return file.empty() ? FindStartupFile(olderName) : file;
}

std::optional<CString> foundEarly; // "": there is none

} // namespace

void FindStartupFileEarly()
{
    if (aIniFile.StartupFile)
        foundEarly = FindStartupFile(u"MVSTART", u"QSTART");
}

void ForgetStartupFile() { foundEarly.reset(); }

int RunStartupFiles(std::u16string_view name, std::u16string_view arguments)
{
    const bool starting = EqualNoCase(name, u"MVSTART");
    if (starting && !aIniFile.StartupFile)
        return result::success;
    const bool leaving = EqualNoCase(name, u"MVEXIT");
    const CString file = starting && foundEarly ? *std::exchange(foundEarly, std::nullopt)
                         : starting             ? FindStartupFile(name, u"QSTART")
                         : leaving              ? FindStartupFile(name, u"QEXIT")
                                                : FindStartupFile(name);
    if (file.empty())
        return result::success;

    TLS_VARIABLES& tls = Tls();
    const BlockState blocks = tls.blocks;
    tls.blocks = {};
    (starting ? aTexts.startupFile : aTexts.exitFile) = file;
    CString command = AddQuotes(file);
    if (!arguments.empty())
        command.Append(u" ").Append(arguments);
    const int code = Runp(command, false);
    Tls().blocks = blocks;
    return code;
}
