// Local environments: what SETLOCAL keeps and ENDLOCAL puts back, and the variables that LOCAL gives back at
// the end of a batch file.
#pragma once

#include <string_view>

#include <vector>

#include "engine/state.h"

constexpr std::size_t maximumLocalEnvironments = 32; // per frame

using LocalEnvironments = std::vector<LocalEnvironment>;

// Those of the current batch file, or of the prompt.
LocalEnvironments& CurrentLocalEnvironments();

// Keeps the environment, the current directory, the delayed-expansion and extension switches and, when there
// is a local list, the aliases.
void BeginLocalEnvironment(LocalEnvironments& open);

// Puts the innermost one back; the variables named in `carried` (words) keep their present values. False when
// none is open.
bool EndLocalEnvironment(LocalEnvironments& open, std::u16string_view carried);
void EndAllLocalEnvironments(LocalEnvironments& open);

// LOCAL: notes the variable's value, or that it has none; the first note counts.
void SaveVariable(BATCH_FRAME& frame, std::u16string_view name);
void RestoreSavedVariables(BATCH_FRAME& frame);
