// The settings of this shell: where they come from at start-up, and changing and asking them while it runs.
//
// Start-up calls InitializeIniFile, DefaultINI and, for a file named on the command line, ProcessINI; the
// rest of the program reads aIniFile. The cursor shape and the country's formats that depend on settings are
// the console floor's work afterwards.
#pragma once

#include <cstddef>
#include <string_view>

#include "config/provenance.h"
#include "engine/inifile.h"
#include "platform/named_lock.h"
#include "text/cstring.h"

constexpr std::size_t largestIniFile = std::size_t{16} << 20; // bytes; more is no settings file

// Every setting to its default, or to the parent shell's when this shell is to inherit: it shares the
// parent's console, or stands at the right side of the parent's pipe (Tls().pipeChild), and
// aGlobals.noInheritance is off. Sets aGlobals.secondary. Call once; aTexts.executable must be known.
void InitializeIniFile();

// Loads the INI file `name` from the first of its places that has one, unless a file is loaded already, and
// publishes the settings for child shells. A shell that inherited takes from this file, and from the one its
// parent used, only what it does not inherit: the sections Secondary and Disabled and the keys. The right
// side of a pipe takes Disabled alone.
void DefaultINI(std::u16string_view name);

// Loads the named file ("@" in front is passed over), which becomes aTexts.iniFile. 0, or 2 when it cannot
// be read, which is not reported; bad lines are.
int ProcessINI(std::u16string_view name);

// Publishes the settings for child shells. Whoever changes aIniFile other than through this room calls it.
void SaveIniData();

// Obeys the directive in the first argument of `text` behind its first two characters ("//Name=value").
// 0, or 2 when it is refused, which is reported.
int SetINIDirective(std::u16string_view text, SettingOrigin origin = SettingOrigin::Command);

// Obeys one line as if it stood in an INI file. 0, or 2 when it is refused; the report names the setting and
// the line.
int ObeyIniLine(std::u16string_view line, SettingOrigin origin);

// The setting of that index back to its default.
void ResetSetting(int directive);

// Held while an INI file is changed, by all shells.
NamedLock::Guard LockIniFiles();

// The value of the named setting as text, passwords always empty. 0, or 87 (the invalid parameter code) for
// an unknown name, an Include and a choice outside its list.
int GetOptionValue(std::u16string_view name, CString& value);

// The same into a buffer of `size` units, cut to fit and always ended by a NUL.
int QueryOptionValue(const char16_t* name, char16_t* buffer, std::size_t size);

// Where the setting got its value: "default", "C:\MOVA.INI [12]", "start option" ... by directive index.
CString SettingSourceText(int directive);
