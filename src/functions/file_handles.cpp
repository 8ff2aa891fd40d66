// Files that scripts hold open by a number: reading, writing and seeking.
//
// Handles are numbered from 1, the smallest free number first, and belong to the whole shell. A handle that
// is not open answers -1, and reading at the end of the file answers **EOF**, so that empty lines can be told
// from it.
#include "functions/families.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <windows.h>

#include "engine/state.h"
#include "expand/expansion.h"
#include "files/text_file.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "functions/line_answers.h"
#include "lang/errors.h"
#include "lang/function_messages.h"
#include "text/compare.h"
#include "text/numbers.h"

struct OpenTextFiles {
    std::vector<std::unique_ptr<TextFile>> files; // handle 1 first
};

namespace {

using View = std::u16string_view;

constexpr std::size_t mostHandles = 256;
constexpr std::int64_t mostCharacters = 1'000'000; // as long as any value

OpenTextFiles& Files()
{
    if (!aRooms.files)
        aRooms.files = std::make_shared<OpenTextFiles>();
    return *aRooms.files;
}

// The place of a handle that is open; null for any other.
std::unique_ptr<TextFile>* FindHandle(std::int64_t handle)
{
    auto& files = Files().files;
    const auto index = static_cast<std::size_t>(handle - 1);
    return handle >= 1 && index < files.size() && files[index] ? &files[index] : nullptr;
}

// The smallest free handle; 0 when there are too many.
std::int64_t KeepFile(std::unique_ptr<TextFile> file)
{
    auto& files = Files().files;
    const auto free = std::find(files.begin(), files.end(), nullptr);
    const std::int64_t handle = free - files.begin() + 1;
    if (free != files.end())
        *free = std::move(file);
    else if (files.size() < mostHandles)
        files.push_back(std::move(file));
    else
        return 0;
    return handle;
}

template <typename Choice> struct Named {
    View name;
    Choice choice;
};

constexpr Named<FileAccess> accesses[] = {
    {u"r", FileAccess::Read},       {u"read", FileAccess::Read},
    {u"w", FileAccess::Write},      {u"write", FileAccess::Write},
    {u"a", FileAccess::Append},     {u"append", FileAccess::Append},
    {u"rw", FileAccess::ReadWrite}, {u"readwrite", FileAccess::ReadWrite},
};

constexpr Named<TextKind> kinds[] = {
    {u"text", TextKind::Recognised}, {u"ansi", TextKind::Ansi},   {u"utf8", TextKind::Utf8},
    {u"utf16", TextKind::Utf16},     {u"bytes", TextKind::Bytes}, {u"b", TextKind::Bytes},
    {u"t", TextKind::Recognised},
};

template <typename Choice, std::size_t count>
const Named<Choice>* FindChoice(const Named<Choice> (&choices)[count], View name)
{
    for (const Named<Choice>& choice : choices)
        if (EqualNoCase(choice.name, CString(name).Trim()))
            return &choice;
    return nullptr;
}

// The number in front of the first comma, and what stands behind it as it stands.
bool ReadHandle(View text, std::int64_t& handle, View& rest)
{
    const std::size_t comma = std::min(text.find(u','), text.size());
    rest = text.substr(std::min(comma + 1, text.size()));
    return ReadNumberArgument(text.substr(0, comma), handle);
}

// Bytes as numbers parted by blanks or commas.
bool ReadByteList(View text, std::string& bytes)
{
    while (!text.empty()) {
        const std::size_t start = std::min(text.find_first_not_of(u" \t,"), text.size());
        text.remove_prefix(start);
        const std::size_t end = std::min(text.find_first_of(u" \t,"), text.size());
        std::int64_t number = 0;
        if (end == 0)
            break;
        if (!ReadNumberArgument(text.substr(0, end), number) || number < 0 || number > 255)
            return false;
        bytes += static_cast<char>(number);
        text.remove_prefix(end);
    }
    return true;
}

int AnswerEnd(FunctionCall& call) { return answer::ForeignText(call, endOfFile); }

} // namespace

// @fileopen[name[,mode[,kind]]]: mode is r (the default), w, a or rw; kind is text, ansi, utf8, utf16 or
// bytes. The handle, or -1.
int Fileopen_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|tt");
    const auto* access = arguments.Has(1) ? FindChoice(accesses, arguments.Text(1)) : &accesses[0];
    const auto* kind = arguments.Has(2) ? FindChoice(kinds, arguments.Text(2)) : &kinds[0];
    if (!access || !kind)
        return Refuse(access ? errors::unknownTextKind : errors::unknownOpenMode);
    auto file = std::make_unique<TextFile>();
    if (!file->Open(FileArgument(arguments.Text(0)), access->choice, kind->choice))
        return answer::Number(call, -1);
    const std::int64_t handle = KeepFile(std::move(file));
    return handle ? answer::Number(call, handle) : Refuse(ERROR_TOO_MANY_OPEN_FILES);
}

// @fileclose[handle]: 0, or -1 when it is not open.
int Fileclose_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    if (file)
        file->reset();
    return answer::Number(call, file ? 0 : -1);
}

// @filehandle[handle]: the full name of the open file, "" when it is none.
int Filehandle_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    return answer::ForeignText(call, file ? (*file)->Name() : CString());
}

// @fileread[handle[,n]]: the next line, or the next n characters.
int Fileread_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|n");
    if (arguments.Error())
        return arguments.Error();
    std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    CString text;
    bool atEnd = false;
    if (!file)
        return answer::Number(call, -1);
    if (!arguments.Has(1))
        return (*file)->ReadLine(text, atEnd) ? AnswerLine(call, text, atEnd) : Refuse(GetLastError());
    const auto count =
        static_cast<std::size_t>(std::clamp<std::int64_t>(arguments.Number(1), 0, mostCharacters));
    if (!(*file)->ReadCharacters(count, text))
        return Refuse(GetLastError());
    return text.empty() && count > 0 ? AnswerEnd(call) : answer::ForeignText(call, text);
}

// @filereadb[handle,n]: the next n bytes as numbers parted by blanks.
int Filereadb_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nn");
    if (arguments.Error())
        return arguments.Error();
    std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    if (!file)
        return answer::Number(call, -1);
    constexpr std::int64_t unitsPerByte = 4;
    std::string bytes;
    const std::int64_t count =
        std::clamp<std::int64_t>(arguments.Number(1), 0, mostCharacters / unitsPerByte);
    if (!(*file)->ReadBytes(static_cast<std::size_t>(count), bytes))
        return Refuse(GetLastError());
    if (bytes.empty() && count > 0)
        return AnswerEnd(call);
    CString text;
    for (const char byte : bytes)
        text.Append(text.empty() ? u"" : u" ").Append(Format(u"%u", static_cast<unsigned char>(byte)));
    return answer::ForeignText(call, text);
}

// @filewrite[handle,text]: the text, as it stands behind the comma, and a line end. The bytes written, or -1.
int Filewrite_Function(FunctionCall& call)
{
    std::int64_t handle = 0;
    View text;
    if (!ReadHandle(call.arguments, handle, text))
        return Refuse(errors::invalidNumber);
    std::unique_ptr<TextFile>* file = FindHandle(handle);
    return answer::Number(call, file ? (*file)->WriteText(CString(text) + u"\r\n") : -1);
}

// @filewriteb[handle,bytes]: bytes as numbers. How many were written, or -1.
int Filewriteb_Function(FunctionCall& call)
{
    std::int64_t handle = 0;
    View list;
    std::string bytes;
    if (!ReadHandle(call.arguments, handle, list) || !ReadByteList(list, bytes))
        return Refuse(errors::invalidNumber);
    std::unique_ptr<TextFile>* file = FindHandle(handle);
    return answer::Number(call, file ? (*file)->WriteBytes(bytes) : -1);
}

// @fileseek[handle,offset[,origin]]: origin is 0 for the start, 1 for the present place, 2 for the end;
// without one a negative offset counts from the end. The new place in bytes, or -1.
int Fileseek_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nn|n");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t offset = arguments.Number(1);
    const std::int64_t origin = arguments.Number(2, offset < 0 ? 2 : 0);
    if (origin < 0 || origin > 2)
        return Refuse(errors::invalidNumber);
    std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    if (!file)
        return answer::Number(call, -1);
    const std::int64_t from = origin == 0 ? 0 : origin == 1 ? (*file)->Place() : (*file)->Size();
    std::int64_t place = 0;
    if (__builtin_add_overflow(from, offset, &place) || place < 0)
        return answer::Number(call, -1);
    (*file)->Seek(place);
    return answer::Number(call, place);
}

// @fileseekl[handle,n]: to the start of line n, from 0. Its place in bytes, or -1 when there are fewer lines;
// the place is then the end of the file.
int Fileseekl_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nn");
    if (arguments.Error())
        return arguments.Error();
    std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    const bool there = file && arguments.Number(1) >= 0 && (*file)->SeekLine(arguments.Number(1));
    return answer::Number(call, there ? (*file)->Place() : -1);
}

// @truncate[handle[,size]]: the file ends at its present place, or with that many bytes. The size, or -1.
int Truncate_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|n");
    if (arguments.Error())
        return arguments.Error();
    std::unique_ptr<TextFile>* file = FindHandle(arguments.Number(0));
    const std::int64_t size = file ? arguments.Number(1, (*file)->Place()) : -1;
    return answer::Number(call, size >= 0 && (*file)->Cut(size) ? size : -1);
}
