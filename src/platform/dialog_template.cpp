#include "platform/dialog_template.h"

namespace {

constexpr std::size_t itemCountAt = 4; // behind two long numbers
constexpr std::uint16_t fontSize = 8;  // points

} // namespace

DialogTemplate::DialogTemplate(std::uint32_t style, short width, short height, std::u16string_view title)
{
    PutLong(style | DS_SHELLFONT);
    PutLong(0);
    Put(0); // items, known in the end
    PutLong(0);
    Put(static_cast<std::uint16_t>(width));
    Put(static_cast<std::uint16_t>(height));
    PutLong(0); // no menu, the usual class
    PutText(title);
    Put(fontSize);
    PutText(u"MS Shell Dlg");
}

void DialogTemplate::Add(ControlClass kind, std::uint32_t style, const ControlPlace& place, std::uint16_t id,
                         std::u16string_view text)
{
    BeginItem(style, place, id);
    Put(0xFFFF); // a class by its number
    Put(static_cast<std::uint16_t>(kind));
    PutText(text);
    Put(0); // no creation data
}

void DialogTemplate::Add(std::u16string_view className, std::uint32_t style, const ControlPlace& place,
                         std::uint16_t id, std::u16string_view text)
{
    BeginItem(style, place, id);
    PutText(className);
    PutText(text);
    Put(0);
}

const DLGTEMPLATE* DialogTemplate::Get()
{
    words[itemCountAt] = items;
    return reinterpret_cast<const DLGTEMPLATE*>(words.data());
}

void DialogTemplate::PutLong(std::uint32_t value)
{
    Put(static_cast<std::uint16_t>(value));
    Put(static_cast<std::uint16_t>(value >> 16));
}

void DialogTemplate::PutText(std::u16string_view text)
{
    for (const char16_t unit : text)
        Put(unit);
    Put(0);
}

void DialogTemplate::BeginItem(std::uint32_t style, const ControlPlace& place, std::uint16_t id)
{
    if (words.size() % 2 != 0)
        Put(0);
    PutLong(style | WS_CHILD | WS_VISIBLE);
    PutLong(0);
    for (const short value : {place.x, place.y, place.width, place.height})
        Put(static_cast<std::uint16_t>(value));
    Put(id);
    ++items;
}
