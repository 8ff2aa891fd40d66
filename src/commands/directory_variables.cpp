#include "commands/directory_variables.h"

#include <algorithm>
#include <optional>

#include <windows.h>

#include "commands/definition_text.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_lines.h"
#include "lang/file_messages.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/registry.h"
#include "platform/registry_editing.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp direnvHelp = {
    u"Keeps environment variables for directories: they hold in the directory and all below it.",
    u"DIRENV [/Ddirectory] name=[value]\n"
    u"DIRENV [/Ddirectory]\n"
    u"DIRENV [/Ddirectory] name+=value\n"
    u"DIRENV [/Ddirectory] /Ffile\n"
    u"DIRENV /A | /R | /X [/Ddirectory]",
    u"/A  show all directories that have variables\n"
    u"/D  the directory that is meant; otherwise the current one\n"
    u"/F  read lines \"name=value\" from a file\n"
    u"/R  set what holds in the current directory, as after each change of it\n"
    u"/X  forget all variables of the directory\n"
    u"Alone it shows the variables of the directory. They are set when a command of this shell changes into "
    u"it or below it, those of inner directories last, and get their old values when it is left, unless "
    u"somebody has changed them meanwhile. \"+=\" puts the value in front of what the variable holds. "
    u"Nothing behind the \"=\" forgets a variable. They are kept for this user and never read from the "
    u"directory itself, so that files from elsewhere cannot set anything. The setting DirEnv is another "
    u"matter.",
    u"direnv PYTHONPATH=C:\\work\\lib\n"
    u"direnv /dC:\\work PATH+=C:\\work\\bin;\n"
    u"direnv /a\n"
    u"direnv /x",
};

namespace {

constexpr std::u16string_view storeKey = u"Software\\Halden\\DirEnv";
// Where it is kept what was set and what had been there: with the environment, so that ENDLOCAL and child
// shells find it as they find the variables.
constexpr std::u16string_view stateVariable = u"=DIRENV";
constexpr char16_t fieldEnd = u'\x1F';

struct Variable {
    CString name;
    CString value;
    bool inFront = false; // of what the variable holds
};
using Variables = std::vector<Variable>;

bool ReadDefinition(std::u16string_view text, Variable& variable)
{
    const std::size_t equals = text.find(u'=', 1);
    if (equals == text.npos)
        return false;
    variable.value = text.substr(equals + 1);
    variable.inFront = text[equals - 1] == u'+';
    variable.name = CString(text.substr(0, variable.inFront ? equals - 1 : equals)).Trim();
    return !variable.name.empty() && variable.name.front() != u'=';
}

CString Definition(const Variable& variable)
{
    return Format(u"%s%s=%s", variable.name, variable.inFront ? u"+" : u"", variable.value);
}

RegistryName EntryOf(std::u16string_view directory)
{
    RegistryName name;
    name.root = u"HKCU";
    name.key = storeKey;
    name.value = directory;
    return name;
}

// Texts of a list in the registry have a NUL behind each, and one behind all.
Variables ReadVariables(std::u16string_view directory)
{
    RegistryData data;
    Variables variables;
    if (ReadRegistryValue(EntryOf(directory), data) != 0 || data.type != REG_MULTI_SZ)
        return variables;
    std::u16string_view rest(reinterpret_cast<const char16_t*>(data.bytes.data()),
                             data.bytes.size() / sizeof(char16_t));
    while (!rest.empty() && rest.front() != u'\0') {
        const std::size_t end = std::min(rest.find(u'\0'), rest.size());
        Variable variable;
        if (ReadDefinition(rest.substr(0, end), variable))
            variables.push_back(std::move(variable));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return variables;
}

unsigned WriteVariables(std::u16string_view directory, const Variables& variables)
{
    if (variables.empty()) {
        const unsigned failed = DeleteRegistryValue(EntryOf(directory));
        return failed == ERROR_FILE_NOT_FOUND ? 0 : failed;
    }
    CString list;
    for (const Variable& variable : variables)
        list.Append(Definition(variable)).Append(u'\0');
    list.Append(u'\0');
    RegistryData data;
    data.type = REG_MULTI_SZ;
    const auto* first = reinterpret_cast<const std::byte*>(list.c_str());
    data.bytes.assign(first, first + list.size() * sizeof(char16_t));
    return WriteRegistryValue(EntryOf(directory), data);
}

void Put(Variables& variables, const Variable& variable)
{
    std::erase_if(variables, [&](const Variable& one) { return EqualNoCase(one.name, variable.name); });
    if (!variable.value.empty())
        variables.push_back(variable);
}

// Whether the directory is the upper one or lies below it.
bool IsIn(std::u16string_view directory, std::u16string_view upper)
{
    upper = WithoutEndSeparators(upper);
    if (!BeginsNoCase(directory, upper))
        return false;
    return directory.size() == upper.size() || IsPathSeparator(upper.back()) ||
           IsPathSeparator(directory[upper.size()]);
}

// What was set: for each variable its name, the value that it got, "1" and the value that it had, or "0" and
// nothing.
void TakeBack()
{
    CString state;
    if (!ReadEnvironment(stateVariable, state))
        return;
    std::vector<CString> fields;
    std::u16string_view rest = state;
    for (std::size_t end = rest.find(fieldEnd); end != rest.npos; end = rest.find(fieldEnd)) {
        fields.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    constexpr std::size_t fieldsEach = 4;
    for (std::size_t at = fields.size() / fieldsEach * fieldsEach; at >= fieldsEach; at -= fieldsEach) {
        const CString* record = &fields[at - fieldsEach];
        CString present;
        if (!ReadEnvironment(record[0], present) || !(present == record[1]))
            continue;
        if (record[2] == u"1")
            WriteEnvironment(record[0], record[3]);
        else
            RemoveEnvironment(record[0]);
    }
    RemoveEnvironment(stateVariable);
}

void Set(const Variable& variable, CString& state)
{
    CString before;
    const bool was = ReadEnvironment(variable.name, before);
    const CString value = variable.inFront ? variable.value + before : variable.value;
    if (!WriteEnvironment(variable.name, value))
        return;
    for (const CString& field : {variable.name, value, CString(was ? u"1" : u"0"), before})
        state.Append(field).Append(fieldEnd);
}

int ShowAll()
{
    for (const CString& directory : RegistryKey(RegistryRoot::CurrentUser, storeKey).ValueNames()) {
        PrintLine(directory);
        for (const Variable& variable : ReadVariables(directory))
            PrintLine(CString(u"  ") + Definition(variable));
    }
    return result::success;
}

int ShowOne(const CString& directory)
{
    const Variables variables = ReadVariables(directory);
    for (const Variable& variable : variables)
        PrintLine(Definition(variable));
    return variables.empty() ? MVError(errors::noDirVariables, directory) : result::success;
}

// Lines of a file, all or none.
int ReadFile(const CString& name, Variables& variables)
{
    TextLines lines;
    if (!lines.Open(name))
        return MVError(0, name);
    std::u16string_view line;
    while (lines.Next(line)) {
        const CString text = CString(line).Trim();
        Variable variable;
        if (text.empty() || text.front() == u';')
            continue;
        if (!ReadDefinition(text, variable))
            return MVError(errors::listFileLine, text);
        Put(variables, variable);
    }
    return result::success;
}

int Change(const CString& directory, const CString& fileName, const CString& definition)
{
    Variables variables = ReadVariables(directory);
    Variable variable;
    if (!fileName.empty()) {
        if (const int code = ReadFile(fileName, variables))
            return code;
    } else if (!ReadDefinition(definition, variable)) {
        return UsageError();
    } else {
        Put(variables, variable);
    }
    const unsigned failed = WriteVariables(directory, variables);
    return failed ? MVError(failed, directory) : result::success;
}

} // namespace

void ApplyDirectoryVariables(std::u16string_view directory)
{
    TakeBack();
    const RegistryKey store(RegistryRoot::CurrentUser, storeKey);
    if (!store)
        return;
    std::vector<CString> upper;
    for (CString& name : store.ValueNames())
        if (IsIn(directory, name))
            upper.push_back(std::move(name));
    std::sort(upper.begin(), upper.end(),
              [](const CString& a, const CString& b) { return a.size() < b.size(); });
    CString state;
    for (const CString& name : upper)
        for (const Variable& variable : ReadVariables(name))
            Set(variable, state);
    if (!state.empty())
        WriteEnvironment(stateVariable, state);
}

int Direnv_Command(CString& arguments)
{
    std::optional<CString> given;
    std::optional<CString> file;
    bool all = false;
    bool again = false;
    bool forgets = false;
    CString one;
    // What follows the switches is a definition, slashes and all.
    while (TakeLeadingSwitch(arguments, one)) {
        if (const auto directoryName = SwitchValue(one, u"D"))
            given = WithoutQuotes(*directoryName);
        else if (const auto name = SwitchValue(one, u"F"))
            file = *name;
        else if (EqualNoCase(one, u"A"))
            all = true;
        else if (EqualNoCase(one, u"R"))
            again = true;
        else if (EqualNoCase(one, u"X"))
            forgets = true;
        else
            return RefuseSwitch(one);
    }
    arguments.Trim();
    DropDefinitionQuotes(arguments);
    const int wishes = all + again + forgets + (file || !arguments.empty());
    if (wishes > 1 || (file && file->empty()))
        return UsageError();
    const CString directory(WithoutEndSeparators(given ? FullPathName(*given) : CurrentDirectory()));
    // No name, as of a variable that is not set, must not mean the current directory.
    if ((given && given->empty()) || (!QueryIsDirectory(directory) && !forgets))
        return MVError(ERROR_PATH_NOT_FOUND, given.value_or(CString()));
    int code = result::success;
    if (all)
        return ShowAll();
    if (forgets) {
        if (const unsigned failed = WriteVariables(directory, {}))
            code = MVError(failed, directory);
    } else if (!arguments.empty() || file) {
        code = Change(directory, file.value_or(CString()), arguments);
    } else if (!again) {
        return ShowOne(directory);
    }
    ApplyDirectoryVariables(CurrentDirectory());
    return code;
}
