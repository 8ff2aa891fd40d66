// The extended history: each line that was typed at the prompt with its time, directory, duration and exit
// code, kept in the file MovaXHistory.txt of the user's local data. All shells of the user add to it, and the
// newest few thousand lines outlive them. The setting XHistory switches it off.
//
// What the command history leaves out (HistoryExclude, HistMin, lines that begin with "@") stays out of this
// one too.
#pragma once

#include <functional>
#include <vector>

#include "console/extended_records.h"
#include "text/cstring.h"

// Notes a line that somebody has typed and that is about to run. FinishExtendedEntry adds it to the file as
// soon as it has run; without a line noted that does nothing. A file that cannot be written is left alone:
// nobody wants an error behind each of his commands.
void BeginExtendedEntry(const CString& line);
void FinishExtendedEntry(int exitCode);

CString ExtendedHistoryFile();
// The oldest first; none when there is no file.
std::vector<ExtendedEntry> ExtendedHistory();
// Takes out what `drops` chooses. False, the reason in the thread's last error, when the file cannot be
// changed.
bool RemoveFromExtendedHistory(const std::function<bool(const ExtendedEntry&)>& drops);
