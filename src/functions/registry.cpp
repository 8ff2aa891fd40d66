// The registry. Places are named as platform/registry_editing.h tells.
#include "functions/families.h"

#include <algorithm>
#include <cstring>

#include "expand/lists.h"
#include "functions/arguments.h"
#include "functions/buffers.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "lang/function_messages.h"
#include "platform/registry_editing.h"
#include "text/path_names.h"

namespace {

using View = std::u16string_view;

constexpr unsigned invalidType = 87;  // Windows' "parameter is incorrect"
constexpr unsigned invalidName = 123; // Windows' "name is incorrect"

// 0 or the error to be answered; the answer of what succeeds is 0.
int AnswerStatus(FunctionCall& call, unsigned status)
{
    return status == 0 ? answer::Number(call, 0) : Refuse(status);
}

template <typename Work> int WithKey(FunctionCall& call, Work work)
{
    RegistryName name;
    const unsigned status = ReadRegistryName(FileArgument(call.arguments), false, name);
    return AnswerStatus(call, status != 0 ? status : work(name));
}

// Reads "key\value,type,data" and writes it.
unsigned SetValue(const FunctionCall& call)
{
    const FunctionArguments arguments(call, u"stt");
    if (arguments.Error())
        return static_cast<unsigned>(arguments.Error());
    RegistryName name;
    RegistryData data;
    if (const unsigned status = ReadRegistryName(FileArgument(arguments.Text(0)), true, name))
        return status;
    if (!ReadRegistryType(CString(arguments.Text(1)).Trim(), data.type) ||
        !ReadRegistryData(arguments.Text(2), data))
        return invalidType;
    return WriteRegistryValue(name, data);
}

} // namespace

// @regcreate[key]: makes the key. @regdelkey[key]: removes it and all that is in it. Both answer 0.
int Regcreate_Function(FunctionCall& call) { return WithKey(call, CreateRegistryKey); }
int Regdelkey_Function(FunctionCall& call)
{
    // "HKCU\Software\%name" without a name is no order to remove all that is there.
    const CString name = FileArgument(call.arguments);
    return !name.empty() && IsPathSeparator(name.back()) ? Refuse(invalidName)
                                                         : WithKey(call, DeleteRegistryKey);
}

// @regcopykey[from,to]: copies everything in a key into another and answers 0.
int Regcopykey_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    RegistryName from;
    RegistryName to;
    unsigned status = ReadRegistryName(FileArgument(arguments.Text(0)), false, from);
    if (status == 0)
        status = ReadRegistryName(FileArgument(arguments.Text(1)), false, to);
    return AnswerStatus(call, status != 0 ? status : CopyRegistryKey(from, to));
}

// @regexist[name]: 1 when there is a key or a value of that name, else 0.
int Regexist_Function(FunctionCall& call)
{
    const CString text = FileArgument(call.arguments);
    RegistryName name;
    if (const unsigned status = ReadRegistryName(text, false, name))
        return Refuse(status);
    bool exists = FindRegistryKey(name) == 0;
    RegistryData data;
    if (!exists && ReadRegistryName(text, true, name) == 0)
        exists = ReadRegistryValue(name, data) == 0;
    return answer::Flag(call, exists);
}

// @regquery[key\value]: what the value holds. @regtype[key\value]: its type.
int Regquery_Function(FunctionCall& call)
{
    RegistryName name;
    RegistryData data;
    unsigned status = ReadRegistryName(FileArgument(call.arguments), true, name);
    if (status == 0)
        status = ReadRegistryValue(name, data);
    return status != 0 ? Refuse(status) : answer::ForeignText(call, RegistryDataText(data));
}

int Regtype_Function(FunctionCall& call)
{
    RegistryName name;
    RegistryData data;
    unsigned status = ReadRegistryName(FileArgument(call.arguments), true, name);
    if (status == 0)
        status = ReadRegistryValue(name, data);
    return status != 0 ? Refuse(status) : answer::ForeignText(call, RegistryTypeName(data.type));
}

// @regset[key\value,type,data]: writes the value, and its key, and answers 0.
int Regset_Function(FunctionCall& call) { return AnswerStatus(call, SetValue(call)); }

// @regsetenv[key\value,type,data]: the same, and tells other programs that environment variables have
// changed.
int Regsetenv_Function(FunctionCall& call)
{
    const unsigned status = SetValue(call);
    if (status == 0)
        AnnounceEnvironment(EnvironmentLevel::User);
    return AnswerStatus(call, status);
}

// @regbread[key\value,buffer]: puts the bytes of the value into a buffer of @balloc, as far as they fit;
// gives their number. @regbwrite[key\value,buffer,length]: makes the first bytes of a buffer the value, of
// the type REG_BINARY, and answers 0.
int Regbread_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    if (arguments.Error())
        return arguments.Error();
    std::string* buffer = FindBuffer(arguments.Number(1));
    if (!buffer)
        return Refuse(errors::noBuffer);
    RegistryName name;
    RegistryData data;
    unsigned status = ReadRegistryName(FileArgument(arguments.Text(0)), true, name);
    if (status == 0)
        status = ReadRegistryValue(name, data);
    if (status != 0)
        return Refuse(status);
    const std::size_t count = std::min(buffer->size(), data.bytes.size());
    std::memcpy(buffer->data(), data.bytes.data(), count);
    return answer::Number(call, static_cast<std::int64_t>(count));
}

int Regbwrite_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"snn");
    if (arguments.Error())
        return arguments.Error();
    const std::string* buffer = FindBuffer(arguments.Number(1));
    const std::int64_t length = arguments.Number(2);
    if (!buffer)
        return Refuse(errors::noBuffer);
    if (length < 0 || length > static_cast<std::int64_t>(buffer->size()))
        return Refuse(errors::invalidNumber);
    RegistryName name;
    if (const unsigned status = ReadRegistryName(FileArgument(arguments.Text(0)), true, name))
        return Refuse(status);
    constexpr unsigned binary = 3; // REG_BINARY
    const auto* bytes = reinterpret_cast<const std::byte*>(buffer->data());
    return AnswerStatus(call, WriteRegistryValue(name, {binary, {bytes, bytes + length}}));
}
