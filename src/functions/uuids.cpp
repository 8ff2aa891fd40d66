#include "functions/families.h"

#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "functions/new_uuid.h"

// @uuid[[version]]: a new UUID; version 4 is random, 1 and 7 begin with the time.
int Uuid_Function(FunctionCall& call)
{
    std::int64_t version = 4;
    if (!CString(call.arguments).Trim().empty() && !ReadNumberArgument(call.arguments, version))
        return answer::invalidNumber;
    const auto uuid = NewUuid(version);
    if (!uuid)
        return version == 1 || version == 4 || version == 7 ? SystemError() : answer::invalidNumber;
    return answer::Text(call, FormatUuid(*uuid));
}
