// The internal commands, one row each: name, handler, flags (command_flags in engine/tables.h), enabled,
// completion hint, help. The flags 0x1000000 and 0x2000000 mark commands that keep
// text or groups for later.
//
// A new command is one row here, in its place in the alphabet, and one handler in its family's file. A hint
// names what to offer for each argument: "[1]" the first, "[2*]" the second and all later ones, "[/r]" the
// one behind that switch; then "dirs", "aliases", "variables", "functions", "*" for any file, or extensions.
#include <iterator>

#include "commands/alias.h"
#include "commands/attrib.h"
#include "commands/batch_control.h"
#include "commands/batcomp.h"
#include "commands/beep.h"
#include "commands/boxes.h"
#include "commands/break.h"
#include "commands/chcp.h"
#include "commands/chronic.h"
#include "commands/clip.h"
#include "commands/cls.h"
#include "commands/color.h"
#include "commands/commands_list.h"
#include "commands/console_settings.h"
#include "commands/copy.h"
#include "commands/copy_tree.h"
#include "commands/date_time.h"
#include "commands/dedupe.h"
#include "commands/delay.h"
#include "commands/delete.h"
#include "commands/describe.h"
#include "commands/detach.h"
#include "commands/differ.h"
#include "commands/dir.h"
#include "commands/directory.h"
#include "commands/directory_stack.h"
#include "commands/directory_variables.h"
#include "commands/do.h"
#include "commands/drawing.h"
#include "commands/echo.h"
#include "commands/eset.h"
#include "commands/except.h"
#include "commands/exec.h"
#include "commands/exit.h"
#include "commands/expr.h"
#include "commands/ffind.h"
#include "commands/file_lock.h"
#include "commands/file_types.h"
#include "commands/for.h"
#include "commands/fsearch.h"
#include "commands/function.h"
#include "commands/global.h"
#include "commands/goto_call.h"
#include "commands/hash.h"
#include "commands/help.h"
#include "commands/history.h"
#include "commands/if.h"
#include "commands/inkey.h"
#include "commands/internal.h"
#include "commands/jobs.h"
#include "commands/jump_list_command.h"
#include "commands/keyboard.h"
#include "commands/local.h"
#include "commands/log.h"
#include "commands/make_directory.h"
#include "commands/make_links.h"
#include "commands/media.h"
#include "commands/move.h"
#include "commands/notices.h"
#include "commands/on.h"
#include "commands/option.h"
#include "commands/path.h"
#include "commands/pause.h"
#include "commands/pdir.h"
#include "commands/permanent_subst.h"
#include "commands/printf.h"
#include "commands/process_variables.h"
#include "commands/prompt.h"
#include "commands/random.h"
#include "commands/recycle.h"
#include "commands/remark.h"
#include "commands/remove_directory.h"
#include "commands/rename.h"
#include "commands/repeat.h"
#include "commands/select.h"
#include "commands/set.h"
#include "commands/set_array.h"
#include "commands/setdos.h"
#include "commands/seterror.h"
#include "commands/shortcut.h"
#include "commands/shralias.h"
#include "commands/start.h"
#include "commands/streams_of_files.h"
#include "commands/switch.h"
#include "commands/sync.h"
#include "commands/system_report.h"
#include "commands/tabcomplete.h"
#include "commands/text_block.h"
#include "commands/thread.h"
#include "commands/timer.h"
#include "commands/title.h"
#include "commands/touch.h"
#include "commands/tree.h"
#include "commands/true_false.h"
#include "commands/truename.h"
#include "commands/type.h"
#include "commands/unbuilt.h"
#include "commands/uuid.h"
#include "commands/verify.h"
#include "commands/version.h"
#include "commands/volume_report.h"
#include "commands/which.h"
#include "commands/window.h"
#include "commands/xhistory.h"
#include "engine/tables.h"

constexpr BUILTIN aInternalCommands[] = {
    {u"7UNZIP", Unbuilt_Command, 0x82007, 1, u"[1] 7z dirs [2*] *", &unbuiltHelp},
    {u"7ZIP", Unbuilt_Command, 0x82007, 1, u"[1] 7z dirs [2*] *", &unbuiltHelp},
    {u"?", Cmds_Command, 0x7, 1, u"", &commandsHelp},
    {u"ACTIVATE", Activate_Command, 0x82107, 1, u"", &activateHelp},
    {u"ALIAS", Alias_Command, 0x1080027, 1, u"[/r] * [1] aliases [2*] *", &aliasHelp},
    {u"ASSOC", Assoc_Command, 0x202107, 1, u"", &assocHelp},
    {u"ASSOCIATE", Associate_Command, 0x2107, 1, u"", &associateHelp},
    {u"ATTRIB", Attrib_Command, 0x82127, 1, u"", &attribHelp},
    {u"BATCOMP", Batcomp_Command, 0x2107, 1, u"btm cmd bat dirs", &batcompHelp},
    {u"BDEBUGGER", Unbuilt_Command, 0x2007, 1, u"btm cmd bat dirs", &unbuiltHelp},
    {u"BEEP", Beep_Command, 0x2007, 1, u"", &beepHelp},
    {u"BREAK", Break_Command, 0x202007, 1, u"", &breakHelp},
    {u"BREAKPOINT", Unbuilt_Command, 0x402047, 1, u"", &unbuiltHelp},
    {u"BTMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"BZIP2", Unbuilt_Command, 0x82007, 1, u"[1] bz2 dirs [2*] *", &unbuiltHelp},
    {u"CALL", Call_Command, 0x1600221, 1, u"", &callHelp},
    {u"CALLER", Caller_Command, 0x402047, 1, u"", &callerHelp},
    {u"CANCEL", Cancel_Command, 0x402047, 1, u"", &cancelHelp},
    {u"CAPTURE", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"CASE", Case_Command, 0x402044, 1, u"", &switchHelp},
    {u"CASEALL", Endswitch_Command, 0x402044, 1, u"", &switchHelp},
    {u"CD", Cd_Command, 0x686307, 1, u"dirs", &cdHelp},
    {u"CDD", Cdd_Command, 0x486307, 1, u"dirs", &cddHelp},
    {u"CHCP", Chcp_Command, 0x2107, 1, u"", &chcpHelp},
    {u"CHDIR", Cd_Command, 0x686307, 1, u"dirs", &cdHelp},
    {u"CHRONIC", Chronic_Command, 0x3002107, 1, u"", &chronicHelp},
    {u"CLIP", Clip_Command, 0x82007, 1, u"", &clipHelp},
    {u"CLIPMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"CLS", Cls_Command, 0x202007, 1, u"", &clsHelp},
    {u"COLOR", Color_Command, 0x202007, 1, u"", &colorHelp},
    {u"COMMANDS", Cmds_Command, 0x7, 1, u"", &commandsHelp},
    {u"COMMENT", Comment_Command, 0x10, 1, u"", &commentHelp},
    {u"COPY", Copy_Command, 0x286327, 1, u"", &copyHelp},
    {u"COPYDIR", CopyDirectory_Command, 0x82107, 1, u"dirs", &copyDirectoryHelp},
    {u"DATE", Date_Command, 0x202007, 1, u"", &dateHelp},
    {u"DATEMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"DEBUGMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"DEBUGSTRING", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"DEDUPE", Dedupe_Command, 0x2107, 1, u"dirs", &dedupeHelp},
    {u"DEFAULT", Case_Command, 0x402044, 1, u"", &switchHelp},
    {u"DEFER", Defer_Command, 0x2402064, 1, u"", &deferHelp},
    {u"DEL", Delete_Command, 0x286327, 1, u"", &deleteHelp},
    {u"DELAY", Delay_Command, 0x2007, 1, u"", &delayHelp},
    {u"DESCRIBE", Describe_Command, 0x82107, 1, u"", &describeHelp},
    {u"DESKTOP", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"DETACH", Detach_Command, 0x524, 1, u"", &detachHelp},
    {u"DIFFER", Differ_Command, 0x82107, 1, u"", &differHelp},
    {u"DIR", Dir_Command, 0x286307, 1, u"", &dirHelp},
    {u"DIRENV", Direnv_Command, 0x2107, 1, u"", &direnvHelp},
    {u"DIRHISTORY", Dirhistory_Command, 0x2007, 1, u"[/a] dirs [/r] * [1*] dirs", &dirhistoryHelp},
    {u"DIRS", Dirs_Command, 0x2107, 1, u"", &dirsHelp},
    {u"DISKMONITOR", Unbuilt_Command, 0x1082117, 1, u"dirs", &unbuiltHelp},
    {u"DNS", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"DO", Do_Command, 0x400014, 1, u"", &doHelp},
    {u"DRAWBOX", Drawbox_Command, 0x2007, 1, u"", &drawboxHelp},
    {u"DRAWHLINE", Drawhline_Command, 0x2007, 1, u"", &drawhlineHelp},
    {u"DRAWVLINE", Drawvline_Command, 0x2007, 1, u"", &drawvlineHelp},
    {u"ECHO", Echo_Command, 0x604207, 1, u"", &echoHelp},
    {u"ECHOERR", Echoerr_Command, 0x4207, 1, u"", &echoerrHelp},
    {u"ECHOS", Echos_Command, 0x4207, 1, u"", &echosHelp},
    {u"ECHOSERR", Echoserr_Command, 0x4207, 1, u"", &echoserrHelp},
    {u"ECHOX", Echox_Command, 0x0, 1, u"", &echoxHelp},
    {u"ECHOXERR", Echoxerr_Command, 0x0, 1, u"", &echoxerrHelp},
    {u"EJECTMEDIA", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"ENDLOCAL", Endlocal_Command, 0x600007, 1, u"", &endlocalHelp},
    {u"ENDSWITCH", Endswitch_Command, 0x402044, 1, u"", &switchHelp},
    {u"ENUMPROCESSES", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"ENUMSERVERS", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"ENUMSHARES", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"ERASE", Delete_Command, 0x286327, 1, u"", &deleteHelp},
    {u"ESET", Eset_Command, 0x82007, 1, u"[/a] aliases [/f] functions [1*] variables", &esetHelp},
    {u"EVENTLOG", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"EVENTMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"EVERYTHING", Everything_Command, 0x82107, 1, u"", &everythingHelp},
    {u"EXCEPT", Except_Command, 0x2016, 1, u"", &exceptHelp},
    {u"EXEC", Exec_Command, 0x2107, 1, u"", &execHelp},
    {u"EXIT", Exit_Command, 0x202007, 1, u"", &exitHelp},
    {u"EXPR", Expr_Command, 0x2107, 1, u"", &exprHelp},
    {u"FALSE", False_Command, 0x400100, 1, u"", &falseHelp},
    {u"FFIND", Ffind_Command, 0x82107, 1, u"", &ffindHelp},
    {u"FILELOCK", Filelock_Command, 0x2107, 1, u"", &filelockHelp},
    {u"FIREWIREMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"FOLDERMONITOR", Unbuilt_Command, 0x1082117, 1, u"dirs", &unbuiltHelp},
    {u"FONT", Font_Command, 0x2007, 1, u"", &fontHelp},
    {u"FOR", For_Command, 0x600030, 1, u"", &forHelp},
    {u"FREE", Free_Command, 0x2107, 1, u"dirs", &freeHelp},
    {u"FSEARCH", Fsearch_Command, 0x82107, 1, u"", &fsearchHelp},
    {u"FTYPE", Ftype_Command, 0x202107, 1, u"", &ftypeHelp},
    {u"FUNCTION", Function_Command, 0x1002007, 1, u"[/r] * [1] functions [2*] *", &functionHelp},
    {u"GLOBAL", Global_Command, 0x2016, 1, u"", &globalHelp},
    {u"GOSUB", Gosub_Command, 0x1402047, 1, u"[1] btm cmd bat dirs [2*] *", &gosubHelp},
    {u"GOTO", Goto_Command, 0x602047, 1, u"", &gotoHelp},
    {u"GZIP", Unbuilt_Command, 0x82007, 1, u"[1] gz dirs [2*] *", &unbuiltHelp},
    {u"HASH", Hash_Command, 0x82107, 1, u"", &hashHelp},
    {u"HEAD", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"HELP", Help_Command, 0x2007, 1, u"", &helpHelp},
    {u"HISTORY", History_Command, 0x2007, 1, u"", &historyHelp},
    {u"IDE", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"IF", If_Command, 0x600010, 1, u"", &ifHelp},
    {u"IFF", Iff_Command, 0x400010, 1, u"", &iffHelp},
    {u"IFTP", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"INKEY", Inkey_Command, 0x2107, 1, u"", &inkeyHelp},
    {u"INPUT", Input_Command, 0x2107, 1, u"", &inputHelp},
    {u"INSTALLED", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"INTERNAL", Internal_Command, 0x2007, 1, u"", &internalHelp},
    {u"JABBER", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"JAR", Unbuilt_Command, 0x82007, 1, u"[1] jar dirs [2*] *", &unbuiltHelp},
    {u"JOBMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"JOBS", Jobs_Command, 0x2007, 1, u"", &jobsHelp},
    {u"JOINDOMAIN", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"JUMPLIST", Jumplist_Command, 0x2107, 1, u"", &jumplistHelp},
    {u"KEYBD", Keybd_Command, 0x2107, 1, u"", &keybdHelp},
    {u"KEYS", Keys_Command, 0x2007, 1, u"", &keysHelp},
    {u"KEYSTACK", Keystack_Command, 0x2007, 1, u"", &keystackHelp},
    {u"LIBRARY", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"LINKS", Links_Command, 0x2107, 1, u"", &linksHelp},
    {u"LIST", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"LOADBTM", Loadbtm_Command, 0x402047, 1, u"", &loadbtmHelp},
    {u"LOADMEDIA", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"LOCAL", Local_Command, 0x402047, 1, u"", &localHelp},
    {u"LOCKMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"LOG", Log_Command, 0x2007, 1, u"", &logHelp},
    {u"LOOKUPERRORS", Lookuperrors_Command, 0x2007, 1, u"", &lookuperrorsHelp},
    {u"LUA", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"MD", MakeDirectory_Command, 0x282327, 1, u"dirs", &makeDirectoryHelp},
    {u"MEMORY", Memory_Command, 0x2007, 1, u"", &memoryHelp},
    {u"MKDIR", MakeDirectory_Command, 0x282327, 1, u"dirs", &makeDirectoryHelp},
    {u"MKLINK", Mklink_Command, 0x202107, 1, u"[1] * [2*] dirs", &mklinkHelp},
    {u"MKLNK", Mklnk_Command, 0x2107, 1, u"[1] * [2*] dirs", &mklnkHelp},
    {u"MONITOR", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"MOUNTISO", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"MOUNTVHD", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"MOVE", Move_Command, 0x282127, 1, u"", &moveHelp},
    {u"MOVEDIR", MoveDirectory_Command, 0x82107, 1, u"dirs", &moveDirectoryHelp},
    {u"MSGBOX", Msgbox_Command, 0x82107, 1, u"", &msgboxHelp},
    {u"MVDIALOG", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"MVEDIT", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"MVFILTER", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"MVFONT", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"MVTOOLBAR", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"NETMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"NOTIFY", Notify_Command, 0x2107, 1, u"", &notifyHelp},
    {u"ODBC", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"ON", On_Command, 0x2402064, 1, u"", &onHelp},
    {u"OPTION", Option_Command, 0x82007, 1, u"", &optionHelp},
    {u"OSD", Osd_Command, 0x82007, 1, u"", &osdHelp},
    {u"PATH", Path_Command, 0x202007, 1, u"", &pathHelp},
    {u"PAUSE", Pause_Command, 0x202007, 1, u"", &pauseHelp},
    {u"PDIR", Pdir_Command, 0x82107, 1, u"", &pdirHelp},
    {u"PEE", Unbuilt_Command, 0x1002007, 1, u"", &unbuiltHelp},
    {u"PIPEVIEW", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"PLAYAVI", Playavi_Command, 0x2107, 1, u"", &playaviHelp},
    {u"PLAYSOUND", Playsound_Command, 0x82107, 1, u"", &playsoundHelp},
    {u"PLUGIN", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"POPD", Popd_Command, 0x202107, 1, u"", &popdHelp},
    {u"POSTMSG", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"POWERMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"PRINT", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"PRINTF", Printf_Command, 0x2007, 1, u"", &printfHelp},
    {u"PRIORITY", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"PROCESSMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"PROMPT", Prompt_Command, 0x202007, 1, u"", &promptHelp},
    {u"PSHELL", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"PSUBST", Psubst_Command, 0x2107, 1, u"[1] * [2*] dirs", &psubstHelp},
    {u"PUSHD", Pushd_Command, 0x606307, 1, u"dirs", &pushdHelp},
    {u"QUERYBOX", Querybox_Command, 0x2107, 1, u"", &queryboxHelp},
    {u"QUIT", Quit_Command, 0x402007, 1, u"", &quitHelp},
    {u"RANDOM", Random_Command, 0x2007, 1, u"", &randomHelp},
    {u"RD", RemoveDirectory_Command, 0x282327, 1, u"dirs", &removeDirectoryHelp},
    {u"REBOOT", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"RECORDER", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"RECYCLE", Recycle_Command, 0x2107, 1, u"dirs", &recycleHelp},
    {u"REGDIR", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"REGMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"REM", Remark_Command, 0x604207, 1, u"", &remarkHelp},
    {u"REN", Rename_Command, 0x282127, 1, u"", &renameHelp},
    {u"RENAME", Rename_Command, 0x282127, 1, u"", &renameHelp},
    {u"REPEAT", Repeat_Command, 0x2016, 1, u"", &repeatHelp},
    {u"RESOLUTION", Resolution_Command, 0x2107, 1, u"", &resolutionHelp},
    {u"RESTOREPOINT", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"RETURN", Ret_Command, 0x402047, 1, u"", &returnHelp},
    {u"REXEC", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"RMDIR", RemoveDirectory_Command, 0x282327, 1, u"dirs", &removeDirectoryHelp},
    {u"RSHELL", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"SAVECONSOLE", Saveconsole_Command, 0x2007, 1, u"", &saveconsoleHelp},
    {u"SCREEN", Screen_Command, 0x2007, 1, u"", &screenHelp},
    {u"SCREENMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"SCRIPT", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"SCRPUT", Scrput_Command, 0x2007, 1, u"", &scrputHelp},
    {u"SELECT", Select_Command, 0x2016, 1, u"", &selectHelp},
    {u"SENDHTML", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"SENDMAIL", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"SERVICEMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"SERVICES", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"SET", Set_Command, 0x680007, 1, u"[/r] * [1] variables [2*] *", &setHelp},
    {u"SETARRAY", Setarray_Command, 0x2007, 1, u"", &setarrayHelp},
    {u"SETDOS", Setdos_Command, 0x82007, 1, u"", &setdosHelp},
    {u"SETERROR", Seterror_Command, 0x2107, 1, u"", &seterrorHelp},
    {u"SETLOCAL", Setlocal_Command, 0x602107, 1, u"", &setlocalHelp},
    {u"SETP", Setp_Command, 0x2007, 1, u"[1] variables [2*] *", &setpHelp},
    {u"SHIFT", Shift_Command, 0x602047, 1, u"", &shiftHelp},
    {u"SHORTCUT", Shortcut_Command, 0x82107, 1, u"", &shortcutHelp},
    {u"SHRALIAS", Shralias_Command, 0x2007, 1, u"", &shraliasHelp},
    {u"SMPP", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"SNMP", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"SNPP", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"SPONGE", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"SREPLACE", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"SSHEXEC", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"START", Start_Command, 0x680127, 1, u"", &startHelp},
    {u"STATUSBAR", Statusbar_Command, 0x2007, 1, u"", &statusbarHelp},
    {u"SWITCH", Switch_Command, 0x402045, 1, u"", &switchHelp},
    {u"SYNC", Sync_Command, 0x2107, 1, u"dirs", &syncHelp},
    {u"TABCOMPLETE", Tabcomplete_Command, 0x2007, 1, u"", &tabcompleteHelp},
    {u"TAIL", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"TAR", Unbuilt_Command, 0x82007, 1, u"[1] tar dirs [2*] *", &unbuiltHelp},
    {u"TASKBAR", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"TASKDIALOG", Taskdialog_Command, 0x82107, 1, u"", &taskdialogHelp},
    {u"TASKEND", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"TASKLIST", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"TEE", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"TEXT", Text_Command, 0x402047, 1, u"", &textHelp},
    {u"THREAD", Thread_Command, 0x3002007, 1, u"", &threadHelp},
    {u"TIME", Time_Command, 0x202007, 1, u"", &timeHelp},
    {u"TIMER", Timer_Command, 0x2007, 1, u"", &timerHelp},
    {u"TITLE", Title_Command, 0x202007, 1, u"", &titleHelp},
    {u"TMP", Tmp_Command, 0x2007, 1, u"", &tmpHelp},
    {u"TOAST", Toast_Command, 0x2107, 1, u"", &toastHelp},
    {u"TOUCH", Touch_Command, 0x82107, 1, u"", &touchHelp},
    {u"TPIPE", Unbuilt_Command, 0x82007, 1, u"", &unbuiltHelp},
    {u"TRANSIENT", Transient_Command, 0x2007, 1, u"", &transientHelp},
    {u"TREE", Tree_Command, 0x82107, 1, u"dirs", &treeHelp},
    {u"TRUE", True_Command, 0x400100, 1, u"", &trueHelp},
    {u"TRUENAME", Truename_Command, 0x2107, 1, u"", &truenameHelp},
    {u"TS", Ts_Command, 0x2107, 1, u"", &tsHelp},
    {u"TYPE", Type_Command, 0x282327, 1, u"", &typeHelp},
    {u"UNALIAS", Unalias_Command, 0x2007, 1, u"[/r] * [1*] aliases", &unaliasHelp},
    {u"UNBZIP2", Unbuilt_Command, 0x82007, 1, u"[1] bz2 dirs [2*] *", &unbuiltHelp},
    {u"UNFUNCTION", Unfunction_Command, 0x2007, 1, u"[/r] * [1*] functions", &unfunctionHelp},
    {u"UNGZIP", Unbuilt_Command, 0x82007, 1, u"[1] gz dirs [2*] *", &unbuiltHelp},
    {u"UNJAR", Unbuilt_Command, 0x82007, 1, u"[1] jar dirs [2*] *", &unbuiltHelp},
    {u"UNLIBRARY", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"UNMOUNTISO", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"UNMOUNTVHD", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"UNQLITE", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"UNSET", Unset_Command, 0x2007, 1, u"[/r] * [1*] variables", &unsetHelp},
    {u"UNSETARRAY", Unsetarray_Command, 0x2007, 1, u"", &unsetarrayHelp},
    {u"UNSETP", Unsetp_Command, 0x2007, 1, u"[1*] variables", &unsetpHelp},
    {u"UNTAR", Unbuilt_Command, 0x82007, 1, u"[1] tar dirs [2*] *", &unbuiltHelp},
    {u"UNZIP", Unbuilt_Command, 0x82007, 1, u"[1] zip dirs [2*] *", &unbuiltHelp},
    {u"UPTIME", Uptime_Command, 0x2007, 1, u"", &uptimeHelp},
    {u"USBMONITOR", Unbuilt_Command, 0x1082117, 1, u"", &unbuiltHelp},
    {u"UUID", Uuid_Command, 0x2007, 1, u"", &uuidHelp},
    {u"VBEEP", Vbeep_Command, 0x2007, 1, u"", &vbeepHelp},
    {u"VDESKTOP", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"VER", Ver_Command, 0x202007, 1, u"", &verHelp},
    {u"VERIFY", Verify_Command, 0x202107, 1, u"", &verifyHelp},
    {u"VIEW", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"VOL", Vol_Command, 0x202107, 1, u"dirs", &volHelp},
    {u"VSCRPUT", Vscrput_Command, 0x2007, 1, u"", &vscrputHelp},
    {u"WAITFOR", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WAKEONLAN", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WATCH", Unbuilt_Command, 0x1082007, 1, u"", &unbuiltHelp},
    {u"WEBFORM", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"WEBSOCKET", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WEBUPLOAD", Unbuilt_Command, 0x82107, 1, u"", &unbuiltHelp},
    {u"WHICH", Which_Command, 0x2107, 1, u"", &whichHelp},
    {u"WINDOW", Window_Command, 0x82107, 1, u"", &windowHelp},
    {u"WINSTATION", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WMIQUERY", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WMIRUN", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WSETTINGS", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"WSHELL", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"WSHORTCUT", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"XHISTORY", Xhistory_Command, 0x2007, 1, u"", &xhistoryHelp},
    {u"XSORT", Unbuilt_Command, 0x2107, 1, u"", &unbuiltHelp},
    {u"Y", Unbuilt_Command, 0x2007, 1, u"", &unbuiltHelp},
    {u"ZIP", Unbuilt_Command, 0x82007, 1, u"[1] zip dirs [2*] *", &unbuiltHelp},
    {u"ZIPSFX", Unbuilt_Command, 0x82007, 1, u"[1] zip dirs [2*] *", &unbuiltHelp},
};

constexpr int nInternalCommands = static_cast<int>(std::size(aInternalCommands));

static_assert(nInternalCommands == 279);
static_assert(IsSortedByName(aInternalCommands, nInternalCommands), "the rows stand in alphabetical order");
