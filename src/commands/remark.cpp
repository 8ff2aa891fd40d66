#include "commands/remark.h"

const CommandHelp remarkHelp = {
    u"Holds a remark: the rest of the line does not run.",
    u"REM [text]\n"
    u"REM > file",
    u"Command separators, redirections and variables in the text count as text. Only \"> file\" directly "
    u"behind the name is obeyed: it makes an empty file.",
    u"rem Everything behind this word & this too is ignored\n"
    u"rem > empty.txt",
};

int Remark_Command(CString&) { return result::success; }
