// Converting between UTF-16 and the code pages of Windows.
#pragma once

#include <string>
#include <string_view>

#include "text/cstring.h"

// The code page of redirected output and input: the console's when there is one, else the OEM page.
unsigned OutputCodePage();
unsigned InputCodePage();
// Changes both, for the console where there is one, else for this process alone. False, with the reason in
// the last error, for a code page that Windows does not have.
bool SetCodePage(unsigned codePage);

// Characters that the code page lacks become its default character.
std::string ToCodePage(std::u16string_view text, unsigned codePage);
CString FromCodePage(std::string_view bytes, unsigned codePage);
