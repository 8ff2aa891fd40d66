// The properties of files that the Windows shell knows: those of pictures, music, documents and so on. Each
// question loads the shell's property system when it is first asked, and may wait for its handlers.
#pragma once

#include <string_view>

#include "text/cstring.h"

// The property as a text in the user's language, by its canonical name ("System.Author"; "System." may be
// left out). "" when the file or the property does not exist, or has no value.
CString FileProperty(std::u16string_view file, std::u16string_view property);

// An item of the summary that compound documents hold, by its English name: Title, Subject, Author, Keywords,
// Comments, Template, LastAuthor, Revision, Application, Created, Saved, Printed, Pages, Words, Characters.
// "" as above; times are "2026-11-01 08:05:09" in UTC.
CString SummaryProperty(std::u16string_view file, std::u16string_view item);
