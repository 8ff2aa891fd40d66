#include "config/ini_file.h"

#include <algorithm>
#include <span>

#include <shlobj.h>
#include <windows.h>

#include "config/ini_parser.h"
#include "config/settings_area.h"
#include "engine/break.h"
#include "engine/command_state.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "platform/codepage.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/lazy_library.h"
#include "platform/named_lock.h"
#include "platform/process_family.h"
#include "platform/shared_section.h"
#include "platform/whole_file.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"
#include "text/words.h"

INIFILE aIniFile;

namespace {

// What this process keeps open for its settings.
struct IniResources {
    NamedLock lock;     // for shells that write INI files
    SharedSection area; // our settings, for child shells
    CString parentFile; // the INI file of the shell whose settings we inherited
};
IniResources resources;

// The real world behind the parser.
class ShellWorld final : public IniWorld {
public:
    bool IsDirectory(std::u16string_view path) override { return QueryIsDirectory(path); }
    void ExpandVariables(CString& line) override { VariableExpansion(line, true); }
    CString FullName(const CString& name) override { return FullPathName(name); }
    bool ReadFile(const CString& name, std::string& bytes) override
    {
        return ReadWholeFile(name, bytes, largestIniFile);
    }
    CString FromAnsi(std::string_view bytes) override { return FromCodePage(bytes, GetACP()); }

    IniAnswer AskLine(const CString& line) override
    {
        switch (QueryInputChar(message::iniQuery, line, u"YNC", u'N')) {
        case u'Y': return IniAnswer::Yes;
        case u'C': return IniAnswer::Cancel;
        default: return IniAnswer::No;
        }
    }

    void Report(const IniError& error, const IniPlace& place) override
    {
        if (!aIniFile.NoINIErrors)
            MVError(error.code,
                    Format(u"\"%s\": %s [%u] %s", error.name, place.file, place.line, place.text));
    }
};

CString AreaName(unsigned process) { return Format(u"Mova_%x", process); }

// Whether another shell of this program shares our console and the parent is such a shell.
bool ParentIsShellHere(unsigned parent)
{
    const std::u16string_view program = FileNamePart(aTexts.executable);
    const std::vector<unsigned> processes = ConsoleProcesses();
    if (processes.size() < 2)
        return false;
    const auto shells = std::count_if(processes.begin(), processes.end(), [&](unsigned process) {
        return EqualNoCase(ProgramOfProcess(process), program);
    });
    return shells > 1 && EqualNoCase(ProgramOfProcess(parent), program);
}

bool InheritSettings()
{
    if (aGlobals.noInheritance)
        return false;
    const unsigned parent = ParentProcess();
    if (!Tls().pipeChild && !ParentIsShellHere(parent))
        return false;
    const SharedSection area = SharedSection::Open(AreaName(parent));
    if (!area)
        return false;
    const std::size_t bytes = std::min(area.Size(), settingsAreaBytes);
    if (!ReadSettingsArea({static_cast<const std::byte*>(area.Data()), bytes}, aIniFile,
                          resources.parentFile))
        return false;
    for (SettingSource& source : aSettingSources.rows)
        source.origin = SettingOrigin::ParentShell;
    return true;
}

// 0, or not when the file cannot be read.
int LoadFile(const CString& file, int skipMask)
{
    ShellWorld world;
    IniReader reader{world, aKeyBindings, aSettingSources};
    if (const int failed = IniParse(file, &aIniFile, static_cast<unsigned>(skipMask), reader))
        return failed;
    aTexts.iniFile = file;
    for (const CString& command : reader.disabled)
        DisableInternalCommand(command);
    return 0;
}

LazyFunction<decltype(SHGetFolderPathW)> folderPath(libraries::shell32, "SHGetFolderPathW", E_NOTIMPL);

// A folder that the system keeps for programs, without trailing "\"; empty when there is none.
CString SystemFolder(const char16_t* variable, int number)
{
    CString folder;
    if (ReadEnvironment(variable, folder) && !folder.empty()) // saves loading the library
        return folder;
    if (FAILED(folderPath(nullptr, number, nullptr, SHGFP_TYPE_CURRENT,
                          reinterpret_cast<wchar_t*>(folder.Edit(MAX_PATH)))))
        return {};
    folder.SetLength(std::char_traits<char16_t>::length(folder.c_str()));
    return folder;
}

bool LoadFromAnyPlace(std::u16string_view name, int skipMask)
{
    if (LoadFile(JoinPath(DirectoryPart(aTexts.executable), name), skipMask) == 0)
        return true;
    const CString common = SystemFolder(u"ProgramData", CSIDL_COMMON_APPDATA);
    if (!common.empty() && LoadFile(JoinPath(common, u"Halden\\ORV 33\\MOVA.INI"), skipMask) == 0)
        return true;
    const CString local = SystemFolder(u"LOCALAPPDATA", CSIDL_LOCAL_APPDATA);
    if (local.empty())
        return false;
    const CString own = JoinPath(local, u"Halden");
    if (!QueryIsDirectory(own))
        CreateDirectoryW(own.w(), nullptr);
    return LoadFile(JoinPath(own, name), skipMask) == 0;
}

// Another INI file that a setting names.
void LoadNamedFile(const CString& name)
{
    if (!name.empty() && ProcessINI(name) != 0)
        MVError(errors::iniInclude, name);
}

// The right side of a pipe is written in the syntax of the shell that stands on its left: it takes no
// settings of its own, and nobody presses keys there.
void LoadWhatIsNotInherited(std::u16string_view name)
{
    const bool pipe = Tls().pipeChild;
    const int inherited = ini_section::none | ini_section::primary | ini_section::quarn | ini_section::keys |
                          (pipe ? ini_section::secondary : 0);
    const int wanted = ini_section::disabled | (pipe ? 0 : ini_section::secondary | ini_section::keyFunction);
    const CString& file = resources.parentFile;
    if ((static_cast<int>(aIniFile.sectionsSeen) & wanted) != 0) {
        LoadFromAnyPlace(name, inherited);
        if (!file.empty() && !EqualNoCase(file, aTexts.iniFile))
            LoadFile(file, inherited);
    }
    aTexts.iniFile = file;
    if (!pipe)
        LoadNamedFile(aIniFile.NextINIFile);
}

} // namespace

void InitializeIniFile()
{
    resources.lock = NamedLock(u"MVIniSemaphore");
    IniClear(&aIniFile);
    aGlobals.secondary = InheritSettings();
    resources.area = SharedSection::OpenOrCreate(AreaName(GetCurrentProcessId()), settingsAreaBytes);
    SaveIniData();
}

void DefaultINI(std::u16string_view name)
{
    if (aTexts.iniFile.empty()) {
        if (aGlobals.secondary) {
            LoadWhatIsNotInherited(name);
        } else {
            LoadFromAnyPlace(name, ini_section::secondary);
            LoadNamedFile(aIniFile.PrimaryINIFile);
        }
    }
    SaveIniData();
}

int ProcessINI(std::u16string_view name)
{
    if (name.starts_with(u'@'))
        name.remove_prefix(1);
    const int other = aGlobals.secondary ? ini_section::primary : ini_section::secondary;
    if (LoadFile(FullPathName(WithoutQuotes(name)), other) != 0)
        return result::error;
    SaveIniData();
    return 0;
}

void SaveIniData()
{
    if (resources.area && resources.area.Size() >= settingsAreaBytes)
        WriteSettingsArea(aIniFile, aTexts.iniFile,
                          {static_cast<std::byte*>(resources.area.Data()), settingsAreaBytes});
}

int SetINIDirective(std::u16string_view text, SettingOrigin origin)
{
    Syntax syntax = CurrentSyntax();
    syntax.cmdDelimiters = false; // "=" belongs to the directive
    return ObeyIniLine(GetNthArgument(text.substr(std::min<std::size_t>(text.size(), 2)), 0, syntax), origin);
}

int ObeyIniLine(std::u16string_view text, SettingOrigin origin)
{
    ShellWorld world;
    IniReader reader{world, aKeyBindings, aSettingSources, {origin, 0, 0}};
    IniError error;
    CString line(text);
    const int answer = IniLine(line, &aIniFile, ini_skip::nothing, 1, error, reader);
    if (answer > 0)
        return MVError(error.code, Format(u"\"%s\": %s", error.name, text));
    if (answer == iniInclude && ProcessINI(line) != 0)
        return MVError(errors::iniInclude, line);
    SaveIniData();
    return 0;
}

void ResetSetting(int directive)
{
    const auto row = static_cast<std::size_t>(directive);
    ResetValue(aDirectives[row], aIniFile);
    aSettingSources.rows[row] = {};
    SaveIniData();
}

NamedLock::Guard LockIniFiles() { return resources.lock.Take(ThrowIfBroken); }

int GetOptionValue(std::u16string_view name, CString& value)
{
    const int index = FindDirective(name);
    const bool found =
        index >= 0 && FormatValue(aDirectives[static_cast<std::size_t>(index)], aIniFile, value);
    return found ? 0 : ERROR_INVALID_PARAMETER;
}

int QueryOptionValue(const char16_t* name, char16_t* buffer, std::size_t size)
{
    CString value;
    const int code = GetOptionValue(name, value);
    if (size > 0) {
        const std::size_t length = std::min(value.size(), size - 1);
        std::copy_n(value.c_str(), length, buffer);
        buffer[length] = u'\0';
    }
    return code;
}

CString SettingSourceText(int directive)
{
    const SettingSource& source = aSettingSources.rows[static_cast<std::size_t>(directive)];
    switch (source.origin) {
    case SettingOrigin::File: return Format(u"%s [%u]", aSettingSources.files[source.file], source.line);
    case SettingOrigin::ParentShell: return LoadMessage(message::fromParentShell);
    case SettingOrigin::CommandLine: return LoadMessage(message::fromStartOption);
    case SettingOrigin::Command: return LoadMessage(message::fromCommand);
    default: return LoadMessage(message::fromDefault);
    }
}
