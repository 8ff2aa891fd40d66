#include "commands/directory.h"

#include <algorithm>

#include <windows.h>

#include "commands/directory_choice.h"
#include "commands/directory_variables.h"
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
#include "text/path_names.h"
#include "text/words.h"

#define DIRECTORY_SEARCH_HELP                                                                                \
    u"/N  do not search for a directory that is not there\n"                                                 \
    u"/S  note the directories below these places, without any those of all fixed drives, for searches by "  \
    u"name; what was noted before is forgotten\n"                                                            \
    u"/U  note again what is below these places, without any below the current directory\n"

#define DIRECTORY_SEARCH_RULES                                                                                  \
    u"A name that is no directory here is looked for in the directories that the variable CDPATH lists, "       \
    u"parted by \";\". Then, as the setting FuzzyCD tells, it is searched for among the noted "                 \
    u"directories: whole names (1), beginnings of names (2) or any part of them (3), with wildcards, too; "     \
    u"\"src\\inc\" means one in another. One of several is picked from a list. In .bat and .cmd files nothing " \
    u"is searched. The shell's own commands keep what is noted up to date."

const CommandHelp cdHelp = {
    u"Shows or changes the current directory.",
    u"CD [/D] [/N] [directory]\n"
    u"CD drive:\n"
    u"CD -\n"
    u"CD /S | /U [place ...]",
    u"/D  change to the directory's drive as well\n" //
    DIRECTORY_SEARCH_HELP                            //
    u"Without a directory the current one is shown, with a drive alone the one of that drive. A directory "
    u"on another drive becomes that drive's own, and you stay where you are. \"..\" is the parent, each "
    u"further period goes one higher, \"-\" is the directory you came from. Quotes around a name with "
    u"blanks may be left out; wildcards go to the first directory that matches. name: stands for the "
    u"directory that the alias of that name holds. " DIRECTORY_SEARCH_RULES,
    u"cd ..\n"
    u"cd ...\\tools\n"
    u"cd \\Program Files\n"
    u"cd /d d:\\work",
};

const CommandHelp cddHelp = {
    u"Shows the current directory, or changes the drive and directory.",
    u"CDD [/N] [directory | -]\n"
    u"CDD /A\n"
    u"CDD /S | /U [place ...]",
    u"/A  show the current directory of every drive\n" //
    DIRECTORY_SEARCH_HELP                              //
    u"As CD /D: a drive alone goes to the directory it was left in. " DIRECTORY_SEARCH_RULES,
    u"cdd d:\\work\n"
    u"cdd -\n"
    u"cdd /s c:\\work d:\\\n"
    u"cdd include",
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

// The directory of that name in one of those that CDPATH lists; "" for none.
CString DirectoryOnPath(const CString& name)
{
    CString path;
    if (IsAbsolutePath(name) || name.front() == u'\\' || name.front() == u'.' ||
        !(ReadEnvironment(u"CDPATH", path) || ReadEnvironment(u"_CDPATH", path)))
        return {};
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.Find(u';', at), path.size());
        const CString full = FullPathName(JoinPath(WithoutQuotes(path.Substr(at, end - at)), name));
        if (end > at && QueryIsDirectory(full))
            return full;
        at = end + 1;
    }
    return {};
}

enum class Search { Known, No };

// What a person has named. Empty: nothing, which was reported, unless the person chose so.
struct Meant {
    CString directory;
    bool searched = false; // it was looked for: wherever it is, that is where to go
};

Meant MeantDirectory(std::u16string_view name, Search search)
{
    CString target;
    if (CDAliases(CleanDirectoryName(name), target) != result::success)
        return {};
    target = CleanDirectoryName(target);
    if (target.empty()) {
        // As of a variable that is not set: what follows is not meant for where the shell is.
        NoDirectory(name, ERROR_PATH_NOT_FOUND);
        return {};
    }
    if (target == u"-" && !aTexts.previousDirectory.empty())
        return {aTexts.previousDirectory};
    if (DriveLetter(target) && target.size() == 2)
        return {DirectoryOfDrive(target[0])};
    CString found = EndsInWildcard(target) ? FirstMatchingDirectory(target) : DirectoryOrVariable(target);
    const DWORD reason = found.empty() ? GetLastError() : 0;
    if (!found.empty() && QueryIsDirectory(found))
        return {found};
    if (CString onPath = DirectoryOnPath(target); !onPath.empty())
        return {onPath, true};
    CString chosen;
    if (search == Search::Known && ChooseKnownDirectory(target, chosen))
        return {chosen, true};
    if (found.empty())
        NoDirectory(name, reason);
    return {found};
}

void NoteMove(const CString& old)
{
    const CString now = CurrentDirectory();
    if (EqualNoCase(now, old))
        return;
    aTexts.previousDirectory = old;
    NoteDirectoryChange(old, now);
    ApplyDirectoryVariables(now);
}

int GoTo(std::u16string_view name, OtherDrive otherDrive, Search search = Search::Known)
{
    const Meant meant = MeantDirectory(name, search);
    const CString& target = meant.directory;
    if (target.empty())
        return result::error;
    const CString old = CurrentDirectory();
    const char16_t drive = DriveLetter(target);
    const bool stays = otherDrive == OtherDrive::StayHere && !meant.searched;
    if (stays && drive && drive != DriveLetter(old))
        return MakeDirectoryOfDrive(target) ? result::success : NoDirectory(name);
    if (!MakeCurrent(target))
        return NoDirectory(name);
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

int GoAnywhere(std::u16string_view name, Search search = Search::Known)
{
    const CString clean = CleanDirectoryName(name);
    if (clean.size() == 2 && DriveLetter(clean))
        return GoToDrive(clean[0]);
    return GoTo(name, OtherDrive::GoThere, search);
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

namespace {

// The bits of the switches that CD and CDD share; CDD's own comes behind them.
constexpr std::u16string_view sharedSwitches = u"DNSU";
constexpr std::uint64_t goesThere = 1;
constexpr std::uint64_t noSearch = 2;
constexpr std::uint64_t notesAnew = 4;
constexpr std::uint64_t notesAgain = 8;
constexpr std::uint64_t showsAll = 16;

} // namespace

int NoDirectory(std::u16string_view name, unsigned code)
{
    const unsigned reason = code ? code : GetLastError();
    return MVError(reason == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : reason, name);
}

int Cd_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, sharedSwitches, flags, SwitchPlace::Leading))
        return code;
    if ((flags & (notesAnew | notesAgain)) != 0)
        return NoteDirectories(arguments, (flags & notesAnew) != 0 ? NoteMode::Anew : NoteMode::Renew);
    const CString name = CleanDirectoryName(arguments);
    if (arguments.Trim().empty())
        return ShowLine(CurrentDirectory());
    const bool goThere = (flags & goesThere) != 0;
    const Search search = (flags & noSearch) != 0 ? Search::No : Search::Known;
    if (name.size() == 2 && DriveLetter(name) && !goThere)
        return DriveExists(name[0]) ? ShowLine(DirectoryOfDrive(name[0])) : MVError(0, name);
    return goThere || name == u"-" ? GoAnywhere(arguments, search)
                                   : GoTo(arguments, OtherDrive::StayHere, search);
}

int Cdd_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, CString(sharedSwitches) + u"A", flags, SwitchPlace::Leading))
        return code;
    if ((flags & showsAll) != 0)
        return ShowEveryDrive();
    if ((flags & (notesAnew | notesAgain)) != 0)
        return NoteDirectories(arguments, (flags & notesAnew) != 0 ? NoteMode::Anew : NoteMode::Renew);
    if (arguments.Trim().empty())
        return ShowLine(CurrentDirectory());
    return GoAnywhere(arguments, (flags & noSearch) != 0 ? Search::No : Search::Known);
}
