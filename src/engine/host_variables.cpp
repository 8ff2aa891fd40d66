#include "engine/host_variables.h"

#include <atomic>

#include "engine/movacore.h"

namespace {

std::atomic<HOST_VARIABLE> hostVariable{nullptr};

} // namespace

void SetHostVariables(HOST_VARIABLE answer) { hostVariable = answer; }

bool AskHost(const char16_t* name, CString& value)
{
    constexpr int longest = 32768; // units
    value.Clear();
    const HOST_VARIABLE ask = hostVariable;
    if (!ask)
        return false;
    const int length = ask(name, value.Edit(longest), longest);
    if (length < 0 || length >= longest)
        return false;
    value.SetLength(static_cast<std::size_t>(length));
    return true;
}
