// Batch files in zip archives: the text is the first file of the archive.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/cstring.h"

bool IsZippedText(std::string_view file) noexcept;

// Fills `text` with the bytes that the archive `file`, read from the file `name`, holds. False after
// reporting what is wrong with it; encrypted texts are not read.
bool ZipUncompressBTM(std::string_view file, const CString& name, std::vector<char>& text);

// The archive that holds `text` as a file of the name; "" when it could not be made.
std::string ZipCompressBTM(std::string_view text, const CString& name);
