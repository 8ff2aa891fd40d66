// What is known about one file: times, attributes, owner, links, description, kind of contents.
//
// A file that is not there has no date, no attributes and no owner: texts are then empty, and numbers -1.
#include "functions/families.h"

#include <algorithm>

#include "core/associations.h"
#include "core/executable_type.h"
#include "engine/country.h"
#include "files/attribute_masks.h"
#include "files/descriptions.h"
#include "files/ranges.h"
#include "files/text_reader.h"
#include "functions/arguments.h"
#include "functions/date_forms.h"
#include "functions/file_answers.h"
#include "lang/function_messages.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/file_properties.h"
#include "platform/file_users.h"
#include "platform/link_target.h"
#include "platform/registry.h"
#include "platform/version_resource.h"
#include "text/compare.h"
#include "text/content_kind.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

// Which of a file's times is meant, in the letters that the ranges use: w, a or c, "u" behind it for UTC.
struct TimeChoice {
    char16_t kind = u'W';
    bool utc = false;
};

bool ReadTimeChoice(View text, TimeChoice& choice)
{
    if (text.empty())
        return true;
    choice.kind = UpperCase(text[0]);
    choice.utc = text.size() == 2 && UpperCase(text[1]) == u'U';
    return View(u"WAC").find(choice.kind) != View::npos && (text.size() == 1 || choice.utc);
}

const FILETIME& ChosenTime(const FileFacts& facts, char16_t kind)
{
    return kind == u'A' ? facts.accessed : kind == u'C' ? facts.created : facts.written;
}

// The chosen time of the first argument's file. `there` stays false for a file that does not exist.
int ReadChosenTime(const FunctionArguments& arguments, bool inUtc, std::uint64_t& time, bool& there)
{
    TimeChoice choice;
    if (arguments.Error())
        return arguments.Error();
    if (!ReadTimeChoice(arguments.Text(1), choice))
        return Refuse(errors::unknownFileTime);
    const auto facts = ReadFileFacts(FileArgument(arguments.Text(0)));
    there = facts.has_value();
    if (!there)
        return 0;
    time = FileTimeNumber(ChosenTime(*facts, choice.kind));
    if (!inUtc && !choice.utc)
        time = LocalFileTimes().Convert(time);
    return 0;
}

bool SameContents(const CString& one, const CString& other)
{
    TextReader first;
    TextReader second;
    std::string left;
    std::string right;
    if (!first.Open(one) || !second.Open(other))
        return false;
    do {
        if (!first.ReadBytes(left) || !second.ReadBytes(right) || left != right)
            return false;
    } while (!left.empty());
    return true;
}

} // namespace

// @filedate[name[,time[,form]]], @filetime[name[,time]], @fileage[name[,time]]: the day, the time of day,
// and both as a file time (100 nanoseconds since 1601, UTC). `time` is w, a or c, with a "u" behind it in
// UTC.
int Filedate_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|tt");
    const auto form = arguments.Has(2) ? FindDateForm(arguments.Text(2)) : DateForm::Local;
    std::uint64_t time = 0;
    bool there = false;
    if (!form)
        return answer::invalidForm;
    if (const int code = ReadChosenTime(arguments, false, time, there))
        return code;
    const auto date = there ? DateFromDays(MomentOfFileTime(time).day) : std::nullopt;
    return answer::ForeignText(call, date ? FormatDateAs(*date, *form, Country()) : CString());
}

int Filetime_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|t");
    std::uint64_t time = 0;
    bool there = false;
    if (const int code = ReadChosenTime(arguments, false, time, there))
        return code;
    if (!there)
        return answer::ForeignText(call, View());
    const int second = MomentOfFileTime(time).second;
    const char16_t separator = Country().timeSeparator;
    return answer::ForeignText(call, Format(u"%02d%c%02d%c%02d", second / 3600, separator, second / 60 % 60,
                                            separator, second % 60));
}

int Fileage_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|t");
    std::uint64_t time = 0;
    bool there = false;
    if (const int code = ReadChosenTime(arguments, true, time, there))
        return code;
    return answer::Number(call, there ? static_cast<std::int64_t>(time) : -1);
}

// @attrib[name[,attributes]]: the attributes as letters, or whether a selection by /A would take the file.
int Attrib_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|t");
    const auto attributes = ReadFileAttributes(FileArgument(arguments.Text(0)));
    if (!arguments.Has(1))
        return answer::ForeignText(call, attributes ? AttributeLetters(*attributes) : CString());
    AttributeMasks masks;
    if (const int code = GetSearchAttributes(arguments.Text(1), masks))
        return code;
    return answer::Flag(call, attributes && masks.Select(*attributes));
}

// @wattrib[name,letters]: sets attributes, or clears those with "-" in front; whether that was done.
int Wattrib_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    const CString name = FileArgument(arguments.Text(0));
    const auto change = ReadAttributeChange(arguments.Text(1));
    if (!change)
        return Refuse(errors::unknownAttribute);
    const auto attributes = ReadFileAttributes(name);
    return answer::Flag(call, attributes &&
                                  WriteFileAttributes(name, (*attributes & ~change->clear) | change->set));
}

// @owner[name]: "DOMAIN\name".
int Owner_Function(FunctionCall& call)
{
    return answer::ForeignText(call, FileOwner(FileArgument(call.arguments)));
}

// @descript[name]: the description.
int Descript_Function(FunctionCall& call)
{
    const CString name = FileArgument(call.arguments);
    return answer::ForeignText(call, DirectoryDescriptions(DirectoryPart(name)).Of(FileNamePart(name)));
}

// @inode[name]: the number by which the file system knows the file. @links[name]: how many names it has.
int Inode_Function(FunctionCall& call)
{
    const auto identity = IdentifyFile(FileArgument(call.arguments));
    return answer::ForeignText(call, identity ? Format(u"%u", identity->file) : CString(u"-1"));
}

int Links_Function(FunctionCall& call)
{
    const auto identity = IdentifyFile(FileArgument(call.arguments));
    return answer::Number(call, identity ? std::int64_t{identity->links} : -1);
}

// @junction[name], @symlink[name]: where it leads to; "" for anything else.
int Junction_Function(FunctionCall& call)
{
    const LinkTarget link = ReadLinkTarget(FileArgument(call.arguments));
    return answer::ForeignText(call, link.kind == LinkKind::Junction ? link.target : CString());
}

int Symlink_Function(FunctionCall& call)
{
    const LinkTarget link = ReadLinkTarget(FileArgument(call.arguments));
    return answer::ForeignText(call, link.kind == LinkKind::SymbolicLink ? link.target : CString());
}

// @exetype[name]: the kind of program, by the numbers of core/executable_type.h.
int Exetype_Function(FunctionCall& call)
{
    return answer::Number(call, GetExeType(FileArgument(call.arguments)));
}

// @filetype[name]: what the file seems to hold (text/content_kind.h).
int Filetype_Function(FunctionCall& call)
{
    TextReader reader;
    std::string block;
    const bool read = reader.Open(FileArgument(call.arguments)) && reader.ReadBytes(block);
    return answer::ForeignText(call, read ? ContentKind(block) : View());
}

// @compare[name,other]: whether both files hold the same.
int Compare_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    const CString one = FileArgument(arguments.Text(0));
    const CString other = FileArgument(arguments.Text(1));
    const auto facts = ReadFileFacts(one);
    const auto otherFacts = ReadFileFacts(other);
    return answer::Flag(call,
                        facts && otherFacts && facts->size == otherFacts->size && SameContents(one, other));
}

// @filelock[name]: the ids of the processes that hold the file open, parted by blanks.
int Filelock_Function(FunctionCall& call)
{
    CString text;
    for (const std::uint32_t id : ProcessesUsing(FileArgument(call.arguments)))
        text.Append(text.empty() ? u"" : u" ").Append(Format(u"%u", id));
    return answer::ForeignText(call, text);
}

// @verinfo[name[,item]]: a text of the version resource, FileVersion when no item is named.
int Verinfo_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|t");
    const View item = arguments.Has(1) ? arguments.Text(1) : u"FileVersion";
    return answer::ForeignText(call, VersionText(FileArgument(arguments.Text(0)), item));
}

// @properties[name,property]: a property as the Windows shell shows it, by its full name ("System.Author") or
// without "System.".
int Properties_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    return answer::ForeignText(
        call, FileProperty(FileArgument(arguments.Text(0)), CString(arguments.Text(1)).Trim()));
}

// @summary[name,item]: an item of a document's summary (Title, Subject, Author, Keywords, Comments ...).
int Summary_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    return answer::ForeignText(
        call, SummaryProperty(FileArgument(arguments.Text(0)), CString(arguments.Text(1)).Trim()));
}

// @assoc[extension]: the file type that is registered for it. @ftype[type or extension]: the command that
// opens such files.
int Assoc_Function(FunctionCall& call)
{
    const CString extension = FileArgument(call.arguments);
    const CString key = extension.front() == u'.' ? extension : CString(u".") + extension;
    return answer::ForeignText(call, ReadRegistryText(RegistryRoot::ClassesRoot, key).value_or(CString()));
}

int Ftype_Function(FunctionCall& call)
{
    const CString type = FileArgument(call.arguments);
    Association found;
    if (type.front() == u'.')
        return answer::ForeignText(call, MyFindExecutable(type, found) ? found.commandTemplate : CString());
    const CString key = type + u"\\shell\\open\\command";
    return answer::ForeignText(
        call,
        type.empty() ? CString() : ReadRegistryText(RegistryRoot::ClassesRoot, key).value_or(CString()));
}
