#include "commands/help_subjects.h"

#include "text/compare.h"
#include "text/words.h"

const std::vector<HelpSubject> helpSubjects = {
    {u"files", u"finding, showing, copying, renaming and deleting files",
     u"ATTRIB COPY COPYDIR DEDUPE DEL DESCRIBE DIFFER DIR ERASE EVERYTHING FFIND FILELOCK FSEARCH HASH HEAD "
     u"LINKS LIST MKLINK MKLNK MOVE MOVEDIR PDIR PRINT RECYCLE REN RENAME SELECT SREPLACE SYNC TAIL TOUCH "
     u"TPIPE TREE TRUENAME TYPE VIEW XSORT"},
    {u"directories", u"moving between directories, making and removing them",
     u"CD CDD CHDIR DIRENV DIRHISTORY DIRS MD MKDIR POPD PSUBST PUSHD RD REGDIR RMDIR"},
    {u"archives", u"packing and unpacking",
     u"7UNZIP 7ZIP BZIP2 GZIP JAR TAR UNBZIP2 UNGZIP UNJAR UNTAR UNZIP ZIP ZIPSFX"},
    {u"batch", u"batch files: conditions, loops, jumps, subroutines",
     u"BATCOMP BDEBUGGER BREAK BREAKPOINT CALL CALLER CANCEL CASE CASEALL COMMENT DEFAULT DEFER DELAY DO "
     u"ENDLOCAL ENDSWITCH EXCEPT EXIT FALSE FOR GLOBAL GOSUB GOTO IF IFF LIBRARY LOADBTM LOCAL ON PAUSE "
     u"QUIT REM REPEAT RETURN SCRIPT SETERROR SETLOCAL SHIFT SWITCH TEXT TRUE UNLIBRARY WAITFOR WATCH"},
    {u"variables", u"variables, aliases, functions, arithmetic",
     u"ALIAS ESET EXPR FUNCTION PATH RANDOM SET SETARRAY SETP SHRALIAS UNALIAS UNFUNCTION UNQLITE UNSET "
     u"UNSETARRAY UNSETP UUID"},
    {u"text", u"writing on the screen and to files",
     u"BEEP CLS COLOR DRAWBOX DRAWHLINE DRAWVLINE ECHO ECHOERR ECHOS ECHOSERR ECHOX ECHOXERR FONT OSD "
     u"PRINTF RESOLUTION SAVECONSOLE SCREEN SCRPUT STATUSBAR TITLE TOAST VBEEP VSCRPUT"},
    {u"input", u"asking the person at the keyboard",
     u"INKEY INPUT KEYBD KEYSTACK MSGBOX MVDIALOG QUERYBOX TASKDIALOG TIMER"},
    {u"programs", u"starting, watching and ending programs; pipes",
     u"ASSOC ASSOCIATE CAPTURE CHRONIC DETACH ENUMPROCESSES EXEC FTYPE JOBS JUMPLIST LUA PEE PIPEVIEW "
     u"PRIORITY PSHELL START SPONGE TASKEND TASKLIST TEE THREAD TRANSIENT TS WHICH WSHELL Y"},
    {u"shell", u"the shell itself: help, history, settings, keys",
     u"? CHCP COMMANDS HELP HISTORY INTERNAL KEYS LOG MVEDIT MVFILTER MVFONT MVTOOLBAR OPTION PLUGIN PROMPT "
     u"RECORDER SETDOS TABCOMPLETE TRANSIENT VER XHISTORY"},
    {u"system", u"clock, memory, drives, services, the registry, the desktop",
     u"ACTIVATE CLIP DATE DEBUGSTRING DESKTOP EJECTMEDIA EVENTLOG FREE IDE INSTALLED LOADMEDIA LOOKUPERRORS "
     u"MEMORY MOUNTISO MOUNTVHD NOTIFY POSTMSG REBOOT RESTOREPOINT SERVICES SHORTCUT SMPP TASKBAR TIME TMP "
     u"UNMOUNTISO UNMOUNTVHD UPTIME VDESKTOP VERIFY VOL WINDOW WINSTATION WMIQUERY WMIRUN WSETTINGS "
     u"WSHORTCUT"},
    {u"monitors", u"commands that run when something happens",
     u"BTMONITOR CLIPMONITOR DATEMONITOR DEBUGMONITOR DISKMONITOR EVENTMONITOR FIREWIREMONITOR "
     u"FOLDERMONITOR JOBMONITOR LOCKMONITOR MONITOR NETMONITOR POWERMONITOR PROCESSMONITOR REGMONITOR "
     u"SCREENMONITOR SERVICEMONITOR USBMONITOR"},
    {u"network", u"mail, transfers, other machines",
     u"DNS ENUMSERVERS ENUMSHARES IFTP JABBER JOINDOMAIN REXEC RSHELL SENDHTML SENDMAIL SNMP SNPP SSHEXEC "
     u"WAKEONLAN WEBFORM WEBSOCKET WEBUPLOAD"},
    {u"other", u"everything else", {}},
};

namespace {

bool HoldsName(std::u16string_view names, std::u16string_view name)
{
    for (std::size_t at = 0; at < names.size();) {
        const Word word = NextBlankWord(names, at);
        if (EqualNoCase(names.substr(word.start, word.length), name))
            return true;
        at = word.end();
    }
    return false;
}

} // namespace

const HelpSubject* FindHelpSubject(std::u16string_view name)
{
    const HelpSubject* found = nullptr;
    for (const HelpSubject& subject : helpSubjects) {
        if (EqualNoCase(subject.name, name))
            return &subject;
        if (!name.empty() && BeginsNoCase(subject.name, name)) {
            if (found)
                return nullptr;
            found = &subject;
        }
    }
    return found;
}

const HelpSubject& HelpSubjectOf(std::u16string_view command)
{
    for (const HelpSubject& subject : helpSubjects)
        if (HoldsName(subject.commands, command))
            return subject;
    return helpSubjects.back();
}
