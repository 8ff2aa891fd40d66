// Connecting drive letters to shares of other machines for a while.
#pragma once

#include <string_view>

// Gives a free letter, from Z down, to the share "\\server\share". 0 with the letter, or a Windows error
// number; ERROR_NO_MORE_DEVICES when no letter is free.
unsigned ConnectFreeDrive(std::u16string_view share, char16_t& letter);
// Takes the letter away again, although files may be open.
unsigned DisconnectDrive(char16_t letter);
