#include "console/extended_history.h"

#include <memory>
#include <utility>

#include <windows.h>

#include "console/history_lock.h"
#include "engine/data_folder.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/state.h"
#include "expand/list_blocks.h"
#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/whole_file.h"
#include "text/format.h"

struct TypedLineNote {
    ExtendedEntry entry;
    std::uint64_t startedAt = 0; // PreciseTicks
};

namespace {

constexpr std::size_t mostBytes = std::size_t{8} << 20; // a file that has grown so long
constexpr std::size_t keptBytes = std::size_t{6} << 20; // is cut to the newest of these
constexpr std::size_t readBytes = std::size_t{64} << 20;

bool ReadFileBytes(std::string& bytes) { return ReadWholeFile(ExtendedHistoryFile(), bytes, readBytes); }

// Holds for as long as the file is written: a shell that cuts it must not lose what another adds.
void CutWhenLong()
{
    const std::optional<FileFacts> facts = ReadFileFacts(ExtendedHistoryFile());
    std::string bytes;
    if (facts && facts->size > mostBytes && ReadFileBytes(bytes))
        ReplaceWholeFile(ExtendedHistoryFile(), NewestRecords(bytes, keptBytes));
}

} // namespace

void BeginExtendedEntry(const CString& line)
{
    if (!aIniFile.XHistory || !IsConsole(0))
        return;
    std::shared_ptr<TypedLineNote>& note = Lists().typedLine;
    if (note) {
        // The command goes on over several lines.
        note->entry.line.Append(u"\n").Append(line);
        return;
    }
    note = std::make_shared<TypedLineNote>();
    note->entry = {FileTimeNow(), 0, 0, CurrentDirectory(), line};
    note->startedAt = PreciseTicks();
}

void FinishExtendedEntry(int exitCode)
{
    const std::shared_ptr<TypedLineNote> note = std::move(Lists().typedLine);
    if (!note)
        return;
    note->entry.milliseconds = (PreciseTicks() - note->startedAt) / 1000;
    note->entry.exitCode = exitCode;
    const HistoryGuard guard;
    CutWhenLong();
    AppendFile file;
    if (file.Open(ExtendedHistoryFile()))
        file.Append(WriteExtendedRecord(note->entry));
}

CString ExtendedHistoryFile() { return Format(u"%s\\MovaXHistory.txt", DataFolder()); }

std::vector<ExtendedEntry> ExtendedHistory()
{
    std::string bytes;
    if (!ReadFileBytes(bytes))
        return {};
    return ReadExtendedRecords(bytes);
}

bool RemoveFromExtendedHistory(const std::function<bool(const ExtendedEntry&)>& drops)
{
    const HistoryGuard guard;
    std::string bytes;
    if (!ReadFileBytes(bytes))
        return GetLastError() == ERROR_FILE_NOT_FOUND;
    std::string kept;
    for (const ExtendedEntry& entry : ReadExtendedRecords(bytes))
        if (!drops(entry))
            kept += WriteExtendedRecord(entry);
    return ReplaceWholeFile(ExtendedHistoryFile(), kept);
}
