// The settings of the shell: one record with a field per directive, named as the directive is spelled.
//
// Every floor reads aIniFile; only the config floor writes it (from INI files, start options and commands).
// The record is copied as bytes into a section that child shells read, so it holds plain numbers and
// pointers only; the texts behind the pointers belong to the config floor. Fields stand in the order of the
// directive table (config/directives.h), which says what each may hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "engine/export.h"

using SettingCharacter = std::uint8_t; // a character code
using SettingChoice = std::int32_t;    // index into the directive's list of names; No is 0 and Yes is 1
using SettingColor = std::uint32_t;    // background x 16 + foreground; 0 means not set
using SettingText = char16_t*;         // null means not set

// Indexes of the lists that are not plain "No", "Yes".
namespace choice {
namespace amPm {
constexpr SettingChoice automatic = 0, yes = 1, no = 2;
}
namespace separator { // DecimalChar, ThousandsChar
constexpr SettingChoice automatic = 0, period = 1, comma = 2, apostrophe = 3;
}
namespace editMode {
constexpr SettingChoice overstrike = 0, insert = 1, initOverstrike = 2, initInsert = 3;
}
namespace firewallType {
constexpr SettingChoice none = 0, tunnel = 1, socks4 = 2, socks5 = 3;
}
namespace histDups {
constexpr SettingChoice off = 0, first = 1, last = 2;
}
namespace regularExpressions {
constexpr SettingChoice perl = 0, ruby = 1, java = 2, grep = 3, posix = 4, gnu = 5, python = 6, emacs = 7;
}
namespace serverCompletion {
constexpr SettingChoice none = 0, local = 1, global = 2;
}
namespace tabX {
constexpr SettingChoice none = 0, selected = 1, all = 2;
}
namespace windowState {
constexpr SettingChoice standard = 0, maximize = 1, minimize = 2, custom = 3, hidden = 4;
}
} // namespace choice

// Bits of the setting Debug.
namespace debug_bits {
constexpr std::uint32_t systemCodes = 2; // messages of Windows are marked
constexpr std::uint32_t traceLines = 8;  // lines of batch files are shown before they run
} // namespace debug_bits

// The last two fields mark a record of this format; a child shell uses no other.
constexpr std::uint32_t iniFormat = 9;
constexpr std::uint32_t iniFormatCheck = 19930;

struct INIFILE {
    std::int32_t AliasSize;
    std::int32_t AliasGlobalSize;
    std::int32_t AliasLocalSize;
    SettingChoice AmPm;
    SettingChoice ANSI;
    SettingChoice ANSIWin10;
    SettingChoice AppendCommandLines;
    SettingChoice AppendToDir;
    SettingChoice AutoCancel;
    SettingChoice AutoCDD;
    SettingChoice AutoIndent;
    SettingChoice AutoRun;
    SettingChoice BatchAliases;
    SettingChoice BatchEcho;
    std::uint32_t BeepFreq;
    std::uint32_t BeepLength;
    std::int32_t CDDWinLeft;
    std::int32_t CDDWinTop;
    std::int32_t CDDWinWidth;
    std::int32_t CDDWinHeight;
    std::int32_t CharWidth;
    SettingChoice Clipboards;
    SettingChoice CMDBatch;
    SettingChoice CMDBatchDelimiters;
    SettingChoice CMDExtensions;
    SettingChoice CMDVariables;
    SettingText ColorDir;
    std::int32_t CommandoWinHeight;
    std::int32_t CommandoWinTop;
    std::int32_t CommandoWinLeft;
    std::int32_t CommandoWinWidth;
    SettingCharacter CommandSep;
    SettingChoice CompleteAliases;
    SettingChoice CompleteAllFiles;
    SettingChoice CompleteHidden;
    SettingChoice CompleteHiddenFiles;
    SettingChoice CompleteHiddenDirs;
    SettingChoice CompleteInternals;
    SettingChoice CompletePaths;
    SettingChoice CompletePercents;
    SettingChoice CopyPrompt;
    SettingChoice ConsolePopupWindows;
    SettingChoice Copyright;
    std::int32_t CursorIns;
    std::int32_t CursorOver;
    std::uint32_t Debug;
    SettingChoice DebugPauseOnError;
    SettingChoice DebuggerToolTips;
    std::uint32_t DebuggerTransparency;
    SettingChoice DecimalChar;
    SettingChoice DelayedExpansion;
    SettingChoice DelGlobalQuery;
    std::uint32_t DelWipePasses;
    std::uint32_t DescriptionMax;
    SettingText DescriptionName;
    SettingChoice NTFSDescriptions;
    SettingChoice Descriptions;
    SettingChoice DirEnv;
    SettingText DirHistFile;
    std::uint32_t DirHistory;
    std::uint32_t DirHistoryGlobalSize;
    std::uint32_t DirHistoryLocalSize;
    SettingChoice DirHistoryOnEntry;
    SettingChoice DirJunctions;
    SettingChoice DuplicateBugs;
    SettingChoice EditMode;
    SettingText Editor;
    SettingChoice EnglishMessages;
    SettingColor ErrorColors;
    SettingCharacter EscapeChar;
    SettingChoice EscResetHistory;
    std::uint32_t EvalMax;
    std::uint32_t EvalMin;
    SettingChoice EverythingSearch;
    SettingChoice ExecWait;
    SettingChoice ExitFile;
    SettingChoice ExpandPseudovariables;
    SettingText FileCompletion;
    SettingChoice FileCompletionLooping;
    SettingChoice FilesCaseSensitive;
    std::int32_t FunctionSize;
    std::int32_t FunctionGlobalSize;
    std::int32_t FunctionLocalSize;
    std::uint32_t FuzzyCD;
    SettingChoice GlobalAliases;
    SettingChoice GlobalDirHistory;
    SettingChoice GlobalFunctions;
    SettingChoice GlobalHistory;
    std::uint32_t HistMin;
    std::uint32_t History;
    std::uint32_t HistoryGlobalSize;
    std::uint32_t HistoryLocalSize;
    SettingChoice HistCase;
    SettingChoice HistCopy;
    SettingChoice HistDups;
    SettingText HistFile;
    SettingChoice HistMove;
    SettingText HistLogName;
    SettingChoice HistLogOn;
    SettingChoice HistWrap;
    SettingChoice INIQuery;
    SettingColor InputColors;
    SettingText LanguageDLL;
    SettingText LibraryDirectory;
    std::uint32_t ListRowStart;
    SettingChoice LocalAliases;
    SettingChoice LocalDirHistory;
    SettingChoice LocalFunctions;
    SettingChoice LocalHistory;
    SettingChoice LogAll;
    SettingText LogAllName;
    SettingText LogName;
    SettingChoice LogOn;
    SettingChoice LogErrors;
    SettingText LogErrorsName;
    SettingChoice Lua;
    SettingChoice MaintainIndent;
    SettingChoice MouseWheel;
    SettingChoice NoClobber;
    SettingChoice NoINIErrors;
    SettingText NormalEditKey;
    SettingText NormalKey;
    SettingText NormalListKey;
    SettingText NormalPopupKey;
    SettingCharacter ParameterChar;
    SettingChoice PathExt;
    SettingChoice Perl;
    SettingText PluginDirectory;
    std::int32_t PopupWinHeight;
    std::int32_t PopupWinTop;
    std::int32_t PopupWinLeft;
    std::int32_t PopupWinWidth;
    SettingChoice PowerShell;
    SettingText PowerShellProfileID;
    SettingChoice Python;
    SettingCharacter QuakeHotkey;
    SettingChoice ReadConsole;
    SettingChoice RecycleBin;
    SettingChoice RegularExpressions;
    SettingChoice Rexx;
    SettingChoice Ruby;
    SettingText ScriptDirectory;
    SettingColor SelectedColors;
    SettingChoice ServerCompletion;
    SettingChoice SettingChange;
    SettingChoice SHChangeNotify;
    SettingChoice StartupFile;
    SettingChoice StatusBar;
    SettingColor StdColors;
    SettingCharacter SwitchChar;
    SettingChoice SyntaxColors;
    std::uint32_t TabStops;
    SettingChoice TabX;
    SettingChoice Tcl;
    SettingText MVStartPath;
    SettingChoice ThousandsChar;
    SettingCharacter TrayHotkey;
    SettingText TreePath;
    SettingChoice UnhideDetachedORV;
    SettingChoice UnicodeOutput;
    SettingChoice UnixPaths;
    SettingChoice UpdateINI;
    SettingChoice UpdateTitle;
    SettingChoice UTF8;
    SettingChoice UTF8Output;
    SettingChoice WebHelp;
    SettingChoice Win32SFNSearch;
    std::uint32_t WindowHeight;
    SettingChoice WindowState;
    std::uint32_t WindowWidth;
    std::uint32_t WindowX;
    std::uint32_t WindowY;
    SettingChoice Wow64FsRedirection;
    std::int32_t XHCWD;
    SettingChoice XHistory;
    std::int32_t XHWinHeight;
    std::int32_t XHWinTop;
    std::int32_t XHWinLeft;
    std::int32_t XHWinWidth;
    SettingChoice XMLSettings;
    std::uint32_t ZoneId;
    SettingColor SCDefault;
    SettingColor SCCommand;
    SettingColor SCAlias;
    SettingColor SCComment;
    SettingColor SCLabel;
    SettingColor SCOperator;
    SettingColor SCLocalVar;
    SettingColor SCEnvironment;
    SettingColor SCInternalVar;
    SettingColor SCRegex;
    std::uint32_t Transparency;
    std::uint32_t InactiveTransparency;
    SettingText qStartPath;
    SettingChoice PauseOnError;
    SettingText PrimaryINIFile;
    SettingText NextINIFile;
    SettingChoice AutoProxy;
    SettingChoice AutoFirewall;
    SettingText Proxy;
    SettingText ProxyUser;
    SettingText ProxyPassword;
    std::int32_t ProxyPort;
    SettingText FirewallHost;
    SettingText FirewallUser;
    SettingText FirewallPassword;
    SettingChoice FirewallType;
    std::int32_t FirewallPort;
    SettingText FTPCFG;
    SettingChoice PassiveFTP;
    std::int32_t FTPTimeout;
    std::int32_t HTTPTimeout;
    std::int32_t TFTPTimeout;
    SettingText JabberServer;
    SettingText JabberUser;
    SettingText JabberPassword;
    SettingText MailServer;
    SettingText MailAddress;
    std::int32_t MailPort;
    SettingText MailUser;
    SettingText MailPassword;
    std::int32_t MailSSL;
    SettingText RLocalHost;
    SettingText RLocalUser;
    std::int32_t RLocalPort;
    SettingText SSHLocalHost;
    std::int32_t SHLocalPort;
    std::int32_t SSHPort;
    SettingText TimeServer;
    std::int32_t TimeServerPort;
    std::int32_t TimeServerProtocol;
    std::int32_t SSLStartMode;
    std::int32_t SSLPort;
    SettingText SSLProvider;
    SettingText GDriveUser;
    SettingText GDrivePassword;
    SettingText OneDriveUser;
    SettingText OneDrivePassword;
    SettingText BoxUser;
    SettingText BoxPassword;
    SettingText DropboxUser;
    SettingText DropboxPassword;
    SettingColor ListColors;
    SettingColor ListInverseColors;
    SettingColor ListStatBarColors;
    SettingColor SelectStatBarColors;
    SettingColor SelectColors;

    std::uint32_t sectionsSeen; // bits of the sections that the INI files held
    std::uint32_t format = iniFormat;
    std::uint32_t formatCheck = iniFormatCheck;
};
static_assert(std::is_trivially_copyable_v<INIFILE> && std::is_standard_layout_v<INIFILE>);
static_assert(offsetof(INIFILE, formatCheck) + sizeof(std::uint32_t) == sizeof(INIFILE));

MOVA_EXPORT INIFILE aIniFile;
