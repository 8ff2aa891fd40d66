// Keys that are read before those of the console: what KEYSTACK has put there, and lines that a paste has
// left for later. Everything that reads keys asks here first.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "platform/console_keys.h"

struct StackedKey {
    KeyPress key;
    std::uint64_t delay = 0; // milliseconds to wait before it
};

class KeyStack {
public:
    void Push(const StackedKey& key) { keys.push_back(key); } // behind those that are there
    void Clear() { keys.clear(); }
    bool Empty() const { return keys.empty(); }
    std::size_t Size() const { return keys.size(); }
    // The next key and the time to wait before it is delivered.
    std::optional<StackedKey> Take();

private:
    std::deque<StackedKey> keys;
};

extern KeyStack aKeyStack;
