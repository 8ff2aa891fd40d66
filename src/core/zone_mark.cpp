#include "core/zone.h"

int ZoneOfStream(std::string_view text)
{
    constexpr std::string_view name = "zoneid=";
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    for (std::size_t at = 0; at + name.size() < text.size(); ++at) {
        std::size_t same = 0;
        while (same < name.size() && lower(text[at + same]) == name[same])
            ++same;
        const char digit = text[at + same];
        const bool lineStart = at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r';
        if (same == name.size() && lineStart && digit >= '0' && digit <= '9')
            return digit - '0';
    }
    return -1;
}
