#include "commands/switch.h"

#include "batch/switch_block.h"
#include "engine/results.h"

const CommandHelp switchHelp = {
    u"Runs one of several groups of lines.",
    u"SWITCH value\n"
    u"CASE value [.OR. value ...]\n"
    u"  commands\n"
    u"[DEFAULT\n"
    u"  commands]\n"
    u"[CASEALL\n"
    u"  commands]\n"
    u"ENDSWITCH",
    u"The first CASE that fits is taken; a value that begins with \"::\" is a regular expression. The lines "
    u"behind CASEALL run for every CASE that was taken.",
    u"switch %@lower[%1]\n"
    u"case y .or. yes\n"
    u"  echo agreed\n"
    u"default\n"
    u"  echo refused\n"
    u"endswitch",
};

int Switch_Command(CString& arguments) { return ChooseGroup(arguments.Trim()); }
int Case_Command(CString&) { return LeaveGroup(); }
int Endswitch_Command(CString&) { return result::success; }
