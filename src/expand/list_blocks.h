// The memory of the lists: creating the blocks that the settings ask for, reading them without a lock and
// changing them under it. For lists.cpp, which knows what stands in them.
#pragma once

#include <atomic>
#include <memory>

#include "expand/lists.h"
#include "platform/growing_memory.h"
#include "platform/named_lock.h"
#include "platform/shared_section.h"

struct VariableLists {
    struct Kind {
        GrowingMemory local;
        SharedSection global;
        ListControl localControl{};
    };

    Kind kinds[static_cast<int>(ListKind::Count)];
    NamedLock lock;
    NamedLock historyLock; // for console/history_lock.cpp, which makes it on first use
    std::shared_ptr<struct TypedLineNote> typedLine; // console/extended_history.cpp
    std::atomic<int> environmentChanges{0};          // not announced yet
    std::uint64_t beginnings = 0;                    // how often lists were made or dropped
};

VariableLists& Lists();

// Makes a local list longer by a fixed step and its size setting with it; false when memory is out.
bool GrowLocalList(ListKind kind);

// The sections of this user's global lists that exist now. They live while somebody holds them open.
std::vector<SharedSection> OpenGlobalLists();

// Puts a list right that its writer left in the middle; the lock is held.
void RepairIfNeeded(const ListBlock& block);

// The lock of all alias and function lists, and the mark that this thread changes one of them.
class ListUpdate {
public:
    ListUpdate();
    ~ListUpdate();
    ListUpdate(const ListUpdate&) = delete;
    ListUpdate& operator=(const ListUpdate&) = delete;

private:
    NamedLock::Guard guard;
};

// Gives the other side a turn while a list moves.
void WaitForListWriter();

// Calls `read` with the units of a list until it has seen them at rest. A writer who takes too long is either
// very busy or dead: the last try is made under the lock, which finds that out.
template <typename Read> void ReadList(const ListBlock& block, Read read)
{
    constexpr int patience = 64; // turns given away
    if (!block)
        return;
    for (int tries = 0; tries < patience; ++tries) {
        const std::uint32_t before = block.control->changes.load(std::memory_order_acquire);
        if ((before & 1) == 0) {
            read(block.View());
            std::atomic_thread_fence(std::memory_order_acquire);
            if (block.control->changes.load(std::memory_order_relaxed) == before)
                return;
        }
        WaitForListWriter();
    }
    const ListUpdate update;
    RepairIfNeeded(block);
    read(block.View());
}
