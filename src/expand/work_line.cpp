#include "expand/work_line.h"

#include <algorithm>
#include <cstring>

namespace {

void Move(char16_t* to, const char16_t* from, std::size_t units)
{
    if (units != 0)
        std::memmove(to, from, units * sizeof(char16_t));
}

} // namespace

WorkLine::~WorkLine()
{
    if (buffer != inlineBuffer)
        delete[] buffer;
}

void WorkLine::Reset(std::u16string_view text)
{
    const std::size_t wanted = text.size() + text.size() / 2;
    if (wanted <= capacity) {
        Move(buffer + capacity - text.size(), text.data(), text.size());
    } else {
        char16_t* larger = new char16_t[wanted];
        Move(larger + wanted - text.size(), text.data(), text.size());
        if (buffer != inlineBuffer)
            delete[] buffer;
        buffer = larger;
        capacity = wanted;
    }
    doneEnd = 0;
    restBegin = capacity - text.size();
}

void WorkLine::Keep(std::size_t units)
{
    Move(buffer + doneEnd, buffer + restBegin, units);
    doneEnd += units;
    restBegin += units;
}

void WorkLine::Add(std::u16string_view text)
{
    MakeRoom(text.size());
    Move(buffer + doneEnd, text.data(), text.size());
    doneEnd += text.size();
}

void WorkLine::PutBack(std::u16string_view text)
{
    MakeRoom(text.size());
    restBegin -= text.size();
    Move(buffer + restBegin, text.data(), text.size());
}

std::u16string_view WorkLine::All()
{
    Keep(capacity - restBegin);
    return Done();
}

void WorkLine::MakeRoom(std::size_t units)
{
    if (restBegin - doneEnd >= units)
        return;
    const std::size_t rest = capacity - restBegin;
    const std::size_t larger = std::max(capacity * 2, doneEnd + rest + units);
    char16_t* grown = new char16_t[larger];
    Move(grown, buffer, doneEnd);
    Move(grown + larger - rest, buffer + restBegin, rest);
    if (buffer != inlineBuffer)
        delete[] buffer;
    buffer = grown;
    capacity = larger;
    restBegin = larger - rest;
}
