#include "config/directives.h"

#include "text/compare.h"

namespace {

constexpr std::int32_t no = 0;
constexpr std::int32_t yes = 1;

constexpr SignedRange listSizes{4000, 1000000};
constexpr SignedRange cursorSizes{-1, 100};
constexpr SignedRange popupPlaces{-8192, 8192};
constexpr SignedRange extendedHistoryPlaces{0, 16384};
constexpr SignedRange extendedHistoryColumns{20, 512};
constexpr SignedRange ports{0, 65535};
constexpr SignedRange startModes{0, 3};
constexpr SignedRange timeProtocols{0, 1};

constexpr UnsignedRange historySizes{4000, 1000000};
constexpr UnsignedRange directoryHistorySizes{1000, 50000};
constexpr UnsignedRange historyLengths{0, 8192};
constexpr UnsignedRange evalPlaces{0, 2147483647};
constexpr UnsignedRange descriptionLengths{20, 512};
constexpr UnsignedRange fuzzyLevels{0, 3};
constexpr UnsignedRange tabStops{1, 32};
constexpr UnsignedRange beepFrequencies{0, 20000};
constexpr UnsignedRange beepLengths{0, 54};
constexpr UnsignedRange wipePasses{1, 9};
constexpr UnsignedRange transparency{30, 255};
constexpr UnsignedRange windowPlaces{0, 16384};
constexpr UnsignedRange rowStarts{0, 1};
constexpr UnsignedRange zones{0, 4};

template <std::size_t N> constexpr ChoiceList List(const char16_t* const (&names)[N])
{
    return {N, 0, names};
}

constexpr const char16_t* yesNoNames[] = {u"No", u"Yes"};
constexpr const char16_t* amPmNames[] = {u"Auto", u"Yes", u"No"};
constexpr const char16_t* separatorNames[] = {u"Auto", u".", u",", u"'"};
constexpr const char16_t* editModeNames[] = {u"Overstrike", u"Insert", u"InitOverstrike", u"InitInsert"};
constexpr const char16_t* firewallNames[] = {u"None", u"Tunnel", u"SOCKS4", u"SOCKS5"};
constexpr const char16_t* duplicateNames[] = {u"Off", u"First", u"Last"};
constexpr const char16_t* regularExpressionNames[] = {u"Perl",  u"Ruby", u"Java",   u"Grep",
                                                      u"POSIX", u"GNU",  u"Python", u"Emacs"};
constexpr const char16_t* serverNames[] = {u"None", u"Local", u"Global"};
constexpr const char16_t* tabXNames[] = {u"None", u"Selected", u"All"};
constexpr const char16_t* windowStateNames[] = {u"Standard", u"Maximize", u"Minimize", u"Custom", u"Hidden"};

constexpr ChoiceList yesNo = List(yesNoNames);
constexpr ChoiceList amPm = List(amPmNames);
constexpr ChoiceList separators = List(separatorNames);
constexpr ChoiceList editModes = List(editModeNames);
constexpr ChoiceList firewallTypes = List(firewallNames);
constexpr ChoiceList duplicates = List(duplicateNames);
constexpr ChoiceList regularExpressions = List(regularExpressionNames);
constexpr ChoiceList serverCompletion = List(serverNames);
constexpr ChoiceList tabX = List(tabXNames);
constexpr ChoiceList windowStates = List(windowStateNames);

constexpr std::uint32_t anyPath = path_check::none;
constexpr std::uint32_t mustExist = 0;

using Page = OptionsPage;

constexpr std::uint32_t Word(DirectiveType type) { return static_cast<std::uint32_t>(type); }

constexpr Directive Character(const char16_t* name, SettingCharacter INIFILE::*field, std::uint32_t standard,
                              Page page)
{
    const std::uint32_t anyCode = 0;
    return {name, Word(DirectiveType::Character), standard, anyCode, field, page, ControlKind::Text, 0, 0};
}

constexpr Directive Signed(const char16_t* name, std::int32_t INIFILE::*field, std::int32_t standard,
                           const SignedRange* range, Page page)
{
    return {name,
            Word(DirectiveType::Signed),
            static_cast<std::uint32_t>(standard),
            range,
            field,
            page,
            ControlKind::NumericEdit,
            0,
            0};
}

constexpr Directive Unsigned(const char16_t* name, std::uint32_t INIFILE::*field, std::uint32_t standard,
                             const UnsignedRange* range, Page page)
{
    return {name, Word(DirectiveType::Unsigned), standard, range, field,
            page, ControlKind::NumericEdit,      0,        0};
}

constexpr Directive Choice(const char16_t* name, SettingChoice INIFILE::*field, std::int32_t standard,
                           const ChoiceList* list, Page page)
{
    const bool checkBox = list == &yesNo;
    return {name,
            Word(DirectiveType::Choice),
            static_cast<std::uint32_t>(standard),
            list,
            field,
            page,
            checkBox ? ControlKind::CheckBox : ControlKind::DropDown,
            checkBox ? std::uint16_t{0} : static_cast<std::uint16_t>(list->count),
            0};
}

constexpr Directive YesNo(const char16_t* name, SettingChoice INIFILE::*field, std::int32_t standard,
                          Page page)
{
    return Choice(name, field, standard, &yesNo, page);
}

constexpr Directive Color(const char16_t* name, SettingColor INIFILE::*field, Page page)
{
    return {name, Word(DirectiveType::Color), 0, std::uint32_t{0}, field, page, ControlKind::Color, 0, 0};
}

constexpr Directive Text(const char16_t* name, DirectiveType type, SettingText INIFILE::*field,
                         std::uint32_t check, Page page)
{
    return {name, Word(type), 0, check, field, page, ControlKind::Text, 0, 0};
}

constexpr Directive String(const char16_t* name, SettingText INIFILE::*field, Page page)
{
    return Text(name, DirectiveType::String, field, 0, page);
}

constexpr Directive Path(const char16_t* name, SettingText INIFILE::*field, std::uint32_t check, Page page)
{
    return Text(name, DirectiveType::Path, field, check, page);
}

constexpr Directive Password(const char16_t* name, SettingText INIFILE::*field, Page page)
{
    return Text(name, DirectiveType::Protected, field, 0, page);
}

constexpr Directive Include(const char16_t* name)
{
    Directive row = Text(name, DirectiveType::Include, nullptr, 0, Page::None);
    row.control = ControlKind::None;
    return row;
}

// Numbers the dialog's controls through, so that no two rows share one.
constexpr std::array<Directive, nDirectives> Numbered(std::array<Directive, nDirectives> rows)
{
    constexpr std::uint16_t firstControl = 1000;
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].controlId = static_cast<std::uint16_t>(firstControl + i);
    return rows;
}

} // namespace

// A setting's name is its field's name.
#define ROW(field) u"" #field, &INIFILE::field

// clang-format off
constexpr std::array<Directive, nDirectives> aDirectives = Numbered({{
    Signed(ROW(AliasSize), 262144, &listSizes, Page::Startup),
    Signed(ROW(AliasGlobalSize), 262144, &listSizes, Page::Startup),
    Signed(ROW(AliasLocalSize), 32768, &listSizes, Page::Startup),
    Choice(ROW(AmPm), choice::amPm::no, &amPm, Page::Syntax),
    YesNo(ROW(ANSI), yes, Page::Startup),
    YesNo(ROW(ANSIWin10), yes, Page::Startup),
    YesNo(ROW(AppendCommandLines), no, Page::Syntax),
    YesNo(ROW(AppendToDir), no, Page::Completion),
    YesNo(ROW(AutoCancel), no, Page::Commands),
    YesNo(ROW(AutoCDD), yes, Page::Directories),
    YesNo(ROW(AutoIndent), yes, Page::Editing),
    YesNo(ROW(AutoRun), yes, Page::Startup),
    YesNo(ROW(BatchAliases), yes, Page::Syntax),
    YesNo(ROW(BatchEcho), yes, Page::Scripting),
    Unsigned(ROW(BeepFreq), 440, &beepFrequencies, Page::Editing),
    Unsigned(ROW(BeepLength), 2, &beepLengths, Page::Editing),
    Signed(ROW(CDDWinLeft), 20, &popupPlaces, Page::Windows),
    Signed(ROW(CDDWinTop), 20, &popupPlaces, Page::Windows),
    Signed(ROW(CDDWinWidth), 300, &popupPlaces, Page::Windows),
    Signed(ROW(CDDWinHeight), 140, &popupPlaces, Page::Windows),
    Signed(ROW(CharWidth), 0, nullptr, Page::Windows),
    YesNo(ROW(Clipboards), yes, Page::Startup),
    YesNo(ROW(CMDBatch), no, Page::Scripting),
    YesNo(ROW(CMDBatchDelimiters), yes, Page::Syntax),
    YesNo(ROW(CMDExtensions), yes, Page::Syntax),
    YesNo(ROW(CMDVariables), no, Page::Syntax),
    String(ROW(ColorDir), Page::Colors),
    Signed(ROW(CommandoWinHeight), 400, &popupPlaces, Page::Windows),
    Signed(ROW(CommandoWinTop), 80, &popupPlaces, Page::Windows),
    Signed(ROW(CommandoWinLeft), 40, &popupPlaces, Page::Windows),
    Signed(ROW(CommandoWinWidth), 500, &popupPlaces, Page::Windows),
    Character(ROW(CommandSep), u'&', Page::Syntax),
    YesNo(ROW(CompleteAliases), no, Page::Completion),
    YesNo(ROW(CompleteAllFiles), no, Page::Completion),
    YesNo(ROW(CompleteHidden), no, Page::Completion),
    YesNo(ROW(CompleteHiddenFiles), no, Page::Completion),
    YesNo(ROW(CompleteHiddenDirs), no, Page::Completion),
    YesNo(ROW(CompleteInternals), no, Page::Completion),
    YesNo(ROW(CompletePaths), no, Page::Completion),
    YesNo(ROW(CompletePercents), no, Page::Completion),
    YesNo(ROW(CopyPrompt), no, Page::Editing),
    YesNo(ROW(ConsolePopupWindows), no, Page::Windows),
    YesNo(ROW(Copyright), yes, Page::Startup),
    Signed(ROW(CursorIns), 100, &cursorSizes, Page::Editing),
    Signed(ROW(CursorOver), 15, &cursorSizes, Page::Editing),
    Unsigned(ROW(Debug), 0, nullptr, Page::Debugger),
    YesNo(ROW(DebugPauseOnError), no, Page::Debugger),
    YesNo(ROW(DebuggerToolTips), yes, Page::Debugger),
    Unsigned(ROW(DebuggerTransparency), 255, &transparency, Page::Debugger),
    Choice(ROW(DecimalChar), choice::separator::automatic, &separators, Page::Syntax),
    YesNo(ROW(DelayedExpansion), no, Page::Syntax),
    YesNo(ROW(DelGlobalQuery), yes, Page::Commands),
    Unsigned(ROW(DelWipePasses), 3, &wipePasses, Page::Commands),
    Unsigned(ROW(DescriptionMax), 512, &descriptionLengths, Page::Directories),
    String(ROW(DescriptionName), Page::Directories),
    YesNo(ROW(NTFSDescriptions), no, Page::Directories),
    YesNo(ROW(Descriptions), yes, Page::Directories),
    YesNo(ROW(DirEnv), no, Page::Directories),
    Path(ROW(DirHistFile), anyPath, Page::History),
    Unsigned(ROW(DirHistory), 4096, &directoryHistorySizes, Page::History),
    Unsigned(ROW(DirHistoryGlobalSize), 8192, &directoryHistorySizes, Page::History),
    Unsigned(ROW(DirHistoryLocalSize), 4096, &directoryHistorySizes, Page::History),
    YesNo(ROW(DirHistoryOnEntry), no, Page::History),
    YesNo(ROW(DirJunctions), yes, Page::Directories),
    YesNo(ROW(DuplicateBugs), yes, Page::Syntax),
    Choice(ROW(EditMode), choice::editMode::overstrike, &editModes, Page::Editing),
    String(ROW(Editor), Page::Editing),
    YesNo(ROW(EnglishMessages), no, Page::Startup),
    Color(ROW(ErrorColors), Page::Colors),
    Character(ROW(EscapeChar), u'^', Page::Syntax),
    YesNo(ROW(EscResetHistory), no, Page::History),
    Unsigned(ROW(EvalMax), 10, &evalPlaces, Page::Syntax),
    Unsigned(ROW(EvalMin), 0, &evalPlaces, Page::Syntax),
    YesNo(ROW(EverythingSearch), yes, Page::Startup),
    YesNo(ROW(ExecWait), no, Page::Commands),
    YesNo(ROW(ExitFile), yes, Page::Startup),
    YesNo(ROW(ExpandPseudovariables), no, Page::Syntax),
    String(ROW(FileCompletion), Page::Completion),
    YesNo(ROW(FileCompletionLooping), no, Page::Completion),
    YesNo(ROW(FilesCaseSensitive), no, Page::Completion),
    Signed(ROW(FunctionSize), 131072, &listSizes, Page::Startup),
    Signed(ROW(FunctionGlobalSize), 131072, &listSizes, Page::Startup),
    Signed(ROW(FunctionLocalSize), 32768, &listSizes, Page::Startup),
    Unsigned(ROW(FuzzyCD), 0, &fuzzyLevels, Page::Directories),
    YesNo(ROW(GlobalAliases), yes, Page::Startup),
    YesNo(ROW(GlobalDirHistory), yes, Page::History),
    YesNo(ROW(GlobalFunctions), yes, Page::Startup),
    YesNo(ROW(GlobalHistory), yes, Page::History),
    Unsigned(ROW(HistMin), 0, &historyLengths, Page::History),
    Unsigned(ROW(History), 20000, &historySizes, Page::History),
    Unsigned(ROW(HistoryGlobalSize), 20000, &historySizes, Page::History),
    Unsigned(ROW(HistoryLocalSize), 10000, &historySizes, Page::History),
    YesNo(ROW(HistCase), no, Page::History),
    YesNo(ROW(HistCopy), no, Page::History),
    Choice(ROW(HistDups), choice::histDups::off, &duplicates, Page::History),
    Path(ROW(HistFile), anyPath, Page::History),
    YesNo(ROW(HistMove), no, Page::History),
    Path(ROW(HistLogName), anyPath, Page::Logging),
    YesNo(ROW(HistLogOn), no, Page::Logging),
    YesNo(ROW(HistWrap), yes, Page::History),
    Include(u"Include"),
    YesNo(ROW(INIQuery), no, Page::Startup),
    Color(ROW(InputColors), Page::Colors),
    String(ROW(LanguageDLL), Page::Startup),
    Path(ROW(LibraryDirectory), anyPath, Page::Startup),
    Unsigned(ROW(ListRowStart), 1, &rowStarts, Page::Editing),
    YesNo(ROW(LocalAliases), no, Page::Startup),
    YesNo(ROW(LocalDirHistory), no, Page::History),
    YesNo(ROW(LocalFunctions), no, Page::Startup),
    YesNo(ROW(LocalHistory), no, Page::History),
    YesNo(ROW(LogAll), no, Page::Logging),
    Path(ROW(LogAllName), anyPath, Page::Logging),
    Path(ROW(LogName), anyPath, Page::Logging),
    YesNo(ROW(LogOn), no, Page::Logging),
    YesNo(ROW(LogErrors), no, Page::Logging),
    Path(ROW(LogErrorsName), anyPath, Page::Logging),
    YesNo(ROW(Lua), yes, Page::Scripting),
    YesNo(ROW(MaintainIndent), yes, Page::Editing),
    YesNo(ROW(MouseWheel), no, Page::Windows),
    YesNo(ROW(NoClobber), no, Page::Commands),
    YesNo(ROW(NoINIErrors), no, Page::Startup),
    String(ROW(NormalEditKey), Page::Editing),
    String(ROW(NormalKey), Page::Editing),
    String(ROW(NormalListKey), Page::Editing),
    String(ROW(NormalPopupKey), Page::Editing),
    Character(ROW(ParameterChar), u'$', Page::Syntax),
    YesNo(ROW(PathExt), no, Page::Commands),
    YesNo(ROW(Perl), no, Page::Scripting),
    Path(ROW(PluginDirectory), anyPath, Page::Startup),
    Signed(ROW(PopupWinHeight), 500, &popupPlaces, Page::Windows),
    Signed(ROW(PopupWinTop), 10, &popupPlaces, Page::Windows),
    Signed(ROW(PopupWinLeft), 40, &popupPlaces, Page::Windows),
    Signed(ROW(PopupWinWidth), 600, &popupPlaces, Page::Windows),
    YesNo(ROW(PowerShell), no, Page::Scripting),
    String(ROW(PowerShellProfileID), Page::Scripting),
    YesNo(ROW(Python), no, Page::Scripting),
    Character(ROW(QuakeHotkey), 13, Page::Windows),
    YesNo(ROW(ReadConsole), no, Page::Editing),
    YesNo(ROW(RecycleBin), no, Page::Commands),
    Choice(ROW(RegularExpressions), choice::regularExpressions::perl, &regularExpressions, Page::Syntax),
    YesNo(ROW(Rexx), no, Page::Scripting),
    YesNo(ROW(Ruby), no, Page::Scripting),
    Path(ROW(ScriptDirectory), anyPath, Page::Scripting),
    Color(ROW(SelectedColors), Page::Colors),
    Choice(ROW(ServerCompletion), choice::serverCompletion::local, &serverCompletion, Page::Completion),
    YesNo(ROW(SettingChange), no, Page::Startup),
    YesNo(ROW(SHChangeNotify), no, Page::Startup),
    YesNo(ROW(StartupFile), yes, Page::Startup),
    YesNo(ROW(StatusBar), yes, Page::Windows),
    Color(ROW(StdColors), Page::Colors),
    Character(ROW(SwitchChar), u'/', Page::Syntax),
    YesNo(ROW(SyntaxColors), no, Page::Editing),
    Unsigned(ROW(TabStops), 8, &tabStops, Page::Editing),
    Choice(ROW(TabX), choice::tabX::selected, &tabX, Page::Completion),
    YesNo(ROW(Tcl), no, Page::Scripting),
    Path(ROW(MVStartPath), mustExist, Page::Startup),
    Choice(ROW(ThousandsChar), choice::separator::automatic, &separators, Page::Syntax),
    Character(ROW(TrayHotkey), u'Z', Page::Windows),
    Path(ROW(TreePath), mustExist, Page::Directories),
    YesNo(ROW(UnhideDetachedORV), yes, Page::Windows),
    YesNo(ROW(UnicodeOutput), no, Page::Syntax),
    YesNo(ROW(UnixPaths), no, Page::Syntax),
    YesNo(ROW(UpdateINI), yes, Page::Startup),
    YesNo(ROW(UpdateTitle), yes, Page::Windows),
    YesNo(ROW(UTF8), yes, Page::Syntax),
    YesNo(ROW(UTF8Output), no, Page::Syntax),
    YesNo(ROW(WebHelp), no, Page::Commands),
    YesNo(ROW(Win32SFNSearch), no, Page::Completion),
    Unsigned(ROW(WindowHeight), 0, &windowPlaces, Page::Windows),
    Choice(ROW(WindowState), choice::windowState::standard, &windowStates, Page::Windows),
    Unsigned(ROW(WindowWidth), 0, &windowPlaces, Page::Windows),
    Unsigned(ROW(WindowX), 0, &windowPlaces, Page::Windows),
    Unsigned(ROW(WindowY), 0, &windowPlaces, Page::Windows),
    YesNo(ROW(Wow64FsRedirection), yes, Page::Commands),
    Signed(ROW(XHCWD), 230, &extendedHistoryColumns, Page::History),
    YesNo(ROW(XHistory), yes, Page::History),
    Signed(ROW(XHWinHeight), 180, &extendedHistoryPlaces, Page::History),
    Signed(ROW(XHWinTop), 50, &extendedHistoryPlaces, Page::History),
    Signed(ROW(XHWinLeft), 100, &extendedHistoryPlaces, Page::History),
    Signed(ROW(XHWinWidth), 500, &extendedHistoryPlaces, Page::History),
    YesNo(ROW(XMLSettings), no, Page::Startup),
    Unsigned(ROW(ZoneId), 0, &zones, Page::Commands),
    Color(ROW(SCDefault), Page::Colors),
    Color(ROW(SCCommand), Page::Colors),
    Color(ROW(SCAlias), Page::Colors),
    Color(ROW(SCComment), Page::Colors),
    Color(ROW(SCLabel), Page::Colors),
    Color(ROW(SCOperator), Page::Colors),
    Color(ROW(SCLocalVar), Page::Colors),
    Color(ROW(SCEnvironment), Page::Colors),
    Color(ROW(SCInternalVar), Page::Colors),
    Color(ROW(SCRegex), Page::Colors),
    Unsigned(ROW(Transparency), 255, &transparency, Page::Windows),
    Unsigned(ROW(InactiveTransparency), 255, nullptr, Page::Windows),
    Path(ROW(qStartPath), mustExist, Page::Startup),
    YesNo(ROW(PauseOnError), yes, Page::Scripting),
    String(ROW(PrimaryINIFile), Page::Startup),
    String(ROW(NextINIFile), Page::Startup),
    YesNo(ROW(AutoProxy), yes, Page::Internet),
    YesNo(ROW(AutoFirewall), yes, Page::Internet),
    String(ROW(Proxy), Page::Internet),
    String(ROW(ProxyUser), Page::Internet),
    Password(ROW(ProxyPassword), Page::Internet),
    Signed(ROW(ProxyPort), 80, &ports, Page::Internet),
    String(ROW(FirewallHost), Page::Internet),
    String(ROW(FirewallUser), Page::Internet),
    Password(ROW(FirewallPassword), Page::Internet),
    Choice(ROW(FirewallType), choice::firewallType::none, &firewallTypes, Page::Internet),
    Signed(ROW(FirewallPort), 1080, &ports, Page::Internet),
    String(ROW(FTPCFG), Page::Internet),
    YesNo(ROW(PassiveFTP), yes, Page::Internet),
    Signed(ROW(FTPTimeout), 180, nullptr, Page::Internet),
    Signed(ROW(HTTPTimeout), 180, nullptr, Page::Internet),
    Signed(ROW(TFTPTimeout), 180, nullptr, Page::Internet),
    String(ROW(JabberServer), Page::Internet),
    String(ROW(JabberUser), Page::Internet),
    Password(ROW(JabberPassword), Page::Internet),
    String(ROW(MailServer), Page::Internet),
    String(ROW(MailAddress), Page::Internet),
    Signed(ROW(MailPort), 25, &ports, Page::Internet),
    String(ROW(MailUser), Page::Internet),
    Password(ROW(MailPassword), Page::Internet),
    Signed(ROW(MailSSL), 0, &startModes, Page::Internet),
    String(ROW(RLocalHost), Page::Internet),
    String(ROW(RLocalUser), Page::Internet),
    Signed(ROW(RLocalPort), 0, &ports, Page::Internet),
    String(ROW(SSHLocalHost), Page::Internet),
    Signed(ROW(SHLocalPort), 0, &ports, Page::Internet),
    Signed(ROW(SSHPort), 22, nullptr, Page::Internet),
    String(ROW(TimeServer), Page::Internet),
    Signed(ROW(TimeServerPort), 123, nullptr, Page::Internet),
    Signed(ROW(TimeServerProtocol), 0, &timeProtocols, Page::Internet),
    Signed(ROW(SSLStartMode), 0, &startModes, Page::Internet),
    Signed(ROW(SSLPort), 0, &ports, Page::Internet),
    String(ROW(SSLProvider), Page::Internet),
    String(ROW(GDriveUser), Page::Cloud),
    Password(ROW(GDrivePassword), Page::Cloud),
    String(ROW(OneDriveUser), Page::Cloud),
    Password(ROW(OneDrivePassword), Page::Cloud),
    String(ROW(BoxUser), Page::Cloud),
    Password(ROW(BoxPassword), Page::Cloud),
    String(ROW(DropboxUser), Page::Cloud),
    Password(ROW(DropboxPassword), Page::Cloud),
    Color(ROW(ListColors), Page::Colors),
    Color(ROW(ListInverseColors), Page::Colors),
    Color(ROW(ListStatBarColors), Page::Colors),
    Color(ROW(SelectStatBarColors), Page::Colors),
    Color(ROW(SelectColors), Page::Colors),
}});
// clang-format on

#undef ROW

namespace {

constexpr std::size_t CountOf(DirectiveType type)
{
    std::size_t count = 0;
    for (const Directive& row : aDirectives)
        count += row.Type() == type;
    return count;
}
static_assert(CountOf(DirectiveType::Character) == 6);
static_assert(CountOf(DirectiveType::Signed) == 40);
static_assert(CountOf(DirectiveType::Unsigned) == 25);
static_assert(CountOf(DirectiveType::Choice) == 106);
static_assert(CountOf(DirectiveType::Color) == 19);
static_assert(CountOf(DirectiveType::String) == 31);
static_assert(CountOf(DirectiveType::Path) == 12);
static_assert(CountOf(DirectiveType::Protected) == 8);
static_assert(CountOf(DirectiveType::Include) == 1);

constexpr bool DefaultFits(const Directive& row)
{
    switch (row.Type()) {
    case DirectiveType::Signed: {
        const SignedRange* range = row.validator.signedRange;
        const auto value = static_cast<std::int32_t>(row.standard);
        return !range || (value >= range->minimum && value <= range->maximum);
    }
    case DirectiveType::Unsigned: {
        const UnsignedRange* range = row.validator.unsignedRange;
        return !range || (row.standard >= range->minimum && row.standard <= range->maximum);
    }
    case DirectiveType::Choice: return row.standard < row.validator.choices->count;
    case DirectiveType::Character: return row.standard > 0 && row.standard <= 0xFF;
    default: return row.standard == 0;
    }
}

constexpr bool DefaultsFit()
{
    for (const Directive& row : aDirectives)
        if (!DefaultFits(row))
            return false;
    return true;
}
static_assert(DefaultsFit());

} // namespace

int FindDirective(std::u16string_view name)
{
    for (std::size_t i = 0; i < aDirectives.size(); ++i)
        if (EqualNoCase(name, aDirectives[i].name))
            return static_cast<int>(i);
    return -1;
}

const char16_t* ChoiceName(const Directive& directive, SettingChoice index)
{
    const ChoiceList& list = *directive.validator.choices;
    const auto at = static_cast<std::uint32_t>(index); // a negative index lies outside too
    return at < list.count ? list.names[at] : nullptr;
}
