// Bringing the engine up and down, in the one order in which its floors depend on each other.
#pragma once

#include <string_view>

// Remembers what the start options ask for, before anything else is up. 0, or result::error after reporting a
// switch that does not exist.
struct StartOptions;
void ApplyStartOptions(const StartOptions& options);

// The steps of InitializeDLL behind its exception guard; its result.
int StartEngine(std::u16string_view iniName);
void StopEngine();
