#include "commands/list_commands.h"

#include "commands/definitions.h"
#include "core/command_switches.h"
#include "engine/results.h"

namespace {

int Answer(int code, std::u16string_view arguments, const ListCommand& command)
{
    switch (code) {
    case definition_result::usage: return UsageError();
    case definition_result::notDefined: return MVError(command.notDefined, arguments);
    case definition_result::noStore: return MVError(command.noList, arguments);
    default: return code;
    }
}

} // namespace

int DefineInList(CString& arguments, const ListCommand& command)
{
    int code = result::success;
    if (RefuseDialog(arguments, code))
        return code;
    std::uint64_t switches = 0;
    code = ReadSwitches(arguments, u"GLOPRS", switches, SwitchPlace::Leading);
    if (code != result::success)
        return code;
    auto has = [&](int bit) { return (switches >> bit & 1) != 0; };
    DefinitionRequest request;
    request.stores = ListStores(command.kind, has(1), has(0));
    request.keepExisting = has(2);
    request.pauses = has(3);
    request.fromFiles = has(4);
    request.sorted = has(5);
    return Answer(RunDefinitions(arguments, request), arguments, command);
}

int RemoveFromList(CString& arguments, const ListCommand& command)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"GLQR", switches, SwitchPlace::Leading))
        return code;
    auto has = [&](int bit) { return (switches >> bit & 1) != 0; };
    RemovalRequest request;
    request.stores = ListStores(command.kind, has(1), has(0));
    request.fromFiles = has(3);
    const int code = RemoveDefinitions(arguments, request);
    if (code == definition_result::notDefined && has(2))
        return result::error;
    return Answer(code, arguments, command);
}
