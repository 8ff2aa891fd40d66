// The core that SET, ALIAS and FUNCTION share, and UNSET, UNALIAS and UNFUNCTION: listing, showing, defining,
// reading from files and removing. Each command brings its stores and switches and turns the core's answers
// into its own messages.
#pragma once

#include <string_view>

#include "commands/definition_stores.h"
#include "text/cstring.h"

// What the core answers besides 0 and results whose error was reported.
namespace definition_result {
constexpr int usage = 1;           // nothing sensible was asked for
constexpr int notDefined = 0xFFFE; // no entry of that name
constexpr int noStore = 0xFFFF;    // the list that was asked for does not exist
} // namespace definition_result

struct DefinitionRequest {
    DefinitionStores stores;     // listed in this order
    bool defineInAll = false;    // else in the first only
    bool nameEndsAtBlank = true; // "name value" defines as well
    bool queryByPrefix = false;  // a bare name shows all entries that begin with it
    bool keepExisting = false;
    bool fromFiles = false; // the text names files to read, or standard input when it is empty
    bool pauses = false;
    bool sorted = false;
    CString typeSpec;
};

// Carries out what the text behind the switches asks for.
int RunDefinitions(CString& text, const DefinitionRequest& request);

struct RemovalRequest {
    DefinitionStores stores; // an entry is removed from each
    bool fromFiles = false;
};

// Removes the entries that the text names, wildcards allowed.
int RemoveDefinitions(CString& text, const RemovalRequest& request);

// The local and the global list of a kind, as far as they exist and the switches /L and /G ask for them; none
// asks for both.
DefinitionStores ListStores(ListKind kind, bool onlyLocal, bool onlyGlobal);

// Answers "/=", the request for a dialog, which is not there yet; true when `code` is the result.
bool RefuseDialog(std::u16string_view text, int& code);
