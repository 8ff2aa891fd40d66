// A named piece of memory that processes share, backed by the paging file, and the view of it.
//
// The section lives as long as any process keeps it open. A new one is filled with zeros.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/handle.h"

class SharedSection {
public:
    // Opens the section of that name, whatever its size, or creates it with `bytes`. An empty result leaves
    // the reason in the thread's last error.
    static SharedSection OpenOrCreate(std::u16string_view name, std::size_t bytes);
    // Opens an existing section only.
    static SharedSection Open(std::u16string_view name);

    SharedSection() noexcept = default;
    SharedSection(SharedSection&& other) noexcept { Swap(other); }
    SharedSection& operator=(SharedSection&& other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~SharedSection();

    explicit operator bool() const noexcept { return view != nullptr; }
    void* Data() const noexcept { return view; }
    std::size_t Size() const noexcept { return size; } // bytes that are really mapped: whole pages
    bool Created() const noexcept { return created; }  // by this call, not by another process

private:
    SharedSection(OwnedHandle taken, bool isNew);
    void Swap(SharedSection& other) noexcept;

    OwnedHandle section;
    void* view = nullptr;
    std::size_t size = 0;
    bool created = false;
};
