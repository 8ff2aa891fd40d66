#include "engine/results.h"
#include "text/cstring.h"

CString LoadMessage(unsigned number, std::u16string_view argument)
{
    CString text = LoadMessage(number);
    const std::size_t place = text.Find(u"%1");
    if (place != CString::npos)
        text.Replace(place, 2, argument);
    return text;
}
