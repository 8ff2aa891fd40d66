#include "batch/isolated_command.h"

#include <utility>

#include "batch/local_environment.h"

IsolatedCommand::IsolatedCommand()
{
    TLS_VARIABLES& tls = Tls();
    frameIndex = tls.batchIndex;
    if (BATCH_FRAME* frame = tls.Frame()) {
        frameFlags = frame->flags;
        frameOffset = frame->readOffset;
        frameEcho = frame->echo;
        frame->flags |= frame_flags::callsAlways;
    }
    blocks = std::exchange(tls.blocks, BlockState());
    globals = aGlobals;
    errorLevel = tls.errorLevel;
    lastInternalResult = tls.lastInternalResult;
    BeginLocalEnvironment(environment);
}

IsolatedCommand::~IsolatedCommand()
{
    TLS_VARIABLES& tls = Tls();
    EndLocalEnvironment(environment, {});
    BATCH_FRAME* frame = tls.Frame();
    if (frame && tls.batchIndex == frameIndex) {
        frame->flags = (frame->flags & ~frame_flags::callsAlways) | (frameFlags & frame_flags::callsAlways);
        frame->readOffset = frameOffset;
        frame->echo = frameEcho;
    }
    tls.blocks = blocks;
    tls.errorLevel = errorLevel;
    tls.lastInternalResult = lastInternalResult;
    aGlobals.exitRequested = globals.exitRequested;
    aGlobals.exitCode = globals.exitCode;
    aGlobals.echo = globals.echo;
}
