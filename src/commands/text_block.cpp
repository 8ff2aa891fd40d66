#include "commands/text_block.h"

#include "batch/switch_block.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"

const CommandHelp textHelp = {
    u"Writes lines of the batch file as they stand.",
    u"TEXT\n"
    u"lines\n"
    u"ENDTEXT",
    u"Nothing in the lines is expanded. Redirection and pipes behind TEXT take them all.",
    u"text > readme.txt\n"
    u"100% & more\n"
    u"endtext",
};

const CommandHelp commentHelp = {
    u"Passes over lines of the batch file.",
    u"COMMENT\n"
    u"lines\n"
    u"ENDCOMMENT",
    u"Nothing in the lines is looked at: they may hold anything but a line with ENDCOMMENT alone.",
    u"comment\n"
    u"Nothing here runs.\n"
    u"endcomment",
};

int Text_Command(CString&)
{
    ReadTextBlock(u"ENDTEXT", [](const CString& line) { PrintLine(line); });
    return result::success;
}

int Comment_Command(CString&)
{
    if (Tls().Frame())
        ReadTextBlock(u"ENDCOMMENT", nullptr);
    return result::success;
}
