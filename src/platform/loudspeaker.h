// The loudness of the machine's sound.
#pragma once

#include <optional>

// 0 to 100; nothing without a sound device.
std::optional<unsigned> ReadLoudness();
