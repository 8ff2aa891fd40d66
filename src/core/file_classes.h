// The file types that the registry keeps: the type of each extension, and the command, icon and description
// of each type. Texts are as they are registered, variables not replaced. Changes answer 0 or a Windows error
// number.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

enum class ClassesOf {
    Everybody, // read: what holds for this user; written: for all users, as only administrators may
    User       // of this user alone, in front of everybody's
};

// What a type or an extension has a text for.
enum class ClassText {
    Itself,  // the type of an extension, the description of a type
    Command, // of the verb "open"
    Icon     // "file,number"
};

std::optional<CString> ReadClassText(ClassesOf whose, std::u16string_view name, ClassText which);
unsigned WriteClassText(ClassesOf whose, std::u16string_view name, ClassText which, std::u16string_view text);
unsigned RemoveClassText(ClassesOf whose, std::u16string_view name, ClassText which);
// A type with all that it holds.
unsigned RemoveClass(ClassesOf whose, std::u16string_view name);

// Those that have a text of the kind, in alphabetical order.
std::vector<CString> ClassNames(ClassesOf whose, ClassText which, bool extensions);

// The type that the user has chosen for an extension in the desktop's box, which no other program may change;
// "" when there is none.
CString ChosenClass(std::u16string_view extension);
