#include "platform/named_event.h"

#include "text/cstring.h"

NamedEvent NamedEvent::OpenOrCreate(std::u16string_view name)
{
    OwnedHandle made(CreateEventW(nullptr, TRUE, FALSE, CString(name).w()));
    const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
    return {std::move(made), isNew};
}

NamedEvent NamedEvent::Open(std::u16string_view name)
{
    return {OwnedHandle(OpenEventW(EVENT_MODIFY_STATE | SYNCHRONIZE, FALSE, CString(name).w())), false};
}
