// The mark that browsers and mail programs put on files from elsewhere: a stream "Zone.Identifier" beside the
// file's own data.
#pragma once

#include <string_view>

// The zone that the text of such a stream names (0 this computer ... 4 restricted sites); -1 when it names
// none.
int ZoneOfStream(std::string_view text);
// The same for a file; -1 when it carries no mark.
int ZoneOfFile(std::u16string_view fileName);
