// The text of a file that is read as a whole, and the bytes that it becomes again, in the encoding that it
// was found in.
#pragma once

#include <string>
#include <string_view>

#include "text/cstring.h"
#include "text/encoding.h"

// `codePage` is meant where the encoding is none of Unicode's.
CString DecodeWhole(std::string_view bytes, const RecognisedEncoding& found, unsigned codePage);

// Text that the code page lacks makes it UTF-8 with a mark.
std::string EncodeWhole(const CString& text, const RecognisedEncoding& wanted, unsigned codePage);
