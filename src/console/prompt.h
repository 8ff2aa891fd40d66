// The prompt: PROMPT's metacharacters (prompt_codes.h) and variables, filled with what holds now. The text
// itself comes from ExpandPrompt of engine/console_entry.h.
#pragma once

// Notes in the environment, for $Z, how many shells this one runs in; called once at start-up.
void CountNestedShell();
