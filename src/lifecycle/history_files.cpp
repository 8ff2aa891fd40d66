#include "lifecycle/history_files.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <windows.h>

#include "console/history.h"
#include "engine/command_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/console_messages.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/named_lock.h"
#include "platform/standard_handles.h"
#include "platform/whole_file.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

struct HistoryFile {
    ListKind kind;
    SettingText INIFILE::*name;
    const char16_t* command; // that prints the list, whatever aliases there are
};

constexpr HistoryFile historyFiles[] = {
    {ListKind::History, &INIFILE::HistFile, u"*history"},
    {ListKind::DirHistory, &INIFILE::DirHistFile, u"*dirhistory"},
};

// A relative name is taken from the directory that the shell was started in: it may be in another by the time
// it ends.
CString NameOf(const HistoryFile& file)
{
    const CString name = WithoutQuotes(CString(aIniFile.*file.name));
    if (name.empty() || IsDeviceName(name) || name[1] == u':' || name[0] == u'\\' || name[0] == u'/')
        return name;
    return FullPathName(Format(u"%s\\%s", aTexts.startDirectory, name));
}

// What a file held when it was last read or written here. Nothing is known of one that could not be read.
struct KnownFile {
    CString name;
    std::optional<FileFacts> facts;
    std::vector<CString> lines; // of a list of this shell's own; shells that share one see all of it
};

KnownFile knownFiles[std::size(historyFiles)];

KnownFile& KnownOf(const HistoryFile& file) { return knownFiles[&file - historyFiles]; }

bool IsOwn(const HistoryFile& file) { return HistoryExists({file.kind, ListScope::Local}); }

void NoteContents(const HistoryFile& file, const CString& name)
{
    KnownFile& known = KnownOf(file);
    known.name = name;
    known.facts = ReadFileFacts(name);
    known.lines = IsOwn(file) ? HistoryLines({file.kind, {}}) : std::vector<CString>();
}

bool IsUnchanged(const KnownFile& known, const FileFacts& facts)
{
    return known.facts && known.facts->size == facts.size &&
           CompareFileTime(&known.facts->written, &facts.written) == 0;
}

// Typed lines may hold any control character but this one.
bool IsText(std::string_view beginning)
{
    return RecogniseEncoding(beginning).encoding == TextEncoding::Utf16 ||
           beginning.find('\0') == beginning.npos;
}

// 0 when it is a history, or none yet.
unsigned WhyUnusable(const CString& name)
{
    constexpr std::size_t judgedBytes = 65536;
    std::string beginning;
    if (ReadWholeFile(name, beginning, judgedBytes))
        return IsText(beginning) ? 0 : errors::notAHistory;
    const unsigned reason = GetLastError();
    return reason == ERROR_FILE_NOT_FOUND ? 0 : reason;
}

// What cannot be read is not overwritten either; a person is told once.
bool MayUse(const HistoryFile& file, const CString& name)
{
    static bool told[std::size(historyFiles)];
    const unsigned reason = WhyUnusable(name);
    bool& known = told[&file - historyFiles];
    if (reason != 0 && !std::exchange(known, true))
        MVError(reason, name);
    return reason == 0;
}

// Text of any language survives, and redirection is not switched off, for as long as this lives.
class PlainOutput {
public:
    PlainOutput() : utf8(aIniFile.UTF8Output), mask(aGlobals.expansionMask)
    {
        aIniFile.UTF8Output = 1;
        aGlobals.expansionMask = 0;
    }
    PlainOutput(const PlainOutput&) = delete;
    PlainOutput& operator=(const PlainOutput&) = delete;
    ~PlainOutput()
    {
        aIniFile.UTF8Output = utf8;
        aGlobals.expansionMask = mask;
    }

private:
    SettingChoice utf8;
    unsigned mask;
};

bool WriteTo(const HistoryFile& file, const CString& name)
{
    return Command_S(Format(u"%s >! \"%s\"", file.command, name), 0) == result::success;
}

bool MakeFile(const CString& name)
{
    return static_cast<bool>(OwnedHandle(CreateFileW(SystemPath(name).w(), GENERIC_WRITE, 0, nullptr,
                                                     CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

// Writes a new file and puts it in the place of the old one, where the folder and the old file allow that.
void Write(const HistoryFile& file, const CString& name)
{
    const CString unfinished = Format(u"%s.%u", name, unsigned{GetCurrentProcessId()});
    const auto facts = ReadFileAttributes(name);
    const bool plain = !facts || (*facts & (FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_READONLY)) == 0;
    if (!plain || IsDeviceName(name) || !MakeFile(unfinished)) {
        WriteTo(file, name);
        return;
    }
    if (WriteTo(file, unfinished)) {
        if (MoveFileExW(SystemPath(unfinished).w(), SystemPath(name).w(), MOVEFILE_REPLACE_EXISTING))
            return;
        MVError(GetLastError(), name);
    }
    DeleteFileW(SystemPath(unfinished).w());
}

// What others have written to the file since it was read here, or all when it was not, comes before the first
// line that is new here. What a person has deleted here does not come back. False when the file cannot be
// read.
bool TakeOthersLines(const HistoryFile& file, const CString& name)
{
    const KnownFile& known = KnownOf(file);
    const bool isKnown = EqualNoCase(known.name, name);
    const auto facts = ReadFileFacts(name);
    if (!facts || (isKnown && (!IsOwn(file) || IsUnchanged(known, *facts))))
        return true;
    const HistoryList list{file.kind, {}};
    std::vector<CString> own = HistoryLines(list);
    ClearHistory(list);
    if (!ReadHistoryFile(list, name)) {
        MVError(GetLastError(), name);
        AddHistoryLines(list, own);
        return false;
    }
    std::vector<CString> others = HistoryLines(list);
    std::unordered_set<std::u16string_view> before;
    if (isKnown)
        before.insert(known.lines.begin(), known.lines.end());
    const auto isKnownLine = [&](const CString& line) { return before.contains(line.view()); };
    std::erase_if(others, isKnownLine);
    own.insert(std::find_if_not(own.begin(), own.end(), isKnownLine), others.begin(), others.end());
    ClearHistory(list);
    AddHistoryLines(list, own);
    return true;
}

} // namespace

void ReadHistoryFiles()
{
    if (Tls().pipeChild)
        return;
    for (const HistoryFile& file : historyFiles) {
        const CString name = NameOf(file);
        const HistoryList list{file.kind, {}};
        if (name.empty() || IsDeviceName(name) || !MayUse(file, name))
            continue;
        if (!HistoryLines(list).empty() || ReadHistoryFile(list, name) || !ReadFileAttributes(name))
            NoteContents(file, name);
    }
}

void WriteHistoryFiles()
{
    if (Tls().pipeChild || KindOfHandle(StandardHandle(1)) == HandleKind::Pipe)
        return;
    const PlainOutput plain;
    for (const HistoryFile& file : historyFiles) {
        const CString name = NameOf(file);
        if (name.empty() || !HistoryExists({file.kind, {}}))
            continue;
        if (IsDeviceName(name)) {
            Write(file, name);
            continue;
        }
        // Of shells that end together each finds what the one before it has written.
        NamedLock lock(u"MVHistoryFiles");
        const auto guard = lock.Take();
        if (MayUse(file, name) && TakeOthersLines(file, name)) {
            Write(file, name);
            NoteContents(file, name);
        }
    }
}
