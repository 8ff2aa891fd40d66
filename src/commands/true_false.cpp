#include "commands/true_false.h"

const CommandHelp trueHelp = {
    u"Sets the error level to 1.",
    u"TRUE",
    u"As every result but 0 it counts as a failure: what follows \"&&\" does not run.",
    u"true & echo %?\n"
    u"true || echo this is shown",
};

const CommandHelp falseHelp = {
    u"Sets the error level to 0.",
    u"FALSE",
    u"The result 0 counts as success: what follows \"&&\" runs.",
    u"false & echo %?\n"
    u"false && echo this is shown",
};

int True_Command(CString&) { return 1; }

int False_Command(CString&) { return 0; }
