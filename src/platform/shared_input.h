// While it lives this thread shares the input of the window in front: it counts as being in front, and sees
// the keyboard as that window does. Where Windows refuses that, nothing changes.
#pragma once

#include <windows.h>

class SharedInput {
public:
    SharedInput();
    ~SharedInput();
    SharedInput(const SharedInput&) = delete;
    SharedInput& operator=(const SharedInput&) = delete;

private:
    DWORD front;
    DWORD own;
    bool attached = false;
};
