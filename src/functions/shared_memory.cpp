// Memory that programs share by a name, for passing texts and numbers between them. Each piece that is open
// has a number, from 1; offsets are in bytes.
#include "functions/families.h"

#include <cstring>
#include <map>

#include <windows.h>

#include "engine/state.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "lang/function_messages.h"
#include "platform/shared_section.h"

struct SharedPieces {
    std::map<std::int64_t, SharedSection> open;
    std::int64_t last = 0;
};

namespace {

constexpr std::int64_t largestPiece = std::int64_t{64} << 20; // bytes

// The bytes at [offset, offset + size) of the piece of that number; null, and the error to answer, when there
// are none.
std::byte* Find(std::int64_t number, std::int64_t offset, std::int64_t size, int& error)
{
    error = Refuse(errors::noSharedMemory);
    if (!aRooms.sharedPieces)
        return nullptr;
    const auto found = aRooms.sharedPieces->open.find(number);
    if (found == aRooms.sharedPieces->open.end())
        return nullptr;
    const auto room = static_cast<std::int64_t>(found->second.Size());
    error =
        offset < 0 || size < 0 || offset > room || size > room - offset ? Refuse(errors::invalidNumber) : 0;
    return error ? nullptr : static_cast<std::byte*>(found->second.Data()) + offset;
}

bool IsNumberSize(std::int64_t size) { return size == 1 || size == 2 || size == 4 || size == 8; }

} // namespace

// @smopen[name,size]: opens the piece of that name, or makes one of `size` bytes; gives its number.
int Smopen_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    if (arguments.Error())
        return arguments.Error();
    const CString name = FileArgument(arguments.Text(0));
    const std::int64_t size = arguments.Number(1);
    constexpr std::size_t longestName = 200;
    if (size < 1 || size > largestPiece)
        return Refuse(errors::invalidNumber);
    if (name.empty() || name.size() > longestName)
        return Refuse(ERROR_INVALID_NAME);
    SharedSection section = SharedSection::OpenOrCreate(name, static_cast<std::size_t>(size));
    if (!section)
        return Refuse(GetLastError());
    if (!aRooms.sharedPieces)
        aRooms.sharedPieces = std::make_shared<SharedPieces>();
    SharedPieces& pieces = *aRooms.sharedPieces;
    pieces.open.emplace(++pieces.last, std::move(section));
    return answer::Number(call, pieces.last);
}

// @smclose[number]: lets go of the piece and answers 0.
int Smclose_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    if (!aRooms.sharedPieces || aRooms.sharedPieces->open.erase(arguments.Number(0)) == 0)
        return Refuse(errors::noSharedMemory);
    return answer::Number(call, 0);
}

// @smread[number,offset,length]: the text of at most so many characters that stands there, up to a NUL.
int Smread_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nnn");
    if (arguments.Error())
        return arguments.Error();
    constexpr std::int64_t longest = 1000000; // characters
    if (arguments.Number(2) < 0 || arguments.Number(2) > longest)
        return Refuse(errors::invalidNumber);
    const auto bytes = static_cast<std::size_t>(arguments.Number(2)) * sizeof(char16_t);
    int error = 0;
    const std::byte* memory =
        Find(arguments.Number(0), arguments.Number(1), static_cast<std::int64_t>(bytes), error);
    if (!memory)
        return error;
    CString text;
    std::memcpy(text.Edit(bytes / sizeof(char16_t)), memory, bytes);
    text.SetLength(bytes / sizeof(char16_t));
    return answer::ForeignText(call, text.view().substr(0, text.view().find(u'\0')));
}

// @smwrite[number,offset,text]: writes the text and a NUL behind it; gives the number of its characters.
int Smwrite_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nnt");
    if (arguments.Error())
        return arguments.Error();
    const CString text(arguments.Text(2));
    const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
    int error = 0;
    std::byte* memory =
        Find(arguments.Number(0), arguments.Number(1), static_cast<std::int64_t>(bytes), error);
    if (!memory)
        return error;
    std::memcpy(memory, text.c_str(), bytes);
    return answer::Number(call, static_cast<std::int64_t>(text.size()));
}

// @smpeek[number,offset,size]: the number in 1, 2, 4 or 8 bytes. @smpoke[number,offset,size,value]: writes it
// and answers 0.
int Smpeek_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nnn");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t size = arguments.Number(2);
    if (!IsNumberSize(size))
        return Refuse(errors::invalidNumber);
    int error = 0;
    const std::byte* memory = Find(arguments.Number(0), arguments.Number(1), size, error);
    if (!memory)
        return error;
    std::uint64_t value = 0;
    std::memcpy(&value, memory, static_cast<std::size_t>(size));
    return answer::ForeignText(call, Format(u"%I64u", value));
}

int Smpoke_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"nnnn");
    if (arguments.Error())
        return arguments.Error();
    const std::int64_t size = arguments.Number(2);
    if (!IsNumberSize(size))
        return Refuse(errors::invalidNumber);
    int error = 0;
    std::byte* memory = Find(arguments.Number(0), arguments.Number(1), size, error);
    if (!memory)
        return error;
    const std::int64_t value = arguments.Number(3);
    std::memcpy(memory, &value, static_cast<std::size_t>(size));
    return answer::Number(call, 0);
}
