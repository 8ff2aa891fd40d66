// Running a command inside this shell as if a shell of its own ran it (FOR /F over a command).
#pragma once

#include "engine/state.h"

// Keeps what the command may change for as long as it lives: the environment and directory, block state, echo
// and exit requests; a batch file that is started comes back.
class IsolatedCommand {
public:
    IsolatedCommand();
    ~IsolatedCommand();
    IsolatedCommand(const IsolatedCommand&) = delete;
    IsolatedCommand& operator=(const IsolatedCommand&) = delete;

private:
    int frameIndex;
    unsigned frameFlags = 0;
    std::int64_t frameOffset = 0;
    bool frameEcho = true;
    BlockState blocks;
    int errorLevel;
    int lastInternalResult;
    GLOBAL_VARIABLES globals;
    std::vector<LocalEnvironment> environment;
};
