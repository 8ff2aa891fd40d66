// Giving a setting a value from text, and telling its value as text.
//
// The rules of each type stand here and nowhere else. A value that is refused leaves the setting as it was.
// Texts of an INIFILE are owned by this room: set, replaced and freed only through these functions.
#pragma once

#include <string_view>

#include "config/directives.h"
#include "text/cstring.h"

// What checking a path needs to know of the disk.
class PathCheck {
public:
    virtual ~PathCheck() = default;
    virtual bool IsDirectory(std::u16string_view path) = 0;
};

// Takes the value at the start of `text`, which may end with a comment (";") or a tab as the type allows.
// 0, or the code of lang/messages.h that names what is wrong. An Include row takes nothing and answers 0.
unsigned ApplyValue(const Directive& directive, std::u16string_view text, INIFILE& ini, PathCheck& disk);

// The value: a character as itself, numbers and colours in decimal, a choice by its name, texts as they
// stand, passwords always empty. False for Include and for a choice outside its list.
bool FormatValue(const Directive& directive, const INIFILE& ini, CString& value);

// The text of a string, path or password setting, empty when it is not set. Passwords are told in clear.
std::u16string_view SettingString(const Directive& directive, const INIFILE& ini);

// Replaces a text setting; an empty text makes it "not set".
void SetSettingString(const Directive& directive, INIFILE& ini, std::u16string_view text);

void ResetValue(const Directive& directive, INIFILE& ini);

// Every setting to its default. Texts are forgotten, not freed: the record may be fresh memory.
void IniClear(INIFILE* ini);

// Frees every text and makes it "not set".
void FreeSettingStrings(INIFILE& ini);
