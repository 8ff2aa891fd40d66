// The user's own completion: batch files that TABCOMPLETE has registered for some commands or for all.
//
// A file is called with the command's name, the word that has been typed so far and the number of the
// argument (from 1; 0 for the command itself), and finds more in the variables COMPLETE_LINE,
// COMPLETE_CURSOR (from 0), COMPLETE_COMMAND, COMPLETE_WORD and COMPLETE_ARGUMENT. Every line that it writes
// is a candidate; what stands behind a tab tells about it. Those that do not go on from the typed word are
// left out.
#pragma once

#include <string_view>
#include <vector>

#include "console/completion_source.h"
#include "console/completion_word.h"
#include "text/cstring.h"

struct CompletionScript {
    CString file;     // full name
    CString commands; // names parted by blanks, wildcards allowed; "" for all
};
// In the order in which they are asked: the newest first.
const std::vector<CompletionScript>& CompletionScripts();
// A file that is registered already gets the new commands.
void RegisterCompletionScript(CompletionScript script);
bool RemoveCompletionScript(std::u16string_view file); // false when it was not registered
void RemoveCompletionScripts();

// What the first file that knows something offers.
std::vector<CompletionCandidate> AskCompletionScripts(const CompletionWord& word, std::u16string_view line,
                                                      std::size_t cursor);
