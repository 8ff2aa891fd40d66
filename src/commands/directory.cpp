#include "commands/directory.h"

#include "console/history.h"
#include "core/alias_extras.h"
#include "core/command_switches.h"
#include "engine/directory_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "platform/directory.h"
#include "platform/environment.h"
#include "platform/file_facts.h"

const CommandHelp cdHelp = {
    u"Shows or changes the current directory.",
    u"CD\n"
    u"CD [/D] directory\n"
    u"CD drive:\n"
    u"CD -",
    u"/D  change to the directory's drive as well\n"
    u"Without a directory the current one is shown, with a drive alone the one of that drive. A directory on "
    u"another drive becomes that drive's own, and you stay where you are. \"..\" is the parent, each further "
    u"period goes one higher, \"-\" is the directory you came from. Quotes around a name with blanks may be "
    u"left out; wildcards go to the first directory that matches. name: stands for the directory that the "
    u"alias "
    u"of that name holds.",
    u"cd ..\n"
    u"cd \\Program Files\n"
    u"cd ...\\tools\n"
    u"cd /d d:\\work",
};

const CommandHelp cddHelp = {
    u"Shows the current directory, or changes the drive and directory.",
    u"CDD [directory | -]\n"
    u"CDD /A",
    u"/A  show the current directory of every drive\n"
    u"As CD /D: a drive alone goes to the directory it was left in.",
    u"cdd d:\\work\n"
    u"cdd -\n"
    u"cdd /a",
};

const CommandHelp pushdHelp = {
    u"Keeps the current directory for POPD, and changes the drive and directory.",
    u"PUSHD [directory]",
    u"Without a directory the current one is kept and you stay there. DIRS shows what is kept.",
    u"pushd d:\\work\n"
    u"pushd ..",
};

const CommandHelp popdHelp = {
    u"Goes back to the directory that PUSHD kept last.",
    u"POPD [*]",
    u"*  forget all kept directories and stay",
    u"popd\n"
    u"popd *",
};

const CommandHelp dirsHelp = {
    u"Lists the directories that PUSHD keeps, the one that POPD returns to first.",
    u"DIRS",
    u"",
    u"dirs",
};

namespace {

enum class OtherDrive { StayHere, GoThere };

// While DirEnv is on, a name that is no directory may be that of a variable that holds one.
CString DirectoryOrVariable(const CString& name)
{
    CString full = FullPathName(name);
    if (!aIniFile.DirEnv || QueryIsDirectory(full))
        return full;
    CString value;
    if (ReadEnvironment(name, value))
        value = FullPathName(CleanDirectoryName(value));
    return value.empty() || !QueryIsDirectory(value) ? full : value;
}

// The full name that the person means; empty when wildcards match nothing (reported).
CString MeantDirectory(std::u16string_view name)
{
    CString target;
    if (CDAliases(CleanDirectoryName(name), target) != result::success)
        return {};
    target = CleanDirectoryName(target);
    if (target == u"-" && !aTexts.previousDirectory.empty())
        return aTexts.previousDirectory;
    if (DriveLetter(target) && target.size() == 2)
        return DirectoryOfDrive(target[0]);
    if (EndsInWildcard(target)) {
        target = FirstMatchingDirectory(target);
        if (target.empty())
            MVError(0, name);
        return target;
    }
    return DirectoryOrVariable(target);
}

void NoteMove(const CString& old)
{
    const CString now = CurrentDirectory();
    if (EqualNoCase(now, old))
        return;
    aTexts.previousDirectory = old;
    NoteDirectoryChange(old, now);
}

int GoTo(std::u16string_view name, OtherDrive otherDrive)
{
    const CString target = MeantDirectory(name);
    if (target.empty())
        return result::error;
    const CString old = CurrentDirectory();
    const char16_t drive = DriveLetter(target);
    if (otherDrive == OtherDrive::StayHere && drive && drive != DriveLetter(old))
        return MakeDirectoryOfDrive(target) ? result::success : MVError(0, name);
    if (!MakeCurrent(target))
        return MVError(0, name);
    NoteMove(old);
    return result::success;
}

int GoToDrive(char16_t letter)
{
    const CString old = CurrentDirectory();
    const CString kept = DirectoryOfDrive(letter);
    CString drive(1, UpperCase(letter));
    drive += u":";
    // The directory it was left in may be gone by now.
    if (!DriveExists(letter) || (!MakeCurrent(kept) && !MakeCurrent(drive + u"\\")))
        return MVError(0, drive);
    NoteMove(old);
    return result::success;
}

int GoAnywhere(std::u16string_view name)
{
    const CString clean = CleanDirectoryName(name);
    if (clean.size() == 2 && DriveLetter(clean))
        return GoToDrive(clean[0]);
    return GoTo(name, OtherDrive::GoThere);
}

int ShowEveryDrive()
{
    CString text;
    for (const char16_t letter : AllDrives())
        text.Append(DirectoryOfDrive(letter)).Append(u"\r\n");
    return Print(text) ? result::success : MVError(0);
}

int ShowLine(std::u16string_view text) { return PrintLine(text) ? result::success : MVError(0); }

} // namespace

int ChangeDrive(char16_t letter) { return Tls().errorLevel = GoToDrive(letter); }

int ChangeDirectory(std::u16string_view name) { return Tls().errorLevel = GoAnywhere(name); }

int Cd_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"D", flags, SwitchPlace::Leading))
        return code;
    const CString name = CleanDirectoryName(arguments);
    if (name.empty())
        return ShowLine(CurrentDirectory());
    const bool goThere = flags & 1;
    if (name.size() == 2 && DriveLetter(name) && !goThere)
        return DriveExists(name[0]) ? ShowLine(DirectoryOfDrive(name[0])) : MVError(0, name);
    return goThere || name == u"-" ? GoAnywhere(arguments) : GoTo(arguments, OtherDrive::StayHere);
}

int Cdd_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"AD", flags, SwitchPlace::Leading))
        return code;
    if (flags & 1)
        return ShowEveryDrive();
    if (CleanDirectoryName(arguments).empty())
        return ShowLine(CurrentDirectory());
    return GoAnywhere(arguments);
}

int Pushd_Command(CString& arguments)
{
    const CString old = CurrentDirectory();
    if (aTexts.directoryStack.size() >= maximumDirectoryStack)
        return MVError(errors::directoryStackFull);
    if (!CleanDirectoryName(arguments).empty()) {
        if (const int code = GoAnywhere(arguments))
            return code;
    }
    aTexts.directoryStack.push_back(old);
    return result::success;
}

int Popd_Command(CString& arguments)
{
    arguments.Trim();
    if (arguments == u"*") {
        aTexts.directoryStack.clear();
        return result::success;
    }
    if (!arguments.empty())
        return UsageError();
    if (aTexts.directoryStack.empty())
        return MVError(errors::directoryStackEmpty);
    // A directory that is gone leaves the stack all the same: it must not bar the way to the ones below.
    const CString kept = aTexts.directoryStack.back();
    aTexts.directoryStack.pop_back();
    return GoTo(kept, OtherDrive::GoThere);
}

int Dirs_Command(CString&)
{
    const std::vector<CString>& stack = aTexts.directoryStack;
    if (stack.empty())
        return MVError(errors::directoryStackEmpty);
    CString text;
    for (std::size_t i = stack.size(); i > 0; --i)
        text += Format(u"%3d  %s\r\n", stack.size() - i + 1, stack[i - 1]);
    return Print(text) ? result::success : MVError(0);
}
