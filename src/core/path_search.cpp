#include "core/path_search.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/extension_variables.h"
#include "core/search_order.h"
#include "engine/inifile.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/registry.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

// In the order of the search.
constexpr const char16_t* Executables[] = {u".com", u".exe", u".btm", u".bat", u".cmd"};
constexpr const char16_t* batchExtensions[] = {u".btm", u".bat", u".cmd"};

constexpr std::u16string_view applicationPathKey =
    u"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\%s";

struct ScriptExtension {
    const char16_t* extension;
    SettingChoice INIFILE::*setting;
};
constexpr ScriptExtension scriptExtensions[] = {
    {u".lua", &INIFILE::Lua},   {u".pl", &INIFILE::Perl}, {u".ps1", &INIFILE::PowerShell},
    {u".py", &INIFILE::Python}, {u".rb", &INIFILE::Ruby}, {u".rex", &INIFILE::Rexx},
    {u".rexx", &INIFILE::Rexx}, {u".tcl", &INIFILE::Tcl},
};

class FileSystem : public SearchWorld {
public:
    CString FullName(std::u16string_view name) override { return FullPathName(name); }

    bool IsFile(std::u16string_view fullName) override { return QueryIsFile(fullName); }

    // One listing costs less than asking for each extension: a name that is missing makes the system look
    // through the folder anyway.
    void FindByStem(std::u16string_view folder, std::u16string_view stem,
                    std::vector<CString>& names) override
    {
        CString pattern = SystemPath(JoinPath(folder, stem));
        pattern.Append(u".*");
        WIN32_FIND_DATAW data;
        const bool shortNames = aIniFile.Win32SFNSearch != 0;
        const FINDEX_INFO_LEVELS level = shortNames ? FindExInfoStandard : FindExInfoBasic;
        const OwnedFindHandle walk(
            FindFirstFileExW(pattern.w(), level, &data, FindExSearchNameMatch, nullptr, 0));
        if (!walk)
            return;
        do {
            if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
                continue;
            names.emplace_back(reinterpret_cast<const char16_t*>(data.cFileName));
            if (shortNames && data.cAlternateFileName[0] != 0)
                names.emplace_back(reinterpret_cast<const char16_t*>(data.cAlternateFileName));
        } while (FindNextFileW(walk.Get(), &data));
    }
};

// PATHEXT's extensions; some installers part them by "," or "=".
std::vector<CString> SplitPathExtensions(std::u16string_view list)
{
    std::vector<CString> extensions;
    for (const CString& part : SplitPathList(list)) {
        std::u16string_view rest(part);
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find_first_of(u",="), rest.size());
            CString extension(rest.substr(0, end));
            extension.Trim();
            if (!extension.empty() && extension.front() != u'.')
                extension.Insert(0, u".");
            if (extension.size() > 1)
                extensions.push_back(std::move(extension));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return extensions;
}

// What the settings say, without the variables.
std::vector<CString> SettingExtensions()
{
    CString list;
    if (aIniFile.PathExt && ReadEnvironment(u"PATHEXT", list) && !list.empty())
        return SplitPathExtensions(list);
    std::vector<CString> extensions(std::begin(Executables), std::end(Executables));
    for (const ScriptExtension& script : scriptExtensions)
        if (aIniFile.*script.setting)
            extensions.emplace_back(script.extension);
    return extensions;
}

SearchPlaces UsualPlaces(SearchKind kind)
{
    SearchPlaces places;
    // The system's own switch for those who do not want programs from wherever they happen to be.
    if (!IsInEnvironment(u"NoDefaultCurrentDirectoryInExePath"))
        places.currentDirectory = CurrentDirectory();
    ReadEnvironment(u"PATH", places.list);
    if (kind == SearchKind::Program)
        places.extensions = ExecutableExtensions();
    else
        places.extensions.assign(std::begin(batchExtensions), std::end(batchExtensions));
    return places;
}

// The folder of the setting ScriptDirectory, where only batch files and scripts are looked for.
SearchPlaces ScriptPlaces()
{
    SearchPlaces places;
    if (!aIniFile.ScriptDirectory)
        return places;
    places.list = AddQuotes(aIniFile.ScriptDirectory);
    places.extensions.assign(std::begin(batchExtensions), std::end(batchExtensions));
    for (const ScriptExtension& script : scriptExtensions)
        if (aIniFile.*script.setting)
            places.extensions.emplace_back(script.extension);
    return places;
}

// The program that is registered under the name, for the user or for the machine.
bool FindApplicationPath(std::u16string_view name, FoundProgram& found)
{
    if (name.empty() || HasDirectory(name))
        return false;
    CString keyName(name);
    if (ExtensionPart(name).empty())
        keyName.Append(u".exe");
    const CString path = Format(applicationPathKey, keyName);
    for (const RegistryRoot root : {RegistryRoot::CurrentUser, RegistryRoot::LocalMachine}) {
        const RegistryKey key(root, path);
        const auto file = key.Text({});
        if (!file)
            continue;
        found.file = WithoutQuotes(*file);
        if (!QueryIsFile(found.file))
            continue;
        found.extraPaths = key.Text(u"Path").value_or(CString());
        return true;
    }
    return false;
}

} // namespace

std::vector<CString> ExecutableExtensions()
{
    std::vector<CString> extensions = SettingExtensions();
    for (const CString& entry : EnvironmentEntries(u"."))
        AddVariableExtensions(entry, extensions);
    return extensions;
}

std::vector<CString> ProgramFolders()
{
    CString list;
    ReadEnvironment(u"PATH", list);
    std::vector<CString> folders = SplitPathList(list);
    if (aIniFile.ScriptDirectory)
        folders.emplace_back(aIniFile.ScriptDirectory);
    for (CString& folder : folders)
        folder = FullPathName(folder);
    return folders;
}

bool IsExecutableExtension(std::u16string_view extension)
{
    const std::vector<CString> extensions = SettingExtensions();
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const CString& known) { return EqualNoCase(known, extension); });
}

bool SearchPaths(std::u16string_view name, FoundProgram& found, SearchKind kind)
{
    if (HasWildcards(name))
        return false;
    FileSystem files;
    // A file that is named with its folder and extension is found without a look at the settings.
    const CString named = WithoutQuotes(name);
    const CString full =
        HasDirectory(named) && !ExtensionPart(named).empty() ? files.FullName(named) : CString();
    const bool asNamed = !full.empty() && files.IsFile(full);
    found.file = asNamed ? full : SearchInOrder(name, UsualPlaces(kind), files);
    if (found.file.empty() && !HasDirectory(WithoutQuotes(name)))
        found.file = SearchInOrder(name, ScriptPlaces(), files);
    if (!found.file.empty())
        return true;
    return kind == SearchKind::Program && FindApplicationPath(WithoutQuotes(name), found);
}

CString SearchPaths(std::u16string_view name, SearchKind kind)
{
    FoundProgram found;
    return SearchPaths(name, found, kind) ? found.file : CString();
}

CString SearchAlong(std::u16string_view name, std::u16string_view list)
{
    FileSystem files;
    SearchPlaces places;
    places.list = list;
    return HasWildcards(name) ? CString() : SearchInOrder(name, places, files);
}

std::vector<CString> SearchAllPaths(std::u16string_view name)
{
    if (HasWildcards(name))
        return {};
    FileSystem files;
    std::vector<CString> all = SearchAll(name, UsualPlaces(SearchKind::Program), files);
    if (!HasDirectory(WithoutQuotes(name)))
        for (CString& script : SearchAll(name, ScriptPlaces(), files))
            all.push_back(std::move(script));
    FoundProgram registered;
    if (FindApplicationPath(WithoutQuotes(name), registered))
        all.push_back(std::move(registered.file));
    return all;
}
