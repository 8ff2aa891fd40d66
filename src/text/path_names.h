// Taking file names apart as text: nothing here asks whether a file exists.
//
// Both separators count ("\" and "/"), and a drive letter's colon parts like one. Names with the "\\?\"
// prefix work too. Every floor uses these, so that commands, functions and the path search agree where a
// file's name and its extension begin.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/cstring.h"

constexpr bool IsPathSeparator(char16_t unit) noexcept { return unit == u'\\' || unit == u'/'; }

// Where the last component begins: behind the last separator or the drive's colon.
std::size_t FileNameStart(std::u16string_view path) noexcept;
// The colon that parts "file" from "stream" or "stream:$DATA"; npos when there is none.
std::size_t StreamColon(std::u16string_view path) noexcept;
// Where the extension begins: the last period of the last component, or the end of the text. The names "."
// and ".." have none.
std::size_t ExtensionStart(std::u16string_view path) noexcept;

// The folder with the separator or colon at its end; "" when there is none.
std::u16string_view DirectoryPart(std::u16string_view path) noexcept;
std::u16string_view FileNamePart(std::u16string_view path) noexcept;
// With its period; "" when there is none.
std::u16string_view ExtensionPart(std::u16string_view path) noexcept;

// Whether it says more than a bare name: a folder or a drive.
inline bool HasDirectory(std::u16string_view path) noexcept { return FileNameStart(path) > 0; }
// "C:\..." and "\\..." : independent of the current directory and drive.
bool IsAbsolutePath(std::u16string_view path) noexcept;
// "*" or "?", the prefix "\\?\" aside.
bool HasWildcards(std::u16string_view path) noexcept;

// `name` in `directory`, with one separator between them; an empty directory adds nothing.
CString JoinPath(std::u16string_view directory, std::u16string_view name);

// An absolute name with the prefix "\\?\" ("\\?\UNC\" for one on a server), so that the system takes it as it
// stands.
CString LiteralPath(std::u16string_view path);
// `name` in `directory` (full, with a separator at its end), as a listing of the directory told it: where the
// system would take it for another name (a period or a blank at its end, a device's name) it is made literal.
CString PathOfEntry(std::u16string_view directory, std::u16string_view name);
// Whether a directory on the way has a name that the system would change: a period or a blank at its end.
bool HasOddDirectory(std::u16string_view path) noexcept;

// Without separators at its end, unless it is a root ("\", "C:\").
std::u16string_view WithoutEndSeparators(std::u16string_view path) noexcept;

// A name that the system opens as a device wherever it stands: CON, PRN, AUX, NUL, COM1 to COM9, LPT1 to
// LPT9, CONIN$, CONOUT$; a colon behind it is allowed. Names with an extension are files.
bool IsDeviceName(std::u16string_view name) noexcept;
// Whether some systems open it as a device although an extension stands behind: "nul.txt".
bool MayMeanDevice(std::u16string_view name) noexcept;

// Whether the text is a URL: "scheme://..." or "mailto:...".
bool QueryIsURL(std::u16string_view text) noexcept;
