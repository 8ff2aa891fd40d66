// Functions that select files as commands do: totals over them, lists of them, and searches that go on from
// call to call.
//
// A selection is a name (a pattern, a list, "@file" ...; files/file_search.h), in front of which ranges and
// "/S" for the directories below may stand. Hidden and system files are passed over unless attributes are
// named.
#include "functions/families.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <windows.h>

#include "engine/state.h"
#include "expand/expansion.h"
#include "files/file_search.h"
#include "functions/amounts.h"
#include "functions/arguments.h"
#include "lang/errors.h"
#include "lang/function_messages.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

// A search that @findfirst began.
struct OpenSearch {
    CString name; // as it was given to @findfirst
    FILESEARCH search;
};

struct OpenSearches {
    std::vector<std::unique_ptr<OpenSearch>> open; // newest last
};

namespace {

using View = std::u16string_view;

constexpr std::size_t mostSearches = 100;

// "/S" and "/S" with a number of levels, at the start of the text.
bool TakeLevels(CString& text, const Syntax& syntax, int& deepest)
{
    if (text[0] != syntax.switchChar || UpperCase(text[1]) != u'S')
        return false;
    std::size_t end = 2;
    while (IsDigit(text[end]))
        ++end;
    if (end < text.size() && !IsBlank(text[end]))
        return false;
    const auto levels = ReadDecimal(text.view().substr(2, end - 2));
    deepest = static_cast<int>(std::min<std::int64_t>(levels.value_or(allLevels), allLevels));
    text.Erase(0, end);
    return true;
}

// What such a function is given: its arguments without the switches in front, which are in `search`.
class SelectionCall {
public:
    SelectionCall(FunctionCall& call, View pattern, FILESEARCH& search)
        : text(call.arguments), code(TakeSwitches(call.syntax, search)),
          arguments(FunctionCall{text, call.value, call.syntax}, pattern)
    {}

    int Error() const { return code ? code : arguments.Error(); }
    bool Has(std::size_t n) const { return arguments.Has(n); }
    View Text(std::size_t n) const { return arguments.Text(n); }
    // The files to look for; all of the current directory when none are named.
    CString Name() const
    {
        CString name(arguments.Text(0));
        name.Trim();
        if (name.front() == u'`') // double quotes are the search's own
            name = BareArgument(name);
        return name.empty() ? CString(u"*") : name;
    }

private:
    int TakeSwitches(const Syntax& syntax, FILESEARCH& search)
    {
        std::size_t before = 0;
        do {
            before = text.TrimLeft().size();
            // An error has been reported.
            if (const int failed = GetRange(text, &search.ranges, 1))
                return -failed;
            TakeLevels(text.TrimLeft(), syntax, search.deepest);
        } while (text.size() != before);
        return 0;
    }

    CString text;
    int code;
    FunctionArguments arguments;
};

// The second argument names attributes. Without it directories are no files.
int ReadAttributes(const SelectionCall& selection, FILESEARCH& search)
{
    if (selection.Has(1))
        return GetSearchAttributes(selection.Text(1), search.attributes);
    return 0;
}

void FilesOnly(AttributeMasks& masks)
{
    if (((masks.required | masks.anyOf) & file_attribute::directory) == 0)
        masks.forbidden |= file_attribute::directory;
}

// What cannot be selected because the question is wrong; a directory that is not there only holds nothing.
int SelectionError(const FILESEARCH& search)
{
    return search.error == ERROR_INVALID_PARAMETER ? Refuse(search.error) : 0;
}

int AnswerCount(FunctionCall& call, FILESEARCH& search, const CString& name)
{
    std::int64_t count = 0;
    for (bool found = FindFiles(search, name); found; found = FindFiles(search))
        ++count;
    const int code = SelectionError(search);
    return code ? code : answer::Number(call, count);
}

bool IsPlainName(const CString& name)
{
    return !HasWildcards(name) && name.view().find_first_of(u";@[") == View::npos &&
           !name.view().starts_with(u"::") && QueryIsFile(FileArgument(name));
}

std::uint64_t AllocatedSize(const CString& fullName, std::uint64_t size, bool onDisk)
{
    return onDisk ? CompressedFileSize(fullName).value_or(size) : size;
}

// The sizes of all files selected; nothing when there are none.
std::optional<std::uint64_t> TotalSize(FILESEARCH& search, const CString& name, bool onDisk)
{
    // One file that is named is taken whatever its attributes.
    if (search.deepest == 0 && IsPlainName(name))
        search.attributes = AttributeMasks::Everything();
    FilesOnly(search.attributes);
    search.intoDirectories = true;
    std::uint64_t total = 0;
    bool any = false;
    for (bool found = FindFiles(search, name); found; found = FindFiles(search)) {
        total += AllocatedSize(search.fullName, search.file.facts.size, onDisk);
        any = true;
    }
    if (!any && !QueryIsDirectory(FileArgument(name)))
        return std::nullopt;
    return total;
}

OpenSearches& Searches()
{
    if (!aRooms.searches)
        aRooms.searches = std::make_shared<OpenSearches>();
    return *aRooms.searches;
}

// The newest search that was begun with the name; with no name the newest of all.
std::vector<std::unique_ptr<OpenSearch>>::iterator FindSearch(View argument)
{
    const CString name = CString(argument).Trim();
    auto& open = Searches().open;
    const auto found = std::find_if(open.rbegin(), open.rend(), [&](const std::unique_ptr<OpenSearch>& one) {
        return name.empty() || EqualNoCase(one->name, name);
    });
    return found == open.rend() ? open.end() : std::prev(found.base());
}

} // namespace

// @files[selection[,attributes]]: how many files there are. @folders[selection[,attributes]]: how many
// directories.
int Files_Function(FunctionCall& call)
{
    FILESEARCH search;
    const SelectionCall selection(call, u"s|t", search);
    int code = selection.Error();
    if (!code)
        code = ReadAttributes(selection, search);
    FilesOnly(search.attributes);
    search.intoDirectories = true;
    return code ? code : AnswerCount(call, search, selection.Name());
}

int Folders_Function(FunctionCall& call)
{
    FILESEARCH search;
    const SelectionCall selection(call, u"s|t", search);
    int code = selection.Error();
    if (!code)
        code = ReadAttributes(selection, search);
    search.attributes.required |= file_attribute::directory;
    search.intoDirectories = true;
    return code ? code : AnswerCount(call, search, selection.Name());
}

// @filesize[selection[,unit[,a]]]: the size of all of them together; with "a" what they take on the disk. -1
// when there are none.
int Filesize_Function(FunctionCall& call)
{
    FILESEARCH search;
    AmountUnit unit;
    const SelectionCall selection(call, u"s|tt", search);
    if (selection.Error())
        return selection.Error();
    if (!ReadAmountUnit(selection.Text(1), unit))
        return Refuse(errors::unknownUnit);
    if (selection.Has(2) && !EqualNoCase(selection.Text(2), u"a"))
        return Refuse(ERROR_INVALID_PARAMETER);
    const auto total = TotalSize(search, selection.Name(), selection.Has(2));
    if (const int code = SelectionError(search))
        return code;
    return total ? AnswerAmount(call, *total, unit) : answer::Number(call, -1);
}

// @expand[selection[,attributes]]: the names of all files and directories, parted by blanks, in quotes where
// they need them.
int Expand_Function(FunctionCall& call)
{
    FILESEARCH search;
    const SelectionCall selection(call, u"s|t", search);
    int code = selection.Error();
    if (!code)
        code = ReadAttributes(selection, search);
    if (code)
        return code;
    CString names;
    for (bool found = FindFiles(search, selection.Name()); found; found = FindFiles(search)) {
        names.Append(names.empty() ? u"" : u" ").Append(AddQuotes(search.name));
        if (names.size() > longestExpansion)
            return Refuse(errors::lineTooLong);
    }
    code = SelectionError(search);
    return code ? code : answer::ForeignText(call, names);
}

// @findfirst[selection[,attributes]], @findnext[[selection]], @findclose[[selection]]: the files one by one,
// "" behind the last one. Several searches may be open; each goes by what @findfirst was given, and without
// it the newest is meant. A search that has come to its end is closed.
int Findfirst_Function(FunctionCall& call)
{
    auto fresh = std::make_unique<OpenSearch>();
    FILESEARCH& search = fresh->search;
    const SelectionCall selection(call, u"s|t", search);
    int code = selection.Error();
    if (!code)
        code = ReadAttributes(selection, search);
    if (code)
        return code;
    auto& open = Searches().open;
    fresh->name = CString(call.arguments).Trim();
    if (const auto same = FindSearch(call.arguments);
        same != open.end() && EqualNoCase((*same)->name, fresh->name))
        open.erase(same);
    if (open.size() >= mostSearches)
        return Refuse(ERROR_TOO_MANY_OPEN_FILES);
    const bool found = FindFiles(search, selection.Name());
    if (!found)
        code = SelectionError(search);
    const CString name = found ? search.name : CString();
    if (found)
        open.push_back(std::move(fresh));
    return code ? code : answer::ForeignText(call, name);
}

int Findnext_Function(FunctionCall& call)
{
    const auto place = FindSearch(call.arguments);
    if (place == Searches().open.end())
        return answer::ForeignText(call, View());
    FILESEARCH& search = (*place)->search;
    const bool found = FindFiles(search);
    const CString name = found ? search.name : CString();
    if (!found)
        Searches().open.erase(place);
    return answer::ForeignText(call, name);
}

// 0, or -1 when there is no such search.
int Findclose_Function(FunctionCall& call)
{
    const auto place = FindSearch(call.arguments);
    const bool there = place != Searches().open.end();
    if (there)
        Searches().open.erase(place);
    return answer::Number(call, there ? 0 : -1);
}
