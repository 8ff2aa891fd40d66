#include "commands/directory_stack.h"

#include <algorithm>

#include <windows.h>

#include "core/command_switches.h"
#include "engine/directory_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "lang/file_messages.h"
#include "platform/directory.h"
#include "platform/drive_connections.h"
#include "platform/file_facts.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp pushdHelp = {
    u"Keeps the current directory for POPD, and changes the drive and directory.",
    u"PUSHD [directory]\n"
    u"PUSHD +n | -n",
    u"+n  turns the stack round until entry n of DIRS is the current directory; the current one is 0\n"
    u"-n  the same, counted from the end of DIRS, whose last entry is 0\n"
    u"Without a directory the current one is kept and you stay there. A directory of another machine "
    u"(\\\\server\\share\\...) gets a drive letter, from Z down, until POPD takes it back. DIRS shows what "
    u"is kept.",
    u"pushd d:\\work\n"
    u"pushd \\\\server\\share\\docs\n"
    u"pushd +1",
};

const CommandHelp popdHelp = {
    u"Goes back to the directory that PUSHD kept last.",
    u"POPD [* | +n | -n]",
    u"*  forget all kept directories and stay\n"
    u"+n  forget entry n of DIRS and stay, -n that entry counted from the end\n"
    u"A drive letter that PUSHD had given to another machine's directory is taken back.",
    u"popd\n"
    u"popd *",
};

const CommandHelp dirsHelp = {
    u"Lists the directories that PUSHD keeps, the one that POPD returns to first.",
    u"DIRS [+n | -n] [/C]",
    u"+n  only entry n, -n the one counted from the end, which is 0\n"
    u"/C  forget all kept directories",
    u"dirs\n"
    u"dirs +1",
};

namespace {

std::vector<CString>& Stack() { return aTexts.directoryStack; }

void Push(const CString& directory, char16_t drive)
{
    Stack().push_back(directory);
    aTexts.pushedDrives.resize(Stack().size() - 1);
    aTexts.pushedDrives.push_back(drive);
}

// Takes entry `index` off, with the drive letter that goes with it.
CString Take(std::size_t index, char16_t& drive)
{
    aTexts.pushedDrives.resize(Stack().size());
    const auto at = static_cast<std::ptrdiff_t>(index);
    CString directory = Stack()[index];
    drive = aTexts.pushedDrives[index];
    Stack().erase(Stack().begin() + at);
    aTexts.pushedDrives.erase(aTexts.pushedDrives.begin() + at);
    return directory;
}

void Forget()
{
    for (const char16_t drive : aTexts.pushedDrives)
        if (drive)
            DisconnectDrive(drive);
    Stack().clear();
    aTexts.pushedDrives.clear();
}

// "+2" counts from the newest entry, "-0" is the oldest.
struct Entry {
    bool given = false;         // the text has this form
    bool valid = false;         // and there is such an entry
    std::size_t fromNewest = 0; // 0 is the current directory, 1 the newest on the stack
};

Entry ReadEntry(std::u16string_view text)
{
    Entry entry;
    if (text.size() < 2 || (text[0] != u'+' && text[0] != u'-') || !IsDigit(text[1]))
        return entry;
    const auto number = ParseInteger(text.substr(1));
    entry.given = number.has_value();
    entry.valid = number && *number >= 0 && *number <= static_cast<std::int64_t>(Stack().size());
    if (entry.valid) {
        const auto n = static_cast<std::size_t>(*number);
        entry.fromNewest = text[0] == u'+' ? n : Stack().size() - n;
    }
    return entry;
}

// Entry n becomes the current directory; those before it go to the other end.
int Rotate(std::size_t fromNewest)
{
    if (fromNewest == 0)
        return result::success;
    const CString target = Stack()[Stack().size() - fromNewest];
    const CString old = CurrentDirectory();
    if (const int code = ChangeDirectory(AddQuotes(target)))
        return code;
    aTexts.pushedDrives.resize(Stack().size());
    // A drive letter stays with whatever is popped in the place of the entry.
    const char16_t drive = aTexts.pushedDrives[Stack().size() - fromNewest];
    // The ring is the stack with the current directory behind its newest entry.
    Stack().push_back(old);
    aTexts.pushedDrives.push_back(drive);
    std::rotate(Stack().begin(), Stack().end() - static_cast<std::ptrdiff_t>(fromNewest), Stack().end());
    std::rotate(aTexts.pushedDrives.begin(),
                aTexts.pushedDrives.end() - static_cast<std::ptrdiff_t>(fromNewest),
                aTexts.pushedDrives.end());
    Stack().pop_back();
    aTexts.pushedDrives.pop_back();
    return result::success;
}

// The share of "\\server\share\dir", without a separator at its end; "" for other names.
std::u16string_view ShareOf(std::u16string_view name)
{
    if (!name.starts_with(u"\\\\") || name.starts_with(u"\\\\?\\") || name.starts_with(u"\\\\.\\"))
        return {};
    const std::size_t server = name.find(u'\\', 2);
    if (server == name.npos || server + 1 == name.size())
        return {};
    return name.substr(0, name.find(u'\\', server + 1));
}

int Enter(const CString& arguments, char16_t& drive)
{
    const CString name = CleanDirectoryName(arguments);
    const std::u16string_view share = ShareOf(name);
    if (share.empty())
        return ChangeDirectory(arguments);
    if (const unsigned code = ConnectFreeDrive(share, drive))
        return MVError(code == ERROR_NO_MORE_DEVICES ? errors::noFreeDriveLetter : code, name);
    const CString there =
        Format(u"%c:\\%s", drive, name.view().substr(std::min(name.size(), share.size() + 1)));
    const int code = ChangeDirectory(AddQuotes(there));
    if (code)
        DisconnectDrive(drive);
    return code;
}

} // namespace

int Pushd_Command(CString& arguments)
{
    const CString old = CurrentDirectory();
    arguments.Trim();
    if (const Entry entry = ReadEntry(arguments); entry.given && !QueryIsDirectory(arguments))
        return entry.valid ? Rotate(entry.fromNewest) : MVError(errors::noSuchStackEntry, arguments);
    if (Stack().size() >= maximumDirectoryStack)
        return MVError(errors::directoryStackFull);
    char16_t drive = 0;
    if (!arguments.empty()) {
        if (const int code = Enter(arguments, drive))
            return code;
    }
    Push(old, drive);
    return result::success;
}

int Popd_Command(CString& arguments)
{
    arguments.Trim();
    if (arguments == u"*") {
        Forget();
        return result::success;
    }
    char16_t drive = 0;
    if (const Entry entry = ReadEntry(arguments); entry.given) {
        if (!entry.valid || entry.fromNewest == 0)
            return MVError(errors::noSuchStackEntry, arguments);
        Take(Stack().size() - entry.fromNewest, drive);
        if (drive && DriveLetter(CurrentDirectory()) != drive)
            DisconnectDrive(drive);
        return result::success;
    }
    if (!arguments.empty())
        return UsageError();
    // Scripts go back as well from where PUSHD has failed to go.
    if (Stack().empty() && CurrentSyntax().openQuotes)
        return Tls().errorLevel = result::error;
    if (Stack().empty())
        return MVError(errors::directoryStackEmpty);
    // A directory that is gone leaves the stack all the same: it must not bar the way to the ones below.
    const CString kept = Take(Stack().size() - 1, drive);
    const int code = ChangeDirectory(AddQuotes(kept));
    if (drive && DriveLetter(CurrentDirectory()) != drive)
        DisconnectDrive(drive);
    return code;
}

int Dirs_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"C", flags))
        return code;
    if (flags != 0) {
        Forget();
        return result::success;
    }
    arguments.Trim();
    const Entry entry = ReadEntry(arguments);
    if (!arguments.empty() && !entry.given)
        return UsageError();
    if (entry.given && (!entry.valid || entry.fromNewest == 0))
        return MVError(errors::noSuchStackEntry, arguments);
    if (Stack().empty())
        return MVError(errors::directoryStackEmpty);
    CString text;
    for (std::size_t n = 1; n <= Stack().size(); ++n)
        if (!entry.given || n == entry.fromNewest)
            text += Format(u"%3d  %s\r\n", n, Stack()[Stack().size() - n]);
    return Print(text) ? result::success : MVError(0);
}
