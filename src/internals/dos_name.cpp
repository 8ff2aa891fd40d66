#include "internals/dos_name.h"

const char16_t* DosName(unsigned version, unsigned build, bool server)
{
    if (version < 603)
        return u"";
    if (version == 603 && build < 10000)
        return server ? u"WIN2012R2" : u"WINDOWS81";
    if (build < 17763)
        return server ? u"WIN2016" : u"WINDOWS10";
    if (build < 22000)
        return server ? u"WIN2019" : u"WINDOWS10";
    return server ? u"WIN2022" : u"WINDOWS11";
}
