#include "commands/jump_list_command.h"

#include <algorithm>

#include <windows.h>

#include "core/command_switches.h"
#include "core/path_search.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "platform/jump_list.h"
#include "platform/registry.h"
#include "platform/registry_editing.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp jumplistHelp = {
    u"Shows and changes the tasks and recent files in the taskbar's list of this program.",
    u"JUMPLIST /A\"title\" [/D\"directory\"] [/I\"icon\"] program [arguments]\n"
    u"JUMPLIST /F file ...\n"
    u"JUMPLIST /R\"title\" | /C | /X\n"
    u"JUMPLIST",
    u"/A  add a task, or replace the one with this title\n"
    u"/C  forget the recent files\n"
    u"/D  the directory that the task starts in\n"
    u"/F  add files to the recent ones\n"
    u"/I  the file that holds the task's icon\n"
    u"/R  remove a task\n"
    u"/X  remove all tasks\n"
    u"Alone it shows the tasks and the recent files. A program without directory that is not in the current "
    u"one is searched as commands are. Tasks are kept for this user. The list is that of the shell's own "
    u"program: a console that another program shows has that program's list.",
    u"jumplist /a\"Edit hosts\" notepad.exe C:\\Windows\\System32\\drivers\\etc\\hosts\n"
    u"jumplist /f report.doc\n"
    u"jumplist /r\"Edit hosts\"",
};

namespace {

constexpr std::u16string_view storeKey = u"Software\\Halden\\JumpList";
constexpr char16_t fieldEnd = u'\x1F';

RegistryName EntryOf(const CString& title)
{
    RegistryName name;
    name.root = u"HKCU";
    name.key = storeKey;
    name.value = title;
    return name;
}

CString TakeField(std::u16string_view& text)
{
    const std::size_t end = std::min(text.find(fieldEnd), text.size());
    CString field(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

std::vector<JumpTask> ReadTasks()
{
    std::vector<JumpTask> tasks;
    const RegistryKey store(RegistryRoot::CurrentUser, storeKey);
    for (const CString& title : store.ValueNames()) {
        const CString text = store.Text(title).value_or(CString());
        std::u16string_view rest = text;
        JumpTask task;
        task.title = title;
        task.program = TakeField(rest);
        task.arguments = TakeField(rest);
        task.directory = TakeField(rest);
        task.icon = TakeField(rest);
        tasks.push_back(std::move(task));
    }
    std::sort(tasks.begin(), tasks.end(),
              [](const JumpTask& a, const JumpTask& b) { return CompareNoCase(a.title, b.title) < 0; });
    return tasks;
}

unsigned Keep(const JumpTask& task)
{
    CString text = task.program;
    for (const CString& field : {task.arguments, task.directory, task.icon})
        text.Append(fieldEnd).Append(field);
    RegistryData data;
    data.type = REG_SZ;
    ReadRegistryData(text, data);
    return WriteRegistryValue(EntryOf(task.title), data);
}

int Publish()
{
    const unsigned failed = SetJumpTasks(ReadTasks());
    return failed ? MVError(failed) : result::success;
}

int ShowAll()
{
    for (const JumpTask& task : ReadTasks())
        PrintLine(Format(u"%-24s %s %s", task.title, AddQuotes(task.program), task.arguments));
    for (const CString& name : RecentFiles())
        PrintLine(name);
    return result::success;
}

int Add(JumpTask task, const CString& command)
{
    const Word word = NextBlankWord(command, 0);
    const CString program = WithoutQuotes(command.view().substr(word.start, word.length));
    if (program.empty() || task.title.empty())
        return UsageError();
    const bool bare = !HasDirectory(program) && !QueryIsFile(program);
    task.program = bare ? SearchPaths(program) : FullPathName(program);
    if (task.program.empty() || !QueryIsFile(task.program))
        return MVError(ERROR_FILE_NOT_FOUND, program);
    task.arguments = command.Substr(word.end()).Trim();
    if (const unsigned failed = Keep(task))
        return MVError(failed, task.title);
    return Publish();
}

int Remove(const CString& title)
{
    if (title.empty())
        return UsageError();
    if (const unsigned failed = DeleteRegistryValue(EntryOf(title)))
        return failed == ERROR_FILE_NOT_FOUND ? MVError(errors::noTask, title) : MVError(failed, title);
    return Publish();
}

int RemoveAll()
{
    for (const JumpTask& task : ReadTasks())
        if (const unsigned failed = DeleteRegistryValue(EntryOf(task.title)))
            return MVError(failed, task.title);
    return Publish();
}

int AddFiles(const CString& arguments)
{
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    int code = names.empty() ? UsageError() : result::success;
    for (const CString& name : names) {
        if (QueryIsFile(WithoutQuotes(name)))
            AddRecentFile(WithoutQuotes(name));
        else
            code = MVError(ERROR_FILE_NOT_FOUND, WithoutQuotes(name));
    }
    return code;
}

} // namespace

int Jumplist_Command(CString& arguments)
{
    enum class Wish { Show, Add, Forget, AddFiles, Remove, RemoveAll } wish = Wish::Show;
    JumpTask task;
    CString one;
    while (TakeLeadingSwitch(arguments, one)) {
        if (EqualNoCase(one, u"C")) {
            wish = Wish::Forget;
        } else if (EqualNoCase(one, u"F")) {
            wish = Wish::AddFiles;
        } else if (EqualNoCase(one, u"X")) {
            wish = Wish::RemoveAll;
        } else if (const auto title = SwitchValue(one, u"A")) {
            wish = Wish::Add;
            task.title = *title;
        } else if (const auto removed = SwitchValue(one, u"R")) {
            wish = Wish::Remove;
            task.title = *removed;
        } else if (const auto directory = SwitchValue(one, u"D")) {
            task.directory = *directory;
        } else if (const auto icon = SwitchValue(one, u"I")) {
            task.icon = *icon;
        } else {
            return RefuseSwitch(one);
        }
    }
    arguments.Trim();
    if (!arguments.empty() && wish != Wish::Add && wish != Wish::AddFiles)
        return UsageError();
    switch (wish) {
    case Wish::Add: return Add(task, arguments);
    case Wish::AddFiles: return AddFiles(arguments);
    case Wish::Remove: return Remove(task.title);
    case Wish::RemoveAll: return RemoveAll();
    case Wish::Forget: {
        const unsigned failed = ForgetRecentFiles();
        return failed ? MVError(failed) : result::success;
    }
    case Wish::Show: break;
    }
    return ShowAll();
}
