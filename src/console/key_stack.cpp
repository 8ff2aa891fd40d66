#include "console/key_stack.h"

KeyStack aKeyStack;

std::optional<StackedKey> KeyStack::Take()
{
    if (keys.empty())
        return std::nullopt;
    const StackedKey next = keys.front();
    keys.pop_front();
    return next;
}
