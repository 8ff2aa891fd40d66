#include "platform/shared_section.h"

#include <cstdint>
#include <utility>

#include "text/cstring.h"

SharedSection::SharedSection(OwnedHandle taken, bool isNew) : section(std::move(taken)), created(isNew)
{
    if (!section)
        return;
    view = MapViewOfFile(section.Get(), FILE_MAP_WRITE, 0, 0, 0);
    MEMORY_BASIC_INFORMATION region;
    if (view && VirtualQuery(view, &region, sizeof region) != 0)
        size = region.RegionSize;
}

SharedSection::~SharedSection()
{
    if (view)
        UnmapViewOfFile(view);
}

void SharedSection::Swap(SharedSection& other) noexcept
{
    std::swap(section, other.section);
    std::swap(view, other.view);
    std::swap(size, other.size);
    std::swap(created, other.created);
}

SharedSection SharedSection::Open(std::u16string_view name)
{
    return {OwnedHandle(OpenFileMappingW(FILE_MAP_WRITE, FALSE, CString(name).w())), false};
}

SharedSection SharedSection::OpenOrCreate(std::u16string_view name, std::size_t bytes)
{
    SharedSection existing = Open(name);
    if (existing)
        return existing;
    const std::uint64_t wide = bytes;
    OwnedHandle made(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE,
                                        static_cast<DWORD>(wide >> 32), static_cast<DWORD>(wide),
                                        CString(name).w()));
    // Another process may have been quicker.
    const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
    return {std::move(made), isNew};
}
