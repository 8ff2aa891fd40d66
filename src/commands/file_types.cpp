#include "commands/file_types.h"

#include <windows.h>

#include "commands/pager.h"
#include "core/command_switches.h"
#include "core/file_classes.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_lines.h"
#include "files/wildcards.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp assocHelp = {
    u"Shows and changes which types the extensions of files have.",
    u"ASSOC [/P] [/R file ...] [/U] [.extension[=[type]]]",
    u"/P  pause when the screen is full\n"
    u"/R  read lines \".extension=type\" from files\n"
    u"/U  of this user alone; otherwise all that hold are shown, and those of all users changed, as only "
    u"administrators may\n"
    u"Without an extension all are shown; wildcards show those that fit. Nothing behind the \"=\" takes the "
    u"type away. What a user has chosen in the desktop's box comes first and is not changed.",
    u"assoc .txt\n"
    u"assoc .h*\n"
    u"assoc /u .log=txtfile",
};

const CommandHelp ftypeHelp = {
    u"Shows and changes which programs open files of a type.",
    u"FTYPE [/P] [/R file ...] [/U] [type[=[command]]]",
    u"/P  pause when the screen is full\n"
    u"/R  read lines \"type=command\" from files\n"
    u"/U  of this user alone; otherwise all that hold are shown, and those of all users changed, as only "
    u"administrators may\n"
    u"Without a type all are shown; wildcards show those that fit. In the command %1 stands for the file "
    u"and %* for the arguments behind it (in a batch file %%1 and %%*). Nothing behind the \"=\" takes the "
    u"command away.",
    u"ftype txtfile\n"
    u"ftype /u perlfile=\"C:\\Perl\\perl.exe\" \"%1\" %*",
};

const CommandHelp associateHelp = {
    u"Shows, makes and removes the whole association of an extension: type, program, description and icon.",
    u"ASSOCIATE .extension ...\n"
    u"ASSOCIATE [/D\"description\"] [/I\"icon[,number]\"] [/M] [/Ttype] .extension program [arguments]\n"
    u"ASSOCIATE /X [/M] .extension ...",
    u"/D  the description of the type\n"
    u"/I  the file that holds its icon, and which one of several\n"
    u"/M  for all users, as only administrators may; otherwise for this user\n"
    u"/T  the type; otherwise one is made for the extension\n"
    u"/X  remove the association, and a type that was made for the extension\n"
    u"A program without %1 in its arguments gets the file's name as its last one (in a batch file %%1). "
    u"What a user has chosen in the desktop's box comes first: it is shown, and no program may change it.",
    u"associate .log\n"
    u"associate /d\"Notes\" .note C:\\Windows\\notepad.exe\n"
    u"associate /x .note",
};

namespace {

// What parts ASSOC from FTYPE.
struct ClassTable {
    ClassText which;
    bool extensions;
    unsigned missing; // the error for a name that has no entry
};
constexpr ClassTable typesOfExtensions = {ClassText::Itself, true, errors::noFileType};
constexpr ClassTable commandsOfTypes = {ClassText::Command, false, errors::noTypeCommand};

class ClassWork {
public:
    ClassWork(const ClassTable& of, ClassesOf theirs, bool pauses) : table(of), whose(theirs), pager(pauses)
    {}

    // "name", "name=" or "name=text"; all of it, or the name, may stand in quotes.
    int Take(std::u16string_view text)
    {
        if (text.size() > 1 && text.front() == u'"' && text.back() == u'"' &&
            text.find(u'"', 1) >= text.find(u'='))
            text = text.substr(1, text.size() - 2);
        const std::size_t equals = text.find(u'=');
        CString name = WithoutQuotes(CString(text.substr(0, equals)).Trim());
        if (name.empty() || (table.extensions && name.front() != u'.' && !HasWildcards(name)))
            return MVError(errors::syntax, name);
        return equals == text.npos ? Show(name) : Change(name, CString(text.substr(equals + 1)).Trim());
    }

    int ShowAll() { return Show(u"*"); }

    int ReadFile(const CString& name)
    {
        TextLines lines;
        if (!lines.Open(name))
            return MVError(0, name);
        int code = result::success;
        std::u16string_view line;
        while (lines.Next(line)) {
            const CString text = CString(line).Trim();
            if (text.empty() || text.front() == u';')
                continue;
            if (text.Find(u'=') == CString::npos)
                code = MVError(errors::listFileLine, text);
            else if (const int one = Take(text))
                code = one;
        }
        return code;
    }

    bool Changed() const { return changed; }

private:
    int Show(const CString& name)
    {
        if (!HasWildcards(name)) {
            const std::optional<CString> text = ReadClassText(whose, name, table.which);
            if (!text)
                return MVError(table.missing, name);
            return Line(name, *text);
        }
        bool any = false;
        for (const CString& one : ClassNames(whose, table.which, table.extensions)) {
            if (WildcardComparison(name, one, false, true) != 0)
                continue;
            any = true;
            if (const int code = Line(one, ReadClassText(whose, one, table.which).value_or(CString())))
                return code;
        }
        return any ? result::success : MVError(table.missing, name);
    }

    int Change(const CString& name, const CString& text)
    {
        if (HasWildcards(name))
            return MVError(errors::syntax, name);
        const unsigned failed = text.empty() ? RemoveClassText(whose, name, table.which)
                                             : WriteClassText(whose, name, table.which, text);
        if (failed == ERROR_FILE_NOT_FOUND && text.empty())
            return MVError(table.missing, name);
        if (failed)
            return MVError(failed, name);
        changed = true;
        return text.empty() ? result::success : Line(name, text);
    }

    int Line(const CString& name, const CString& text)
    {
        return pager.Line(Format(u"%s=%s", name, text)) ? result::success : MVError(0);
    }

    const ClassTable& table;
    ClassesOf whose;
    Pager pager;
    bool changed = false;
};

int RunClassCommand(CString& arguments, const ClassTable& table)
{
    std::uint64_t flags = 0;
    // The text behind the name is a command, with switches of its own.
    if (const int code = ReadSwitches(arguments, u"PRU", flags, SwitchPlace::Leading))
        return code;
    arguments.Trim();
    ClassWork work(table, (flags & 4) != 0 ? ClassesOf::User : ClassesOf::Everybody, (flags & 1) != 0);
    int code = result::success;
    if ((flags & 2) != 0) {
        const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
        if (names.empty())
            return UsageError();
        for (const CString& name : names)
            if (const int one = work.ReadFile(WithoutQuotes(name)))
                code = one;
    } else {
        code = arguments.empty() ? work.ShowAll() : work.Take(arguments);
    }
    if (work.Changed())
        NotifyOfFileTypes();
    return code;
}

struct AssociateOptions {
    CString description;
    CString icon;
    CString type;
    ClassesOf whose = ClassesOf::User;

    bool HasDetails() const { return !description.empty() || !icon.empty() || !type.empty(); }
};

// A program in this directory or above it begins with a period, too.
bool IsExtension(std::u16string_view word)
{
    return word.size() > 1 && word.front() == u'.' && word.find_first_of(u"\\/") == word.npos;
}

// The name of a type that is made for one extension.
CString OwnType(const CString& extension) { return CString(u"Halden") + extension; }

// The user's own comes in front of everybody's.
std::optional<CString> FirstText(const CString& name, ClassText which)
{
    const std::optional<CString> own = ReadClassText(ClassesOf::User, name, which);
    return own ? own : ReadClassText(ClassesOf::Everybody, name, which);
}

int ShowAssociation(const CString& extension)
{
    const CString chosen = ChosenClass(extension);
    const std::optional<CString> registered = FirstText(extension, ClassText::Itself);
    const CString type = !chosen.empty() ? chosen : registered.value_or(CString());
    if (type.empty())
        return MVError(errors::noFileType, extension);
    const auto text = [&](ClassText which) { return FirstText(type, which).value_or(CString()); };
    PrintLine(extension);
    PrintLine(Format(u"  %-14s %s", LoadMessage(message::typeLabel), registered.value_or(CString())));
    if (!chosen.empty())
        PrintLine(Format(u"  %-14s %s", LoadMessage(message::chosenLabel), chosen));
    PrintLine(Format(u"  %-14s %s", LoadMessage(message::descriptionLabel), text(ClassText::Itself)));
    PrintLine(Format(u"  %-14s %s", LoadMessage(message::commandLabel), text(ClassText::Command)));
    PrintLine(Format(u"  %-14s %s", LoadMessage(message::iconLabel), text(ClassText::Icon)));
    return result::success;
}

int RemoveAssociation(const CString& extension, ClassesOf whose)
{
    if (const unsigned failed = RemoveClassText(whose, extension, ClassText::Itself))
        return failed == ERROR_FILE_NOT_FOUND ? MVError(errors::noFileType, extension)
                                              : MVError(failed, extension);
    const unsigned failed = RemoveClass(whose, OwnType(extension));
    return failed && failed != ERROR_FILE_NOT_FOUND ? MVError(failed, OwnType(extension)) : result::success;
}

// The extension is given its type last: until then nothing has changed for anybody.
int MakeAssociation(const CString& extension, CString command, const AssociateOptions& options)
{
    const CString type = options.type.empty() ? OwnType(extension) : options.type;
    if (command.Find(u"%1") == CString::npos)
        command += u" \"%1\"";
    unsigned failed = WriteClassText(options.whose, type, ClassText::Command, command);
    if (!failed && !options.description.empty())
        failed = WriteClassText(options.whose, type, ClassText::Itself, options.description);
    if (!failed && !options.icon.empty())
        failed = WriteClassText(options.whose, type, ClassText::Icon, options.icon);
    if (failed)
        return MVError(failed, type);
    failed = WriteClassText(options.whose, extension, ClassText::Itself, type);
    return failed ? MVError(failed, extension) : result::success;
}

} // namespace

int Assoc_Command(CString& arguments) { return RunClassCommand(arguments, typesOfExtensions); }

int Ftype_Command(CString& arguments) { return RunClassCommand(arguments, commandsOfTypes); }

int Associate_Command(CString& arguments)
{
    AssociateOptions options;
    bool removes = false;
    CString one;
    // What follows the extension is a command with switches of its own.
    while (TakeLeadingSwitch(arguments, one)) {
        if (const auto description = SwitchValue(one, u"D"))
            options.description = *description;
        else if (const auto icon = SwitchValue(one, u"I"))
            options.icon = *icon;
        else if (const auto type = SwitchValue(one, u"T"))
            options.type = *type;
        else if (EqualNoCase(one, u"M"))
            options.whose = ClassesOf::Everybody;
        else if (EqualNoCase(one, u"X"))
            removes = true;
        else
            return RefuseSwitch(one);
    }
    const Word word = NextBlankWord(arguments, 0);
    const CString extension = WithoutQuotes(arguments.view().substr(word.start, word.length));
    if (!IsExtension(extension))
        return UsageError();
    const CString rest = arguments.Substr(word.end()).Trim();
    const CString next(rest.view().substr(0, NextBlankWord(rest, 0).end()));
    const bool several = rest.empty() || IsExtension(next);
    const bool makes = !several && !removes;
    if (makes ? WithoutQuotes(next).empty() : options.HasDetails())
        return UsageError();
    if (makes) {
        const int code = MakeAssociation(extension, rest, options);
        NotifyOfFileTypes();
        return code;
    }
    int code = result::success;
    for (const CString& name : SplitArguments(arguments, true, CurrentSyntax()))
        if (const int outcome = removes ? RemoveAssociation(WithoutQuotes(name), options.whose)
                                        : ShowAssociation(WithoutQuotes(name)))
            code = outcome;
    if (removes)
        NotifyOfFileTypes();
    return code;
}
