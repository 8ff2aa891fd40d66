// Buffers: bytes in memory that scripts fill and look at.
//
// A buffer is named by the number that @balloc gave. Places count bytes from 0, negative ones from the end;
// numbers stand in the order of the processor, the lowest byte first.
#include "functions/families.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "files/file_digest.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/buffers.h"
#include "functions/file_answers.h"
#include "lang/function_messages.h"
#include "platform/byte_files.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/encoding.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t mostBuffers = 100;
constexpr std::int64_t largestBuffer = std::int64_t{64} << 20;

constexpr int noBuffer = static_cast<int>(errors::noBuffer);
constexpr int outside = static_cast<int>(errors::outsideBuffer);
constexpr int unknownChoice = static_cast<int>(errors::unknownChoice);

// Buffer n is at n - 1.
std::vector<std::optional<std::string>>& Buffers()
{
    static std::vector<std::optional<std::string>> buffers(mostBuffers);
    return buffers;
}

} // namespace

std::string* FindBuffer(std::int64_t number)
{
    if (number < 1 || number > static_cast<std::int64_t>(mostBuffers))
        return nullptr;
    auto& buffer = Buffers()[static_cast<std::size_t>(number - 1)];
    return buffer ? &*buffer : nullptr;
}

namespace {

// A call about a place in a buffer, which are its first two arguments.
struct Place {
    Place(const FunctionCall& call, View pattern) : arguments(call, pattern), error(arguments.Error())
    {
        if (error != 0)
            return;
        buffer = FindBuffer(arguments.Number(0));
        if (!buffer) {
            error = noBuffer;
            return;
        }
        const auto size = static_cast<std::int64_t>(buffer->size());
        const std::int64_t place = arguments.Number(1) < 0 ? arguments.Number(1) + size : arguments.Number(1);
        error = place < 0 || place > size ? outside : 0;
        offset = static_cast<std::size_t>(place);
    }

    std::size_t Room() const { return buffer->size() - offset; }

    // Argument n as a length within what is left; all of it when missing, less by -length when negative.
    std::size_t Length(std::size_t n) const
    {
        const auto room = static_cast<std::int64_t>(Room());
        const std::int64_t length = arguments.Number(n, room);
        return static_cast<std::size_t>(length < 0 ? std::max<std::int64_t>(room + std::max(length, -room), 0)
                                                   : std::min(length, room));
    }

    FunctionArguments arguments;
    int error;
    std::string* buffer = nullptr;
    std::size_t offset = 0;
};

bool IsNumberSize(std::int64_t size) { return size == 1 || size == 2 || size == 4 || size == 8; }

// Argument n names how a text is kept: "utf8" unless told, or "utf16".
std::optional<bool> IsUtf16(const FunctionArguments& arguments, std::size_t n)
{
    const CString name = CString(arguments.Text(n)).Trim();
    if (EqualNoCase(name, u"utf16"))
        return true;
    return name.empty() || EqualNoCase(name, u"utf8") ? std::optional(false) : std::nullopt;
}

// Writes into a file that may exist, at its end when `place` is negative. 0 or the error.
int WriteAt(const CString& name, std::int64_t place, std::string_view bytes)
{
    const OwnedHandle file(
        CreateFileW(SystemPath(name).w(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS, 0, nullptr));
    LARGE_INTEGER where;
    where.QuadPart = std::max<std::int64_t>(place, 0);
    DWORD written = 0;
    const bool done =
        file && SetFilePointerEx(file.Get(), where, nullptr, place < 0 ? FILE_END : FILE_BEGIN) &&
        WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    return done ? 0 : SystemError();
}

} // namespace

// @balloc[size]: makes a buffer of zeros and gives its number.
int Balloc_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t size = arguments.Number(0);
    if (size < 1 || size > largestBuffer)
        return answer::invalidNumber;
    auto& buffers = Buffers();
    const auto free = std::find(buffers.begin(), buffers.end(), std::nullopt);
    if (free == buffers.end())
        return static_cast<int>(errors::tooManyBuffers);
    free->emplace(static_cast<std::size_t>(size), '\0');
    return answer::Number(call, free - buffers.begin() + 1);
}

// @bfree[buffer]: gives the buffer up; 1.
int Bfree_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error() || !FindBuffer(arguments.Number(0)))
        return arguments.Error() ? arguments.Error() : noBuffer;
    Buffers()[static_cast<std::size_t>(arguments.Number(0) - 1)].reset();
    return answer::Flag(call, true);
}

// @bsize[buffer]
int Bsize_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    const std::string* buffer = arguments.Error() ? nullptr : FindBuffer(arguments.Number(0));
    if (!buffer)
        return arguments.Error() ? arguments.Error() : noBuffer;
    return answer::Number(call, static_cast<std::int64_t>(buffer->size()));
}

// @bpeek[buffer,place[,size]]: the number of 1, 2, 4 or 8 bytes there.
int Bpeek_Function(FunctionCall& call)
{
    const Place place(call, u"nn|n");
    const std::int64_t size = place.arguments.Number(2, 1);
    if (place.error || !IsNumberSize(size))
        return place.error ? place.error : answer::invalidNumber;
    const auto count = static_cast<std::size_t>(size);
    if (count > place.Room())
        return outside;
    std::uint64_t number = 0;
    std::memcpy(&number, place.buffer->data() + place.offset, count);
    return answer::Text(call, Format(u"%u", number));
}

// @bpoke[buffer,place,number[,size]]: puts it there and gives its size.
int Bpoke_Function(FunctionCall& call)
{
    const Place place(call, u"nnn|n");
    const std::int64_t size = place.arguments.Number(3, 1);
    if (place.error || !IsNumberSize(size))
        return place.error ? place.error : answer::invalidNumber;
    const auto count = static_cast<std::size_t>(size);
    if (count > place.Room())
        return outside;
    // What the bytes can hold, with or without sign.
    const std::int64_t number = place.arguments.Number(2);
    const int bits = static_cast<int>(size) * 8;
    if (bits < 64 && (number >= std::int64_t{1} << bits || number < -(std::int64_t{1} << (bits - 1))))
        return answer::invalidNumber;
    std::memcpy(place.buffer->data() + place.offset, &number, count);
    return answer::Number(call, size);
}

// @bpeekstr[buffer,place[,length[,encoding]]]: the text there, up to a NUL or for so many bytes.
int Bpeekstr_Function(FunctionCall& call)
{
    const Place place(call, u"nn|nt");
    const auto utf16 = IsUtf16(place.arguments, 3);
    if (place.error || !utf16)
        return place.error ? place.error : unknownChoice;
    const std::string_view bytes = std::string_view(*place.buffer).substr(place.offset, place.Length(2));
    if (!*utf16)
        return answer::ForeignText(call, FromUtf8(bytes.substr(0, bytes.find('\0'))));
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return answer::ForeignText(call, View(text).substr(0, text.find(u'\0')));
}

// @bpokestr[buffer,place,text[,encoding]]: puts the text there, without a NUL, and gives its size in bytes.
int Bpokestr_Function(FunctionCall& call)
{
    const Place place(call, u"nnt|t");
    const auto utf16 = IsUtf16(place.arguments, 3);
    if (place.error || !utf16)
        return place.error ? place.error : unknownChoice;
    const View text = place.arguments.Text(2);
    const std::string bytes =
        *utf16 ? std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t))
               : ToUtf8(text);
    if (bytes.size() > place.Room())
        return outside;
    bytes.copy(place.buffer->data() + place.offset, bytes.size());
    return answer::Number(call, static_cast<std::int64_t>(bytes.size()));
}

// @bread[buffer,place,file[,length[,from]]]: fills the buffer from the file, which is read from byte `from`,
// and gives the number of bytes that there were.
int Bread_Function(FunctionCall& call)
{
    const Place place(call, u"nnt|nn");
    if (place.error || place.arguments.Number(4) < 0)
        return place.error ? place.error : answer::invalidNumber;
    InputFile file;
    if (!file.Open(FileArgument(place.arguments.Text(2))) ||
        !file.Seek(static_cast<std::uint64_t>(place.arguments.Number(4))))
        return SystemError();
    const std::size_t wanted = place.Length(3);
    std::size_t total = 0;
    for (std::size_t count = 1; total < wanted && count > 0; total += count) {
        if (!file.Read(place.buffer->data() + place.offset + total, wanted - total, count))
            return SystemError();
    }
    return answer::Number(call, static_cast<std::int64_t>(total));
}

// @bwrite[buffer,place,file[,length[,to]]]: writes the bytes to byte `to` of the file, to its end when that
// is -1, and gives their number. Without `to` they are all that the file holds afterwards.
int Bwrite_Function(FunctionCall& call)
{
    const Place place(call, u"nnt|nn");
    if (place.error || place.arguments.Number(4) < -1)
        return place.error ? place.error : answer::invalidNumber;
    const std::string_view bytes = std::string_view(*place.buffer).substr(place.offset, place.Length(3));
    const CString name = FileArgument(place.arguments.Text(2));
    int code = 0;
    if (place.arguments.Has(4)) {
        code = WriteAt(name, place.arguments.Number(4), bytes);
    } else {
        ReplacedFile file;
        code = file.Create(name) && file.Write(bytes) && file.Commit() ? 0 : SystemError();
    }
    return code ? code : answer::Number(call, static_cast<std::int64_t>(bytes.size()));
}
