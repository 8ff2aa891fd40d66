#include "text/link_record.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint32_t junctionTag = 0xA0000003;
constexpr std::uint32_t symbolicLinkTag = 0xA000000C;

// The head of both kinds; a symbolic link has one more word of flags in front of its names.
struct Head {
    std::uint32_t tag;
    std::uint16_t dataLength;
    std::uint16_t reserved;
    std::uint16_t substituteOffset; // in bytes, from the start of the names
    std::uint16_t substituteLength;
    std::uint16_t printOffset;
    std::uint16_t printLength;
};

CString NameAt(std::string_view record, std::size_t start, std::size_t length)
{
    CString name;
    if (start + length > record.size())
        return name;
    std::memcpy(name.Edit(length / 2), record.data() + start, length / 2 * 2);
    name.SetLength(length / 2);
    return name;
}

// The name for people when there is one, else that for the system without its prefix.
CString TargetOf(std::string_view record, const Head& head, std::size_t names)
{
    CString target = NameAt(record, names + head.printOffset, head.printLength);
    if (!target.empty())
        return target;
    target = NameAt(record, names + head.substituteOffset, head.substituteLength);
    if (target.view().starts_with(u"\\??\\"))
        target.Erase(0, 4);
    return target;
}

} // namespace

LinkTarget ReadLinkRecord(std::string_view record)
{
    Head head;
    if (record.size() < sizeof head)
        return {LinkKind::Other, {}};
    std::memcpy(&head, record.data(), sizeof head);
    switch (head.tag) {
    case junctionTag: return {LinkKind::Junction, TargetOf(record, head, sizeof head)};
    case symbolicLinkTag:
        return {LinkKind::SymbolicLink, TargetOf(record, head, sizeof head + sizeof(std::uint32_t))};
    default: return {LinkKind::Other, {}};
    }
}

std::string JunctionRecord(std::u16string_view target)
{
    constexpr std::u16string_view prefix = u"\\??\\";
    CString names(prefix);
    names.Append(target).Append(u'\0');
    const std::size_t printStart = names.size();
    names.Append(target).Append(u'\0');
    const auto bytes = [](std::size_t units) { return static_cast<std::uint16_t>(units * sizeof(char16_t)); };
    Head head = {};
    head.tag = junctionTag;
    head.dataLength = static_cast<std::uint16_t>(sizeof head - offsetof(Head, substituteOffset) +
                                                 names.size() * sizeof(char16_t));
    head.substituteLength = bytes(printStart - 1);
    head.printOffset = bytes(printStart);
    head.printLength = bytes(target.size());
    std::string record(sizeof head + names.size() * sizeof(char16_t), '\0');
    std::memcpy(record.data(), &head, sizeof head);
    std::memcpy(record.data() + sizeof head, names.c_str(), names.size() * sizeof(char16_t));
    return record;
}
