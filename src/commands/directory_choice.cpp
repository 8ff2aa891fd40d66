#include "commands/directory_choice.h"

#include <algorithm>

#include <windows.h>

#include "commands/directory.h"
#include "console/popup_style.h"
#include "console/system_console.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "files/directory_search.h"
#include "files/known_directories.h"
#include "lang/file_messages.h"
#include "platform/directory.h"
#include "platform/file_facts.h"
#include "platform/volumes.h"
#include "text/cell_width.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

// The number of the line, or npos.
std::size_t PickInWindow(const std::vector<CString>& directories, SystemEditorConsole& console)
{
    PopupRequest request = UsualPopup();
    request.place =
        PopupPlace({aIniFile.CDDWinLeft, aIniFile.CDDWinTop, aIniFile.CDDWinWidth, aIniFile.CDDWinHeight});
    for (const CString& directory : directories)
        request.place.columns = std::max(request.place.columns, TextWidth(directory) + 2);
    request.title = LoadMessage(message::directoryListTitle);
    request.lines = directories;
    const PopupResult result = RunPopupList(console, std::move(request));
    return result.action == PopupAction::Selected ? result.line : CString::npos;
}

std::size_t PickByNumber(const std::vector<CString>& directories)
{
    for (std::size_t i = 0; i < directories.size(); ++i)
        PrintFormat(u"%3u  %s\r\n", i + 1, directories[i]);
    Print(LoadMessage(message::chooseDirectory));
    CString line;
    if (ReadInputLine(line, {}) != InputOutcome::Given)
        return CString::npos;
    const auto number = ParseInteger(line.Trim());
    const bool valid = number && *number >= 1 && *number <= static_cast<std::int64_t>(directories.size());
    return valid ? static_cast<std::size_t>(*number - 1) : CString::npos;
}

std::size_t Pick(const std::vector<CString>& directories)
{
    if (IsConsole(0) && IsConsole(1)) {
        SystemEditorConsole console;
        if (console)
            return PickInWindow(directories, console);
    }
    return PickByNumber(directories);
}

std::vector<CString> FixedDrives()
{
    std::vector<CString> roots;
    for (const char16_t letter : AllDrives()) {
        CString root = Format(u"%c:\\", letter);
        if (DriveKind(root) == DRIVE_FIXED)
            roots.push_back(root);
    }
    return roots;
}

bool IsMissing(unsigned reason) { return reason == ERROR_FILE_NOT_FOUND || reason == ERROR_PATH_NOT_FOUND; }

// "C:\ d:" as full names.
int ReadPlaces(std::u16string_view text, std::vector<CString>& places)
{
    for (const CString& one : SplitArguments(text, true, CurrentSyntax())) {
        CString name = CleanDirectoryName(one);
        if (name.size() == 2 && DriveLetter(name))
            name.Append(u'\\');
        if (!QueryIsDirectory(name))
            return NoDirectory(one);
        places.push_back(FullPathName(name));
    }
    return result::success;
}

} // namespace

bool ChooseKnownDirectory(std::u16string_view name, CString& directory)
{
    directory.Clear();
    std::vector<CString> known;
    const auto match = static_cast<DirectoryMatch>(aIniFile.FuzzyCD);
    // Authors of .bat and .cmd files count on CD to stay where it is when there is no such directory.
    const bool guesses = !CurrentSyntax().openQuotes;
    if (match == DirectoryMatch::None || DriveLetter(name) || !guesses)
        return false;
    if (!ReadKnownDirectories(known)) {
        if (const unsigned reason = GetLastError(); !IsMissing(reason))
            MVError(reason, KnownDirectoriesFile());
        return false;
    }
    std::vector<CString> found = MatchDirectories(known, name, match);
    std::erase_if(found, [](const CString& one) { return !QueryIsDirectory(one); });
    if (found.empty())
        return false;
    const std::size_t picked = found.size() == 1 ? 0 : Pick(found);
    if (picked < found.size())
        directory = found[picked];
    return true;
}

int NoteDirectories(std::u16string_view places, NoteMode mode)
{
    std::vector<CString> roots;
    if (const int code = ReadPlaces(places, roots))
        return code;
    if (roots.empty())
        roots = mode == NoteMode::Anew ? FixedDrives() : std::vector<CString>{CurrentDirectory()};
    std::vector<CString> known;
    if (mode == NoteMode::Renew && !ReadKnownDirectories(known)) {
        const unsigned reason = GetLastError();
        return IsMissing(reason) ? MVError(errors::noTreeDatabase) : MVError(reason, KnownDirectoriesFile());
    }
    for (const CString& root : roots) {
        PrintLine(LoadMessage(message::notingDirectories, root));
        RemoveBelow(known, root);
        const std::vector<CString> below = DirectoriesBelow(root);
        known.insert(known.end(), below.begin(), below.end());
    }
    if (const unsigned code = WriteKnownDirectories(known))
        return MVError(code, KnownDirectoriesFile());
    return PrintLine(LoadMessage(message::directoriesNoted, Format(u"%u", known.size()))) ? result::success
                                                                                          : MVError(0);
}
