#include "commands/prompt.h"

#include "expand/lists.h"

const CommandHelp promptHelp = {
    u"Sets the prompt, or puts back the usual one.",
    u"PROMPT [text]",
    u"The text may hold these codes, in either case:\n"
    u"$P  current directory            $N  its drive letter\n"
    u"$W  current directory, shortened $M  remote name of a network drive\n"
    u"$Xd:  directory of drive d       $+  a plus sign for each directory PUSHD keeps\n"
    u"$D  date                         $I  date as 2026-01-31\n"
    u"$T  time                         $K  time without seconds\n"
    u"$R  error level                  $U  user name\n"
    u"$V  version                      $Z  number of shells this one runs in\n"
    u"$G  >    $L  <    $B  |    $Q  =    $A  &    $C  (    $F  )    $$  $\n"
    u"$S  blank    $_  line break    $E  escape character    $H  take back a character\n"
    u"Variables are expanded each time the prompt is shown; double their % to get it past PROMPT itself. "
    u"Without text the prompt is $P$G.",
    u"prompt $p$g\n"
    u"prompt $t$h$h$h$s$w$g\n"
    u"prompt %%_batch:$p$g",
};

int Prompt_Command(CString& arguments)
{
    arguments.TrimLeft(u" \t=");
    return SetEVariable(CString(u"PROMPT=") + arguments);
}
