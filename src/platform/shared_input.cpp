#include "platform/shared_input.h"

#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(GetForegroundWindow)> getForeground(libraries::user32, "GetForegroundWindow");
constinit LazyFunction<decltype(AttachThreadInput)> attachInput(libraries::user32, "AttachThreadInput");
constinit LazyFunction<decltype(GetWindowThreadProcessId)> getThread(libraries::user32,
                                                                     "GetWindowThreadProcessId");

} // namespace

SharedInput::SharedInput() : front(getThread(getForeground(), nullptr)), own(GetCurrentThreadId())
{
    attached = front != 0 && front != own && attachInput(own, front, TRUE);
}

SharedInput::~SharedInput()
{
    if (attached)
        attachInput(own, front, FALSE);
}
