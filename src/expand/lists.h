// Aliases, user functions, environment variables and array elements: finding and changing them, and the
// blocks of memory that the lists (and both histories) live in.
//
// A list is local (this process) or global (all shells of this user, in a shared section). Lookups take no
// lock: a reader that meets a change reads again. Every change of an alias or function list takes the lock
// "MVListSemaphore". Environment variables are kept by the system (platform/environment.h); here are the
// rules by which the shell sets them.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "expand/arrays.h"
#include "expand/packed_list.h"
#include "text/cstring.h"

enum class ListKind { Aliases, Functions, History, DirHistory, Count };
enum class ListScope { Local, Global };

// Where an entry is kept.
enum class VariableStore {
    Environment,
    ArrayElement,
    LocalAliases,
    GlobalAliases,
    LocalFunctions,
    GlobalFunctions
};
VariableStore StoreOf(ListKind kind, ListScope scope); // aliases and functions only

// The value of an alias or function, the local list before the global one. `isLocal`, if given, tells which
// it came from. `name` ends at its "=", if it has one.
bool GetAlias(std::u16string_view name, CString& value, bool* isLocal = nullptr);
bool GetFunction(std::u16string_view name, CString& value, bool* isLocal = nullptr);
// The value that one store holds. Aliases are found by their abbreviations, too.
bool GetVariableList(std::u16string_view name, VariableStore store, CString& value);

// Defines, replaces or (empty value) deletes one entry; `entry` is brought into the form "name=value" of its
// store. `typeSpec`, for the environment only, is "type" or "type:description": the value must be of that
// type (see typed_value.h). 0; result::error when reported; protectedVariable when the name may not be set.
constexpr int protectedVariable = -1;
int AddVariableToList(CString& entry, VariableStore store, std::u16string_view typeSpec = {});
// Sets an environment variable from "name=value".
int SetEVariable(std::u16string_view entry);

bool QueryEnvironmentVariable(std::u16string_view name);
ArrayTable& ArrayVariables();
int QueryArrayVariable(std::u16string_view name); // its index, or -1
// Reads one element, the text of its indexes between the brackets. 0, or result::error when reported.
int QueryArrayElement(std::u16string_view name, std::u16string_view indexes, CString& value);
// Reports what was wrong with `element`; 0 for ArrayStatus::Ok.
int ReportArrayStatus(ArrayStatus status, std::u16string_view element);

// All entries of a list, in its order, or of the environment.
std::vector<CString> ListEntries(VariableStore store);
bool QueryListExists(VariableStore store);

// Creates, resizes or drops the lists as the settings say; called at start-up and when settings change.
void InitializeLocalGlobalLists();
// The block of a list, without memory when there is no such list. Whoever changes a history block brings
// his own lock.
ListBlock QueryListBlock(ListKind kind, ListScope scope);

// A number that is another one after every change of the local or the global list, by whatever shell.
std::uint64_t ListChanges(ListKind kind);

// What a local list holds, to be put back later (SETLOCAL).
CString SaveLocalList(ListKind kind);
void RestoreLocalList(ListKind kind, std::u16string_view saved);

// Announces environment changes to other programs, if there were any and SettingChange asks for it.
void UpdateEnvironment();
// Tells all windows that the environment of this level has changed.
enum class EnvironmentLevel { Process, System, User };
void AnnounceEnvironment(EnvironmentLevel level);

// Variables whose change must take effect at once. The handler is called with the new value before it is
// set and answers 0, or the result that refuses it. Sorted by name; the rows stand in
// commands/watched_variables.cpp.
struct WatchedVariable {
    const char16_t* name;
    int (*changing)(std::u16string_view value);
};
extern const WatchedVariable aWatchedVariables[];
extern const int nWatchedVariables;
