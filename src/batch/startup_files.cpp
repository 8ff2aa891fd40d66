// RunStartupFiles of engine/batch_entry.h: the batch files that run when an interactive shell starts and ends.
#include <windows.h>

#include "core/path_search.h"
#include "engine/batch_entry.h"
#include "engine/command_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

// Where the files are looked for when no directory is set.
CString ShellDirectory()
{
    CString shell;
    if (!ReadEnvironment(u"COMSPEC", shell))
        shell = aTexts.executable;
    return CString(DirectoryPart(WithoutQuotes(shell)));
}

CString BootDirectory()
{
    wchar_t directory[MAX_PATH];
    const UINT length = GetWindowsDirectoryW(directory, MAX_PATH);
    const std::u16string_view text(reinterpret_cast<const char16_t*>(directory), length < MAX_PATH ? length : 0);
    return CString(text.substr(0, 2)).Append(u'\\');
}

CString FindStartupFile(std::u16string_view name)
{
    if (aIniFile.MVStartPath)
        return SearchPaths(JoinPath(aIniFile.MVStartPath, name), SearchKind::Batch);
    const CString file = SearchPaths(JoinPath(ShellDirectory(), name), SearchKind::Batch);
    return file.empty() ? SearchPaths(JoinPath(BootDirectory(), name), SearchKind::Batch) : file;
}

// The name that older installations use.
std::u16string_view OlderName(std::u16string_view name)
{
    if (EqualNoCase(name, u"MVSTART"))
        return u"QSTART";
    return EqualNoCase(name, u"MVEXIT") ? std::u16string_view(u"QEXIT") : std::u16string_view();
}

} // namespace

int RunStartupFiles(std::u16string_view name, std::u16string_view arguments)
{
    CString file = FindStartupFile(name);
    if (file.empty() && !OlderName(name).empty())
        file = FindStartupFile(OlderName(name));
    if (file.empty())
        return result::success;
    CString command = AddQuotes(file);
    if (!arguments.empty())
        command.Append(u' ').Append(arguments);
    TLS_VARIABLES& tls = Tls();
    const BlockState blocks = tls.blocks;
    const unsigned mode = tls.batchStartMode;
    tls.blocks = {};
    tls.batchStartMode = batch_start::call;
    const int answer = Command_S(command, 0);
    tls.batchStartMode = mode;
    tls.blocks = blocks;
    return answer;
}
